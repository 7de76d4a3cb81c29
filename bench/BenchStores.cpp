#include "BenchStores.h"
#include <cstdint>
#include "core/ScopedFileHandle.h"

namespace wbsbench {

namespace {
const wchar_t kShellFolders[] = L"HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
const wchar_t kOperaAppPath[] = L"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Opera.exe";
const wchar_t kAOLVersion[] = L"HKLM\\SOFTWARE\\America Online\\AOL\\CurrentVersion";
const wchar_t kTypedUrls[] = L"HKCU\\Software\\Microsoft\\Internet Explorer\\TypedURLs";
constexpr int kTypedAddresses = 50;

std::string Number(int value) { return std::to_string(value); }

void AppendLittleEndian(std::string& bytes, std::uint32_t value) {
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
}

std::unique_ptr<char[]> ReadWhole(const std::wstring& path, DWORD& size) {
    size = 0;
    ScopedFileHandle file(::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    LARGE_INTEGER length = {};
    if (!file || !::GetFileSizeEx(file.get(), &length)) return nullptr;
    std::unique_ptr<char[]> bytes(new char[static_cast<std::size_t>(length.QuadPart) + 1]);
    if (!::ReadFile(file.get(), bytes.get(), static_cast<DWORD>(length.QuadPart), &size, nullptr)) return nullptr;
    return bytes;
}
}  // namespace

const wchar_t* const BenchStores::kFirefoxBookmarks = L"AppData\\Mozilla\\Firefox\\Profiles\\bench.default\\bookmarks.html";
const wchar_t* const BenchStores::kFirefoxHistory = L"AppData\\Mozilla\\Firefox\\Profiles\\bench.default\\localstore.rdf";
const wchar_t* const BenchStores::kOperaHotlist = L"Opera\\Profile\\opera6.adr";
const wchar_t* const BenchStores::kOperaHistory = L"Opera\\Opera.dir";
const wchar_t* const BenchStores::kAOLFavorites = L"AOL\\Organize\\main";
const wchar_t* const BenchStores::kAOLHistory = L"AOL\\Organize\\main.AUT";
const wchar_t* const BenchStores::kFavorites = L"Favorites";

std::string BookmarksHtml(int bookmarks) {
    std::string html =
        "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; "
        "charset=UTF-8\">\n<TITLE>Bookmarks</TITLE>\n<H1>Bookmarks Menu</H1>\n\n<DL><p>\n";
    html.reserve(static_cast<std::size_t>(bookmarks) * 260);
    for (int folder = 0; folder * 50 < bookmarks; ++folder) {
        const std::string f = Number(folder);
        html += "    <DT><H3 ADD_DATE=\"1199145600\" LAST_MODIFIED=\"1199145700\" ID=\"rdf:#$F" + f + "\">Folder " + f +
                "</H3>\n    <DL><p>\n";
        for (int mark = 0; mark < 50 && folder * 50 + mark < bookmarks; ++mark) {
            const std::string m = f + "." + Number(mark);
            html += "        <DT><A HREF=\"http://www.example.com/section/" + m +
                    "/index.html?ref=bookmarks\" ADD_DATE=\"1199145600\" LAST_MODIFIED=\"1199145700\" "
                    "ICON=\"data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAABAAAAAQ\" LAST_CHARSET=\"UTF-8\" "
                    "ID=\"rdf:#$B" + m + "\">Caf\xC3\xA9 page " + m + "</A>\n";
        }
        html += "    </DL><p>\n";
    }
    return html + "</DL><p>\n";
}

std::string LocalStoreRdf(int lines) {
    std::string rdf = "<?xml version=\"1.0\"?>\n<RDF:RDF xmlns:RDF=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
                      "  <RDF:Seq RDF:about=\"nc:urlbar-history\">\n";
    rdf.reserve(static_cast<std::size_t>(lines) * 64);
    for (int line = 3; line < lines - 2; ++line)
        rdf += line % 2 ? "    <RDF:li>http://www.example.com/typed/address/" + Number(line) + "</RDF:li>\n"
                        : "    <RDF:Description RDF:about=\"rdf:#$" + Number(line) + "\"/>\n";
    return rdf + "  </RDF:Seq>\n</RDF:RDF>\n";
}

std::string OperaHotlist(int records) {
    std::string hotlist = "Opera Hotlist version 2.0\nOptions: encoding = utf8, version=3\n\n";
    hotlist.reserve(static_cast<std::size_t>(records) * 140);
    int id = 0;
    for (int record = 0; record < records; ++record) {
        if (record % 50 == 0) {
            if (record > 0) hotlist += "-\n\n";
            hotlist += "#FOLDER\n\tID=" + Number(++id) + "\n\tNAME=Folder " + Number(record / 50) +
                       "\n\tCREATED=1199145600\n\n";
        } else {
            hotlist += "#URL\n\tID=" + Number(++id) + "\n\tNAME=Caf\xC3\xA9 page " + Number(record) +
                       "\n\tURL=http://www.example.com/section/" + Number(record) +
                       "/index.html\n\tCREATED=1199145600\n\tVISITED=1199145700\n\n";
        }
    }
    return hotlist + "-\n";
}

std::string OperaDirectory(int lines) {
    std::string dir = "Opera Directory File version 2.0\n";
    dir.reserve(static_cast<std::size_t>(lines) * 48);
    for (int line = 0; line < lines; ++line) dir += "http://www.example.com/typed/address/" + Number(line) + "\n";
    return dir;
}

std::string AOLFavorites(int links) {
    std::string bytes = "FAVS";
    bytes.reserve(static_cast<std::size_t>(links) * 64);
    std::uint32_t id = 0;
    std::uint32_t folderId = 0;
    const auto record = [&bytes](char kind, std::uint32_t recordId, std::uint32_t parent, const std::string& name) {
        bytes += kind;
        AppendLittleEndian(bytes, recordId);
        AppendLittleEndian(bytes, parent);
        AppendLittleEndian(bytes, static_cast<std::uint32_t>(name.size()));  // below 255: one byte says it
        bytes += name;
    };
    for (int link = 0; link < links; ++link) {
        if (link % 50 == 0) record(1, folderId = ++id, 0, "Folder " + Number(link / 50));
        const std::string url = "http://www.example.com/section/" + Number(link) + "/index.html";
        record(2, ++id, folderId, "Caf\xC3\xA9 page " + Number(link));
        AppendLittleEndian(bytes, static_cast<std::uint32_t>(url.size()));
        bytes += url;
    }
    return bytes;
}

std::string AOLHistory(int records) {
    std::string bytes("AOLHISTORY1", 11);
    bytes += '\0';  // the twelfth character: the records' separator
    bytes.reserve(static_cast<std::size_t>(records) * 48);
    for (int record = 0; record < records; ++record)
        bytes += "http://www.example.com/typed/address/" + Number(record) + '\0';
    return bytes;
}

BenchStores::BenchStores() : root_(L"WbsBenchStores") {
    registry_.Set(kShellFolders, L"AppData", REG_EXPAND_SZ, Path(L"AppData"));
    registry_.Set(kShellFolders, L"Favorites", REG_EXPAND_SZ, Path(kFavorites));
    registry_.Set(kOperaAppPath, L"", REG_SZ, Path(L"Opera\\opera.exe"));
    registry_.Set(kAOLVersion, L"AppPath", REG_SZ, Path(L"AOL"));
    for (int i = 1; i <= kTypedAddresses; ++i)
        registry_.Set(kTypedUrls, L"url" + std::to_wstring(i), REG_SZ,
                      L"http://typed" + std::to_wstring(i) + L".example.com/");
}

std::size_t BenchStores::Place(const std::wstring& relative, std::string (*generate)(int), int size) {
    auto placed = placed_.find(relative);
    if (placed != placed_.end() && placed->second.first == size) return placed->second.second;
    const std::string bytes = generate(size);
    if (!wbstest::WriteBytes(Path(relative), bytes)) return 0;
    placed_[relative] = {size, bytes.size()};
    return bytes.size();
}

namespace {
std::unique_ptr<BenchStores>& TheStores() {
    static std::unique_ptr<BenchStores> stores;
    return stores;
}
}  // namespace

BenchStores& Stores() {
    if (!TheStores()) TheStores() = std::make_unique<BenchStores>();
    return *TheStores();
}

void EndStores() { TheStores().reset(); }

std::size_t ReadAndDecode(const std::wstring& path, unsigned int codePage) {
    DWORD size = 0;
    const std::unique_ptr<char[]> bytes = ReadWhole(path, size);
    if (!bytes || size == 0) return 0;
    std::unique_ptr<wchar_t[]> text(new wchar_t[size]);
    return static_cast<std::size_t>(
        ::MultiByteToWideChar(codePage, 0, bytes.get(), static_cast<int>(size), text.get(), static_cast<int>(size)));
}

std::size_t ReadAndWiden(const std::wstring& path) {
    DWORD size = 0;
    const std::unique_ptr<char[]> bytes = ReadWhole(path, size);
    if (!bytes || size == 0) return 0;
    std::unique_ptr<wchar_t[]> text(new wchar_t[size]);
    for (DWORD i = 0; i < size; ++i) text[i] = static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]));
    return size;
}

}  // namespace wbsbench
