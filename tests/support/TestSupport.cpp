#include "support/TestSupport.h"
#include <tlhelp32.h>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <cstdio>
#include <cstring>
#include <cwctype>
#include "WebBrowserSupport.h"
#include "input/ButtonNameTable.h"
#include "tovutil/CProcessFinder.h"
#include "tovutil/SendKeys.h"

namespace wbstest {

std::string ToUtf8(std::wstring_view text) {
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                           bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

std::wstring FromUtf8(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    text.resize(static_cast<size_t>(::MultiByteToWideChar(CP_UTF8, 0, bytes.data(), static_cast<int>(bytes.size()),
                                                          text.data(), static_cast<int>(text.size()))));
    return text;
}

std::wstring Unescape(std::wstring_view text) {
    std::wstring out;
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t next = i + 1 < text.size() ? text[i + 1] : L'\0';
        if (text[i] != L'\\' || std::wstring_view(L"trn\\\"u").find(next) == std::wstring_view::npos) {
            out += text[i];
        } else if (next == L'u' && i + 5 < text.size()) {
            out += static_cast<wchar_t>(std::wcstoul(std::wstring(text.substr(i + 2, 4)).c_str(), nullptr, 16));
            i += 5;
        } else {
            out += next == L't' ? L'\t' : next == L'r' ? L'\r' : next == L'n' ? L'\n' : next;
            ++i;
        }
    }
    return out;
}

std::wstring Replace(std::wstring text, const std::wstring& from, const std::wstring& to) {
    for (size_t at = text.find(from); at != std::wstring::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

std::wstring DataPath(const std::wstring& relative) { return FromUtf8(WBS_TEST_DATA) + L"\\" + relative; }

std::string ReadBytes(const std::wstring& path) {
    std::string bytes;
    HANDLE file = ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return bytes;
    char buffer[16384];
    DWORD read = 0;
    while (::ReadFile(file, buffer, sizeof buffer, &read, nullptr) && read > 0) bytes.append(buffer, read);
    ::CloseHandle(file);
    return bytes;
}

bool WriteBytes(const std::wstring& path, const std::string& bytes) {
    for (size_t slash = path.find(L'\\', 3); slash != std::wstring::npos; slash = path.find(L'\\', slash + 1))
        ::CreateDirectoryW(path.substr(0, slash).c_str(), nullptr);
    HANDLE file = ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    const bool ok = ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                    written == bytes.size();
    ::CloseHandle(file);
    return ok;
}

std::vector<std::wstring> Lines(const std::string& bytes) {
    std::vector<std::wstring> lines;
    size_t start = 0;
    for (size_t end = bytes.find('\n'); end != std::string::npos; start = end + 1, end = bytes.find('\n', start)) {
        std::string_view line(bytes.data() + start, end - start);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.push_back(FromUtf8(line));
    }
    if (start < bytes.size()) lines.push_back(FromUtf8(std::string_view(bytes).substr(start)));
    return lines;
}

std::vector<std::wstring> FolderNames(const std::wstring& folder, const std::wstring& pattern) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found = {};
    HANDLE find = ::FindFirstFileW((folder + L"\\" + pattern).c_str(), &found);
    if (find == INVALID_HANDLE_VALUE) return names;
    do {
        if (std::wcscmp(found.cFileName, L".") != 0 && std::wcscmp(found.cFileName, L"..") != 0)
            names.emplace_back(found.cFileName);
    } while (::FindNextFileW(find, &found));
    ::FindClose(find);
    std::sort(names.begin(), names.end());
    return names;
}

namespace {
void RemoveOnce(const std::wstring& path) {
    for (const std::wstring& name : FolderNames(path, L"*")) {
        const std::wstring child = path + L"\\" + name;
        ::SetFileAttributesW(child.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (::GetFileAttributesW(child.c_str()) & FILE_ATTRIBUTE_DIRECTORY)
            RemoveOnce(child);
        else
            ::DeleteFileW(child.c_str());
    }
    ::RemoveDirectoryW(path.c_str());
}
}  // namespace

bool RemoveTree(const std::wstring& path) {
    // A process that is still ending may hold a file for a moment.
    return WaitFor([&] {
        RemoveOnce(path);
        return ::GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES;
    }, 3000);
}

std::wstring ExecutableFolder() {
    wchar_t path[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder = path;
    return folder.substr(0, folder.find_last_of(L'\\'));
}

ScratchFolder::ScratchFolder(const std::wstring& name) {
    wchar_t temp[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, temp);
    path_ = std::wstring(temp) + L"wbs-tests\\" + name;
    RemoveTree(path_);
    WriteBytes(path_ + L"\\.keep", "");
    ::DeleteFileW((path_ + L"\\.keep").c_str());
}

ScratchFolder::~ScratchFolder() { RemoveTree(path_); }

HKEY RegistryScope::Root(const std::wstring& key, std::wstring& subKey) {
    const size_t slash = key.find(L'\\');
    const std::wstring root = key.substr(0, slash);
    subKey = slash == std::wstring::npos ? L"" : key.substr(slash + 1);
    if (root == L"HKCU") return HKEY_CURRENT_USER;
    if (root == L"HKLM") return HKEY_LOCAL_MACHINE;
    if (root == L"HKCR") return HKEY_CLASSES_ROOT;
    return nullptr;
}

namespace {
const wchar_t kBackups[] = L"Software\\WebBrowserSupportTestBackups";

// A backup's value "Key" names the key it stands for, its subkey "Tree" holds the key's copy when
// the key existed. Its name, the process id and a count, is unique among every scope of every
// process and sorts in the order the backups were made. A backup that is still there when a test
// program starts was left by one that died; it is put back then.
std::wstring NewBackup() {
    static unsigned made = 0;
    wchar_t name[32];
    std::swprintf(name, 32, L"\\%08lx-%08x", ::GetCurrentProcessId(), made++);
    return kBackups + std::wstring(name);
}

void Restore(const std::wstring& backup) {
    wchar_t key[1024] = {};
    DWORD size = sizeof key;
    if (::RegGetValueW(HKEY_CURRENT_USER, backup.c_str(), L"Key", RRF_RT_REG_SZ, nullptr, key, &size) != ERROR_SUCCESS)
        return;
    std::wstring subKey;
    const HKEY root = RegistryScope::Root(key, subKey);
    ::RegDeleteTreeW(root, subKey.c_str());
    ::RegDeleteKeyW(root, subKey.c_str());
    HKEY from = nullptr, to = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, (backup + L"\\Tree").c_str(), 0, KEY_READ, &from) == ERROR_SUCCESS &&
        ::RegCreateKeyExW(root, subKey.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &to, nullptr) == ERROR_SUCCESS)
        ::RegCopyTreeW(from, nullptr, to);
    if (from) ::RegCloseKey(from);
    if (to) ::RegCloseKey(to);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, backup.c_str());
}
}  // namespace

void RegistryScope::RestoreLeftovers() {
    std::vector<std::wstring> backups;
    HKEY key = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, kBackups, 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    wchar_t name[64];
    for (DWORD i = 0, size = 64; ::RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, size = 64)
        backups.push_back(kBackups + (L"\\" + std::wstring(name)));
    ::RegCloseKey(key);
    std::sort(backups.rbegin(), backups.rend());
    for (const std::wstring& backup : backups) Restore(backup);
}

// Keys a test changes are copied aside first, once each, and copied back afterwards.
void RegistryScope::Save(const std::wstring& key) {
    for (const auto& saved : saved_)
        if (saved.first == key) return;
    std::wstring subKey;
    const HKEY root = Root(key, subKey);
    HKEY handle = nullptr;
    const bool existed = ::RegOpenKeyExW(root, subKey.c_str(), 0, KEY_READ, &handle) == ERROR_SUCCESS;
    // A key that is not there goes with the outermost of its parents that is not there either.
    for (std::wstring parent = subKey.substr(0, subKey.rfind(L'\\')); !existed && parent.size() < subKey.size();
         parent = parent.substr(0, parent.rfind(L'\\'))) {
        HKEY probe = nullptr;
        if (::RegOpenKeyExW(root, parent.c_str(), 0, KEY_READ, &probe) == ERROR_SUCCESS) {
            ::RegCloseKey(probe);
            break;
        }
        Save(key.substr(0, key.size() - subKey.size()) + parent);
        saved_.emplace_back(key, L"");  // goes with its parent
        return;
    }
    const std::wstring backup = NewBackup();
    ::RegSetKeyValueW(HKEY_CURRENT_USER, backup.c_str(), L"Key", REG_SZ, key.c_str(),
                      static_cast<DWORD>((key.size() + 1) * sizeof(wchar_t)));
    if (existed) {
        HKEY copy = nullptr;
        ::RegCreateKeyExW(HKEY_CURRENT_USER, (backup + L"\\Tree").c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                          &copy, nullptr);
        ::RegCopyTreeW(handle, nullptr, copy);
        ::RegCloseKey(copy);
        ::RegCloseKey(handle);
    }
    saved_.emplace_back(key, backup);
}

RegistryScope::~RegistryScope() {
    for (size_t i = saved_.size(); i-- > 0;)
        if (!saved_[i].second.empty()) Restore(saved_[i].second);
}

bool RegistryScope::Set(const std::wstring& key, const std::wstring& name, DWORD type, const std::wstring& data) {
    Save(key);
    std::wstring subKey;
    const HKEY root = Root(key, subKey);
    std::vector<BYTE> bytes;
    if (type == REG_DWORD) {
        const DWORD value = std::wcstoul(data.c_str(), nullptr, 0);
        bytes.assign(reinterpret_cast<const BYTE*>(&value), reinterpret_cast<const BYTE*>(&value) + sizeof value);
    } else if (type == REG_BINARY) {
        for (size_t i = 0; i + 1 < data.size(); i += 2)
            bytes.push_back(static_cast<BYTE>(std::wcstoul(data.substr(i, 2).c_str(), nullptr, 16)));
    } else {
        bytes.assign(reinterpret_cast<const BYTE*>(data.c_str()),
                     reinterpret_cast<const BYTE*>(data.c_str() + data.size() + 1));
    }
    return ::RegSetKeyValueW(root, subKey.c_str(), name.empty() ? nullptr : name.c_str(), type, bytes.data(),
                             static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
}

bool RegistryScope::Delete(const std::wstring& key, const std::wstring& name) {
    Save(key);
    std::wstring subKey;
    const HKEY root = Root(key, subKey);
    ::RegDeleteKeyValueW(root, subKey.c_str(), name.empty() ? nullptr : name.c_str());
    return true;
}

Fixture::Fixture(const std::wstring& program, const std::vector<std::wstring>& options) {
    static int copies = 0;
    folder_ = std::make_unique<ScratchFolder>(L"fixture" + std::to_wstring(++copies));
    program_ = folder_->Path() + L"\\" + program;
    ::CopyFileW((ExecutableFolder() + L"\\stubbrowser.exe").c_str(), program_.c_str(), FALSE);
    std::string args;
    for (const std::wstring& option : options) args += ToUtf8(option) + "\n";
    WriteBytes(program_.substr(0, program_.find_last_of(L'.')) + L".args", args);
}

Fixture::~Fixture() { EndProcesses(program_); }

bool Fixture::Start() {
    const size_t before = Values(L"ready").size();
    std::wstring commandLine = L"\"" + program_ + L"\"";
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!::CreateProcessW(program_.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                          Folder().c_str(), &startup, &process))
        return false;
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return WaitFor([&] { return Values(L"ready").size() > before; }, 10000);
}

std::vector<std::wstring> Fixture::Values(const std::wstring& event) const {
    std::vector<std::wstring> values;
    const std::string bytes = ReadBytes(program_.substr(0, program_.find_last_of(L'.')) + L".log");
    // A line still being written has no line feed yet and is not read.
    for (const std::wstring& line : Lines(bytes.substr(0, bytes.rfind('\n') + 1)))
        if (line.compare(0, event.size() + 1, event + L" ") == 0) values.push_back(line.substr(event.size() + 1));
    return values;
}

HWND Fixture::MainWindow() const {
    const std::vector<std::wstring> ready = Values(L"ready");
    if (ready.empty()) return nullptr;
    const std::wstring& last = ready.back();
    return reinterpret_cast<HWND>(static_cast<UINT_PTR>(std::wcstoull(last.c_str() + last.find(L' '), nullptr, 16)));
}

void EndProcesses(std::wstring part) {
    for (wchar_t& ch : part) ch = static_cast<wchar_t>(std::towlower(ch));
    HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = ::Process32FirstW(snapshot, &entry); more; more = ::Process32NextW(snapshot, &entry)) {
        HANDLE process = ::OpenProcess(PROCESS_TERMINATE | PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE,
                                       entry.th32ProcessID);
        if (process == nullptr) continue;
        wchar_t image[MAX_PATH] = {};
        DWORD size = MAX_PATH;
        std::wstring path(image, ::QueryFullProcessImageNameW(process, 0, image, &size) ? size : 0);
        for (wchar_t& ch : path) ch = static_cast<wchar_t>(std::towlower(ch));
        if (!part.empty() && path.find(part) != std::wstring::npos) {
            ::TerminateProcess(process, 1);
            ::WaitForSingleObject(process, 5000);
        }
        ::CloseHandle(process);
    }
    ::CloseHandle(snapshot);
}

Watchdog::Watchdog(std::string what, DWORD timeoutMs) : done_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    thread_ = std::thread([this, what = std::move(what), timeoutMs] {
        if (::WaitForSingleObject(done_, timeoutMs) == WAIT_OBJECT_0) return;
        std::fprintf(stderr, "\nFAILED: %s did not finish within %lu ms\n", what.c_str(), timeoutMs);
        std::fflush(stderr);
        EndProcesses(L"\\wbs-tests\\");
        ::TerminateProcess(::GetCurrentProcess(), 3);
    });
}

Watchdog::~Watchdog() {
    ::SetEvent(done_);
    thread_.join();
    ::CloseHandle(done_);
}

namespace {
constexpr unsigned kMarker = 0x97;
std::mutex gInputLock;
std::condition_variable gInputArrived;
std::vector<Input> gInput;

void Record(unsigned code, bool down, ULONG_PTR extra) {
    static LARGE_INTEGER start = {}, frequency = {};
    if (frequency.QuadPart == 0) ::QueryPerformanceFrequency(&frequency), ::QueryPerformanceCounter(&start);
    LARGE_INTEGER now;
    ::QueryPerformanceCounter(&now);
    std::lock_guard<std::mutex> guard(gInputLock);
    gInput.push_back({code, down, static_cast<double>(now.QuadPart - start.QuadPart) * 1000.0 / frequency.QuadPart, extra});
    gInputArrived.notify_all();
}

LRESULT CALLBACK KeyboardHook(int code, WPARAM message, LPARAM data) {
    const auto* key = reinterpret_cast<const KBDLLHOOKSTRUCT*>(data);
    if (code == HC_ACTION) Record(key->vkCode, message == WM_KEYDOWN || message == WM_SYSKEYDOWN, key->dwExtraInfo);
    return ::CallNextHookEx(nullptr, code, message, data);
}

LRESULT CALLBACK MouseHook(int code, WPARAM message, LPARAM data) {
    if (code == HC_ACTION && (message == WM_XBUTTONDOWN || message == WM_XBUTTONUP))
        Record(0x10000 + HIWORD(reinterpret_cast<const MSLLHOOKSTRUCT*>(data)->mouseData), message == WM_XBUTTONDOWN, 0);
    return ::CallNextHookEx(nullptr, code, message, data);
}
}  // namespace

bool TakeInput(std::vector<Input>& events) {
    static const bool hooked = [] {
        HANDLE ready = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
        std::thread([ready] {
            ::SetWindowsHookExW(WH_KEYBOARD_LL, KeyboardHook, ::GetModuleHandleW(nullptr), 0);
            ::SetWindowsHookExW(WH_MOUSE_LL, MouseHook, ::GetModuleHandleW(nullptr), 0);
            ::SetEvent(ready);
            MSG message;
            while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
        }).detach();
        return ::WaitForSingleObject(ready, 5000) == WAIT_OBJECT_0;
    }();
    // Each call's marker carries its own number: a late marker of an earlier call ends nothing.
    static ULONG_PTR markers = 0;
    const ULONG_PTR marker = ++markers;
    const auto markerUp = [marker] {
        return std::find_if(gInput.begin(), gInput.end(),
                            [marker](const Input& e) { return e.code == kMarker && !e.down && e.extra == marker; });
    };
    std::unique_lock<std::mutex> guard(gInputLock, std::defer_lock);
    // Hooks just put in place may miss the first marker: it is sent again, a few times.
    for (int attempt = 0; hooked && attempt < 5; ++attempt) {
        ::keybd_event(kMarker, 0, 0, marker);
        ::keybd_event(kMarker, 0, KEYEVENTF_KEYUP, marker);
        guard.lock();
        if (gInputArrived.wait_for(guard, std::chrono::seconds(1), [&] { return markerUp() != gInput.end(); })) break;
        guard.unlock();
    }
    if (!guard.owns_lock()) return false;
    const auto end = markerUp();
    events.clear();
    std::copy_if(gInput.begin(), end, std::back_inserter(events), [](const Input& e) { return e.code != kMarker; });
    gInput.erase(gInput.begin(), end + 1);
    return true;
}

void ResetProcessWideState() {
    SendKeys_ReleaseAll();
    FactoryListAccess::DestroyInstance();
    CProcessFinder::DestroyInstance();
    ButtonNameTable::Reset();
}

std::vector<int> KeysDown() {
    std::vector<int> down;
    for (int key = 1; key < 255; ++key)
        if (key != static_cast<int>(kMarker) && (::GetAsyncKeyState(key) & 0x8000) != 0) down.push_back(key);
    return down;
}

bool StampFileVersion(const std::wstring& path, WORD major, WORD minor, WORD build, WORD revision) {
    // The resource header (length, value length, type, "VS_VERSION_INFO") padded to 32 bits, then
    // the fixed part; no string or variable blocks follow.
    const wchar_t key[] = L"VS_VERSION_INFO";
    const size_t fixedOffset = (3 * sizeof(WORD) + sizeof key + 3) & ~size_t{3};
    std::vector<BYTE> block(fixedOffset + sizeof(VS_FIXEDFILEINFO), 0);
    const WORD words[3] = {static_cast<WORD>(block.size()), static_cast<WORD>(sizeof(VS_FIXEDFILEINFO)), 0};
    std::memcpy(block.data(), words, sizeof words);
    std::memcpy(block.data() + sizeof words, key, sizeof key);
    VS_FIXEDFILEINFO fixed = {};
    fixed.dwSignature = VS_FFI_SIGNATURE;
    fixed.dwStrucVersion = VS_FFI_STRUCVERSION;
    fixed.dwFileVersionMS = fixed.dwProductVersionMS = MAKELONG(minor, major);
    fixed.dwFileVersionLS = fixed.dwProductVersionLS = MAKELONG(revision, build);
    fixed.dwFileOS = VOS_NT_WINDOWS32;
    fixed.dwFileType = VFT_APP;
    std::memcpy(block.data() + fixedOffset, &fixed, sizeof fixed);
    HANDLE update = ::BeginUpdateResourceW(path.c_str(), FALSE);
    if (update == nullptr) return false;
    const bool ok = ::UpdateResourceW(update, RT_VERSION, MAKEINTRESOURCEW(VS_VERSION_INFO),
                                      MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), block.data(),
                                      static_cast<DWORD>(block.size())) != FALSE;
    return ::EndUpdateResourceW(update, ok ? FALSE : TRUE) != FALSE && ok;
}

}  // namespace wbstest
