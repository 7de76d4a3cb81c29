#include "tovutil/CProcessFinder.h"
#include <memory>
#include "core/ScopedHandle.h"

namespace {
std::unique_ptr<CProcessFinder>& TheFinder() {
    static std::unique_ptr<CProcessFinder> finder;
    return finder;
}
constexpr DWORD kForegroundWaitMs = 1000;
constexpr DWORD kForegroundPollMs = 20;
}  // namespace

CProcessFinder* CProcessFinder::Instance(bool create) {
    auto& finder = TheFinder();
    if (!finder && create) finder.reset(new (std::nothrow) CProcessFinder());
    return finder.get();
}

void CProcessFinder::DestroyInstance() noexcept { TheFinder().reset(); }

CStdStr CProcessFinder::GetProcessName(DWORD processId) const {
    if (processId == 0) return CStdStr();
    ScopedHandle process(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
    if (!process) return CStdStr();
    wchar_t path[MAX_PATH * 4] = {};
    DWORD size = static_cast<DWORD>(sizeof path / sizeof path[0]);
    if (!::QueryFullProcessImageNameW(process.get(), 0, path, &size)) return CStdStr();
    std::wstring full(path, size);
    const auto slash = full.find_last_of(L"\\/");
    return CStdStr(slash == std::wstring::npos ? full : full.substr(slash + 1));
}

CStdStr CProcessFinder::GetForegroundProcessName(HWND window) const {
    if (window == nullptr) return CStdStr();
    if (scopes_ > 0 && window == namedWindow_) return programName_;
    DWORD processId = 0;
    CStdStr name = ::GetWindowThreadProcessId(window, &processId) == 0 ? CStdStr() : GetProcessName(processId);
    if (scopes_ > 0) {
        namedWindow_ = window;
        programName_ = name;
    }
    return name;
}

CProcessFinder::CommandScope::~CommandScope() {
    if (--finder_.scopes_ > 0) return;
    finder_.namedWindow_ = nullptr;
    finder_.programName_.clear();
}

CStdStr CProcessFinder::GetForegroundProcessName() const {
    return GetForegroundProcessName(::GetForegroundWindow());
}

HWND CProcessFinder::WaitForegroundWindow() const noexcept {
    const ULONGLONG start = ::GetTickCount64();
    for (;;) {
        HWND foreground = ::GetForegroundWindow();
        if (foreground != nullptr || ::GetTickCount64() - start >= kForegroundWaitMs) return foreground;
        ::Sleep(kForegroundPollMs);
    }
}
