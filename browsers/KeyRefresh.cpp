#include "browsers/KeyRefresh.h"
#include "tovutil/SendKeys.h"

bool KeyRefresh() {
    (void)SendKeys(L"{F5}");
    return true;
}
