#pragma once
#include <initializer_list>
#include <vector>
#include "support/InputObserver.h"

namespace wbstest {

// The four events of a shortcut: modifier down, key down, key up, modifier up.
inline std::vector<KeyStroke> Shortcut(unsigned modifier, unsigned key) {
    return {{modifier, true}, {key, true}, {key, false}, {modifier, false}};
}
// A plain key pressed and released.
inline std::vector<KeyStroke> Tap(unsigned key) { return {{key, true}, {key, false}}; }

inline std::vector<KeyStroke> Joined(std::initializer_list<std::vector<KeyStroke>> parts) {
    std::vector<KeyStroke> all;
    for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

}  // namespace wbstest
