#pragma once
#include <string>

namespace wbstest {

// The folder of the running test program, without a final backslash. Every build output (the
// tests, the DLL, the tools and the fixture browser) lands in this one folder.
std::wstring ExecutableFolder();
// The fixture browser beside the tests.
std::wstring StubBrowserProgram();
// The Windows temporary folder, without a final backslash.
std::wstring TempFolder();
std::wstring JoinPath(const std::wstring& folder, const std::wstring& name);
// "Suite.Test" of the running test (or "NoTest" outside one), made safe as a file name.
std::wstring CurrentTestName();

}  // namespace wbstest
