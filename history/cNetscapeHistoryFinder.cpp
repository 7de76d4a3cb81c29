#include "history/cNetscapeHistoryFinder.h"
#include <windows.h>
#include <vector>
#include "core/ScopedRegKey.h"
#include "core/StringCase.h"
#include "favorites/MozillaProfile.h"
#include "favorites/cFileInformation.h"
#include "favorites/cLineFile.h"

namespace {
const wchar_t kBiffKey[] = L"Software\\Netscape\\Netscape Navigator\\biff";
const wchar_t kCurrentUserValue[] = L"CurrentUser";
const wchar_t kDefaultProfile[] = L"default";
const wchar_t kProfileMark[] = L"\\bookmarks.htm*";
const wchar_t kSectionStart[] = L"urlbar-history";
const wchar_t kSectionEnd[] = L"/rdf:seq";

// The current Navigator user's profile name. False when the biff key exists without its value.
bool ReadNavigatorProfileName(CStdStr& name) {
    ScopedRegKey biff;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, kBiffKey, 0, KEY_READ, biff.Receive()) != ERROR_SUCCESS) {
        name = kDefaultProfile;
        return true;
    }
    DWORD size = 0;
    if (::RegQueryValueExW(biff.get(), kCurrentUserValue, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS)
        return false;
    std::vector<wchar_t> data(size / sizeof(wchar_t) + 1, L'\0');
    if (::RegQueryValueExW(biff.get(), kCurrentUserValue, nullptr, nullptr, reinterpret_cast<BYTE*>(data.data()),
                           &size) != ERROR_SUCCESS)
        return false;
    name = data.data();
    return true;
}

void LowerCaseLine(std::string_view bytes, std::wstring& line) {
    WidenBytes(bytes, line);
    LowerCaseInPlace(line);
}
}  // namespace

bool cNetscapeHistoryFinder::FindNavigatorProfileFile(const wchar_t* profilesRoot, CStdStr& path) {
    CStdStr profile;
    if (!ReadNavigatorProfileName(profile)) return false;
    // The profile directory is the first sub-folder of the user's profile that holds a bookmark file.
    CStdStr marked;
    if (!FindProfileFile(CStdStr(profilesRoot) + profile + L"\\", kProfileMark, marked)) return false;
    path = marked.substr(0, marked.size() - std::wstring_view(kProfileMark).size()) + L"\\localstore.rdf";
    return cFileInformation(path.c_str()).Found();
}

bool cNetscapeHistoryFinder::FindHistoryFile(CStdStr& path) {
    return FindNavigatorProfileFile(L"\\Netscape\\NSB\\Profiles\\", path);
}

void cNetscapeHistoryFinder::ReadHistoryFile(HistoryList& list) {
    const std::unique_ptr<cLineFile> file = OpenHistoryFile();
    if (!file) return;

    std::string_view bytes;
    std::wstring line;  // its storage serves every line
    bool inSection = false;
    while (!inSection && file->ReadLine(bytes)) {
        LowerCaseLine(bytes, line);
        inSection = line.find(kSectionStart) != std::wstring::npos;
    }
    if (!inSection) return;

    // A line without an element repeats the previous address (empty before the first), so
    // blank lines inside the sequence become entries too.
    HistoryEntry entry;  // its text's storage serves every line; AddEntry copies it into the list
    while (file->Stream().good() && file->ReadLine(bytes)) {
        LowerCaseLine(bytes, line);
        if (line.find(kSectionEnd) != std::wstring::npos) break;
        (void)ExtractElementText(line.data(), entry.Text);
        AddEntry(list, entry);
    }
}
