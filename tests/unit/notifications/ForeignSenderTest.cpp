#include "tests/support/BusFixture.h"

#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <sys/stat.h>

namespace wardlock::test {
namespace {

constexpr const char* path = "/com/tavix/DistributedNotifications";
constexpr const char* interface = "com.tavix.DistributedNotifications";

/// A program of another project on the bus: it knows the form of a notification from the documentation, and
/// sends anything.
class ForeignSender : public BusFixture {
protected:
    ForeignSender() {
        EXPECT_GE(sd_bus_new(&bus_), 0);
        EXPECT_GE(sd_bus_set_address(bus_, bus.address().c_str()), 0);
        EXPECT_GE(sd_bus_set_bus_client(bus_, 1), 0);
        EXPECT_GE(sd_bus_start(bus_), 0);
        struct stat status {};
        EXPECT_EQ(stat(root().c_str(), &status), 0);
        rootIdentity_ = std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
    }
    ~ForeignSender() override { sd_bus_flush_close_unref(bus_); }

    /// Sends a notification N whose arguments the function appends.
    void send(const std::function<int(sd_bus_message*)>& append) {
        sd_bus_message* message = nullptr;
        ASSERT_GE(sd_bus_message_new_signal(bus_, &message, path, interface, "Notification"), 0);
        EXPECT_GE(append(message), 0) << "the test's own mistake";
        EXPECT_GE(sd_bus_send(bus_, message, nullptr), 0);
        sd_bus_message_unref(message);
        EXPECT_GE(sd_bus_flush(bus_), 0);
    }
    /// Sends a notification N with one argument of user info, of the given signature and contents.
    template <class... Contents>
    void sendUserInfo(const char* signature, Contents... contents) {
        send([&](sd_bus_message* m) {
            return sd_bus_message_append(m, "ssasav", root_(), "N", 0, 1, signature, contents...);
        });
    }
    void sendPlain(const char* object) {
        send([&](sd_bus_message* m) {
            return sd_bus_message_append(m, "ssasav", root_(), "N", 1, object, 0);
        });
    }
    const char* root_() const { return rootIdentity_.c_str(); }

private:
    sd_bus* bus_ = nullptr;
    std::string rootIdentity_;
};

TEST_F(ForeignSender, IsReceivedWhenItKeepsToTheForm) {
    const auto observer = observe({"N"});
    sendPlain("o");
    EXPECT_EQ(observer->readLine(), "N|o|-");
    sendUserInfo("a{sv}", 2, "key", "s", "kEnabled", "object", "b", 0);
    EXPECT_EQ(observer->readLine(), R"(N|-|{"key": "kEnabled", "object": false})");
}

TEST_F(ForeignSender, MaySendIntegersOfAnyWidth) {
    const auto observer = observe({"N"});
    sendUserInfo("a{sv}", 7, "y", "y", 255, "n", "n", -3, "q", "q", 65535, "i", "i", -4, "u", "u",
                 4000000000U, "x", "x", std::int64_t{-5}, "t", "t", std::uint64_t{6});
    EXPECT_EQ(observer->readLine(),
              R"(N|-|{"y": 255, "n": -3, "q": 65535, "i": -4, "u": 4000000000, "x": -5, "t": 6})");
}

TEST_F(ForeignSender, MaySendAKeyTwiceAndTheLastCounts) {
    const auto observer = observe({"N"});
    sendUserInfo("a{sv}", 2, "key", "s", "first", "key", "s", "last");
    EXPECT_EQ(observer->readLine(), R"(N|-|{"key": "last"})");
}

TEST_F(ForeignSender, MaySendAContainerFlattened) {
    const auto observer = observe({"N"});
    sendUserInfo("(av)", 6, "(su)", "dictionary", 1, "s", "key", "(su)", "array", 2, "b", 1, "(su)", "array",
                 0, "s", "too much");
    sendUserInfo("(av)", 5, "(su)", "dictionary", 1, "s", "key", "(su)", "array", 2, "b", 1, "(su)", "array",
                 0);
    EXPECT_EQ(observer->readLine(), R"(N|-|{"key": [true, []]})");
}

TEST_F(ForeignSender, IsIgnoredWithOtherArguments) {
    const auto observer = observe({"N"});
    send([](sd_bus_message*) { return 0; });
    send([](sd_bus_message* m) { return sd_bus_message_append(m, "s", "N"); });
    send([this](sd_bus_message* m) { return sd_bus_message_append(m, "ssss", root_(), "N", "", ""); });
    send([this](sd_bus_message* m) { return sd_bus_message_append(m, "ssasa{sv}", root_(), "N", 0, 0); });
    send([this](sd_bus_message* m) {
        return sd_bus_message_append(m, "ssasavs", root_(), "N", 0, 0, "more");
    });
    sendPlain("last");
    EXPECT_EQ(observer->readLine(), "N|last|-");
}

TEST_F(ForeignSender, IsIgnoredWithMoreThanOneObjectOrUserInfo) {
    const auto observer = observe({"N"});
    send([this](sd_bus_message* m) {
        return sd_bus_message_append(m, "ssasav", root_(), "N", 2, "a", "b", 0);
    });
    send([this](sd_bus_message* m) {
        return sd_bus_message_append(m, "ssasav", root_(), "N", 0, 2, "a{sv}", 0, "a{sv}", 0);
    });
    sendPlain("last");
    EXPECT_EQ(observer->readLine(), "N|last|-");
}

TEST_F(ForeignSender, IsIgnoredWhenTheUserInfoIsNotADictionary) {
    const auto observer = observe({"N"});
    sendUserInfo("s", "text");
    sendUserInfo("av", 0);
    sendUserInfo("a{ss}", 1, "key", "value");
    sendUserInfo("(av)", 1, "s", "text");
    sendUserInfo("(av)", 1, "(su)", "array", 0);
    sendPlain("last");
    EXPECT_EQ(observer->readLine(), "N|last|-");
}

TEST_F(ForeignSender, IsIgnoredWhereAValueIsOfAnUnknownKind) {
    const auto observer = observe({"N"});
    sendUserInfo("a{sv}", 1, "key", "o", "/path");
    sendUserInfo("a{sv}", 1, "key", "g", "ay");
    sendUserInfo("a{sv}", 1, "key", "v", "s", "variant in variant");
    sendUserInfo("a{sv}", 1, "key", "as", 1, "text");
    sendUserInfo("a{sv}", 1, "key", "(dd)", 1.0, 2.0);
    sendUserInfo("a{sv}", 1, "key", "(s)", "text");
    sendUserInfo("a{sv}", 1, "key", "a(d)", 1, 1.0);
    sendPlain("last");
    EXPECT_EQ(observer->readLine(), "N|last|-");
}

TEST_F(ForeignSender, IsIgnoredWhenAFlattenedContainerIsInconsistent) {
    const auto observer = observe({"N"});
    sendUserInfo("(av)", 0);
    sendUserInfo("(av)", 1, "(su)", "dictionary", 1);
    sendUserInfo("(av)", 1, "(su)", "dictionary", UINT32_MAX);
    sendUserInfo("(av)", 3, "(su)", "dictionary", 1, "s", "key", "(su)", "array", UINT32_MAX);
    sendUserInfo("(av)", 2, "(su)", "dictionary", 1, "s", "key without value");
    sendUserInfo("(av)", 3, "(su)", "dictionary", 1, "b", 1, "s", "the key is not a string");
    sendUserInfo("(av)", 3, "(su)", "dictionary", 1, "(su)", "array", 0, "s", "the key is not a string");
    sendUserInfo("(av)", 1, "(su)", "set", 0);
    sendUserInfo("(av)", 2, "(su)", "dictionary", 0, "(su)", "dictionary", 0);
    sendUserInfo("(av)", 3, "(su)", "dictionary", 1, "s", "key", "av", 0);
    sendUserInfo("(av)", 3, "(su)", "dictionary", 1, "s", "key", "(av)", 1, "(su)", "array", 0);
    sendPlain("last");
    EXPECT_EQ(observer->readLine(), "N|last|-");
}

TEST_F(ForeignSender, IsIgnoredWithAnotherMemberOrInterface) {
    const auto observer = observe({"N"});
    const auto run = [&](const char* onInterface, const char* member) {
        const auto result =
            runProcess(programPath("dbus-send"),
                       {"--bus=" + bus.address(), "--type=signal", path,
                        std::string(onInterface) + "." + member, std::string("string:") + root_()});
        EXPECT_EQ(result.exitCode, 0) << result.errors;
    };
    run(interface, "Other");
    run("com.tavix.Other", "Notification");
    run(interface, "Notification");
    sendPlain("last");
    EXPECT_EQ(observer->readLine(), "N|last|-");
}

TEST_F(ForeignSender, IsReceivedWithTheDeepestArraysThatTheBusAllows) {
    const auto observer = observe({"N"});
    constexpr int levels = 25;
    send([this](sd_bus_message* m) {
        int result = sd_bus_message_append(m, "ssas", root_(), "N", 0);
        for (const auto& [type, contents] : {std::pair('a', "v"), {'v', "a{sv}"}, {'a', "{sv}"}, {'e', "sv"}})
            result = std::min(result, sd_bus_message_open_container(m, type, contents));
        result = std::min(result, sd_bus_message_append(m, "s", "key"));
        for (int i = 0; i < levels; ++i)
            result = std::min({result, sd_bus_message_open_container(m, 'v', "av"),
                               sd_bus_message_open_container(m, 'a', "v")});
        for (int i = 0; i < levels; ++i)
            result = std::min({result, sd_bus_message_close_container(m), sd_bus_message_close_container(m)});
        for (int i = 0; i < 4; ++i)
            result = std::min(result, sd_bus_message_close_container(m));
        return result;
    });
    EXPECT_EQ(observer->readLine(),
              R"(N|-|{"key": )" + std::string(levels, '[') + std::string(levels, ']') + "}");
}

} // namespace
} // namespace wardlock::test
