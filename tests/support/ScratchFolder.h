#pragma once
#include <string>

namespace wbstest {

// A private folder for one test: %TEMP%\WebBrowserSupportTests\<name>, removed with all it holds
// before it is made and again when the object goes.
class ScratchFolder {
public:
    explicit ScratchFolder(const std::wstring& name);
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    const std::wstring& Path() const { return path_; }
    std::wstring File(const std::wstring& name) const;

    // Deletes a folder and everything under it (read-only files too); true when it is gone. Files
    // that a program has only just closed may stay locked for a moment, so this retries briefly.
    static bool RemoveTree(const std::wstring& path);

private:
    std::wstring path_;
};

}  // namespace wbstest
