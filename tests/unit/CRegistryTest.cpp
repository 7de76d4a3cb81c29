#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include "tovutil/CRegistry.h"

namespace {
const wchar_t kKey[] = L"Software\\WebBrowserSupportTests\\CRegistry";

class CRegistryTest : public ::testing::Test {
protected:
    void SetUp() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, kKey); }
    void TearDown() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, kKey); }
};
}  // namespace

TEST_F(CRegistryTest, WritesAndReadsStringsOfAnyLengthAndReportsExactFailures) {
    CRegistry missing;
    EXPECT_EQ(missing.Open(HKEY_CURRENT_USER, kKey), ERROR_FILE_NOT_FOUND);
    CStdStr untouched(L"keep");
    EXPECT_EQ(missing.ReadStringValue(nullptr, untouched), ERROR_INVALID_HANDLE);
    EXPECT_EQ(untouched, L"keep");

    CRegistry key;
    ASSERT_EQ(key.Create(HKEY_CURRENT_USER, kKey), ERROR_SUCCESS);
    const std::wstring longText(40000, L'x');
    ASSERT_EQ(key.WriteStringValue(nullptr, L"default value"), ERROR_SUCCESS);
    ASSERT_EQ(key.WriteStringValue(L"long", longText.c_str()), ERROR_SUCCESS);
    const DWORD number = 7;
    ASSERT_EQ(::RegSetValueExW(key.Key(), L"number", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number),
              ERROR_SUCCESS);
    // Data stored without its terminator still reads as the text it holds.
    ASSERT_EQ(::RegSetValueExW(key.Key(), L"unterminated", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"abc"), 6),
              ERROR_SUCCESS);

    CRegistry reader;
    ASSERT_EQ(reader.Open(HKEY_CURRENT_USER, kKey), ERROR_SUCCESS);
    CStdStr value;
    EXPECT_EQ(reader.ReadStringValue(nullptr, value), ERROR_SUCCESS);
    EXPECT_EQ(value, L"default value");
    EXPECT_EQ(reader.ReadStringValue(L"long", value), ERROR_SUCCESS);
    EXPECT_EQ(value, longText);
    EXPECT_EQ(reader.ReadStringValue(L"unterminated", value), ERROR_SUCCESS);
    EXPECT_EQ(value, L"abc");
    value = L"keep";
    EXPECT_EQ(reader.ReadStringValue(L"number", value), ERROR_UNSUPPORTED_TYPE);
    EXPECT_EQ(reader.ReadStringValue(L"absent", value), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(value, L"keep");
}
