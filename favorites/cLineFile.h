#pragma once
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include "CStdStr.h"

// A text file read one line at a time into a buffer as large as the whole file (the low 32 bits
// of its size), so no line is ever split. The stream is opened by the file's name in the ANSI
// code page, read-only.
class cLineFile {
public:
    explicit cLineFile(const CStdStr& path);
    // The file ready to be read; null when its line buffer cannot be had.
    static std::unique_ptr<cLineFile> Open(const CStdStr& path);

    // False when the line buffer could not be allocated; nothing can be read then.
    bool HasBuffer() const noexcept { return buffer_ != nullptr; }
    std::ifstream& Stream() noexcept { return stream_; }
    // Reads up to the next newline. False when the stream gave no line at all (its end, or a
    // stream that is not good); otherwise line holds the line's bytes without the newline.
    bool ReadLine(std::string_view& line);

private:
    std::unique_ptr<char[]> buffer_;
    std::streamsize capacity_ = 0;
    // The stream's own buffer, declared before the stream so that it outlives it.
    std::unique_ptr<char[]> streamBuffer_;
    std::ifstream stream_;
};

// The bytes of a line in the given code page as wide text.
std::wstring BytesToWide(std::string_view bytes, unsigned int codePage);
// The same into wide, whose storage serves line after line without a new allocation.
void BytesToWide(std::string_view bytes, unsigned int codePage, std::wstring& wide);
// The bytes of a line widened one to one, as an 8-bit wide stream reads them.
std::wstring WidenBytes(std::string_view bytes);
void WidenBytes(std::string_view bytes, std::wstring& wide);
