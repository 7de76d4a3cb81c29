#include "tovutil/ForegroundAttentionGrabber.h"

ForegroundAttentionGrabber::ForegroundAttentionGrabber() noexcept {
    ::AllowSetForegroundWindow(ASFW_ANY);
    if (::SystemParametersInfoW(SPI_GETFOREGROUNDLOCKTIMEOUT, 0, &oldTimeout_, 0) && oldTimeout_ != 0) {
        timeoutChanged_ = ::SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0, nullptr, 0) != FALSE;
    }
}

ForegroundAttentionGrabber::~ForegroundAttentionGrabber() {
    if (timeoutChanged_) {
        ::SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0,
                                reinterpret_cast<PVOID>(static_cast<ULONG_PTR>(oldTimeout_)), 0);
    }
}
