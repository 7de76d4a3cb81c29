#pragma once
#include <string>

// A browser's answer to "WWW_GetWindowInfo": the quoted URL, a comma, the quoted title and
// possibly further fields. Text only; no Windows calls.
struct WindowInfoReply {
    std::wstring title;
    std::wstring url;
};
WindowInfoReply ParseWindowInfoReply(const std::wstring& text);
