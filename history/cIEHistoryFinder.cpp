#include "history/cIEHistoryFinder.h"
#include <windows.h>
#include "core/ScopedRegKey.h"

namespace {
const wchar_t kTypedUrlsKey[] = L"Software\\Microsoft\\Internet Explorer\\TypedURLs";
constexpr DWORD kNameCapacity = 256;  // characters
constexpr DWORD kDataCapacity = 256;  // bytes: 127 characters and the terminator
}  // namespace

bool cIEHistoryFinder::FindHistory(HistoryList& list) {
    ScopedRegKey key;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, kTypedUrlsKey, 0, KEY_READ, key.Receive()) != ERROR_SUCCESS) return true;

    // The read ends at the first value that cannot be read whole, whatever the reason: an address
    // too long for its buffer hides itself and every value after it.
    for (DWORD index = 0;; ++index) {
        wchar_t name[kNameCapacity] = {};
        wchar_t data[kDataCapacity / sizeof(wchar_t) + 1] = {};
        DWORD nameLength = kNameCapacity;
        DWORD dataSize = kDataCapacity;
        if (::RegEnumValueW(key.get(), index, name, &nameLength, nullptr, nullptr, reinterpret_cast<BYTE*>(data),
                            &dataSize) != ERROR_SUCCESS)
            break;
        AddEntry(list, HistoryEntry{CStdStr(name), CStdStr(data)});
    }
    return true;
}
