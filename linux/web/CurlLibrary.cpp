#include "linux/web/CurlLibrary.h"

#include "platform/base/Diagnostics.h"

#include <dlfcn.h>
#include <type_traits>

namespace platform::web {

CurlLibrary::CurlLibrary(const char* file) {
    void* const library = ::dlopen(file, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!library) {
        error = ::dlerror();
        return;
    }
    const auto find = [&](auto& function, const char* name) {
        function = reinterpret_cast<std::decay_t<decltype(function)>>(::dlsym(library, name));
        if (!function && error.empty())
            error = std::string(file) + ": no function " + name;
    };
    find(globalInit, "curl_global_init");
    find(easyInit, "curl_easy_init");
    find(easySetopt, "curl_easy_setopt");
    find(easyGetinfo, "curl_easy_getinfo");
    find(easyStrerror, "curl_easy_strerror");
    find(easyCleanup, "curl_easy_cleanup");
    find(slistAppend, "curl_slist_append");
    find(slistFreeAll, "curl_slist_free_all");
    find(multiInit, "curl_multi_init");
    find(multiAddHandle, "curl_multi_add_handle");
    find(multiRemoveHandle, "curl_multi_remove_handle");
    find(multiPerform, "curl_multi_perform");
    find(multiInfoRead, "curl_multi_info_read");
    find(multiPoll, "curl_multi_poll");
    find(multiWakeup, "curl_multi_wakeup");
    find(multiCleanup, "curl_multi_cleanup");
    find(url, "curl_url");
    find(urlDup, "curl_url_dup");
    find(urlSet, "curl_url_set");
    find(urlGet, "curl_url_get");
    find(urlCleanup, "curl_url_cleanup");
    find(free, "curl_free");
}

const CurlLibrary& curl() {
    // Never destroyed: a fetch may end late.
    static const CurlLibrary* const library = [] {
        auto* const opened = new CurlLibrary("libcurl.so.4");
        if (opened->error.empty())
            opened->globalInit(CURL_GLOBAL_DEFAULT);
        else
            diagnose("Web pages cannot be fetched: " + opened->error);
        return opened;
    }();
    return *library;
}

} // namespace platform::web
