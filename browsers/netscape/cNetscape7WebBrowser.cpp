#include "browsers/netscape/cNetscape7WebBrowser.h"

// Netscape 7's DDE service carries its program's name.
cNetscape7WebBrowser::cNetscape7WebBrowser(HWND window) : cNetscapeFamilyWebBrowser(window, ProgramName) {}
