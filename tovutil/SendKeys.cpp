#include "tovutil/SendKeys.h"
#include <windows.h>
#include <algorithm>
#include <mutex>
#include <new>
#include <vector>
#include "tovutil/KeyNotation.h"

namespace {

// The keys SendKeys left down, in the order they went down; shared by every caller in the process.
struct HeldKeys {
    std::mutex lock;
    std::vector<KeyEvent> keys;
};

HeldKeys& TheHeldKeys() {
    static HeldKeys held;
    return held;
}

// The key that types a character on the calling thread's keyboard layout.
std::optional<LayoutKey> KeyOnCurrentLayout(wchar_t ch) { return LayoutKeyFromScan(::VkKeyScanW(ch)); }

INPUT KeyboardInput(const KeyEvent& event) noexcept {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = event.virtualKey;
    input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(event.virtualKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = (event.down ? 0 : KEYEVENTF_KEYUP) | (event.extended ? KEYEVENTF_EXTENDEDKEY : 0);
    return input;
}

// Brings the held list up to date with events that reached the system: a key that went down is
// held until an event releases it.
void TrackHeld(std::vector<KeyEvent>& held, const KeyEvent* events, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const KeyEvent& event = events[i];
        const auto found = std::find_if(held.begin(), held.end(),
                                        [&](const KeyEvent& key) { return key.virtualKey == event.virtualKey; });
        if (event.down && found == held.end()) {
            held.push_back(KeyEvent{event.virtualKey, false, event.extended});
        } else if (!event.down && found != held.end()) {
            held.erase(found);
        }
    }
}

SKERR SendParsed(const std::vector<KeyEvent>& events) {
    if (events.empty()) return SKERR_NONE;
    std::vector<INPUT> inputs;
    inputs.reserve(events.size());
    for (const KeyEvent& event : events) inputs.push_back(KeyboardInput(event));

    HeldKeys& held = TheHeldKeys();
    std::lock_guard<std::mutex> guard(held.lock);
    // One call, so the user's own typing cannot fall between a modifier and its key.
    const UINT sent = ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    // Whatever part did go out may have left keys down; SendKeys_ReleaseAll must know of them.
    TrackHeld(held.keys, events.data(), std::min<std::size_t>(sent, events.size()));
    return sent == inputs.size() ? SKERR_NONE : SKERR_SEND_FAILED;
}

}  // namespace

SKERR SendKeys(const wchar_t* keys) {
    if (keys == nullptr) return SKERR_NULL;
    try {
        const KeyNotationResult parsed = ParseKeyNotation(keys, KeyOnCurrentLayout);
        if (parsed.error != SKERR_NONE) return parsed.error;
        return SendParsed(parsed.events);
    } catch (const std::bad_alloc&) {
        return SKERR_NO_MEMORY;
    } catch (...) {
        return SKERR_SEND_FAILED;
    }
}

void SendKeys_ReleaseAll() {
    try {
        HeldKeys& held = TheHeldKeys();
        std::lock_guard<std::mutex> guard(held.lock);
        for (auto key = held.keys.rbegin(); key != held.keys.rend(); ++key) {
            INPUT input = KeyboardInput(*key);
            ::SendInput(1, &input, sizeof(INPUT));
        }
        held.keys.clear();
    } catch (...) {
        // Only the lock can throw, and then nothing was released; there is no status to report.
    }
}
