#include "browsers/opera/cOperaWebBrowserFactory.h"
#include <new>
#include "browsers/opera/cOperaWebBrowser.h"
#include "core/StringCase.h"
#include "tovutil/CProcessFinder.h"

bool cOperaWebBrowserFactory::CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr&) {
    if (window == nullptr || finder == nullptr) return false;
    CStdStr programName = finder->GetForegroundProcessName(window);
    LowerCaseInPlace(programName);
    if (programName != OperaConstants::ProgramName) return false;
    out = new (std::nothrow) cOperaWebBrowser(window);
    return out != nullptr;
}

// The default-browser command line is searched as it stands: a path written "Opera.exe" is not Opera's.
bool cOperaWebBrowserFactory::IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) {
    if (programPath.find(OperaConstants::ProgramName) == CStdStr::npos) return false;
    out = new (std::nothrow) cOperaWebBrowser();
    return out != nullptr;
}
