#include <gtest/gtest.h>
#include <windows.h>
#include <thread>
#include "core/ScopedHandle.h"
#include "input/ButtonNameTable.h"
#include "input/CLegacyKeySender.h"
#include "support/MappingFile.h"
#include "support/InputTest.h"
#include "support/TestPaths.h"
#include "support/TestWindow.h"
#include "support/WaitFor.h"

namespace {

constexpr DWORD kWindowReadyMs = 5000;
constexpr unsigned short kWww = 0, kHome = 3, kBack = 5, kForward = 6, kReload = 8, kSearch = 9, kUp = 14;
constexpr unsigned short kBeyondTable = 45;

const wchar_t kMappedClass[] = L"WbsMappedFocus";
const wchar_t kUnmappedClass[] = L"WbsUnmappedFocus";

const std::string kMapping =
    "[Button Mapping - WbsMappedFocus]\r\n"
    "BUTTON_BACK=%{Left}\r\n"
    "BUTTON_UP=[{Up}]\r\n"
    "[Button Mapping - WbsOtherThreadFocus]\r\n"
    "BUTTON_WWW={Tab}\r\n"
    "[Button Mapping - Default]\r\n"
    "BUTTON_FORWARD=%{Right}\r\n"
    "BUTTON_RELOAD={F5}\r\n"
    "BUTTON_WWW={Esc}\r\n";

const std::vector<KeyStroke> kAltLeft = {Down(18), Down(0x25), Up(0x25), Up(18)};
const std::vector<KeyStroke> kAltRight = {Down(18), Down(0x27), Up(0x27), Up(18)};
const std::vector<KeyStroke> kF5 = {Down(0x74), Up(0x74)};
const std::vector<KeyStroke> kNone = {};

class LegacyKeySenderTest : public InputTest {
protected:
    void SetUp() override {
        InputTest::SetUp();
        ButtonNameTable::Reset();
    }
    void TearDown() override {
        ButtonNameTable::Reset();
        InputTest::TearDown();
    }
};

// A window made and pumped on a thread of its own, so that its focus lives in another input queue.
class OtherThreadWindow {
public:
    explicit OtherThreadWindow(const std::wstring& className) {
        HANDLE ready = ready_.get();
        thread_ = std::thread([this, className, ready] {
            wbstest::TestWindow window(className);
            threadId_ = ::GetCurrentThreadId();
            handle_ = window.Handle();
            ::SetEvent(ready);
            MSG message;
            while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
        });
        ::WaitForSingleObject(ready, kWindowReadyMs);
    }
    ~OtherThreadWindow() {
        if (threadId_ != 0) ::PostThreadMessageW(threadId_, WM_QUIT, 0, 0);
        thread_.join();
    }
    HWND Handle() const { return handle_; }

private:
    ScopedHandle ready_{::CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    std::thread thread_;
    DWORD threadId_ = 0;
    HWND handle_ = nullptr;
};

}  // namespace

TEST_F(LegacyKeySenderTest, PressesRepeatsAndReleasesFollowTheMappingOfTheFocusedClass) {
    wbstest::MappingFile mapping(wbstest::JoinPath(wbstest::ExecutableFolder(), L"WbsLegacySender.QXM"), kMapping);
    ASSERT_TRUE(mapping.Written());
    wbstest::TestWindow mapped(kMappedClass);
    wbstest::TestWindow unmapped(kUnmappedClass);
    CLegacyKeySender sender;
    sender.SetMappingFileBase(L"WbsLegacySender");

    struct Step {
        const wchar_t* focus;
        unsigned short button;
        int pressed;
        int repeated;
        int result;
        std::vector<KeyStroke> keys;
    };
    const Step steps[] = {
        {kMappedClass, kBack, 1, 0, 1, kAltLeft},
        {kMappedClass, kBack, 1, 1, 1, kAltLeft},
        {kMappedClass, kBeyondTable, 1, 0, 1, kAltLeft},  // carries the last press's keys over
        {kMappedClass, kForward, 1, 0, 1, kAltRight},     // from the default section
        {kMappedClass, kSearch, 1, 0, 1, kNone},          // mapped nowhere
        {kMappedClass, kSearch, 1, 1, 1, kNone},
        {kMappedClass, kBeyondTable, 1, 0, 1, kNone},
        {kMappedClass, kUp, 1, 0, 1, {Down(0x26)}},
        {kMappedClass, kUp, 1, 1, 1, {Down(0x26)}},       // the held key's auto-repeat
        {kMappedClass, 999, 0, 1, 0, {Up(0x26)}},         // any release only lets held keys go
        {kMappedClass, kUp, 0, 0, 0, kNone},
        {kUnmappedClass, kBack, 1, 0, 1, kNone},
        {kUnmappedClass, kReload, 1, 0, 1, kF5},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(std::to_string(step.button) + " pressed " + std::to_string(step.pressed) + " repeated " +
                     std::to_string(step.repeated));
        wbstest::TestWindow& window = step.focus == kMappedClass ? mapped : unmapped;
        ASSERT_TRUE(window.MakeForeground());
        EXPECT_EQ(sender.SendButton(step.button, step.pressed, step.repeated), step.result);
        EXPECT_EQ(SettledKeys(), step.keys);
    }
}

TEST_F(LegacyKeySenderTest, ARepeatSendsTheLastPressAgainWithoutReadingTheFile) {
    auto mapping = std::make_unique<wbstest::MappingFile>(
        wbstest::JoinPath(wbstest::ExecutableFolder(), L"WbsLegacySender.QXM"), kMapping);
    wbstest::TestWindow window(kMappedClass);
    CLegacyKeySender sender;
    sender.SetMappingFileBase(L"WbsLegacySender");

    EXPECT_EQ(sender.SendButton(kReload, 1, 0), 1);
    EXPECT_EQ(SettledKeys(), kF5);
    ASSERT_TRUE(mapping->Remove());
    EXPECT_EQ(sender.SendButton(kReload, 1, 1), 1);
    EXPECT_EQ(SettledKeys(), kF5);
    EXPECT_EQ(sender.SendButton(kReload, 1, 0), 1);
    EXPECT_EQ(SettledKeys(), kNone);
}

TEST_F(LegacyKeySenderTest, WithoutABaseTheForegroundProgramsFileIsLookedForInTheWindowsFolder) {
    wchar_t windowsFolder[MAX_PATH] = {};
    ASSERT_NE(::GetWindowsDirectoryW(windowsFolder, MAX_PATH), 0u);
    wchar_t program[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring programName = std::wstring(program).substr(std::wstring(program).find_last_of(L'\\') + 1);
    wbstest::MappingFile mapping(wbstest::JoinPath(windowsFolder, programName + L".QXM"),
                                 "[Button Mapping - Default]\r\nBUTTON_HOME=%{HOME}\r\n");
    ASSERT_TRUE(mapping.Written());
    wbstest::TestWindow window(kUnmappedClass);

    CLegacyKeySender sender;
    EXPECT_EQ(sender.SendButton(kHome, 1, 0), 1);
    EXPECT_EQ(SettledKeys(), (std::vector<KeyStroke>{Down(18), Down(0x24), Up(0x24), Up(18)}));
}

TEST_F(LegacyKeySenderTest, TheFocusOfAnotherThreadsWindowIsReadAndTheInputDetachedAgain) {
    wbstest::MappingFile mapping(wbstest::JoinPath(wbstest::ExecutableFolder(), L"WbsLegacySender.QXM"), kMapping);
    OtherThreadWindow other(L"WbsOtherThreadFocus");
    ASSERT_NE(other.Handle(), nullptr);
    ASSERT_TRUE(wbstest::WaitFor([&] { return ::GetForegroundWindow() == other.Handle(); }, kSettleMs));
    CLegacyKeySender sender;
    sender.SetMappingFileBase(L"WbsLegacySender");

    EXPECT_EQ(sender.SendButton(kWww, 1, 0), 1);
    // That class's {Tab}, not the default section's {Esc}.
    EXPECT_EQ(SettledKeys(), (std::vector<KeyStroke>{Down(0x09), Up(0x09)}));
    // Still attached, this thread would share the other thread's focus.
    EXPECT_EQ(::GetFocus(), nullptr);
}
