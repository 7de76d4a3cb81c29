#pragma once
#include <string_view>
#include <vector>

// The AOL favorites file, as this reader takes it (all numbers unsigned):
//
//   header     4 bytes   the signature "FAVS"; a file that does not begin with it holds nothing
//   then records, back to back up to the end of the file:
//   kind       1 byte    1 a folder, 2 a link; any other value ends the read
//   id         4 bytes   b0 + b1*256 + b2*65536 + b3*16777216; what the folder's contents name as parent
//   parent     4 bytes   as id: 0 the top level, else the id of the folder the record lies in
//   name size  4 bytes   b0 + b1*255 + b2*65535 + b3*16777215
//   name       that many bytes, UTF-8
//   links only:
//   URL size   4 bytes   b0 + b1*256 + b2*65536 + b3*16777216
//   URL        that many bytes, UTF-8
//
// The name size combines its bytes with 255 and 65535 (the highest byte with 16777215, carrying
// the pattern on), not 256 and 65536: the files are written that way, so names of 255 bytes and
// more are only found with these multipliers. The URL size is plain little-endian.
//
// Folders are rebuilt in one pass in file order, so a folder's contents follow it. A record whose
// parent is 0 closes every open folder; any other parent must be an open folder (the innermost one
// of that id), and the folders opened inside that one close first. A parent that is no open folder
// (never read, already closed, a link, the record itself or one further on, hence every parent
// loop) ends the read, and so do an unknown kind, a record cut short by the end of the file and a
// size that reaches past it. What was read before stays, and the folders still open are closed.
// 0 is the top level and never a folder: a folder with id 0 holds nothing.
enum class AOLFavoritesRecordKind { FolderStart, FolderEnd, Link };

struct AOLFavoritesRecord {
    AOLFavoritesRecordKind kind = AOLFavoritesRecordKind::Link;
    std::string_view name;  // the name's bytes in the file; an end repeats its folder's name
    std::string_view url;   // Link: the URL's bytes in the file
};

// The entries of the file's bytes in list order, every folder opened also closed. The views point
// into bytes.
std::vector<AOLFavoritesRecord> ReadAOLFavoritesRecords(std::string_view bytes);
