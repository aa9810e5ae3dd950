#include "platform/base/CallStack.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <cxxabi.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <memory>
#include <string_view>

namespace platform {

namespace {

constexpr std::size_t maximumFrames = 128;
constexpr std::size_t moduleColumn = 32;

std::string number(std::uintptr_t value, int base) {
    std::array<char, 32> text;
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value, base).ptr};
}

std::string demangled(const char* symbol) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(
        abi::__cxa_demangle(symbol, nullptr, nullptr, &status), &std::free);
    return status == 0 && text ? text.get() : symbol;
}

std::string_view lastComponent(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

} // namespace

std::vector<std::uintptr_t> callStackReturnAddresses(const void* from) {
    std::array<void*, maximumFrames> frames;
    const auto begin = frames.begin();
    const auto end = begin + backtrace(frames.data(), static_cast<int>(frames.size()));
    const auto found = std::find(begin, end, from);

    std::vector<std::uintptr_t> addresses;
    for (auto frame = found == end ? begin : found; frame != end; ++frame)
        addresses.push_back(reinterpret_cast<std::uintptr_t>(*frame));
    return addresses;
}

std::string callStackSymbol(std::uintptr_t address) {
    // A return address may be the first byte after a function that never returns, so the call itself is
    // looked up.
    const auto call = address == 0 ? 0 : address - 1;
    Dl_info info{};
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the pointer is never followed
    const bool known = dladdr(reinterpret_cast<const void*>(call), &info) != 0;

    std::string line(known && info.dli_fname ? lastComponent(info.dli_fname) : std::string_view("???"));
    line.resize(std::max(line.size() + 1, moduleColumn), ' ');
    line += "0x" + number(address, 16);
    if (known && info.dli_sname)
        line += " " + demangled(info.dli_sname) + " + " +
                number(address - reinterpret_cast<std::uintptr_t>(info.dli_saddr), 10);
    else if (known && info.dli_fbase)
        line += " + " + number(address - reinterpret_cast<std::uintptr_t>(info.dli_fbase), 10);
    return line;
}

} // namespace platform
