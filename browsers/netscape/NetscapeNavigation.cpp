#include "browsers/netscape/NetscapeNavigation.h"
#include <windows.h>
#include <vector>
#include "browsers/MozillaFamily.h"
#include "core/ScopedHandle.h"
#include "core/StringCase.h"
#include "tovutil/BringProcessToForeground.h"
#include "tovutil/CProcessFinder.h"
#include "tovutil/CRegistry.h"
#include "tovutil/ClassicClipboard.h"
#include "tovutil/FindApplicationPath.h"
#include "tovutil/ForegroundAttentionGrabber.h"
#include "tovutil/SendKeys.h"

namespace {
const wchar_t kExtension[] = L"exe";
const wchar_t kUrlSwitch[] = L"-url ";

// Whether the foreground program's name contains programName, both lower-cased.
bool IsInFront(const CStdStr& programName) {
    const CProcessFinder* finder = CProcessFinder::Instance(true);
    if (finder == nullptr) return false;
    const HWND front = finder->WaitForegroundWindow();
    if (front == nullptr) return false;
    std::wstring frontName = finder->GetForegroundProcessName(front);
    std::wstring wanted = programName;
    LowerCaseClassic(frontName);
    LowerCaseClassic(wanted);
    return frontName.find(wanted) != std::wstring::npos;
}

// Ctrl+L to the location bar, Ctrl+V to paste the address, Enter.
bool PasteIntoLocationBar(const CStdStr& url) {
    ClassicClipboard clipboard(true, nullptr);
    if (!clipboard.IsOpen() || !clipboard.SetUnicodeText(url)) return false;
    clipboard.Close();
    (void)SendKeys(L"^l^v~");
    SendKeys_ReleaseAll();
    return true;
}

void StartWithAddress(const CStdStr& programPath, const CStdStr& url) {
    ForegroundAttentionGrabber grabber;
    // An empty address still leaves the blank after the quoted path.
    std::wstring commandLine = L"\"" + programPath + L"\" " + (url.empty() ? std::wstring() : kUrlSwitch + url);
    const size_t lastSlash = programPath.rfind(L'\\');
    const std::wstring folder = lastSlash == std::wstring::npos ? std::wstring() : programPath.substr(0, lastSlash);

    std::vector<wchar_t> buffer(commandLine.begin(), commandLine.end());
    buffer.push_back(L'\0');
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION started = {};
    if (!::CreateProcessW(nullptr, buffer.data(), nullptr, nullptr, FALSE, 0, nullptr,
                          folder.empty() ? nullptr : folder.c_str(), &startup, &started))
        return;
    ScopedHandle process(started.hProcess);
    ScopedHandle thread(started.hThread);
    ::WaitForInputIdle(process.get(), INFINITE);
    BringProcessToForeground(started.dwProcessId, nullptr);
    // Netscape's starter has always kept both handles for the life of the host; hosts count on
    // the started browser's process object staying valid, so they are deliberately not closed.
    (void)process.release();
    (void)thread.release();
}
}  // namespace

bool NetscapeGoToWebAddress(const CStdStr& programName, const CStdStr& url, bool restoreWindow) {
    if (IsInFront(programName)) return PasteIntoLocationBar(url);

    CStdStr programPath;
    if (!FindApplicationPath(programName, kExtension, programPath)) return false;
    StartWithAddress(programPath, url);
    if (restoreWindow) {
        const HWND mozillaWindow = ::FindWindowW(MozillaWindowClass.c_str(), nullptr);
        if (mozillaWindow != nullptr) ::PostMessageW(mozillaWindow, WM_SYSCOMMAND, SC_RESTORE, 0);
    }
    // Whether the program actually started is not reported.
    return true;
}

bool NetscapeProgramPath(CStdStr& programPath) {
    CStdStr classId;
    if (CRegistry::ReadString(HKEY_CLASSES_ROOT, L"NetscapeMarkup\\CLSID", nullptr, classId) != ERROR_SUCCESS) return false;
    CRegistry server;
    if (server.Open(HKEY_CLASSES_ROOT, (L"CLSID\\" + classId + L"\\LocalServer32").c_str(), KEY_READ | KEY_WRITE) !=
        ERROR_SUCCESS)
        return false;
    // The local server's command is overwritten with an empty one rather than read, so the path
    // handed back is always empty; Netscape has always been started through "App Paths" instead.
    const CStdStr empty;
    if (server.WriteStringValue(nullptr, empty.c_str()) != ERROR_SUCCESS) return false;
    programPath = empty;
    return true;
}
