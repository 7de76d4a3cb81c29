#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include "support/KeyStateCheck.h"

// Every test program: GoogleTest with the check that no test leaves a key or button down.
int main(int argc, char** argv) {
    ::testing::InitGoogleMock(&argc, argv);
    InstallKeyStateCheck();
    return RUN_ALL_TESTS();
}
