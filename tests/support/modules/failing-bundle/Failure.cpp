#include "tests/support/modules/failing-bundle/Failure.h"

#include "platform/plist/PropertyListFile.h"
#include "platform/values/NSException.h"
#include "settings/Constants.h"
#include "settings/Document.h"

#include <stdexcept>
#include <string>

namespace wardlock::test {

namespace {

struct WithoutMessage : std::exception {
    const char* what() const noexcept override { return nullptr; }
};

} // namespace

void failAt(std::string_view point) {
    const auto plan =
        platform::dictionaryWithContentsOfFile("/var/mobile/Library/Preferences/test.failing.plist");
    if (!plan || platform::stringValue(plan->find("at")) != point)
        return;
    const std::string reason = "failed at " + std::string(point);
    const auto kind = platform::stringValue(plan->find("as")).value_or("");
    if (kind == "message")
        throw std::runtime_error(reason);
    if (kind == "no message")
        throw WithoutMessage();
    if (kind == "number")
        throw 42;
    throw platform::NSException(platform::NSRangeException, reason);
}

void changeDocument() {
    updateDocument(BundleIdentifier, [](platform::MutableDictionary& document) {
        document.set("changed", platform::Value(true));
        return true;
    });
}

} // namespace wardlock::test
