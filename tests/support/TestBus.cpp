#include "tests/support/TestBus.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace wardlock::test {

namespace {

constexpr const char* rules = R"(
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

std::string programPath(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (access((folder + '/' + name).c_str(), X_OK) == 0)
            return folder + '/' + name;
    ADD_FAILURE() << "no program " << name;
    return name;
}

TestBus::TestBus(Begin begin) : address_("unix:path=" + folder_ / "bus") {
    std::ofstream(folder_ / "bus.conf")
        << "<busconfig>\n  <listen>" << address_ << "</listen>\n  <servicedir>" << folder_ / "services"
        << "</servicedir>" << rules;
    std::filesystem::create_directory(folder_ / "services");
    if (begin == Begin::Running)
        start();
}

TestBus::~TestBus() = default;

void TestBus::offer(const std::string& name, const std::string& program,
                    const std::vector<std::string>& arguments,
                    const std::map<std::string, std::string>& variables) const {
    std::ofstream service(folder_ / "services/" + name + ".service");
    service << "[D-BUS Service]\nName=" << name << "\nExec=" << program;
    for (const std::string& argument : arguments)
        service << ' ' << argument;
    std::string assignments;
    for (const auto& [variable, value] : variables)
        assignments += (assignments.empty() ? "'" : ", '") + variable + "': '" + value + "'";
    const auto result = runProcess(
        programPath("gdbus"), {"call", "--address", address_, "--dest", "org.freedesktop.DBus",
                               "--object-path", "/org/freedesktop/DBus", "--method",
                               "org.freedesktop.DBus.UpdateActivationEnvironment", "{" + assignments + "}"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
}

void TestBus::start() {
    daemon_ = std::make_unique<Process>(
        programPath("dbus-daemon"), std::vector<std::string>{"--config-file=" + folder_ / "bus.conf",
                                                             "--nofork", "--nopidfile", "--print-address"});
    // It prints its address once it listens.
    if (!daemon_->readLine())
        throw std::runtime_error("no bus: " + daemon_->wait().errors);
}

void TestBus::kill() {
    daemon_->send(SIGKILL);
    EXPECT_EQ(daemon_->wait().signal, SIGKILL);
    daemon_.reset();
}

void TestBus::stop() {
    daemon_->send(SIGSTOP);
    siginfo_t ignored{};
    EXPECT_EQ(waitid(P_PID, static_cast<id_t>(daemon_->id()), &ignored, WSTOPPED), 0);
}

void TestBus::resume() {
    daemon_->send(SIGCONT);
}

} // namespace wardlock::test
