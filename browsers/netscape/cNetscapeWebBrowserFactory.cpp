#include "browsers/netscape/cNetscapeWebBrowserFactory.h"
#include <new>
#include "browsers/netscape/cNetscape7WebBrowser.h"
#include "browsers/netscape/cNetscape8WebBrowser.h"
#include "browsers/netscape/cNetscapeWebBrowser.h"
#include "core/StringCase.h"
#include "tovutil/CProcessFinder.h"
#include "tovutil/CVerInfo.h"
#include "tovutil/FindApplicationPath.h"

namespace {
const wchar_t kExtension[] = L"exe";

// The major file version of the installed Navigator, else of the installed Netscape 7; 0 when the
// program is found but carries no readable version. False when neither is installed.
bool InstalledNetscapeMajor(WORD& major) {
    CStdStr path;
    if (!FindApplicationPath(NetscapeConstants::ProgramName, kExtension, path) &&
        !FindApplicationPath(Netscape7Constants::ProgramName, kExtension, path))
        return false;
    CVerInfo info;
    CVerNum version;
    major = info.Init(path.c_str()) && info.GetFileVersionNum(version) ? version.GetMajor() : 0;
    return true;
}
}  // namespace

bool cNetscapeWebBrowserFactory::CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out,
                                               const CStdStr&) {
    if (window == nullptr || finder == nullptr) return false;
    CStdStr programName = finder->GetForegroundProcessName(window);
    LowerCaseInPlace(programName);
    if (programName == L"navigator.exe")
        out = new (std::nothrow) cNetscapeWebBrowser(window);
    else if (programName == L"netscape.exe")
        out = new (std::nothrow) cNetscape8WebBrowser(window);
    // The Netscape 7 constant keeps its capital N while the name is lower-cased, so such windows
    // fall through to the generic driver; hosts rely on that.
    else if (programName == Netscape7Constants::ProgramName)
        out = new (std::nothrow) cNetscape7WebBrowser(window);
    else
        return false;
    return out != nullptr;
}

// The default-browser command line only tells that some Netscape is wanted (searched as it stands,
// capitals included); which driver serves it is decided by the installed program's version.
bool cNetscapeWebBrowserFactory::IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) {
    if (programPath.find(L"navigator") == CStdStr::npos && programPath.find(L"naviga~1") == CStdStr::npos)
        return false;
    WORD major = 0;
    if (!InstalledNetscapeMajor(major)) return false;
    if (major == 7)
        out = new (std::nothrow) cNetscape7WebBrowser();
    // Netscape 8 as the default browser is driven as Navigator, though it is told apart here.
    else if (major == 8)
        out = new (std::nothrow) cNetscapeWebBrowser();
    else
        out = new (std::nothrow) cNetscapeWebBrowser();
    return out != nullptr;
}
