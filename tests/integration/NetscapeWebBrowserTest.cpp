// The Netscape drivers and factory: the programs recognised in front (Netscape 7 never), the
// default browser told apart by the installed program's file version, addresses pasted into a
// Netscape in front or handed to a started one after "-url ", and the markup class's program path.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include <typeinfo>
#include <vector>
#include "browsers/netscape/cNetscape7WebBrowser.h"
#include "browsers/netscape/cNetscape8WebBrowser.h"
#include "browsers/netscape/cNetscapeWebBrowser.h"
#include "browsers/netscape/cNetscapeWebBrowserFactory.h"
#include "counted_ptr.h"
#include "support/ClipboardText.h"
#include "support/InputTest.h"
#include "support/KeyStrokes.h"
#include "support/RegistryGuard.h"
#include "support/RegistryValues.h"
#include "support/StubBrowser.h"
#include "support/TestPaths.h"
#include "support/TestWindow.h"
#include "support/VersionResource.h"
#include "support/WaitFor.h"
#include "tovutil/CProcessFinder.h"

using namespace wbstest;

namespace {
constexpr DWORD kBound = 10000;
constexpr unsigned kCtrl = 0x11;
const std::wstring kAppPaths = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";
const wchar_t kMarkup[] = L"NetscapeMarkup\\CLSID";
const wchar_t kThrowawayClass[] = L"{5B0E3C1A-7D2F-4A86-9E1B-0C4D2F6A8E31}";

// "App Paths" of one program name, machine-wide and per user, kept as they were and emptied for the test.
class AppPathsScope {
public:
    explicit AppPathsScope(const std::wstring& program)
        : key_(kAppPaths + program), machine_(HKEY_LOCAL_MACHINE, key_, L""), user_(HKEY_CURRENT_USER, key_, L"") {
        Unregister();
    }
    void Register(const std::wstring& path) { EXPECT_TRUE(SetDefaultValue(HKEY_LOCAL_MACHINE, key_, path)); }
    void Unregister() {
        ::RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, key_.c_str(), nullptr);
        ::RegDeleteKeyValueW(HKEY_CURRENT_USER, key_.c_str(), nullptr);
    }

private:
    std::wstring key_;
    RegistryGuard machine_, user_;
};

std::vector<std::wstring> Fields(const StubBrowser& stub, const wchar_t* event, const wchar_t* field) {
    std::vector<std::wstring> values;
    for (const LogEvent& line : stub.Log().Events(event)) values.push_back(line.Field(field));
    return values;
}

// The driver type a factory result holds, or "none".
std::string Made(iWebBrowser* out) {
    counted_ptr<iWebBrowser> owned(out);
    return owned ? typeid(*owned).name() : "none";
}
const std::string kNavigator = typeid(cNetscapeWebBrowser).name();
const std::string kNetscape8 = typeid(cNetscape8WebBrowser).name();
const std::string kNetscape7 = typeid(cNetscape7WebBrowser).name();

class NetscapeWebBrowserTest : public InputTest {};
}  // namespace

TEST_F(NetscapeWebBrowserTest, NavigatorAndNetscape8AreRecognisedInFrontButNetscape7NeverIs) {
    cNetscapeWebBrowserFactory factory;
    CProcessFinder* finder = CProcessFinder::Instance(true);
    for (const auto& [program, expected] : {std::pair{L"NAVIGATOR.EXE", kNavigator}, std::pair{L"Netscape.exe", kNetscape8},
                                            std::pair{L"netscp.exe", std::string("none")},
                                            std::pair{L"navigator6.exe", std::string("none")}}) {
        StubBrowser stub;
        ASSERT_TRUE(stub.Start(program, {L"--no-foreground"}));
        iWebBrowser* out = nullptr;
        const bool claimed = factory.CreateBrowser(stub.MainWindow(), finder, out, CStdStr(L"BACK"));
        EXPECT_EQ(claimed, out != nullptr);
        if (out != nullptr) {
            EXPECT_EQ(dynamic_cast<cGenericWebBrowser*>(out)->Window(), stub.MainWindow());
        }
        EXPECT_EQ(Made(out), expected) << program;
    }
    iWebBrowser* out = nullptr;
    EXPECT_FALSE(factory.CreateBrowser(nullptr, finder, out, CStdStr(L"BACK")));
    EXPECT_EQ(cNetscapeWebBrowser().ServiceName(), L"Netscape");
    EXPECT_EQ(cNetscape8WebBrowser().ServiceName(), L"Netscape");
    EXPECT_EQ(cNetscape7WebBrowser().ServiceName(), L"Netscp");
}

TEST_F(NetscapeWebBrowserTest, DefaultBrowserIsNetscape7OnlyWhenTheInstalledProgramIsVersion7) {
    AppPathsScope navigator(L"navigator.exe"), netscp(L"Netscp.exe");
    StubBrowser installed;
    const std::wstring program = installed.Install(L"netscp.exe");
    ASSERT_FALSE(program.empty());
    cNetscapeWebBrowserFactory factory;
    const CStdStr command(L"\"c:\\progra~1\\netscape\\naviga~1.exe\" -url \"%1\"");
    iWebBrowser* out = nullptr;

    EXPECT_FALSE(factory.IsBrowserProcess(command, out));  // nothing installed
    EXPECT_EQ(out, nullptr);

    ASSERT_TRUE(StampFileVersion(program, 7, 2, 0, 0));
    netscp.Register(program);
    EXPECT_TRUE(factory.IsBrowserProcess(command, out));
    EXPECT_EQ(Made(out), kNetscape7);
    // The path is only searched for the names, in lower case; the installed program decides.
    out = nullptr;
    EXPECT_FALSE(factory.IsBrowserProcess(CStdStr(L"C:\\PROGRA~1\\NETSCAPE\\NAVIGA~1.EXE"), out));
    EXPECT_EQ(out, nullptr);
    EXPECT_FALSE(factory.IsBrowserProcess(CStdStr(L"c:\\netscape\\netscp.exe"), out));
    EXPECT_TRUE(factory.IsBrowserProcess(CStdStr(L"d:\\navigator\\other.exe"), out));
    EXPECT_EQ(Made(out), kNetscape7);

    // Version 8, and a program without a version, are driven as Navigator.
    ASSERT_TRUE(StampFileVersion(program, 8, 0, 0, 0));
    EXPECT_TRUE(factory.IsBrowserProcess(command, out));
    EXPECT_EQ(Made(out), kNavigator);
    navigator.Register(StubBrowserProgram());
    EXPECT_TRUE(factory.IsBrowserProcess(command, out));
    EXPECT_EQ(Made(out), kNavigator);

    // Navigator's registration is asked first.
    ASSERT_TRUE(StampFileVersion(program, 7, 0, 0, 0));
    EXPECT_TRUE(factory.IsBrowserProcess(command, out));
    EXPECT_EQ(Made(out), kNavigator);
    navigator.Register(program);
    EXPECT_TRUE(factory.IsBrowserProcess(command, out));
    EXPECT_EQ(Made(out), kNetscape7);
}

TEST_F(NetscapeWebBrowserTest, InFrontTheAddressIsPastedUnlessAnotherProgramHoldsTheClipboard) {
    CProcessFinder::Instance(true);
    StubBrowser navigator;
    ASSERT_TRUE(navigator.Start(L"navigator.exe", {L"--window", L"MozillaUIWindowClass", L"Navigator"}));
    ASSERT_TRUE(WaitFor([&] { return ::GetForegroundWindow() == navigator.MainWindow(); }, kBound));
    SettledKeys();

    cNetscapeWebBrowser browser;
    EXPECT_TRUE(browser.GoToWebAddress(CStdStr(L"http://example.invalid/pasted")));
    EXPECT_EQ(ClipboardText(), L"http://example.invalid/pasted");
    EXPECT_EQ(SettledKeys(), Joined({Shortcut(kCtrl, 'L'), Shortcut(kCtrl, 'V'), Tap(VK_RETURN)}));
    // The keys went to the browser in front, not to a started one.
    EXPECT_EQ(navigator.Log().ProcessIds().size(), 1u);

    StubBrowser netscape8;
    ASSERT_TRUE(netscape8.Start(L"netscape.exe", {L"--hold-clipboard"}));
    ASSERT_TRUE(netscape8.Log().WaitForEvent(L"clipboard-held", kBound, [](const LogEvent& e) { return e.Number(L"ok") == 1; }));
    ASSERT_TRUE(WaitFor([&] { return ::GetForegroundWindow() == netscape8.MainWindow(); }, kBound));
    EXPECT_FALSE(cNetscape8WebBrowser().GoToWebAddress(CStdStr(L"http://example.invalid/held")));
    EXPECT_EQ(SettledKeys(), std::vector<KeyStroke>{});
}

TEST_F(NetscapeWebBrowserTest, NotInFrontTheRegisteredProgramIsStartedWithUrlSwitchInItsFolder) {
    CProcessFinder::Instance(true);
    AppPathsScope navigatorPath(L"navigator.exe"), netscp(L"Netscp.exe"), netscape(L"netscape.exe");
    TestWindow front(L"WbsNetscapeStartFront");
    ASSERT_TRUE(front.MakeForeground());
    EXPECT_FALSE(cNetscape8WebBrowser().GoToWebAddress(CStdStr(L"http://example.invalid/")));  // not installed

    StubBrowser navigator;
    const std::wstring program = navigator.Install(L"navigator.exe", {L"--window", L"MozillaUIWindowClass", L"Navigator"});
    navigatorPath.Register(program);
    EXPECT_TRUE(cNetscapeWebBrowser().GoToWebAddress(CStdStr(L"http://example.invalid/a b")));
    ASSERT_TRUE(navigator.Log().WaitForEvent(L"syscommand", kBound));
    EXPECT_EQ(navigator.Log().Events(L"syscommand").front().Number(L"wparam"), SC_RESTORE);
    ASSERT_TRUE(front.MakeForeground());
    EXPECT_TRUE(cNetscapeWebBrowser().GoToWebAddress(CStdStr()));
    ASSERT_TRUE(WaitFor([&] { return navigator.Log().Events(L"ready").size() == 2; }, kBound));
    EXPECT_EQ(Fields(navigator, L"commandline", L"text"),
              (std::vector<std::wstring>{L"\"" + program + L"\" -url http://example.invalid/a b", L"\"" + program + L"\" "}));
    EXPECT_EQ(Fields(navigator, L"cwd", L"path"), (std::vector<std::wstring>{navigator.Folder(), navigator.Folder()}));
    navigator.CloseAll();

    // Netscape 7's window is left as it is: a message posted after the start arrives with nothing before it.
    StubBrowser netscape7;
    netscp.Register(netscape7.Install(L"Netscp.exe", {L"--window", L"MozillaUIWindowClass", L"Netscape 7"}));
    ASSERT_TRUE(front.MakeForeground());
    EXPECT_TRUE(cNetscape7WebBrowser().GoToWebAddress(CStdStr()));
    ASSERT_TRUE(netscape7.Log().WaitForEvent(L"ready", kBound));
    const HWND started = netscape7.Log().MainWindow();
    ::PostMessageW(started, WM_APPCOMMAND, reinterpret_cast<WPARAM>(started), MAKELPARAM(0, 7));
    ASSERT_TRUE(netscape7.Log().WaitForEvent(L"appcommand", kBound));
    EXPECT_TRUE(netscape7.Log().Events(L"syscommand").empty());
    SettledKeys();
}

TEST_F(NetscapeWebBrowserTest, ProgramPathIsAlwaysEmptyAndTheMarkupServerIsOverwritten) {
    const std::wstring server = std::wstring(L"CLSID\\") + kThrowawayClass + L"\\LocalServer32";
    RegistryGuard markup(HKEY_CLASSES_ROOT, kMarkup, L"");
    RegistryGuard serverGuard(HKEY_CLASSES_ROOT, server, L"");
    ::RegDeleteKeyValueW(HKEY_CLASSES_ROOT, kMarkup, nullptr);

    CStdStr path(L"left over"), arguments(L"kept");
    EXPECT_FALSE(cNetscapeWebBrowser().GetProgramPath(path, arguments));  // no markup class

    ASSERT_TRUE(SetDefaultValue(HKEY_CLASSES_ROOT, kMarkup, kThrowawayClass));
    EXPECT_FALSE(cNetscape8WebBrowser().GetProgramPath(path, arguments));  // no local server key
    EXPECT_EQ(path, L"left over");

    ASSERT_TRUE(SetDefaultValue(HKEY_CLASSES_ROOT, server, L"\"C:\\Program Files\\Netscape\\netscp.exe\" -markup"));
    EXPECT_TRUE(cNetscape7WebBrowser().GetProgramPath(path, arguments));
    EXPECT_EQ(path, L"");
    EXPECT_EQ(arguments, L"kept");
    EXPECT_EQ(ReadDefaultValue(HKEY_CLASSES_ROOT, server), L"");
}
