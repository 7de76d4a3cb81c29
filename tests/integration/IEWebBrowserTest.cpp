// The Internet Explorer driver and factory: frame and folder windows recognised by class and
// program, the program found through the automation ProgID, an empty address bringing the
// browser forward, and the exported commands on it. Wine's own Internet Explorer is started
// through the registered ProgID where the test needs the real program.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include <vector>
#include "WebBrowserSupport.h"
#include "browsers/ie/cIEWebBrowser.h"
#include "browsers/ie/cIEWebBrowserFactory.h"
#include "support/ProcessState.h"
#include "support/RegistryGuard.h"
#include "support/StubBrowser.h"
#include "support/TestWindow.h"
#include "support/WaitFor.h"
#include "support/WineInternetExplorer.h"
#include "tovutil/CProcessFinder.h"

using namespace wbstest;

namespace {
constexpr DWORD kBound = 10000;
const wchar_t kServerKey[] = L"CLSID\\{0002DF01-0000-0000-C000-000000000046}\\LocalServer32";
const wchar_t kClients[] = L"Software\\Clients\\StartMenuInternet";

void SetDefault(HKEY root, const std::wstring& subKey, const std::wstring& value) {
    HKEY key = nullptr;
    ASSERT_EQ(::RegCreateKeyExW(root, subKey.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr), ERROR_SUCCESS);
    ::RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                     static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    ::RegCloseKey(key);
}

std::vector<int> AppCommandCodes(const StubBrowser& stub) {
    std::vector<int> codes;
    for (const LogEvent& event : stub.Log().Events(L"appcommand")) codes.push_back(static_cast<int>(event.Number(L"code")));
    return codes;
}

class IEWebBrowserTest : public ::testing::Test {
protected:
    void SetUp() override {
        ResetProcessWideState();
        WineInternetExplorer::CloseAll();
    }
    void TearDown() override {
        WineInternetExplorer::CloseAll();
        ResetProcessWideState();
    }

    // The driver the factory makes for a window and a command, if any.
    static counted_ptr<iWebBrowser> DriverFor(HWND window, const wchar_t* command) {
        cIEWebBrowserFactory factory;
        iWebBrowser* out = nullptr;
        const bool claimed = factory.CreateBrowser(window, CProcessFinder::Instance(true), out, CStdStr(command));
        EXPECT_EQ(claimed, out != nullptr);
        return counted_ptr<iWebBrowser>(out);
    }
};
}  // namespace

TEST_F(IEWebBrowserTest, FramesOfAnyProgramAndFolderWindowsForThreeCommandsAreInternetExplorer) {
    const struct {
        const wchar_t* program;
        const wchar_t* windowClass;
        bool forBack;    // BACK, FORWARD and REFRESH
        bool forOthers;  // SEARCH, HOME, FAVORITES, WEBADDRESS, no command
    } cases[] = {
        {L"iexplore.exe", L"IEFrame", true, true},
        {L"someapp.exe", L"IEFrame", true, true},
        {L"explorer.exe", L"CabinetWClass", true, false},
        {L"Explorer.EXE", L"ExploreWClass", true, false},
        {L"explorer.exe", L"IEFrame", true, false},
        {L"someapp.exe", L"CabinetWClass", true, true},
        {L"iexplore.exe", L"ieframe", false, false},
        {L"iexplore.exe", L"StubBrowserFrame", false, false},
    };
    for (const auto& c : cases) {
        StubBrowser stub;
        ASSERT_TRUE(stub.Start(c.program, {L"--window", c.windowClass, L"frame", L"--no-foreground"}));
        const HWND window = stub.MainWindow();
        for (const wchar_t* command : {L"BACK", L"FORWARD", L"REFRESH"}) {
            counted_ptr<iWebBrowser> driver = DriverFor(window, command);
            EXPECT_EQ(static_cast<bool>(driver), c.forBack) << c.program << " " << c.windowClass << " " << command;
            if (driver) {
                EXPECT_EQ(dynamic_cast<cIEWebBrowser&>(*driver).Window(), window);
            }
        }
        for (const wchar_t* command : {L"SEARCH", L"HOME", L"FAVORITES", L"WEBADDRESS", L"back", L""})
            EXPECT_EQ(static_cast<bool>(DriverFor(window, command)), c.forOthers)
                << c.program << " " << c.windowClass << " " << command;
    }
    EXPECT_FALSE(DriverFor(nullptr, L"BACK"));

    // The program is recognised in the default-browser command line only as written in lower case.
    cIEWebBrowserFactory factory;
    iWebBrowser* out = nullptr;
    EXPECT_FALSE(factory.IsBrowserProcess(CStdStr(L"\"C:\\Program Files\\Internet Explorer\\IEXPLORE.EXE\""), out));
    EXPECT_EQ(out, nullptr);
    ASSERT_TRUE(factory.IsBrowserProcess(CStdStr(L"\"c:\\program files\\internet explorer\\iexplore.exe\" %1"), out));
    counted_ptr<iWebBrowser> made(out);
    EXPECT_EQ(dynamic_cast<cIEWebBrowser&>(*made).Window(), nullptr);
    EXPECT_EQ(dynamic_cast<cIEWebBrowser&>(*made).ServiceName(), L"IEXPLORE");
}

TEST_F(IEWebBrowserTest, ProgramPathComesFromTheAutomationClassAndMustNameIexplore) {
    cIEWebBrowser browser;
    CStdStr path, arguments(L"left over");
    ASSERT_TRUE(browser.GetProgramPath(path, arguments));
    EXPECT_EQ(path, L"\"c:\\program files\\internet explorer\\iexplore.exe\"");
    EXPECT_EQ(arguments, L"");

    RegistryGuard server(HKEY_CLASSES_ROOT, kServerKey, L"");
    SetDefault(HKEY_CLASSES_ROOT, kServerKey, L"D:\\Browsers\\IEXPLORE.EXE");
    EXPECT_TRUE(browser.GetProgramPath(path, arguments));
    EXPECT_EQ(path, L"d:\\browsers\\iexplore.exe");
    SetDefault(HKEY_CLASSES_ROOT, kServerKey, L"D:\\Browsers\\other.exe");
    EXPECT_FALSE(browser.GetProgramPath(path, arguments));
}

TEST_F(IEWebBrowserTest, EmptyAddressWithoutAFrameStartsInternetExplorerThroughItsProgId) {
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());
    cIEWebBrowser browser;
    EXPECT_TRUE(browser.GoToWebAddress(CStdStr()));
    HWND frame = nullptr;
    EXPECT_TRUE(WaitFor([&] { return (frame = ::FindWindowW(L"IEFrame", nullptr)) != nullptr; }, kBound));
    EXPECT_EQ(CProcessFinder::Instance(true)->GetForegroundProcessName(frame), L"iexplore.exe");
}

TEST_F(IEWebBrowserTest, EmptyAddressRestoresARunningFrameBringsItForwardAndGoesHome) {
    StubBrowser ie;
    ASSERT_TRUE(ie.Start(L"iexplore.exe", {L"--window", L"IEFrame", L"Internet Explorer", L"--minimized"}));
    const HWND frame = ie.MainWindow();
    ASSERT_TRUE(WaitFor([&] { return ::IsIconic(frame) != FALSE; }, kBound));
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());

    cIEWebBrowser browser;
    EXPECT_TRUE(browser.GoToWebAddress(CStdStr()));
    EXPECT_EQ(browser.Window(), frame);
    EXPECT_FALSE(::IsIconic(frame));
    EXPECT_EQ(::GetForegroundWindow(), frame);
    EXPECT_TRUE(WaitFor([&] { return !AppCommandCodes(ie).empty(); }, kBound));
    EXPECT_EQ(AppCommandCodes(ie), std::vector<int>{7});
}

TEST_F(IEWebBrowserTest, ExportedCommandsDriveAnInternetExplorerWindowAndTheDefaultBrowser) {
    StubBrowser ie;
    ASSERT_TRUE(ie.Start(L"iexplore.exe", {L"--window", L"IEFrame", L"Internet Explorer", L"--dde", L"IEXPLORE",
                                           L"--dde-reply", L"\"http://example.invalid/\",\"Example\""}));
    const HWND frame = ie.MainWindow();
    ASSERT_TRUE(WaitFor([&] { return ::GetForegroundWindow() == frame; }, kBound));

    EXPECT_TRUE(BrowserBack(nullptr, frame));
    EXPECT_TRUE(BrowserRefresh(frame));
    EXPECT_TRUE(BrowserForward(nullptr, frame));
    EXPECT_TRUE(WaitFor([&] { return AppCommandCodes(ie).size() >= 3; }, kBound));
    EXPECT_EQ(AppCommandCodes(ie), (std::vector<int>{1, 3, 2}));

    counted_ptr<iWebBrowser> driver =
        cWebBrowserFactoryList::Instance()->GetForegroundWebBrowser(CStdStr(L"FAVORITES"), nullptr);
    ASSERT_NE(dynamic_cast<cIEWebBrowser*>(driver.get()), nullptr);
    PageInfo page;
    EXPECT_TRUE(driver->GetCurrentPage(page));
    EXPECT_EQ(page.Title, L"Example");
    EXPECT_EQ(page.Url, L"http://example.invalid/");

    // Favorites go to the window under the pointer, as the generic browser sends them.
    TestWindow pointed(L"WbsUnderThePointer", TestWindow::UnderThePointer());
    ASSERT_TRUE(pointed.PointAt());
    EXPECT_TRUE(BrowserShowFavorites());
    EXPECT_EQ(pointed.AppCommands(), std::vector<int>{6});

    // Internet Explorer as the default browser, with another program in front: an empty address
    // brings the running frame forward and sends it home.
    RegistryGuard userChoice(HKEY_CURRENT_USER, kClients, L"");
    RegistryGuard command(HKEY_LOCAL_MACHINE, std::wstring(kClients) + L"\\WbsIE\\shell\\open\\command", L"");
    SetDefault(HKEY_CURRENT_USER, kClients, L"WbsIE");
    SetDefault(HKEY_LOCAL_MACHINE, std::wstring(kClients) + L"\\WbsIE\\shell\\open\\command",
               L"\"C:\\Program Files\\Internet Explorer\\IEXPLORE.EXE\" -nohome");
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());
    EXPECT_TRUE(GoToWebAddress(CStdStr(), false, nullptr));
    EXPECT_EQ(::GetForegroundWindow(), frame);
    EXPECT_TRUE(WaitFor([&] { return AppCommandCodes(ie).size() >= 4; }, kBound));
    EXPECT_EQ(AppCommandCodes(ie).back(), 7);
}
