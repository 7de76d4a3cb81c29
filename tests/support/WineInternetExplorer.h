#pragma once
#include <windows.h>
#include "core/ScopedHandle.h"

namespace wbstest {

// Wine's own Internet Explorer, a real peer nobody here wrote: started on about:blank, its
// "IEFrame" window awaited, and closed (terminated after a bound) when the object goes.
class WineInternetExplorer {
public:
    WineInternetExplorer();
    WineInternetExplorer(const WineInternetExplorer&) = delete;
    WineInternetExplorer& operator=(const WineInternetExplorer&) = delete;
    ~WineInternetExplorer();

    // Null when it did not start or showed no frame in time.
    HWND Frame() const { return frame_; }

    // Closes every "IEFrame" window's program, also one the library started.
    static void CloseAll();

private:
    ScopedHandle process_;
    HWND frame_ = nullptr;
};

}  // namespace wbstest
