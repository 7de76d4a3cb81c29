#pragma once
#include <windows.h>
#include <ddeml.h>
#include "core/UniqueResource.h"

// Data handed back by a DDE transaction.
struct DdeDataTraits {
    using Type = HDDEDATA;
    static Type Invalid() noexcept { return nullptr; }
    static void Free(Type data) noexcept { ::DdeFreeDataHandle(data); }
};
using ScopedDdeData = UniqueResource<DdeDataTraits>;
