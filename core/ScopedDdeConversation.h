#pragma once
#include <windows.h>
#include <ddeml.h>
#include "core/UniqueResource.h"

struct DdeConversationTraits {
    using Type = HCONV;
    static Type Invalid() noexcept { return nullptr; }
    static void Free(Type conversation) noexcept { ::DdeDisconnect(conversation); }
};
using ScopedDdeConversation = UniqueResource<DdeConversationTraits>;
