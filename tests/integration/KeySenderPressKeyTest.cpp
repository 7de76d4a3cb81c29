#include <gtest/gtest.h>
#include <algorithm>
#include <memory>
#include "input/CZyPressKey.h"
#include "support/InputTest.h"

using PressKeyTest = InputTest;

TEST_F(PressKeyTest, ShortcutsArriveAsFourEventsFortyMsApartOnlyOnTheSendInputPath) {
    struct Shortcut {
        BYTE modifier;
        BYTE key;
    };
    const Shortcut shortcuts[] = {{17, 66}, {18, 36}};  // Ctrl+B, Alt+Home
    for (const bool sendInput : {true, false}) {
        for (const Shortcut& shortcut : shortcuts) {
            SCOPED_TRACE(std::string(sendInput ? "SendInput " : "keybd_event ") + std::to_string(shortcut.key));
            {
                // The running system offers SendInput, so only a described platform takes the other path.
                auto presser = sendInput ? std::make_unique<CZyPressKey>()
                                         : std::make_unique<CZyPressKey>(CPlatforme(0));
                presser->PressKey(shortcut.modifier, 0);
                presser->PressKey(shortcut.key, 0);
                presser->PressKey(shortcut.key, KEYEVENTF_KEYUP);
                presser->PressKey(shortcut.modifier, KEYEVENTF_KEYUP);
            }
            std::vector<ObservedInput> events;
            ASSERT_TRUE(observer.TakeSettled(events, kSettleMs));
            EXPECT_EQ(KeyStrokesOf(events),
                      (std::vector<KeyStroke>{{shortcut.modifier, true}, {shortcut.key, true},
                                              {shortcut.key, false}, {shortcut.modifier, false}}));
            ASSERT_EQ(events.size(), 4u);
            double shortestGap = events[1].ms - events[0].ms;
            for (std::size_t i = 1; i < events.size(); ++i)
                shortestGap = std::min(shortestGap, events[i].ms - events[i - 1].ms);
            const double span = events.back().ms - events.front().ms;
            if (sendInput) {
                EXPECT_GE(shortestGap, double(CZyPressKey::kPauseMs));
            } else {
                EXPECT_LT(span, double(CZyPressKey::kPauseMs));
            }
        }
    }
}
