#include "tests/support/FixtureValues.h"

#include "platform/plist/PropertyListFile.h"

namespace wardlock::test {

platform::Dictionary fixtureValues() {
    return platform::dictionaryWithContentsOfFile("/var/mobile/Library/Preferences/test.fixture.plist")
        .value_or(platform::Dictionary());
}

} // namespace wardlock::test
