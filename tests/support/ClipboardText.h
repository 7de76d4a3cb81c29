#pragma once
#include <string>

namespace wbstest {

// The clipboard's Unicode text as another program would read it: "<none>" when it holds none,
// "<not open>" when some other window holds the clipboard open.
std::wstring ClipboardText();

}  // namespace wbstest
