#include "tests/system/accessibility/ScreenReader.h"

#include "tests/support/TestTimeout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

namespace wardlock::test {

namespace {

constexpr const char* showing = "object:state-changed:showing";
constexpr const char* checked = "object:state-changed:checked";

Element desktop() {
    AtspiAccessible* desktop = atspi_get_desktop(0);
    // Toolkits do not announce every change of the tree.
    atspi_accessible_clear_cache(desktop);
    return Element(desktop);
}

/// The texts that are read out for a notification.
std::string textsIn(const Element& notification) {
    std::string texts;
    for (const Element& element : notification.withDescendants())
        if (element.role() == "label" && element.is(ATSPI_STATE_SHOWING))
            texts += (texts.empty() ? "" : " ") + element.name();
    return texts;
}

} // namespace

ScreenReader::ScreenReader() {
    EXPECT_LE(atspi_init(), 1) << "no registry";
    atspi_set_timeout(testTimeoutMilliseconds, testTimeoutMilliseconds);
    listener_ = atspi_event_listener_new(receive, this, nullptr);
    for (const char* event : {showing, checked})
        EXPECT_TRUE(atspi_event_listener_register(listener_, event, nullptr)) << event;
}

ScreenReader::~ScreenReader() {
    for (const char* event : {showing, checked})
        atspi_event_listener_deregister(listener_, event, nullptr);
    g_object_unref(listener_);
}

void ScreenReader::receive(AtspiEvent* event, void* self) {
    auto& reader = *static_cast<ScreenReader*>(self);
    const Element source(static_cast<AtspiAccessible*>(g_object_ref(event->source)));
    atspi_accessible_clear_cache(event->source);
    if (std::string(event->type) == checked)
        reader.checkedChanges_.push_back(source.title());
    else if (event->detail1 == 1 && source.role() == "notification")
        reader.announcements_.push_back(textsIn(source));
    g_boxed_free(ATSPI_TYPE_EVENT, event);
}

bool ScreenReader::until(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + testTimeout;
    constexpr unsigned heartbeatMilliseconds = 10;
    const unsigned heartbeat = g_timeout_add(
        heartbeatMilliseconds, [](void*) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr);
    bool came = condition();
    while (!came && std::chrono::steady_clock::now() < deadline) {
        g_main_context_iteration(nullptr, TRUE);
        came = condition();
    }
    g_source_remove(heartbeat);
    return came;
}

std::vector<Element> ScreenReader::elements() {
    return desktop().withDescendants();
}

std::optional<Element> ScreenReader::find(const std::string& title) {
    for (const Element& element : elements())
        // Nothing on a page that still moves is sensitive.
        if (element.title() == title && element.is(ATSPI_STATE_SHOWING) && element.is(ATSPI_STATE_SENSITIVE))
            return element;
    return std::nullopt;
}

bool ScreenReader::shows(const std::string& title) {
    return find(title).has_value();
}

Element ScreenReader::element(const std::string& title) {
    std::optional<Element> found;
    EXPECT_TRUE(until([&] { return (found = find(title)).has_value(); })) << "nothing is " << title;
    return found.value_or(desktop());
}

bool ScreenReader::hears(const std::string& announcement) {
    return until([&] { return std::ranges::count(announcements_, announcement) > 0; });
}

} // namespace wardlock::test
