#include "support/InputObserver.h"
#include <algorithm>
#include <chrono>
#include <iterator>
#include "core/UniqueResource.h"

namespace {

struct HookTraits {
    using Type = HHOOK;
    static Type Invalid() noexcept { return nullptr; }
    static void Free(Type hook) noexcept { ::UnhookWindowsHookEx(hook); }
};
using ScopedHook = UniqueResource<HookTraits>;

// The observer whose hooks run on this thread.
thread_local InputObserver* tHookOwner = nullptr;

constexpr DWORD kStartTimeoutMs = 5000;

double Milliseconds(const LARGE_INTEGER& from, const LARGE_INTEGER& frequency) noexcept {
    LARGE_INTEGER now;
    ::QueryPerformanceCounter(&now);
    return static_cast<double>(now.QuadPart - from.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

}  // namespace

void PrintTo(const KeyStroke& stroke, std::ostream* out) {
    *out << stroke.virtualKey << (stroke.down ? "/down" : "/up");
}

std::vector<KeyStroke> KeyStrokesOf(const std::vector<ObservedInput>& events) {
    std::vector<KeyStroke> strokes;
    for (const ObservedInput& event : events) {
        if (event.kind == ObservedInput::Kind::Key) strokes.push_back(KeyStroke{event.code, event.down});
    }
    return strokes;
}

InputObserver::~InputObserver() { Stop(); }

bool InputObserver::Start() {
    Stop();
    ::QueryPerformanceFrequency(&frequency_);
    ::QueryPerformanceCounter(&start_);
    std::unique_lock<std::mutex> guard(lock_);
    events_.clear();
    state_ = State::Starting;
    thread_ = std::thread([this] { Run(); });
    changed_.wait_for(guard, std::chrono::milliseconds(kStartTimeoutMs),
                      [this] { return state_ != State::Starting; });
    return state_ == State::Running;
}

void InputObserver::Stop() {
    if (!thread_.joinable()) return;
    DWORD threadId = 0;
    {
        std::unique_lock<std::mutex> guard(lock_);
        // A thread still starting gets its queue first; wait for it so the quit message has a queue.
        changed_.wait(guard, [this] { return state_ != State::Starting; });
        threadId = threadId_;
    }
    if (threadId != 0) ::PostThreadMessageW(threadId, WM_QUIT, 0, 0);
    thread_.join();
    std::lock_guard<std::mutex> guard(lock_);
    state_ = State::Stopped;
    threadId_ = 0;
}

void InputObserver::Run() {
    MSG message;
    // Makes this thread's message queue, so Stop can post to it from now on.
    ::PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
    tHookOwner = this;
    const HMODULE self = ::GetModuleHandleW(nullptr);
    ScopedHook keyboard(::SetWindowsHookExW(WH_KEYBOARD_LL, &InputObserver::KeyboardProc, self, 0));
    ScopedHook mouse(::SetWindowsHookExW(WH_MOUSE_LL, &InputObserver::MouseProc, self, 0));
    const bool running = keyboard && mouse;
    {
        std::lock_guard<std::mutex> guard(lock_);
        threadId_ = ::GetCurrentThreadId();
        state_ = running ? State::Running : State::Failed;
    }
    changed_.notify_all();
    if (!running) return;
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

void InputObserver::Record(const ObservedInput& event) {
    {
        std::lock_guard<std::mutex> guard(lock_);
        events_.push_back(event);
    }
    changed_.notify_all();
}

LRESULT CALLBACK InputObserver::KeyboardProc(int code, WPARAM message, LPARAM data) {
    InputObserver* owner = tHookOwner;
    if (code == HC_ACTION && owner != nullptr) {
        const auto* key = reinterpret_cast<const KBDLLHOOKSTRUCT*>(data);
        ObservedInput event;
        event.kind = ObservedInput::Kind::Key;
        event.code = key->vkCode;
        event.down = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
        event.injected = (key->flags & LLKHF_INJECTED) != 0;
        event.ms = Milliseconds(owner->start_, owner->frequency_);
        owner->Record(event);
    }
    return ::CallNextHookEx(nullptr, code, message, data);
}

LRESULT CALLBACK InputObserver::MouseProc(int code, WPARAM message, LPARAM data) {
    InputObserver* owner = tHookOwner;
    if (code == HC_ACTION && owner != nullptr && (message == WM_XBUTTONDOWN || message == WM_XBUTTONUP)) {
        const auto* mouse = reinterpret_cast<const MSLLHOOKSTRUCT*>(data);
        ObservedInput event;
        event.kind = ObservedInput::Kind::XButton;
        event.code = HIWORD(mouse->mouseData);
        event.down = message == WM_XBUTTONDOWN;
        event.injected = (mouse->flags & LLMHF_INJECTED) != 0;
        event.ms = Milliseconds(owner->start_, owner->frequency_);
        owner->Record(event);
    }
    return ::CallNextHookEx(nullptr, code, message, data);
}

void InputObserver::Clear() {
    std::lock_guard<std::mutex> guard(lock_);
    events_.clear();
}

std::vector<ObservedInput> InputObserver::Events() const {
    std::lock_guard<std::mutex> guard(lock_);
    return events_;
}

bool InputObserver::WaitForEvents(std::size_t count, DWORD timeoutMs) const {
    std::unique_lock<std::mutex> guard(lock_);
    return changed_.wait_for(guard, std::chrono::milliseconds(timeoutMs),
                             [&] { return events_.size() >= count; });
}

bool InputObserver::TakeSettled(std::vector<ObservedInput>& events, DWORD timeoutMs) {
    events.clear();
    ::keybd_event(static_cast<BYTE>(kMarkerKey), 0, 0, 0);
    ::keybd_event(static_cast<BYTE>(kMarkerKey), 0, KEYEVENTF_KEYUP, 0);
    const auto isMarker = [](const ObservedInput& event) {
        return event.kind == ObservedInput::Kind::Key && event.code == kMarkerKey;
    };
    std::unique_lock<std::mutex> guard(lock_);
    auto markerUp = events_.end();
    const bool seen = changed_.wait_for(guard, std::chrono::milliseconds(timeoutMs), [&] {
        markerUp = std::find_if(events_.begin(), events_.end(),
                                [&](const ObservedInput& event) { return isMarker(event) && !event.down; });
        return markerUp != events_.end();
    });
    if (!seen) return false;
    std::copy_if(events_.begin(), markerUp, std::back_inserter(events),
                 [&](const ObservedInput& event) { return !isMarker(event); });
    events_.erase(events_.begin(), markerUp + 1);
    return true;
}
