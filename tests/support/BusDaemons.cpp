#include "tests/support/BusDaemons.h"

#include "tests/support/TestTimeout.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <sys/syscall.h>
#include <unistd.h>

namespace wardlock::test {

namespace fs = std::filesystem;

namespace {

std::string contents(const fs::path& path) {
    // A process may end while its file is read: a stream then contains what there was.
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

} // namespace

std::vector<int> processesNaming(const std::string& text) {
    std::vector<int> found;
    for (const auto& entry : fs::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (name.find_first_not_of("0123456789") == std::string::npos &&
            contents(entry.path() / "cmdline").find(text) != std::string::npos)
            found.push_back(std::stoi(name));
    }
    return found;
}

std::vector<int> busDaemonsOf(const std::string& folder) {
    return processesNaming("=" + folder + "/bus.conf");
}

void endBusDaemon(int process) {
    const int descriptor = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    ASSERT_GE(descriptor, 0);
    kill(process, SIGKILL);
    pollfd ended{descriptor, POLLIN, 0};
    EXPECT_EQ(poll(&ended, 1, testTimeoutMilliseconds), 1);
    close(descriptor);
}

} // namespace wardlock::test
