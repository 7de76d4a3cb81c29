#include "browsers/opera/cOperaWebBrowser.h"
#include "browsers/StartProgram.h"
#include <string>
#include "browsers/MozillaFamily.h"
#include "browsers/RaiseWindow.h"
#include "browsers/opera/OperaProgramPath.h"
#include "tovutil/ForegroundAttentionGrabber.h"

namespace {
const wchar_t kServiceName[] = L"Opera";
const wchar_t kMainWindowClass[] = L"OpWindow";
const wchar_t kOtherWindowClass[] = L"OUIWINDOW";

}  // namespace

cOperaWebBrowser::cOperaWebBrowser(HWND window) : cGenericWebBrowser(window), cNavigateUtility(CStdStr(kServiceName)) {
    keySender_.SetMappingFileBase(MappingName.c_str());
}

bool cOperaWebBrowser::OpenURL(HWND, const CStdStr& url) {
    ForegroundAttentionGrabber grabber;
    CStdStr programPath;
    CStdStr arguments;
    if (!GetProgramPath(programPath, arguments)) return false;
    arguments += url;
    std::wstring commandLine = QuotedCommandLine(programPath, arguments);
    const bool started = static_cast<bool>(StartIdleProcess(commandLine.data(), false));

    // Opera may take a while to show its window; the wait does not change the result.
    WaitDoubling([] { return ::GetForegroundWindow() == nullptr; });
    return started;
}

bool cOperaWebBrowser::RaiseOpera() {
    const HWND mainWindow = ::FindWindowW(kMainWindowClass, nullptr);
    if (mainWindow == nullptr) return false;
    // Opera may be minimised through its other top-level window while the main one is not.
    const HWND otherWindow = ::FindWindowW(kOtherWindowClass, nullptr);
    if (::IsWindow(otherWindow) && ::IsIconic(otherWindow))
        ::ShowWindow(otherWindow, SW_RESTORE);
    else if (::IsIconic(mainWindow))
        ::ShowWindow(mainWindow, SW_RESTORE);
    return RaiseWindow(mainWindow);
}

bool cOperaWebBrowser::GoToWebAddress(const CStdStr& url) {
    if (url.empty()) {
        const HWND mainWindow = ::FindWindowW(kMainWindowClass, nullptr);
        if (mainWindow != nullptr) {
            window = mainWindow;
            RaiseOpera();
            return GoHome(true);
        }
    }
    const bool opened = OpenURL(window, url);
    RaiseOpera();
    return opened;
}

bool cOperaWebBrowser::GetCurrentPage(PageInfo& out) { return CurrentPage(out); }

bool cOperaWebBrowser::ShowFavorites() { return PressMappedButton(keySender_, MozillaButton::OpenFavorites); }

bool cOperaWebBrowser::GetFavorites(FavoritesList& out) { return favorites_.GetFavorites(out); }

bool cOperaWebBrowser::ShowHistory() { return PressMappedButton(keySender_, MozillaButton::History); }

bool cOperaWebBrowser::GetHistory(HistoryList& out) { return history_.FindHistory(out); }

bool cOperaWebBrowser::GetProgramPath(CStdStr& programPath, CStdStr& arguments) {
    arguments.clear();
    return FindOperaProgramPath(ProgramName.c_str(), programPath);
}
