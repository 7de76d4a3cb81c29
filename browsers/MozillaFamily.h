#pragma once
#include "CStdStr.h"

class CLegacyKeySender;

// What Firefox and the Netscape browsers have in common: their top-level window class, the
// Alt-key navigation shortcuts and the mapped buttons that open their side panels.

// The class of every Mozilla browser window, whichever program owns it.
extern const CStdStr MozillaWindowClass;

// Alt+Left, Alt+Right and Alt+Home into whatever window has the focus. Always true: the key
// string's status is not looked at.
bool MozillaBack();
bool MozillaForward();
bool MozillaGoHome();

// Presses and releases a button through the sender, which replays what the user mapped to it
// (12: the favorites panel, 1: the history panel). Always true.
bool PressMappedButton(CLegacyKeySender& sender, unsigned short button);

namespace MozillaButton {
constexpr unsigned short OpenFavorites = 12;  // "BUTTON_OPEN_FAV"
constexpr unsigned short History = 1;         // "BUTTON_HISTORY"
}  // namespace MozillaButton
