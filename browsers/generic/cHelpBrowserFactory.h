#pragma once
#include "iWebBrowserFactory.h"

// Recognises the HTML Help viewer, "hh.exe".
class cHelpBrowserFactory : public iWebBrowserFactory {
public:
    bool CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr& commandName) override;
    bool IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) override;
};
