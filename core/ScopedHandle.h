#pragma once
#include <windows.h>
#include "core/UniqueResource.h"

// Kernel handles whose invalid value is null (processes, threads, events, mutexes).
struct KernelHandleTraits {
    using Type = HANDLE;
    static Type Invalid() noexcept { return nullptr; }
    static void Free(Type handle) noexcept { ::CloseHandle(handle); }
};
using ScopedHandle = UniqueResource<KernelHandleTraits>;
