#include <gtest/gtest.h>
#include <string>
#include "tovutil/KeyNotation.h"

namespace {

// A US-like layout: letters and digits on their own keys, capitals and the shifted punctuation
// with Shift, the euro sign on AltGr (Ctrl+Alt+E), and no key at all for the smiley.
std::optional<LayoutKey> TestLayout(wchar_t ch) {
    auto plain = [](unsigned key) { return LayoutKey{static_cast<std::uint8_t>(key), false, false, false}; };
    auto shifted = [](unsigned key) { return LayoutKey{static_cast<std::uint8_t>(key), true, false, false}; };
    if (ch >= L'a' && ch <= L'z') return plain(ch - L'a' + 'A');
    if (ch >= L'A' && ch <= L'Z') return shifted(ch);
    if (ch >= L'0' && ch <= L'9') return plain(ch);
    switch (ch) {
    case L'[': return plain(0xDB);
    case L']': return plain(0xDD);
    case L'{': return shifted(0xDB);
    case L'}': return shifted(0xDD);
    case L'+': return shifted(0xBB);
    case L'(': return shifted('9');
    case L'~': return shifted(0xC0);
    case L'\x20AC': return LayoutKey{'E', false, true, true};
    default: return std::nullopt;
    }
}

KeyEvent Down(unsigned key) { return KeyEvent{static_cast<std::uint8_t>(key), true, false}; }
KeyEvent Up(unsigned key) { return KeyEvent{static_cast<std::uint8_t>(key), false, false}; }
KeyEvent DownX(unsigned key) { return KeyEvent{static_cast<std::uint8_t>(key), true, true}; }
KeyEvent UpX(unsigned key) { return KeyEvent{static_cast<std::uint8_t>(key), false, true}; }
std::vector<KeyEvent> Tap(unsigned key) { return {Down(key), Up(key)}; }

std::vector<KeyEvent> Join(std::initializer_list<std::vector<KeyEvent>> parts) {
    std::vector<KeyEvent> all;
    for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::vector<KeyEvent> Repeat(const std::vector<KeyEvent>& part, int times) {
    std::vector<KeyEvent> all;
    for (int i = 0; i < times; ++i) all.insert(all.end(), part.begin(), part.end());
    return all;
}

constexpr unsigned kShift = 0x10, kCtrl = 0x11, kAlt = 0x12;

struct ValidCase {
    std::wstring keys;
    std::vector<KeyEvent> events;
};

struct ErrorCase {
    std::wstring keys;
    SKERR error;
    std::size_t offset;
};

}  // namespace

void PrintTo(const KeyEvent& event, std::ostream* out) {
    *out << static_cast<unsigned>(event.virtualKey) << (event.down ? "/down" : "/up")
         << (event.extended ? "/ext" : "");
}

TEST(KeyNotation, WellFormedStringsGiveTheirKeyEventsInOrder) {
    const ValidCase cases[] = {
        // Modifiers wrap the key; the navigation keys carry the extended flag.
        {L"%{Left}", {Down(kAlt), DownX(0x25), UpX(0x25), Up(kAlt)}},
        {L"^l~", Join({{Down(kCtrl)}, Tap('L'), {Up(kCtrl)}, Tap(0x0D)})},
        // Names without regard to case, aliases, the far function key.
        {L"{home}{hOmE}{ENTER}", Join({{DownX(0x24), UpX(0x24), DownX(0x24), UpX(0x24)}, Tap(0x0D)})},
        {L"{BS}{bksp}{Backspace}{Del}{Ins}", Join({Tap(0x08), Tap(0x08), Tap(0x08),
                                                   {DownX(0x2E), UpX(0x2E), DownX(0x2D), UpX(0x2D)}})},
        {L"{f24}{PgDn}{CapsLock}", Join({Tap(0x87), {DownX(0x22), UpX(0x22)}, Tap(0x14)})},
        // Modifiers nest in writing order and come off in reverse; one already down is not
        // pressed again; a group holds them over every key inside.
        {L"^+a", Join({{Down(kCtrl), Down(kShift)}, Tap('A'), {Up(kShift), Up(kCtrl)}})},
        {L"+(ab)", Join({{Down(kShift)}, Tap('A'), Tap('B'), {Up(kShift)}})},
        {L"+(a+b)", Join({{Down(kShift)}, Tap('A'), Tap('B'), {Up(kShift)}})},
        {L"^^a", Join({{Down(kCtrl)}, Tap('A'), {Up(kCtrl)}})},
        {L"()x", Tap('X')},
        // Characters as the layout types them, its Shift and AltGr included, not doubled.
        {L"Ab", Join({{Down(kShift)}, Tap('A'), {Up(kShift)}, Tap('B')})},
        {L"+A", Join({{Down(kShift)}, Tap('A'), {Up(kShift)}})},
        {L"\x20AC", Join({{Down(kCtrl), Down(kAlt)}, Tap('E'), {Up(kAlt), Up(kCtrl)}})},
        // Repeat counts, on named keys and characters, inside modifiers.
        {L"{Left 3}", Repeat({DownX(0x25), UpX(0x25)}, 3)},
        {L"^{a 2}", Join({{Down(kCtrl)}, Tap('A'), Tap('A'), {Up(kCtrl)}})},
        {L"{} 2}", Join({{Down(kShift)}, Tap(0xDD), Tap(0xDD), {Up(kShift)}})},
        // Escaped special characters type themselves.
        {L"{+}{~}{(}", Join({{Down(kShift)}, Tap(0xBB), {Up(kShift), Down(kShift)}, Tap(0xC0),
                             {Up(kShift), Down(kShift)}, Tap('9'), {Up(kShift)}})},
        {L"{{}{}}{[}{]}", Join({{Down(kShift)}, Tap(0xDB), {Up(kShift), Down(kShift)}, Tap(0xDD), {Up(kShift)},
                                Tap(0xDB), Tap(0xDD)})},
        // Holds: nothing inside goes up, a repeat auto-repeats, a held modifier is not pressed
        // again afterwards, and a key typed after its hold goes down and up as usual.
        {L"[{Up 3}]", Repeat({DownX(0x26)}, 3)},
        {L"[^a]^b", {Down(kCtrl), Down('A'), Down('B'), Up('B')}},
        {L"[+(ab)]", {Down(kShift), Down('A'), Down('B')}},
        {L"[{Up}]{Up}", {DownX(0x26), DownX(0x26), UpX(0x26)}},
        {L"", {}},
    };
    for (const ValidCase& c : cases) {
        SCOPED_TRACE(std::string(c.keys.begin(), c.keys.end()));
        const KeyNotationResult result = ParseKeyNotation(c.keys, TestLayout);
        EXPECT_EQ(result.error, SKERR_NONE);
        EXPECT_EQ(result.events, c.events);
    }
}

TEST(KeyNotation, MalformedStringsGiveTheirErrorWhereItIsAndNoEventsAtAll) {
    const ErrorCase cases[] = {
        {L"ab{Lefty}", SKERR_UNKNOWN_KEY, 2},
        {L"{F25}", SKERR_UNKNOWN_KEY, 0},
        {L"{F0}", SKERR_UNKNOWN_KEY, 0},
        {L"a{Left", SKERR_UNBALANCED, 1},
        {L"{", SKERR_UNBALANCED, 0},
        {L"{}", SKERR_UNBALANCED, 0},
        {L"x}", SKERR_UNBALANCED, 1},
        {L"(ab", SKERR_UNBALANCED, 0},
        {L"ab)", SKERR_UNBALANCED, 2},
        {L"(a]", SKERR_UNBALANCED, 2},
        {L"[{Up}", SKERR_UNBALANCED, 0},
        {L"{Up}]", SKERR_UNBALANCED, 4},
        {L"{Left x}", SKERR_BAD_COUNT, 6},
        {L"{Left 0}", SKERR_BAD_COUNT, 6},
        {L"{Left 10000}", SKERR_BAD_COUNT, 6},
        {L"{Left }", SKERR_BAD_COUNT, 6},
        {L"{Left -1}", SKERR_BAD_COUNT, 6},
        {L"{Left 3 4}", SKERR_BAD_COUNT, 6},
        {L"^", SKERR_MISPLACED, 0},
        {L"a%+", SKERR_MISPLACED, 1},
        {L"(^)", SKERR_MISPLACED, 2},
        {L"^[a]", SKERR_MISPLACED, 1},
        {L"[[a]]", SKERR_MISPLACED, 1},
        {L"([a])", SKERR_MISPLACED, 1},
        {L"ok\x263A", SKERR_UNTYPABLE, 2},
        {L"{\x263A 2}", SKERR_UNTYPABLE, 1},
    };
    for (const ErrorCase& c : cases) {
        SCOPED_TRACE(std::string(c.keys.begin(), c.keys.end()));
        const KeyNotationResult result = ParseKeyNotation(c.keys, TestLayout);
        EXPECT_EQ(result.error, c.error);
        EXPECT_EQ(result.errorOffset, c.offset);
        EXPECT_TRUE(result.events.empty());
    }
}

TEST(KeyNotation, RepeatCountsStopAtTheirLimit) {
    EXPECT_EQ(ParseKeyNotation(L"{a 9999}", TestLayout).events.size(), 2u * kMaxKeyRepeat);
    EXPECT_EQ(ParseKeyNotation(L"{a 99999999999999999999}", TestLayout).error, SKERR_BAD_COUNT);
}

TEST(KeyNotation, LayoutScansNameTheKeyAndTheModifiersTheLayoutNeeds) {
    const auto plain = LayoutKeyFromScan(0x0041);
    ASSERT_TRUE(plain.has_value());
    EXPECT_EQ(plain->virtualKey, 0x41);
    EXPECT_FALSE(plain->shift || plain->ctrl || plain->alt);
    const auto shifted = LayoutKeyFromScan(0x0131);
    ASSERT_TRUE(shifted.has_value());
    EXPECT_EQ(shifted->virtualKey, 0x31);
    EXPECT_TRUE(shifted->shift && !shifted->ctrl && !shifted->alt);
    const auto altGr = LayoutKeyFromScan(0x0645);
    ASSERT_TRUE(altGr.has_value());
    EXPECT_TRUE(!altGr->shift && altGr->ctrl && altGr->alt);
    EXPECT_FALSE(LayoutKeyFromScan(-1).has_value());
}
