#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include "support/RegistryGuard.h"
#include "support/RegistryValues.h"
#include "tovutil/FindApplicationPath.h"

using namespace wbstest;

namespace {
const std::wstring kKey = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\WbsProbe.exe";

void SetPath(HKEY root, const wchar_t* path) { ASSERT_TRUE(SetDefaultValue(root, kKey, path)); }

void RemovePath(HKEY root) { ::RegDeleteKeyValueW(root, kKey.c_str(), nullptr); }
}  // namespace

TEST(FindApplicationPath, TheMachinesRegistrationWinsOverTheUsersAndNeitherGivesFalse) {
    RegistryGuard machine(HKEY_LOCAL_MACHINE, kKey, L"");
    RegistryGuard user(HKEY_CURRENT_USER, kKey, L"");
    RemovePath(HKEY_LOCAL_MACHINE);
    RemovePath(HKEY_CURRENT_USER);

    CStdStr path(L"left over");
    EXPECT_FALSE(FindApplicationPath(CStdStr(L"WbsProbe"), CStdStr(L"exe"), path));
    EXPECT_EQ(path, L"");

    SetPath(HKEY_CURRENT_USER, L"C:\\User\\WbsProbe.exe");
    ASSERT_TRUE(FindApplicationPath(CStdStr(L"WbsProbe"), CStdStr(L"exe"), path));
    EXPECT_EQ(path, L"C:\\User\\WbsProbe.exe");

    SetPath(HKEY_LOCAL_MACHINE, L"\"C:\\Machine Wide\\WbsProbe.exe\"");
    ASSERT_TRUE(FindApplicationPath(CStdStr(L"WbsProbe"), CStdStr(L"exe"), path));
    EXPECT_EQ(path, L"\"C:\\Machine Wide\\WbsProbe.exe\"");

    // An empty machine registration names no program, so the user's is taken.
    SetPath(HKEY_LOCAL_MACHINE, L"");
    ASSERT_TRUE(FindApplicationPath(CStdStr(L"WbsProbe"), CStdStr(L"exe"), path));
    EXPECT_EQ(path, L"C:\\User\\WbsProbe.exe");

    // The extension is part of the key's name.
    EXPECT_FALSE(FindApplicationPath(CStdStr(L"WbsProbe"), CStdStr(L"com"), path));
}
