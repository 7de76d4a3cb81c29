#include "browsers/generic/cGenericWebBrowser.h"
#include <typeinfo>
#include "IEventMgr.h"
#include "IHandler.h"
#include "browsers/StartProgram.h"
#include "core/StringCase.h"
#include "tovutil/CProcessFinder.h"

namespace {
const CStdStr kAppOverridesMacro(L"AppOverrides");
const CStdStr kExeNameParameter(L"ExeName");
const CStdStr kActionNameParameter(L"ActionName");
const CStdStr kInternetExplorerProgram(L"iexplore.exe");
const wchar_t kImagePreviewClass[] = L"ShImgVw:CPreviewWnd";

void PressArrow(BYTE key, bool withKeyDown) noexcept {
    if (withKeyDown) {
        ::keybd_event(key, 0, 0, 0);
        ::Sleep(10);
    }
    ::keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
}
}  // namespace

void cGenericWebBrowser::ClickExtraButton(DWORD button) noexcept {
    ::mouse_event(MOUSEEVENTF_XDOWN, 0, 0, button, 0);
    ::Sleep(10);
    ::mouse_event(MOUSEEVENTF_XUP, 0, 0, button, 0);
}

bool cGenericWebBrowser::Navigate(bool useAppCommand, IEventMgr* newEventMgr, AppCommand code) {
    if (newEventMgr != nullptr) eventMgr = newEventMgr;
    if (useAppCommand) return SendAppCommand(window, code, true);
    ClickExtraButton(code == AppCommandBack ? XBUTTON1 : XBUTTON2);
    return true;
}

bool cGenericWebBrowser::Back(bool useAppCommand, IEventMgr* newEventMgr) {
    return Navigate(useAppCommand, newEventMgr, AppCommandBack);
}

bool cGenericWebBrowser::Forward(bool useAppCommand, IEventMgr* newEventMgr) {
    return Navigate(useAppCommand, newEventMgr, AppCommandForward);
}

bool cGenericWebBrowser::GoHome(bool toBrowserWindow) {
    return SendAppCommand(window, AppCommandHome, toBrowserWindow);
}

bool cGenericWebBrowser::Search() { return SendAppCommand(window, AppCommandSearch, false); }

bool cGenericWebBrowser::GoToWebAddress(const CStdStr& url) { return Launch(url); }

bool cGenericWebBrowser::Refresh(bool toBrowserWindow) {
    return SendAppCommand(window, AppCommandRefresh, toBrowserWindow);
}

bool cGenericWebBrowser::Launch(const CStdStr& url) {
    CStdStr programPath;
    CStdStr arguments;
    if (!GetProgramPath(programPath, arguments)) return false;
    arguments += url;
    std::wstring commandLine = QuotedCommandLine(programPath, arguments);
    return StartProgram(commandLine.c_str(), &window);
}

bool cGenericWebBrowser::Stop() { return SendAppCommand(window, AppCommandStop, false); }

bool cGenericWebBrowser::GetCurrentPage(PageInfo&) { return false; }

bool cGenericWebBrowser::BringToFront() {
    if (window == nullptr) return false;
    ::ShowWindow(window, SW_SHOW);
    return true;
}

bool cGenericWebBrowser::ShowFavorites() { return SendAppCommand(window, AppCommandFavorites, false); }

bool cGenericWebBrowser::GetFavorites(FavoritesList&) { return false; }

bool cGenericWebBrowser::ShowHistory() { return false; }

bool cGenericWebBrowser::GetHistory(HistoryList&) { return false; }

bool cGenericWebBrowser::SendAppCommand(HWND target, AppCommand code, bool keepWindow) {
    // A browser with no window is started first; the command still goes to the window given
    // (or to the one under the pointer), not to the started browser.
    if (target == nullptr) Launch(CStdStr());
    if (!keepWindow) {
        POINT cursor = {};
        ::GetCursorPos(&cursor);
        target = ::WindowFromPoint(cursor);
    }

    const LPARAM lParam = static_cast<LPARAM>(code) << 16;
    if (::SendMessageW(target, WM_APPCOMMAND, reinterpret_cast<WPARAM>(target), lParam) != 0) return true;
    if (eventMgr == nullptr) return true;

    IMacro* macro = eventMgr->GetMacro(kAppOverridesMacro.c_str());
    IHandler* handler = dynamic_cast<IHandler*>(macro);

    CStdStr programName;
    if (CProcessFinder* finder = CProcessFinder::Instance(false)) {
        DWORD processId = 0;
        ::GetWindowThreadProcessId(target, &processId);
        programName = finder->GetProcessName(processId);
    }
    // The macro goes back to the host only once it has been offered the command; these early
    // exits leave it with the host, as the host's event manager has always expected.
    if (handler == nullptr || programName.empty()) return true;

    wchar_t foregroundClass[254] = {};
    ::GetClassNameW(::GetForegroundWindow(), foregroundClass, 254);

    const bool isBack = code == AppCommandBack;
    const bool isForward = code == AppCommandForward;
    if (!EqualsNoCase(programName, kInternetExplorerProgram)) {
        handler->SetStringParameter(kExeNameParameter.c_str(), programName.c_str());
        if (isForward || isBack) {
            handler->SetStringParameter(kActionNameParameter.c_str(), isForward ? L"FORWARD" : L"BACK");
            if (handler->Run() == 0) {
                // The image previewer acts on the key's release alone; a press there would act twice.
                const bool withKeyDown = std::wcscmp(foregroundClass, kImagePreviewClass) != 0;
                PressArrow(isForward ? VK_RIGHT : VK_LEFT, withKeyDown);
            }
        }
    } else if (isForward || isBack) {
        PressArrow(isForward ? VK_RIGHT : VK_LEFT, true);
    }
    macro->Release();
    return true;
}

bool cGenericWebBrowser::GetProgramPath(CStdStr&, CStdStr&) { return false; }
