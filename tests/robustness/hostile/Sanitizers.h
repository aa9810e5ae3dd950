// Which sanitizers this was built with: they bring a memory, operators and files of their own.
#pragma once

namespace wardlock::test {

#if defined(__has_feature) // clang
constexpr bool hasThreadSanitizer = __has_feature(thread_sanitizer);
constexpr bool hasAddressSanitizer = __has_feature(address_sanitizer);
#else
#ifdef __SANITIZE_THREAD__
constexpr bool hasThreadSanitizer = true;
#else
constexpr bool hasThreadSanitizer = false;
#endif
#ifdef __SANITIZE_ADDRESS__
constexpr bool hasAddressSanitizer = true;
#else
constexpr bool hasAddressSanitizer = false;
#endif
#endif

} // namespace wardlock::test
