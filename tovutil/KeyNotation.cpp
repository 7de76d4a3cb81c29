#include "tovutil/KeyNotation.h"
#include <array>
#include <bitset>

namespace {

struct NamedKey {
    std::wstring_view name;  // upper case
    std::uint8_t virtualKey;
    bool extended;
};

constexpr NamedKey kNamedKeys[] = {
    {L"ENTER", vk::kEnter, false},         {L"ESC", vk::kEscape, false},
    {L"TAB", vk::kTab, false},             {L"BACKSPACE", vk::kBackspace, false},
    {L"BS", vk::kBackspace, false},        {L"BKSP", vk::kBackspace, false},
    {L"DELETE", vk::kDelete, true},        {L"DEL", vk::kDelete, true},
    {L"INSERT", vk::kInsert, true},        {L"INS", vk::kInsert, true},
    {L"HOME", vk::kHome, true},            {L"END", vk::kEnd, true},
    {L"PGUP", vk::kPageUp, true},          {L"PGDN", vk::kPageDown, true},
    {L"UP", vk::kUp, true},                {L"DOWN", vk::kDown, true},
    {L"LEFT", vk::kLeft, true},            {L"RIGHT", vk::kRight, true},
    {L"BREAK", vk::kBreak, true},          {L"CAPSLOCK", vk::kCapsLock, false},
    {L"NUMLOCK", vk::kNumLock, true},      {L"SCROLLLOCK", vk::kScrollLock, false},
    {L"PRTSC", vk::kPrintScreen, true},
};

// Key names are ASCII, so folding ASCII letters is enough; any other character never matches.
wchar_t UpperAscii(wchar_t ch) noexcept {
    return (ch >= L'a' && ch <= L'z') ? static_cast<wchar_t>(ch - L'a' + L'A') : ch;
}

bool EqualsUpperName(std::wstring_view text, std::wstring_view upperName) noexcept {
    if (text.size() != upperName.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (UpperAscii(text[i]) != upperName[i]) return false;
    }
    return true;
}

// "F1" to "F24", any case.
std::optional<std::uint8_t> FunctionKey(std::wstring_view name) noexcept {
    if (name.size() < 2 || name.size() > 3 || UpperAscii(name[0]) != L'F') return std::nullopt;
    unsigned number = 0;
    for (std::size_t i = 1; i < name.size(); ++i) {
        if (name[i] < L'0' || name[i] > L'9') return std::nullopt;
        number = number * 10 + static_cast<unsigned>(name[i] - L'0');
    }
    if (name[1] == L'0' || number < 1 || number > 24) return std::nullopt;
    return static_cast<std::uint8_t>(vk::kF1 + number - 1);
}

std::optional<NamedKey> FindNamedKey(std::wstring_view name) noexcept {
    for (const NamedKey& key : kNamedKeys) {
        if (EqualsUpperName(name, key.name)) return key;
    }
    if (auto function = FunctionKey(name)) return NamedKey{name, *function, false};
    return std::nullopt;
}

bool IsModifier(wchar_t ch) noexcept { return ch == L'^' || ch == L'%' || ch == L'+'; }

std::uint8_t ModifierKey(wchar_t ch) noexcept {
    return ch == L'^' ? vk::kControl : ch == L'%' ? vk::kAlt : vk::kShift;
}

class Parser {
public:
    Parser(std::wstring_view text, const CharacterKeyMap& characterKey) : text_(text), characterKey_(characterKey) {}

    KeyNotationResult Run() {
        KeyNotationResult result;
        result.error = ParseString();
        if (result.error != SKERR_NONE) {
            result.errorOffset = errorOffset_;
        } else {
            result.events = std::move(events_);
        }
        return result;
    }

private:
    SKERR Fail(SKERR error, std::size_t offset) noexcept {
        errorOffset_ = offset;
        return error;
    }

    bool AtEnd() const noexcept { return pos_ >= text_.size(); }

    SKERR ParseString() {
        std::size_t holdStart = 0;
        while (!AtEnd()) {
            const wchar_t ch = text_[pos_];
            if (ch == L'[') {
                if (holding_) return Fail(SKERR_MISPLACED, pos_);
                holding_ = true;
                holdStart = pos_++;
            } else if (ch == L']') {
                if (!holding_) return Fail(SKERR_UNBALANCED, pos_);
                holding_ = false;
                ++pos_;
            } else if (SKERR error = ParseUnit(); error != SKERR_NONE) {
                return error;
            }
        }
        return holding_ ? Fail(SKERR_UNBALANCED, holdStart) : SKERR_NONE;
    }

    // Modifiers, then the key or group they hold over.
    SKERR ParseUnit() {
        std::array<std::uint8_t, 3> pressed{};
        std::size_t pressedCount = 0;
        const std::size_t unitStart = pos_;
        while (!AtEnd() && IsModifier(text_[pos_])) {
            const std::uint8_t key = ModifierKey(text_[pos_++]);
            if (!down_[key] && pressedCount < pressed.size()) {
                Down(key, false);
                pressed[pressedCount++] = key;
            }
        }
        const bool modified = pos_ != unitStart;
        if (modified && (AtEnd() || text_[pos_] == L')' || text_[pos_] == L']' || text_[pos_] == L'['))
            return Fail(SKERR_MISPLACED, AtEnd() ? unitStart : pos_);
        if (SKERR error = ParseAtom(); error != SKERR_NONE) return error;
        while (pressedCount > 0) Up(pressed[--pressedCount], false);
        return SKERR_NONE;
    }

    SKERR ParseAtom() {
        const wchar_t ch = text_[pos_];
        switch (ch) {
        case L'(':
            return ParseGroup();
        case L'{':
            return ParseBraced();
        case L'~':
            ++pos_;
            Stroke(vk::kEnter, false, 1);
            return SKERR_NONE;
        case L'[':
            return Fail(SKERR_MISPLACED, pos_);
        case L')':
        case L']':
        case L'}':
            return Fail(SKERR_UNBALANCED, pos_);
        default:
            return TypeCharacter(ch, 1, pos_++);
        }
    }

    SKERR ParseGroup() {
        const std::size_t open = pos_++;
        for (;;) {
            if (AtEnd()) return Fail(SKERR_UNBALANCED, open);
            if (text_[pos_] == L')') {
                ++pos_;
                return SKERR_NONE;
            }
            if (SKERR error = ParseUnit(); error != SKERR_NONE) return error;
        }
    }

    // {Name}, {Name n}, {x}: the first character after the brace always belongs to the name, so
    // "{}}" is the closing brace and "{{}" the opening one.
    SKERR ParseBraced() {
        const std::size_t open = pos_++;
        if (AtEnd()) return Fail(SKERR_UNBALANCED, open);
        const std::size_t close = text_.find(L'}', pos_ + 1);
        if (close == std::wstring_view::npos) return Fail(SKERR_UNBALANCED, open);
        const std::wstring_view content = text_.substr(pos_, close - pos_);
        pos_ = close + 1;

        const std::size_t space = content.find(L' ', 1);
        const std::wstring_view name = content.substr(0, space);
        unsigned count = 1;
        if (space != std::wstring_view::npos) {
            const std::wstring_view digits = content.substr(space + 1);
            const std::size_t countOffset = open + 1 + space + 1;
            if (digits.empty()) return Fail(SKERR_BAD_COUNT, countOffset);
            count = 0;
            for (wchar_t digit : digits) {
                if (digit < L'0' || digit > L'9') return Fail(SKERR_BAD_COUNT, countOffset);
                count = count * 10 + static_cast<unsigned>(digit - L'0');
                if (count > kMaxKeyRepeat) return Fail(SKERR_BAD_COUNT, countOffset);
            }
            if (count == 0) return Fail(SKERR_BAD_COUNT, countOffset);
        }

        if (name.size() == 1) return TypeCharacter(name[0], count, open + 1);
        const auto key = FindNamedKey(name);
        if (!key) return Fail(SKERR_UNKNOWN_KEY, open);
        Stroke(key->virtualKey, key->extended, count);
        return SKERR_NONE;
    }

    SKERR TypeCharacter(wchar_t ch, unsigned count, std::size_t offset) {
        const std::optional<LayoutKey> key = characterKey_ ? characterKey_(ch) : std::nullopt;
        if (!key) return Fail(SKERR_UNTYPABLE, offset);
        std::array<std::uint8_t, 3> pressed{};
        std::size_t pressedCount = 0;
        const std::pair<bool, std::uint8_t> needed[] = {
            {key->shift, vk::kShift}, {key->ctrl, vk::kControl}, {key->alt, vk::kAlt}};
        for (const auto& [need, modifier] : needed) {
            if (need && !down_[modifier]) {
                Down(modifier, false);
                pressed[pressedCount++] = modifier;
            }
        }
        Stroke(key->virtualKey, false, count);
        while (pressedCount > 0) Up(pressed[--pressedCount], false);
        return SKERR_NONE;
    }

    // A key pressed count times; inside a hold it only goes down (auto-repeat as a held key does).
    void Stroke(std::uint8_t key, bool extended, unsigned count) {
        for (unsigned i = 0; i < count; ++i) {
            Down(key, extended);
            Up(key, extended);
        }
    }

    void Down(std::uint8_t key, bool extended) {
        events_.push_back(KeyEvent{key, true, extended});
        down_[key] = true;
    }

    // Nothing goes up inside a hold: what went down there stays down for SendKeys_ReleaseAll.
    void Up(std::uint8_t key, bool extended) {
        if (holding_) return;
        events_.push_back(KeyEvent{key, false, extended});
        down_[key] = false;
    }

    std::wstring_view text_;
    const CharacterKeyMap& characterKey_;
    std::size_t pos_ = 0;
    std::size_t errorOffset_ = 0;
    bool holding_ = false;
    std::bitset<256> down_;
    std::vector<KeyEvent> events_;
};

}  // namespace

std::optional<LayoutKey> LayoutKeyFromScan(short scan) noexcept {
    const auto key = static_cast<std::uint8_t>(scan & 0xFF);
    const auto state = static_cast<std::uint8_t>((scan >> 8) & 0xFF);
    if (key == 0xFF && state == 0xFF) return std::nullopt;
    LayoutKey layoutKey;
    layoutKey.virtualKey = key;
    layoutKey.shift = (state & 1) != 0;
    layoutKey.ctrl = (state & 2) != 0;
    layoutKey.alt = (state & 4) != 0;
    return layoutKey;
}

KeyNotationResult ParseKeyNotation(std::wstring_view keys, const CharacterKeyMap& characterKey) {
    return Parser(keys, characterKey).Run();
}
