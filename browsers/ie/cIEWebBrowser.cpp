#include "browsers/ie/cIEWebBrowser.h"
#include "browsers/RaiseWindow.h"
#include "core/StringCase.h"
#include "tovutil/FindMostRecentProgIdPath.h"

cIEWebBrowser::cIEWebBrowser(HWND window) : cGenericWebBrowser(window), cNavigateUtility(ApplicationName) {}

bool cIEWebBrowser::GoToWebAddress(const CStdStr& url) {
    if (!url.empty()) return Launch(url);
    // An empty address brings a running Internet Explorer forward on its home page.
    HWND frame = ::FindWindowW(FrameClass.c_str(), nullptr);
    if (frame == nullptr) return Launch(url);
    window = frame;
    RaiseWindow(window);
    return GoHome(true);
}

bool cIEWebBrowser::GetCurrentPage(PageInfo& out) { return CurrentPage(out); }

bool cIEWebBrowser::GetFavorites(FavoritesList& out) { return favorites_.GetFavorites(out); }

bool cIEWebBrowser::GetHistory(HistoryList& out) { return history_.FindHistory(out); }

bool cIEWebBrowser::GetProgramPath(CStdStr& programPath, CStdStr& arguments) {
    arguments.clear();
    if (!FindMostRecentProgIdPath(AutomationProgId, programPath)) return false;
    LowerCaseInPlace(programPath);
    return programPath.find(ProgramStem) != CStdStr::npos;
}
