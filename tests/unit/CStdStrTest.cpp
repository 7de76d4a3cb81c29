#include <gtest/gtest.h>
#include <windows.h>
#include <cstdint>
#include <cstring>
#include "CStdStr.h"

namespace {
const wchar_t* ResourceId(unsigned int id) { return reinterpret_cast<const wchar_t*>(static_cast<std::uintptr_t>(id)); }
}

TEST(CStdStr, SmallPointerValuesLoadTheModulesStringTable) {
    EXPECT_EQ(CStdStr(ResourceId(101)), L"Loaded from the string table");
    EXPECT_EQ(CStdStr(ResourceId(102)), L"Second string");
    EXPECT_EQ(CStdStr(ResourceId(999)), L"");
    EXPECT_EQ(CStdStr(static_cast<const wchar_t*>(nullptr)), L"");
    EXPECT_EQ(CStdStr(L"plain text"), L"plain text");
    CStdStr assigned;
    assigned = ResourceId(102);
    EXPECT_EQ(assigned, L"Second string");
}

TEST(CStdStr, OnlyBits16To31DecideSoAHighPointerWithThemClearIsAResourceId) {
    // Text placed at an address whose bits 16-31 are clear but whose upper half is not.
    void* page = nullptr;
    for (std::uintptr_t base = 0x100000000ull; base <= 0x800000000ull && !page; base += 0x100000000ull)
        page = ::VirtualAlloc(reinterpret_cast<void*>(base), 0x10000, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    ASSERT_NE(page, nullptr) << "no free 4 GiB-aligned address";
    auto* text = reinterpret_cast<wchar_t*>(static_cast<char*>(page) + 101);
    std::memcpy(text, L"text at the address", sizeof L"text at the address");
    EXPECT_EQ(CStdStr(text), L"Loaded from the string table");
    ::VirtualFree(page, 0, MEM_RELEASE);
}

TEST(CStdStr, CopiesKeepTheCodePage) {
    CStdStr utf8(std::wstring(L"x"), CP_UTF8);
    CStdStr copy = utf8;
    EXPECT_EQ(copy.CodePage(), static_cast<unsigned int>(CP_UTF8));
    EXPECT_EQ(CStdStr(L"y").CodePage(), 0u);
}
