#pragma once
#include <windows.h>
#include "core/UniqueResource.h"

// Directory enumerations (FindFirstFileW).
struct FindHandleTraits {
    using Type = HANDLE;
    static Type Invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void Free(Type handle) noexcept { ::FindClose(handle); }
};
using ScopedFindHandle = UniqueResource<FindHandleTraits>;
