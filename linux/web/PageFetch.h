#pragma once

#include "platform/services/TextWebEngine.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace platform::web {

/// The result of a fetch.
struct FetchedPage {
    /// Why there is no page; empty when there is one. A server's own error page is a page.
    std::string error;
    std::string bytes;
    /// As the server named it, "text/html; charset=utf-8"; may be empty.
    std::string contentType;
    /// The address after redirections.
    std::string url;
};

/// Fetches one page in a thread of its own. The destructor cancels the fetch and waits for the thread, which
/// ends at once.
class PageFetch {
public:
    /// Runs in the fetch's thread, at its end, whether or not the reader is gone; not when the fetch itself
    /// is destroyed. Without a thread or the library it runs at once.
    using Completion = std::function<void(FetchedPage)>;

    /// Ends with an error as soon as `reader` is gone.
    PageFetch(std::string url, TextWebEngineOptions options, std::weak_ptr<const void> reader,
              Completion completion);
    ~PageFetch();
    PageFetch(const PageFetch&) = delete;
    PageFetch& operator=(const PageFetch&) = delete;

private:
    void run();
    void fail(const std::string& error) const;
    bool isWanted() const { return !givenUp_ && !reader_.expired(); }

    const std::string url_;
    const TextWebEngineOptions options_;
    const std::weak_ptr<const void> reader_;
    const Completion completion_;
    std::atomic<bool> givenUp_ = false;
    /// The CURLM of the thread; created before it starts, so that it can be woken at any time. Null without
    /// the library.
    void* transfers_ = nullptr;
    std::thread thread_;
};

} // namespace platform::web
