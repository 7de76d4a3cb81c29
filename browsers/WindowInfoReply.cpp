#include "browsers/WindowInfoReply.h"

namespace {
const std::wstring kSeparator = L"\",\"";

// Characters from start on; nothing when start lies beyond the text.
std::wstring From(const std::wstring& text, std::wstring::size_type start) {
    return start <= text.size() ? text.substr(start) : std::wstring();
}

// The text before the position; all of it when the searched text was absent.
std::wstring Before(const std::wstring& text, std::wstring::size_type position) { return text.substr(0, position); }
}  // namespace

WindowInfoReply ParseWindowInfoReply(const std::wstring& text) {
    WindowInfoReply reply;
    // The title starts three characters after the first separator. Without one the not-found
    // position plus three is 2, so the title is the text from its third character: an
    // unanswered "0xFFFFFFFF" reads as the title "FFFFFFFF".
    const std::wstring::size_type separator = text.find(kSeparator);
    std::wstring title = From(text, separator + kSeparator.size());
    title = Before(title, title.find(kSeparator));
    title = Before(title, title.rfind(L'"'));
    reply.title = title;
    // The URL lies between the opening quote and the first separator ("xFFFFFFFF" without one).
    if (!text.empty()) reply.url = text.substr(1, separator == std::wstring::npos ? std::wstring::npos : separator - 1);
    return reply;
}
