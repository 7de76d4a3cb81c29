#pragma once
#include <cstddef>
#include <vector>
#include "CStdStr.h"

// The process-wide names of the button codes: a code is an index into the list. The names are
// the keys of the mapping files, so their spelling is part of that file format.
class ButtonNameTable {
public:
    static constexpr std::size_t kSize = 45;

    // The list; empty until the first CLegacyKeySender fills it.
    static const std::vector<CStdStr>& Names() noexcept;
    // Appends the names when the list is empty; does nothing when it is already filled.
    static void Fill();
    // Empties the list, so that the next sender fills it again as the first one in a fresh
    // process would (for tests).
    static void Reset() noexcept;
};
