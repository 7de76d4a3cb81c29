#pragma once
#include "CStdStr.h"

// The key string a mapping file (".QXM", profile syntax) assigns to a button for windows of the
// given class: the key named after the button in section "Button Mapping - " + class, else in
// section "Button Mapping - Default". Writes the result into keys (empty when nothing is mapped)
// and returns whether it is non-empty. A button code beyond the button-name table returns false
// and leaves keys as it was. extraText is accepted and not read.
bool LookupButtonKeys(const CStdStr& file, const CStdStr& extraText, const CStdStr& className,
                      unsigned short button, CStdStr& keys);
