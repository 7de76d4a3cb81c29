// The plain C interface: each function turns its arguments into the C++ commands' and drivers'
// types, and their results back into ints, caller buffers and callback calls.
#include "webbrowsersupport_c.h"
#include <windows.h>
#include <climits>
#include <cstddef>
#include <cwchar>
#include <typeinfo>
#include "WebBrowserSupport.h"
#include "cWebBrowserFactoryList.h"

namespace {
using Browser = counted_ptr<iWebBrowser>;

const wchar_t kFolderStart[] = L":Start<";
const wchar_t kFolderEnd[] = L":End<";

HWND Window(void* window) { return static_cast<HWND>(window); }

int Result(bool delivered) { return delivered ? 1 : 0; }

CStdStr Text(const wchar_t* text) { return text ? CStdStr(std::wstring(text)) : CStdStr(); }

// As much of text as fits, always terminated; the whole length is the answer.
int CopyOut(const std::wstring& text, wchar_t* buffer, int capacity) {
    if (buffer != nullptr && capacity > 0) {
        const size_t count = text.size() < static_cast<size_t>(capacity) ? text.size() : static_cast<size_t>(capacity) - 1;
        std::wmemcpy(buffer, text.data(), count);
        buffer[count] = L'\0';
    }
    return text.size() > static_cast<size_t>(INT_MAX) ? INT_MAX : static_cast<int>(text.size());
}

Browser ForegroundBrowser(void* window, const wchar_t* command) {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    return list ? list->GetForegroundWebBrowser(Text(command), Window(window)) : Browser();
}

Browser DefaultBrowser() {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    return list ? list->GetDefaultWebBrowser() : Browser();
}

// The driver's class name without the compiler's decoration ("class " or the length digits).
std::wstring DriverName(const Browser& browser) {
    if (!browser) return std::wstring();
    std::string name = typeid(*browser).name();
    if (name.rfind("class ", 0) == 0) name.erase(0, 6);
    size_t digits = 0;
    while (digits < name.size() && name[digits] >= '0' && name[digits] <= '9') ++digits;
    return std::wstring(name.begin() + static_cast<std::ptrdiff_t>(digits), name.end());
}

// Internet Explorer's favorites go through the shell's shortcut objects, which need COM on the
// thread; a thread that has COM in any model keeps it as it is.
class ComForCall {
public:
    ComForCall() : result_(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~ComForCall() {
        if (SUCCEEDED(result_)) ::CoUninitialize();
    }
    ComForCall(const ComForCall&) = delete;
    ComForCall& operator=(const ComForCall&) = delete;

private:
    HRESULT result_;
};

bool IsMarker(const std::wstring& text, const wchar_t* marker) {
    const size_t length = std::wcslen(marker);
    return text.size() > length && text.compare(0, length, marker) == 0 && text.back() == L'>';
}

// Favorites come with their folder markers turned into kinds and names.
bool HandOut(const FavoritesList& list, wbs_entry_callback callback, void* context) {
    for (const FavoriteEntry& entry : list) {
        int kind = WBS_ENTRY;
        std::wstring text = entry.Text;
        if (IsMarker(text, kFolderStart)) kind = WBS_FOLDER_START;
        else if (IsMarker(text, kFolderEnd)) kind = WBS_FOLDER_END;
        if (kind != WBS_ENTRY) {
            const size_t start = text.find(L'<') + 1;
            text = text.substr(start, text.size() - start - 1);
        }
        if (callback(context, kind, text.c_str(), entry.Extra.c_str()) == 0) break;
    }
    return true;
}

bool HandOut(const HistoryList& list, wbs_entry_callback callback, void* context) {
    for (const HistoryEntry& entry : list)
        if (callback(context, WBS_ENTRY, entry.Text.c_str(), entry.Extra.c_str()) == 0) break;
    return true;
}

// The reads are no command: they ask for the driver under the empty command name.
const wchar_t kReadCommand[] = L"";

// Where a read or a name comes from: a family's driver, the default browser's, or the driver of
// the browser that owns the window.
enum class Source { Family, Default, Window };

Browser Find(Source source, const wchar_t* family, void* window) {
    if (source == Source::Family) return FactoryListAccess::FamilyBrowser(Text(family));
    return source == Source::Default ? DefaultBrowser() : ForegroundBrowser(window, kReadCommand);
}

// One listing, with every exception (the list length error included) turned into "not read".
int List(Source source, const wchar_t* family, void* window, bool favorites, wbs_entry_callback callback,
         void* context) noexcept {
    try {
        const Browser browser = callback ? Find(source, family, window) : Browser();
        if (!browser) return 0;
        if (!favorites) {
            HistoryList list;
            return Result(browser->GetHistory(list) && HandOut(list, callback, context));
        }
        FavoritesList list;
        bool found = false;
        {
            const ComForCall com;
            found = browser->GetFavorites(list);
        }
        return Result(found && HandOut(list, callback, context));
    } catch (...) {
        return 0;
    }
}

int Driver(const Browser* given, void* window, const wchar_t* command, wchar_t* name, int capacity) noexcept {
    CopyOut(std::wstring(), name, capacity);
    try {
        return CopyOut(DriverName(given ? *given : ForegroundBrowser(window, command)), name, capacity);
    } catch (...) {
        return 0;
    }
}
}  // namespace

extern "C" {

unsigned int WBS_CALL wbs_version(void) {
    return (WBS_VERSION_MAJOR << 16) | (WBS_VERSION_MINOR << 8) | WBS_VERSION_PATCH;
}

int WBS_CALL wbs_browser_back(void* window) { return Result(BrowserBack(nullptr, Window(window))); }
int WBS_CALL wbs_browser_forward(void* window) { return Result(BrowserForward(nullptr, Window(window))); }
int WBS_CALL wbs_browser_refresh(void* window) { return Result(BrowserRefresh(Window(window))); }
int WBS_CALL wbs_browser_search(void) { return Result(BrowserSearch()); }
int WBS_CALL wbs_browser_show_favorites(void) { return Result(BrowserShowFavorites()); }
int WBS_CALL wbs_go_to_browser_home(void* window) { return Result(GoToBrowserHome(Window(window))); }

int WBS_CALL wbs_go_to_web_address(const wchar_t* url) {
    try {
        return Result(GoToWebAddress(Text(url), false, nullptr));
    } catch (...) {
        return 0;
    }
}

int WBS_CALL wbs_goto_url(const wchar_t* url, int show_command) {
    try {
        return url ? Result(GotoURL(Text(url), show_command)) : 0;
    } catch (...) {
        return 0;
    }
}

int WBS_CALL wbs_foreground_driver(void* window, const wchar_t* command, wchar_t* name, int capacity) {
    return Driver(nullptr, window, command, name, capacity);
}

int WBS_CALL wbs_default_driver(wchar_t* name, int capacity) {
    try {
        const Browser browser = DefaultBrowser();
        return Driver(&browser, nullptr, nullptr, name, capacity);
    } catch (...) {
        return CopyOut(std::wstring(), name, capacity);
    }
}

int WBS_CALL wbs_current_page(void* window, wchar_t* url, int url_capacity, int* url_length, wchar_t* title,
                              int title_capacity, int* title_length) {
    int found = 0;
    int lengths[2] = {CopyOut(std::wstring(), url, url_capacity), CopyOut(std::wstring(), title, title_capacity)};
    try {
        PageInfo page;
        const Browser browser = ForegroundBrowser(window, kReadCommand);
        if (browser && browser->GetCurrentPage(page)) {
            lengths[0] = CopyOut(page.Url, url, url_capacity);
            lengths[1] = CopyOut(page.Title, title, title_capacity);
            found = 1;
        }
    } catch (...) {
        // No browser or no page could be had: the buffers stay empty.
    }
    if (url_length != nullptr) *url_length = found ? lengths[0] : 0;
    if (title_length != nullptr) *title_length = found ? lengths[1] : 0;
    return found;
}

int WBS_CALL wbs_family_favorites(const wchar_t* family, wbs_entry_callback callback, void* context) {
    return List(Source::Family, family, nullptr, true, callback, context);
}

int WBS_CALL wbs_family_history(const wchar_t* family, wbs_entry_callback callback, void* context) {
    return List(Source::Family, family, nullptr, false, callback, context);
}

int WBS_CALL wbs_foreground_favorites(void* window, wbs_entry_callback callback, void* context) {
    return List(Source::Window, nullptr, window, true, callback, context);
}

int WBS_CALL wbs_foreground_history(void* window, wbs_entry_callback callback, void* context) {
    return List(Source::Window, nullptr, window, false, callback, context);
}

int WBS_CALL wbs_default_favorites(wbs_entry_callback callback, void* context) {
    return List(Source::Default, nullptr, nullptr, true, callback, context);
}

int WBS_CALL wbs_default_history(wbs_entry_callback callback, void* context) {
    return List(Source::Default, nullptr, nullptr, false, callback, context);
}

}  // extern "C"
