#pragma once
#include <windows.h>
#include "core/UniqueResource.h"

struct RegKeyTraits {
    using Type = HKEY;
    static Type Invalid() noexcept { return nullptr; }
    static void Free(Type key) noexcept { ::RegCloseKey(key); }
};
using ScopedRegKey = UniqueResource<RegKeyTraits>;
