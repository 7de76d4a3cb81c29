#include "support/ScratchFolder.h"
#include <windows.h>
#include "core/ScopedFindHandle.h"
#include "support/TestPaths.h"
#include "support/WaitFor.h"

namespace wbstest {

namespace {

const DWORD kRemoveRetryMs = 3000;

bool Exists(const std::wstring& path) { return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

void RemoveOnce(const std::wstring& path) {
    WIN32_FIND_DATAW found{};
    ScopedFindHandle find(::FindFirstFileW(JoinPath(path, L"*").c_str(), &found));
    if (find) {
        do {
            const std::wstring name = found.cFileName;
            if (name == L"." || name == L"..") continue;
            const std::wstring child = JoinPath(path, name);
            if (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY)
                ::SetFileAttributesW(child.c_str(), found.dwFileAttributes & ~FILE_ATTRIBUTE_READONLY);
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                RemoveOnce(child);
            else
                ::DeleteFileW(child.c_str());
        } while (::FindNextFileW(find.get(), &found));
    }
    ::RemoveDirectoryW(path.c_str());
}

}  // namespace

ScratchFolder::ScratchFolder(const std::wstring& name)
    : path_(JoinPath(JoinPath(TempFolder(), L"WebBrowserSupportTests"), name)) {
    RemoveTree(path_);
    // Each level of the path below the temporary folder, the shared parent included.
    size_t end = TempFolder().size();
    do {
        end = path_.find(L'\\', end + 1);
        ::CreateDirectoryW(path_.substr(0, end).c_str(), nullptr);
    } while (end != std::wstring::npos);
}

ScratchFolder::~ScratchFolder() { RemoveTree(path_); }

std::wstring ScratchFolder::File(const std::wstring& name) const { return JoinPath(path_, name); }

bool ScratchFolder::RemoveTree(const std::wstring& path) {
    return WaitFor(
        [&path] {
            RemoveOnce(path);
            return !Exists(path);
        },
        kRemoveRetryMs, 50);
}

}  // namespace wbstest
