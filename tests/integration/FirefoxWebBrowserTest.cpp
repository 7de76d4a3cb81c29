// The Firefox driver and factory: the program recognised by name, the Mozilla family's shortcuts
// and mapped buttons (Firefox's and the Netscape drivers') observed by the input hooks, an empty address raising the Firefox window among the
// Mozilla windows, and Firefox started through its "App Paths" registration.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include <typeinfo>
#include <vector>
#include "browsers/firefox/cFirefoxWebBrowser.h"
#include "browsers/firefox/cFirefoxWebBrowserFactory.h"
#include "browsers/netscape/cNetscape7WebBrowser.h"
#include "browsers/netscape/cNetscape8WebBrowser.h"
#include "browsers/netscape/cNetscapeWebBrowser.h"
#include "counted_ptr.h"
#include "support/InputTest.h"
#include "support/KeyStrokes.h"
#include "support/MappingFile.h"
#include "support/RegistryGuard.h"
#include "support/RegistryValues.h"
#include "support/StubBrowser.h"
#include "support/TestPaths.h"
#include "support/TestWindow.h"
#include "support/WaitFor.h"
#include "tovutil/CProcessFinder.h"

using namespace wbstest;

namespace {
constexpr DWORD kBound = 10000;
constexpr unsigned kCtrl = 0x11, kAlt = 0x12;
const wchar_t kAppPaths[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\firefox.exe";

class FirefoxWebBrowserTest : public InputTest {};
}  // namespace

// Every Mozilla-family driver shares these commands; the panels follow each driver's own mapping file.
TEST_F(FirefoxWebBrowserTest, EveryMozillaDriverNavigatesByAltShortcutsAndOpensPanelsThroughItsMapping) {
    MappingFile firefoxMapping(JoinPath(ExecutableFolder(), L"Firefox.QXM"),
                               "[Button Mapping - Default]\r\nBUTTON_OPEN_FAV=^b\r\nBUTTON_HISTORY=^h\r\n");
    MappingFile netscapeMapping(JoinPath(ExecutableFolder(), L"NS6.QXM"),
                                "[Button Mapping - Default]\r\nBUTTON_OPEN_FAV=^d\r\nBUTTON_HISTORY=^y\r\n");
    ASSERT_TRUE(firefoxMapping.Written() && netscapeMapping.Written());
    TestWindow front(L"WbsMozillaKeysFront");
    ASSERT_TRUE(front.MakeForeground());

    cFirefoxWebBrowser firefox;
    cNetscapeWebBrowser navigator;
    cNetscape8WebBrowser netscape8;
    cNetscape7WebBrowser netscape7;
    const struct {
        iWebBrowser* browser;
        unsigned favoritesKey, historyKey;
    } cases[] = {{&firefox, 'B', 'H'}, {&navigator, 'D', 'Y'}, {&netscape8, 'D', 'Y'}, {&netscape7, 'D', 'Y'}};
    for (const auto& c : cases) {
        EXPECT_TRUE(c.browser->Back(true, nullptr));
        EXPECT_TRUE(c.browser->Forward(false, nullptr));
        EXPECT_TRUE(c.browser->GoHome(false));
        EXPECT_TRUE(c.browser->Refresh(true));
        EXPECT_TRUE(c.browser->ShowFavorites());
        EXPECT_TRUE(c.browser->ShowHistory());
        EXPECT_EQ(SettledKeys(), Joined({Shortcut(kAlt, VK_LEFT), Shortcut(kAlt, VK_RIGHT), Shortcut(kAlt, VK_HOME),
                                         Tap(VK_F5), Shortcut(kCtrl, c.favoritesKey), Shortcut(kCtrl, c.historyKey)}))
            << typeid(*c.browser).name();
    }
    // None of it went to the application-command path.
    EXPECT_TRUE(front.AppCommands().empty());
}

TEST_F(FirefoxWebBrowserTest, ProgramNameIsLowerCasedInFrontButTheDefaultCommandIsSearchedAsWritten) {
    cFirefoxWebBrowserFactory factory;
    CProcessFinder* finder = CProcessFinder::Instance(true);
    for (const auto& [program, claimed] : {std::pair{L"FIREFOX.EXE", true}, std::pair{L"navigator.exe", false},
                                           std::pair{L"firefox.exe.exe", false}}) {
        StubBrowser stub;
        ASSERT_TRUE(stub.Start(program, {L"--no-foreground"}));
        iWebBrowser* out = nullptr;
        EXPECT_EQ(factory.CreateBrowser(stub.MainWindow(), finder, out, CStdStr(L"BACK")), claimed) << program;
        counted_ptr<iWebBrowser> made(out);
        EXPECT_EQ(made ? dynamic_cast<cFirefoxWebBrowser&>(*made).Window() : nullptr, claimed ? stub.MainWindow() : nullptr);
    }
    iWebBrowser* out = nullptr;
    EXPECT_FALSE(factory.CreateBrowser(nullptr, finder, out, CStdStr(L"BACK")));

    // The default-browser command is searched as written, quoted or followed by switches.
    for (const auto& [command, claimed] :
         {std::pair{L"C:\\PROGRAM FILES\\MOZILLA FIREFOX\\FIREFOX.EXE", false},
          std::pair{L"\"c:\\program files\\mozilla firefox\\firefox.exe\" -url \"%1\"", true},
          std::pair{L"c:\\mozilla\\firefox.exe", true}}) {
        out = nullptr;
        EXPECT_EQ(factory.IsBrowserProcess(CStdStr(command), out), claimed) << command;
        counted_ptr<iWebBrowser> made(out);
        EXPECT_EQ(static_cast<bool>(made), claimed);
        if (made) {
            EXPECT_EQ(dynamic_cast<cFirefoxWebBrowser&>(*made).Window(), nullptr);
            EXPECT_EQ(dynamic_cast<cFirefoxWebBrowser&>(*made).ServiceName(), L"Firefox");
        }
    }
}

TEST_F(FirefoxWebBrowserTest, EmptyAddressSkipsOtherMozillaWindowsAndRaisesFirefoxOnItsHomePage) {
    RegistryGuard appPath(HKEY_LOCAL_MACHINE, kAppPaths, L"");
    ::RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, kAppPaths, nullptr);
    StubBrowser firefox, navigator;
    ASSERT_TRUE(firefox.Start(L"firefox.exe", {L"--window", L"MozillaUIWindowClass", L"Firefox", L"--minimized"}));
    ASSERT_TRUE(navigator.Start(L"navigator.exe", {L"--window", L"MozillaUIWindowClass", L"Navigator"}));
    const HWND firefoxWindow = firefox.MainWindow();
    ASSERT_TRUE(WaitFor([&] { return ::IsIconic(firefoxWindow) != FALSE; }, kBound));
    ASSERT_EQ(::FindWindowW(L"MozillaUIWindowClass", nullptr), navigator.MainWindow());
    TestWindow front(L"WbsFirefoxRaiseFront");
    ASSERT_TRUE(front.MakeForeground());
    SettledKeys();

    cFirefoxWebBrowser browser;
    // Without a process finder no window can be Firefox's: it would be started, and is not registered.
    EXPECT_FALSE(browser.GoToWebAddress(CStdStr()));

    CProcessFinder::Instance(true);
    EXPECT_TRUE(browser.GoToWebAddress(CStdStr()));
    EXPECT_EQ(browser.Window(), firefoxWindow);
    EXPECT_FALSE(::IsIconic(firefoxWindow));
    EXPECT_EQ(::GetForegroundWindow(), firefoxWindow);
    EXPECT_EQ(SettledKeys(), Shortcut(kAlt, VK_HOME));
    EXPECT_TRUE(navigator.Log().Events(L"syskeydown").empty());
}

TEST_F(FirefoxWebBrowserTest, WithoutAFirefoxWindowTheRegisteredProgramIsStartedWithTheAddress) {
    RegistryGuard appPath(HKEY_LOCAL_MACHINE, kAppPaths, L"");
    StubBrowser firefox;
    const std::wstring program = firefox.Install(L"firefox.exe", {L"--window", L"StubBrowserFrame", L"started"});
    ASSERT_FALSE(program.empty());
    ASSERT_TRUE(SetDefaultValue(HKEY_LOCAL_MACHINE, kAppPaths, program));
    ASSERT_EQ(::FindWindowW(L"MozillaUIWindowClass", nullptr), nullptr);
    CProcessFinder::Instance(true);

    cFirefoxWebBrowser browser;
    CStdStr path, arguments(L"left over");
    ASSERT_TRUE(browser.GetProgramPath(path, arguments));
    EXPECT_EQ(path, program);
    EXPECT_EQ(arguments, L"");

    TestWindow front(L"WbsFirefoxStartFront");
    ASSERT_TRUE(front.MakeForeground());
    EXPECT_TRUE(browser.GoToWebAddress(CStdStr()));
    ASSERT_TRUE(firefox.Log().WaitForEvent(L"ready", kBound));
    ASSERT_TRUE(front.MakeForeground());
    EXPECT_TRUE(browser.GoToWebAddress(CStdStr(L"http://example.invalid/a b")));
    ASSERT_TRUE(WaitFor([&] { return firefox.Log().Events(L"ready").size() == 2; }, kBound));

    std::vector<std::wstring> commandLines;
    for (const LogEvent& event : firefox.Log().Events(L"commandline")) commandLines.push_back(event.Field(L"text"));
    EXPECT_EQ(commandLines, (std::vector<std::wstring>{L"\"" + program + L"\"",
                                                       L"\"" + program + L"\" \"http://example.invalid/a b\""}));
    SettledKeys();
}
