#include "favorites/cFileInformation.h"
#include "core/ScopedFindHandle.h"

cFileInformation::cFileInformation(const wchar_t* path) noexcept {
    if (path == nullptr) return;
    ScopedFindHandle search(::FindFirstFileW(path, &data_));
    found_ = search.valid();
}
