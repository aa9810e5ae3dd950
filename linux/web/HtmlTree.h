#pragma once

#include <csetjmp>
#include <cstddef>
#include <gumbo.h>
#include <memory_resource>
#include <string_view>
#include <vector>

namespace platform::web {

/// A page as a tree, built by the rules of HTML5: every text is a page. Its memory and the processor time of
/// its thread are bounded, because a short page can describe a tree of billions of elements.
class HtmlTree {
public:
    /// `html` is UTF-8 and must outlive the tree.
    explicit HtmlTree(std::string_view html);
    HtmlTree(const HtmlTree&) = delete;
    HtmlTree& operator=(const HtmlTree&) = delete;

    /// Returns the document; null for a page that exceeds the bounds.
    const GumboNode* document() const { return document_; }

private:
    /// Allocates memory until a bound is reached.
    class Budget {
    public:
        Budget();
        /// Returns null at the bound.
        void* take(std::size_t size) noexcept;
        /// Where the parser is left at the bound.
        std::jmp_buf exit{};

    private:
        std::pmr::monotonic_buffer_resource memory_;
        std::size_t bytes_ = 0;
        std::size_t requests_ = 0;
        double deadline_;
    };

    static void* allocate(void* budget, std::size_t size);

    Budget budget_;
    const GumboNode* document_ = nullptr;
};

/// Returns the attribute's value; empty where the element has none.
std::string_view attribute(const GumboNode& element, const char* name);
bool hasAttribute(const GumboNode& element, const char* name);

/// Returns the children of a document or an element; null for any other node, a template included.
const GumboVector* childrenOf(const GumboNode& node);

/// Visits `top` and what is below it in the page's order. Not recursive, since pages nest without bound.
/// `enter(node)` returns whether to visit the node's children; `leave(node)` follows either way.
template <class Enter, class Leave>
void visit(const GumboNode& top, Enter enter, Leave leave) {
    struct Level {
        const GumboNode* node;
        const GumboVector* children;
        unsigned int next;
    };
    std::vector<Level> levels;
    const auto open = [&](const GumboNode& node) {
        levels.push_back({&node, enter(node) ? childrenOf(node) : nullptr, 0});
    };
    for (open(top); !levels.empty();) {
        Level& level = levels.back();
        if (level.children && level.next < level.children->length) {
            open(*static_cast<const GumboNode*>(level.children->data[level.next++]));
        } else {
            leave(*level.node);
            levels.pop_back();
        }
    }
}

} // namespace platform::web
