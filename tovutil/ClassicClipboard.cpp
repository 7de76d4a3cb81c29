#include "tovutil/ClassicClipboard.h"
#include <cstring>
#include "core/ScopedGlobalMemory.h"

ClassicClipboard::ClassicClipboard(bool open, HWND owner) noexcept {
    if (open) Open(owner);
}

ClassicClipboard::~ClassicClipboard() { Close(); }

bool ClassicClipboard::Open(HWND owner) noexcept {
    if (!open_) open_ = ::OpenClipboard(owner) != FALSE;
    return open_;
}

void ClassicClipboard::Close() noexcept {
    if (open_) ::CloseClipboard();
    open_ = false;
}

bool ClassicClipboard::SetUnicodeText(const CStdStr& text) noexcept {
    if (!open_) return false;
    const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    ScopedGlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, bytes));
    if (!memory) return false;
    void* target = ::GlobalLock(memory.get());
    if (target == nullptr) return false;
    std::memcpy(target, text.c_str(), bytes);
    ::GlobalUnlock(memory.get());
    if (!::EmptyClipboard()) return false;
    if (::SetClipboardData(CF_UNICODETEXT, memory.get()) == nullptr) return false;
    // The clipboard owns the memory from here on.
    (void)memory.release();
    return true;
}
