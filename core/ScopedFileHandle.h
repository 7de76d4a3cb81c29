#pragma once
#include <windows.h>
#include "core/UniqueResource.h"

// File handles, whose invalid value is INVALID_HANDLE_VALUE (kept apart from ScopedHandle).
struct FileHandleTraits {
    using Type = HANDLE;
    static Type Invalid() noexcept { return INVALID_HANDLE_VALUE; }
    static void Free(Type handle) noexcept { ::CloseHandle(handle); }
};
using ScopedFileHandle = UniqueResource<FileHandleTraits>;
