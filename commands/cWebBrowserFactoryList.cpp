#include "cWebBrowserFactoryList.h"
#include "browsers/aol/cAOLWebBrowserFactory.h"
#include "browsers/chrome/cChromeBrowserFactory.h"
#include "browsers/firefox/cFirefoxWebBrowserFactory.h"
#include "browsers/generic/cGenericWebBrowserFactory.h"
#include "browsers/generic/cHelpBrowserFactory.h"
#include "browsers/ie/cIEWebBrowserFactory.h"
#include "browsers/netscape/cNetscapeWebBrowserFactory.h"
#include "browsers/opera/cOperaWebBrowserFactory.h"
#include "core/StringCase.h"
#include "tovutil/CProcessFinder.h"
#include "tovutil/CRegistry.h"
#include "tovutil/cVistaHelper.h"

namespace {
// Names of instant-messaging programs the suite shares with its other modules; nothing here reads them.
[[maybe_unused]] const wchar_t* const kMessengerNames[] = {L"Skype", L"AIM Triton", L"Yahoo! Messenger"};

const char kStartMenuInternetKey[] = "Software\\Clients\\StartMenuInternet";
const wchar_t kOpenCommandSuffix[] = L"\\shell\\open\\command";

CStdStr Widen(const char* ascii) {
    CStdStr wide;
    for (; *ascii; ++ascii) wide += static_cast<wchar_t>(static_cast<unsigned char>(*ascii));
    return wide;
}

// The command registered under HKLM for one browser client, lower-cased.
bool ReadClientCommand(const CStdStr& keyName, const CStdStr& clientName, CStdStr& commandLine) {
    CStdStr text;
    if (CRegistry::ReadString(HKEY_LOCAL_MACHINE, (keyName + L"\\" + clientName + kOpenCommandSuffix).c_str(), nullptr,
                              text) != ERROR_SUCCESS)
        return false;
    LowerCaseClassic(text);
    commandLine = text;
    return true;
}
}  // namespace

std::unique_ptr<cWebBrowserFactoryList> cWebBrowserFactoryList::pInstance_;

iWebBrowserFactoryList::~iWebBrowserFactoryList() = default;

cWebBrowserFactoryList::cWebBrowserFactoryList() {
    // The order is the tie-break between families: the first factory that claims a program wins.
    Register<cIEWebBrowserFactory>();
    Register<cOperaWebBrowserFactory>();
    Register<cAOLWebBrowserFactory>();
    Register<cFirefoxWebBrowserFactory>();
    Register<cNetscapeWebBrowserFactory>();
    Register<cGenericWebBrowserFactory>();
    Register<cHelpBrowserFactory>();
    Register<cChromeBrowserFactory>();
}

template <typename Factory>
void cWebBrowserFactoryList::Register() {
    std::unique_ptr<iWebBrowserFactory> factory(new Factory());
    factories_.push_back(factory.get());
    (void)factory.release();  // the list owns it now
}

cWebBrowserFactoryList::~cWebBrowserFactoryList() {
    for (iWebBrowserFactory* factory : factories_) delete factory;
    factories_.clear();
}

// Assignment shares the other list's factories and drops this list's own without deleting them,
// as hosts that copy the list expect; the two lists must then not both be destroyed.
cWebBrowserFactoryList& cWebBrowserFactoryList::operator=(const cWebBrowserFactoryList& other) {
    if (this != &other) factories_ = other.factories_;
    return *this;
}

std::unique_ptr<cWebBrowserFactoryList> cWebBrowserFactoryList::Instantiate() {
    return std::unique_ptr<cWebBrowserFactoryList>(new cWebBrowserFactoryList());
}

// Like every operation a host may call, these let nothing escape: without memory the answer is
// no instance, no driver.
cWebBrowserFactoryList* cWebBrowserFactoryList::Instance() {
    try {
        if (!pInstance_) pInstance_ = Instantiate();
    } catch (...) {
        return nullptr;
    }
    return pInstance_.get();
}

const std::list<iWebBrowserFactory*>& cWebBrowserFactoryList::GetBrowsers() const { return factories_; }

counted_ptr<iWebBrowser> cWebBrowserFactoryList::GetForegroundWebBrowser(const CStdStr& commandName, HWND window) {
    try {
        return FindForegroundWebBrowser(commandName, window);
    } catch (...) {
        return counted_ptr<iWebBrowser>();
    }
}

counted_ptr<iWebBrowser> cWebBrowserFactoryList::GetDefaultWebBrowser() {
    try {
        return FindDefaultWebBrowser();
    } catch (...) {
        return counted_ptr<iWebBrowser>();
    }
}

counted_ptr<iWebBrowser> cWebBrowserFactoryList::FindForegroundWebBrowser(const CStdStr& commandName, HWND window) {
    CProcessFinder* finder = CProcessFinder::Instance(true);
    if (finder == nullptr) return counted_ptr<iWebBrowser>();
    if (window == nullptr) window = ::GetForegroundWindow();
    // Asked once here as the suite always has; each factory asks again for itself, and within
    // this scope the finder answers them from this one lookup.
    const CProcessFinder::CommandScope oneLookup(*finder);
    (void)finder->GetForegroundProcessName(window);
    for (iWebBrowserFactory* factory : factories_) {
        iWebBrowser* out = nullptr;
        if (factory->CreateBrowser(window, finder, out, commandName)) return counted_ptr<iWebBrowser>(out);
    }
    return counted_ptr<iWebBrowser>();
}

counted_ptr<iWebBrowser> cWebBrowserFactoryList::FindDefaultWebBrowser() {
    CStdStr commandLine;
    if (!FindDefaultBrowserPath(commandLine)) return counted_ptr<iWebBrowser>();
    for (iWebBrowserFactory* factory : factories_) {
        iWebBrowser* out = nullptr;
        if (factory->IsBrowserProcess(commandLine, out)) return counted_ptr<iWebBrowser>(out);
    }
    return counted_ptr<iWebBrowser>();
}

bool cWebBrowserFactoryList::FindDefaultBrowserPath(CStdStr& commandLine) const {
    const CStdStr keyName = Widen(kStartMenuInternetKey);
    cVistaHelper vistaHelper;
    // The user's choice first, then the machine's; the client's command is always the one
    // registered machine-wide. The machine's key is opened only when the user's choice fails.
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        CRegistry clients;
        CStdStr clientName;
        if (clients.Open(root, keyName.c_str()) == ERROR_SUCCESS &&
            clients.ReadStringValue(nullptr, clientName) == ERROR_SUCCESS &&
            ReadClientCommand(keyName, clientName, commandLine))
            return true;
    }
    return false;
}
