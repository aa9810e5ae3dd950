#include "linux/mail/LinuxMailService.h"
#include "linux/mail/MailFolder.h"
#include "platform/files/HomeFolder.h"
#include "platform/runtime/MainLoop.h"
#include "platform/services/MailService.h"
#include "tests/support/BlockedSignal.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/support/NoMoreThreads.h"
#include "tests/support/OtherUser.h"
#include "tests/support/TestTimeout.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::MailMessage;
using platform::MailOutcome;

constexpr const char* outbox = "/var/mobile/Library/Mail/Outbox";

/// No file of this process can grow.
class NoRoomInFiles {
public:
    NoRoomInFiles() {
        std::signal(SIGXFSZ, SIG_IGN);
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &before_), 0);
        const rlimit none{0, before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &none), 0);
    }
    ~NoRoomInFiles() { EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before_), 0); }
    NoRoomInFiles(const NoRoomInFiles&) = delete;
    NoRoomInFiles& operator=(const NoRoomInFiles&) = delete;

private:
    rlimit before_{};
};

class FakeRoute : public platform::mail::MailRoute {
public:
    bool isOpen() override { return query(); }
    std::optional<MailOutcome> send(const MailMessage&, std::string&) override { return std::nullopt; }

    std::function<bool()> query;
};

/// A machine on which nothing of a desktop is to be found but what the test puts there.
class SystemMailService : public BusFixture {
protected:
    SystemMailService() {
        environment.unset("DISPLAY");
        environment.unset("WAYLAND_DISPLAY");
        fs::create_directory(folder() / "bin");
        environment.set("PATH", folder() / "bin" + ":/usr/bin:/bin");
        message_.recipients = {"help@example.org"};
        message_.subject = "Wardlock -- x(1)";
        message_.body = "Application: Wardlock\nTom";
        message_.attachments = {{"a log\n", "text/plain", "log"}};
        installProgram("xdg-mime", "exit 1");
    }

    MailMessage& message() { return message_; }

    void installProgram(const std::string& name, const std::string& script) const {
        const std::string path = folder() / "bin" + '/' + name;
        std::ofstream(path) << "#!/bin/sh\n" << script << '\n';
        fs::permissions(path, fs::perms::owner_all);
    }
    /// A desktop with a mail program: its arguments go to the file "arguments".
    void installMailProgram(int exitCode = 0) {
        environment.set("DISPLAY", ":99");
        installProgram("xdg-mime", "echo mailer.desktop");
        installProgram("xdg-email", "printf '%s\\n' \"$@\" >'" + folder() / "arguments" + "'; exit " +
                                        std::to_string(exitCode));
    }
    std::vector<std::string> arguments() const {
        std::ifstream file(folder() / "arguments");
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }

    MailOutcome send() {
        std::optional<MailOutcome> outcome;
        platform::MailService::native().send(message_, [&](const MailOutcome& result) { outcome = result; });
        EXPECT_TRUE(platform::MainLoop::shared().runUntil([&] { return outcome.has_value(); }, testTimeout));
        return outcome.value_or(MailOutcome());
    }
    std::vector<fs::path> savedMails() const {
        return {fs::directory_iterator(onDisk(outbox)), fs::directory_iterator()};
    }
    /// What Python's reader of mails makes of the saved one.
    std::string readByPython(const std::string& expression) const {
        const auto mails = savedMails();
        EXPECT_EQ(mails.size(), 1U);
        const auto result = runProcess(
            "/usr/bin/python3",
            {"-c",
             "import email, email.policy, sys\n"
             "m = email.message_from_binary_file(open(sys.argv[1], 'rb'), policy=email.policy.default)\n"
             "sys.stdout.reconfigure(encoding='utf-8')\n"
             "print(" +
                 expression + ", end='')",
             mails.empty() ? "" : mails.front().string()});
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        return result.output;
    }

private:
    MailMessage message_;
};

TEST_F(SystemMailService, CannotSendWithoutARoute) {
    EXPECT_FALSE(platform::MailService::native().canSendMail());
    EXPECT_EQ(send().kind, MailOutcome::Kind::Failed);
}

TEST_F(SystemMailService, SavesACompleteMessageInTheOutbox) {
    makeFolder(outbox);
    EXPECT_TRUE(platform::MailService::native().canSendMail());
    const MailOutcome outcome = send();
    EXPECT_EQ(outcome.kind, MailOutcome::Kind::SavedToOutbox);
    ASSERT_EQ(savedMails().size(), 1U);
    const fs::path mail = savedMails().front();
    EXPECT_NE(outcome.message.find(mail.string()), std::string::npos) << outcome.message;
    EXPECT_TRUE(mail.filename().string().ends_with(" Wardlock -- x(1).eml")) << mail;
    EXPECT_EQ(fs::status(mail).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(readByPython("m['To'], m['Subject'], m['MIME-Version'], len(m.defects)"),
              "help@example.org Wardlock -- x(1) 1.0 0");
    EXPECT_EQ(readByPython("m.get_body().get_content().replace('\\n', '|')"), "Application: Wardlock|Tom");
    EXPECT_EQ(readByPython("[(a.get_filename(), a.get_content_type(), a.get_content()) for a in "
                           "m.iter_attachments()]"),
              "[('log', 'text/plain', 'a log\\n')]");
    EXPECT_EQ(readByPython("m['Date'].datetime.tzinfo is not None, '@' in m['Message-ID'], '@' in m['From']"),
              "True True True");
}

TEST_F(SystemMailService, EncodesWhatIsNotAscii) {
    makeFolder(outbox);
    message().subject =
        "Hilfe für Jürgen, 中文 und viele, viele Worte, die nicht in eine Zeile passen können";
    message().recipients = {"Jürgen Groß <j@example.org>", "b@example.org"};
    message().body = "Grüße\n" + std::string(2000, 'x');
    message().attachments = {
        {std::string("\0\xFF\r\n", 4), "application/octet-stream", "Protokoll für Tom.log"}};
    EXPECT_EQ(send().kind, MailOutcome::Kind::SavedToOutbox);
    EXPECT_EQ(readByPython("m['Subject']"), message().subject);
    EXPECT_EQ(readByPython("[(a.display_name, a.addr_spec) for a in m['To'].addresses]"),
              "[('Jürgen Groß', 'j@example.org'), ('', 'b@example.org')]");
    EXPECT_EQ(readByPython("m.get_body().get_content().replace('\\r', '')"), message().body);
    EXPECT_EQ(readByPython("[(a.get_filename(), a.get_content()) for a in m.iter_attachments()]"),
              "[('Protokoll für Tom.log', b'\\x00\\xff\\r\\n')]");
    std::ifstream file(savedMails().front(), std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        EXPECT_LE(line.size(), 79U) << line;
        EXPECT_TRUE(std::all_of(line.begin(), line.end(), [](unsigned char byte) { return byte < 0x80; }))
            << line;
    }
}

TEST_F(SystemMailService, KeepsANameWithACommaWhole) {
    makeFolder(outbox);
    message().recipients = {"\"Groß, Jürgen\" <j@example.org>", "Doe, Jane <d@example.org>",
                            R"("Kim \"K\" <3" <k@example.org>)", "b@example.org"};
    EXPECT_EQ(send().kind, MailOutcome::Kind::SavedToOutbox);
    EXPECT_EQ(readByPython("[(a.display_name, a.addr_spec) for a in m['To'].addresses]"),
              "[('Groß, Jürgen', 'j@example.org'), ('Doe, Jane', 'd@example.org'), "
              "('Kim \"K\" <3', 'k@example.org'), ('', 'b@example.org')]");
}

TEST_F(SystemMailService, DoesNotLetTextAddAHeader) {
    makeFolder(outbox);
    message().subject = "a\r\nBcc: eve@example.org";
    message().recipients = {"x@example.org\r\nBcc: eve@example.org"};
    message().attachments[0].fileName = "l\"o\r\ng";
    EXPECT_EQ(send().kind, MailOutcome::Kind::SavedToOutbox);
    EXPECT_EQ(readByPython("m['Bcc']"), "None");
}

TEST_F(SystemMailService, NamesTheFileSafely) {
    makeFolder(outbox);
    message().subject = "../../.hidden/\x01 name";
    EXPECT_EQ(send().kind, MailOutcome::Kind::SavedToOutbox);
    ASSERT_EQ(savedMails().size(), 1U);
    EXPECT_EQ(savedMails().front().parent_path(), fs::path(onDisk(outbox)));
}

TEST_F(SystemMailService, KeepsEveryMailOfTheSameSecond) {
    makeFolder(outbox);
    for (int count = 0; count < 5; ++count)
        EXPECT_EQ(send().kind, MailOutcome::Kind::SavedToOutbox);
    EXPECT_EQ(savedMails().size(), 5U);
}

TEST_F(SystemMailService, ReportsWhyAMailCouldNotBeSaved) {
    makeFolder(outbox);
    const NoRoomInFiles none;
    const MailOutcome outcome = send();
    EXPECT_EQ(outcome.kind, MailOutcome::Kind::Failed);
    EXPECT_EQ(outcome.message, "The mail could not be saved in " + onDisk(outbox) + ": File too large.");
    EXPECT_TRUE(savedMails().empty());
}

TEST_F(SystemMailService, PassesTheMailToTheMailProgramOfADisplay) {
    makeFolder(outbox);
    installMailProgram();
    const MailOutcome outcome = send();
    EXPECT_EQ(outcome.kind, MailOutcome::Kind::HandedOver);
    const auto given = arguments();
    ASSERT_GE(given.size(), 9U);
    EXPECT_EQ(given[0], "--utf8");
    EXPECT_EQ(given[2], message().subject);
    EXPECT_EQ(given.back(), "help@example.org");
    const auto attach = std::find(given.begin(), given.end(), "--attach");
    ASSERT_NE(attach, given.end());
    const fs::path attached = *(attach + 1);
    EXPECT_EQ(attached.filename(), "log");
    std::ifstream file(attached);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "a log\n");
    EXPECT_EQ(fs::status(attached).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(savedMails().empty());
}

TEST_F(SystemMailService, NeedsNoFolderForAMailWithoutAttachments) {
    installMailProgram();
    environment.set("XDG_CACHE_HOME", "/dev/null");
    environment.unset("HOME");
    message().attachments.clear();
    ASSERT_EQ(send().kind, MailOutcome::Kind::HandedOver);
    EXPECT_EQ(arguments().back(), "help@example.org");
}

TEST_F(SystemMailService, ReportsWhyTheAttachmentsCouldNotBeCopied) {
    installMailProgram();
    environment.set("XDG_CACHE_HOME", "/dev/null");
    const MailOutcome outcome = send();
    EXPECT_EQ(outcome.kind, MailOutcome::Kind::Failed);
    EXPECT_EQ(outcome.message, "The attachments could not be copied to /dev/null/wardlock: Not a directory.");
}

TEST_F(SystemMailService, CopiesAttachmentsBelowTheHomeFolderOfTheUserDatabaseWhereNoneIsNamed) {
    SKIP_WITHOUT_OTHER_USER();
    environment.unset("XDG_CACHE_HOME");
    environment.unset("HOME");
    // A user without a home folder.
    EXPECT_EQ(OtherUser::does([this] {
                  const platform::mail::MailFolder copies(message().attachments);
                  const std::string home = platform::homeFolderOfUser().value_or("none");
                  return copies.problem().find(" " + home + "/.cache/wardlock: ") == std::string::npos;
              }),
              0);
}

TEST_F(SystemMailService, UsesTheOutboxWhenTheMailProgramFails) {
    makeFolder(outbox);
    installMailProgram(3);
    EXPECT_EQ(send().kind, MailOutcome::Kind::SavedToOutbox);
    EXPECT_FALSE(arguments().empty());
}

TEST_F(SystemMailService, DoesNotPassAnOptionAsAnAddress) {
    installMailProgram();
    message().recipients = {"--attach=/etc/passwd@x", "a@example.org"};
    EXPECT_EQ(send().kind, MailOutcome::Kind::HandedOver);
    const auto given = arguments();
    EXPECT_EQ(std::count(given.begin(), given.end(), "--attach=/etc/passwd@x"), 0);
}

TEST_F(SystemMailService, AsksThePortalFirst) {
    makeFolder(outbox);
    installMailProgram();
    Process portal(programFolder() + "/test-email-portal", {"0"});
    ASSERT_EQ(portal.readLine(), "ready");
    EXPECT_TRUE(platform::MailService::native().canSendMail());
    EXPECT_EQ(send().kind, MailOutcome::Kind::HandedOver);
    EXPECT_EQ(portal.readLine(), "addresses=help@example.org");
    EXPECT_EQ(portal.readLine(), "subject=Wardlock -- x(1)");
    EXPECT_EQ(portal.readLine(), "body=Application: Wardlock");
    EXPECT_EQ(portal.readLine(), "Tom");
    EXPECT_EQ(portal.readLine(), "attachment_fds=log:a log");
    EXPECT_TRUE(arguments().empty());
    EXPECT_TRUE(savedMails().empty());
}

TEST_F(SystemMailService, GivesAnOldPortalOneAddress) {
    Process portal(programFolder() + "/test-email-portal", {"0", "2"});
    ASSERT_EQ(portal.readLine(), "ready");
    EXPECT_EQ(send().kind, MailOutcome::Kind::HandedOver);
    EXPECT_EQ(portal.readLine(), "address=help@example.org");
}

TEST_F(SystemMailService, FailsWhenTheUserChoosesNoProgram) {
    makeFolder(outbox);
    Process portal(programFolder() + "/test-email-portal", {"1"});
    ASSERT_EQ(portal.readLine(), "ready");
    EXPECT_EQ(send().kind, MailOutcome::Kind::Failed);
    EXPECT_TRUE(savedMails().empty());
}

TEST_F(SystemMailService, UsesTheNextRouteWhenThePortalFails) {
    makeFolder(outbox);
    Process portal(programFolder() + "/test-email-portal", {"2"});
    ASSERT_EQ(portal.readLine(), "ready");
    EXPECT_EQ(send().kind, MailOutcome::Kind::SavedToOutbox);
}

TEST_F(SystemMailService, LeavesTheSignalsToTheHost) {
    makeFolder(outbox);
    const std::string chooser = folder() / "chooser";
    ASSERT_EQ(mkfifo(chooser.c_str(), 0600), 0);
    Process portal(programFolder() + "/test-email-portal", {"0", "4", chooser});
    ASSERT_EQ(portal.readLine(), "ready");
    BlockedSignal signal;
    std::optional<MailOutcome> outcome;
    platform::MailService::native().send(message(), [&](const MailOutcome& result) { outcome = result; });
    signal.block();
    while (portal.readLine().value_or("asking") != "asking") {
    }
    // A thread that takes it would end its wait for the user's reply, and send the mail by another
    // way.
    signal.send();
    std::ofstream(chooser).close();
    EXPECT_TRUE(platform::MainLoop::shared().runUntil([&] { return outcome.has_value(); }, testTimeout));
    EXPECT_EQ(outcome.value_or(MailOutcome()).kind, MailOutcome::Kind::HandedOver);
    EXPECT_TRUE(savedMails().empty()) << "it was sent twice";
    EXPECT_TRUE(signal.isPending()) << "a thread has taken it";
}

TEST_F(SystemMailService, FailsWhereTheSystemHasNoMoreThreads) {
    makeFolder(outbox);
    const NoMoreThreads none;
    EXPECT_FALSE(platform::MailService::native().canSendMail());
    EXPECT_EQ(send().kind, MailOutcome::Kind::Failed);
}

TEST_F(SystemMailService, AsksNoPortalInARuntimeFolderThatOthersCanChange) {
    Process portal(programFolder() + "/test-email-portal", {"0"});
    ASSERT_EQ(portal.readLine(), "ready");
    const std::string runtime = folder() / "run";
    fs::create_symlink(bus.address().substr(std::string("unix:path=").size()), runtime + "/bus");
    environment.unset("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_TRUE(platform::MailService::native().canSendMail()) << "or the rest would prove nothing";
    for (const unsigned mode : {0770U, 0702U, 01777U}) {
        fs::permissions(runtime, static_cast<fs::perms>(mode));
        EXPECT_FALSE(platform::MailService::native().canSendMail()) << std::oct << mode;
    }
}

TEST_F(SystemMailService, QueriesAllRoutesAtOnce) {
    const auto lastIsQueried = std::make_shared<std::promise<void>>();
    auto waiting = std::make_shared<FakeRoute>();
    waiting->query = [queried = lastIsQueried->get_future().share()] {
        return queried.wait_for(testTimeout) == std::future_status::ready;
    };
    auto last = std::make_shared<FakeRoute>();
    last->query = [lastIsQueried] {
        lastIsQueried->set_value();
        return false;
    };
    EXPECT_TRUE(platform::mail::LinuxMailService({waiting, last}).canSendMail());
}

TEST_F(SystemMailService, DoesNotWaitForAStoppedBus) {
    makeFolder(outbox);
    bus.stop();
    EXPECT_TRUE(platform::MailService::native().canSendMail());
    bus.resume();
}

} // namespace
} // namespace wardlock::test
