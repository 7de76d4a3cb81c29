#pragma once
#include <windows.h>
#include "iWebBrowser.h"

class IEventMgr;

// The browser-neutral driver every family derives from: application commands to a window, the
// host's "AppOverrides" macro and arrow keys behind Back and Forward, and starting the program.
class cGenericWebBrowser : public iWebBrowser {
public:
    explicit cGenericWebBrowser(HWND window = nullptr, IEventMgr* eventMgr = nullptr) noexcept
        : window(window), eventMgr(eventMgr) {}

    bool Back(bool useAppCommand, IEventMgr* eventMgr) override;
    bool Forward(bool useAppCommand, IEventMgr* eventMgr) override;
    bool GoHome(bool toBrowserWindow) override;
    bool Search() override;
    bool GoToWebAddress(const CStdStr& url) override;
    bool Refresh(bool toBrowserWindow) override;
    bool Launch(const CStdStr& url) override;
    bool Stop() override;
    bool GetCurrentPage(PageInfo& out) override;
    bool BringToFront() override;
    bool ShowFavorites() override;
    bool GetFavorites(FavoritesList& out) override;
    bool ShowHistory() override;
    bool GetHistory(HistoryList& out) override;
    bool SendAppCommand(HWND window, AppCommand code, bool keepWindow) override;
    bool GetProgramPath(CStdStr& programPath, CStdStr& arguments) override;

    HWND Window() const noexcept { return window; }
    IEventMgr* EventMgr() const noexcept { return eventMgr; }

protected:
    // Presses the mouse's extra button 1 (back) or 2 (forward) under the pointer, held 10 ms.
    static void ClickExtraButton(DWORD button) noexcept;
    // Back and Forward share one body: app command 1 / X button 1, app command 2 / X button 2.
    bool Navigate(bool useAppCommand, IEventMgr* eventMgr, AppCommand code);

    HWND window;          // the browser's top-level window; null for a browser still to be started
    IEventMgr* eventMgr;  // the host's, borrowed; kept once given
};
