#pragma once

#include "platform/values/Dictionary.h"

namespace wardlock::test {

/// The values that the rows of the bundle with a row of every kind have stored; empty where there are none.
platform::Dictionary fixtureValues();

} // namespace wardlock::test
