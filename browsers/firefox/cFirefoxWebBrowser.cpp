#include "browsers/firefox/cFirefoxWebBrowser.h"
#include "browsers/RaiseWindow.h"
#include "core/StringCase.h"
#include "tovutil/CProcessFinder.h"
#include "tovutil/CRegistry.h"

namespace {
const wchar_t kAppPathsKey[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\firefox.exe";

bool IsFirefoxWindow(const CProcessFinder* finder, HWND window) {
    // Without a process finder no window can be told to be Firefox's.
    if (finder == nullptr) return false;
    CStdStr programName = finder->GetForegroundProcessName(window);
    LowerCaseInPlace(programName);
    return programName == FirefoxConstants::ProgramName;
}
}  // namespace

cFirefoxWebBrowser::cFirefoxWebBrowser(HWND window) : cMozillaWebBrowser(window, BrowserName, BrowserName) {}

bool cFirefoxWebBrowser::GoToWebAddress(const CStdStr& url) {
    // The finder is only looked up, never made here: a host that has none yet gets a new Firefox.
    const CProcessFinder* finder = CProcessFinder::Instance(false);
    if (!url.empty()) return Launch(url);
    // Netscape browsers share the window class, so each window's program is asked in turn.
    for (window = ::FindWindowW(MozillaWindowClass.c_str(), nullptr); window != nullptr;
         window = ::FindWindowExW(nullptr, window, MozillaWindowClass.c_str(), nullptr)) {
        if (!IsFirefoxWindow(finder, window)) continue;
        RaiseWindow(window);
        return GoHome(true);
    }
    return Launch(url);
}

bool cFirefoxWebBrowser::GetProgramPath(CStdStr& programPath, CStdStr& arguments) {
    arguments.clear();
    return CRegistry::ReadString(HKEY_LOCAL_MACHINE, kAppPathsKey, nullptr, programPath) == ERROR_SUCCESS;
}
