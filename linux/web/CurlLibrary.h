#pragma once

#include <curl/curl.h>

#include <string>

namespace platform::web {

/// The functions of libcurl that are used here. The library is opened with the first web page: with what it
/// loads itself, it is more than half of a process that shows none.
struct CurlLibrary {
    decltype(&::curl_global_init) globalInit = nullptr;
    decltype(&::curl_easy_init) easyInit = nullptr;
    decltype(&::curl_easy_setopt) easySetopt = nullptr;
    decltype(&::curl_easy_getinfo) easyGetinfo = nullptr;
    decltype(&::curl_easy_strerror) easyStrerror = nullptr;
    decltype(&::curl_easy_cleanup) easyCleanup = nullptr;
    decltype(&::curl_slist_append) slistAppend = nullptr;
    decltype(&::curl_slist_free_all) slistFreeAll = nullptr;
    decltype(&::curl_multi_init) multiInit = nullptr;
    decltype(&::curl_multi_add_handle) multiAddHandle = nullptr;
    decltype(&::curl_multi_remove_handle) multiRemoveHandle = nullptr;
    decltype(&::curl_multi_perform) multiPerform = nullptr;
    decltype(&::curl_multi_info_read) multiInfoRead = nullptr;
    decltype(&::curl_multi_poll) multiPoll = nullptr;
    decltype(&::curl_multi_wakeup) multiWakeup = nullptr;
    decltype(&::curl_multi_cleanup) multiCleanup = nullptr;
    decltype(&::curl_url) url = nullptr;
    decltype(&::curl_url_dup) urlDup = nullptr;
    decltype(&::curl_url_set) urlSet = nullptr;
    decltype(&::curl_url_get) urlGet = nullptr;
    decltype(&::curl_url_cleanup) urlCleanup = nullptr;
    decltype(&::curl_free) free = nullptr;

    /// Why the functions must not be called; empty when they can be.
    std::string error;

    /// Opens the library in `file`, a path or a name that the system searches for. It stays mapped.
    explicit CurlLibrary(const char* file);
};

/// Returns the process's library, opened by the first call. An error is reported to the log. Any thread.
const CurlLibrary& curl();

} // namespace platform::web
