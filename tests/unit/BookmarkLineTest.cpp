// The bookmark-line tokenizer and the text cuts under it: plain strings in, values out.
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include "favorites/BookmarkLine.h"
#include "favorites/TextCuts.h"

TEST(BookmarkTextCuts, StartsWithNoCaseComparesOnlyThePrefixIgnoringCase) {
    EXPECT_TRUE(StartsWithNoCase(L"<dt><h3 id=\"x\">", L"<DT><H3"));
    EXPECT_TRUE(StartsWithNoCase(L"<DT><H3", L"<dt><h3"));
    EXPECT_FALSE(StartsWithNoCase(L"<DT><H", L"<DT><H3"));
    EXPECT_FALSE(StartsWithNoCase(L" <DT><H3", L"<DT><H3"));
    EXPECT_FALSE(StartsWithNoCase(L"", L""));
    EXPECT_FALSE(StartsWithNoCase(L"abc", nullptr));
    EXPECT_TRUE(StartsWithNoCase(L"abc", L""));
}

TEST(BookmarkTextCuts, CutRangeReturnsTheCutAndTrimsBothEndsOfTheRest) {
    const CutResult cut = CutRange(L"  <b> bold \t", 2, 5);
    EXPECT_EQ(cut.removed, L"<b>");
    EXPECT_EQ(cut.text, L"bold");
    const CutResult whole = CutRange(L"abc", 0, 3);
    EXPECT_EQ(whole.removed, L"abc");
    EXPECT_EQ(whole.text, L"");
}

TEST(BookmarkTextCuts, StripTagsRemovesEveryTagAndStopsAtAnUnclosedOne) {
    struct Case {
        const wchar_t* in;
        const wchar_t* out;
    };
    const std::vector<Case> cases = {
        {L"    <DT><H3 ADD_DATE=\"1\" ID=\"rdf:#$x\">News</H3>", L"News"},
        {L"<b>a</b> <i>b</i>", L"a b"},
        // White space left at either end by any cut goes; white space between words stays.
        {L"<b> </b>x", L"x"},
        {L"  a <b>", L"a"},
        {L"a<b> <c>b", L"a b"},
        // Only removals trim: a line without tags stays as it is.
        {L"  plain  ", L"  plain  "},
        {L"AT&amp;T &lt;x&gt;", L"AT&amp;T &lt;x&gt;"},
        {L"a > b", L"a > b"},
        {L"<DT><A HREF=\"x\"></A>", L""},
        // A "<" that nothing closes: what came before it is stripped, the rest stays as it stands.
        {L"<DT><A HREF=\"u\">1 < 2", L"1 < 2"},
        {L"<DT><H3>Name</H3> <broken", L"Name <broken"},
        {L"<", L"<"},
    };
    for (const Case& c : cases) EXPECT_EQ(StripTags(c.in), c.out) << c.in;
}

TEST(BookmarkLineTokenizer, RecognisesTheThreeLineKindsByTheirFirstCharacters) {
    struct Case {
        const wchar_t* line;
        BookmarkLineKind kind;
        const wchar_t* name;
        const wchar_t* url;
    };
    using K = BookmarkLineKind;
    const std::vector<Case> cases = {
        {L"    <DT><H3 ADD_DATE=\"1199145600\" LAST_MODIFIED=\"1\" PERSONAL_TOOLBAR_FOLDER=\"true\">Toolbar</H3>",
         K::FolderStart, L"Toolbar", L""},
        {L"\t<dt><h3>lower</h3>", K::FolderStart, L"lower", L""},
        {L"    </DL><p>", K::FolderEnd, L"", L""},
        {L"</dl>", K::FolderEnd, L"", L""},
        {L"        <DT><A HREF=\"http://a.example/?x=1&amp;y=2\" ADD_DATE=\"3\" LAST_CHARSET=\"UTF-8\">A &amp; B</A>",
         K::Bookmark, L"A &amp; B", L"http://a.example/?x=1&amp;y=2"},
        {L" \t<dt><a href=\"http://lower.example/\">low</a>", K::Bookmark, L"low", L"http://lower.example/"},
        {L"<DT><A HREF=\"http://empty.example/\"></A>", K::Bookmark, L"", L"http://empty.example/"},
        // Only the first quoted value is the address, whatever follows.
        {L"<DT><A HREF=\"h\" SHORTCUTURL=\"k\" ICON=\"data:x\">n</A>", K::Bookmark, L"n", L"h"},
        // An unquoted address runs to white space or ">".
        {L"<DT><A HREF=http://bare.example/ ADD_DATE=1>Bare</A>", K::Bookmark, L"Bare", L"http://bare.example/"},
        {L"<DT><A HREF=http://bare.example/>Bare</A>", K::Bookmark, L"Bare", L"http://bare.example/"},
        {L"<DT><A HREF=\"http://open.example/>Open</A>", K::Bookmark, L"Open", L"http://open.example/"},
        // Feeds listed before their address are not bookmark lines at all.
        {L"<DT><A FEEDURL=\"http://f/\" HREF=\"http://h/\">Feed</A>", K::Other, L"", L""},
        {L"<DD>A description", K::Other, L"", L""},
        {L"<HR>", K::Other, L"", L""},
        {L"<DL><p>", K::Other, L"", L""},
        {L"<H1 LAST_MODIFIED=\"1\">Bookmarks</H1>", K::Other, L"", L""},
        {L"<!DOCTYPE NETSCAPE-Bookmark-file-1>", K::Other, L"", L""},
        {L"   \t ", K::Other, L"", L""},
        {L"", K::Other, L"", L""},
    };
    for (const Case& c : cases) {
        const BookmarkLine parsed = TokenizeBookmarkLine(c.line);
        EXPECT_EQ(parsed.kind, c.kind) << c.line;
        EXPECT_EQ(parsed.name, c.name) << c.line;
        EXPECT_EQ(parsed.url, c.url) << c.line;
    }
}
