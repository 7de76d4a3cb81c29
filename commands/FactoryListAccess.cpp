#include <new>
#include "browsers/aol/cAOLWebBrowser.h"
#include "browsers/firefox/cFirefoxWebBrowser.h"
#include "browsers/ie/cIEWebBrowser.h"
#include "browsers/netscape/cNetscape7WebBrowser.h"
#include "browsers/netscape/cNetscape8WebBrowser.h"
#include "browsers/netscape/cNetscapeWebBrowser.h"
#include "browsers/opera/cOperaWebBrowser.h"
#include "cWebBrowserFactoryList.h"

bool FactoryListAccess::DefaultBrowserCommandLine(const cWebBrowserFactoryList& list, CStdStr& commandLine) {
    return list.FindDefaultBrowserPath(commandLine);
}

void FactoryListAccess::DestroyInstance() { cWebBrowserFactoryList::pInstance_.reset(); }

counted_ptr<iWebBrowser> FactoryListAccess::FamilyBrowser(const CStdStr& family) {
    iWebBrowser* made = nullptr;
    if (family == L"ie")
        made = new (std::nothrow) cIEWebBrowser();
    else if (family == L"firefox")
        made = new (std::nothrow) cFirefoxWebBrowser();
    else if (family == L"netscape")
        made = new (std::nothrow) cNetscapeWebBrowser();
    else if (family == L"netscape8")
        made = new (std::nothrow) cNetscape8WebBrowser();
    else if (family == L"netscape7")
        made = new (std::nothrow) cNetscape7WebBrowser();
    else if (family == L"aol")
        made = new (std::nothrow) cAOLWebBrowser();
    else if (family == L"opera")
        made = new (std::nothrow) cOperaWebBrowser();
    return counted_ptr<iWebBrowser>(made);
}
