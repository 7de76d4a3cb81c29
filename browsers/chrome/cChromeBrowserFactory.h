#pragma once
#include "iWebBrowserFactory.h"

// Recognises Chrome by the name of its program, whatever the window.
class cChromeBrowserFactory : public iWebBrowserFactory {
public:
    bool CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr& commandName) override;
    bool IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) override;
};
