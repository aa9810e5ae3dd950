#include "tests/system/accessibility/Element.h"

namespace wardlock::test {

namespace {

/// Takes the text over; empty where the process does not reply.
std::string taken(char* text) {
    const std::unique_ptr<char, decltype(&g_free)> owned(text, g_free);
    return owned ? owned.get() : "";
}

} // namespace

std::string Element::name() const {
    return taken(atspi_accessible_get_name(accessible_.get(), nullptr));
}

std::string Element::role() const {
    return taken(atspi_accessible_get_role_name(accessible_.get(), nullptr));
}

std::string Element::description() const {
    return taken(atspi_accessible_get_description(accessible_.get(), nullptr));
}

bool Element::is(AtspiStateType state) const {
    atspi_accessible_clear_cache(accessible_.get());
    const std::unique_ptr<AtspiStateSet, decltype(&g_object_unref)> states(
        atspi_accessible_get_state_set(accessible_.get()), g_object_unref);
    return states && atspi_state_set_contains(states.get(), state) != 0;
}

std::vector<Element> Element::children() const {
    std::vector<Element> children;
    const int count = atspi_accessible_get_child_count(accessible_.get(), nullptr);
    for (int i = 0; i < count; ++i)
        if (auto* child = atspi_accessible_get_child_at_index(accessible_.get(), i, nullptr))
            children.emplace_back(child);
    return children;
}

std::optional<int> Element::pressAction() const {
    const std::unique_ptr<AtspiAction, decltype(&g_object_unref)> actions(
        atspi_accessible_get_action_iface(accessible_.get()), g_object_unref);
    const int count = actions ? atspi_action_get_n_actions(actions.get(), nullptr) : 0;
    for (int i = 0; i < count; ++i)
        if (taken(atspi_action_get_action_name(actions.get(), i, nullptr)) == "Press")
            return i;
    return std::nullopt;
}

bool Element::press() const {
    const auto action = pressAction();
    const std::unique_ptr<AtspiAction, decltype(&g_object_unref)> actions(
        atspi_accessible_get_action_iface(accessible_.get()), g_object_unref);
    return action && atspi_action_do_action(actions.get(), *action, nullptr) != 0;
}

std::vector<Element> Element::withDescendants() const {
    std::vector<Element> all{*this};
    for (const Element& child : children())
        for (const Element& element : child.withDescendants())
            all.push_back(element);
    return all;
}

} // namespace wardlock::test
