// The suite's shared types and utilities: strings, the counted pointer, the registry, version
// resources, the clipboard and the process finder.
#include <gtest/gtest.h>
#include <windows.h>
#include "CStdStr.h"
#include "counted_ptr.h"
#include "support/TestSupport.h"
#include "tovutil/CProcessFinder.h"
#include "tovutil/CRegistry.h"
#include "tovutil/CVerInfo.h"
#include "tovutil/ClassicClipboard.h"

using namespace wbstest;

namespace {
std::wstring ClipboardText() {
    if (!::OpenClipboard(nullptr)) return L"(clipboard held open)";
    const HANDLE data = ::GetClipboardData(CF_UNICODETEXT);
    const std::wstring text = data ? static_cast<const wchar_t*>(::GlobalLock(data)) : L"(no text)";
    ::GlobalUnlock(data);
    ::CloseClipboard();
    return text;
}

HWND MakeWindow() { return ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr); }
}  // namespace

TEST(CStdStr, OnlyValuesBelow64KiBNameStringResourcesAndTextAboveFourGiBIsKeptWhole) {
    const std::pair<UINT_PTR, const wchar_t*> ids[] = {
        {101, L"Loaded from the string table"}, {102, L"Second string"}, {999, L""}, {0, L""}};
    for (const auto& [id, text] : ids) EXPECT_EQ(CStdStr(reinterpret_cast<const wchar_t*>(id)), text) << id;
    EXPECT_EQ(CStdStr() = reinterpret_cast<const wchar_t*>(102), L"Second string");
    // Real text at an address whose bits 16 to 31 are clear and whose low bits name a string.
    char* page = nullptr;
    for (UINT_PTR base = 1ull << 32; base <= 64ull << 32 && !page; base += 1ull << 32)
        page = static_cast<char*>(::VirtualAlloc(reinterpret_cast<void*>(base), 4096, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    ASSERT_NE(page, nullptr) << "no free 4 GiB-aligned address";
    ::lstrcpyW(reinterpret_cast<wchar_t*>(page + 102), L"text at the address");
    EXPECT_EQ(CStdStr(reinterpret_cast<const wchar_t*>(page + 102)), L"text at the address");
    ::VirtualFree(page, 0, MEM_RELEASE);
}

TEST(CountedPtr, CopiesShareOneCountAndOnlyTheLastReleaseDeletes) {
    struct Tracked { int* deaths; ~Tracked() { ++*deaths; } };
    int deaths = 0;
    {
        counted_ptr<Tracked> first(new Tracked{&deaths});
        // The copies are let go only when the counts were right, so that a wrong count fails the
        // test instead of freeing the object twice.
        auto* second = new counted_ptr<Tracked>(first);
        auto* third = new counted_ptr<Tracked>();
        *third = *second;
        first = first;
        EXPECT_EQ(third->use_count(), 3);
        counted_ptr<Tracked> moved(std::move(first));
        EXPECT_TRUE(first.empty() && moved.use_count() == 3);
        if (HasFailure()) return;
        delete second;
        *third = counted_ptr<Tracked>();
        delete third;
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(CRegistry, ReadsStringsOfAnyLengthAndReportsExactFailures) {
    const std::wstring key = L"Software\\WebBrowserSupportTests\\CRegistry", longText(40000, L'x');
    ::RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str());
    RegistryScope scope;  // the key does not exist now, so it is removed again at the end
    scope.Delete(L"HKCU\\" + key, L"");
    CRegistry missing, writer, reader;
    CStdStr value;
    EXPECT_EQ(missing.Open(HKEY_CURRENT_USER, key.c_str()), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(missing.ReadStringValue(nullptr, value), ERROR_INVALID_HANDLE);
    const DWORD number = 7;
    // Six bytes of "abcd" stay unterminated: the system adds a terminator only when one follows.
    for (LONG status : {writer.Create(HKEY_CURRENT_USER, key.c_str()), writer.WriteStringValue(nullptr, L"default value"),
                        writer.WriteStringValue(L"long", longText.c_str()), reader.Open(HKEY_CURRENT_USER, key.c_str()),
                        ::RegSetKeyValueW(writer.Key(), nullptr, L"number", REG_DWORD, &number, sizeof number),
                        ::RegSetKeyValueW(writer.Key(), nullptr, L"unterminated", REG_SZ, L"abcd", 6)})
        ASSERT_EQ(status, ERROR_SUCCESS);
    // A failed read leaves the value as it was.
    const std::tuple<const wchar_t*, LONG, std::wstring> cases[] = {
        {nullptr, ERROR_SUCCESS, L"default value"}, {L"long", ERROR_SUCCESS, longText}, {L"unterminated", ERROR_SUCCESS, L"abc"},
        {L"number", ERROR_UNSUPPORTED_TYPE, L"keep"}, {L"absent", ERROR_FILE_NOT_FOUND, L"keep"}};
    for (const auto& [name, status, text] : cases) {
        value = L"keep";
        EXPECT_EQ(reader.ReadStringValue(name, value), status) << (name ? ToUtf8(name) : "(default)");
        EXPECT_EQ(value, text);
    }
}

TEST(CVerInfo, TheFileVersionComesFromTheFixedPartAndAFileWithoutOneLeavesItAlone) {
    ScratchFolder folder(L"CVerInfo");
    wchar_t self[MAX_PATH] = {};  // the test program, which has no version resource
    ::GetModuleFileNameW(nullptr, self, MAX_PATH);
    const std::wstring stamped = folder.Path() + L"\\versioned.exe";
    ASSERT_TRUE(::CopyFileW(self, stamped.c_str(), FALSE) && StampFileVersion(stamped, 7, 12, 345, 6789));
    for (const std::wstring& path : {stamped, std::wstring(self)}) {
        CVerInfo info;
        CVerNum version(MAKELONG(2, 1), MAKELONG(4, 3));
        EXPECT_EQ(info.Init(path.c_str()), path == stamped);
        EXPECT_EQ(info.GetFileVersionNum(version), path == stamped);
        EXPECT_EQ(std::vector<WORD>({version.GetMajor(), version.GetMinor(), version.GetBuild(), version.GetRevision()}),
                  path == stamped ? std::vector<WORD>({7, 12, 345, 6789}) : std::vector<WORD>({1, 2, 3, 4}));
    }
}

TEST(ClassicClipboard, TextIsPlacedAsUnicodeOnlyWhileOpenAndTheClipboardIsFreedAtTheEnd) {
    const HWND owner = MakeWindow();
    {
        ClassicClipboard clipboard(true, owner);
        EXPECT_EQ(::GetOpenClipboardWindow(), owner);
        EXPECT_TRUE(clipboard.SetUnicodeText(CStdStr(L"http://example.invalid/\x00e9t\x00e9")));
    }
    EXPECT_EQ(::GetOpenClipboardWindow(), nullptr);
    ClassicClipboard later(false, owner);
    EXPECT_FALSE(later.SetUnicodeText(CStdStr(L"never placed")));
    EXPECT_EQ(ClipboardText(), L"http://example.invalid/\x00e9t\x00e9");
    EXPECT_TRUE(later.Open(owner) && later.SetUnicodeText(CStdStr(L"")));
    later.Close();
    EXPECT_EQ(ClipboardText(), L"");
    ::DestroyWindow(owner);
}

TEST(CProcessFinder, NamesTheProgramBehindAWindowAndNothingForWhatItCannotOpen) {
    const CProcessFinder finder;
    const HWND window = MakeWindow();
    EXPECT_EQ(finder.GetForegroundProcessName(window), L"wbs_unit_tests.exe");
    ::DestroyWindow(window);
    for (HWND gone : {window, HWND()}) EXPECT_EQ(finder.GetForegroundProcessName(gone), L"");
    for (DWORD id : {0ul, 0xFFFFFFF0ul}) EXPECT_EQ(finder.GetProcessName(id), L"");
}
