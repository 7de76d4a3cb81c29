#include "browsers/chrome/cChromeBrowserFactory.h"
#include <new>
#include "browsers/chrome/ChromeConstants.h"
#include "browsers/chrome/cChromeBrowser.h"
#include "core/StringCase.h"
#include "tovutil/CProcessFinder.h"

// Any window of a Chrome process is Chrome's, so the window class is not looked at.
bool cChromeBrowserFactory::CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr&) {
    if (window == nullptr || finder == nullptr) return false;
    CStdStr programName = finder->GetForegroundProcessName(window);
    LowerCaseInPlace(programName);
    if (programName == ChromeConstants::ProgramName) out = new (std::nothrow) cChromeBrowser(window);
    return out != nullptr;
}

// The default-browser command line is searched as it stands, capitals included.
bool cChromeBrowserFactory::IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) {
    if (programPath.find(ChromeConstants::ProgramName) == CStdStr::npos) return false;
    out = new (std::nothrow) cChromeBrowser();
    return out != nullptr;
}
