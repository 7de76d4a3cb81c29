#include "support/TestPaths.h"
#include <windows.h>
#include <gtest/gtest.h>
#include "fixtures/stubbrowser/StubLogFormat.h"

namespace wbstest {

namespace {

std::wstring WithoutFinalSlash(std::wstring path) {
    while (!path.empty() && (path.back() == L'\\' || path.back() == L'/')) path.pop_back();
    return path;
}

}  // namespace

std::wstring ExecutableFolder() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) >= path.size())
        path.resize(path.size() * 2);
    path.resize(length);
    return WithoutFinalSlash(path.substr(0, path.find_last_of(L"\\/")));
}

std::wstring StubBrowserProgram() { return JoinPath(ExecutableFolder(), L"stubbrowser.exe"); }

std::wstring TempFolder() {
    wchar_t buffer[MAX_PATH + 1] = {};
    const DWORD length = ::GetTempPathW(MAX_PATH + 1, buffer);
    return WithoutFinalSlash(std::wstring(buffer, length));
}

std::wstring JoinPath(const std::wstring& folder, const std::wstring& name) {
    return WithoutFinalSlash(folder) + L"\\" + name;
}

std::wstring CurrentTestName() {
    const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
    if (test == nullptr) return L"NoTest";
    std::wstring name = stublog::FromUtf8(std::string(test->test_suite_name()) + "." + test->name());
    for (wchar_t& c : name)
        if (std::wstring_view(L"\\/:*?\"<>|").find(c) != std::wstring_view::npos) c = L'_';
    return name;
}

}  // namespace wbstest
