#pragma once
#include <list>
#include <memory>
#include <windows.h>
#include "CStdStr.h"
#include "WbsApi.h"
#include "counted_ptr.h"
#include "iWebBrowser.h"
#include "iWebBrowserFactory.h"

class WBS_API iWebBrowserFactoryList {
public:
    virtual ~iWebBrowserFactoryList();
    virtual counted_ptr<iWebBrowser> GetDefaultWebBrowser() = 0;
    virtual counted_ptr<iWebBrowser> GetForegroundWebBrowser(const CStdStr& commandName, HWND window) = 0;
};

// The one registry of browser families: owns one factory per family, asked in a fixed order.
class WBS_API cWebBrowserFactoryList : public iWebBrowserFactoryList {
public:
    cWebBrowserFactoryList();
    virtual ~cWebBrowserFactoryList();
    cWebBrowserFactoryList(const cWebBrowserFactoryList&) = delete;
    // Shares the other list's factories: this list's own factories are dropped, not deleted.
    cWebBrowserFactoryList& operator=(const cWebBrowserFactoryList& other);

    // Null only when the list could not be made (no memory).
    static cWebBrowserFactoryList* Instance();

    const std::list<iWebBrowserFactory*>& GetBrowsers() const;
    counted_ptr<iWebBrowser> GetForegroundWebBrowser(const CStdStr& commandName, HWND window) override;
    counted_ptr<iWebBrowser> GetDefaultWebBrowser() override;

private:
    static std::unique_ptr<cWebBrowserFactoryList> Instantiate();
    static std::unique_ptr<cWebBrowserFactoryList> pInstance_;

    bool FindDefaultBrowserPath(CStdStr& commandLine) const;
    counted_ptr<iWebBrowser> FindForegroundWebBrowser(const CStdStr& commandName, HWND window);
    counted_ptr<iWebBrowser> FindDefaultWebBrowser();
    template <typename Factory>
    void Register();

    std::list<iWebBrowserFactory*> factories_;

    friend struct FactoryListAccess;
};

// Reaches the factory list's private parts for the command-line host and the tests: the
// default-browser command line, and dropping the instance. Also makes the driver of a browser
// family by its short name ("ie", "firefox", "netscape", "netscape8", "netscape7", "opera",
// "aol") whether or not that browser runs or is installed, so that its favorites and history can
// be read; empty for any other name.
struct WBS_API FactoryListAccess {
    static bool DefaultBrowserCommandLine(const cWebBrowserFactoryList& list, CStdStr& commandLine);
    static void DestroyInstance();
    static counted_ptr<iWebBrowser> FamilyBrowser(const CStdStr& family);
};
