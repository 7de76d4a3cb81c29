// The factory list: its one instance and registration order, and the default browser read from
// the StartMenuInternet registration.
#include <gtest/gtest.h>
#include <windows.h>
#include <typeinfo>
#include <vector>
#include "WebBrowserSupport.h"
#include "browsers/firefox/cFirefoxWebBrowserFactory.h"
#include "browsers/generic/cGenericWebBrowserFactory.h"
#include "browsers/generic/cHelpBrowser.h"
#include "browsers/generic/cHelpBrowserFactory.h"
#include "browsers/ie/cIEWebBrowserFactory.h"
#include "browsers/netscape/cNetscapeWebBrowserFactory.h"
#include "core/ScopedRegKey.h"
#include "tovutil/CProcessFinder.h"
#include "support/ProcessState.h"
#include "support/RegistryGuard.h"
#include "support/TestWindow.h"

using namespace wbstest;

namespace {
const wchar_t kClients[] = L"Software\\Clients\\StartMenuInternet";

std::wstring CommandKey(const std::wstring& client) {
    return std::wstring(kClients) + L"\\" + client + L"\\shell\\open\\command";
}

void SetDefault(HKEY root, const std::wstring& subKey, const wchar_t* value) {
    HKEY key = nullptr;
    ASSERT_EQ(::RegCreateKeyExW(root, subKey.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr), ERROR_SUCCESS);
    ScopedRegKey owned(key);
    ASSERT_EQ(::RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value),
                               static_cast<DWORD>((wcslen(value) + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
}

class FactoryListTest : public ::testing::Test {
protected:
    void SetUp() override { ResetProcessWideState(); }
    void TearDown() override { ResetProcessWideState(); }
};

// Every registration the default-browser tests touch, put back as it was afterwards.
class DefaultBrowserTest : public FactoryListTest {
protected:
    RegistryGuard userChoice{HKEY_CURRENT_USER, kClients, L""};
    RegistryGuard machineChoice{HKEY_LOCAL_MACHINE, kClients, L""};
    RegistryGuard userClientCommand{HKEY_LOCAL_MACHINE, CommandKey(L"WbsUserClient"), L""};
    RegistryGuard machineClientCommand{HKEY_LOCAL_MACHINE, CommandKey(L"WbsMachineClient"), L""};
    RegistryGuard userOnlyCommand{HKEY_CURRENT_USER, CommandKey(L"WbsUserClient"), L""};

    static void Clear(HKEY root, const wchar_t* subKey) {
        HKEY key = nullptr;
        if (::RegOpenKeyExW(root, subKey, 0, KEY_SET_VALUE, &key) != ERROR_SUCCESS) return;
        ::RegDeleteValueW(key, nullptr);
        ::RegCloseKey(key);
    }
    void SetUp() override {
        FactoryListTest::SetUp();
        Clear(HKEY_CURRENT_USER, kClients);
        Clear(HKEY_LOCAL_MACHINE, kClients);
    }
};
}  // namespace

TEST_F(FactoryListTest, OneInstanceHoldsTheFactoriesInRegistrationOrder) {
    cWebBrowserFactoryList* list = cWebBrowserFactoryList::Instance();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(cWebBrowserFactoryList::Instance(), list);

    std::vector<const std::type_info*> types;
    for (iWebBrowserFactory* factory : list->GetBrowsers()) types.push_back(&typeid(*factory));
    const std::vector<const std::type_info*> expected = {
        &typeid(cIEWebBrowserFactory), &typeid(cFirefoxWebBrowserFactory), &typeid(cNetscapeWebBrowserFactory),
        &typeid(cGenericWebBrowserFactory), &typeid(cHelpBrowserFactory)};
    EXPECT_EQ(types, expected);
}

TEST_F(FactoryListTest, AssignmentSharesTheOtherListsFactories) {
    cWebBrowserFactoryList* instance = cWebBrowserFactoryList::Instance();
    // The copy shares the instance's factories once assigned; destroying it too would delete them
    // a second time, so it is left to the end of the process on purpose.
    auto* copy = new cWebBrowserFactoryList();
    *copy = *instance;
    ASSERT_EQ(copy->GetBrowsers().size(), instance->GetBrowsers().size());
    auto mine = copy->GetBrowsers().begin();
    for (iWebBrowserFactory* factory : instance->GetBrowsers()) EXPECT_EQ(*mine++, factory);
}

TEST_F(FactoryListTest, UnknownProgramsGiveNoDriverAndProgramPathsAreMatchedAsWritten) {
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());
    EXPECT_FALSE(cWebBrowserFactoryList::Instance()->GetForegroundWebBrowser(CStdStr(L"BACK"), nullptr));
    EXPECT_FALSE(cWebBrowserFactoryList::Instance()->GetForegroundWebBrowser(CStdStr(L"BACK"), front.Handle()));

    // The generic factory claims nothing, neither a window nor a program.
    cGenericWebBrowserFactory generic;
    iWebBrowser* out = nullptr;
    EXPECT_FALSE(generic.CreateBrowser(front.Handle(), CProcessFinder::Instance(true), out, CStdStr(L"BACK")));
    EXPECT_FALSE(generic.IsBrowserProcess(CStdStr(L"c:\\tools\\hh.exe"), out));
    EXPECT_EQ(out, nullptr);

    // The help viewer's program is searched for in the path as written: capitals do not match.
    cHelpBrowserFactory help;
    EXPECT_FALSE(help.IsBrowserProcess(CStdStr(L"C:\\Windows\\HH.EXE"), out));
    EXPECT_EQ(out, nullptr);
    ASSERT_TRUE(help.IsBrowserProcess(CStdStr(L"\"c:\\windows\\hh.exe\" -800"), out));
    counted_ptr<iWebBrowser> made(out);
    EXPECT_EQ(dynamic_cast<cHelpBrowser&>(*made).Window(), nullptr);
}

TEST_F(DefaultBrowserTest, TheUsersClientWinsAndItsCommandIsReadMachineWideInLowerCase) {
    SetDefault(HKEY_CURRENT_USER, kClients, L"WbsUserClient");
    SetDefault(HKEY_LOCAL_MACHINE, kClients, L"WbsMachineClient");
    SetDefault(HKEY_LOCAL_MACHINE, CommandKey(L"WbsUserClient"), L"\"C:\\Help Viewer\\HH.EXE\" -Start");
    SetDefault(HKEY_LOCAL_MACHINE, CommandKey(L"WbsMachineClient"), L"C:\\Other\\other.exe");

    CStdStr commandLine;
    ASSERT_TRUE(FactoryListAccess::DefaultBrowserCommandLine(*cWebBrowserFactoryList::Instance(), commandLine));
    EXPECT_EQ(commandLine, L"\"c:\\help viewer\\hh.exe\" -start");

    counted_ptr<iWebBrowser> browser = cWebBrowserFactoryList::Instance()->GetDefaultWebBrowser();
    auto* help = dynamic_cast<cHelpBrowser*>(browser.get());
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->Window(), nullptr);
}

TEST_F(DefaultBrowserTest, TheMachinesClientDecidesWhenTheUsersIsMissingOrHasNoMachineCommand) {
    SetDefault(HKEY_LOCAL_MACHINE, kClients, L"WbsMachineClient");
    SetDefault(HKEY_LOCAL_MACHINE, CommandKey(L"WbsMachineClient"), L"C:\\Windows\\HH.exe %1");
    CStdStr commandLine;
    ASSERT_TRUE(FactoryListAccess::DefaultBrowserCommandLine(*cWebBrowserFactoryList::Instance(), commandLine));
    EXPECT_EQ(commandLine, L"c:\\windows\\hh.exe %1");

    // A user's client whose command exists only under the user's own key is not taken: the
    // command is always the machine-wide one.
    SetDefault(HKEY_CURRENT_USER, kClients, L"WbsUserClient");
    SetDefault(HKEY_CURRENT_USER, CommandKey(L"WbsUserClient"), L"c:\\user\\hh.exe");
    ASSERT_TRUE(FactoryListAccess::DefaultBrowserCommandLine(*cWebBrowserFactoryList::Instance(), commandLine));
    EXPECT_EQ(commandLine, L"c:\\windows\\hh.exe %1");
    EXPECT_NE(dynamic_cast<cHelpBrowser*>(cWebBrowserFactoryList::Instance()->GetDefaultWebBrowser().get()), nullptr);
}

TEST_F(DefaultBrowserTest, NoRegistrationOrAnUnknownProgramGivesNoDriverAndCommandsFail) {
    TestWindow front(L"WbsUnrecognisedFront");
    ASSERT_TRUE(front.MakeForeground());
    CStdStr commandLine(L"unchanged");
    EXPECT_FALSE(FactoryListAccess::DefaultBrowserCommandLine(*cWebBrowserFactoryList::Instance(), commandLine));
    EXPECT_EQ(commandLine, L"unchanged");
    EXPECT_FALSE(cWebBrowserFactoryList::Instance()->GetDefaultWebBrowser());
    EXPECT_FALSE(BrowserSearch());
    EXPECT_FALSE(BrowserShowFavorites());
    EXPECT_FALSE(GoToWebAddress(CStdStr(L"http://example.invalid/"), true, nullptr));
    EXPECT_FALSE(GoToBrowserHome(nullptr));

    SetDefault(HKEY_LOCAL_MACHINE, kClients, L"WbsMachineClient");
    SetDefault(HKEY_LOCAL_MACHINE, CommandKey(L"WbsMachineClient"), L"C:\\Tools\\notabrowser.exe");
    EXPECT_TRUE(FactoryListAccess::DefaultBrowserCommandLine(*cWebBrowserFactoryList::Instance(), commandLine));
    EXPECT_FALSE(cWebBrowserFactoryList::Instance()->GetDefaultWebBrowser());
    EXPECT_TRUE(front.AppCommands().empty());
}

TEST_F(DefaultBrowserTest, SearchFallsBackOnTheDefaultHelpViewerWhichAddressesTheWindowUnderThePointer) {
    SetDefault(HKEY_LOCAL_MACHINE, kClients, L"WbsMachineClient");
    SetDefault(HKEY_LOCAL_MACHINE, CommandKey(L"WbsMachineClient"), L"hh.exe");
    TestWindow pointed(L"WbsUnderThePointer", TestWindow::UnderThePointer(true));
    ASSERT_TRUE(pointed.PointAt());
    ASSERT_TRUE(pointed.MakeForeground());

    // The help viewer made for the default browser has no window and no program to start, so
    // its commands go to whatever lies under the pointer; an address cannot be opened.
    EXPECT_TRUE(BrowserSearch());
    EXPECT_TRUE(BrowserShowFavorites());
    EXPECT_EQ(pointed.AppCommands(), (std::vector<int>{5, 6}));
    EXPECT_FALSE(GoToWebAddress(CStdStr(L"http://example.invalid/"), false, nullptr));
    EXPECT_FALSE(GoToBrowserHome(nullptr));
}
