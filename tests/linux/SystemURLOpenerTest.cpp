#include "platform/services/SystemURLOpener.h"

#include "tests/support/DeviceRootFixture.h"

#include <filesystem>
#include <fstream>

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
    std::string opened() const {
        std::ifstream file(folder() / "opened");
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(SystemURLOpener, OpensWhatHasAHandler) {
    EXPECT_TRUE(platform::openURLOnSystem("known://user?screen_name=$(id);'\"`"));
    EXPECT_EQ(opened(), "known://user?screen_name=$(id);'\"`") << "no shell has read it";
}

TEST_F(SystemURLOpener, KnowsSchemesInAnyCase) {
    EXPECT_TRUE(platform::openURLOnSystem("KNOWN:x"));
}

TEST_F(SystemURLOpener, LeavesOtherSchemesAlone) {
    EXPECT_FALSE(platform::openURLOnSystem("twitter://user"));
    EXPECT_EQ(opened(), "");
}

TEST_F(SystemURLOpener, RefusesWhatIsNoUrl) {
    for (const char* text :
         {"", "known", ":x", "/etc/passwd", "--help", "-x:y", "1known:x", "known: x", "known:\n"})
        EXPECT_FALSE(platform::openURLOnSystem(text)) << text;
    EXPECT_EQ(opened(), "");
}

TEST_F(SystemURLOpener, NeedsADisplay) {
    environment.unset("DISPLAY");
    environment.unset("WAYLAND_DISPLAY");
    EXPECT_FALSE(platform::openURLOnSystem("known:x"));
}

TEST_F(SystemURLOpener, TellsThatOpeningFailed) {
    installProgram("xdg-open", "exit 4");
    EXPECT_FALSE(platform::openURLOnSystem("known:x"));
}

TEST_F(SystemURLOpener, DoesNotWaitForAHandlerThatStays) {
    installProgram("xdg-open", "exec /bin/sleep 4");
    EXPECT_TRUE(platform::openURLOnSystem("known:x"));
}

TEST_F(SystemURLOpener, OpensNothingWithoutADesktop) {
    fs::remove(folder() / "bin" + "/xdg-mime");
    environment.set("PATH", folder() / "bin");
    EXPECT_FALSE(platform::openURLOnSystem("known:x"));
}

} // namespace
} // namespace wardlock::test
