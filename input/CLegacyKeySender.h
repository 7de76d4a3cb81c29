#pragma once
#include "CStdStr.h"

// Replays a button as the key string the user mapped to it for the application in front and the
// class of the window that has the keyboard focus (mapping files, see LookupButtonKeys).
class CLegacyKeySender {
public:
    // Fills the process-wide button-name table the first time a sender is built.
    CLegacyKeySender();
    virtual ~CLegacyKeySender() = default;
    CLegacyKeySender(const CLegacyKeySender&) = delete;
    CLegacyKeySender& operator=(const CLegacyKeySender&) = delete;

    // pressed non-zero: a press (repeated non-zero: the button's auto-repeat); zero: the release.
    // Returns 1 for a press, 0 for a release.
    virtual int SendButton(unsigned short button, int pressed, int repeated);

    // The mapping file becomes <folder of the main executable>\<name>.QXM.
    void SetMappingFileBase(const wchar_t* name);

private:
    CStdStr keys_;             // found for the last press; sent again on auto-repeat
    CStdStr mappingFileBase_;  // mapping file without ".QXM"; empty: the foreground process's name
    CStdStr extraText_;        // handed to the look-up, which does not read it
};
