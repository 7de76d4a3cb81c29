#include "input/ButtonNameTable.h"

namespace {

std::vector<CStdStr>& TheNames() {
    static std::vector<CStdStr> names;
    return names;
}

const wchar_t* const kButtonNames[ButtonNameTable::kSize] = {
    L"BUTTON_WWW",          L"BUTTON_HISTORY",      L"BUTTON_OPEN_URL",     L"BUTTON_HOME",
    L"BUTTON_PRINT",        L"BUTTON_BACK",         L"BUTTON_FORWARD",      L"BUTTON_STOP",
    L"BUTTON_RELOAD",       L"BUTTON_SEARCH",       L"BUTTON_FIND",         L"BUTTON_ADD_FAV",
    L"BUTTON_OPEN_FAV",     L"BUTTON_LINK",         L"BUTTON_UP",           L"BUTTON_DOWN",
    L"BUTTON_XFER",         L"BUTTON_RECORD",       L"BUTTON_CLOSE",        L"BUTTON_COMMUNITY",
    L"BUTTON_SHOPPING",     L"BUTTON_SITES",        L"BUTTON_ZEPHYR",       L"BUTTON_FINANCE",
    L"BUTTON_INAVBACK",     L"BUTTON_INAVROLLR",    L"BUTTON_INAVROLLRUP",  L"BUTTON_INAVROLLRDOWN",
    L"BUTTON_MEDIA",        L"BUTTON_CORVANE",      L"BUTTON_VOL_UP",       L"BUTTON_VOL_DOWN",
    L"BUTTON_MUTE_TOGGLE",  L"BUTTON_F1",           L"BUTTON_F2",           L"BUTTON_F3",
    L"BUTTON_F4",           L"BUTTON_F5",           L"BUTTON_F6",           L"BUTTON_F7",
    L"BUTTON_F8",           L"BUTTON_F9",           L"BUTTON_F10",          L"BUTTON_F11",
    L"BUTTON_F12",
};

}  // namespace

const std::vector<CStdStr>& ButtonNameTable::Names() noexcept { return TheNames(); }

// Filled without a lock: the first sender is built inside a driver on the command thread.
void ButtonNameTable::Fill() {
    std::vector<CStdStr>& names = TheNames();
    if (!names.empty()) return;
    names.reserve(kSize);
    for (const wchar_t* name : kButtonNames) names.emplace_back(std::wstring(name));
}

void ButtonNameTable::Reset() noexcept {
    std::vector<CStdStr>& names = TheNames();
    names.clear();
    names.shrink_to_fit();
}
