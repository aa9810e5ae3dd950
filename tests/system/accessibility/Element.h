#pragma once

#include <atspi/atspi.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::test {

/// An element of another process's window, as assistive technology gets it from the registry. Every call asks
/// that process.
class Element {
public:
    /// Takes the reference over.
    explicit Element(AtspiAccessible* accessible) : accessible_(accessible, g_object_unref) {}

    std::string name() const;
    /// In the registry's words: "push button", "check box".
    std::string role() const;
    std::string description() const;
    bool is(AtspiStateType state) const;
    std::vector<Element> children() const;
    /// Its index among the children of its parent, as it reports it itself.
    int index() const { return atspi_accessible_get_index_in_parent(accessible_.get(), nullptr); }
    bool canBePressed() const { return pressAction().has_value(); }
    /// Returns whether there was such an action and the process has accepted it.
    bool press() const;

    /// This element and all below it, each behind the one that contains it.
    std::vector<Element> withDescendants() const;
    /// "role: name".
    std::string title() const { return role() + ": " + name(); }

private:
    std::optional<int> pressAction() const;

    std::shared_ptr<AtspiAccessible> accessible_;
};

} // namespace wardlock::test
