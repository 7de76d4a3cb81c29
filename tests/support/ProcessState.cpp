#include "ProcessState.h"
#include "cWebBrowserFactoryList.h"
#include "input/ButtonNameTable.h"
#include "tovutil/CProcessFinder.h"
#include "tovutil/SendKeys.h"

void ResetProcessWideState() {
    SendKeys_ReleaseAll();
    FactoryListAccess::DestroyInstance();
    CProcessFinder::DestroyInstance();
    ButtonNameTable::Reset();
}
