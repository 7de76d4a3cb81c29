// Ten thousand exported commands in a row, mixed, against a fixture browser of every family and
// with no browser in front, with the host's reads of favorites and typed addresses among them. The
// process's handles, window-manager and graphics objects and private bytes are counted after a
// warm-up and again at the end: they must stay flat but for the handles the design keeps open on
// purpose, and no key or mouse button may be left down.
#include <gtest/gtest.h>
#include <windows.h>
#include <cstdio>
#include <map>
#include "WebBrowserSupport.h"
#include "support/TestSupport.h"

using namespace wbstest;

namespace {

struct Counts {
    DWORD handles = 0, user = 0, gdi = 0, windows = 0;
    SIZE_T privateBytes = 0;
};

Counts Measure() {
    Counts c;
    // Wine counts no handles for GetProcessHandleCount, so each value (a multiple of four) is asked.
    for (UINT_PTR value = 4; value < 0x10000; value += 4) {
        DWORD flags = 0;
        c.handles += ::GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != FALSE;
    }
    c.user = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS);
    c.gdi = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
    // Windows of this process, top-level and message-only, which Wine's object counts leave out.
    for (HWND parent : {static_cast<HWND>(nullptr), HWND_MESSAGE})
        for (HWND w = ::FindWindowExW(parent, nullptr, nullptr, nullptr); w; w = ::FindWindowExW(parent, w, nullptr, nullptr)) {
            DWORD owner = 0;
            ::GetWindowThreadProcessId(w, &owner);
            c.windows += owner == ::GetCurrentProcessId();
        }
    MEMORY_BASIC_INFORMATION region = {};
    for (const BYTE* at = nullptr; ::VirtualQuery(at, &region, sizeof region) == sizeof region;
         at = static_cast<const BYTE*>(region.BaseAddress) + region.RegionSize)
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) c.privateBytes += region.RegionSize;
    return c;
}

void Print(const char* when, const Counts& c) {
    std::printf("%s %lu handles, %lu USER and %lu GDI objects, %lu windows, %zu private bytes\n", when, c.handles, c.user,
                c.gdi, c.windows, c.privateBytes);
}

enum Command { kBack, kForward, kRefresh, kHome, kBackFront, kForwardFront, kRefreshFront, kHomeFront, kSearch,
               kFavorites, kAddress, kOpenUrl, kGetFavorites, kGetHistory, kCommands };
const char* const kNames[kCommands] = {"BrowserBack(window)", "BrowserForward(window)", "BrowserRefresh(window)",
    "GoToBrowserHome(window)", "BrowserBack(null)", "BrowserForward(null)", "BrowserRefresh(null)",
    "GoToBrowserHome(null)", "BrowserSearch", "BrowserShowFavorites", "GoToWebAddress", "GotoURL",
    "GetFavorites through the factory list", "GetHistory through the factory list"};
// Every how many rounds a command runs: the side-button clicks of the commands without a window
// wait 10 ms each, GotoURL asks the shell first, and a read scans the profiles.
const size_t kEvery[kCommands] = {1, 1, 1, 1, 2, 2, 1, 1, 1, 1, 1, 4, 5, 5};

struct Target {
    const wchar_t* program;
    std::vector<std::wstring> options;
    const wchar_t* address;  // given to GoToWebAddress with this program in front
    // Commands run every tenth round only: keys pressed through SendInput, 40 ms an event, and
    // Firefox's reads, each of which keeps its profile enumeration open.
    unsigned slow;
};

// No address where it would start a real program: Internet Explorer's and Chrome's open Wine's.
const Target kTargets[] = {
    {L"iexplore.exe", {L"window", L"IEFrame", L"Internet Explorer"}, L"", 0},
    {L"explorer.exe", {L"window", L"CabinetWClass", L"Folder"}, L"http://stress.invalid/", 0},
    {L"opera.exe", {L"window", L"OpWindow", L"Opera"}, L"http://stress.invalid/", 0},
    {L"waol.exe", {L"window", L"AOL Frame25", L"AOL", L"aol-toolbar", L"http://aol.invalid/", L"48", L"mdi", L"Page"},
     L"http://stress.invalid/", 0},
    {L"firefox.exe", {L"window", L"MozillaUIWindowClass", L"Firefox"}, L"http://stress.invalid/",
     1u << kGetFavorites | 1u << kGetHistory},
    {L"navigator.exe", {L"window", L"MozillaUIWindowClass", L"Navigator"}, L"http://stress.invalid/pasted", 0},
    {L"netscape.exe", {L"window", L"MozillaUIWindowClass", L"Netscape"}, L"http://stress.invalid/pasted", 0},
    {L"chrome.exe", {L"child", L"Chrome_AutocompleteEditView", L"http://stress.invalid/"}, L"",
     1u << kHome | 1u << kHomeFront | 1u << kFavorites},
    {L"hh.exe", {L"window", L"HH Parent", L"Help"}, L"http://stress.invalid/", 0},
    {L"someapp.exe", {}, L"http://stress.invalid/", 0},  // no browser in front
};
const size_t kFirefox = 4;

bool Front(HWND window) {
    ::SetForegroundWindow(window);
    return WaitFor([&] { return ::GetForegroundWindow() == window; }, 2000);
}

TEST(Stress, TenThousandCommandsLeaveCountsFlatAndNoKeyDown) {
    ResetProcessWideState();
    RegistryScope registry;
    // The default browser is one no factory claims, HTML files have no command and no browser is
    // installed: no command starts a program but the Netscape starts at the end.
    const std::wstring clients = L"Software\\Clients\\StartMenuInternet", command = L"HKLM\\" + clients + L"\\WbsStress\\shell\\open\\command";
    const std::wstring appPaths = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";
    ASSERT_TRUE(registry.Set(L"HKCU\\" + clients, L"", REG_SZ, L"WbsStress") && registry.Set(L"HKLM\\" + clients, L"", REG_SZ, L"WbsStress"));
    ASSERT_TRUE(registry.Set(command, L"", REG_SZ, L"c:\\nowhere\\unclaimed.exe"));
    registry.Delete(L"HKCR\\.htm", L"");
    registry.Delete(L"HKLM\\SOFTWARE\\America Online\\AOL\\CurrentVersion", L"AppPath");
    registry.Delete(L"HKCU\\SOFTWARE\\Opera Software", L"Plugin Path");
    for (const wchar_t* program : {L"firefox.exe", L"Opera.exe", L"navigator.exe", L"netscape.exe", L"Netscp.exe"})
        for (const wchar_t* root : {L"HKLM\\", L"HKCU\\"}) registry.Delete(root + appPaths + program, L"");
    // Firefox's profile holds both stores; every other reader finds nothing.
    const ScratchFolder appData(L"stress-appdata");
    const std::wstring profile = appData.Path() + L"\\Mozilla\\Firefox\\Profiles\\s.default\\";
    ASSERT_TRUE(WriteBytes(profile + L"bookmarks.html", "<DT><A HREF=\"http://a.invalid/\">A</A>\n"));
    ASSERT_TRUE(WriteBytes(profile + L"localstore.rdf", "<RDF:li>http://typed.invalid/</RDF:li>\n"));
    for (const wchar_t* folder : {L"AppData", L"Favorites"})
        ASSERT_TRUE(registry.Set(L"HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders", folder,
                                 REG_EXPAND_SZ, appData.Path()));

    std::vector<std::unique_ptr<Fixture>> fixtures;
    for (const Target& target : kTargets) {
        fixtures.push_back(std::make_unique<Fixture>(target.program, target.options));
        ASSERT_TRUE(fixtures.back()->Start()) << ToUtf8(target.program);
    }
    ::SetCursorPos(300, 250);  // over the fixtures, for the commands sent to the window under the pointer

    int total = 0, profileMatches = 0;
    std::map<std::string, std::pair<int, ULONGLONG>> done;  // count and milliseconds of each command
    // Two rounds with each target in front: bringing a window forward costs Wine a dozen commands.
    const auto run = [&](size_t rounds, size_t t) {
        const Target& target = kTargets[t];
        const HWND window = fixtures[t]->MainWindow();
        Front(window);
        Watchdog watchdog{"the commands with " + ToUtf8(target.program) + " in front", 20000};
        for (size_t round = rounds * 2; round < rounds * 2 + 2; ++round)
            for (int c = 0; c < kCommands; ++c) {
                if (round % kEvery[c] != 0 || ((target.slow >> c & 1) != 0 && round % 10 != 0)) continue;
                const ULONGLONG began = ::GetTickCount64();
                FavoritesList favorites;
                HistoryList history;
                switch (c) {
                case kBack: BrowserBack(nullptr, window); break;
                case kForward: BrowserForward(nullptr, window); break;
                case kRefresh: BrowserRefresh(window); break;
                case kHome: GoToBrowserHome(window); break;
                case kBackFront: BrowserBack(nullptr, nullptr); break;
                case kForwardFront: BrowserForward(nullptr, nullptr); break;
                case kRefreshFront: BrowserRefresh(nullptr); break;
                case kHomeFront: GoToBrowserHome(nullptr); break;
                case kSearch: BrowserSearch(); break;
                case kFavorites: BrowserShowFavorites(); break;
                case kAddress: GoToWebAddress(CStdStr(target.address), false, nullptr); break;
                case kOpenUrl: GotoURL(CStdStr(L"wbsnowhere:stress"), SW_SHOWNORMAL); break;
                default:
                    if (auto browser = cWebBrowserFactoryList::Instance()->GetForegroundWebBrowser(CStdStr(L"FAVORITES"), window))
                        c == kGetFavorites ? browser->GetFavorites(favorites) : browser->GetHistory(history);
                    profileMatches += t == kFirefox;
                }
                ++done[kNames[c]].first, ++total;
                done[kNames[c]].second += ::GetTickCount64() - began;
            }
    };
    // The warm-up: caches, the factory list, the process finder, Wine's own lazily made objects.
    for (size_t round = 0; round < 5; ++round)
        for (size_t t = 0; t < std::size(kTargets); ++t) run(round, t);
    done.clear();
    total = profileMatches = 0;
    const Counts before = Measure();
    const ULONGLONG start = ::GetTickCount64();

    const int netscapeStarts = 3;
    for (size_t round = 1; total < 10000 - netscapeStarts; ++round)
        for (size_t t = 0; t < std::size(kTargets) && total < 10000 - netscapeStarts; ++t) run(round, t);
    // With Navigator the default browser and none in front, an address starts it.
    Fixture started(L"navigator.exe", {L"exit-after", L"500"});
    ASSERT_TRUE(registry.Set(command, L"", REG_SZ, L"c:\\stress\\navigator.exe"));
    ASSERT_TRUE(registry.Set(L"HKLM\\" + appPaths + L"navigator.exe", L"", REG_SZ, started.Program()));
    for (int n = 1; n <= netscapeStarts; ++n) {
        ASSERT_TRUE(Front(fixtures.back()->MainWindow()));  // the Navigator started last is in front
        Watchdog watchdog("GoToWebAddress starting Navigator", 15000);
        GoToWebAddress(CStdStr(L"http://stress.invalid/started"), false, nullptr);
        ++done["GoToWebAddress starting Navigator"].first, ++total;
        ASSERT_TRUE(WaitFor([&] { return started.Values(L"ready").size() == static_cast<size_t>(n); }, 5000));
    }
    const ULONGLONG elapsed = ::GetTickCount64() - start;
    const Counts after = Measure();

    for (const auto& [name, counted] : done) std::printf("%6d %7llu ms  %s\n", counted.first, counted.second, name.c_str());
    std::printf("%d commands in %llu ms, %d profile matches, %d Navigator starts\n", total, elapsed, profileMatches, netscapeStarts);
    Print("before:", before);
    Print("after: ", after);
    // Allowance, and nothing else: the profile enumeration each matching scan leaves open; each
    // Netscape start's process and thread handle, and the idle event Wine's WaitForInputIdle
    // hands out and never closes.
    EXPECT_LE(after.handles, before.handles + profileMatches + 3 * netscapeStarts);
    EXPECT_LE(after.user, before.user);
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.windows, before.windows);
    // Wine keeps an 8 KB buffer with each open enumeration, and grows its heap in 64 KB steps.
    EXPECT_LE(after.privateBytes, before.privateBytes + 128 * 1024 + 16 * 1024 * profileMatches);
    EXPECT_EQ(KeysDown(), std::vector<int>());
    ResetProcessWideState();
}

}  // namespace
