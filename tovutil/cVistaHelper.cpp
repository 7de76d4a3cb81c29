#include "tovutil/cVistaHelper.h"

namespace {
using IsWow64ProcessFn = BOOL(WINAPI*)(HANDLE, PBOOL);
using DisableRedirectionFn = BOOL(WINAPI*)(PVOID*);
using RevertRedirectionFn = BOOL(WINAPI*)(PVOID);

template <typename Fn>
Fn Kernel32Function(const char* name) noexcept {
    HMODULE kernel = ::GetModuleHandleW(L"kernel32.dll");
    return kernel ? reinterpret_cast<Fn>(reinterpret_cast<void*>(::GetProcAddress(kernel, name))) : nullptr;
}
}  // namespace

cVistaHelper::cVistaHelper() noexcept {
    auto isWow64 = Kernel32Function<IsWow64ProcessFn>("IsWow64Process");
    BOOL wow64 = FALSE;
    if (isWow64 == nullptr || !isWow64(::GetCurrentProcess(), &wow64) || !wow64) return;
    auto disable = Kernel32Function<DisableRedirectionFn>("Wow64DisableWow64FsRedirection");
    redirectionOff_ = disable != nullptr && disable(&oldValue_) != FALSE;
}

cVistaHelper::~cVistaHelper() {
    if (!redirectionOff_) return;
    if (auto revert = Kernel32Function<RevertRedirectionFn>("Wow64RevertWow64FsRedirection")) revert(oldValue_);
}
