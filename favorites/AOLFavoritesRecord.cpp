#include "favorites/AOLFavoritesRecord.h"
#include <cstdint>

namespace {
constexpr std::string_view kSignature = "FAVS";
constexpr unsigned char kFolderKind = 1;
constexpr unsigned char kLinkKind = 2;
constexpr std::uint64_t kPlainMultipliers[] = {1, 256, 65536, 16777216};
constexpr std::uint64_t kNameSizeMultipliers[] = {1, 255, 65535, 16777215};

// The unread rest of the file; every take fails, taking nothing, when too few bytes are left.
class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) : rest_(bytes) {}
    bool AtEnd() const noexcept { return rest_.empty(); }

    bool TakeByte(unsigned char& value) noexcept {
        if (rest_.empty()) return false;
        value = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return true;
    }
    bool TakeNumber(const std::uint64_t (&multipliers)[4], std::uint64_t& value) noexcept {
        if (rest_.size() < 4) return false;
        value = 0;
        for (int i = 0; i < 4; ++i) value += static_cast<unsigned char>(rest_[i]) * multipliers[i];
        rest_.remove_prefix(4);
        return true;
    }
    // A size is checked against what is left before anything is taken, so no size is trusted.
    bool TakeText(const std::uint64_t (&multipliers)[4], std::string_view& text) noexcept {
        std::uint64_t size = 0;
        if (!TakeNumber(multipliers, size) || size > rest_.size()) return false;
        text = rest_.substr(0, static_cast<std::string_view::size_type>(size));
        rest_.remove_prefix(text.size());
        return true;
    }

private:
    std::string_view rest_;
};

struct OpenFolder {
    std::uint64_t id;
    std::string_view name;
};
}  // namespace

std::vector<AOLFavoritesRecord> ReadAOLFavoritesRecords(std::string_view bytes) {
    std::vector<AOLFavoritesRecord> records;
    if (bytes.substr(0, kSignature.size()) != kSignature) return records;
    ByteReader reader(bytes.substr(kSignature.size()));
    std::vector<OpenFolder> open;  // innermost last
    const auto closeDownTo = [&](std::vector<OpenFolder>::size_type depth) {
        while (open.size() > depth) {
            records.push_back({AOLFavoritesRecordKind::FolderEnd, open.back().name, {}});
            open.pop_back();
        }
    };

    while (!reader.AtEnd()) {
        unsigned char kind = 0;
        std::uint64_t id = 0;
        std::uint64_t parent = 0;
        std::string_view name;
        std::string_view url;
        if (!reader.TakeByte(kind) || (kind != kFolderKind && kind != kLinkKind)) break;
        if (!reader.TakeNumber(kPlainMultipliers, id) || !reader.TakeNumber(kPlainMultipliers, parent)) break;
        if (!reader.TakeText(kNameSizeMultipliers, name)) break;
        if (kind == kLinkKind && !reader.TakeText(kPlainMultipliers, url)) break;

        // The depth at which the record lies: below its parent, the innermost open folder of that id.
        std::vector<OpenFolder>::size_type depth = 0;
        if (parent != 0) {
            depth = open.size();
            while (depth > 0 && open[depth - 1].id != parent) --depth;
            if (depth == 0) break;
        }
        closeDownTo(depth);
        if (kind == kFolderKind) {
            records.push_back({AOLFavoritesRecordKind::FolderStart, name, {}});
            // A folder of id 0 is entered, but nothing can name it as parent: 0 is the top level.
            open.push_back({id, name});
        } else {
            records.push_back({AOLFavoritesRecordKind::Link, name, url});
        }
    }
    closeDownTo(0);
    return records;
}
