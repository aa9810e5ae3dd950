#include "linux/web/PageFetch.h"

#include "linux/posix/SignalMaskedThread.h"
#include "platform/base/Translation.h"
#include "platform/runtime/ExceptionBoundary.h"

#include <curl/curl.h>

#include <memory>
#include <mutex>
#include <optional>

namespace platform::web {
namespace {

constexpr const char* schemes = "http,https";
constexpr long mostRedirections = 10;
/// For all responses of one fetch, redirections included.
constexpr std::size_t largestHeaders = std::size_t(256) * 1024;
/// For all that servers send, the lengths of chunks included, as a multiple of the largest page.
constexpr std::size_t mostBytesPerByte = 8;
/// The interval at which a fetch checks whether its reader is still there.
constexpr int pollMilliseconds = 250;

struct EasyRelease {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct ListRelease {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using EasyHandle = std::unique_ptr<CURL, EasyRelease>;

struct Body {
    std::string bytes;
    std::size_t limit;
    std::size_t headers = 0;
    std::size_t received = 0;
    bool tooLarge = false;
};

/// Takes fewer bytes than it is given, which ends the transfer, when the page grows too large; counted after
/// decompression.
std::size_t append(char* data, std::size_t size, std::size_t count, void* target) {
    auto& body = *static_cast<Body*>(target);
    const std::size_t length = size * count;
    body.tooLarge = body.tooLarge || length > body.limit - body.bytes.size();
    if (body.tooLarge)
        return 0;
    callOrTerminate([&] { body.bytes.append(data, length); });
    return length;
}

/// The library itself keeps headers; a server that sends nothing else must be ended too.
std::size_t countHeader(char*, std::size_t size, std::size_t count, void* target) {
    auto& body = *static_cast<Body*>(target);
    body.headers += size * count;
    body.tooLarge = body.tooLarge || body.headers > largestHeaders;
    return body.tooLarge ? 0 : size * count;
}

/// The only function that is given what is neither header nor body, such as the extension of a chunk.
int countReceived(CURL*, curl_infotype type, char*, std::size_t size, void* target) {
    auto& body = *static_cast<Body*>(target);
    if (type == CURLINFO_DATA_IN)
        body.received += size;
    body.tooLarge = body.tooLarge || body.received / mostBytesPerByte > body.limit;
    return 0;
}

CURLM* makeTransfers() {
    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
    return curl_multi_init();
}

void configure(CURL* handle, const std::string& url, const TextWebEngineOptions& options, Body& body) {
    curl_easy_setopt(handle, CURLOPT_URL, url.c_str());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, schemes);
    curl_easy_setopt(handle, CURLOPT_REDIR_PROTOCOLS_STR, schemes);
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(handle, CURLOPT_MAXREDIRS, mostRedirections);
    curl_easy_setopt(handle, CURLOPT_TIMEOUT_MS, static_cast<long>(options.timeout.count()));
    curl_easy_setopt(handle, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(options.largestPage));
    curl_easy_setopt(handle, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(handle, CURLOPT_USERAGENT, "Wardlock");
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    // A name that does not resolve must not delay the cancelling of the fetch.
    curl_easy_setopt(handle, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &append);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &body);
    curl_easy_setopt(handle, CURLOPT_HEADERFUNCTION, &countHeader);
    curl_easy_setopt(handle, CURLOPT_HEADERDATA, &body);
    curl_easy_setopt(handle, CURLOPT_DEBUGFUNCTION, &countReceived);
    curl_easy_setopt(handle, CURLOPT_DEBUGDATA, &body);
    curl_easy_setopt(handle, CURLOPT_VERBOSE, 1L);
}

std::string information(CURL* handle, CURLINFO what) {
    const char* text = nullptr;
    curl_easy_getinfo(handle, what, &text);
    return text ? text : "";
}

/// Runs the transfer until it ends, or until `isWanted` returns false: then there is no result.
template <class Wanted>
std::optional<CURLcode> transfer(CURLM* transfers, CURL* handle, Wanted isWanted) {
    if (curl_multi_add_handle(transfers, handle) != CURLM_OK)
        return CURLE_FAILED_INIT;
    std::optional<CURLcode> result;
    int running = 1;
    while (!result && isWanted()) {
        if (curl_multi_perform(transfers, &running) != CURLM_OK)
            result = CURLE_RECV_ERROR;
        int waiting = 0;
        while (const CURLMsg* message = curl_multi_info_read(transfers, &waiting)) {
            if (message->msg == CURLMSG_DONE)
                result = message->data.result;
        }
        if (!result)
            curl_multi_poll(transfers, nullptr, 0, pollMilliseconds, nullptr);
    }
    curl_multi_remove_handle(transfers, handle);
    return result;
}

} // namespace

PageFetch::PageFetch(std::string url, TextWebEngineOptions options, std::weak_ptr<const void> reader,
                     Completion completion)
    : url_(std::move(url)), options_(std::move(options)), reader_(std::move(reader)),
      completion_(std::move(completion)), transfers_(makeTransfers()),
      thread_(posix::startSignalMaskedThread([this] { run(); })) {
    if (!thread_.joinable())
        completion_({.error = translated("Web", "The system cannot create another thread"),
                     .bytes = {},
                     .contentType = {},
                     .url = {}});
}

PageFetch::~PageFetch() {
    givenUp_ = true;
    curl_multi_wakeup(transfers_);
    if (thread_.joinable())
        thread_.join();
    curl_multi_cleanup(transfers_);
}

void PageFetch::run() {
    const EasyHandle handle(curl_easy_init());
    const std::unique_ptr<curl_slist, ListRelease> connectTo(
        options_.connectTo.empty() ? nullptr : curl_slist_append(nullptr, options_.connectTo.c_str()));
    Body body{{}, options_.largestPage, 0};
    configure(handle.get(), url_, options_, body);
    curl_easy_setopt(handle.get(), CURLOPT_CONNECT_TO, connectTo.get());
    const auto result = transfer(transfers_, handle.get(), [&] { return isWanted() && !body.tooLarge; });
    if (givenUp_)
        return;
    FetchedPage page;
    page.contentType = information(handle.get(), CURLINFO_CONTENT_TYPE);
    page.url = information(handle.get(), CURLINFO_EFFECTIVE_URL);
    if (body.tooLarge || result == CURLE_FILESIZE_EXCEEDED)
        page.error = translated("Web", "The page is too large");
    else if (result == CURLE_OK)
        page.bytes = std::move(body.bytes);
    else
        page.error = curl_easy_strerror(result.value_or(CURLE_ABORTED_BY_CALLBACK));
    completion_(std::move(page));
}

} // namespace platform::web
