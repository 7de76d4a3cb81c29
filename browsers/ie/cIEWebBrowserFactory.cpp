#include "browsers/ie/cIEWebBrowserFactory.h"
#include <new>
#include "browsers/ie/cIEWebBrowser.h"
#include "core/StringCase.h"
#include "tovutil/CProcessFinder.h"

namespace {
using Names = InternetExplorerConstants;

// Folder windows navigate like the browser only for these three commands.
bool IsFolderCommand(const CStdStr& commandName) {
    return commandName == L"BACK" || commandName == L"FORWARD" || commandName == L"REFRESH";
}
}  // namespace

bool cIEWebBrowserFactory::CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out,
                                         const CStdStr& commandName) {
    if (window == nullptr || finder == nullptr) return false;
    wchar_t className[260] = {};
    ::GetClassNameW(window, className, 259);
    if (::lstrcmpW(className, Names::FrameClass.c_str()) != 0 && ::lstrcmpW(className, Names::ExploreClass.c_str()) != 0 &&
        ::lstrcmpW(className, Names::CabinetClass.c_str()) != 0)
        return false;
    // Whatever the class, a window of the shell's own process is a folder window.
    CStdStr programName = finder->GetForegroundProcessName(window);
    LowerCaseInPlace(programName);
    if (programName == Names::ShellProcess && !IsFolderCommand(commandName)) return false;
    out = new (std::nothrow) cIEWebBrowser(window);
    return out != nullptr;
}

// The default-browser command line is searched as it stands, capitals included.
bool cIEWebBrowserFactory::IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) {
    if (programPath.find(Names::ProgramFile) == CStdStr::npos) return false;
    out = new (std::nothrow) cIEWebBrowser();
    return out != nullptr;
}
