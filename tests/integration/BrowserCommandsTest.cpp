// The exported commands, the generic and help browsers, and the factory list, driven against real
// windows: the fixture browser under browsers' program names, Wine's own Internet Explorer, and
// windows of the test itself. Injected keys and side buttons are seen by low-level hooks.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include <vector>
#include "WebBrowserSupport.h"
#include "browsers/KeyRefresh.h"
#include "browsers/generic/cHelpBrowser.h"
#include "support/InputTest.h"
#include "support/RecordingEventMgr.h"
#include "support/StubBrowser.h"
#include "support/TestWindow.h"
#include "support/WaitFor.h"
#include "support/WineInternetExplorer.h"

using namespace wbstest;

namespace {
constexpr DWORD kBound = 5000;

std::vector<int> AppCommandCodes(const StubBrowser& stub) {
    std::vector<int> codes;
    for (const LogEvent& event : stub.Log().Events(L"appcommand")) codes.push_back(static_cast<int>(event.Number(L"code")));
    return codes;
}

class BrowserCommandsTest : public InputTest {
protected:
    // The input seen since the last call, with its times, once it has certainly all arrived.
    std::vector<ObservedInput> Input() {
        std::vector<ObservedInput> events;
        EXPECT_TRUE(observer.TakeSettled(events, kBound));
        return events;
    }

    // Waits until the stub has logged count application commands, then returns their codes.
    std::vector<int> WaitForAppCommands(const StubBrowser& stub, size_t count) {
        WaitFor([&] { return stub.Log().Events(L"appcommand").size() >= count; }, kBound);
        return AppCommandCodes(stub);
    }

    RecordingEventMgr eventMgr;
};

// One key pressed and released.
std::vector<KeyStroke> PressAndRelease(unsigned key) { return {{key, true}, {key, false}}; }
}  // namespace

TEST_F(BrowserCommandsTest, BackAndForwardWithoutWindowOrBrowserPressTheSideButtons) {
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());

    EXPECT_TRUE(BrowserBack(&eventMgr, nullptr));
    EXPECT_TRUE(BrowserForward(nullptr, nullptr));

    const std::vector<ObservedInput> input = Input();
    ASSERT_EQ(input.size(), 4u);
    const unsigned buttons[] = {1, 1, 2, 2};
    const bool downs[] = {true, false, true, false};
    for (size_t i = 0; i < input.size(); ++i) {
        EXPECT_EQ(input[i].kind, ObservedInput::Kind::XButton) << i;
        EXPECT_EQ(input[i].code, buttons[i]) << i;
        EXPECT_EQ(input[i].down, downs[i]) << i;
    }
    EXPECT_GE(input[1].ms - input[0].ms, 9.0);  // held about 10 ms
    EXPECT_GE(input[3].ms - input[2].ms, 9.0);
    EXPECT_TRUE(front.AppCommands().empty());
    EXPECT_TRUE(eventMgr.requested.empty());
}

TEST_F(BrowserCommandsTest, UnansweredAppCommandGoesToTheOverrideMacroThenTheArrowKey) {
    StubBrowser stub;
    ASSERT_TRUE(stub.Start(L"someapp.exe", {L"--appcommand", L"unhandled", L"--no-foreground"}));
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());

    // The macro did nothing: the arrow key follows, pressed about 10 ms.
    EXPECT_TRUE(BrowserBack(&eventMgr, stub.MainWindow()));
    EXPECT_EQ(WaitForAppCommands(stub, 1), std::vector<int>{1});
    EXPECT_EQ(eventMgr.requested, std::vector<std::wstring>{L"AppOverrides"});
    const std::vector<std::pair<std::wstring, std::wstring>> backParameters = {{L"ExeName", L"someapp.exe"},
                                                                              {L"ActionName", L"BACK"}};
    EXPECT_EQ(eventMgr.handler.parameters, backParameters);
    EXPECT_EQ(eventMgr.handler.runs, 1);
    EXPECT_EQ(eventMgr.handler.releases, 1);
    std::vector<ObservedInput> input = Input();
    EXPECT_EQ(KeyStrokesOf(input), PressAndRelease(VK_LEFT));
    ASSERT_EQ(input.size(), 2u);
    EXPECT_GE(input[1].ms - input[0].ms, 9.0);

    // The macro acted: no key. The stored event manager serves a later call made without one.
    eventMgr.handler.parameters.clear();
    eventMgr.handler.runResult = 1;
    EXPECT_TRUE(BrowserForward(&eventMgr, stub.MainWindow()));
    EXPECT_EQ(WaitForAppCommands(stub, 2), (std::vector<int>{1, 2}));
    const std::vector<std::pair<std::wstring, std::wstring>> forwardParameters = {{L"ExeName", L"someapp.exe"},
                                                                                 {L"ActionName", L"FORWARD"}};
    EXPECT_EQ(eventMgr.handler.parameters, forwardParameters);
    EXPECT_TRUE(KeyStrokesOf(Input()).empty());

    // A macro that is not a handler is neither run nor released, and no key is pressed.
    PlainMacro plain;
    eventMgr.macro = &plain;
    EXPECT_TRUE(BrowserBack(&eventMgr, stub.MainWindow()));
    EXPECT_EQ(plain.releases, 0);
    EXPECT_TRUE(KeyStrokesOf(Input()).empty());

    // Without an event manager an unanswered command still counts as delivered.
    EXPECT_TRUE(BrowserBack(nullptr, stub.MainWindow()));
    EXPECT_EQ(WaitForAppCommands(stub, 4), (std::vector<int>{1, 2, 1, 1}));
    EXPECT_TRUE(KeyStrokesOf(Input()).empty());
}

TEST_F(BrowserCommandsTest, AnsweredAppCommandEndsTheCommand) {
    StubBrowser stub;
    ASSERT_TRUE(stub.Start(L"someapp.exe", {L"--appcommand", L"handled", L"--no-foreground"}));
    EXPECT_TRUE(BrowserForward(&eventMgr, stub.MainWindow()));
    EXPECT_EQ(WaitForAppCommands(stub, 1), std::vector<int>{2});
    EXPECT_TRUE(eventMgr.requested.empty());
    EXPECT_TRUE(Input().empty());
}

TEST_F(BrowserCommandsTest, ImagePreviewInFrontGetsOnlyTheArrowKeyRelease) {
    StubBrowser stub;
    ASSERT_TRUE(stub.Start(L"someapp.exe", {L"--appcommand", L"unhandled", L"--no-foreground"}));
    TestWindow preview(L"ShImgVw:CPreviewWnd");
    ASSERT_TRUE(preview.MakeForeground());

    EXPECT_TRUE(BrowserBack(&eventMgr, stub.MainWindow()));
    EXPECT_EQ(KeyStrokesOf(Input()), (std::vector<KeyStroke>{{VK_LEFT, false}}));
    EXPECT_EQ(eventMgr.handler.runs, 1);
}

TEST_F(BrowserCommandsTest, InternetExplorerGetsTheArrowKeyWithoutTheMacroWhateverTheCase) {
    // Wine's own Internet Explorer: it leaves the application command unanswered.
    StubBrowser upperCase;
    ASSERT_TRUE(upperCase.Start(L"IEXPLORE.EXE", {L"--appcommand", L"unhandled", L"--no-foreground"}));
    WineInternetExplorer internetExplorer;
    const HWND ieWindow = internetExplorer.Frame();
    ASSERT_NE(ieWindow, nullptr);

    for (HWND window : {ieWindow, upperCase.MainWindow()}) {
        TestWindow front(L"WbsUnrecognisedFront");
        ASSERT_TRUE(front.MakeForeground());
        eventMgr.handler = RecordingHandler();
        EXPECT_TRUE(BrowserForward(&eventMgr, window));
        EXPECT_TRUE(eventMgr.handler.parameters.empty());
        EXPECT_EQ(eventMgr.handler.runs, 0);
        EXPECT_EQ(eventMgr.handler.releases, 1);
        EXPECT_EQ(KeyStrokesOf(Input()), PressAndRelease(VK_RIGHT));
    }
}

TEST_F(BrowserCommandsTest, RefreshWithoutARecognisedBrowserFailsAndSendsNothing) {
    StubBrowser stub;
    ASSERT_TRUE(stub.Start(L"someapp.exe", {L"--appcommand", L"unhandled"}));
    ASSERT_TRUE(WaitFor([&] { return ::GetForegroundWindow() == stub.MainWindow(); }, kBound));
    EXPECT_FALSE(BrowserRefresh(stub.MainWindow()));
    EXPECT_FALSE(BrowserRefresh(nullptr));
    EXPECT_FALSE(GoToBrowserHome(stub.MainWindow()));
    EXPECT_TRUE(AppCommandCodes(stub).empty());
    EXPECT_TRUE(Input().empty());
}

TEST_F(BrowserCommandsTest, HelpViewerCommandsGoToItsWindowOrToTheWindowUnderThePointer) {
    // The program name is lower-cased before it is compared, so HH.EXE is the help viewer.
    StubBrowser help;
    ASSERT_TRUE(help.Start(L"HH.EXE", {L"--appcommand", L"unhandled"}));
    ASSERT_TRUE(WaitFor([&] { return ::GetForegroundWindow() == help.MainWindow(); }, kBound));
    TestWindow pointed(L"WbsUnderThePointer", TestWindow::UnderThePointer());
    ASSERT_TRUE(pointed.PointAt());

    counted_ptr<iWebBrowser> browser =
        cWebBrowserFactoryList::Instance()->GetForegroundWebBrowser(CStdStr(L"REFRESH"), help.MainWindow());
    ASSERT_NE(dynamic_cast<cHelpBrowser*>(browser.get()), nullptr);
    EXPECT_EQ(static_cast<cHelpBrowser*>(browser.get())->Window(), help.MainWindow());

    // With the window given, refresh and home go to the help window itself.
    EXPECT_TRUE(BrowserRefresh(help.MainWindow()));
    EXPECT_TRUE(GoToBrowserHome(help.MainWindow()));
    EXPECT_EQ(WaitForAppCommands(help, 2), (std::vector<int>{3, 7}));

    // Without one, and for search and favorites always, they go to the window under the pointer.
    EXPECT_TRUE(BrowserRefresh(nullptr));
    EXPECT_TRUE(BrowserSearch());
    EXPECT_TRUE(BrowserShowFavorites());
    EXPECT_TRUE(GoToBrowserHome(nullptr));
    EXPECT_EQ(pointed.AppCommands(), (std::vector<int>{3, 5, 6, 7}));
    EXPECT_EQ(AppCommandCodes(help), (std::vector<int>{3, 7}));
    EXPECT_TRUE(Input().empty());
}

TEST_F(BrowserCommandsTest, KeyRefreshPressesF5IntoTheFocusedWindow) {
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());
    EXPECT_TRUE(KeyRefresh());
    EXPECT_EQ(KeyStrokesOf(Input()), PressAndRelease(VK_F5));
}
