#include "WebBrowserSupport.h"
#include <shellapi.h>
#include "browsers/generic/cGenericWebBrowser.h"
#include "commands/OpenCommandCut.h"
#include "tovutil/CRegistry.h"

namespace {
using Browser = counted_ptr<iWebBrowser>;

Browser ForegroundBrowser(const wchar_t* commandName, HWND window) {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    return list ? list->GetForegroundWebBrowser(CStdStr(commandName), window) : Browser();
}

Browser DefaultBrowser() {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    return list ? list->GetDefaultWebBrowser() : Browser();
}

// The foreground browser, or else the user's default browser.
Browser ForegroundOrDefaultBrowser(const wchar_t* commandName) {
    Browser browser = ForegroundBrowser(commandName, nullptr);
    if (!browser) browser = DefaultBrowser();
    return browser;
}

bool Navigate(IEventMgr* eventMgr, HWND window, const wchar_t* commandName, AppCommand code) {
    Browser browser = ForegroundBrowser(commandName, window);
    // No browser recognised: a generic browser on the window still sends the application
    // command to it, or with no window presses the mouse's extra button under the pointer.
    cGenericWebBrowser generic(window, eventMgr);
    iWebBrowser& target = browser ? *browser : generic;
    const bool useAppCommand = window != nullptr;
    return code == AppCommandBack ? target.Back(useAppCommand, eventMgr) : target.Forward(useAppCommand, eventMgr);
}

bool ShellOpen(const wchar_t* file, const wchar_t* parameters, const wchar_t* verb, int showCommand) {
    const HINSTANCE result = ::ShellExecuteW(nullptr, verb, file, parameters, nullptr, showCommand);
    return reinterpret_cast<INT_PTR>(result) > 32;
}
}  // namespace

bool BrowserBack(IEventMgr* eventMgr, HWND window) noexcept {
    try {
        return Navigate(eventMgr, window, L"BACK", AppCommandBack);
    } catch (...) {
        return false;
    }
}

bool BrowserForward(IEventMgr* eventMgr, HWND window) noexcept {
    try {
        return Navigate(eventMgr, window, L"FORWARD", AppCommandForward);
    } catch (...) {
        return false;
    }
}

bool BrowserRefresh(HWND window) noexcept {
    try {
        Browser browser = ForegroundBrowser(L"REFRESH", window);
        return browser && browser->Refresh(window != nullptr);
    } catch (...) {
        return false;
    }
}

bool BrowserSearch() noexcept {
    try {
        Browser browser = ForegroundOrDefaultBrowser(L"SEARCH");
        return browser && browser->Search();
    } catch (...) {
        return false;
    }
}

bool BrowserShowFavorites() noexcept {
    try {
        Browser browser = ForegroundOrDefaultBrowser(L"FAVORITES");
        return browser && browser->ShowFavorites();
    } catch (...) {
        return false;
    }
}

bool GoToWebAddress(const CStdStr& url, bool, ITrigger*) noexcept {
    try {
        Browser browser = ForegroundOrDefaultBrowser(L"WEBADDRESS");
        return browser && browser->GoToWebAddress(url);
    } catch (...) {
        return false;
    }
}

bool GoToBrowserHome(HWND window) noexcept {
    try {
        if (Browser browser = ForegroundBrowser(L"HOME", window)) return browser->GoHome(window != nullptr);
        // A browser that is not in front is opened on its own start page.
        Browser browser = DefaultBrowser();
        return browser && browser->GoToWebAddress(CStdStr());
    } catch (...) {
        return false;
    }
}

bool GotoURL(const CStdStr& url, int showCommand) noexcept {
    try {
        if (ShellOpen(url.c_str(), nullptr, L"open", showCommand)) return true;

        CStdStr progId;
        if (CRegistry::ReadString(HKEY_CLASSES_ROOT, L".htm", nullptr, progId) != ERROR_SUCCESS) return false;
        CStdStr command;
        if (CRegistry::ReadString(HKEY_CLASSES_ROOT, (progId + L"\\shell\\open\\command").c_str(), nullptr, command) !=
            ERROR_SUCCESS)
            return false;

        // The whole (cut) command is the file to run and the URL its parameter.
        const std::wstring program = CutOpenCommand(command);
        return ShellOpen(program.c_str(), url.c_str(), nullptr, showCommand);
    } catch (...) {
        return false;
    }
}
