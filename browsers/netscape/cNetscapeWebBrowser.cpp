#include "browsers/netscape/cNetscapeWebBrowser.h"

cNetscapeWebBrowser::cNetscapeWebBrowser(HWND window) : cNetscapeFamilyWebBrowser(window, CStdStr(L"Netscape")) {}
