/* The C interface used from C: a window of Internet Explorer's frame class receives the commands
 * and is named as that driver's; typed addresses and a favorites folder come back through the
 * callback, stopped when it asks. Prints each failure and exits 1; never waits unbounded. */
#define _CRT_SECURE_NO_WARNINGS
#include <windows.h>
#include <shlobj.h>
#include <stdio.h>
#include <wchar.h>
#include "webbrowsersupport_c.h"

static const wchar_t kTyped[] = L"Software\\Microsoft\\Internet Explorer\\TypedURLs";
static int codes[8], received, failures;
static wchar_t seen[4096];

static LRESULT CALLBACK FrameProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_APPCOMMAND || received == 8) return DefWindowProcW(window, message, wParam, lParam);
    codes[received++] = GET_APPCOMMAND_LPARAM(lParam);
    return TRUE;
}

/* Writes "kind:text|extra;" for each entry; context counts down the entries still wanted. */
static int WBS_CALL Collect(void* context, int kind, const wchar_t* text, const wchar_t* extra) {
    size_t used = wcslen(seen);
    _snwprintf(seen + used, 4095 - used, L"%d:%ls|%ls;", kind, text, extra);
    return --*(int*)context > 0;
}

static void Check(int holds, const char* what) {
    if (holds) return;
    printf("FAILED: %s\n", what);
    ++failures;
}

static DWORD WINAPI Deadline(void* unused) {
    (void)unused;
    Sleep(20000);
    printf("FAILED: the calls did not finish within 20 s\n");
    ExitProcess(2);
}

int main(void) {
    WNDCLASSW frameClass = {0, FrameProc, 0, 0, NULL, NULL, NULL, NULL, NULL, L"IEFrame"};
    wchar_t name[32], title[4], folder[MAX_PATH], file[MAX_PATH];
    int wanted = 100, urlLength = -1, titleLength = -1;
    HWND frame, plain;
    HKEY typed;
    CloseHandle(CreateThread(NULL, 0, Deadline, NULL, 0, NULL));
    Check(wbs_version() == WBS_EXPECTED_VERSION, "wbs_version is the project version");

    RegisterClassW(&frameClass);
    frame = CreateWindowW(L"IEFrame", L"C frame", WS_OVERLAPPED, 0, 0, 200, 100, NULL, NULL, NULL, NULL);
    Check(wbs_browser_back(frame) && wbs_browser_refresh(frame) && wbs_browser_forward(frame), "commands delivered");
    Check(received == 3 && codes[0] == 1 && codes[1] == 3 && codes[2] == 2, "the frame got back, refresh, forward");
    Check(wbs_foreground_driver(frame, L"BACK", name, 32) == 13 && wcscmp(name, L"cIEWebBrowser") == 0, "driver");
    Check(wbs_foreground_driver(frame, NULL, name, 4) == 13 && wcscmp(name, L"cIE") == 0, "a short buffer is cut");
    /* Unanswered by DDE, the frame's page reads as the URL "xFFFFFFFF" and the title "FFFFFFFF". */
    Check(wbs_current_page(frame, name, 32, &urlLength, title, 4, &titleLength) && urlLength == 9 && titleLength == 8
          && wcscmp(name, L"xFFFFFFFF") == 0 && wcscmp(title, L"FFF") == 0, "the page, its title cut");
    plain = CreateWindowW(L"STATIC", L"plain", WS_OVERLAPPED, 0, 0, 200, 100, NULL, NULL, NULL, NULL);
    Check(!wbs_current_page(plain, NULL, 0, &urlLength, NULL, 0, NULL) && !wbs_foreground_driver(plain, NULL, name, 32)
          && !name[0], "a window of no browser has no driver and no page");
    Check(!wbs_family_history(L"chrome", Collect, &wanted) && !seen[0], "no listing for an unknown family");

    RegDeleteTreeW(HKEY_CURRENT_USER, kTyped);
    RegCreateKeyExW(HKEY_CURRENT_USER, kTyped, 0, NULL, 0, KEY_WRITE, NULL, &typed, NULL);
    RegSetValueExW(typed, L"url1", 0, REG_SZ, (const BYTE*)L"http://a.invalid/", 36);
    RegSetValueExW(typed, L"url2", 0, REG_SZ, (const BYTE*)L"http://b.invalid/", 36);
    RegSetValueExW(typed, L"url3", 0, REG_SZ, (const BYTE*)L"http://c.invalid/", 36);
    RegCloseKey(typed);
    wanted = 2;
    Check(wbs_family_history(L"ie", Collect, &wanted) && wanted == 0
          && wcscmp(seen, L"0:url1|http://a.invalid/;0:url2|http://b.invalid/;") == 0, "two addresses, then stop");
    RegDeleteTreeW(HKEY_CURRENT_USER, kTyped);

    SHGetFolderPathW(NULL, CSIDL_FAVORITES | CSIDL_FLAG_CREATE, NULL, 0, folder);
    wcscat(folder, L"\\wbs-c");
    _snwprintf(file, MAX_PATH, L"%ls\\Site.url", folder);
    CreateDirectoryW(folder, NULL);
    WritePrivateProfileStringW(L"InternetShortcut", L"URL", L"http://site.invalid/", file);
    seen[0] = 0;
    wanted = 100;
    Check(wbs_family_favorites(L"ie", Collect, &wanted)
          && wcsstr(seen, L"1:wbs-c|;0:Site<http://site.invalid/>|;2:wbs-c|;") != NULL, "a folder and its favorite");
    DeleteFileW(file);
    RemoveDirectoryW(folder);
    if (failures == 0) printf("the C interface works from C\n");
    return failures ? 1 : 0;
}
