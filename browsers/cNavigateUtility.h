#pragma once
#include <windows.h>
#include "CStdStr.h"
#include "PageInfo.h"

// What the navigable browsers share: the DDE browser-control conversation ("WWW_OpenURL",
// "WWW_GetWindowInfo") with the browser's DDE service, and the program starter.
class cNavigateUtility {
public:
    explicit cNavigateUtility(const CStdStr& serviceName) : serviceName(serviceName) {}
    virtual ~cNavigateUtility() = default;

    // Opens url in the running browser. The window argument is not used.
    virtual bool OpenURL(HWND window, const CStdStr& url);
    // The title and URL of the page the browser shows; always true (see GetWindowInfo).
    virtual bool GetPageInfo(CStdStr& title, CStdStr& url);
    // The browser's answer about its most recent window, or "0xFFFFFFFF" when it gives none;
    // always true.
    virtual bool GetWindowInfo(CStdStr& reply);

    // One request to the browser's service. For "WWW_GetWindowInfo" item becomes the reply
    // (at most 1023 bytes of it, widened in item's code page).
    bool DdeRequest(const CStdStr& topic, CStdStr& item);
    bool StartProgram(const wchar_t* commandLine, HWND* window);

    // GetCurrentPage as the navigable drivers share it: out is changed only on success.
    bool CurrentPage(PageInfo& out);

    const CStdStr& ServiceName() const noexcept { return serviceName; }

protected:
    CStdStr serviceName;
};
