// The DDE browser-control conversation against the fixture browser's DDE server, a service that
// no one serves, and Wine's own Internet Explorer.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include "browsers/cNavigateUtility.h"
#include "support/ProcessState.h"
#include "support/StubBrowser.h"
#include "support/WaitFor.h"
#include "support/WineInternetExplorer.h"

using namespace wbstest;

namespace {
const wchar_t kService[] = L"WbsTestBrowser";

class NavigateUtilityTest : public ::testing::Test {
protected:
    void SetUp() override { ResetProcessWideState(); }
    void TearDown() override { ResetProcessWideState(); }
};

std::vector<LogEvent> Requests(const StubBrowser& stub) { return stub.Log().Events(L"dde-request"); }
}  // namespace

TEST_F(NavigateUtilityTest, ReadsThePageFromTheBrowsersAnswerAndAsksForItsMostRecentWindow) {
    StubBrowser stub;
    ASSERT_TRUE(stub.Start(L"ddebrowser.exe", {L"--dde", kService, L"--dde-reply",
                                               L"\"http://example.invalid/page\",\"Example page\",\"0\""}));
    cNavigateUtility utility{CStdStr(kService)};
    CStdStr title(L"old"), url(L"old");
    EXPECT_TRUE(utility.GetPageInfo(title, url));
    EXPECT_EQ(title, L"Example page");
    EXPECT_EQ(url, L"http://example.invalid/page");

    PageInfo page;
    EXPECT_TRUE(utility.CurrentPage(page));
    EXPECT_EQ(page.Title, L"Example page");
    EXPECT_EQ(page.Url, L"http://example.invalid/page");

    const std::vector<LogEvent> requests = Requests(stub);
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[0].Field(L"topic"), L"WWW_GetWindowInfo");
    EXPECT_EQ(requests[0].Field(L"item"), L"0xFFFFFFFF");
    EXPECT_EQ(requests[0].Number(L"format"), static_cast<unsigned>(CF_TEXT));
}

TEST_F(NavigateUtilityTest, LongRepliesAreCutAt1023BytesAndOpenUrlSendsTheBareUrl) {
    StubBrowser stub;
    ASSERT_TRUE(stub.Start(L"ddebrowser.exe", {L"--dde", kService, L"--dde-reply", L"\"", L"--dde-reply-length", L"2000"}));
    cNavigateUtility utility{CStdStr(kService)};
    CStdStr reply;
    EXPECT_TRUE(utility.GetWindowInfo(reply));
    ASSERT_EQ(reply.size(), 1023u);
    EXPECT_EQ(reply[0], L'"');

    // Any other topic's answer is not kept: the item stays as it was sent.
    CStdStr item(L"http://example.invalid/a b?c=\"d\"");
    EXPECT_TRUE(utility.OpenURL(nullptr, item));
    const std::vector<LogEvent> requests = Requests(stub);
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[1].Field(L"topic"), L"WWW_OpenURL");
    EXPECT_EQ(requests[1].Field(L"item"), L"http://example.invalid/a b?c=\"d\"");
    CStdStr sent = item;
    EXPECT_TRUE(utility.DdeRequest(CStdStr(L"WWW_OpenURL"), sent));
    EXPECT_EQ(sent, item);
}

TEST_F(NavigateUtilityTest, SilentOrMissingServersGiveTheUnansweredReplyWithinTheBound) {
    StubBrowser silent;
    ASSERT_TRUE(silent.Start(L"ddebrowser.exe", {L"--dde", kService, L"--dde-mode", L"nodata"}));
    StubBrowser refusing;
    ASSERT_TRUE(refusing.Start(L"refusing.exe", {L"--dde", L"WbsRefusingBrowser", L"--dde-mode", L"refuse"}));

    for (const wchar_t* service : {kService, L"WbsRefusingBrowser", L"WbsNobodyServesThis"}) {
        cNavigateUtility utility{CStdStr(service)};
        const ULONGLONG start = ::GetTickCount64();
        CStdStr item(L"0xFFFFFFFF");
        EXPECT_FALSE(utility.DdeRequest(CStdStr(L"WWW_GetWindowInfo"), item)) << service;
        EXPECT_EQ(item, L"0xFFFFFFFF");
        CStdStr title, url;
        EXPECT_TRUE(utility.GetPageInfo(title, url));
        EXPECT_EQ(title, L"FFFFFFFF");
        EXPECT_EQ(url, L"xFFFFFFFF");
        EXPECT_FALSE(utility.OpenURL(nullptr, CStdStr(L"http://example.invalid/")));
        EXPECT_LT(::GetTickCount64() - start, 3u * 3000u + 2000u) << service;
    }
    EXPECT_FALSE(Requests(silent).empty());
}

TEST_F(NavigateUtilityTest, TalksToInternetExplorersOwnServiceWithinTheBound) {
    WineInternetExplorer internetExplorer;
    ASSERT_NE(internetExplorer.Frame(), nullptr);

    cNavigateUtility utility{CStdStr(L"IEXPLORE")};
    const ULONGLONG start = ::GetTickCount64();
    CStdStr reply;
    EXPECT_TRUE(utility.GetWindowInfo(reply));
    EXPECT_FALSE(reply.empty());
    (void)utility.OpenURL(nullptr, CStdStr(L"about:blank"));
    EXPECT_LT(::GetTickCount64() - start, 2u * 3000u + 2000u);

}
