#include "CStdStr.h"
#include <windows.h>
#include <cstdint>

namespace {
HMODULE ThisModule() noexcept {
    HMODULE module = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         reinterpret_cast<LPCWSTR>(&ThisModule), &module);
    return module;
}
}  // namespace

std::wstring CStdStr::LoadResourceString(unsigned int id) {
    const wchar_t* text = nullptr;
    // With a zero buffer size LoadStringW hands out a read-only pointer into the resource.
    const int length = ::LoadStringW(ThisModule(), id, reinterpret_cast<LPWSTR>(&text), 0);
    if (length <= 0 || text == nullptr) return std::wstring();
    return std::wstring(text, static_cast<size_t>(length));
}

// A resource identifier is a value with every bit above bit 15 clear, as Windows itself tells them
// apart; on 64-bit Windows a real buffer may have bits 16 to 31 clear and must keep its text.
CStdStr::CStdStr(const wchar_t* text) {
    const auto bits = reinterpret_cast<std::uintptr_t>(text);
    if ((bits >> 16) == 0)
        assign(LoadResourceString(static_cast<unsigned int>(bits & 0xFFFFu)));
    else
        assign(text);
}

CStdStr& CStdStr::operator=(const wchar_t* text) {
    CStdStr loaded(text);
    std::wstring::operator=(std::move(loaded));
    return *this;
}
