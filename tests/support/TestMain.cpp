#include <gtest/gtest.h>
#include <cstdio>
#include "support/TestSupport.h"
#include "tovutil/SendKeys.h"

namespace {
// Fails any test that leaves a key or mouse button down, and lets them go for the tests after it.
class KeyStateCheck : public ::testing::EmptyTestEventListener {
    void OnTestEnd(const ::testing::TestInfo&) override {
        const std::vector<int> down = wbstest::KeysDown();
        if (down.empty()) return;
        std::string names;
        for (int key : down) names += " " + std::to_string(key);
        ADD_FAILURE() << "The test left these virtual keys down:" << names;
        SendKeys_ReleaseAll();
        for (int key : down) ::keybd_event(static_cast<BYTE>(key), 0, KEYEVENTF_KEYUP, 0);
    }
};
}  // namespace

// A crash ends the program at once with its address, and the fixture processes with it, rather
// than waiting in a debugger until the runner's time-out.
LONG WINAPI Crashed(EXCEPTION_POINTERS* exception) {
    std::fprintf(stderr, "\nFAILED: exception 0x%lx at %p\n", exception->ExceptionRecord->ExceptionCode,
                 exception->ExceptionRecord->ExceptionAddress);
    std::fflush(stderr);
    wbstest::EndProcesses(L"\\wbs-tests\\");
    ::TerminateProcess(::GetCurrentProcess(), 3);
    return EXCEPTION_EXECUTE_HANDLER;
}

int main(int argc, char** argv) {
    ::SetUnhandledExceptionFilter(Crashed);
    wbstest::RegistryScope::RestoreLeftovers();
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new KeyStateCheck);
    return RUN_ALL_TESTS();
}
