// wbs.exe, the command-line host: run as a user's hotkey tool would run it, its output and exit
// code read back.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include <vector>
#include "core/ScopedFileHandle.h"
#include "core/ScopedHandle.h"
#include "support/ProcessState.h"
#include "support/RegistryGuard.h"
#include "support/ScratchFolder.h"
#include "support/StubBrowser.h"
#include "support/TestPaths.h"
#include "support/WaitFor.h"
#include "tovutil/CRegistry.h"

using namespace wbstest;

namespace {
constexpr DWORD kBound = 15000;
const wchar_t kTypedUrls[] = L"Software\\Microsoft\\Internet Explorer\\TypedURLs";

struct Outcome {
    DWORD exitCode = 0xFFFFFFFF;
    std::string output;  // standard output and error together, as UTF-8, line ends as "\n"
};

Outcome RunWbs(const std::vector<std::wstring>& arguments) {
    Outcome outcome;
    SECURITY_ATTRIBUTES inherit = {sizeof inherit, nullptr, TRUE};
    HANDLE readEnd = nullptr, writeEnd = nullptr;
    if (!::CreatePipe(&readEnd, &writeEnd, &inherit, 0)) return outcome;
    ScopedHandle reader(readEnd), writer(writeEnd);
    ::SetHandleInformation(reader.get(), HANDLE_FLAG_INHERIT, 0);

    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = writer.get();
    startup.hStdError = writer.get();
    PROCESS_INFORMATION process = {};
    std::wstring commandLine = StubBrowser::CommandLine(JoinPath(ExecutableFolder(), L"wbs.exe"), arguments);
    if (!::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr,
                          &startup, &process))
        return outcome;
    ScopedHandle processHandle(process.hProcess), thread(process.hThread);
    writer.reset();  // the child holds the only write end now: the read below ends when it exits

    char buffer[4096];
    DWORD read = 0;
    while (::ReadFile(reader.get(), buffer, sizeof buffer, &read, nullptr) && read > 0)
        for (DWORD i = 0; i < read; ++i)
            if (buffer[i] != '\r') outcome.output += buffer[i];
    if (::WaitForSingleObject(processHandle.get(), kBound) == WAIT_OBJECT_0)
        ::GetExitCodeProcess(processHandle.get(), &outcome.exitCode);
    return outcome;
}

std::wstring Hex(HWND window) {
    wchar_t text[32];
    swprintf(text, 32, L"0x%llx", static_cast<unsigned long long>(reinterpret_cast<UINT_PTR>(window)));
    return text;
}

bool Contains(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

class WbsToolTest : public ::testing::Test {
protected:
    void SetUp() override {
        ResetProcessWideState();
        ::RegDeleteTreeW(HKEY_CURRENT_USER, kTypedUrls);
    }
    void TearDown() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, kTypedUrls); }
};
}  // namespace

TEST_F(WbsToolTest, BadUsageExitsWithTwoAndNamesTheProblem) {
    const struct {
        std::vector<std::wstring> arguments;
        const char* message;
    } cases[] = {
        {{}, "no command given"},
        {{L"go"}, "go takes exactly one URL"},
        {{L"back", L"extra"}, "unexpected argument extra"},
        {{L"frobnicate"}, "unknown command frobnicate"},
        {{L"--window", L"0x0", L"back"}, "--window takes a window handle"},
        {{L"--colour", L"back"}, "unknown option --colour"},
        {{L"list-history"}, "--browser <family> is needed"},
        {{L"list-favorites", L"--browser", L"mosaic"}, "unknown browser family mosaic"},
    };
    for (const auto& c : cases) {
        const Outcome outcome = RunWbs(c.arguments);
        EXPECT_EQ(outcome.exitCode, 2u) << outcome.output;
        EXPECT_TRUE(Contains(outcome.output, c.message)) << outcome.output;
    }
    const Outcome help = RunWbs({L"--help"});
    EXPECT_EQ(help.exitCode, 0u);
    EXPECT_TRUE(Contains(help.output, "list-favorites")) << help.output;
}

TEST_F(WbsToolTest, NamesAndDrivesTheInternetExplorerDriverOfAFrameWindow) {
    StubBrowser ie;
    ASSERT_TRUE(ie.Start(L"iexplore.exe", {L"--window", L"IEFrame", L"Internet Explorer", L"--no-foreground"}));
    const std::wstring window = Hex(ie.MainWindow());

    const Outcome which = RunWbs({L"--window", window, L"which"});
    EXPECT_EQ(which.exitCode, 0u);
    EXPECT_TRUE(Contains(which.output, "REFRESH    cIEWebBrowser")) << which.output;

    const Outcome refresh = RunWbs({L"--window", window, L"refresh"});
    EXPECT_EQ(refresh.exitCode, 0u) << refresh.output;
    EXPECT_TRUE(Contains(refresh.output, "driver cIEWebBrowser")) << refresh.output;
    EXPECT_TRUE(ie.Log().WaitForEvent(L"appcommand", kBound, [](const LogEvent& e) { return e.Number(L"code") == 3; }));
}

TEST_F(WbsToolTest, ListsTypedAddressesFlatAndAsJson) {
    {
        CRegistry typed;
        ASSERT_EQ(typed.Create(HKEY_CURRENT_USER, kTypedUrls), ERROR_SUCCESS);
        ASSERT_EQ(typed.WriteStringValue(L"url1", L"http://example.invalid/caf\u00e9?a=\"b\""), ERROR_SUCCESS);
    }

    const Outcome flat = RunWbs({L"list-history", L"--browser", L"ie"});
    EXPECT_EQ(flat.exitCode, 0u);
    EXPECT_EQ(flat.output, "url1\thttp://example.invalid/caf\xc3\xa9?a=\"b\"\n");
    const Outcome json = RunWbs({L"list-history", L"--browser", L"ie", L"--json"});
    EXPECT_EQ(json.exitCode, 0u);
    EXPECT_EQ(json.output, "[\n  {\"text\": \"url1\", \"extra\": \"http://example.invalid/caf\xc3\xa9?a=\\\"b\\\"\"}\n]\n");
}

TEST_F(WbsToolTest, PrintsFavoritesAsATreeRebuiltFromTheFolderMarkers) {
    const wchar_t shellFolders[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
    RegistryGuard favoritesFolder(HKEY_CURRENT_USER, shellFolders, L"Favorites");
    ScratchFolder favorites(L"WbsToolFavorites");
    ASSERT_TRUE(::CreateDirectoryW(favorites.File(L"News").c_str(), nullptr));
    ASSERT_TRUE(::CreateDirectoryW(favorites.File(L"News\\Empty").c_str(), nullptr));
    for (const auto& [name, url] : {std::pair<const wchar_t*, const char*>{L"News\\Daily.url", "http://news.example.invalid/"},
                                    {L"Home.url", "http://home.example.invalid/"}}) {
        ScopedFileHandle file(::CreateFileW(favorites.File(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        const std::string text = std::string("[InternetShortcut]\r\nURL=") + url + "\r\n";
        DWORD written = 0;
        ASSERT_TRUE(::WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr));
    }
    {
        CRegistry folders;
        ASSERT_EQ(folders.Open(HKEY_CURRENT_USER, shellFolders, KEY_WRITE), ERROR_SUCCESS);
        ASSERT_EQ(folders.WriteStringValue(L"Favorites", favorites.Path().c_str()), ERROR_SUCCESS);
    }

    const Outcome tree = RunWbs({L"list-favorites", L"--browser", L"ie", L"--tree"});
    EXPECT_EQ(tree.exitCode, 0u);
    EXPECT_EQ(tree.output, "Home  http://home.example.invalid/\nNews/\n  Daily  http://news.example.invalid/\n  Empty/\n");
    const Outcome flat = RunWbs({L"list-favorites", L"--browser", L"ie"});
    EXPECT_EQ(flat.output, "Home<http://home.example.invalid/>\n:Start<News>\nDaily<http://news.example.invalid/>\n"
                           ":Start<Empty>\n:End<Empty>\n:End<News>\n");
}
