#include <gtest/gtest.h>
#include <algorithm>
#include <string>
#include "support/InputTest.h"
#include "support/KeyStateCheck.h"
#include "tovutil/SendKeys.h"

namespace {

constexpr unsigned kShift = 0x10, kCtrl = 0x11, kAlt = 0x12;

std::string Narrow(const std::wstring& text) { return std::string(text.begin(), text.end()); }

bool IsDown(int key) {
    const std::vector<int> down = KeysDown();
    return std::find(down.begin(), down.end(), key) != down.end();
}

class SendKeysTest : public InputTest {};

}  // namespace

TEST_F(SendKeysTest, EachDriverKeyStringSendsExactlyItsKeyEvents) {
    struct Case {
        std::wstring keys;
        std::vector<KeyStroke> sent;
        std::vector<KeyStroke> released;  // by SendKeys_ReleaseAll afterwards
    };
    const Case cases[] = {
        {L"%{Left}", {Down(kAlt), Down(0x25), Up(0x25), Up(kAlt)}, {}},
        {L"%{Right}", {Down(kAlt), Down(0x27), Up(0x27), Up(kAlt)}, {}},
        {L"%{HOME}", {Down(kAlt), Down(0x24), Up(0x24), Up(kAlt)}, {}},
        {L"{F5}", {Down(0x74), Up(0x74)}, {}},
        {L"^l^v~",
         {Down(kCtrl), Down('L'), Up('L'), Up(kCtrl), Down(kCtrl), Down('V'), Up('V'), Up(kCtrl), Down(0x0D),
          Up(0x0D)},
         {}},
        {L"^p", {Down(kCtrl), Down('P'), Up('P'), Up(kCtrl)}, {}},
        {L"{Tab}", {Down(0x09), Up(0x09)}, {}},
        {L"{Esc}", {Down(0x1B), Up(0x1B)}, {}},
        {L"[{Up}]", {Down(0x26)}, {Up(0x26)}},
        {L"[{Down}]", {Down(0x28)}, {Up(0x28)}},
        // A capital letter comes from the layout with its Shift.
        {L"Ab", {Down(kShift), Down('A'), Up('A'), Up(kShift), Down('B'), Up('B')}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(Narrow(c.keys));
        EXPECT_EQ(SendKeys(c.keys.c_str()), SKERR_NONE);
        EXPECT_EQ(SettledKeys(), c.sent);
        SendKeys_ReleaseAll();
        EXPECT_EQ(SettledKeys(), c.released);
        EXPECT_EQ(KeysDown(), std::vector<int>());
    }
}

TEST_F(SendKeysTest, HeldKeysStayDownAcrossCallsUntilReleaseAllLetsThemGoInReverseOnce) {
    ASSERT_EQ(SendKeys(L"[^{Up}]"), SKERR_NONE);
    ASSERT_EQ(SendKeys(L"[{Down}]"), SKERR_NONE);
    // Sending a held key again is its auto-repeat: down once more, still one key to release.
    ASSERT_EQ(SendKeys(L"[{Down}]"), SKERR_NONE);
    EXPECT_EQ(SettledKeys(), (std::vector<KeyStroke>{Down(kCtrl), Down(0x26), Down(0x28), Down(0x28)}));
    EXPECT_TRUE(IsDown(kCtrl));
    EXPECT_TRUE(IsDown(0x26));
    EXPECT_TRUE(IsDown(0x28));

    SendKeys_ReleaseAll();
    EXPECT_EQ(SettledKeys(), (std::vector<KeyStroke>{Up(0x28), Up(0x26), Up(kCtrl)}));
    EXPECT_EQ(KeysDown(), std::vector<int>());

    SendKeys_ReleaseAll();
    EXPECT_EQ(SettledKeys(), std::vector<KeyStroke>());

    // A held key typed again normally is released by that typing and not released twice.
    ASSERT_EQ(SendKeys(L"[{Up}]{Up}"), SKERR_NONE);
    SendKeys_ReleaseAll();
    EXPECT_EQ(SettledKeys(), (std::vector<KeyStroke>{Down(0x26), Down(0x26), Up(0x26)}));
}

TEST_F(SendKeysTest, MalformedStringsSendNothingAtAll) {
    const std::pair<std::wstring, SKERR> cases[] = {
        {L"^l^v~{Lefty}", SKERR_UNKNOWN_KEY},
        {L"[{Up}", SKERR_UNBALANCED},
        {L"%{Left", SKERR_UNBALANCED},
        {L"+(ab", SKERR_UNBALANCED},
        {L"{F5}{Left 0}", SKERR_BAD_COUNT},
        {L"{Tab}^", SKERR_MISPLACED},
    };
    for (const auto& [keys, error] : cases) {
        SCOPED_TRACE(Narrow(keys));
        EXPECT_EQ(SendKeys(keys.c_str()), error);
        EXPECT_EQ(SettledKeys(), std::vector<KeyStroke>());
    }
    EXPECT_EQ(SendKeys(nullptr), SKERR_NULL);
    SendKeys_ReleaseAll();
    EXPECT_EQ(SettledKeys(), std::vector<KeyStroke>());
}
