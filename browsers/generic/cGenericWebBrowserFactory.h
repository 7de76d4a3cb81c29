#pragma once
#include "iWebBrowserFactory.h"

// Registered among the families but claims nothing: unknown programs get no driver from the list.
class cGenericWebBrowserFactory : public iWebBrowserFactory {
public:
    bool CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr& commandName) override;
    bool IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) override;
};
