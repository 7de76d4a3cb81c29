#include "support/KeyStateCheck.h"
#include <windows.h>
#include <gtest/gtest.h>
#include <sstream>
#include "support/WaitFor.h"
#include "tovutil/SendKeys.h"

namespace {

constexpr DWORD kReleaseTimeoutMs = 1000;

// Releases the mouse button a virtual-key code names; false when it names none.
bool ReleaseMouseButton(int key) {
    DWORD flags = 0;
    DWORD data = 0;
    switch (key) {
    case VK_LBUTTON: flags = MOUSEEVENTF_LEFTUP; break;
    case VK_RBUTTON: flags = MOUSEEVENTF_RIGHTUP; break;
    case VK_MBUTTON: flags = MOUSEEVENTF_MIDDLEUP; break;
    case VK_XBUTTON1: flags = MOUSEEVENTF_XUP; data = XBUTTON1; break;
    case VK_XBUTTON2: flags = MOUSEEVENTF_XUP; data = XBUTTON2; break;
    default: return false;
    }
    ::mouse_event(flags, 0, 0, data, 0);
    return true;
}

class KeyStateListener : public ::testing::EmptyTestEventListener {
public:
    void OnTestEnd(const ::testing::TestInfo&) override {
        const std::vector<int> down = KeysDown();
        if (down.empty()) return;
        std::ostringstream names;
        for (int key : down) names << ' ' << key;
        ADD_FAILURE() << "The test left these virtual keys down:" << names.str();
        EXPECT_TRUE(ReleaseKeys(down)) << "and they could not be released";
    }
};

}  // namespace

std::vector<int> KeysDown() {
    std::vector<int> down;
    for (int key = 1; key <= 254; ++key) {
        if ((::GetAsyncKeyState(key) & 0x8000) != 0) down.push_back(key);
    }
    return down;
}

bool ReleaseKeys(const std::vector<int>& keys) {
    SendKeys_ReleaseAll();
    for (int key : keys) {
        if (!ReleaseMouseButton(key)) ::keybd_event(static_cast<BYTE>(key), 0, KEYEVENTF_KEYUP, 0);
    }
    return wbstest::WaitFor(
        [&keys] {
            for (int key : keys) {
                if ((::GetAsyncKeyState(key) & 0x8000) != 0) return false;
            }
            return true;
        },
        kReleaseTimeoutMs);
}

void InstallKeyStateCheck() {
    static bool installed = false;
    if (installed) return;
    installed = true;
    ::testing::UnitTest::GetInstance()->listeners().Append(new KeyStateListener);
}
