#pragma once
#include <windows.h>
#include "CStdStr.h"

class iWebBrowser;
class CProcessFinder;

// Recognises one browser family and makes its driver. Factories hold no state; the driver a
// factory makes belongs to the caller.
class iWebBrowserFactory {
public:
    virtual ~iWebBrowserFactory() = default;
    // True when this factory serves the program that owns window (and accepts the command);
    // out then holds a new driver bound to window.
    virtual bool CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out,
                               const CStdStr& commandName) = 0;
    // True when programPath names this factory's program; out then holds a driver with no window.
    virtual bool IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) = 0;
};
