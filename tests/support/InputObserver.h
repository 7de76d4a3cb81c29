#pragma once
#include <windows.h>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <ostream>
#include <thread>
#include <vector>

// One keyboard event or mouse side-button event seen by the low-level hooks.
struct ObservedInput {
    enum class Kind { Key, XButton };
    Kind kind = Kind::Key;
    unsigned code = 0;     // virtual-key code, or 1 / 2 for the first / second side button
    bool down = false;
    bool injected = false; // synthesised rather than typed
    double ms = 0;         // QueryPerformanceCounter time since Start, in milliseconds
};

// A key event as tests spell expectations: {17, true} is Ctrl down.
struct KeyStroke {
    unsigned virtualKey = 0;
    bool down = false;
    bool operator==(const KeyStroke& other) const noexcept {
        return virtualKey == other.virtualKey && down == other.down;
    }
};
void PrintTo(const KeyStroke& stroke, std::ostream* out);

// The key events of a recording, in order, without their times.
std::vector<KeyStroke> KeyStrokesOf(const std::vector<ObservedInput>& events);

// Watches the input that reaches this desktop through WH_KEYBOARD_LL and WH_MOUSE_LL hooks that
// live on a thread of its own, with its own message loop (low-level hooks are called on the
// thread that installed them, and only while it pumps messages).
class InputObserver {
public:
    InputObserver() = default;
    ~InputObserver();
    InputObserver(const InputObserver&) = delete;
    InputObserver& operator=(const InputObserver&) = delete;

    // Installs both hooks; true once they are in place (waits at most a few seconds).
    bool Start();
    void Stop();

    void Clear();
    std::vector<ObservedInput> Events() const;
    // True once at least count events are recorded; false when timeoutMs passed first.
    bool WaitForEvents(std::size_t count, DWORD timeoutMs) const;

    // Sends a marker key and waits for the hooks to see it: input sent before is then certainly
    // recorded, and nothing sent before can still arrive. Moves the events before the marker
    // into events and clears the recording; false when the marker did not come within timeoutMs.
    bool TakeSettled(std::vector<ObservedInput>& events, DWORD timeoutMs);

    // The unassigned virtual key used as the marker.
    static constexpr unsigned kMarkerKey = 0x97;

private:
    void Run();
    void Record(const ObservedInput& event);
    static LRESULT CALLBACK KeyboardProc(int code, WPARAM message, LPARAM data);
    static LRESULT CALLBACK MouseProc(int code, WPARAM message, LPARAM data);

    mutable std::mutex lock_;
    mutable std::condition_variable changed_;
    std::vector<ObservedInput> events_;
    std::thread thread_;
    DWORD threadId_ = 0;
    enum class State { Stopped, Starting, Running, Failed } state_ = State::Stopped;
    LARGE_INTEGER start_{};
    LARGE_INTEGER frequency_{};
};
