#pragma once

#include "tests/system/accessibility/Element.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace wardlock::test {

/// Assistive technology: it finds the windows of other processes in the registry of the session's bus, and
/// receives their events. One for each process; the registry has to run before.
class ScreenReader {
public:
    ScreenReader();
    ~ScreenReader();
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;

    /// Receives events until the condition is true; returns whether that was within the time of a test.
    bool until(const std::function<bool()>& condition);

    /// All elements of all windows, as they are now.
    std::vector<Element> elements();
    /// Waits for the first element of that title, "role: name", that is showing and can be used; a failed
    /// expectation and the desktop itself when none appears.
    Element element(const std::string& title);
    bool shows(const std::string& title);
    /// What a screen reader says without being asked: the texts in each notification that has appeared.
    const std::vector<std::string>& announcements() const { return announcements_; }
    bool hears(const std::string& announcement);
    /// The titles of the elements whose state "checked" has changed.
    const std::vector<std::string>& checkedChanges() const { return checkedChanges_; }

private:
    static void receive(AtspiEvent* event, void* self);
    std::optional<Element> find(const std::string& title);

    AtspiEventListener* listener_;
    std::vector<std::string> announcements_;
    std::vector<std::string> checkedChanges_;
};

} // namespace wardlock::test
