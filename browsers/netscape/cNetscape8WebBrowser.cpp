#include "browsers/netscape/cNetscape8WebBrowser.h"

// Netscape 8 answers DDE under Navigator's service name.
cNetscape8WebBrowser::cNetscape8WebBrowser(HWND window) : cNetscapeFamilyWebBrowser(window, CStdStr(L"Netscape")) {}
