#include "favorites/MozillaProfile.h"
#include <windows.h>
#include <shlobj.h>
#include "core/ComPtr.h"
#include "core/ScopedFindHandle.h"
#include "core/UniqueResource.h"
#include "favorites/cFileInformation.h"

namespace {
// An item list handed out by the shell, freed through the shell allocator.
struct ItemListTraits {
    using Type = LPITEMIDLIST;
    static Type Invalid() noexcept { return nullptr; }
    static void Free(Type items) noexcept {
        ComPtr<IMalloc> allocator;
        if (SUCCEEDED(::SHGetMalloc(allocator.Receive()))) allocator->Free(items);
    }
};
using ScopedItemList = UniqueResource<ItemListTraits>;

const wchar_t kAllEntries[] = L"*.*";
const wchar_t kDocumentsAppData[] = L"\\Application Data";
}  // namespace

bool GetAppDataFolder(CStdStr& path) {
    path.clear();
    ScopedItemList items;
    bool inDocuments = false;
    if (FAILED(::SHGetSpecialFolderLocation(nullptr, CSIDL_APPDATA, items.Receive()))) {
        inDocuments = SUCCEEDED(::SHGetSpecialFolderLocation(nullptr, CSIDL_PERSONAL, items.Receive()));
    }
    wchar_t folder[MAX_PATH] = {};
    if (items && ::SHGetPathFromIDListW(items.get(), folder)) {
        path = folder;
        // The shell may end a folder's path with a backslash; the folder is handed out without one.
        while (!path.empty() && path.back() == L'\\') path.pop_back();
        if (inDocuments) path += kDocumentsAppData;
    }
    return !path.empty();
}

bool FindProfileFile(const CStdStr& profilesRoot, const CStdStr& fileName, CStdStr& foundPath) {
    CStdStr root;
    if (!GetAppDataFolder(root)) return false;
    root += profilesRoot;

    WIN32_FIND_DATAW entry = {};
    ScopedFindHandle profiles(::FindFirstFileW((root + kAllEntries).c_str(), &entry));
    if (!profiles) return false;
    do {
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) continue;
        const std::wstring_view name(entry.cFileName);
        if (name == L"." || name == L"..") continue;
        CStdStr candidate = root + entry.cFileName + fileName;
        if (cFileInformation(candidate.c_str()).Found()) {
            foundPath = std::move(candidate);
            // A match ends the scan at once with the profile enumeration still open; only an
            // exhausted enumeration is closed.
            (void)profiles.release();
            return true;
        }
    } while (::FindNextFileW(profiles.get(), &entry));
    return false;
}
