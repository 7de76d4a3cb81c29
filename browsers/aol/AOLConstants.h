#pragma once
#include "CStdStr.h"

// AOL's names, built when the library loads.
class AOLConstants {
public:
    static const CStdStr FrameClass;         // "AOL Frame25": the client's MDI frame
    static const CStdStr ToolbarClass;       // "AOL Toolbar": the frame's toolbar
    static const CStdStr InnerToolbarClass;  // "_AOL_Toolbar": the toolbar whose buttons are walked
    static const CStdStr ComboClass;         // "_AOL_Combobox": the address box
    static const CStdStr EditClass;          // "Edit": the address box's text
    static const CStdStr RegistryKey;        // "SOFTWARE\America Online\AOL\CurrentVersion", under HKLM
    static const CStdStr AppPathValue;       // "AppPath": the AOL program folder
    static const CStdStr ProgramName;        // "waol.exe"
    static const CStdStr ExplorerName;       // "aexplore.exe": AOL's own browser window
    static const CStdStr ShortProgramName;   // "aol.exe"
    static const CStdStr LaunchSuffix;       // "\waol.exe": the program started for an address
    static const CStdStr VersionSuffix;      // "\WAOL.EXE": the program whose version is checked
    static const CStdStr AddressPrefix;      // "-u" and an opening double quote
    static const CStdStr AddressSuffix;      // the closing double quote
};
