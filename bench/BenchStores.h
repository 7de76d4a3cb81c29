#pragma once
// The stores the readers' benchmarks read: generated files of a chosen size placed where each
// browser keeps them, below a scratch root that the user's application-data and Favorites folders
// and the Opera and AOL registrations point at for the run; and the floors, the plain work of
// reading the same bytes.
#include <windows.h>
#include <map>
#include <utility>
#include <string>
#include "support/TestSupport.h"

namespace wbsbench {

// Generated contents, every size counted in the unit the table names.
std::string BookmarksHtml(int bookmarks);   // folders of 50 bookmarks, each line as Firefox writes it
std::string LocalStoreRdf(int lines);       // a URL-bar sequence with every other line a one-line element
std::string OperaHotlist(int records);      // folders of 49 links: 50 records a folder, with Opera 6's keys
std::string OperaDirectory(int lines);      // a header line and typed addresses
std::string AOLFavorites(int links);        // folders of 50 links, in the binary layout the reader takes
std::string AOLHistory(int records);        // the 12-character header and NUL-separated addresses

// The scratch root and the registrations that lead the readers to it; everything is put back
// when the run ends.
class BenchStores {
public:
    BenchStores();
    std::wstring Path(const std::wstring& relative) const { return root_.Path() + L"\\" + relative; }
    // Puts the generated store of the given size at relative, unless it is there already from
    // the last call; answers its size in bytes, 0 when it could not be written.
    std::size_t Place(const std::wstring& relative, std::string (*generate)(int), int size);

    static const wchar_t* const kFirefoxBookmarks;
    static const wchar_t* const kFirefoxHistory;
    static const wchar_t* const kOperaHotlist;
    static const wchar_t* const kOperaHistory;
    static const wchar_t* const kAOLFavorites;
    static const wchar_t* const kAOLHistory;
    static const wchar_t* const kFavorites;

private:
    wbstest::ScratchFolder root_;
    wbstest::RegistryScope registry_;
    std::map<std::wstring, std::pair<int, std::size_t>> placed_;  // relative path: size, bytes
};

// The stores of the run, made on first use and removed by EndStores.
BenchStores& Stores();
void EndStores();

// The floors of the file readers: the whole file read with ReadFile and turned into wide text in
// one call, by MultiByteToWideChar in codePage or by widening each byte. Answer the characters made.
std::size_t ReadAndDecode(const std::wstring& path, unsigned int codePage);
std::size_t ReadAndWiden(const std::wstring& path);

}  // namespace wbsbench
