#pragma once
#include <gtest/gtest.h>
#include <vector>
#include "support/InputObserver.h"
#include "support/ProcessState.h"

// A test that watches the keys it makes the system send: process-wide state is reset around it
// and the low-level hooks are in place before its body runs.
class InputTest : public ::testing::Test {
protected:
    static constexpr DWORD kSettleMs = 5000;

    void SetUp() override {
        ResetProcessWideState();
        ASSERT_TRUE(observer.Start());
    }
    void TearDown() override { ResetProcessWideState(); }

    // The key events sent since the last call, once they have certainly all arrived.
    std::vector<KeyStroke> SettledKeys() {
        std::vector<ObservedInput> events;
        EXPECT_TRUE(observer.TakeSettled(events, kSettleMs)) << "the marker key never arrived";
        return KeyStrokesOf(events);
    }

    InputObserver observer;
};

inline KeyStroke Down(unsigned key) { return KeyStroke{key, true}; }
inline KeyStroke Up(unsigned key) { return KeyStroke{key, false}; }
