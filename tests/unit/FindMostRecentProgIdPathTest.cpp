#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include "tovutil/FindMostRecentProgIdPath.h"

namespace {

void SetDefault(const std::wstring& subKey, const std::wstring& value) {
    HKEY key = nullptr;
    ASSERT_EQ(::RegCreateKeyExW(HKEY_CLASSES_ROOT, subKey.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                                &key, nullptr),
              ERROR_SUCCESS);
    ::RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                     static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    ::RegCloseKey(key);
}

class FindMostRecentProgIdPathTest : public ::testing::Test {
protected:
    void Clean() {
        for (const wchar_t* key : {L"WbsTest.App", L"WbsTest.App.1", L"WbsTest.App.2", L"WbsTest.Loop",
                                   L"CLSID\\{0BAD0000-0000-0000-0000-000000000001}",
                                   L"CLSID\\{0BAD0000-0000-0000-0000-000000000002}"})
            ::RegDeleteTreeW(HKEY_CLASSES_ROOT, key);
    }
    void SetUp() override { Clean(); }
    void TearDown() override { Clean(); }
};
}  // namespace

TEST_F(FindMostRecentProgIdPathTest, FollowsCurVerToTheNewestClassAndItsLocalServer) {
    SetDefault(L"WbsTest.App\\CLSID", L"{0BAD0000-0000-0000-0000-000000000001}");
    SetDefault(L"WbsTest.App\\CurVer", L"WbsTest.App.1");
    SetDefault(L"WbsTest.App.1\\CurVer", L"WbsTest.App.2");
    SetDefault(L"WbsTest.App.2\\CLSID", L"{0BAD0000-0000-0000-0000-000000000002}");
    SetDefault(L"CLSID\\{0BAD0000-0000-0000-0000-000000000001}\\LocalServer32", L"C:\\old\\app.exe");
    SetDefault(L"CLSID\\{0BAD0000-0000-0000-0000-000000000002}\\LocalServer32", L"\"C:\\New\\App.exe\" -Embedding");

    CStdStr path(L"untouched");
    ASSERT_TRUE(FindMostRecentProgIdPath(CStdStr(L"WbsTest.App"), path));
    EXPECT_EQ(path, L"\"C:\\New\\App.exe\" -Embedding");

    // A CurVer that points back at itself ends the chain; no class at all is a failure.
    SetDefault(L"WbsTest.Loop\\CurVer", L"WbsTest.Loop");
    path = L"untouched";
    EXPECT_FALSE(FindMostRecentProgIdPath(CStdStr(L"WbsTest.Loop"), path));
    EXPECT_FALSE(FindMostRecentProgIdPath(CStdStr(L"WbsTest.Absent"), path));
    EXPECT_EQ(path, L"untouched");
}
