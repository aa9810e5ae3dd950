#include "linux/web/HtmlTree.h"

#include <ctime>
#include <new>

namespace platform::web {
namespace {

/// A page of a megabyte whose text is mostly markup takes about half of it.
constexpr std::size_t mostMemory = std::size_t(128) << 20;
constexpr double mostSeconds = 1;
/// Requests for memory between two readings of the clock.
constexpr std::size_t requestsPerLook = 64;

/// Of this thread alone: a busy machine makes no page too complex.
double processorSeconds() {
    std::timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

void keep(void*, void*) {}

} // namespace

HtmlTree::Budget::Budget() : deadline_(processorSeconds() + mostSeconds) {}

void* HtmlTree::Budget::take(std::size_t size) noexcept {
    if (size > mostMemory - bytes_)
        return nullptr;
    bytes_ += size;
    if (++requests_ % requestsPerLook == 0 && processorSeconds() > deadline_)
        return nullptr;
    try {
        return memory_.allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* HtmlTree::allocate(void* budget, std::size_t size) {
    auto& left = *static_cast<Budget*>(budget);
    if (void* memory = left.take(size))
        return memory;
    // The parser expects every request to succeed. It is left at once; its memory goes with the budget.
    std::longjmp(left.exit, 1); // NOLINT(cert-err52-cpp): an exception must not pass through functions in C
}

HtmlTree::HtmlTree(std::string_view html) {
    GumboOptions options = kGumboDefaultOptions;
    options.allocator = &allocate;
    // Never gumbo_destroy_output: it is recursive. The memory is released as a whole.
    options.deallocator = &keep;
    options.userdata = &budget_;
    // Each error would keep a copy of the list of open elements.
    options.max_errors = 0;
    if (setjmp(budget_.exit) != 0) // NOLINT(cert-err52-cpp): see allocate
        return;
    document_ = gumbo_parse_with_options(&options, html.empty() ? "" : html.data(), html.size())->document;
}

std::string_view attribute(const GumboNode& element, const char* name) {
    const GumboAttribute* found = gumbo_get_attribute(&element.v.element.attributes, name);
    return found ? found->value : "";
}

bool hasAttribute(const GumboNode& element, const char* name) {
    return gumbo_get_attribute(&element.v.element.attributes, name) != nullptr;
}

const GumboVector* childrenOf(const GumboNode& node) {
    if (node.type == GUMBO_NODE_DOCUMENT)
        return &node.v.document.children;
    return node.type == GUMBO_NODE_ELEMENT ? &node.v.element.children : nullptr;
}

} // namespace platform::web
