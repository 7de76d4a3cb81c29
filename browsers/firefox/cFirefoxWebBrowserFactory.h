#pragma once
#include "iWebBrowserFactory.h"

// Recognises Firefox by the name of its program.
class cFirefoxWebBrowserFactory : public iWebBrowserFactory {
public:
    bool CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr& commandName) override;
    bool IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) override;
};
