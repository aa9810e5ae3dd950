// Announcements that any program on the bus may send, from another process: whatever they contain, the
// listener continues to listen.

#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"

#include <csignal>

namespace wardlock::test {
namespace {

enum class Form { Json, Words };

class ForgedAnnouncement : public BusFixture, public ::testing::WithParamInterface<Form> {
protected:
    ForgedAnnouncement()
        : watch_(programFolder() + "/wardlock",
                 isJson() ? std::vector<std::string>{"watch", "--json"} : std::vector<std::string>{"watch"}) {
        EXPECT_TRUE(watch_.waitForError("Watching"));
    }
    ~ForgedAnnouncement() override {
        watch_.send(SIGTERM);
        const ProcessResult result = watch_.wait();
        EXPECT_EQ(result.signal, 0);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
    }

    static void forge(const std::string& key, int levels) {
        const ProcessResult result =
            runProcess(programFolder() + "/test-forger", {key, std::to_string(levels)});
        EXPECT_EQ(result.exitCode, 0) << result.errors;
    }
    static void announce() {
        EXPECT_EQ(runProcess(programFolder() + "/wardlock", {"announce", "kEnabled"}).exitCode, 0);
    }
    /// What `watch` prints next.
    std::string received() { return watch_.readLine().value_or("the listener has ended"); }
    static testing::AssertionResult names(const std::string& line, const std::string& key) {
        const std::string start = isJson() ? "{\"key\":\"" + key + "\"," : key + " = ";
        return line.starts_with(start) ? testing::AssertionSuccess()
                                       : testing::AssertionFailure() << line.substr(0, 200);
    }

private:
    static bool isJson() { return GetParam() == Form::Json; }

    Process watch_;
};

TEST_P(ForgedAnnouncement, EndsNoListenerWhenNestedFarTooDeeply) {
    forge("kForged", 100'000);
    announce();
    EXPECT_TRUE(names(received(), "kEnabled"));
}

TEST_P(ForgedAnnouncement, IsReceivedWhenNestedAsDeeplyAsADocument) {
    forge("kForged", 511);
    EXPECT_TRUE(names(received(), "kForged"));
}

TEST_P(ForgedAnnouncement, IsIgnoredWhenNestedALevelDeeperThanADocument) {
    forge("kForged", 512);
    announce();
    EXPECT_TRUE(names(received(), "kEnabled"));
}

INSTANTIATE_TEST_SUITE_P(Watch, ForgedAnnouncement, ::testing::Values(Form::Json, Form::Words),
                         [](const auto& form) {
                             return std::string(form.param == Form::Json ? "AsJson" : "InWords");
                         });

} // namespace
} // namespace wardlock::test
