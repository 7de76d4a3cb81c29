#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>
#include "tovutil/SendKeys.h"

// The key-string notation of SendKeys, turned into the key presses and releases it stands for.
// Pure: the keyboard layout comes in through CharacterKeyMap, nothing is sent.
//
//   ^ % +      Ctrl, Alt, Shift held around the next key or parenthesised group
//   ~          Enter
//   {Name}     a named key, the name matched without regard to case ({Left}, {HOME}, {F5})
//   {x}        the character x itself; so {+} {^} {%} {~} {(} {)} {{} {}} {[} {]} type those
//   {Name n}   the key n times (1 to 9999)
//   ( ... )    a group the modifiers before it hold over
//   [ ... ]    the keys inside go down and stay down (no releases) until SendKeys_ReleaseAll
//   other      a plain character, typed as the layout types it

// One key event: a virtual-key code pressed (down) or released. Extended marks the keys of the
// navigation block and the others Windows reports with the extended-key flag.
struct KeyEvent {
    std::uint8_t virtualKey = 0;
    bool down = false;
    bool extended = false;
    bool operator==(const KeyEvent& other) const noexcept {
        return virtualKey == other.virtualKey && down == other.down && extended == other.extended;
    }
    bool operator!=(const KeyEvent& other) const noexcept { return !(*this == other); }
};

// The key that types a character on a keyboard layout, and the modifiers the layout needs with it.
struct LayoutKey {
    std::uint8_t virtualKey = 0;
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
};

// Character -> key on the layout in use; no value when the layout cannot type the character.
using CharacterKeyMap = std::function<std::optional<LayoutKey>(wchar_t)>;

// The key a VkKeyScanW answer names: low byte the key, high byte 1 Shift, 2 Ctrl, 4 Alt; -1 in
// both bytes (no value) when the layout has no key for the character.
std::optional<LayoutKey> LayoutKeyFromScan(short scan) noexcept;

struct KeyNotationResult {
    SKERR error = SKERR_NONE;
    std::size_t errorOffset = 0;  // where in the string the error was found
    std::vector<KeyEvent> events; // empty whenever error is set
};

// Virtual-key codes the notation produces by name (the Windows numbers).
namespace vk {
constexpr std::uint8_t kBreak = 0x03;
constexpr std::uint8_t kBackspace = 0x08;
constexpr std::uint8_t kTab = 0x09;
constexpr std::uint8_t kEnter = 0x0D;
constexpr std::uint8_t kShift = 0x10;
constexpr std::uint8_t kControl = 0x11;
constexpr std::uint8_t kAlt = 0x12;
constexpr std::uint8_t kCapsLock = 0x14;
constexpr std::uint8_t kEscape = 0x1B;
constexpr std::uint8_t kPageUp = 0x21;
constexpr std::uint8_t kPageDown = 0x22;
constexpr std::uint8_t kEnd = 0x23;
constexpr std::uint8_t kHome = 0x24;
constexpr std::uint8_t kLeft = 0x25;
constexpr std::uint8_t kUp = 0x26;
constexpr std::uint8_t kRight = 0x27;
constexpr std::uint8_t kDown = 0x28;
constexpr std::uint8_t kPrintScreen = 0x2C;
constexpr std::uint8_t kInsert = 0x2D;
constexpr std::uint8_t kDelete = 0x2E;
constexpr std::uint8_t kF1 = 0x70;
constexpr std::uint8_t kF24 = 0x87;
constexpr std::uint8_t kNumLock = 0x90;
constexpr std::uint8_t kScrollLock = 0x91;
}  // namespace vk

// The most times one braced key may be repeated.
constexpr unsigned kMaxKeyRepeat = 9999;

// Parses the whole string. On any error the result carries the error and no events, so a caller
// that sends only error-free results never sends part of a malformed string.
KeyNotationResult ParseKeyNotation(std::wstring_view keys, const CharacterKeyMap& characterKey);
