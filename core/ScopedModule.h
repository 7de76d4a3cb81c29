#pragma once
#include <windows.h>
#include "core/UniqueResource.h"

// A module loaded with LoadLibraryW.
struct ModuleTraits {
    using Type = HMODULE;
    static Type Invalid() noexcept { return nullptr; }
    static void Free(Type module) noexcept { ::FreeLibrary(module); }
};
using ScopedModule = UniqueResource<ModuleTraits>;
