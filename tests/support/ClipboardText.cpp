#include "support/ClipboardText.h"
#include <windows.h>

namespace wbstest {

std::wstring ClipboardText() {
    if (!::OpenClipboard(nullptr)) return L"<not open>";
    std::wstring text = L"<none>";
    if (HANDLE data = ::GetClipboardData(CF_UNICODETEXT)) {
        if (const auto* chars = static_cast<const wchar_t*>(::GlobalLock(data))) {
            text = chars;
            ::GlobalUnlock(data);
        }
    }
    ::CloseClipboard();
    return text;
}

}  // namespace wbstest
