// Pages of another length than their server states. None is given up for want of time alone.

#include "tests/support/LocalWeb.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using namespace std::chrono_literals;

constexpr const char* head = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n";
constexpr const char* chunked = "Transfer-Encoding: chunked\r\n\r\n";
constexpr const char* tooLarge = "The page is too large";
constexpr const char* cutOff = "Transferred a partial file";
constexpr const char* broken = "Failure when receiving data from the peer";
constexpr const char* invalid = "Weird server reply";

class PageOfWrongLength : public ::testing::Test, protected LocalWeb {
protected:
    PageOfWrongLength() { use({.timeout = 1h, .connectTo = ""}); }
    PageOutcome loadStated(const std::string& length, const std::string& body) {
        server.replyRaw("/", head + ("Content-Length: " + length) + "\r\n\r\n" + body);
        return load("/");
    }
    PageOutcome loadChunks(const std::string& chunks) {
        server.replyRaw("/", std::string(head) + chunked + chunks);
        return load("/");
    }
};

TEST_F(PageOfWrongLength, IsRefusedWhenTheServerStatesMoreThanItSends) {
    EXPECT_EQ(loadStated("1000", "<p>five").error, cutOff);
}

TEST_F(PageOfWrongLength, IsReadToItsStatedEndWhenTheServerSendsMore) {
    const PageOutcome outcome = loadStated("7", "<p>five and more");
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(outcome.text, "five\n");
}

TEST_F(PageOfWrongLength, IsRefusedWhenTheLengthIsNegativeOrNotANumber) {
    EXPECT_EQ(loadStated("-1", "<p>five").error, invalid);
    EXPECT_EQ(loadStated("-9223372036854775808", "<p>five").error, invalid);
    EXPECT_EQ(loadStated("seven", "<p>five").error, invalid);
}

TEST_F(PageOfWrongLength, IsRefusedBeforeItIsReadWhenTheLengthIsHuge) {
    EXPECT_EQ(loadStated("1048577", "").error, tooLarge);
    EXPECT_EQ(loadStated("9223372036854775807", "").error, tooLarge);
    EXPECT_EQ(loadStated("99999999999999999999999999", "").error, tooLarge);
}

TEST_F(PageOfWrongLength, IsWholeWhenItComesInChunks) {
    const PageOutcome outcome = loadChunks("3\r\n<p>\r\n4;name=value\r\nfive\r\n0\r\n\r\n");
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(outcome.text, "five\n");
}

TEST_F(PageOfWrongLength, IsRefusedWhenAChunkIsCutOffOrTheLastOneMissing) {
    EXPECT_EQ(loadChunks("ff\r\n<p>five").error, cutOff);
    EXPECT_EQ(loadChunks("7\r\n<p>five\r\n").error, cutOff);
    EXPECT_EQ(loadChunks("").error, cutOff);
}

TEST_F(PageOfWrongLength, IsRefusedWhenAChunkHasNoLengthOrTooLongAOne) {
    EXPECT_EQ(loadChunks("wrong\r\n<p>five\r\n0\r\n\r\n").error, broken);
    EXPECT_EQ(loadChunks("-7\r\n<p>five\r\n0\r\n\r\n").error, broken);
    EXPECT_EQ(loadChunks("fffffffffffffffffffff\r\n<p>five").error, broken);
    EXPECT_EQ(loadChunks("7\r\n<p>five and more\r\n0\r\n\r\n").error, broken);
}

TEST_F(PageOfWrongLength, IsRefusedWhenAChunksLengthNeverEnds) {
    server.replyForEver("/", std::string(head) + chunked, "0");
    EXPECT_EQ(load("/").error, broken);
}

TEST_F(PageOfWrongLength, IsRefusedWhenAChunksExtensionNeverEnds) {
    server.replyForEver("/", std::string(head) + chunked + "7;", std::string(4096, 'x'));
    EXPECT_EQ(load("/").error, tooLarge);
}

TEST_F(PageOfWrongLength, IsRefusedWhenItIsFollowedByEndlessHeaders) {
    server.replyForEver("/", std::string(head) + chunked + "7\r\n<p>five\r\n0\r\n",
                        "X-More: " + std::string(1000, 'x') + "\r\n");
    EXPECT_EQ(load("/").error, tooLarge);
}

class PageOfManyLinks : public ::testing::Test, protected LocalWeb {
protected:
    static std::string repeated(const std::string& text, int times) {
        std::string all;
        for (int i = 0; i < times; ++i)
            all += text;
        return all;
    }
};

TEST_F(PageOfManyLinks, HasItsWholeTextAndTheFirstThousandLinks) {
    use({.largestPage = 4U << 20, .timeout = 1h, .connectTo = ""});
    server.reply("/", repeated("<a href=x>x</a> ", 100000));
    const PageOutcome outcome = load("/");
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(outcome.links.size(), 1000U);
    EXPECT_EQ(outcome.text.substr(0, 12), "x [1] x [2] ");
    EXPECT_EQ(outcome.text.substr(outcome.text.size() - 4), "x x\n");
}

TEST_F(PageOfManyLinks, IsReadWhenNoneOfThemEnds) {
    use({.timeout = 1h, .connectTo = ""});
    server.reply("/", repeated("<a href=x>", 100000));
    const PageOutcome outcome = load("/");
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(outcome.links.size(), 1000U);
}

} // namespace
} // namespace wardlock::test
