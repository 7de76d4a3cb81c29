#pragma once
#include "iWebBrowserFactory.h"

// Recognises Internet Explorer's frame and, for back, forward and refresh, Explorer folder windows.
class cIEWebBrowserFactory : public iWebBrowserFactory {
public:
    bool CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr& commandName) override;
    bool IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) override;
};
