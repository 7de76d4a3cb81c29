#pragma once
#include <windows.h>
#include "CStdStr.h"

// The clipboard held open for one scope: opened on construction when asked, closed by Close or
// on destruction. The earlier clipboard content is not kept.
class ClassicClipboard {
public:
    ClassicClipboard(bool open, HWND owner) noexcept;
    ~ClassicClipboard();
    ClassicClipboard(const ClassicClipboard&) = delete;
    ClassicClipboard& operator=(const ClassicClipboard&) = delete;

    // False when another window holds the clipboard open.
    bool Open(HWND owner) noexcept;
    void Close() noexcept;
    bool IsOpen() const noexcept { return open_; }

    // Empties the clipboard and puts text on it as CF_UNICODETEXT; needs the clipboard open.
    bool SetUnicodeText(const CStdStr& text) noexcept;

private:
    bool open_ = false;
};
