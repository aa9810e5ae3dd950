#pragma once

#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace wardlock::test {

/// A message bus of a test's own, at an address that it keeps over its ends and starts. Every call returns
/// when what it does has happened. To use it, name its address in DBUS_SESSION_BUS_ADDRESS.
class TestBus {
public:
    enum class Begin { Running, Absent };

    explicit TestBus(Begin begin = Begin::Running);
    ~TestBus();

    const std::string& address() const { return address_; }
    /// Has the bus start the program for the first caller of the name. It gets the bus's environment, and the
    /// variables.
    void offer(const std::string& name, const std::string& program, const std::vector<std::string>& arguments,
               const std::map<std::string, std::string>& variables = {}) const;
    /// Starts the absent bus.
    void start();
    /// Ends the bus at once; its connections break.
    void kill();
    /// The bus reads and writes nothing until resume(), but its connections persist and new ones are
    /// accepted.
    void stop();
    void resume();

private:
    TemporaryFolder folder_;
    std::string address_;
    std::unique_ptr<Process> daemon_;
};

/// The path of a program that the machine's PATH names; a failed expectation where there is none.
std::string programPath(const std::string& name);

} // namespace wardlock::test
