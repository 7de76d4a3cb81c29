// The fixture browser records what the driver tests rely on; these tests pin that record.
#include <gtest/gtest.h>
#include <windows.h>
#include <ddeml.h>
#include <string>
#include <vector>
#include "core/ScopedDdeConversation.h"
#include "core/ScopedDdeData.h"
#include "core/ScopedDdeInstance.h"
#include "core/ScopedDdeString.h"
#include "core/ScopedHandle.h"
#include "support/StubBrowser.h"
#include "support/TestPaths.h"

using wbstest::StubBrowser;

namespace {

const DWORD kEventTimeoutMs = 5000;

// One synchronous CF_TEXT request, the way a browser-control client asks; returns the bytes of the
// reply (its terminating zero included) or nothing.
std::string DdeRequestText(const wchar_t* service, const wchar_t* topic, const wchar_t* item) {
    ScopedDdeInstance instance;
    if (::DdeInitializeW(instance.Receive(),
                         [](UINT, UINT, HCONV, HSZ, HSZ, HDDEDATA, ULONG_PTR, ULONG_PTR) -> HDDEDATA { return nullptr; },
                         APPCMD_CLIENTONLY, 0) != DMLERR_NO_ERROR)
        return {};
    const ScopedDdeString serviceName(instance.get(), service, CP_WINUNICODE);
    const ScopedDdeString topicName(instance.get(), topic, CP_WINUNICODE);
    const ScopedDdeString itemName(instance.get(), item, CP_WINUNICODE);
    const ScopedDdeConversation conversation(::DdeConnect(instance.get(), serviceName.get(), topicName.get(), nullptr));
    if (!conversation) return {};
    const ScopedDdeData data(::DdeClientTransaction(nullptr, 0, conversation.get(), itemName.get(), CF_TEXT,
                                                    XTYP_REQUEST, kEventTimeoutMs, nullptr));
    if (!data) return {};
    std::string reply(::DdeGetData(data.get(), nullptr, 0, 0), '\0');
    ::DdeGetData(data.get(), reinterpret_cast<BYTE*>(reply.data()), static_cast<DWORD>(reply.size()), 0);
    return reply;
}

}  // namespace

TEST(StubBrowser, AnswersAppCommandsAsToldAndLogsWindowCodeAndWParam) {
    StubBrowser handling, ignoring;
    ASSERT_TRUE(handling.Start(L"iexplore.exe", {L"--window", L"IEFrame", L"Handled page"}));
    ASSERT_TRUE(ignoring.Start(L"opera.exe", {L"--window", L"OpWindow", L"Unhandled", L"--appcommand", L"unhandled"}));

    HWND handled = handling.Window(L"IEFrame");
    HWND unhandled = ignoring.Window(L"OpWindow");
    ASSERT_NE(handled, nullptr);
    EXPECT_EQ(handled, handling.MainWindow());
    EXPECT_NE(::SendMessageW(handled, WM_APPCOMMAND, reinterpret_cast<WPARAM>(handled), MAKELPARAM(0, 3)), 0);
    EXPECT_EQ(::SendMessageW(unhandled, WM_APPCOMMAND, 0x1234, MAKELPARAM(0, 7 | FAPPCOMMAND_KEY)), 0);

    const auto seen = handling.Log().WaitForEvent(L"appcommand", kEventTimeoutMs);
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->Window(L"hwnd"), handled);
    EXPECT_EQ(seen->Field(L"class"), L"IEFrame");
    EXPECT_EQ(seen->Number(L"code"), 3u);
    EXPECT_EQ(seen->Window(L"wparam"), handled);
    const auto ignored = ignoring.Log().WaitForEvent(L"appcommand", kEventTimeoutMs);
    ASSERT_TRUE(ignored);
    EXPECT_EQ(ignored->Number(L"code"), 7u);  // the device bits are not part of the code
    EXPECT_EQ(ignored->Number(L"wparam"), 0x1234u);
    EXPECT_EQ(ignored->Number(L"handled"), 0u);

    // The default log sits beside the copy and opens with the verbatim command line and folder.
    EXPECT_EQ(handling.Log().Path(), wbstest::JoinPath(handling.Folder(), L"iexplore.log"));
    const std::wstring commandLine =
        StubBrowser::CommandLine(handling.ProgramPath(), {L"--window", L"IEFrame", L"Handled page"});
    const auto lines = handling.Log().Events();
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[0].name, L"commandline");
    EXPECT_EQ(lines[0].Field(L"text"), commandLine);
    EXPECT_EQ(lines[1].Field(L"path"), handling.Folder());
    EXPECT_EQ(lines[2].Number(L"pid"), handling.ProcessId());
}

TEST(StubBrowser, DdeServerAnswersWindowInfoAndRecordsOpenUrlItems) {
    const std::wstring reply = L"\"http://example.test/a b\",\"Title, \"quoted\"\"";
    StubBrowser browser;
    ASSERT_TRUE(browser.Start(L"iexplore.exe", {L"--window", L"IEFrame", L"t", L"--dde", L"IEXPLORE",
                                                L"--dde-reply", reply}));
    EXPECT_EQ(DdeRequestText(L"IEXPLORE", L"WWW_GetWindowInfo", L"0xFFFFFFFF"),
              std::string("\"http://example.test/a b\",\"Title, \"quoted\"\"") + '\0');
    EXPECT_FALSE(DdeRequestText(L"IEXPLORE", L"WWW_OpenURL", L"http://example.test/?q=1,2").empty());

    const auto requests = browser.Log().Events(L"dde-request");
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[0].Field(L"topic"), L"WWW_GetWindowInfo");
    EXPECT_EQ(requests[0].Field(L"item"), L"0xFFFFFFFF");
    EXPECT_EQ(requests[1].Field(L"topic"), L"WWW_OpenURL");
    EXPECT_EQ(requests[1].Field(L"item"), L"http://example.test/?q=1,2");

    // A generated reply has exactly the asked length; a refusing server gives nothing.
    StubBrowser longReply, refusing;
    ASSERT_TRUE(longReply.Start(L"firefox.exe", {L"--dde", L"Firefox", L"--dde-reply-length", L"2000"}));
    const std::string generated = DdeRequestText(L"Firefox", L"WWW_GetWindowInfo", L"0xFFFFFFFF");
    ASSERT_EQ(generated.size(), 2001u);
    EXPECT_EQ(generated.substr(0, 3), "abc");
    EXPECT_EQ(generated[1999], 'a' + 1999 % 26);
    ASSERT_TRUE(refusing.Start(L"opera.exe", {L"--dde", L"Opera", L"--dde-mode", L"refuse"}));
    EXPECT_TRUE(DdeRequestText(L"Opera", L"WWW_GetWindowInfo", L"0xFFFFFFFF").empty());
}

TEST(StubBrowser, AolTreeEnumeratesInLoggedOrderAndRecordsPostedClicks) {
    StubBrowser aol;
    ASSERT_TRUE(aol.Start(L"waol.exe", {L"--window", L"AOL Frame25", L"AOL", L"--aol-tree", L"http://aol.test/",
                                        L"48", L"--mdi-document", L"Document title"}));
    HWND inner = aol.Window(L"_AOL_Toolbar");
    ASSERT_NE(inner, nullptr);
    std::vector<HWND> walk;
    ::EnumChildWindows(
        inner,
        [](HWND child, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&walk));
    ASSERT_EQ(walk.size(), 50u);
    for (int position = 1; position <= 50; ++position) EXPECT_EQ(aol.ToolbarItem(position), walk[position - 1]);
    EXPECT_EQ(walk[0], aol.Window(L"_AOL_Combobox"));

    wchar_t text[64] = {};
    ::SendMessageW(aol.Window(L"Edit"), WM_GETTEXT, 64, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, L"http://aol.test/");
    HWND active = reinterpret_cast<HWND>(::SendMessageW(aol.Window(L"StubMdiClient"), WM_MDIGETACTIVE, 0, 0));
    ::GetWindowTextW(active, text, 64);
    EXPECT_STREQ(text, L"Document title");

    HWND item48 = aol.ToolbarItem(48);
    ASSERT_TRUE(::PostMessageW(item48, WM_LBUTTONDOWN, 1, 0x50005));
    const auto click = aol.Log().WaitForEvent(L"lbuttondown", kEventTimeoutMs);
    ASSERT_TRUE(click);
    EXPECT_EQ(click->Window(L"hwnd"), item48);
    EXPECT_EQ(click->Number(L"lparam"), 0x50005u);
}

TEST(StubBrowser, CopyStartedByAnotherProgramFollowsItsArgumentsFileAndLogsBesideItself) {
    StubBrowser installed;
    const std::wstring program = installed.Install(L"firefox.exe", {L"--window", L"MozillaUIWindowClass", L"Fx"});
    ASSERT_FALSE(program.empty());

    // Started the way the library starts a browser: its own command line, another folder.
    std::wstring commandLine = L"\"" + program + L"\" -url \"http://example.test/\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    ASSERT_TRUE(::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                 wbstest::TempFolder().c_str(), &startup, &started));
    ScopedHandle process(started.hProcess), thread(started.hThread);

    const wbstest::StubLog log = wbstest::StubLog::ForProgram(program);
    ASSERT_TRUE(log.WaitForEvent(L"ready", kEventTimeoutMs));
    EXPECT_EQ(log.Events(L"commandline").at(0).Field(L"text"), commandLine);
    EXPECT_EQ(log.Events(L"cwd").at(0).Field(L"path"), wbstest::TempFolder());
    const auto windows = log.Windows(started.dwProcessId);
    ASSERT_EQ(windows.size(), 1u);
    EXPECT_EQ(windows[0].className, L"MozillaUIWindowClass");

    installed.CloseAll();  // closes copies it did not start, too
    EXPECT_EQ(::WaitForSingleObject(process.get(), 0), WAIT_OBJECT_0);
}
