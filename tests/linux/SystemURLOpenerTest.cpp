#include "platform/services/SystemURLOpener.h"

#include "linux/FileDescriptor.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/Patience.h"

#include <array>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

/// A desktop that knows one scheme, "known".
class SystemURLOpener : public DeviceRootFixture {
protected:
    SystemURLOpener() {
        fs::create_directory(folder() / "bin");
        environment.set("PATH", folder() / "bin" + ":/usr/bin:/bin");
        environment.set("DISPLAY", ":99");
        installProgram("xdg-mime", "[ \"$3\" = x-scheme-handler/known ] && echo handler.desktop");
        installProgram("xdg-open", "printf '%s' \"$1\" >'" + folder() / "opened" + "'");
    }
    void installProgram(const std::string& name, const std::string& script) const {
        const std::string path = folder() / "bin" + '/' + name;
        std::ofstream(path) << "#!/bin/sh\n" << script << '\n';
        fs::permissions(path, fs::perms::owner_all);
    }
    /// With all the time that a handler needs to fail in.
    static bool open(std::string_view url) { return platform::openURLOnSystem(url, patience); }
    std::string opened() const {
        std::ifstream file(folder() / "opened");
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(SystemURLOpener, OpensWhatHasAHandler) {
    EXPECT_TRUE(open("known://user?screen_name=$(id);'\"`"));
    EXPECT_EQ(opened(), "known://user?screen_name=$(id);'\"`") << "no shell has read it";
}

TEST_F(SystemURLOpener, KnowsSchemesInAnyCase) {
    EXPECT_TRUE(open("KNOWN:x"));
}

TEST_F(SystemURLOpener, LeavesOtherSchemesAlone) {
    EXPECT_FALSE(open("twitter://user"));
    EXPECT_EQ(opened(), "");
}

TEST_F(SystemURLOpener, RefusesWhatIsNoUrl) {
    for (const char* text :
         {"", "known", ":x", "/etc/passwd", "--help", "-x:y", "1known:x", "known: x", "known:\n"})
        EXPECT_FALSE(open(text)) << text;
    EXPECT_EQ(opened(), "");
}

TEST_F(SystemURLOpener, NeedsADisplay) {
    environment.unset("DISPLAY");
    environment.unset("WAYLAND_DISPLAY");
    EXPECT_FALSE(open("known:x"));
}

TEST_F(SystemURLOpener, TellsThatOpeningFailed) {
    installProgram("xdg-open", "exit 4");
    EXPECT_FALSE(open("known:x"));
}

TEST_F(SystemURLOpener, DoesNotWaitForAHandlerThatStays) {
    // One that reads a pipe until this test closes its other end.
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const platform::FileDescriptor reading(ends[0]);
    const platform::FileDescriptor writing(ends[1]);
    ASSERT_EQ(fcntl(writing.get(), F_SETFD, FD_CLOEXEC), 0);
    installProgram("xdg-open", "exec /bin/cat /proc/self/fd/" + std::to_string(reading.get()));
    EXPECT_TRUE(platform::openURLOnSystem("known:x", std::chrono::milliseconds(100)));
}

TEST_F(SystemURLOpener, OpensNothingWithoutADesktop) {
    fs::remove(folder() / "bin" + "/xdg-mime");
    environment.set("PATH", folder() / "bin");
    EXPECT_FALSE(open("known:x"));
}

} // namespace
} // namespace wardlock::test
