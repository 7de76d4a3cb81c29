#include "favorites/TextCuts.h"
#include <cwctype>

namespace {
// The C runtime's towlower, ASCII answered without the call as IsSpace is.
std::wint_t LowerCase(wchar_t ch) {
    if (ch < 0x80) return static_cast<std::wint_t>(ch >= L'A' && ch <= L'Z' ? ch - L'A' + L'a' : ch);
    return std::towlower(static_cast<std::wint_t>(ch));
}

// text without the white space at either end.
std::wstring_view Trimmed(std::wstring_view text) {
    std::wstring_view::size_type end = text.size();
    while (end > 0 && IsSpace(text[end - 1])) --end;
    std::wstring_view::size_type begin = 0;
    while (begin < end && IsSpace(text[begin])) ++begin;
    return text.substr(begin, end - begin);
}
}  // namespace

bool IsSpace(wchar_t ch) noexcept {
    if (ch < 0x80) return ch == L' ' || (ch >= L'\t' && ch <= L'\r');
    return std::iswspace(static_cast<std::wint_t>(ch)) != 0;
}

bool StartsWithNoCase(std::wstring_view text, const wchar_t* prefix) {
    if (text.empty() || prefix == nullptr) return false;
    const std::wstring_view start(prefix);
    if (text.size() < start.size()) return false;
    for (std::wstring_view::size_type i = 0; i < start.size(); ++i) {
        if (LowerCase(text[i]) != LowerCase(start[i])) return false;
    }
    return true;
}

CutResult CutRange(std::wstring_view text, std::wstring::size_type from, std::wstring::size_type to) {
    CutResult cut;
    cut.removed.assign(text.substr(from, to - from));
    std::wstring rest(text.substr(0, from));
    rest.append(text.substr(to));
    cut.text.assign(Trimmed(rest));
    return cut;
}

std::wstring StripTags(std::wstring_view text) {
    std::wstring stripped;
    StripTags(text, stripped);
    return stripped;
}

void StripTags(std::wstring_view text, std::wstring& stripped) {
    // One pass gives what cutting the first tag, trimming and searching again from the start
    // gives: cuts only remove characters, so a trimmed end stays an end and no "<" can appear
    // before the one just cut.
    stripped.clear();
    stripped.reserve(text.size());
    bool cut = false;
    std::wstring_view::size_type from = 0;
    for (;;) {
        const std::wstring_view::size_type open = text.find(L'<', from);
        const std::wstring_view::size_type close =
            open == std::wstring_view::npos ? open : text.find(L'>', open);
        // A "<" that nothing closes is never removed, so searching again would never end: the
        // stripping stops there and the rest stays as it stands.
        if (close == std::wstring_view::npos) break;
        stripped.append(text.substr(from, open - from));
        from = close + 1;
        cut = true;
    }
    stripped.append(text.substr(from));
    if (!cut) return;
    const std::wstring_view trimmed = Trimmed(stripped);
    const auto lead = static_cast<std::wstring::size_type>(trimmed.data() - stripped.data());
    stripped.resize(lead + trimmed.size());
    stripped.erase(0, lead);
}
