#include "browsers/generic/cHelpBrowserFactory.h"
#include <new>
#include "browsers/generic/cHelpBrowser.h"
#include "core/StringCase.h"
#include "tovutil/CProcessFinder.h"

namespace {
const CStdStr kHelpProgram(L"hh.exe");
}

bool cHelpBrowserFactory::CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr&) {
    if (window == nullptr || finder == nullptr) return false;
    CStdStr programName = finder->GetForegroundProcessName(window);
    LowerCaseInPlace(programName);
    if (programName == kHelpProgram) out = new (std::nothrow) cHelpBrowser(window);
    return out != nullptr;
}

// The default-browser command line is searched as it stands, capitals included.
bool cHelpBrowserFactory::IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) {
    if (programPath.find(kHelpProgram) == CStdStr::npos) return false;
    out = new (std::nothrow) cHelpBrowser();
    return out != nullptr;
}
