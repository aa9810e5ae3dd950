#include "linux/web/PageFetch.h"

#include "linux/posix/SignalMaskedThread.h"
#include "linux/web/CurlLibrary.h"
#include "platform/base/Translation.h"
#include "platform/runtime/ExceptionBoundary.h"

#include <memory>
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
    void operator()(CURL* handle) const { curl().easyCleanup(handle); }
};
struct ListRelease {
    void operator()(curl_slist* list) const { curl().slistFreeAll(list); }
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

void configure(CURL* handle, const std::string& url, const TextWebEngineOptions& options, Body& body) {
    curl().easySetopt(handle, CURLOPT_URL, url.c_str());
    curl().easySetopt(handle, CURLOPT_PROTOCOLS_STR, schemes);
    curl().easySetopt(handle, CURLOPT_REDIR_PROTOCOLS_STR, schemes);
    curl().easySetopt(handle, CURLOPT_FOLLOWLOCATION, 1L);
    curl().easySetopt(handle, CURLOPT_MAXREDIRS, mostRedirections);
    curl().easySetopt(handle, CURLOPT_TIMEOUT_MS, static_cast<long>(options.timeout.count()));
    curl().easySetopt(handle, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(options.largestPage));
    curl().easySetopt(handle, CURLOPT_ACCEPT_ENCODING, "");
    curl().easySetopt(handle, CURLOPT_USERAGENT, "Wardlock");
    curl().easySetopt(handle, CURLOPT_NOSIGNAL, 1L);
    // A name that does not resolve must not delay the cancelling of the fetch.
    curl().easySetopt(handle, CURLOPT_QUICK_EXIT, 1L);
    curl().easySetopt(handle, CURLOPT_WRITEFUNCTION, &append);
    curl().easySetopt(handle, CURLOPT_WRITEDATA, &body);
    curl().easySetopt(handle, CURLOPT_HEADERFUNCTION, &countHeader);
    curl().easySetopt(handle, CURLOPT_HEADERDATA, &body);
    curl().easySetopt(handle, CURLOPT_DEBUGFUNCTION, &countReceived);
    curl().easySetopt(handle, CURLOPT_DEBUGDATA, &body);
    curl().easySetopt(handle, CURLOPT_VERBOSE, 1L);
}

std::string information(CURL* handle, CURLINFO what) {
    const char* text = nullptr;
    curl().easyGetinfo(handle, what, &text);
    return text ? text : "";
}

/// Runs the transfer until it ends, or until `isWanted` returns false: then there is no result.
template <class Wanted>
std::optional<CURLcode> transfer(CURLM* transfers, CURL* handle, Wanted isWanted) {
    if (curl().multiAddHandle(transfers, handle) != CURLM_OK)
        return CURLE_FAILED_INIT;
    std::optional<CURLcode> result;
    int running = 1;
    while (!result && isWanted()) {
        if (curl().multiPerform(transfers, &running) != CURLM_OK)
            result = CURLE_RECV_ERROR;
        int waiting = 0;
        while (const CURLMsg* message = curl().multiInfoRead(transfers, &waiting)) {
            if (message->msg == CURLMSG_DONE)
                result = message->data.result;
        }
        if (!result)
            curl().multiPoll(transfers, nullptr, 0, pollMilliseconds, nullptr);
    }
    curl().multiRemoveHandle(transfers, handle);
    return result;
}

} // namespace

PageFetch::PageFetch(std::string url, TextWebEngineOptions options, std::weak_ptr<const void> reader,
                     Completion completion)
    : url_(std::move(url)), options_(std::move(options)), reader_(std::move(reader)),
      completion_(std::move(completion)) {
    if (!curl().error.empty()) {
        fail(curl().error);
        return;
    }
    transfers_ = curl().multiInit();
    thread_ = posix::startSignalMaskedThread([this] { run(); });
    if (!thread_.joinable())
        fail(translated("Web", "The system cannot create another thread"));
}

PageFetch::~PageFetch() {
    if (!curl().error.empty())
        return;
    givenUp_ = true;
    curl().multiWakeup(transfers_);
    if (thread_.joinable())
        thread_.join();
    curl().multiCleanup(transfers_);
}

void PageFetch::fail(const std::string& error) const {
    completion_({.error = error, .bytes = {}, .contentType = {}, .url = {}});
}

void PageFetch::run() {
    const EasyHandle handle(curl().easyInit());
    const std::unique_ptr<curl_slist, ListRelease> connectTo(
        options_.connectTo.empty() ? nullptr : curl().slistAppend(nullptr, options_.connectTo.c_str()));
    Body body{{}, options_.largestPage, 0};
    configure(handle.get(), url_, options_, body);
    curl().easySetopt(handle.get(), CURLOPT_CONNECT_TO, connectTo.get());
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
        page.error = curl().easyStrerror(result.value_or(CURLE_ABORTED_BY_CALLBACK));
    completion_(std::move(page));
}

} // namespace platform::web
