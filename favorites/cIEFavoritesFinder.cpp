#include "favorites/cIEFavoritesFinder.h"
#include <shlobj.h>
#include <shlguid.h>
#include <intshcut.h>
#include "core/ScopedFindHandle.h"
#include "core/StringCase.h"

namespace {
const wchar_t kUrlExtension[] = L".url";
const wchar_t kLinkExtension[] = L".lnk";

// Creates an in-process shell object and loads the shortcut file into it, read-only.
template <typename Interface>
HRESULT CreateLoaded(const CLSID& type, const IID& interfaceId, const CStdStr& path, ComPtr<Interface>& object) {
    HRESULT result = ::CoCreateInstance(type, nullptr, CLSCTX_INPROC_SERVER, interfaceId, object.ReceiveVoid());
    if (FAILED(result)) return result;
    ComPtr<IPersistFile> file;
    result = object->QueryInterface(IID_IPersistFile, file.ReceiveVoid());
    if (FAILED(result)) return result;
    return file->Load(path.c_str(), STGM_READ);
}
// A folder as the walk compares it: its long form (a link's target comes in the short one), lower-cased.
std::wstring WalkName(const std::wstring& folder) {
    std::wstring name(MAX_PATH, L'\0');
    const DWORD length = ::GetLongPathNameW(folder.c_str(), name.data(), MAX_PATH);
    name = length > 0 && length < MAX_PATH ? name.substr(0, length) : folder;
    LowerCaseInPlace(name);
    return name;
}
}  // namespace

bool cIEFavoritesFinder::GetFavorites(FavoritesList& list) {
    list.clear();
    linksWalked_.clear();

    LPITEMIDLIST favorites = nullptr;
    if (FAILED(::SHGetSpecialFolderLocation(::GetDesktopWindow(), CSIDL_FAVORITES, &favorites))) return false;
    wchar_t path[MAX_PATH] = {};
    const BOOL havePath = ::SHGetPathFromIDListW(favorites, path);
    if (FAILED(::SHGetMalloc(shellAllocator_.Receive()))) {
        // The item list came from the task allocator, which is the shell allocator too.
        ::CoTaskMemFree(favorites);
        return false;
    }
    shellAllocator_->Free(favorites);
    // A Favorites location outside the file system has no path; walking "\" would list a drive.
    if (!havePath) return false;

    const CStdStr folder = CStdStr(path) + L"\\";
    // Whatever ended the walk, the entries read so far are the answer.
    (void)EnumFavoritesFolder(list, folder.c_str(), true);
    return true;
}

HRESULT cIEFavoritesFinder::EnumFavoritesFolder(FavoritesList& list, const wchar_t* folder, bool /*topLevel*/) {
    // topLevel is true at every level and changes nothing; it stays for the operation's signature.
    const CStdStr prefix(folder);
    walkPath_.push_back(WalkName(prefix));
    const struct Leave {
        std::vector<std::wstring>& path;
        ~Leave() { path.pop_back(); }
    } leave{walkPath_};
    WIN32_FIND_DATAW found = {};
    ScopedFindHandle search(::FindFirstFileW((prefix + L"*.*").c_str(), &found));
    if (!search) return HRESULT_FROM_WIN32(::GetLastError());

    do {
        const CStdStr name(found.cFileName);
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            // The extension is searched anywhere and case-sensitively: a.url.bak is a favorite
            // titled a, while Site.URL is no favorite at all.
            const size_t urlAt = name.find(kUrlExtension);
            if (urlAt != CStdStr::npos) {
                CStdStr url;
                if (SUCCEEDED(ReadUrlShortcut(prefix + name, url))) AddFavorite(list, name.substr(0, urlAt), url);
            } else if (name.find(kLinkExtension) != CStdStr::npos) {
                CStdStr target;
                if (SUCCEEDED(ResolveLinkTarget(prefix + name, target))) {
                    // A linked folder keeps its whole file name, ".lnk" included, unlike a favorite's title.
                    AddFolderStart(list, name);
                    // The linked folder's contents go inside the entry; a target that cannot be
                    // listed (a file, a vanished folder) leaves it empty and the walk goes on.
                    if (!target.empty() && target.back() != L'\\') target += L'\\';
                    // Each linked folder is walked once a read: links among folders outside the Favorites
                    // could otherwise lead through every path between them.
                    if (!IsOnWalkPath(target) && linksWalked_.insert(WalkName(target)).second)
                        (void)EnumFavoritesFolder(list, target.c_str(), true);
                    AddFolderEnd(list, name);
                }
            }
        } else if (name != L"." && name != L"..") {
            AddFolderStart(list, name);
            const HRESULT inner = EnumFavoritesFolder(list, (prefix + name + L"\\").c_str(), true);
            AddFolderEnd(list, name);
            if (FAILED(inner)) return inner;
        }
    } while (::FindNextFileW(search.get(), &found));

    const DWORD error = ::GetLastError();
    return error == ERROR_NO_MORE_FILES ? S_OK : HRESULT_FROM_WIN32(error);
}

bool cIEFavoritesFinder::IsOnWalkPath(const CStdStr& target) const {
    const std::wstring folder = WalkName(target);
    for (const std::wstring& walked : walkPath_)
        if (walked.compare(0, folder.size(), folder) == 0) return true;
    return false;
}

HRESULT cIEFavoritesFinder::ReadUrlShortcut(const CStdStr& path, CStdStr& url) {
    ComPtr<IUniformResourceLocatorW> shortcut;
    HRESULT result = CreateLoaded(CLSID_InternetShortcut, IID_IUniformResourceLocatorW, path, shortcut);
    if (FAILED(result)) return result;

    LPWSTR address = nullptr;
    result = shortcut->GetURL(&address);
    if (address != nullptr) {
        url = address;
        // Read outside a walk, before any shell allocator was obtained: the task allocator is the same.
        if (shellAllocator_)
            shellAllocator_->Free(address);
        else
            ::CoTaskMemFree(address);
    }
    return result;
}

HRESULT cIEFavoritesFinder::ResolveLinkTarget(const CStdStr& path, CStdStr& target) {
    ComPtr<IShellLinkW> link;
    HRESULT result = CreateLoaded(CLSID_ShellLink, IID_IShellLinkW, path, link);
    if (FAILED(result)) return result;
    // A link that cannot be resolved still names the path it was made for: that path is taken,
    // and the answer is the path query's.
    (void)link->Resolve(::GetForegroundWindow(), SLR_NO_UI);

    wchar_t resolved[MAX_PATH] = {};
    result = link->GetPath(resolved, MAX_PATH, nullptr, SLGP_SHORTPATH);
    target = resolved;
    return result;
}
