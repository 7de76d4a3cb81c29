// What a command costs between the button press and the browser, each against the platform work
// it cannot avoid: the application command sent to a browser window of another process, the
// name of that window's program, the default browser's registration, and loading the library.
#include <benchmark/benchmark.h>
#include <windows.h>
#include <memory>
#include <string>
#include "BenchRegistration.h"
#include "WebBrowserSupport.h"
#include "core/ScopedHandle.h"
#include "support/TestSupport.h"

namespace wbsbench {

namespace {
const wchar_t kUserClients[] = L"HKCU\\Software\\Clients\\StartMenuInternet";
const wchar_t kMachineClients[] = L"HKLM\\Software\\Clients\\StartMenuInternet";
const wchar_t kClientKey[] = L"Software\\Clients\\StartMenuInternet";
const wchar_t kClient[] = L"IEXPLORE.EXE";
const wchar_t kClientCommand[] = L"\"C:\\Program Files\\Internet Explorer\\iexplore.exe\"";
constexpr WORD kRefresh = 3;  // APPCOMMAND_BROWSER_REFRESH

// One fixture browser started without its event log (whose file writes would slow every message
// it answers), its window found by class and title instead.
class FixtureWindow {
public:
    FixtureWindow(const wchar_t* program, const wchar_t* className, const wchar_t* title)
        : fixture_(program, {L"window", className, title, L"background", L"nolog"}) {
        std::wstring commandLine = L"\"" + fixture_.Program() + L"\"";
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process = {};
        if (!::CreateProcessW(fixture_.Program().c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                              fixture_.Folder().c_str(), &startup, &process))
            return;
        ScopedHandle thread(process.hThread);
        ScopedHandle started(process.hProcess);
        wbstest::WaitFor([&] { return (window_ = ::FindWindowW(className, title)) != nullptr; }, 10000);
    }
    HWND Window() const { return window_; }

private:
    wbstest::Fixture fixture_;
    HWND window_ = nullptr;
};

// The windows and the default-browser registration the command benchmarks share; made on first
// use, ended (processes and registry) by EndCommandFixtures.
struct CommandFixtures {
    CommandFixtures() {
        registry.Set(kUserClients, L"", REG_SZ, kClient);
        registry.Set(std::wstring(kMachineClients) + L"\\" + kClient + L"\\shell\\open\\command", L"", REG_SZ,
                     kClientCommand);
    }
    FixtureWindow browser{L"iexplore.exe", L"IEFrame", L"WbsBenchBrowser"};
    FixtureWindow plain{L"wbsbenchapp.exe", L"WbsBenchFrame", L"WbsBenchPlain"};
    wbstest::RegistryScope registry;
};

std::unique_ptr<CommandFixtures>& TheFixtures() {
    static std::unique_ptr<CommandFixtures> fixtures;
    return fixtures;
}

CommandFixtures& Fixtures() {
    if (!TheFixtures()) TheFixtures() = std::make_unique<CommandFixtures>();
    return *TheFixtures();
}

HWND BrowserWindow(benchmark::State& state) {
    const HWND window = Fixtures().browser.Window();
    if (window == nullptr) state.SkipWithError("the fixture browser's window did not appear");
    return window;
}

// The name of a window's program as the platform gives it: process id, process handle, image path.
bool LookUpProgram(HWND window, wchar_t (&path)[MAX_PATH]) {
    DWORD processId = 0;
    ::GetWindowThreadProcessId(window, &processId);
    ScopedHandle process(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
    DWORD size = MAX_PATH;
    return process && ::QueryFullProcessImageNameW(process.get(), 0, path, &size);
}

bool ReadRegistryString(HKEY root, const std::wstring& key, wchar_t (&text)[MAX_PATH]) {
    DWORD size = sizeof text;
    return ::RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS;
}

// The exported factory list's Instance, by the name the compiler gives it.
#if defined(_MSC_VER)
const char kInstanceExport[] = "?Instance@cWebBrowserFactoryList@@SAPEAV1@XZ";
#else
const char kInstanceExport[] = "_ZN22cWebBrowserFactoryList8InstanceEv";
#endif
using InstanceFunction = cWebBrowserFactoryList* (*)();

std::wstring LibraryPath() { return wbstest::ExecutableFolder() + L"\\WebBrowserSupport.dll"; }
}  // namespace

void RegisterCommandBenchmarks() {
    Register("Floor/SendMessage", [](benchmark::State& state) {
        const HWND window = BrowserWindow(state);
        for (auto _ : state) {
            if (::SendMessageW(window, WM_APPCOMMAND, reinterpret_cast<WPARAM>(window), MAKELPARAM(0, kRefresh)) == 0) {
                state.SkipWithError("the fixture browser did not take the application command");
                break;
            }
        }
    });
    Register("Floor/ProcessLookup", [](benchmark::State& state) {
        const HWND window = BrowserWindow(state);
        wchar_t path[MAX_PATH];
        for (auto _ : state) {
            if (!LookUpProgram(window, path)) {
                state.SkipWithError("the fixture browser's program was not found");
                break;
            }
        }
    });
    Register("Floor/ClassNameAndLookup", [](benchmark::State& state) {
        // What recognising the browser's window needs of the platform: its class, as the Internet
        // Explorer factory asks first, and its program.
        const HWND window = BrowserWindow(state);
        wchar_t className[260];
        wchar_t path[MAX_PATH];
        for (auto _ : state) {
            if (::GetClassNameW(window, className, 259) == 0 || !LookUpProgram(window, path)) {
                state.SkipWithError("the fixture browser's class or program was not read");
                break;
            }
        }
    });
    Register("Floor/ClassNameLookupAndSend", [](benchmark::State& state) {
        // All a command needs of the platform: the recognition above and the send.
        const HWND window = BrowserWindow(state);
        wchar_t className[260];
        wchar_t path[MAX_PATH];
        for (auto _ : state) {
            if (::GetClassNameW(window, className, 259) == 0 || !LookUpProgram(window, path) ||
                ::SendMessageW(window, WM_APPCOMMAND, reinterpret_cast<WPARAM>(window), MAKELPARAM(0, kRefresh)) == 0) {
                state.SkipWithError("the fixture browser's class, program or answer was not had");
                break;
            }
        }
    });
    Register("Command/BrowserRefresh", [](benchmark::State& state) {
        const HWND window = BrowserWindow(state);
        for (auto _ : state) {
            if (!BrowserRefresh(window)) {
                state.SkipWithError("BrowserRefresh did not deliver the command");
                break;
            }
        }
    });
    Register("Command/GetForegroundWebBrowser", [](benchmark::State& state) {
        const HWND window = BrowserWindow(state);
        const CStdStr command(L"REFRESH");
        for (auto _ : state) {
            if (!cWebBrowserFactoryList::Instance()->GetForegroundWebBrowser(command, window)) {
                state.SkipWithError("the fixture browser was not recognised");
                break;
            }
        }
    });
    Register("Command/GetForegroundWebBrowser/unrecognised", [](benchmark::State& state) {
        // Every factory that goes by the program's name asks for it: the most any window costs.
        const HWND window = Fixtures().plain.Window();
        if (window == nullptr) state.SkipWithError("the fixture program's window did not appear");
        const CStdStr command(L"REFRESH");
        for (auto _ : state) {
            if (cWebBrowserFactoryList::Instance()->GetForegroundWebBrowser(command, window)) {
                state.SkipWithError("an unknown program was taken for a browser");
                break;
            }
        }
    });
    Register("Floor/DefaultBrowserRegistryReads", [](benchmark::State& state) {
        (void)Fixtures();
        wchar_t client[MAX_PATH];
        wchar_t command[MAX_PATH];
        for (auto _ : state) {
            if (!ReadRegistryString(HKEY_CURRENT_USER, kClientKey, client) ||
                !ReadRegistryString(HKEY_LOCAL_MACHINE, std::wstring(kClientKey) + L"\\" + client + L"\\shell\\open\\command",
                                    command)) {
                state.SkipWithError("the default browser's registration was not read");
                break;
            }
        }
    });
    Register("Command/GetDefaultWebBrowser", [](benchmark::State& state) {
        (void)Fixtures();
        for (auto _ : state) {
            if (!cWebBrowserFactoryList::Instance()->GetDefaultWebBrowser()) {
                state.SkipWithError("the default browser was not recognised");
                break;
            }
        }
    });
    Register("Floor/LoadImageOnly", [](benchmark::State& state) {
        // The image mapped, without its imports bound or its initialisation run.
        const std::wstring path = LibraryPath();
        for (auto _ : state) {
            const HMODULE library = ::LoadLibraryExW(path.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
            if (library == nullptr) {
                state.SkipWithError("WebBrowserSupport.dll was not found beside the benchmarks");
                break;
            }
            ::FreeLibrary(library);
        }
    });
    Register("Load/LoadLibraryAndFirstInstance", [](benchmark::State& state) {
        const std::wstring path = LibraryPath();
        for (auto _ : state) {
            const HMODULE library = ::LoadLibraryW(path.c_str());
            const auto instance = library == nullptr ? nullptr
                : reinterpret_cast<InstanceFunction>(reinterpret_cast<void*>(::GetProcAddress(library, kInstanceExport)));
            const bool made = instance != nullptr && instance() != nullptr;
            if (library != nullptr) ::FreeLibrary(library);
            if (!made) {
                state.SkipWithError("the library's factory list was not made");
                break;
            }
        }
    });
}

void EndCommandFixtures() { TheFixtures().reset(); }

}  // namespace wbsbench
