#pragma once
#include <windows.h>

// Lets this process take the foreground while it is held: any process may set the foreground,
// and the foreground lock time-out is zero; the time-out is restored when the grabber goes.
class ForegroundAttentionGrabber {
public:
    ForegroundAttentionGrabber() noexcept;
    ~ForegroundAttentionGrabber();
    ForegroundAttentionGrabber(const ForegroundAttentionGrabber&) = delete;
    ForegroundAttentionGrabber& operator=(const ForegroundAttentionGrabber&) = delete;

private:
    DWORD oldTimeout_ = 0;
    bool timeoutChanged_ = false;
};
