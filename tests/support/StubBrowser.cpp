#include "support/StubBrowser.h"
#include <algorithm>
#include "core/ScopedFileHandle.h"
#include "support/TestPaths.h"
#include "support/WaitFor.h"

namespace wbstest {

namespace {

const DWORD kCloseTimeoutMs = 5000;

// The C runtime's rules: backslashes are literal unless they precede a double quote.
std::wstring QuoteArgument(const std::wstring& argument) {
    if (!argument.empty() && argument.find_first_of(L" \t\n\v\"") == std::wstring::npos) return argument;
    std::wstring quoted = L"\"";
    size_t backslashes = 0;
    for (wchar_t c : argument) {
        if (c == L'\\') {
            ++backslashes;
            continue;
        }
        quoted.append(c == L'"' ? backslashes * 2 + 1 : backslashes, L'\\');
        backslashes = 0;
        quoted.push_back(c);
    }
    quoted.append(backslashes * 2, L'\\');
    return quoted + L"\"";
}

bool WriteArgumentsFile(const std::wstring& path, const std::vector<std::wstring>& arguments) {
    std::string bytes;
    for (const std::wstring& argument : arguments) bytes += stublog::ToUtf8(argument) + "\n";
    ScopedFileHandle file(
        ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    return file && ::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

bool IsRunning(HANDLE process) { return ::WaitForSingleObject(process, 0) == WAIT_TIMEOUT; }

std::wstring ImagePath(HANDLE process) {
    wchar_t buffer[MAX_PATH * 2] = {};
    DWORD size = MAX_PATH * 2;
    return ::QueryFullProcessImageNameW(process, 0, buffer, &size) ? std::wstring(buffer, size) : std::wstring();
}

int sequence = 0;

}  // namespace

StubBrowser::StubBrowser() = default;

StubBrowser::~StubBrowser() { CloseAll(); }

std::wstring StubBrowser::Install(const std::wstring& programName, const std::vector<std::wstring>& arguments) {
    if (folder_) {
        if (programPath_ != folder_->File(programName)) return {};
    } else {
        folder_ = std::make_unique<ScratchFolder>(CurrentTestName() + L"-stub" + std::to_wstring(++sequence) + L"-" +
                                                  programName);
        programPath_ = folder_->File(programName);
        log_ = StubLog::ForProgram(programPath_);
        if (!::CopyFileW(StubBrowserProgram().c_str(), programPath_.c_str(), FALSE)) return {};
    }
    const std::wstring argumentsFile = stublog::ReplaceExtension(programPath_, L".args");
    if (arguments.empty())
        ::DeleteFileW(argumentsFile.c_str());
    else if (!WriteArgumentsFile(argumentsFile, arguments))
        return {};
    return programPath_;
}

bool StubBrowser::Start(const std::wstring& programName, const std::vector<std::wstring>& arguments,
                        DWORD readyTimeoutMs) {
    if (process_ && IsRunning(process_.get())) return false;
    const std::wstring program = folder_ ? programPath_ : Install(programName);
    if (program.empty() || program != folder_->File(programName)) return false;
    const auto logOption = std::find(arguments.begin(), arguments.end(), L"--log");
    log_ = logOption != arguments.end() && logOption + 1 != arguments.end() ? StubLog(*(logOption + 1))
                                                                          : StubLog::ForProgram(program);

    std::wstring commandLine = CommandLine(program, arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!::CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                          folder_->Path().c_str(), &startup, &started))
        return false;
    process_.reset(started.hProcess);
    ScopedHandle thread(started.hThread);
    processId_ = started.dwProcessId;
    threadId_ = started.dwThreadId;
    HANDLE process = process_.get();
    WaitFor([&] { return log_.IsReady(started.dwProcessId) || !IsRunning(process); }, readyTimeoutMs);
    return log_.IsReady(started.dwProcessId);
}

HWND StubBrowser::MainWindow() const { return log_.MainWindow(processId_); }

std::vector<StubWindow> StubBrowser::Windows() const { return log_.Windows(processId_); }

HWND StubBrowser::Window(std::wstring_view className, size_t nth) const {
    for (const StubWindow& window : Windows())
        if (window.className == className && nth-- == 0) return window.handle;
    return nullptr;
}

HWND StubBrowser::ToolbarItem(int position) const {
    for (const StubWindow& window : Windows())
        if (window.toolbarPosition == position) return window.handle;
    return nullptr;
}

bool StubBrowser::WaitForExit(DWORD timeoutMs) const {
    return process_ && ::WaitForSingleObject(process_.get(), timeoutMs) == WAIT_OBJECT_0;
}

void StubBrowser::CloseAll() {
    if (!folder_) return;
    // Every copy that logged a start, ours and those the library started; a process id that now
    // belongs to another program (ids are reused) is left alone.
    std::vector<DWORD> ids = log_.ProcessIds();
    if (processId_ != 0 && std::find(ids.begin(), ids.end(), processId_) == ids.end()) ids.push_back(processId_);
    std::vector<ScopedHandle> running;
    for (DWORD id : ids) {
        ScopedHandle process(::OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE | PROCESS_QUERY_LIMITED_INFORMATION,
                                           FALSE, id));
        if (!process || !IsRunning(process.get()) ||
            ::CompareStringOrdinal(ImagePath(process.get()).c_str(), -1, programPath_.c_str(), -1, TRUE) !=
                CSTR_EQUAL)
            continue;
        HWND main = log_.MainWindow(id);
        if (main != nullptr && ::IsWindow(main))
            ::PostMessageW(main, WM_CLOSE, 0, 0);
        else if (id == processId_)
            ::PostThreadMessageW(threadId_, WM_QUIT, 0, 0);
        running.push_back(std::move(process));
    }
    for (const ScopedHandle& process : running) {
        if (::WaitForSingleObject(process.get(), kCloseTimeoutMs) == WAIT_OBJECT_0) continue;
        ::TerminateProcess(process.get(), 1);
        ::WaitForSingleObject(process.get(), kCloseTimeoutMs);
    }
    if (process_) ::WaitForSingleObject(process_.get(), kCloseTimeoutMs);
}

std::wstring StubBrowser::CommandLine(const std::wstring& program, const std::vector<std::wstring>& arguments) {
    std::wstring line = QuoteArgument(program);
    for (const std::wstring& argument : arguments) line += L" " + QuoteArgument(argument);
    return line;
}

}  // namespace wbstest
