#include "Commands.h"
#include <windows.h>
#include <objbase.h>
#include <cwchar>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>
#include "CommandTable.h"
#include "IEventMgr.h"
#include "IHandler.h"
#include "Output.h"
#include "WebBrowserSupport.h"

namespace wbs {
namespace {

const wchar_t kVersion[] = L"" WBS_VERSION;

// The host's "AppOverrides" macro as a console host has it: it records what it was asked and
// leaves the command to the library's own fall-back (it reports that it did nothing).
class ConsoleOverrides : public IHandler {
public:
    void Release() override {}
    void SetStringParameter(const wchar_t* name, const wchar_t* value) override {
        parameters.emplace_back(name, value);
    }
    int Run() override {
        ran = true;
        return 0;
    }
    std::vector<std::pair<std::wstring, std::wstring>> parameters;
    bool ran = false;
};

class ConsoleEventMgr : public IEventMgr {
public:
    IMacro* GetMacro(const wchar_t* name) override {
        return std::wcscmp(name, L"AppOverrides") == 0 ? &overrides : nullptr;
    }
    ConsoleOverrides overrides;
};

// The driver's class name without the compiler's decoration; empty for none.
std::wstring DriverName(const counted_ptr<iWebBrowser>& browser) {
    if (!browser) return std::wstring();
    std::string name = typeid(*browser).name();
    if (name.rfind("class ", 0) == 0) name.erase(0, 6);
    size_t digits = 0;
    while (digits < name.size() && name[digits] >= '0' && name[digits] <= '9') ++digits;
    name.erase(0, digits);
    return std::wstring(name.begin(), name.end());
}

std::wstring Handle(HWND window) {
    wchar_t text[32];
    std::swprintf(text, 32, L"0x%llx", static_cast<unsigned long long>(reinterpret_cast<UINT_PTR>(window)));
    return text;
}

const wchar_t* Nobody(const Arguments& args) {
    return args.window ? L"no browser recognised in the given window" : L"no browser recognised in front";
}

// The driver that will serve a command, found as the command will find it, and where it came
// from: "front", "window" or "default". Only its name is kept: the command makes its own.
struct Server {
    std::wstring driver;  // empty for none
    const wchar_t* source = L"";
};

Server FindServer(const wchar_t* commandName, HWND window, bool withDefault) {
    Server server;
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    if (list == nullptr) return server;
    server.driver = DriverName(list->GetForegroundWebBrowser(CStdStr(commandName), window));
    if (!server.driver.empty()) {
        server.source = window ? L"window" : L"front";
    } else if (withDefault) {
        server.driver = DriverName(list->GetDefaultWebBrowser());
        if (!server.driver.empty()) server.source = L"default";
    }
    return server;
}

struct Delivery {
    const wchar_t* command;
    const wchar_t* commandName;  // as the exported command names itself to the factory list
    bool withDefault;            // the exported command falls back on the default browser
};

const Delivery kDeliveries[] = {
    {L"back", L"BACK", false},         {L"forward", L"FORWARD", false},     {L"refresh", L"REFRESH", false},
    {L"home", L"HOME", true},          {L"search", L"SEARCH", true},        {L"favorites", L"FAVORITES", true},
    {L"go", L"WEBADDRESS", true},      {L"open", nullptr, false},
};

bool Run(const std::wstring& command, const Arguments& args, IEventMgr* eventMgr) {
    if (command == L"back") return BrowserBack(eventMgr, args.window);
    if (command == L"forward") return BrowserForward(eventMgr, args.window);
    if (command == L"refresh") return BrowserRefresh(args.window);
    if (command == L"home") return GoToBrowserHome(args.window);
    if (command == L"search") return BrowserSearch();
    if (command == L"favorites") return BrowserShowFavorites();
    if (command == L"go") return GoToWebAddress(CStdStr(args.operands[0]), false, nullptr);
    return GotoURL(CStdStr(args.operands[0]), SW_SHOWNORMAL);
}

void PrintEntriesAsJson(const std::vector<std::pair<std::wstring, std::wstring>>& entries) {
    std::wstring out = L"[";
    for (size_t i = 0; i < entries.size(); ++i)
        out += (i == 0 ? L"\n  " : L",\n  ") + (L"{\"text\": " + JsonString(entries[i].first) + L", \"extra\": " +
                                               JsonString(entries[i].second) + L"}");
    Print(out + (entries.empty() ? L"]\n" : L"\n]\n"));
}

void PrintEntries(const std::vector<std::pair<std::wstring, std::wstring>>& entries) {
    std::wstring out;
    for (const auto& [text, extra] : entries) out += text + (extra.empty() ? L"" : L"\t" + extra) + L"\n";
    Print(out);
}

// The favorites as a tree: folders open at ":Start<name>" and close at ":End<name>"; a favorite
// is its name, then its address (the text between the first "<" and the final ">").
void PrintTree(const std::vector<std::pair<std::wstring, std::wstring>>& entries) {
    std::wstring out;
    size_t depth = 0;
    for (const auto& entry : entries) {
        const std::wstring& text = entry.first;
        const bool marked = !text.empty() && text.back() == L'>';
        if (marked && text.rfind(L":Start<", 0) == 0) {
            out += std::wstring(depth * 2, L' ') + text.substr(7, text.size() - 8) + L"/\n";
            ++depth;
        } else if (marked && text.rfind(L":End<", 0) == 0) {
            if (depth > 0) --depth;
        } else {
            const size_t open = text.find(L'<');
            const bool split = marked && open != std::wstring::npos;
            out += std::wstring(depth * 2, L' ') + (split ? text.substr(0, open) : text);
            if (split && open + 2 < text.size()) out += L"  " + text.substr(open + 1, text.size() - open - 2);
            out += L"\n";
        }
    }
    Print(out);
}

template <typename List>
std::vector<std::pair<std::wstring, std::wstring>> Entries(const List& list) {
    std::vector<std::pair<std::wstring, std::wstring>> entries;
    for (const auto& entry : list) entries.emplace_back(entry.Text, entry.Extra);
    return entries;
}

}  // namespace

int Deliver(const Arguments& args) {
    const Delivery* delivery = nullptr;
    for (const Delivery& d : kDeliveries)
        if (args.command == d.command) delivery = &d;
    if (delivery == nullptr) return BadUsage;
    // Found before the command runs, so that the report names what served it.
    const Server server =
        delivery->commandName ? FindServer(delivery->commandName, args.window, delivery->withDefault) : Server();
    const std::wstring& driver = server.driver;
    ConsoleEventMgr eventMgr;
    const bool delivered = Run(args.command, args, &eventMgr);
    const bool takesMacro = args.command == L"back" || args.command == L"forward";

    if (args.json) {
        std::wstring out = L"{\"command\": " + JsonString(args.command);
        if (!args.operands.empty()) out += L", \"url\": " + JsonString(args.operands[0]);
        if (delivery->commandName) {
            out += L", \"driver\": " + JsonStringOrNull(driver);
            out += L", \"source\": " + JsonStringOrNull(server.source);
        }
        if (takesMacro) {
            std::wstring overrides;
            for (const auto& [name, value] : eventMgr.overrides.parameters)
                overrides += (overrides.empty() ? L"{" : L", ") + JsonString(name) + L": " + JsonString(value);
            const bool asked = eventMgr.overrides.ran || !overrides.empty();
            out += L", \"appOverrides\": " + (asked ? (overrides.empty() ? L"{" : overrides) + L"}" : L"null");
        }
        Print(out + L", \"delivered\": " + (delivered ? L"true" : L"false") + L"}\n");
    } else {
        std::wstring out;
        if (delivery->commandName) {
            out += delivery->commandName;
            out += driver.empty() ? L": no browser recognised\n"
                                  : L": driver " + driver + L" (" + server.source + L")\n";
        }
        for (const auto& [name, value] : eventMgr.overrides.parameters)
            out += L"AppOverrides " + name + L"=" + value + L"\n";
        if (delivered) out += L"delivered\n";
        Print(out);
    }
    if (!delivered) {
        std::wstring why = args.command + L" was not delivered";
        if (!delivery->commandName)
            why += L": neither the shell nor the registered HTML command opened it";
        else if (driver.empty())
            why += std::wstring(L": ") + Nobody(args) + (delivery->withDefault ? L" or as the default" : L"");
        else
            why += L" by " + driver;
        PrintError(why);
    }
    return delivered ? Delivered : NotDelivered;
}

int Which(const Arguments& args) {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    if (list == nullptr) {
        PrintError(L"the browser factory list could not be made");
        return NotDelivered;
    }
    const HWND target = args.window ? args.window : ::GetForegroundWindow();
    wchar_t className[256] = {};
    wchar_t title[256] = {};
    if (target != nullptr) {
        ::GetClassNameW(target, className, 256);
        ::GetWindowTextW(target, title, 256);
    }
    CStdStr commandLine;
    const bool registered = FactoryListAccess::DefaultBrowserCommandLine(*list, commandLine);
    const std::wstring defaultDriver = DriverName(list->GetDefaultWebBrowser());
    const wchar_t* const commandNames[] = {L"BACK", L"FORWARD", L"REFRESH", L"HOME", L"SEARCH", L"FAVORITES", L"WEBADDRESS"};

    std::wstring out;
    if (args.json) {
        out = L"{\"window\": ";
        out += target ? L"{\"handle\": " + JsonString(Handle(target)) + L", \"class\": " + JsonString(className) +
                            L", \"title\": " + JsonString(title) + L"}"
                      : L"null";
        out += L", \"drivers\": {";
        for (const wchar_t* name : commandNames) {
            out += (name == commandNames[0] ? L"" : L", ") + JsonString(name) + L": ";
            out += JsonStringOrNull(DriverName(list->GetForegroundWebBrowser(CStdStr(name), args.window)));
        }
        out += L"}, \"defaultBrowser\": {\"commandLine\": " + (registered ? JsonString(commandLine) : L"null");
        out += L", \"driver\": " + JsonStringOrNull(defaultDriver) + L"}}\n";
    } else {
        out = L"window: ";
        out += target ? Handle(target) + L" class \"" + className + L"\" title \"" + title + L"\"\n" : L"none\n";
        for (const wchar_t* name : commandNames) {
            const std::wstring driver = DriverName(list->GetForegroundWebBrowser(CStdStr(name), args.window));
            out += L"  " + (name + std::wstring(11 - std::wcslen(name), L' ')) + (driver.empty() ? L"none" : driver) + L"\n";
        }
        out += L"default browser: " + (registered ? std::wstring(commandLine) : L"none registered") + L"\n";
        out += L"  driver     " + (defaultDriver.empty() ? L"none" : defaultDriver) + L"\n";
    }
    Print(out);
    return Delivered;
}

// The page the browser in front shows, as its driver reports it: the URL field, then the title field.
int Page(const Arguments& args) {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    counted_ptr<iWebBrowser> browser = list ? list->GetForegroundWebBrowser(CStdStr(), args.window) : counted_ptr<iWebBrowser>();
    if (!browser) {
        PrintError(Nobody(args));
        return NotDelivered;
    }
    PageInfo page;
    if (!browser->GetCurrentPage(page)) {
        PrintError(L"the " + DriverName(browser) + L" driver reads no page");
        return NotDelivered;
    }
    if (args.json)
        Print(L"{\"url\": " + JsonString(page.Url) + L", \"title\": " + JsonString(page.Title) + L"}\n");
    else
        Print(page.Url + L"\n" + page.Title + L"\n");
    return Delivered;
}

// Reads a browser's favorites or typed addresses, whether or not the browser runs.
int List(const Arguments& args) {
    const bool history = args.command == L"list-history";
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    counted_ptr<iWebBrowser> browser;
    if (args.browser == L"front") {
        if (list) browser = list->GetForegroundWebBrowser(CStdStr(), args.window);
        if (!browser) {
            PrintError(Nobody(args));
            return NotDelivered;
        }
    } else if (args.browser == L"default") {
        if (list) browser = list->GetDefaultWebBrowser();
        if (!browser) {
            PrintError(L"no default browser recognised");
            return NotDelivered;
        }
    } else {
        browser = FactoryListAccess::FamilyBrowser(CStdStr(args.browser));
        if (!browser) {
            PrintError(L"unknown browser family " + args.browser + L" (see wbs --help)");
            return BadUsage;
        }
    }
    // The shell's shortcut objects need COM on this thread.
    const HRESULT com = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    bool found = false;
    std::vector<std::pair<std::wstring, std::wstring>> entries;
    if (history) {
        HistoryList typed;
        found = browser->GetHistory(typed);
        entries = Entries(typed);
    } else {
        FavoritesList favorites;
        found = browser->GetFavorites(favorites);
        entries = Entries(favorites);
    }
    const std::wstring driver = DriverName(browser);
    browser.reset();
    if (SUCCEEDED(com)) ::CoUninitialize();

    if (args.json) PrintEntriesAsJson(entries);
    else if (args.tree) PrintTree(entries);
    else PrintEntries(entries);
    if (!found) PrintError(L"the " + driver + L" driver finds no " + (history ? L"typed addresses" : L"favorites"));
    return found ? Delivered : NotDelivered;
}

int Version(const Arguments& args) {
    Print(args.json ? L"{\"version\": " + JsonString(kVersion) + L"}\n" : std::wstring(L"wbs ") + kVersion + L"\n");
    return Delivered;
}

}  // namespace wbs
