#pragma once

#include "platform/ui/DisplayObserver.h"

#include <string>
#include <vector>

namespace doubles {

/// Records what the user-interface objects report. It is the process's observer during its life.
class RecordingDisplay : public platform::DisplayObserver {
public:
    RecordingDisplay() { setCurrent(this); }
    ~RecordingDisplay() override { setCurrent(nullptr); }

    void viewChanged(platform::UIView& view) override { changedViews.push_back(&view); }
    void controllerChanged(platform::UIViewController& controller) override {
        changedControllers.push_back(&controller);
    }
    void listReloaded(platform::UIViewController&) override { events.emplace_back("list reloaded"); }
    void rowReloaded(platform::UIViewController&, platform::NSIndexPath path) override {
        events.push_back("row reloaded " + text(path));
    }
    void rowInserted(platform::UIViewController&, platform::NSIndexPath path, bool animated) override {
        events.push_back("row inserted " + text(path) + (animated ? " animated" : ""));
    }
    void endEditing(platform::UIView& view) override { endedEditing.push_back(&view); }

    std::vector<std::string> events;
    std::vector<platform::UIView*> changedViews;
    std::vector<platform::UIViewController*> changedControllers;
    std::vector<platform::UIView*> endedEditing;

private:
    static std::string text(platform::NSIndexPath path) {
        return std::to_string(path.section) + "/" + std::to_string(path.row);
    }
};

} // namespace doubles
