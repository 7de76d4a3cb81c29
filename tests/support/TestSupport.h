#pragma once
// What every test shares: data files, scratch folders, registry changes undone afterwards, the
// fixture browser, the input hooks, bounded waits and the reset of process-wide state.
#include <windows.h>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace wbstest {

// Waits at most timeoutMs until done() holds, pumping this thread's messages meanwhile.
template <typename Predicate>
bool WaitFor(Predicate&& done, DWORD timeoutMs) {
    const ULONGLONG deadline = ::GetTickCount64() + timeoutMs;
    while (!done()) {
        if (::GetTickCount64() >= deadline) return false;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
    }
    return true;
}

std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view bytes);
// "\t", "\r", "\n", "\\", "\"" and "\uXXXX" in table text; any other backslash stands as written.
std::wstring Unescape(std::wstring_view text);

// text with every from replaced by to.
std::wstring Replace(std::wstring text, const std::wstring& from, const std::wstring& to);

// A path below the source tree's tests/data.
std::wstring DataPath(const std::wstring& relative);
std::string ReadBytes(const std::wstring& path);
bool WriteBytes(const std::wstring& path, const std::string& bytes);  // makes the folders first
// The lines of UTF-8 text; "\r\n" and "\n" both end a line, and a last line feed ends the text.
std::vector<std::wstring> Lines(const std::string& bytes);
// The names in a folder that match the pattern, sorted.
std::vector<std::wstring> FolderNames(const std::wstring& folder, const std::wstring& pattern);
bool RemoveTree(const std::wstring& path);
std::wstring ExecutableFolder();

// A folder of its own below the temporary folder, removed first and at the end.
class ScratchFolder {
public:
    explicit ScratchFolder(const std::wstring& name);
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::wstring& Path() const { return path_; }

private:
    std::wstring path_;
};

// Registry keys changed for a test, each put back whole as it was (or removed, if it was not
// there) when the scope ends. Keys are written "HKCU\\Software\\..."; an empty name is the default value.
class RegistryScope {
public:
    RegistryScope() = default;
    ~RegistryScope();
    RegistryScope(const RegistryScope&) = delete;
    RegistryScope& operator=(const RegistryScope&) = delete;
    bool Set(const std::wstring& key, const std::wstring& name, DWORD type, const std::wstring& data);
    bool Delete(const std::wstring& key, const std::wstring& name);
    static HKEY Root(const std::wstring& key, std::wstring& subKey);
    // Puts back what a test program that died left changed.
    static void RestoreLeftovers();

private:
    void Save(const std::wstring& key);
    std::vector<std::pair<std::wstring, std::wstring>> saved_;  // key, its backup (none: its parent's)
};

// One copy of the fixture browser under a program name, in a scratch folder of its own. Its
// destructor ends every process of the copy, also those the library started, and removes it.
class Fixture {
public:
    Fixture(const std::wstring& program, const std::vector<std::wstring>& options);
    ~Fixture();
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;

    bool Start();  // starts the copy in its folder and waits until it is ready
    const std::wstring& Program() const { return program_; }
    std::wstring Folder() const { return folder_->Path(); }
    // The values of the log's lines of one event, in order.
    std::vector<std::wstring> Values(const std::wstring& event) const;
    HWND MainWindow() const;  // of the last copy that became ready

private:
    std::unique_ptr<ScratchFolder> folder_;
    std::wstring program_;
};

// Ends every process whose image path holds part (letters compared without case).
void EndProcesses(std::wstring part);

// Ends this test program with a named failure, and every fixture process with it, when the scope
// is not left within the bound: a command or reader that never returns shows as that, not as the
// runner's time-out.
class Watchdog {
public:
    Watchdog(std::string what, DWORD timeoutMs);
    ~Watchdog();

private:
    HANDLE done_;
    std::thread thread_;
};

// A key or side button that reached the desktop.
struct Input {
    unsigned code;  // virtual key, or 0x10001 / 0x10002 for the side buttons
    bool down;
    double ms;
    ULONG_PTR extra;  // what the sender attached to a key event
};
// What reached the desktop since the last call, once a marker key sent after it has arrived; false
// when it did not arrive within seconds. The low-level hooks live on a thread of their own, put in
// place on first use for the rest of the program.
bool TakeInput(std::vector<Input>& events);

// Clears the factory list, process finder, button table and held keys.
void ResetProcessWideState();
// Keys (1 to 254) the system reports as down.
std::vector<int> KeysDown();
bool StampFileVersion(const std::wstring& path, WORD major, WORD minor, WORD build, WORD revision);

}  // namespace wbstest
