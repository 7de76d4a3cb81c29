#pragma once

// Status of SendKeys: zero when the whole string was sent.
typedef int SKERR;
enum : SKERR {
    SKERR_NONE = 0,
    SKERR_NULL = 1,           // no string
    SKERR_UNKNOWN_KEY = 2,    // a braced name that is not a key
    SKERR_UNBALANCED = 3,     // a brace, bracket or parenthesis without its partner
    SKERR_BAD_COUNT = 4,      // a repeat count that is not a number in range
    SKERR_UNTYPABLE = 5,      // a character the keyboard layout cannot type
    SKERR_SEND_FAILED = 6,    // the system refused the input
    SKERR_MISPLACED = 7,      // a modifier with no key after it, or a hold bracket inside a group,
                              // after a modifier or inside another hold
    SKERR_NO_MEMORY = 8,      // the key events did not fit in memory
};

// Types a key string into the foreground window (notation: ^ Ctrl, % Alt, + Shift, ~ Enter,
// {Name} and {Name n}, (...) groups, [...] keys held until SendKeys_ReleaseAll). A malformed
// string sends nothing.
SKERR SendKeys(const wchar_t* keys);
// Releases, in reverse order, every key that SendKeys left held; harmless when none is.
void SendKeys_ReleaseAll();
