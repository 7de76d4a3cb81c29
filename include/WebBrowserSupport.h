#pragma once
#include <windows.h>
#include "CStdStr.h"
#include "WbsApi.h"
#include "cWebBrowserFactoryList.h"

class IEventMgr;
class ITrigger;

// The commands a host binds to buttons. Each returns true when the command was delivered;
// none lets an exception out.
WBS_API bool BrowserBack(IEventMgr* eventMgr, HWND window) noexcept;
WBS_API bool BrowserForward(IEventMgr* eventMgr, HWND window) noexcept;
WBS_API bool BrowserRefresh(HWND window) noexcept;
WBS_API bool BrowserSearch() noexcept;
WBS_API bool BrowserShowFavorites() noexcept;
WBS_API bool GoToBrowserHome(HWND window) noexcept;
// flag and trigger are accepted and not used.
WBS_API bool GoToWebAddress(const CStdStr& url, bool flag, ITrigger* trigger) noexcept;
// showCommand is the ShowWindow code handed to the shell.
WBS_API bool GotoURL(const CStdStr& url, int showCommand) noexcept;
