#include "history/ElementText.h"

std::optional<std::wstring> ExtractElementText(std::wstring_view line) {
    const std::optional<std::wstring_view> text = ElementTextIn(line);
    if (!text) return std::nullopt;
    return std::wstring(*text);
}

std::optional<std::wstring_view> ElementTextIn(std::wstring_view line) {
    const std::wstring_view::size_type close = line.find(L'>');
    const std::wstring_view::size_type open = line.rfind(L'<');
    if (close == std::wstring_view::npos || open == std::wstring_view::npos || open <= close) return std::nullopt;
    return line.substr(close + 1, open - close - 1);
}
