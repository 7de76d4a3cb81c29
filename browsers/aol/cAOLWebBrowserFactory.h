#pragma once
#include "iWebBrowserFactory.h"

// Recognises the AOL client by the name of its program; as the default browser, only AOL 8 and 9.
class cAOLWebBrowserFactory : public iWebBrowserFactory {
public:
    bool CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr& commandName) override;
    bool IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) override;
};
