#pragma once
#include <windows.h>
#include "AppCommand.h"
#include "CStdStr.h"
#include "FavoritesList.h"
#include "HistoryList.h"
#include "PageInfo.h"

class IEventMgr;

// One browser family's driver. Every result is true when the command was delivered.
// The slot order is part of the interface.
class iWebBrowser {
public:
    virtual ~iWebBrowser() = default;
    virtual bool Back(bool useAppCommand, IEventMgr* eventMgr) = 0;
    virtual bool Forward(bool useAppCommand, IEventMgr* eventMgr) = 0;
    virtual bool GoHome(bool toBrowserWindow) = 0;
    virtual bool Search() = 0;
    virtual bool GoToWebAddress(const CStdStr& url) = 0;
    virtual bool Refresh(bool toBrowserWindow) = 0;
    virtual bool Launch(const CStdStr& url) = 0;
    virtual bool Stop() = 0;
    virtual bool GetCurrentPage(PageInfo& out) = 0;
    virtual bool BringToFront() = 0;
    virtual bool ShowFavorites() = 0;
    virtual bool GetFavorites(FavoritesList& out) = 0;
    virtual bool ShowHistory() = 0;
    virtual bool GetHistory(HistoryList& out) = 0;
    virtual bool SendAppCommand(HWND window, AppCommand code, bool keepWindow) = 0;
    virtual bool GetProgramPath(CStdStr& programPath, CStdStr& arguments) = 0;
};
