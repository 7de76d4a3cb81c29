#pragma once
#include <windows.h>
#include "core/UniqueResource.h"

// Global memory (GlobalAlloc), owned until something such as the clipboard takes it over.
struct GlobalMemoryTraits {
    using Type = HGLOBAL;
    static Type Invalid() noexcept { return nullptr; }
    static void Free(Type memory) noexcept { ::GlobalFree(memory); }
};
using ScopedGlobalMemory = UniqueResource<GlobalMemoryTraits>;
