#pragma once
#include <vector>

// Keys and mouse buttons (virtual-key codes 1 to 254) that the system reports as down now.
std::vector<int> KeysDown();

// Releases the given keys and mouse buttons, and whatever SendKeys still holds; true once the
// system reports none of them down (waits at most a second).
bool ReleaseKeys(const std::vector<int>& keys);

// Adds, once per process, a test listener that fails any test leaving a key or mouse button down
// when it ends, and releases those keys so that the tests after it start clean.
void InstallKeyStateCheck();
