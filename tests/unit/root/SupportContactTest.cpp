#include "platform/services/MailService.h"
#include "root/SettingsListController.h"
#include "tests/support/PageFixture.h"
#include "tests/support/doubles/PicturingDisplay.h"
#include "tests/support/doubles/RecordingURLOpener.h"

#include <filesystem>
#include <sys/stat.h>

namespace wardlock::test {
namespace {

using platform::MFMailComposeViewController;

class FakeMail : public platform::MailService {
public:
    FakeMail() { setCurrent(this); }
    ~FakeMail() override { setCurrent(nullptr); }

    bool canSendMail() override { return can; }
    void send(const platform::MailMessage& message,
              std::function<void(const platform::MailOutcome&)> done) override {
        sent.push_back(message);
        done({outcome, "reported by the test"});
    }

    bool can = true;
    platform::MailOutcome::Kind outcome = platform::MailOutcome::Kind::HandedOver;
    std::vector<platform::MailMessage> sent;
};

class SupportContact : public PageFixture {
protected:
    std::shared_ptr<MFMailComposeViewController> composer() {
        return std::dynamic_pointer_cast<MFMailComposeViewController>(page->presentedViewController());
    }
    platform::MailMessage writeMail() {
        tap(*page, "support@tavix.example");
        EXPECT_NE(composer(), nullptr);
        return composer() ? composer()->message() : platform::MailMessage();
    }

    FakeMail mail;
    RecordingURLOpener urls;
    std::shared_ptr<SettingsListController> page = std::make_shared<SettingsListController>();
};

TEST_F(SupportContact, OpensTheProfileInItsApplication) {
    tap(*page, "@TavixCo");
    EXPECT_EQ(urls.opened, std::vector<std::string>{"twitter://user?screen_name=TavixCo"});
}

TEST_F(SupportContact, OpensNothingElseWhenNoApplicationAcceptsTheProfile) {
    urls.hasHandler = false;
    tap(*page, "@TavixCo");
    EXPECT_EQ(urls.opened.size(), 1U);
    EXPECT_EQ(page->presentedViewController(), nullptr);
}

TEST_F(SupportContact, DoesNothingWhereNoMailCanBeSent) {
    mail.can = false;
    tap(*page, "support@tavix.example");
    EXPECT_EQ(page->presentedViewController(), nullptr);
}

TEST_F(SupportContact, AddressesTheMailToSupportAlone) {
    EXPECT_EQ(writeMail().recipients, std::vector<std::string>{"support@tavix.example"});
}

TEST_F(SupportContact, NamesMachineAndSystemVersionInTheSubject) {
    EXPECT_EQ(writeMail().subject, "Wardlock -- iPhone6,1(8.1)");
}

TEST_F(SupportContact, FillsInThePlainTextBody) {
    const auto message = writeMail();
    EXPECT_EQ(message.body,
              "Application: Wardlock\nDevice: iPhone6,1\nFirmware: 8.1\n\nComments:\nPlease describe "
              "in detail what's wrong\n\nReproduce:\nHow can I reproduce this issue?");
    EXPECT_FALSE(message.isHTML);
}

TEST_F(SupportContact, AttachesNothingWithoutLogs) {
    EXPECT_TRUE(writeMail().attachments.empty());
}

TEST_F(SupportContact, AttachesTheLogsInOrder) {
    writeFile("/var/mobile/com.tavix.wardlock_log", "\nan entry");
    writeFile("/tmp/dpkgl.log", std::string_view("packages\0\xff", 10));
    const auto attachments = writeMail().attachments;
    ASSERT_EQ(attachments.size(), 2u);
    EXPECT_EQ(attachments[0].fileName, "log");
    EXPECT_EQ(attachments[0].mimeType, "text/plain");
    EXPECT_EQ(attachments[0].data, "\nan entry");
    EXPECT_EQ(attachments[1].fileName, "dpkgl.log");
    EXPECT_EQ(attachments[1].mimeType, "text/plain");
    EXPECT_EQ(attachments[1].data, std::string_view("packages\0\xff", 10));
}

TEST_F(SupportContact, AttachesThePackageListAlone) {
    writeFile("/tmp/dpkgl.log", "packages");
    const auto attachments = writeMail().attachments;
    ASSERT_EQ(attachments.size(), 1u);
    EXPECT_EQ(attachments[0].fileName, "dpkgl.log");
}

TEST_F(SupportContact, AttachesAnEmptyLog) {
    writeFile("/var/mobile/com.tavix.wardlock_log", "");
    const auto attachments = writeMail().attachments;
    ASSERT_EQ(attachments.size(), 1u);
    EXPECT_EQ(attachments[0].data, "");
}

TEST_F(SupportContact, SkipsALogThatIsAFolder) {
    makeFolder("/tmp/dpkgl.log");
    EXPECT_TRUE(writeMail().attachments.empty());
}

TEST_F(SupportContact, SkipsALogThatIsNotAFile) {
    makeFolder("/tmp");
    ASSERT_EQ(::mkfifo(onDisk("/tmp/dpkgl.log").c_str(), 0600), 0);
    EXPECT_TRUE(writeMail().attachments.empty());
}

TEST_F(SupportContact, SkipsALogThatIsTooLargeForAnyMail) {
    writeFile("/tmp/dpkgl.log", "packages");
    writeFile("/var/mobile/com.tavix.wardlock_log", "\nan entry");
    std::filesystem::resize_file(onDisk("/var/mobile/com.tavix.wardlock_log"), (64u << 20) + 1);
    const auto attachments = writeMail().attachments;
    ASSERT_EQ(attachments.size(), 1u);
    EXPECT_EQ(attachments[0].fileName, "dpkgl.log");
}

TEST_F(SupportContact, DismissesTheComposerWhenTheMailWasSent) {
    writeMail();
    composer()->send();
    EXPECT_EQ(mail.sent.size(), 1u);
    EXPECT_EQ(page->presentedViewController(), nullptr);
}

TEST_F(SupportContact, DismissesTheComposerWhenTheMailWasSaved) {
    mail.outcome = platform::MailOutcome::Kind::SavedToOutbox;
    writeMail();
    composer()->send();
    EXPECT_EQ(page->presentedViewController(), nullptr);
}

TEST_F(SupportContact, DismissesTheComposerWhenTheMailFailed) {
    mail.outcome = platform::MailOutcome::Kind::Failed;
    writeMail();
    composer()->send();
    ASSERT_NE(page->presentedViewController(), nullptr);
    composer()->cancel();
    EXPECT_EQ(page->presentedViewController(), nullptr);
}

TEST_F(SupportContact, DismissesTheComposerWhenItIsCancelled) {
    writeMail();
    composer()->cancel();
    EXPECT_TRUE(mail.sent.empty());
    EXPECT_EQ(page->presentedViewController(), nullptr);
}

TEST_F(SupportContact, DismissesTheComposerThatFinishedWhateverTheResult) {
    for (const int result : {0, 1, 2, 3}) {
        writeMail();
        page->mailComposeControllerDidFinishWithResultError(
            *composer(), static_cast<platform::MFMailComposeResult>(result), "why");
        EXPECT_EQ(page->presentedViewController(), nullptr) << result;
    }
}

TEST_F(SupportContact, DismissesOnlyThePassedComposer) {
    writeMail();
    const auto elsewhere = std::make_shared<platform::UIViewController>();
    const auto other = std::make_shared<MFMailComposeViewController>();
    elsewhere->presentViewController(other, false);
    page->mailComposeControllerDidFinishWithResultError(*other, platform::MFMailComposeResult::Sent, "");
    EXPECT_EQ(elsewhere->presentedViewController(), nullptr);
    EXPECT_NE(composer(), nullptr);
}

TEST_F(SupportContact, PresentsTheComposerOnceTheMailIsComplete) {
    writeFile("/var/mobile/com.tavix.wardlock_log", "\nan entry");
    writeFile("/tmp/dpkgl.log", "packages");
    page->specifiers();
    doubles::PicturingDisplay display([this] {
        if (!composer())
            return std::string();
        const auto& mail = composer()->message();
        return std::to_string(mail.recipients.size()) + " recipient, " + (mail.subject.empty() ? "no" : "a") +
               " subject, " + (mail.body.empty() ? "no" : "a") + " body, " +
               std::to_string(mail.attachments.size()) + " attachments";
    });
    tap(*page, "support@tavix.example");
    EXPECT_EQ(display.pictures, std::vector<std::string>{"1 recipient, a subject, a body, 2 attachments"});
}

TEST_F(SupportContact, DoesNotKeepThePageAliveThroughTheComposer) {
    writeMail();
    const auto composed = composer();
    const std::weak_ptr<SettingsListController> gone = page;
    page.reset();
    EXPECT_TRUE(gone.expired());
    composed->cancel();
}

} // namespace
} // namespace wardlock::test
