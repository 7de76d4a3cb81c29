#include "Output.h"
#include <windows.h>
#include <cwchar>

namespace wbs {
namespace {

void Write(DWORD stream, const std::wstring& text) {
    const HANDLE handle = ::GetStdHandle(stream);
    if (handle == nullptr || handle == INVALID_HANDLE_VALUE || text.empty()) return;
    DWORD mode = 0, written = 0;
    if (::GetConsoleMode(handle, &mode)) {
        // Older consoles refuse long writes, so the text goes in pieces.
        const size_t piece = 8192;
        for (size_t at = 0; at < text.size(); at += piece) {
            const DWORD length = static_cast<DWORD>(text.size() - at < piece ? text.size() - at : piece);
            if (!::WriteConsoleW(handle, text.data() + at, length, &written, nullptr)) return;
        }
        return;
    }
    std::wstring lines;
    lines.reserve(text.size() + text.size() / 16);
    for (wchar_t ch : text) {
        if (ch == L'\n') lines += L'\r';
        lines += ch;
    }
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, lines.data(), static_cast<int>(lines.size()), nullptr, 0,
                                           nullptr, nullptr);
    if (size <= 0) return;
    std::string bytes(static_cast<size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, lines.data(), static_cast<int>(lines.size()), bytes.data(), size, nullptr, nullptr);
    ::WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace

void Print(const std::wstring& text) { Write(STD_OUTPUT_HANDLE, text); }

void PrintError(const std::wstring& message) { Write(STD_ERROR_HANDLE, L"wbs: " + message + L"\n"); }

std::wstring JsonString(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (wchar_t ch : text) {
        switch (ch) {
        case L'"': quoted += L"\\\""; break;
        case L'\\': quoted += L"\\\\"; break;
        case L'\n': quoted += L"\\n"; break;
        case L'\r': quoted += L"\\r"; break;
        case L'\t': quoted += L"\\t"; break;
        default:
            if (ch < 0x20) {
                wchar_t escaped[8];
                std::swprintf(escaped, 8, L"\\u%04x", static_cast<unsigned>(ch));
                quoted += escaped;
            } else {
                quoted += ch;
            }
        }
    }
    return quoted + L"\"";
}

std::wstring JsonStringOrNull(const std::wstring& text) { return text.empty() ? L"null" : JsonString(text); }

}  // namespace wbs
