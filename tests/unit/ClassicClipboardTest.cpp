#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include "support/ClipboardText.h"
#include "support/TestWindow.h"
#include "tovutil/ClassicClipboard.h"

using namespace wbstest;

TEST(ClassicClipboard, TextIsPlacedAsUnicodeOnlyWhileOpenAndTheClipboardIsFreedAtTheEnd) {
    TestWindow owner(L"WbsClipboardOwner");
    {
        ClassicClipboard clipboard(true, owner.Handle());
        ASSERT_TRUE(clipboard.IsOpen());
        EXPECT_EQ(::GetOpenClipboardWindow(), owner.Handle());
        EXPECT_TRUE(clipboard.SetUnicodeText(CStdStr(L"http://example.invalid/\x00e9t\x00e9")));
    }
    EXPECT_EQ(::GetOpenClipboardWindow(), nullptr);
    EXPECT_EQ(ClipboardText(), L"http://example.invalid/\x00e9t\x00e9");

    ClassicClipboard closed(false, owner.Handle());
    EXPECT_FALSE(closed.IsOpen());
    EXPECT_FALSE(closed.SetUnicodeText(CStdStr(L"never placed")));
    EXPECT_EQ(ClipboardText(), L"http://example.invalid/\x00e9t\x00e9");

    ASSERT_TRUE(closed.Open(owner.Handle()));
    EXPECT_TRUE(closed.SetUnicodeText(CStdStr(L"")));
    closed.Close();
    EXPECT_FALSE(closed.IsOpen());
    EXPECT_EQ(ClipboardText(), L"");
}
