#include "browsers/cNavigateUtility.h"
#include <cstring>
#include <vector>
#include "browsers/StartProgram.h"
#include "browsers/WindowInfoReply.h"
#include "core/ScopedDdeConversation.h"
#include "core/ScopedDdeData.h"
#include "core/ScopedDdeInstance.h"
#include "core/ScopedDdeString.h"
#include "tovutil/ForegroundAttentionGrabber.h"

namespace {
const CStdStr kOpenUrlTopic(L"WWW_OpenURL");
const CStdStr kWindowInfoTopic(L"WWW_GetWindowInfo");
const CStdStr kMostRecentWindow(L"0xFFFFFFFF");
constexpr DWORD kRequestTimeoutMs = 3000;
constexpr DWORD kReplyCapacity = 1024;

HDDEDATA CALLBACK IgnoreDdeEvents(UINT, UINT, HCONV, HSZ, HSZ, HDDEDATA, ULONG_PTR, ULONG_PTR) { return nullptr; }

CStdStr WidenReply(const char* bytes, size_t length, unsigned int codePage) {
    CStdStr text;
    text.SetCodePage(codePage);
    if (length == 0) return text;
    const int count = ::MultiByteToWideChar(codePage, 0, bytes, static_cast<int>(length), nullptr, 0);
    if (count <= 0) return text;
    std::vector<wchar_t> wide(static_cast<size_t>(count));
    ::MultiByteToWideChar(codePage, 0, bytes, static_cast<int>(length), wide.data(), count);
    text.assign(wide.data(), wide.size());
    return text;
}
}  // namespace

bool cNavigateUtility::DdeRequest(const CStdStr& topic, CStdStr& item) {
    ScopedDdeInstance instance;
    if (::DdeInitializeW(instance.Receive(), IgnoreDdeEvents, APPCMD_CLIENTONLY, 0) != DMLERR_NO_ERROR) {
        (void)instance.release();  // nothing was made
        return false;
    }
    ScopedDdeString service(instance.get(), serviceName.c_str());
    ScopedDdeString topicName(instance.get(), topic.c_str());
    if (!service || !topicName) {
        // A handle that cannot be made ends the request on the spot: the other handle and the
        // instance are left as they are, as the suite's DDE clients always have.
        (void)service.release();
        (void)topicName.release();
        (void)instance.release();
        return false;
    }

    bool succeeded = false;
    ScopedDdeConversation conversation(::DdeConnect(instance.get(), service.get(), topicName.get(), nullptr));
    if (conversation) {
        ScopedDdeString itemName(instance.get(), item.c_str());
        if (itemName) {
            ScopedDdeData data(::DdeClientTransaction(nullptr, 0, conversation.get(), itemName.get(), CF_TEXT,
                                                      XTYP_REQUEST, kRequestTimeoutMs, nullptr));
            if (data) {
                char buffer[kReplyCapacity] = {};
                if (::DdeGetData(data.get(), reinterpret_cast<BYTE*>(buffer), kReplyCapacity, 0) > 0) {
                    succeeded = true;
                    // The last byte always ends the text: longer replies are cut at 1023 bytes.
                    if (topic == kWindowInfoTopic)
                        item = WidenReply(buffer, ::strnlen(buffer, kReplyCapacity - 1), item.CodePage());
                }
            }
        }
    }
    return succeeded;
}

bool cNavigateUtility::OpenURL(HWND, const CStdStr& url) {
    // The item is the bare URL: browsers take the window id and flags ("-1,0") as optional, and
    // the suite has never sent them.
    CStdStr item = url;
    ForegroundAttentionGrabber grabber;
    return DdeRequest(kOpenUrlTopic, item);
}

bool cNavigateUtility::GetWindowInfo(CStdStr& reply) {
    CStdStr item = kMostRecentWindow;
    (void)DdeRequest(kWindowInfoTopic, item);
    reply = item;
    return true;
}

bool cNavigateUtility::GetPageInfo(CStdStr& title, CStdStr& url) {
    CStdStr text;
    (void)GetWindowInfo(text);
    const WindowInfoReply reply = ParseWindowInfoReply(text);
    title = reply.title;
    url = reply.url;
    return true;
}

bool cNavigateUtility::StartProgram(const wchar_t* commandLine, HWND* window) {
    return ::StartProgram(commandLine, window);
}

bool cNavigateUtility::CurrentPage(PageInfo& out) {
    CStdStr title;
    CStdStr url;
    if (!GetPageInfo(title, url)) return false;
    out.Title = title;
    out.Url = url;
    return true;
}
