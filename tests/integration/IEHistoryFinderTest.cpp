// Internet Explorer's typed addresses, read from the user's real TypedURLs key.
#include <gtest/gtest.h>
#include <windows.h>
#include <string>
#include <utility>
#include <vector>
#include "core/ScopedRegKey.h"
#include "history/cIEHistoryFinder.h"
#include "support/ProcessState.h"

namespace {
const wchar_t kTypedUrls[] = L"Software\\Microsoft\\Internet Explorer\\TypedURLs";

using Entries = std::vector<std::pair<std::wstring, std::wstring>>;

Entries EntriesOf(const HistoryList& list) {
    Entries entries;
    for (const HistoryEntry& entry : list) entries.emplace_back(entry.Text, entry.Extra);
    return entries;
}

// The test prefix has no typed addresses of its own: the key is removed before and after each test.
class IEHistoryFinderTest : public ::testing::Test {
protected:
    void SetUp() override {
        ResetProcessWideState();
        ::RegDeleteTreeW(HKEY_CURRENT_USER, kTypedUrls);
    }
    void TearDown() override { ::RegDeleteTreeW(HKEY_CURRENT_USER, kTypedUrls); }

    static void Write(const Entries& values, DWORD type = REG_SZ) {
        ScopedRegKey key;
        ASSERT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, kTypedUrls, 0, nullptr, 0, KEY_SET_VALUE, nullptr, key.Receive(),
                                    nullptr),
                  ERROR_SUCCESS);
        for (const auto& [name, data] : values)
            ASSERT_EQ(::RegSetValueExW(key.get(), name.c_str(), 0, type, reinterpret_cast<const BYTE*>(data.c_str()),
                                       static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t))),
                      ERROR_SUCCESS);
    }
    static HistoryList Prefilled() {
        HistoryList list;
        list.Append(HistoryEntry{CStdStr(L"earlier"), CStdStr(L"http://earlier.example/")});
        return list;
    }
};

}  // namespace

TEST_F(IEHistoryFinderTest, AppendsEveryValueInRegistryOrderOnEachCall) {
    Write({{L"url1", L"http://one.example/"}});
    // Neither the type is tested nor the text expanded.
    Write({{L"url2", L"%TEMP%\\two"}}, REG_EXPAND_SZ);
    Write({{L"url3", L"three.example"}});
    const Entries values = {
        {L"url1", L"http://one.example/"}, {L"url2", L"%TEMP%\\two"}, {L"url3", L"three.example"}};

    cIEHistoryFinder finder;
    HistoryList list = Prefilled();
    EXPECT_TRUE(finder.FindHistory(list));
    EXPECT_TRUE(finder.FindHistory(list));
    Entries expected = EntriesOf(Prefilled());
    for (int call = 0; call < 2; ++call) expected.insert(expected.end(), values.begin(), values.end());
    EXPECT_EQ(EntriesOf(list), expected);
}

TEST_F(IEHistoryFinderTest, AValueThatDoesNotFitItsBufferEndsTheRead) {
    const std::wstring longest(127, L'a');
    const std::wstring longName = L"url2" + std::wstring(252, L'n');  // 256 characters: no room for the end
    struct Case {
        const char* what;
        Entries values;
    };
    const Case cases[] = {
        {"address of 128 characters", {{L"url1", longest}, {L"url2", longest + L"b"}, {L"url3", L"http://c/"}}},
        {"name of 256 characters", {{L"url1", longest}, {longName, L"http://b/"}, {L"url3", L"http://c/"}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ::RegDeleteTreeW(HKEY_CURRENT_USER, kTypedUrls);
        Write(c.values);
        HistoryList list = Prefilled();
        EXPECT_TRUE(cIEHistoryFinder().FindHistory(list));
        EXPECT_EQ(EntriesOf(list), (Entries{EntriesOf(Prefilled())[0], {L"url1", longest}}));
    }
}

TEST_F(IEHistoryFinderTest, MissingOrEmptyKeyLeavesTheListUnchanged) {
    cIEHistoryFinder finder;
    HistoryList list = Prefilled();
    EXPECT_TRUE(finder.FindHistory(list));
    EXPECT_EQ(EntriesOf(list), EntriesOf(Prefilled()));

    Write({});
    EXPECT_TRUE(finder.FindHistory(list));
    EXPECT_EQ(EntriesOf(list), EntriesOf(Prefilled()));
}
