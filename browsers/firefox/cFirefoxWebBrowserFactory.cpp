#include "browsers/firefox/cFirefoxWebBrowserFactory.h"
#include <new>
#include "browsers/firefox/cFirefoxWebBrowser.h"
#include "core/StringCase.h"
#include "tovutil/CProcessFinder.h"

bool cFirefoxWebBrowserFactory::CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out,
                                              const CStdStr&) {
    if (window == nullptr || finder == nullptr) return false;
    CStdStr programName = finder->GetForegroundProcessName(window);
    LowerCaseInPlace(programName);
    if (programName != FirefoxConstants::ProgramName) return false;
    out = new (std::nothrow) cFirefoxWebBrowser(window);
    return out != nullptr;
}

// The default-browser command line is searched as it stands, capitals included.
bool cFirefoxWebBrowserFactory::IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) {
    if (programPath.find(FirefoxConstants::ProgramName) == CStdStr::npos) return false;
    out = new (std::nothrow) cFirefoxWebBrowser();
    return out != nullptr;
}
