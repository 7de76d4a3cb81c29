// The command tables: each file under tests/data/commands holds the cases of one driver family.
// A case is "== title" and then its rows, one step a line: fixture browsers and registry values it
// needs, the command, and what must be observed afterwards. A row that ends in "-> expected" has
// what it gives compared with the expected text as written; after "=>" the text takes the escapes
// \t \r \n \\ \uXXXX. {ID} stands for fixture ID's program path, {ID.dir} for its folder and
// {ID.hwnd} for its main window; {exe} and {windir} for the tests' and the Windows folder; {long}
// for an address of 2,100 characters that no program is registered to open. Tokens are
// separated by blanks; a "quoted token" may hold blanks, \" and \\. The verbs are the keys of
// Runner::Steps below.
#include <gtest/gtest.h>
#include <windows.h>
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>
#include <utility>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <tuple>
#include <typeinfo>
#include "WebBrowserSupport.h"
#include "browsers/KeyRefresh.h"
#include "browsers/aol/cAOLToolbarCommander.h"
#include "browsers/StartProgram.h"
#include "browsers/cNavigateUtility.h"
#include "browsers/chrome/cChromeBrowser.h"
#include "browsers/generic/cGenericWebBrowser.h"
#include "browsers/generic/cHelpBrowser.h"
#include "host/IEventMgr.h"
#include "host/IHandler.h"
#include "input/CLegacyKeySender.h"
#include "input/CZyPressKey.h"
#include "support/TestSupport.h"
#include "tovutil/CProcessFinder.h"
#include "tovutil/SendKeys.h"

using namespace wbstest;

namespace {

struct Row {
    int line;
    std::wstring text;
    std::vector<std::wstring> tokens;
    std::wstring expected;
    bool compares = false;
};
struct Case {
    std::wstring file, title;
    std::vector<Row> rows;
};

std::vector<std::wstring> Tokens(const std::wstring& text) {
    std::vector<std::wstring> tokens;
    for (size_t i = 0; i < text.size();) {
        if (text[i] == L' ' || text[i] == L'\t') {
            ++i;
        } else if (text[i] == L'"') {
            std::wstring token;
            for (++i; i < text.size() && text[i] != L'"'; ++i) {
                if (text[i] == L'\\' && i + 1 < text.size() && (text[i + 1] == L'"' || text[i + 1] == L'\\')) ++i;
                token += text[i];
            }
            tokens.push_back(token);
            ++i;
        } else {
            const size_t end = std::min(text.find_first_of(L" \t", i), text.size());
            tokens.push_back(text.substr(i, end - i));
            i = end;
        }
    }
    return tokens;
}

std::vector<Case> LoadCases(const std::wstring& file) {
    std::vector<Case> cases;
    const std::vector<std::wstring> lines = Lines(ReadBytes(DataPath(L"commands\\" + file)));
    for (size_t n = 0; n < lines.size(); ++n) {
        const std::wstring& line = lines[n];
        if (line.compare(0, 3, L"== ") == 0) {
            cases.push_back({file, line.substr(3), {}});
        } else if (!line.empty() && line[0] != L'#' && !cases.empty()) {
            Row row{static_cast<int>(n + 1), line, {}, {}};
            const bool escaped = line.find(L" => ") != std::wstring::npos;
            const size_t arrow = line.find(escaped ? L" => " : L" -> ");
            row.compares = arrow != std::wstring::npos || (line.size() >= 3 && line.compare(line.size() - 3, 3, L" ->") == 0);
            row.tokens = Tokens(line.substr(0, row.compares ? std::min(arrow, line.size() - 3) : line.size()));
            if (arrow != std::wstring::npos) row.expected = line.substr(arrow + 4);
            if (escaped) row.expected = Unescape(row.expected);
            cases.back().rows.push_back(row);
        }
    }
    return cases;
}

// The class name a type_info carries, without the compiler's decoration.
std::wstring TypeName(const std::type_info& type) {
    std::string name = type.name();
    if (name.compare(0, 6, "class ") == 0) name.erase(0, 6);
    name.erase(0, name.find_first_not_of("0123456789"));
    return std::wstring(name.begin(), name.end());
}

const std::map<std::wstring, unsigned> kKeyNames = {
    {L"SHIFT", 0x10}, {L"CTRL", 0x11}, {L"ALT", 0x12},  {L"ENTER", 0x0D}, {L"TAB", 0x09}, {L"ESC", 0x1B},
    {L"LEFT", 0x25},  {L"UP", 0x26},   {L"RIGHT", 0x27}, {L"DOWN", 0x28}, {L"HOME", 0x24}, {L"F5", 0x74},
    {L"LCTRL", 0xA2}, {L"X1", 0x10001}, {L"X2", 0x10002}};

std::wstring KeyName(unsigned code) {
    for (const auto& [name, value] : kKeyNames)
        if (value == code) return name;
    if ((code >= L'A' && code <= L'Z') || (code >= L'0' && code <= L'9')) return std::wstring(1, static_cast<wchar_t>(code));
    return std::to_wstring(code);
}

// The "AppOverrides" macro of the host: records what it is given and answers a chosen result.
struct Handler : IHandler {
    void Release() override { ++releases; }
    void SetStringParameter(const wchar_t* name, const wchar_t* value) override {
        parameters += std::wstring(L" ") + name + L"=" + value;
    }
    int Run() override { return ++runs, result; }
    std::wstring parameters;
    int runs = 0, releases = 0, result = 0;
};
struct PlainMacro : IMacro {
    void Release() override { ++releases; }
    int releases = 0;
};
struct EventMgr : IEventMgr {
    IMacro* GetMacro(const wchar_t* name) override { return requested += name, macro; }
    Handler handler;
    PlainMacro plain;
    IMacro* macro = &handler;
    std::wstring requested;
};

// A browser whose program the table gives: Launch has nothing else to go on.
class ProgramBrowser : public cGenericWebBrowser {
public:
    bool GetProgramPath(CStdStr& programPath, CStdStr& arguments) override {
        programPath = path;
        arguments = args;
        return true;
    }
    std::wstring path, args;
};

class Runner {
public:
    explicit Runner(const Case& c) : case_(c) {}

    ~Runner() {
        boxDone_ = true;
        if (boxWatch_.joinable()) boxWatch_.join();
        for (const std::wstring& image : endImages_) EndProcesses(image);
        for (const std::wstring& file : files_) ::DeleteFileW(file.c_str());
        for (const std::wstring& name : env_) ::SetEnvironmentVariableW(name.c_str(), nullptr);
        ResetProcessWideState();
    }

    void Run() {
        ResetProcessWideState();
        std::vector<Input> before;
        ASSERT_TRUE(TakeInput(before)) << "the input hooks see nothing";
        for (const Row& row : case_.rows) {
            SCOPED_TRACE(ToUtf8(case_.file) + ":" + std::to_string(row.line) + ": " + ToUtf8(row.text));
            const auto step = Steps().find(row.tokens[0]);
            ASSERT_NE(step, Steps().end()) << "unknown verb";
            // Observations are read again until they hold or a few seconds pass: what was posted
            // may still be on its way.
            const bool observation = kObservations.count(row.tokens[0]) != 0;
            const std::wstring expected = Expand(row.expected);
            std::wstring actual;
            Watchdog watchdog(ToUtf8(case_.file) + ":" + std::to_string(row.line) + " \"" + ToUtf8(row.text) + "\"", 30000);
            const ULONGLONG start = ::GetTickCount64();
            WaitFor([&] {
                actual = step->second(*this, row.tokens);
                return !observation || !row.compares || Matches(expected, actual);
            }, 3000);
            if (row.tokens[0] != L"elapsed") elapsed_ = ::GetTickCount64() - start;
            if (HasFatalFailure()) return;
            if (row.compares) {
                EXPECT_TRUE(Matches(expected, actual)) << "expected: " << ToUtf8(expected) << "\n  actual: " << ToUtf8(actual);
            }
        }
    }

private:
    using Step = std::function<std::wstring(Runner&, const std::vector<std::wstring>&)>;
    static bool HasFatalFailure() { return ::testing::Test::HasFatalFailure(); }
    static inline const std::set<std::wstring> kObservations = {L"log", L"foreground", L"iconic", L"clipboard",
                                                                L"regvalue", L"waitready", L"findwindow"};

    // ">=N <M" bounds a number, "~text" is found somewhere in it; any other expectation is the exact text.
    static bool Matches(const std::wstring& expected, const std::wstring& actual) {
        if (!expected.empty() && expected[0] == L'~') return actual.find(expected.substr(1)) != std::wstring::npos;
        if (expected.size() < 2 || (expected[0] != L'>' && expected[0] != L'<')) return actual == expected;
        const double value = std::wcstod(actual.c_str(), nullptr);
        for (const std::wstring& bound : Tokens(expected)) {
            const bool atLeast = bound[0] == L'>';
            const double limit = std::wcstod(bound.c_str() + (atLeast ? 2 : 1), nullptr);
            if (atLeast ? value < limit : value >= limit) return false;
        }
        return true;
    }

    std::wstring Expand(std::wstring text) const {
        if (text.find(L'{') == std::wstring::npos) return text;
        wchar_t windows[MAX_PATH] = {};
        ::GetWindowsDirectoryW(windows, MAX_PATH);
        std::vector<std::pair<std::wstring, std::wstring>> names = {
            {L"{exe}", ExecutableFolder()}, {L"{windir}", windows}, {L"{long}", L"wbsnowhere://long.invalid/" + std::wstring(2074, L'a')}};
        for (const auto& [id, fixture] : fixtures_) {
            wchar_t handle[32] = {};
            swprintf(handle, 32, L"0x%llx", static_cast<unsigned long long>(reinterpret_cast<UINT_PTR>(fixture->MainWindow())));
            names.insert(names.end(), {{L"{" + id + L".dir}", fixture->Folder()}, {L"{" + id + L"}", fixture->Program()},
                                       {L"{" + id + L".hwnd}", handle}});
        }
        for (const auto& [key, value] : names) text = Replace(text, key, value);
        return text;
    }

    HWND Window(const std::wstring& id) const {
        const auto found = fixtures_.find(id);
        if (found != fixtures_.end()) return found->second->MainWindow();
        if (windows_.count(id) != 0) return windows_.at(id);
        if (id == L"-") return nullptr;
        ADD_FAILURE() << "no fixture " << ToUtf8(id);
        return nullptr;
    }

    // The fixture whose main window this is, "-" for none, "other" for any other window.
    std::wstring Id(HWND window) const {
        if (window == nullptr) return L"-";
        for (const auto& [id, fixture] : fixtures_)
            if (fixture->MainWindow() == window) return id;
        for (const auto& [id, other] : windows_)
            if (other == window) return id;
        return L"other";
    }

    static std::wstring Bool(bool value) { return value ? L"true" : L"false"; }

    // Runs a program with its output piped back: "<exit code>|<output>", line ends as "\n"; with
    // errorsOnly, its standard output goes nowhere.
    static std::wstring RunProgram(std::wstring commandLine, bool errorsOnly = false) {
        SECURITY_ATTRIBUTES inherit = {sizeof inherit, nullptr, TRUE};
        HANDLE reader = nullptr, writer = nullptr;
        ::CreatePipe(&reader, &writer, &inherit, 0);
        ::SetHandleInformation(reader, HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = errorsOnly ? nullptr : writer;
        startup.hStdError = writer;
        PROCESS_INFORMATION process = {};
        const bool started = ::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                                              nullptr, nullptr, &startup, &process) != FALSE;
        ::CloseHandle(writer);
        std::string output;
        char buffer[4096];
        DWORD read = 0;
        while (started && ::ReadFile(reader, buffer, sizeof buffer, &read, nullptr) && read > 0) output.append(buffer, read);
        ::CloseHandle(reader);
        DWORD code = 9999;
        if (started) {
            ::WaitForSingleObject(process.hProcess, 15000);
            ::GetExitCodeProcess(process.hProcess, &code);
            ::CloseHandle(process.hProcess);
            ::CloseHandle(process.hThread);
        }
        output.erase(std::remove(output.begin(), output.end(), '\r'), output.end());
        return std::to_wstring(code) + L"|" + FromUtf8(output);
    }

    // wbs.exe with the row's arguments; "wbs-stderr" leaves its standard output out.
    static std::wstring RunWbs(Runner& r, const std::vector<std::wstring>& t) {
        std::wstring commandLine = L"\"" + ExecutableFolder() + L"\\wbs.exe\"";
        for (size_t i = 1; i < t.size(); ++i) commandLine += L" \"" + r.Expand(t[i]) + L"\"";
        return RunProgram(commandLine, t[0] == L"wbs-stderr");
    }

    std::wstring Made(const counted_ptr<iWebBrowser>& owned) const {
        if (!owned) return L"none";
        auto* generic = dynamic_cast<cGenericWebBrowser*>(owned.get());
        return TypeName(typeid(*owned)) + L" " + Id(generic ? generic->Window() : nullptr);
    }

    iWebBrowser* Driver(const std::wstring& family) {
        counted_ptr<iWebBrowser>& driver = drivers_[family];
        if (!driver) {
            if (family == L"generic") driver = counted_ptr<iWebBrowser>(new cGenericWebBrowser());
            else if (family == L"help") driver = counted_ptr<iWebBrowser>(new cHelpBrowser());
            else if (family == L"program") driver = counted_ptr<iWebBrowser>(new ProgramBrowser());
            else if (family == L"chrome") driver = counted_ptr<iWebBrowser>(new cChromeBrowser());
            else driver = FactoryListAccess::FamilyBrowser(CStdStr(family));
        }
        return driver.get();
    }

    IEventMgr* Events() { return eventsOn_ ? &events_ : nullptr; }

    std::wstring Keys() {
        std::vector<Input> events;
        if (!TakeInput(events)) return L"(the marker key never arrived)";
        std::wstring text;
        lastInput_ = events;
        for (const Input& e : events) text += (text.empty() ? L"" : L" ") + std::wstring(e.down ? L"+" : L"-") + KeyName(e.code);
        return text;
    }

    std::wstring DriverStep(const std::vector<std::wstring>& t) {
        if (Driver(t[1]) == nullptr) return L"(no such driver)";
        iWebBrowser& driver = *Driver(t[1]);
        const std::wstring& op = t[2];
        const CStdStr argument(t.size() > 3 ? Expand(t[3]) : std::wstring());
        if (op == L"Back") return Bool(driver.Back(true, Events()));
        if (op == L"Forward") return Bool(driver.Forward(true, Events()));
        if (op == L"GoHome") return Bool(driver.GoHome(true));
        if (op == L"Refresh") return Bool(driver.Refresh(true));
        if (op == L"Search") return Bool(driver.Search());
        if (op == L"ShowFavorites") return Bool(driver.ShowFavorites());
        if (op == L"ShowHistory") return Bool(driver.ShowHistory());
        if (op == L"GoToWebAddress") return Bool(driver.GoToWebAddress(argument));
        if (op == L"Launch") return Bool(driver.Launch(argument));
        if (op == L"Window") return Id(dynamic_cast<cGenericWebBrowser&>(driver).Window());
        if (op == L"SetProgram") {
            auto& program = dynamic_cast<ProgramBrowser&>(driver);
            program.path = argument;
            program.args = t.size() > 4 ? t[4] : L"";
            return L"";
        }
        if (op == L"GetProgramPath") {
            CStdStr path(L"(unchanged)"), arguments(L"(unchanged)");
            const bool found = driver.GetProgramPath(path, arguments);
            return Bool(found) + L"|" + path + L"|" + arguments;
        }
        PageInfo page;
        const bool found = driver.GetCurrentPage(page);
        if (op == L"PageLengths") return Bool(found) + L"|" + std::to_wstring(page.Url.size()) + L"|" + std::to_wstring(page.Title.size());
        return Bool(found) + L"|" + page.Url + L"|" + page.Title;
    }

    static const std::map<std::wstring, Step>& Steps();

    const Case& case_;
    std::map<std::wstring, std::unique_ptr<Fixture>> fixtures_;
    std::map<std::wstring, HWND> windows_;
    std::map<std::wstring, counted_ptr<iWebBrowser>> drivers_;
    std::unique_ptr<CLegacyKeySender> sender_;
    std::unique_ptr<cAOLToolbarCommander> aolToolbar_;
    RegistryScope registry_;
    std::vector<Input> lastInput_;
    std::vector<std::wstring> endImages_, files_, env_;
    EventMgr events_;
    std::thread boxWatch_;
    std::atomic<bool> boxDone_{false};
    std::wstring boxSeen_;
    std::map<std::wstring, long long> counted_;  // the process's counts when "grown" was first asked
    bool eventsOn_ = false;
    ULONGLONG elapsed_ = 0;
};

const std::map<std::wstring, Runner::Step>& Runner::Steps() {
    using T = const std::vector<std::wstring>&;
    static const std::map<std::wstring, Step> steps = {
        // Set-up.
        {L"fixture", [](Runner& r, T t) {
             std::vector<std::wstring> options(t.begin() + 3, t.end());
             for (std::wstring& option : options) option = r.Expand(option);
             auto fixture = std::make_unique<Fixture>(t[2], options);
             EXPECT_TRUE(fixture->Start()) << "the fixture did not become ready";
             r.fixtures_[t[1]] = std::move(fixture);
             return std::wstring();
         }},
        {L"install", [](Runner& r, T t) {
             r.fixtures_[t[1]] = std::make_unique<Fixture>(t[2], std::vector<std::wstring>(t.begin() + 3, t.end()));
             return std::wstring();
         }},
        {L"reg", [](Runner& r, T t) {
             const std::wstring type = t.size() > 4 ? t[4] : L"sz";
             const DWORD code = type == L"dword" ? REG_DWORD : type == L"expand" ? REG_EXPAND_SZ
                              : type == L"binary" ? REG_BINARY : REG_SZ;
             EXPECT_TRUE(r.registry_.Set(t[1], t[2] == L"@" ? L"" : t[2], code, r.Expand(t[3])));
             return std::wstring();
         }},
        {L"unreg", [](Runner& r, T t) { return r.registry_.Delete(t[1], t[2] == L"@" ? L"" : t[2]), std::wstring(); }},
        {L"regvalue", [](Runner&, T t) {
             std::wstring subKey;
             const HKEY root = RegistryScope::Root(t[1], subKey);
             wchar_t data[1024] = {};
             DWORD size = sizeof data;
             const bool found = ::RegGetValueW(root, subKey.c_str(), t[2] == L"@" ? nullptr : t[2].c_str(), RRF_RT_REG_SZ,
                                               nullptr, data, &size) == ERROR_SUCCESS;
             return found ? std::wstring(data) : std::wstring(L"(none)");
         }},
        {L"file", [](Runner& r, T t) {
             // "file PATH TEXT": the text; "file PATH HEAD N FILL TAIL": FILL N times between HEAD and TAIL.
             const std::wstring path = r.Expand(t[1]);
             std::string bytes = ToUtf8(Unescape(t[2]));
             for (size_t n = t.size() > 5 ? std::stoul(t[3]) : 0; n > 0; --n) bytes += ToUtf8(Unescape(t[4]));
             EXPECT_TRUE(WriteBytes(path, t.size() > 5 ? bytes + ToUtf8(Unescape(t[5])) : bytes));
             r.files_.push_back(path);
             return std::wstring();
         }},
        {L"version", [](Runner& r, T t) {
             const std::vector<std::wstring> parts = Tokens(std::wstring(t[2]).replace(t[2].find(L'.'), 1, L" "));
             EXPECT_TRUE(StampFileVersion(r.fixtures_.at(t[1])->Program(), static_cast<WORD>(std::stoi(parts[0])),
                                          static_cast<WORD>(std::stoi(parts[1])), 0, 0));
             return std::wstring();
         }},
        {L"env", [](Runner& r, T t) {
             ::SetEnvironmentVariableW(t[1].c_str(), r.Expand(t[2]).c_str());
             r.env_.push_back(t[1]);
             return std::wstring();
         }},
        {L"macro", [](Runner& r, T t) {
             r.eventsOn_ = t[1] != L"none";
             r.events_.macro = t[1] == L"plain" ? static_cast<IMacro*>(&r.events_.plain) : &r.events_.handler;
             r.events_.handler.result = t[1] == L"handled" ? 1 : 0;
             return std::wstring();
         }},
        {L"front", [](Runner& r, T t) {
             const HWND window = r.Window(t[1]);
             ::SetForegroundWindow(window);
             return Bool(WaitFor([&] { return ::GetForegroundWindow() == window; }, 5000));
         }},
        {L"end", [](Runner& r, T t) { return r.endImages_.push_back(t[1]), std::wstring(); }},
        {L"expectbox", [](Runner& r, T) {
             // A message box of this program, shown while the next rows run, is read and answered.
             r.boxWatch_ = std::thread([&r] {
                 while (!r.boxDone_) {
                     const HWND box = ::FindWindowW(L"#32770", nullptr);
                     DWORD owner = 0;
                     if (box != nullptr) ::GetWindowThreadProcessId(box, &owner);
                     if (owner != ::GetCurrentProcessId()) {
                         ::Sleep(20);  // the next look
                         continue;
                     }
                     wchar_t caption[256] = {}, text[256] = {};
                     ::GetWindowTextW(box, caption, 256);
                     for (HWND child = ::FindWindowExW(box, nullptr, L"Static", nullptr); child && !*text;
                          child = ::FindWindowExW(box, child, L"Static", nullptr))
                         ::GetWindowTextW(child, text, 256);
                     r.boxSeen_ += std::wstring(r.boxSeen_.empty() ? L"" : L" | ") + text + L"|" + caption;
                     ::PostMessageW(box, WM_COMMAND, IDOK, 0);
                     while (::IsWindow(box) && !r.boxDone_) ::Sleep(10);
                 }
             });
             return std::wstring();
         }},
        {L"box", [](Runner& r, T) {
             r.boxDone_ = true;
             if (r.boxWatch_.joinable()) r.boxWatch_.join();
             r.boxDone_ = false;
             return std::exchange(r.boxSeen_, std::wstring());
         }},
        // Commands.
        {L"BrowserBack", [](Runner& r, T t) { return Bool(BrowserBack(r.Events(), r.Window(t[1]))); }},
        {L"BrowserForward", [](Runner& r, T t) { return Bool(BrowserForward(r.Events(), r.Window(t[1]))); }},
        {L"BrowserRefresh", [](Runner& r, T t) { return Bool(BrowserRefresh(r.Window(t[1]))); }},
        {L"GoToBrowserHome", [](Runner& r, T t) { return Bool(GoToBrowserHome(r.Window(t[1]))); }},
        {L"BrowserSearch", [](Runner&, T) { return Bool(BrowserSearch()); }},
        {L"BrowserShowFavorites", [](Runner&, T) { return Bool(BrowserShowFavorites()); }},
        {L"GoToWebAddress", [](Runner& r, T t) {
             return Bool(GoToWebAddress(CStdStr(t.size() > 1 ? r.Expand(t[1]) : L""), false, nullptr));
         }},
        {L"GotoURL", [](Runner& r, T t) { return Bool(GotoURL(CStdStr(r.Expand(t[1])), SW_SHOWNORMAL)); }},
        {L"KeyRefresh", [](Runner&, T) { return Bool(KeyRefresh()); }},
        {L"driver", [](Runner& r, T t) { return r.DriverStep(t); }},
        {L"which", [](Runner& r, T t) {
             CProcessFinder::Instance(true);
             return r.Made(cWebBrowserFactoryList::Instance()->GetForegroundWebBrowser(CStdStr(t[2]), r.Window(t[1])));
         }},
        {L"claims", [](Runner& r, T t) {
             // The listed factory whose class name holds the given name.
             for (iWebBrowserFactory* factory : cWebBrowserFactoryList::Instance()->GetBrowsers()) {
                 if (TypeName(typeid(*factory)).find(t[1]) == std::wstring::npos) continue;
                 iWebBrowser* out = nullptr;
                 const bool claimed = factory->IsBrowserProcess(CStdStr(r.Expand(t[2])), out);
                 return Bool(claimed) + L" " + r.Made(counted_ptr<iWebBrowser>(out));
             }
             return std::wstring(L"(no such factory)");
         }},
        {L"default", [](Runner& r, T) { return r.Made(cWebBrowserFactoryList::Instance()->GetDefaultWebBrowser()); }},
        {L"defaultcommand", [](Runner&, T) {
             CStdStr line(L"(unchanged)");
             const bool found = FactoryListAccess::DefaultBrowserCommandLine(*cWebBrowserFactoryList::Instance(), line);
             return Bool(found) + L"|" + line;
         }},
        {L"sendkeys", [](Runner&, T t) { return std::to_wstring(SendKeys(t.size() > 1 ? t[1].c_str() : nullptr)); }},
        {L"releaseall", [](Runner&, T) { return SendKeys_ReleaseAll(), std::wstring(); }},
        {L"button", [](Runner& r, T t) {
             if (!r.sender_) {
                 r.sender_ = std::make_unique<CLegacyKeySender>();
                 if (t[1] != L"-") r.sender_->SetMappingFileBase(t[1].c_str());
             }
             return std::to_wstring(r.sender_->SendButton(static_cast<unsigned short>(std::stoi(t[2])), std::stoi(t[3]),
                                                         std::stoi(t[4])));
         }},
        {L"aolcode", [](Runner& r, T t) {
             // One commander for the case, so that a repeat acts on the windows of the last fresh press.
             if (!r.aolToolbar_) r.aolToolbar_ = std::make_unique<cAOLToolbarCommander>();
             return std::to_wstring(r.aolToolbar_->Execute(static_cast<unsigned short>(std::stoi(t[1])), std::stoi(t[2]),
                                                           std::stoi(t[3])));
         }},
        {L"presskey", [](Runner&, T t) {
             auto presser = t[1] == L"sendinput" ? std::make_unique<CZyPressKey>() : std::make_unique<CZyPressKey>(CPlatforme(0));
             for (size_t i = 2; i + 1 < t.size(); i += 2)
                 presser->PressKey(static_cast<BYTE>(std::stoi(t[i])), static_cast<DWORD>(std::stoi(t[i + 1])));
             return std::wstring();
         }},
        {L"startprogram", [](Runner& r, T t) {
             std::wstring commandLine = r.Expand(t[1]);
             HWND window = nullptr;
             const bool started = StartProgram(commandLine.c_str(), &window);
             return Bool(started) + L" " + r.Id(window);
         }},
        {L"dde", [](Runner& r, T t) {
             cNavigateUtility utility{CStdStr(t[1])};
             const std::wstring& op = t[2];
             CStdStr a(t.size() > 3 ? r.Expand(t[3]) : L""), b;
             bool answered = false;
             if (op == L"GetPageInfo") return answered = utility.GetPageInfo(a, b), Bool(answered) + L"|" + a + L"|" + b;
             if (op == L"GetWindowInfo") return answered = utility.GetWindowInfo(a), Bool(answered) + L"|" + std::to_wstring(a.size());
             if (op == L"OpenURL") return Bool(utility.OpenURL(nullptr, a));
             answered = utility.DdeRequest(CStdStr(op), a);
             return Bool(answered) + L"|" + a;
         }},
        {L"reads", [](Runner& r, T t) {
             // "reads FAMILY favorites|history N ALLOWED...": the entries of N reads that are none of
             // the allowed ones, those over 80 characters shortened to their start and length.
             const std::set<std::wstring> allowed(t.begin() + 4, t.end());
             std::wstring text;
             for (int n = std::stoi(t[3]); n > 0; --n) {
                 FavoritesList favorites;
                 HistoryList history;
                 (void)(t[2] == L"favorites" ? r.Driver(t[1])->GetFavorites(favorites) : r.Driver(t[1])->GetHistory(history));
                 for (const auto& entry : favorites) history.Append(HistoryEntry{entry.Text, entry.Extra});
                 for (const HistoryEntry& entry : history)
                     if (allowed.count(entry.Text) == 0)
                         text += (text.empty() ? L"" : L" | ") + (entry.Text.size() <= 80 ? std::wstring(entry.Text)
                                 : entry.Text.substr(0, 20) + L"...(" + std::to_wstring(entry.Text.size()) + L")");
             }
             return text;
         }},
        {L"finder", [](Runner&, T) { return CProcessFinder::Instance(true), std::wstring(); }},
        {L"rmfile", [](Runner& r, T t) { return Bool(::DeleteFileW(r.Expand(t[1]).c_str()) != FALSE); }},
        {L"post", [](Runner& r, T t) {
             // A marker message through the window's queue: whatever was posted before it has arrived.
             ::PostMessageW(r.Window(t[1]), WM_COMMAND, 4242, 0);
             const Fixture& fixture = *r.fixtures_.at(t[1]);
             return Bool(WaitFor([&] {
                 const std::vector<std::wstring> commands = fixture.Values(L"command");
                 return std::count(commands.begin(), commands.end(), L"4242") > 0;
             }, 5000));
         }},
        {L"wbs", RunWbs},
        {L"wbs-stderr", RunWbs},
        // Observations.
        {L"factories", [](Runner&, T) {
             std::wstring names;
             for (iWebBrowserFactory* factory : cWebBrowserFactoryList::Instance()->GetBrowsers())
                 names += (names.empty() ? L"" : L" ") + TypeName(typeid(*factory));
             return names;
         }},
        {L"findwindow", [](Runner& r, T t) {
             // The first window of the class, known from now on by the given name; its program's file name.
             const HWND window = r.windows_[t[2]] = ::FindWindowW(t[1].c_str(), nullptr);
             DWORD processId = 0, size = MAX_PATH;
             ::GetWindowThreadProcessId(window, &processId);
             wchar_t image[MAX_PATH] = L"(none)";
             const HANDLE process = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId);
             if (process != nullptr) ::QueryFullProcessImageNameW(process, 0, image, &size), ::CloseHandle(process);
             return std::wstring(std::wcsrchr(image, L'\\') ? std::wcsrchr(image, L'\\') + 1 : image);
         }},
        {L"ownfocus", [](Runner& r, T) { return r.Id(::GetFocus()); }},
        {L"log", [](Runner& r, T t) {
             const Fixture& fixture = *r.fixtures_.at(t[1]);
             // An optional bound waits for a first line: input reaches a window after posted messages.
             if (t.size() > 3) WaitFor([&] { return !fixture.Values(t[2]).empty(); }, std::stoul(t[3]));
             std::wstring joined;
             for (const std::wstring& value : fixture.Values(t[2])) joined += (joined.empty() ? L"" : L" | ") + value;
             return joined;
         }},
        {L"keys", [](Runner& r, T) { return r.Keys(); }},
        {L"timing", [](Runner& r, T t) {
             // held: the shortest time a key stayed down; gaps: the shortest time between two
             // events; span: from the first event to the last.
             const std::vector<Input>& in = r.lastInput_;
             double shortest = 1e9;
             for (size_t i = 0; i + 1 < in.size(); ++i) {
                 if (t[1] == L"gaps") shortest = std::min(shortest, in[i + 1].ms - in[i].ms);
                 for (size_t j = i + 1; t[1] == L"held" && in[i].down && j < in.size(); ++j)
                     if (in[j].code == in[i].code) {
                         shortest = std::min(shortest, in[j].ms - in[i].ms);
                         break;
                     }
             }
             return std::to_wstring(t[1] == L"span" ? in.back().ms - in.front().ms : shortest);
         }},
        {L"keysdown", [](Runner&, T) {
             std::wstring text;
             for (int key : KeysDown()) text += (text.empty() ? L"" : L" ") + KeyName(static_cast<unsigned>(key));
             return text;
         }},
        {L"macro?", [](Runner& r, T) {
             Handler& h = r.events_.handler;
             std::wstring text = r.events_.requested + h.parameters + L" runs=" + std::to_wstring(h.runs) +
                                 L" releases=" + std::to_wstring(h.releases + r.events_.plain.releases);
             text.erase(0, text.find_first_not_of(L' '));
             r.events_.requested.clear();
             h.parameters.clear();
             h.runs = h.releases = r.events_.plain.releases = 0;
             return text;
         }},
        {L"foreground", [](Runner& r, T) { return r.Id(::GetForegroundWindow()); }},
        {L"iconic", [](Runner& r, T t) { return Bool(::IsIconic(r.Window(t[1])) != FALSE); }},
        {L"clipboard", [](Runner&, T) {
             std::wstring text = L"(none)";
             if (!::OpenClipboard(nullptr)) return text;
             if (HANDLE data = ::GetClipboardData(CF_UNICODETEXT)) {
                 text = static_cast<const wchar_t*>(::GlobalLock(data));
                 ::GlobalUnlock(data);
             }
             ::CloseClipboard();
             return text;
         }},
        {L"elapsed", [](Runner& r, T) { return std::to_wstring(r.elapsed_); }},
        {L"mix", [](Runner& r, T t) {
             // "mix N ID=ADDRESS...": N rounds of the exported commands with each fixture in front in
             // turn, the address what GoToWebAddress is given then; the number of commands run. Two
             // passes a turn, as bringing a window forward costs Wine a dozen commands; side-button
             // clicks (10 ms each) every other round, GotoURL (which asks the shell first) every
             // fourth, Chrome's keys (SendInput, 40 ms an event) every tenth.
             int total = 0;
             std::vector<std::tuple<std::wstring, std::wstring, HWND>> turns;  // id, address, window
             for (size_t i = 2; i < t.size(); ++i) {
                 const std::wstring id = t[i].substr(0, t[i].find(L'='));
                 turns.emplace_back(id, t[i].substr(id.size() + 1), r.Window(id));
             }
             for (int round = 0; round < std::stoi(t[1]); ++round)
                 for (const auto& [id, address, window] : turns) {
                     const bool keys = r.fixtures_.at(id)->Program().find(L"chrome.exe") != std::wstring::npos;
                     ::SetForegroundWindow(window);
                     WaitFor([&] { return ::GetForegroundWindow() == window; }, 2000);
                     Watchdog watchdog("the commands with " + ToUtf8(id) + " in front", 20000);
                     for (int pass = 0; pass < 2; ++pass, total += 6) {
                         BrowserBack(nullptr, window), BrowserForward(nullptr, window), BrowserRefresh(window);
                         BrowserRefresh(nullptr), BrowserSearch(), GoToWebAddress(CStdStr(address), false, nullptr);
                         if (!keys || round % 10 == 0)
                             GoToBrowserHome(window), GoToBrowserHome(nullptr), BrowserShowFavorites(), total += 3;
                         if (round % 2 == 0) BrowserBack(nullptr, nullptr), BrowserForward(nullptr, nullptr), total += 2;
                         if (round % 4 == 0) GotoURL(CStdStr(L"wbsnowhere:stress"), SW_SHOWNORMAL), ++total;
                     }
                 }
             return std::to_wstring(total);
         }},
        {L"grown", [](Runner& r, T t) {
             // "grown handles|user|gdi|private": how much the process's count grew since this case
             // first asked, which it takes as the base.
             std::map<std::wstring, long long> now;
             DWORD flags = 0;
             // Wine counts no handles for GetProcessHandleCount (nor USER or GDI objects for
             // GetGuiResources), so each handle value, a multiple of four, is asked for.
             for (UINT_PTR value = 4; value < 0x10000; value += 4)
                 now[L"handles"] += ::GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) ? 1 : 0;
             now[L"user"] = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS);
             now[L"gdi"] = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
             MEMORY_BASIC_INFORMATION region = {};
             for (const BYTE* at = nullptr; ::VirtualQuery(at, &region, sizeof region) == sizeof region;
                  at = static_cast<const BYTE*>(region.BaseAddress) + region.RegionSize)
                 if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) now[L"private"] += region.RegionSize;
             if (r.counted_.empty()) r.counted_ = now;
             std::printf("%ls: %lld, then %lld\n", t[1].c_str(), r.counted_.at(t[1]), now.at(t[1]));
             return std::to_wstring(now.at(t[1]) - r.counted_.at(t[1]));
         }},
        {L"waitready", [](Runner& r, T t) {
             const Fixture& fixture = *r.fixtures_.at(t[1]);
             const size_t count = std::stoul(t[2]);
             return Bool(WaitFor([&] { return fixture.Values(L"ready").size() >= count; }, 10000));
         }},
    };
    return steps;
}

class CommandTable : public ::testing::TestWithParam<std::wstring> {};

TEST_P(CommandTable, EveryCaseGivesWhatItsRowsExpect) {
    const std::vector<Case> cases = LoadCases(GetParam());
    ASSERT_FALSE(cases.empty());
    for (const Case& c : cases) {
        SCOPED_TRACE(ToUtf8(c.title));
        Runner runner(c);
        runner.Run();
    }
}

INSTANTIATE_TEST_SUITE_P(Families, CommandTable, ::testing::ValuesIn(FolderNames(DataPath(L"commands"), L"*.txt")),
                         [](const ::testing::TestParamInfo<std::wstring>& info) {
                             return ToUtf8(info.param.substr(0, info.param.find(L'.')));
                         });

}  // namespace
