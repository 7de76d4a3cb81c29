#include "favorites/cLineFile.h"
#include <windows.h>
#include <new>
#include "favorites/cFileInformation.h"

namespace {
std::string ToAnsi(const std::wstring& text) {
    const int size =
        ::WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
    if (size <= 0) return std::string();
    std::string narrow(static_cast<std::string::size_type>(size), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), narrow.data(), size, nullptr, nullptr);
    return narrow;
}

// The stream's own buffer is 4 KiB with this toolchain's runtime: a large file would be a
// system call every few lines.
constexpr std::streamsize kStreamBufferSize = 1 << 16;
}  // namespace

cLineFile::cLineFile(const CStdStr& path) {
    // The stream's own buffer is set before the file is opened, while the stream can still take
    // one; without it the stream keeps its own.
    streamBuffer_.reset(new (std::nothrow) char[static_cast<std::size_t>(kStreamBufferSize)]);
    if (streamBuffer_ != nullptr) stream_.rdbuf()->pubsetbuf(streamBuffer_.get(), kStreamBufferSize);
    // Opened before it is sized: a browser that replaces its store meanwhile cannot replace the
    // open file, so the size is that of what is read and no line of it can outgrow the buffer.
    stream_.open(ToAnsi(path), std::ios::in);
    capacity_ = static_cast<std::streamsize>(cFileInformation(path.c_str()).SizeLow());
    buffer_.reset(new (std::nothrow) char[static_cast<std::size_t>(capacity_) + 1]);
}

std::unique_ptr<cLineFile> cLineFile::Open(const CStdStr& path) {
    auto file = std::make_unique<cLineFile>(path);
    if (!file->HasBuffer()) return nullptr;
    return file;
}

bool cLineFile::ReadLine(std::string_view& line) {
    line = std::string_view();
    // The buffer holds the whole file and its terminator; a line may be as long as the file.
    stream_.getline(buffer_.get(), capacity_ + 1);
    std::streamsize length = stream_.gcount();
    if (length == 0 && stream_.fail()) return false;
    if (!stream_.fail() && !stream_.eof()) --length;  // the newline was taken, not stored
    line = std::string_view(buffer_.get(), static_cast<std::string_view::size_type>(length));
    // A line ends at its first NUL, as the C string each reader has always made of it; no entry
    // holds a NUL that would hide its rest from the host.
    line = line.substr(0, line.find('\0'));
    return true;
}

std::wstring BytesToWide(std::string_view bytes, unsigned int codePage) {
    std::wstring wide;
    BytesToWide(bytes, codePage, wide);
    return wide;
}

void BytesToWide(std::string_view bytes, unsigned int codePage, std::wstring& wide) {
    if (bytes.empty()) {
        wide.clear();
        return;
    }
    // No code page gives more characters than bytes, so one call fills the string.
    wide.resize(bytes.size());
    const int count = ::MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()), wide.data(),
                                            static_cast<int>(wide.size()));
    wide.resize(count > 0 ? static_cast<std::wstring::size_type>(count) : 0);
}

std::wstring WidenBytes(std::string_view bytes) {
    std::wstring wide;
    WidenBytes(bytes, wide);
    return wide;
}

void WidenBytes(std::string_view bytes, std::wstring& wide) {
    wide.resize(bytes.size());
    for (std::string_view::size_type i = 0; i < bytes.size(); ++i)
        wide[i] = static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]));
}
