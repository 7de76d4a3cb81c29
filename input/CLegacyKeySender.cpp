#include "input/CLegacyKeySender.h"
#include <windows.h>
#include "core/ScopedThreadInput.h"
#include "input/ButtonNameTable.h"
#include "input/LookupButtonKeys.h"
#include "tovutil/CProcessFinder.h"
#include "tovutil/SendKeys.h"

namespace {

constexpr DWORD kModulePathChars = 260;
constexpr int kClassNameChars = 64;

// The window with the keyboard focus in the foreground window's thread; our input is attached to
// that thread only for the one GetFocus call.
HWND ForegroundFocus(const CProcessFinder& finder) {
    const HWND foreground = finder.WaitForegroundWindow();
    const DWORD thread = foreground != nullptr ? ::GetWindowThreadProcessId(foreground, nullptr) : 0;
    ScopedThreadInput attached(thread);
    return ::GetFocus();
}

CStdStr ClassNameOf(HWND window) {
    wchar_t name[kClassNameChars] = {};
    if (window != nullptr) ::GetClassNameW(window, name, kClassNameChars);
    return CStdStr(std::wstring(name));
}

}  // namespace

CLegacyKeySender::CLegacyKeySender() { ButtonNameTable::Fill(); }

void CLegacyKeySender::SetMappingFileBase(const wchar_t* name) {
    wchar_t path[kModulePathChars] = {};
    const DWORD length = ::GetModuleFileNameW(nullptr, path, kModulePathChars);
    std::wstring base(path, length);
    base.erase(base.find_last_of(L'\\') + 1);
    if (name != nullptr) base += name;
    mappingFileBase_ = base;
}

int CLegacyKeySender::SendButton(unsigned short button, int pressed, int repeated) {
    if (pressed == 0) {
        SendKeys_ReleaseAll();
        return 0;
    }
    if (repeated == 0) {
        const CProcessFinder* finder = CProcessFinder::Instance(true);
        // Without a process finder nothing can be looked up, and the press is reported as not handled.
        if (finder == nullptr) return 0;
        // The foreground program's name goes in bare, with its ".exe": the profile functions then
        // look for "<program>.exe.QXM" in the Windows folder.
        const CStdStr base = mappingFileBase_.empty() ? finder->GetForegroundProcessName() : mappingFileBase_;
        const CStdStr className = ClassNameOf(ForegroundFocus(*finder));
        // A code beyond the table leaves keys_ as the previous press found it, so that press is
        // sent again: buttons without a name repeat the last mapped one.
        LookupButtonKeys(CStdStr(base + L".QXM"), extraText_, className, button, keys_);
    }
    // Its status is not looked at, as nowhere that a key string is sent.
    if (!keys_.empty()) SendKeys(keys_.c_str());
    return 1;
}
