#include "browsers/MozillaFamily.h"
#include "input/CLegacyKeySender.h"
#include "tovutil/SendKeys.h"

const CStdStr MozillaWindowClass(L"MozillaUIWindowClass");

bool MozillaBack() {
    (void)SendKeys(L"%{Left}");
    return true;
}

bool MozillaForward() {
    (void)SendKeys(L"%{Right}");
    return true;
}

bool MozillaGoHome() {
    (void)SendKeys(L"%{HOME}");
    return true;
}

bool PressMappedButton(CLegacyKeySender& sender, unsigned short button) {
    sender.SendButton(button, 1, 0);
    sender.SendButton(button, 0, 0);
    return true;
}
