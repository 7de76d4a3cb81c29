// wbs: a command-line host over WebBrowserSupport.dll, the kind of program a user binds to a
// button in any hotkey tool. Exit code 0 when the command was delivered, 1 when not, 2 on bad usage.
#include <windows.h>
#include <objbase.h>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <typeinfo>
#include <vector>
#include "IEventMgr.h"
#include "IHandler.h"
#include "WebBrowserSupport.h"

namespace {
const wchar_t kUsage[] =
    L"usage: wbs [--window <hwnd>] <command>\n"
    L"  back | forward           go back or forward in the browser in front (or the given window)\n"
    L"  refresh                  refresh the browser in front (or the given window)\n"
    L"  home                     the browser's home page (starts the default browser if none is in front)\n"
    L"  search | favorites       the browser's search or favorites (default browser if none is in front)\n"
    L"  go <url>                 go to a web address in the browser in front, or the default browser\n"
    L"  open <url>               open a URL through the shell, or the registered HTML command\n"
    L"  which                    name the driver for the window in front and for the default browser\n"
    L"  page [--json]            the current page of the browser in front: its URL, then its title\n"
    L"  list-favorites --browser <family> [--json | --tree]\n"
    L"                           the browser's favorites, one a line (Text, then a tab and Extra if any)\n"
    L"  list-history --browser <family> [--json]\n"
    L"                           the browser's typed addresses\n"
    L"                           families: ie, firefox, netscape, netscape8, netscape7, opera, aol\n"
    L"  --help                   this text\n";

enum ExitCode { Delivered = 0, NotDelivered = 1, BadUsage = 2 };

// The host's "AppOverrides" macro as a console host has it: it shows what it was asked and
// leaves the command to the library's own fall-back (it reports that it did nothing).
class ConsoleOverrides : public IHandler {
public:
    void Release() override {}
    void SetStringParameter(const wchar_t* name, const wchar_t* value) override {
        std::wprintf(L"AppOverrides %ls=%ls\n", name, value);
    }
    int Run() override { return 0; }
};

class ConsoleEventMgr : public IEventMgr {
public:
    IMacro* GetMacro(const wchar_t* name) override {
        return std::wcscmp(name, L"AppOverrides") == 0 ? &overrides_ : nullptr;
    }

private:
    ConsoleOverrides overrides_;
};

// The driver's class name without the compiler's decoration.
std::wstring DriverName(const counted_ptr<iWebBrowser>& browser) {
    if (!browser) return L"none";
    std::string name = typeid(*browser).name();
    if (name.rfind("class ", 0) == 0) name.erase(0, 6);
    size_t digits = 0;
    while (digits < name.size() && name[digits] >= '0' && name[digits] <= '9') ++digits;
    name.erase(0, digits);
    return std::wstring(name.begin(), name.end());
}

std::wstring WindowDescription(HWND window) {
    if (window == nullptr) return L"none";
    wchar_t className[256] = {};
    wchar_t title[256] = {};
    ::GetClassNameW(window, className, 256);
    ::GetWindowTextW(window, title, 256);
    wchar_t text[600];
    std::swprintf(text, 600, L"0x%llx class \"%ls\" title \"%ls\"",
                  static_cast<unsigned long long>(reinterpret_cast<UINT_PTR>(window)), className, title);
    return text;
}

int Which(HWND window) {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    if (list == nullptr) return NotDelivered;
    const HWND target = window ? window : ::GetForegroundWindow();
    std::wprintf(L"window: %ls\n", WindowDescription(target).c_str());
    for (const wchar_t* command : {L"BACK", L"FORWARD", L"REFRESH", L"HOME", L"SEARCH", L"FAVORITES", L"WEBADDRESS"})
        std::wprintf(L"  %-10ls %ls\n", command, DriverName(list->GetForegroundWebBrowser(command, window)).c_str());
    CStdStr commandLine;
    if (FactoryListAccess::DefaultBrowserCommandLine(*list, commandLine))
        std::wprintf(L"default browser: %ls\n", commandLine.c_str());
    else
        std::wprintf(L"default browser: none registered\n");
    std::wprintf(L"  driver     %ls\n", DriverName(list->GetDefaultWebBrowser()).c_str());
    return Delivered;
}

// Names the driver that will serve a command before the command runs.
void Announce(const wchar_t* command, HWND window, bool withDefault) {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    if (list == nullptr) return;
    counted_ptr<iWebBrowser> browser = list->GetForegroundWebBrowser(command, window);
    const wchar_t* source = L"foreground";
    if (!browser && withDefault) {
        browser = list->GetDefaultWebBrowser();
        source = L"default browser";
    }
    if (browser)
        std::wprintf(L"%ls: %ls driver %ls\n", command, source, DriverName(browser).c_str());
    else
        std::wprintf(L"%ls: no browser recognised\n", command);
}

void WriteUtf8(const std::wstring& text) {
    if (text.empty()) return;
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(), size, nullptr, nullptr);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

std::wstring JsonString(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (wchar_t ch : text) {
        switch (ch) {
        case L'"': quoted += L"\\\""; break;
        case L'\\': quoted += L"\\\\"; break;
        case L'\n': quoted += L"\\n"; break;
        case L'\r': quoted += L"\\r"; break;
        case L'\t': quoted += L"\\t"; break;
        default:
            if (ch < 0x20) {
                wchar_t escaped[8];
                std::swprintf(escaped, 8, L"\\u%04x", static_cast<unsigned>(ch));
                quoted += escaped;
            } else {
                quoted += ch;
            }
        }
    }
    return quoted + L"\"";
}

template <typename List>
void PrintEntries(const List& list, bool json) {
    if (json) {
        std::wstring out = L"[";
        bool first = true;
        for (const auto& entry : list) {
            out += first ? L"\n  " : L",\n  ";
            out += L"{\"text\": " + JsonString(entry.Text) + L", \"extra\": " + JsonString(entry.Extra) + L"}";
            first = false;
        }
        WriteUtf8(out + (first ? L"]\n" : L"\n]\n"));
        return;
    }
    for (const auto& entry : list) WriteUtf8(entry.Text + (entry.Extra.empty() ? L"" : L"\t" + entry.Extra) + L"\n");
}

// The favorites as a tree: folders open at ":Start<name>" and close at ":End<name>"; a favorite
// is its name, then its address (the text between the first "<" and the final ">").
void PrintTree(const FavoritesList& list) {
    int depth = 0;
    for (const FavoriteEntry& entry : list) {
        const std::wstring& text = entry.Text;
        const bool marked = !text.empty() && text.back() == L'>';
        if (marked && text.rfind(L":Start<", 0) == 0) {
            WriteUtf8(std::wstring(depth * 2, L' ') + text.substr(7, text.size() - 8) + L"/\n");
            ++depth;
        } else if (marked && text.rfind(L":End<", 0) == 0) {
            if (depth > 0) --depth;
        } else {
            const size_t open = text.find(L'<');
            const std::wstring name = marked && open != std::wstring::npos ? text.substr(0, open) : text;
            const std::wstring url = marked && open != std::wstring::npos ? text.substr(open + 1, text.size() - open - 2) : L"";
            WriteUtf8(std::wstring(depth * 2, L' ') + name + (url.empty() ? L"" : L"  " + url) + L"\n");
        }
    }
}

int Fail(const wchar_t* message);

// Reads a browser family's favorites or typed addresses, whether or not the browser runs.
int List(const std::vector<std::wstring>& words, bool history) {
    std::wstring family;
    bool json = false, tree = false;
    for (size_t i = 1; i < words.size(); ++i) {
        if (words[i] == L"--browser" && i + 1 < words.size()) family = words[++i];
        else if (words[i] == L"--json") json = true;
        else if (words[i] == L"--tree" && !history) tree = true;
        else return Fail((L"unexpected argument " + words[i]).c_str());
    }
    if (family.empty()) return Fail(L"--browser <family> is needed");
    if (json && tree) return Fail(L"--json and --tree do not go together");
    counted_ptr<iWebBrowser> browser = FactoryListAccess::FamilyBrowser(CStdStr(family));
    if (!browser) return Fail((L"unknown browser family " + family).c_str());
    // The shell's shortcut objects need COM on this thread.
    const HRESULT com = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    bool found = false;
    if (history) {
        HistoryList list;
        found = browser->GetHistory(list);
        PrintEntries(list, json);
    } else {
        FavoritesList list;
        found = browser->GetFavorites(list);
        if (tree) PrintTree(list);
        else PrintEntries(list, json);
    }
    browser.reset();
    if (SUCCEEDED(com)) ::CoUninitialize();
    return found ? Delivered : NotDelivered;
}

// The page the browser in front shows, as its driver reports it: the URL field, then the title field.
int Page(HWND window, bool json) {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    counted_ptr<iWebBrowser> browser = list ? list->GetForegroundWebBrowser(CStdStr(), window) : counted_ptr<iWebBrowser>();
    if (!browser) {
        std::fwprintf(stderr, L"wbs: no browser recognised in front\n");
        return NotDelivered;
    }
    PageInfo page;
    if (!browser->GetCurrentPage(page)) {
        std::fwprintf(stderr, L"wbs: the %ls driver reports no page\n", DriverName(browser).c_str());
        return NotDelivered;
    }
    if (json)
        WriteUtf8(L"{\"url\": " + JsonString(page.Url) + L", \"title\": " + JsonString(page.Title) + L"}\n");
    else
        WriteUtf8(page.Url + L"\n" + page.Title + L"\n");
    return Delivered;
}

int Report(bool delivered) {
    std::wprintf(L"%ls\n", delivered ? L"delivered" : L"not delivered");
    return delivered ? Delivered : NotDelivered;
}

int Fail(const wchar_t* message) {
    std::fwprintf(stderr, L"wbs: %ls (see wbs --help)\n", message);
    return BadUsage;
}

bool ParseWindow(const wchar_t* text, HWND& window) {
    wchar_t* end = nullptr;
    const unsigned long long value = std::wcstoull(text, &end, 0);
    if (end == text || *end != L'\0' || value == 0) return false;
    window = reinterpret_cast<HWND>(static_cast<UINT_PTR>(value));
    return true;
}
}  // namespace

int wmain(int argc, wchar_t** argv) {
    std::vector<std::wstring> words;
    HWND window = nullptr;
    for (int i = 1; i < argc; ++i) {
        const std::wstring arg = argv[i];
        if (arg == L"--help" || arg == L"-h") {
            std::fputws(kUsage, stdout);
            return Delivered;
        }
        if (arg == L"--window") {
            if (i + 1 >= argc) return Fail(L"--window needs a window handle");
            if (!ParseWindow(argv[++i], window)) return Fail(L"--window takes a window handle such as 0x1a2b");
            if (!::IsWindow(window)) return Fail(L"--window names no window");
            continue;
        }
        const bool listing = !words.empty() && (words[0] == L"list-favorites" || words[0] == L"list-history");
        const bool pageJson = arg == L"--json" && words.size() == 1 && words[0] == L"page";
        if (arg.rfind(L"--", 0) == 0 && !listing && !pageJson) return Fail((L"unknown option " + arg).c_str());
        words.push_back(arg);
    }
    if (words.empty()) return Fail(L"no command given");

    const std::wstring& command = words[0];
    if (command == L"list-favorites" || command == L"list-history") {
        if (window != nullptr) return Fail(L"--window does not go with listing");
        return List(words, command == L"list-history");
    }
    if (command == L"page") {
        for (size_t i = 1; i < words.size(); ++i)
            if (words[i] != L"--json" || i > 1) return Fail((L"unexpected argument " + words[i]).c_str());
        return Page(window, words.size() == 2);
    }
    const bool takesUrl = command == L"go" || command == L"open";
    if (takesUrl && words.size() != 2) return Fail((command + L" takes exactly one URL").c_str());
    if (!takesUrl && words.size() != 1) return Fail((L"unexpected argument " + words[1]).c_str());

    ConsoleEventMgr eventMgr;
    if (command == L"back") {
        Announce(L"BACK", window, false);
        return Report(BrowserBack(&eventMgr, window));
    }
    if (command == L"forward") {
        Announce(L"FORWARD", window, false);
        return Report(BrowserForward(&eventMgr, window));
    }
    if (command == L"refresh") {
        Announce(L"REFRESH", window, false);
        return Report(BrowserRefresh(window));
    }
    if (command == L"home") {
        Announce(L"HOME", window, true);
        return Report(GoToBrowserHome(window));
    }
    if (window != nullptr && command != L"which") return Fail((command + L" always acts on the window in front").c_str());
    if (command == L"search") {
        Announce(L"SEARCH", nullptr, true);
        return Report(BrowserSearch());
    }
    if (command == L"favorites") {
        Announce(L"FAVORITES", nullptr, true);
        return Report(BrowserShowFavorites());
    }
    if (command == L"go") {
        Announce(L"WEBADDRESS", nullptr, true);
        return Report(GoToWebAddress(CStdStr(words[1]), false, nullptr));
    }
    if (command == L"open") return Report(GotoURL(CStdStr(words[1]), SW_SHOWNORMAL));
    if (command == L"which") return Which(window);
    return Fail((L"unknown command " + command).c_str());
}
