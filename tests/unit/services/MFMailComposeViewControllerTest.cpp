#include "platform/services/MFMailComposeViewController.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

class Post : public MailService {
public:
    Post() { setCurrent(this); }
    ~Post() override { setCurrent(nullptr); }
    bool canSendMail() override { return true; }
    void send(const MailMessage& message, std::function<void(const MailOutcome&)> done) override {
        sent.push_back(message);
        reply = std::move(done);
    }
    std::vector<MailMessage> sent;
    std::function<void(const MailOutcome&)> reply;
};

class Delegate : public Object, public MFMailComposeViewControllerDelegate {
public:
    void mailComposeControllerDidFinishWithResultError(MFMailComposeViewController&,
                                                       MFMailComposeResult result,
                                                       const std::string& error) override {
        results.push_back(result);
        lastError = error;
    }
    std::vector<MFMailComposeResult> results;
    std::string lastError;
};

class MailCompose : public ::testing::Test {
protected:
    void SetUp() override { composer->setMailComposeDelegate(delegate); }

    Post post;
    std::shared_ptr<Delegate> delegate = std::make_shared<Delegate>();
    std::shared_ptr<MFMailComposeViewController> composer = std::make_shared<MFMailComposeViewController>();
};

TEST_F(MailCompose, SendsTheMailAsTheUserEditedIt) {
    composer->setToRecipients({"someone@example.org"});
    composer->setSubject("first");
    composer->setSubject("edited");
    composer->addAttachmentData("one", "text/plain", "log");
    composer->addAttachmentData("two", "text/plain", "other");
    composer->removeAttachment(0);
    composer->send();
    ASSERT_EQ(post.sent.size(), 1U);
    EXPECT_EQ(post.sent[0].subject, "edited");
    ASSERT_EQ(post.sent[0].attachments.size(), 1U);
    EXPECT_EQ(post.sent[0].attachments[0].fileName, "other");
}

TEST_F(MailCompose, ReportsTheResultWhenTheMailIsSent) {
    composer->send();
    EXPECT_TRUE(composer->isSending());
    EXPECT_TRUE(delegate->results.empty());
    post.reply({MailOutcome::Kind::HandedOver, "Given to the mail program."});
    EXPECT_EQ(delegate->results, std::vector{MFMailComposeResult::Sent});
    EXPECT_EQ(composer->outcome()->message, "Given to the mail program.");
}

TEST_F(MailCompose, SendsOnceHoweverOftenItIsAsked) {
    composer->send();
    composer->send();
    EXPECT_EQ(post.sent.size(), 1U);
}

TEST_F(MailCompose, ReportsAFailureWithItsReason) {
    composer->send();
    post.reply({MailOutcome::Kind::Failed, "No route."});
    EXPECT_TRUE(delegate->results.empty());
    composer->cancel();
    EXPECT_EQ(delegate->results, std::vector{MFMailComposeResult::Failed});
    EXPECT_EQ(delegate->lastError, "No route.");
}

TEST_F(MailCompose, ReportsACancel) {
    composer->cancel();
    EXPECT_EQ(delegate->results, std::vector{MFMailComposeResult::Cancelled});
    EXPECT_TRUE(post.sent.empty());
}

TEST(MailService, CannotSendWithoutAService) {
    EXPECT_FALSE(MFMailComposeViewController::canSendMail());
}

} // namespace
} // namespace platform
