// Loads a settings bundle, opens its first page and the picker, and turns the picker's first switch. Prints
// after each step how often the path of the preferences document has been formatted so far. usage:
// test-document-paths BUNDLE

#include "platform/preferences/PSListController.h"
#include "platform/runtime/NSBundle.h"
#include "platform/text/Format.h"
#include "platform/ui/UISwitch.h"
#include "platform/ui/UITableView.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "tests/support/doubles/LoopbackNotificationCenter.h"

#include <cstdio>

namespace {

int formatted = 0;

void print(const char* step) {
    std::printf("%s %d\n", step, formatted);
}

std::shared_ptr<platform::PSListController> pageNamed(std::string_view name) {
    return std::dynamic_pointer_cast<platform::PSListController>(platform::objc_getClass(name)->create());
}

} // namespace

// Replaces the settings library's own function.
std::string wardlock::documentPath(std::string_view identifier) {
    ++formatted;
    return platform::stringWithFormat(DocumentPathFormat, identifier);
}

int main(int argc, char** argv) {
    const wardlock::test::LoopbackNotificationCenter center;
    const auto bundle = argc == 2 ? platform::NSBundle::bundleWithPath(argv[1]) : nullptr;
    std::string reason;
    if (!bundle || !bundle->principalClass(reason)) {
        std::fprintf(stderr, "no bundle: %s\n", reason.c_str());
        return 1;
    }
    print("loaded");
    pageNamed("SettingsListController")->specifiers();
    print("page");
    const auto picker = pageNamed("AppsListController");
    picker->viewWillAppear(false);
    print("picker");
    auto& table = dynamic_cast<platform::UITableView&>(*picker->view()->subviews().at(0));
    dynamic_cast<platform::UISwitch&>(*table.takeCell({0, 0})->accessoryView()).toggle();
    std::printf("%zu change announced\n", center.posts.size());
    print("saved");
    return 0;
}
