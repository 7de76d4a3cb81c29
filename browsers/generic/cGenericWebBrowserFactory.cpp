#include "browsers/generic/cGenericWebBrowserFactory.h"

bool cGenericWebBrowserFactory::CreateBrowser(HWND, CProcessFinder*, iWebBrowser*&, const CStdStr&) { return false; }

bool cGenericWebBrowserFactory::IsBrowserProcess(const CStdStr&, iWebBrowser*&) { return false; }
