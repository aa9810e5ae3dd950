#pragma once

#include "tests/support/DeviceRootFixture.h"
#include "tests/support/Process.h"
#include "tests/support/TestBus.h"

#include <memory>
#include <string>
#include <vector>

namespace wardlock::test {

/// A device root and a bus of the test's own, and the two programs that are the other processes.
class BusFixture : public DeviceRootFixture {
protected:
    BusFixture() { environment.set("DBUS_SESSION_BUS_ADDRESS", bus.address()); }

    /// A process with one variable of its environment set.
    static ProcessSetup with(const std::string& variable, const std::string& value);
    /// test-observer, when it has registered.
    static std::unique_ptr<Process> observe(const std::vector<std::string>& arguments,
                                            const ProcessSetup& setup = {});
    /// test-poster, when it has ended; it must end well.
    static void post(const std::vector<std::string>& arguments, const ProcessSetup& setup = {});

    TestBus bus;
};

} // namespace wardlock::test
