#pragma once
#include "iWebBrowserFactory.h"

// Recognises the Netscape browsers: Navigator and Netscape 8 by their program's name in front,
// and, as the default browser, Navigator or Netscape 7 by the installed program's version.
class cNetscapeWebBrowserFactory : public iWebBrowserFactory {
public:
    bool CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr& commandName) override;
    bool IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) override;
};
