#include <gtest/gtest.h>
#include <windows.h>
#include "tovutil/CProcessFinder.h"

TEST(CProcessFinder, NamesTheExecutableBehindAWindowAndGivesEmptyNamesForWhatItCannotOpen) {
    CProcessFinder::DestroyInstance();
    EXPECT_EQ(CProcessFinder::Instance(false), nullptr);
    CProcessFinder* finder = CProcessFinder::Instance(true);
    ASSERT_NE(finder, nullptr);
    EXPECT_EQ(CProcessFinder::Instance(false), finder);

    HWND window = ::CreateWindowExW(0, L"STATIC", L"finder", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(finder->GetForegroundProcessName(window), L"wbs_unit_tests.exe");
    EXPECT_EQ(finder->GetProcessName(::GetCurrentProcessId()), L"wbs_unit_tests.exe");
    ::DestroyWindow(window);

    EXPECT_EQ(finder->GetForegroundProcessName(nullptr), L"");
    EXPECT_EQ(finder->GetForegroundProcessName(window), L"");  // destroyed
    EXPECT_EQ(finder->GetProcessName(0), L"");
    EXPECT_EQ(finder->GetProcessName(0xFFFFFFF0u), L"");
}
