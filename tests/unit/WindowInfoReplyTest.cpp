#include <gtest/gtest.h>
#include "browsers/WindowInfoReply.h"

TEST(WindowInfoReply, TakesTheQuotedUrlAndTitleAndReadsUnansweredRepliesAsTheyFall) {
    const struct {
        const wchar_t* reply;
        const wchar_t* url;
        const wchar_t* title;
    } cases[] = {
        {L"\"u\",\"t\"", L"u", L"t"},
        {L"\"u\",\"t\",\"x\"", L"u", L"t"},
        {L"\"http://example.invalid/a?b=c\",\"A page, titled\",\"0\"", L"http://example.invalid/a?b=c", L"A page, titled"},
        {L"\"u\",\"\"", L"u", L""},
        // No separator: the URL is the text from its second character, the title from its third.
        {L"0xFFFFFFFF", L"xFFFFFFFF", L"FFFFFFFF"},
        {L"\"only\"", L"only\"", L"nly"},
        {L"x", L"", L""},
        {L"", L"", L""},
    };
    for (const auto& c : cases) {
        const WindowInfoReply parsed = ParseWindowInfoReply(c.reply);
        EXPECT_EQ(parsed.url, c.url) << "reply: " << c.reply;
        EXPECT_EQ(parsed.title, c.title) << "reply: " << c.reply;
    }
}
