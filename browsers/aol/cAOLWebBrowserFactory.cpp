#include "browsers/aol/cAOLWebBrowserFactory.h"
#include <new>
#include "browsers/aol/cAOLWebBrowser.h"
#include "core/StringCase.h"
#include "tovutil/CProcessFinder.h"
#include "tovutil/CVerInfo.h"

namespace {
const wchar_t kUnsupportedText[] = L"This version of AOL is not supported";
const wchar_t kUnsupportedCaption[] = L"Corvane";

// The major file version of the installed AOL program; 0 when it has none that can be read.
// False when the AOL program folder is not registered.
bool InstalledAOLMajor(WORD& major) {
    CStdStr folder;
    if (!cAOLWebBrowser::ReadProgramFolder(folder)) return false;
    const CStdStr program = folder + AOLConstants::VersionSuffix;
    CVerInfo info;
    CVerNum version;
    major = info.Init(program.c_str()) && info.GetFileVersionNum(version) ? version.GetMajor() : 0;
    return true;
}
}  // namespace

// A window in front is driven whatever AOL version owns it; only the default browser is checked.
bool cAOLWebBrowserFactory::CreateBrowser(HWND window, CProcessFinder* finder, iWebBrowser*& out, const CStdStr&) {
    if (window == nullptr || finder == nullptr) return false;
    CStdStr programName = finder->GetForegroundProcessName(window);
    LowerCaseInPlace(programName);
    if (programName != AOLConstants::ProgramName && programName != AOLConstants::ExplorerName) return false;
    out = new (std::nothrow) cAOLWebBrowser(window);
    return out != nullptr;
}

// The default-browser command line is searched as it stands, capitals included.
bool cAOLWebBrowserFactory::IsBrowserProcess(const CStdStr& programPath, iWebBrowser*& out) {
    if (programPath.find(AOLConstants::ProgramName) == CStdStr::npos &&
        programPath.find(AOLConstants::ShortProgramName) == CStdStr::npos)
        return false;
    WORD major = 0;
    if (!InstalledAOLMajor(major) || (major != 8 && major != 9)) {
        // The one message this library ever shows.
        ::MessageBoxW(nullptr, kUnsupportedText, kUnsupportedCaption, MB_OK);
        return false;
    }
    out = new (std::nothrow) cAOLWebBrowser();
    return out != nullptr;
}
