// Starting browser programs: the generic Launch with its command line, the program starter's
// waits, and GotoURL through the shell and through the registered HTML command.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include "WebBrowserSupport.h"
#include "browsers/StartProgram.h"
#include "browsers/generic/cGenericWebBrowser.h"
#include "support/ProcessState.h"
#include "support/RegistryGuard.h"
#include "support/StubBrowser.h"
#include "support/TestWindow.h"
#include "support/WaitFor.h"

using namespace wbstest;

namespace {
constexpr DWORD kBound = 10000;

// A browser whose program is given by the test: Launch has nothing else to go on.
class ProgramBrowser : public cGenericWebBrowser {
public:
    ProgramBrowser(std::wstring path, std::wstring arguments)
        : path_(std::move(path)), arguments_(std::move(arguments)) {}
    bool GetProgramPath(CStdStr& programPath, CStdStr& arguments) override {
        programPath = path_;
        arguments = arguments_;
        return true;
    }

private:
    std::wstring path_;
    std::wstring arguments_;
};

std::wstring LoggedCommandLine(const StubLog& log) {
    const auto event = log.WaitForEvent(L"commandline", kBound);
    return event ? event->Field(L"text") : L"(not started)";
}

class LaunchTest : public ::testing::Test {
protected:
    void SetUp() override { ResetProcessWideState(); }
    void TearDown() override { ResetProcessWideState(); }
};
}  // namespace

TEST_F(LaunchTest, QuotesThePathWithoutItsOwnQuotesAndAppendsTheAddressToTheArguments) {
    const struct {
        const wchar_t* arguments;
        const wchar_t* url;
        const wchar_t* expectedTail;  // after the quoted path
    } cases[] = {
        {L"", L"", L""},
        {L"", L"http://example.invalid/a b", L" \"http://example.invalid/a b\""},
        {L"-new ", L"page.html", L" \"-new page.html\""},
        // The driver's arguments keep their own quotes.
        {L"-x \"y\" ", L"", L" \"-x \"y\" \""},
    };
    for (const auto& c : cases) {
        StubBrowser stub;
        const std::wstring path = stub.Install(L"launched.exe");
        ProgramBrowser browser(L"\"" + path + L"\"", c.arguments);
        ASSERT_TRUE(browser.Launch(CStdStr(c.url)));
        EXPECT_EQ(LoggedCommandLine(StubLog::ForProgram(path)), L"\"" + path + L"\"" + c.expectedTail);
    }
}

TEST_F(LaunchTest, StoresTheStartedBrowsersWindowAndExpandsEnvironmentVariables) {
    StubBrowser stub;
    const std::wstring path = stub.Install(L"launched.exe");
    ASSERT_TRUE(::SetEnvironmentVariableW(L"WBS_LAUNCH_FOLDER", stub.Folder().c_str()));
    ProgramBrowser browser(L"%WBS_LAUNCH_FOLDER%\\launched.exe", L"");
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());

    ASSERT_TRUE(browser.Launch(CStdStr()));
    const StubLog log = StubLog::ForProgram(path);
    EXPECT_EQ(LoggedCommandLine(log), L"\"" + path + L"\"");
    ASSERT_TRUE(log.WaitForLine(L"ready", kBound));
    EXPECT_EQ(browser.Window(), log.MainWindow());
    ::SetEnvironmentVariableW(L"WBS_LAUNCH_FOLDER", nullptr);
}

TEST_F(LaunchTest, AppCommandWithoutAWindowStartsTheBrowserAndSendsToNoWindow) {
    StubBrowser stub;
    const std::wstring path = stub.Install(L"launched.exe", {L"--appcommand", L"unhandled"});
    ProgramBrowser browser(path, L"");
    EXPECT_TRUE(browser.GoHome(true));
    const StubLog log = StubLog::ForProgram(path);
    ASSERT_TRUE(log.WaitForLine(L"ready", kBound));
    EXPECT_EQ(browser.Window(), log.MainWindow());
    EXPECT_TRUE(log.Events(L"appcommand").empty());

    // A browser with no program to start fails its own Launch, yet the command is delivered.
    cGenericWebBrowser generic;
    EXPECT_FALSE(generic.Launch(CStdStr()));
    EXPECT_TRUE(generic.Refresh(true));
}

TEST_F(LaunchTest, StarterWaitsSixDoublingSleepsForAProgramThatNeverComesForward) {
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());
    StubBrowser stub;
    const std::wstring path = stub.Install(L"windowless.exe", {L"--no-window"});
    std::wstring commandLine = L"\"" + path + L"\"";
    HWND stored = nullptr;
    const ULONGLONG start = ::GetTickCount64();
    ASSERT_TRUE(StartProgram(commandLine.c_str(), &stored));
    const ULONGLONG elapsed = ::GetTickCount64() - start;
    EXPECT_GE(elapsed, 6300u);  // 100 + 200 + 400 + 800 + 1600 + 3200 ms
    EXPECT_LT(elapsed, 6300u + 6 * 20u + 2000u);
    EXPECT_EQ(stored, front.Handle());
}

TEST_F(LaunchTest, StarterStopsWaitingWhenTheProgramEndsAndFailsForAMissingProgram) {
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());
    StubBrowser stub;
    const std::wstring path = stub.Install(L"shortlived.exe", {L"--no-window", L"--exit-after", L"0"});
    std::wstring commandLine = L"\"" + path + L"\"";
    HWND stored = nullptr;
    const ULONGLONG start = ::GetTickCount64();
    ASSERT_TRUE(StartProgram(commandLine.c_str(), &stored));
    EXPECT_LT(::GetTickCount64() - start, 3000u);
    EXPECT_EQ(stored, front.Handle());

    std::wstring missing = L"\"" + stub.Folder() + L"\\missing.exe\"";
    stored = nullptr;
    EXPECT_FALSE(StartProgram(missing.c_str(), &stored));
    EXPECT_EQ(stored, nullptr);
}

TEST_F(LaunchTest, GotoUrlOpensThroughTheShellOrTheRegisteredHtmlCommand) {
    RegistryGuard htmlType(HKEY_CLASSES_ROOT, L".htm", L"");
    RegistryGuard htmlCommand(HKEY_CLASSES_ROOT, L"WbsTest.Html\\shell\\open\\command", L"");
    HKEY existing = nullptr;
    if (::RegOpenKeyExW(HKEY_CLASSES_ROOT, L".htm", 0, KEY_SET_VALUE, &existing) == ERROR_SUCCESS) {
        ::RegDeleteValueW(existing, nullptr);
        ::RegCloseKey(existing);
    }

    // What the shell can run is run at once.
    StubBrowser opened;
    const std::wstring openedPath = opened.Install(L"opened.exe");
    EXPECT_TRUE(GotoURL(CStdStr(openedPath), SW_SHOWNORMAL));
    EXPECT_NE(LoggedCommandLine(StubLog::ForProgram(openedPath)).find(L"opened.exe"), std::wstring::npos);

    // An address the shell cannot open, and no HTML command registered.
    const CStdStr address(L"wbsnowhere:page");
    EXPECT_FALSE(GotoURL(address, SW_SHOWNORMAL));

    // The registered command is cut before "\"%1\"" (the blank before it stays) and run with the
    // address as its parameter; a command without the placeholder is run whole.
    StubBrowser browser;
    const std::wstring browserPath = browser.Install(L"htmlbrowser.exe");
    auto setDefault = [](const wchar_t* subKey, const std::wstring& value) {
        HKEY key = nullptr;
        ASSERT_EQ(::RegCreateKeyExW(HKEY_CLASSES_ROOT, subKey, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        ::RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                         static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
        ::RegCloseKey(key);
    };
    setDefault(L".htm", L"WbsTest.Html");
    for (const std::wstring& command : {browserPath + L" \"%1\"", browserPath}) {
        browser.CloseAll();
        ::DeleteFileW(StubLog::ForProgram(browserPath).Path().c_str());
        setDefault(L"WbsTest.Html\\shell\\open\\command", command);
        EXPECT_TRUE(GotoURL(address, SW_SHOWNORMAL)) << command;
        const std::wstring started = LoggedCommandLine(StubLog::ForProgram(browserPath));
        EXPECT_NE(started.find(L"wbsnowhere:page"), std::wstring::npos) << started;
        EXPECT_EQ(started.find(L"%1"), std::wstring::npos) << started;
    }
}
