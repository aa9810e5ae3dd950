// Listing pages that never end, each in a way of its own. None is given up for want of time alone, unless it
// says next to nothing.

#include "tests/support/LocalWeb.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace wardlock::test {
namespace {

using namespace std::chrono_literals;

class EndlessPage : public ::testing::Test, protected LocalWeb {
protected:
    /// How the load of the page ended.
    std::string load(const std::string& path, std::chrono::milliseconds longest) {
        use({.timeout = longest, .connectTo = ""});
        const PageOutcome outcome = LocalWeb::load(path);
        EXPECT_LE(outcome.text.size(), 2U << 20);
        return outcome.error.empty() ? "finished" : outcome.error;
    }
};

constexpr const char* ok = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n";
/// Longer than any test may take.
constexpr auto forEver = 1h;

TEST_F(EndlessPage, IsRefusedWhenItsTextDoesNotEnd) {
    server.replyForEver("/", std::string(ok) + "\r\n", std::string(4096, 'x'));
    EXPECT_EQ(load("/", forEver), "The page is too large");
}

TEST_F(EndlessPage, IsRefusedWhenItsHeadersDoNotEnd) {
    server.replyForEver("/", ok, "X-More: " + std::string(1000, 'x') + "\r\n");
    EXPECT_NE(load("/", forEver), "finished");
    server.replyForEver("/one", std::string(ok) + "X-One: ", std::string(4096, 'x'));
    EXPECT_NE(load("/one", forEver), "finished");
}

TEST_F(EndlessPage, IsRefusedWhenInterimResponsesDoNotEnd) {
    server.replyForEver("/", "", "HTTP/1.1 100 Continue\r\n\r\n");
    EXPECT_NE(load("/", forEver), "finished");
}

TEST_F(EndlessPage, TimesOutWhenItsBytesArriveSlowly) {
    server.drip("/", std::string(ok) + "\r\n", "x");
    EXPECT_EQ(load("/", 300ms), "Timeout was reached");
}

TEST_F(EndlessPage, TimesOutWhenItNeverBegins) {
    server.hang("/");
    EXPECT_EQ(load("/", 300ms), "Timeout was reached");
}

/// Bits from the lowest of each byte on, as the compressed form has them.
class Bits {
public:
    void add(unsigned value, int count) {
        for (int i = 0; i < count; ++i, ++at_) {
            if (at_ % 8 == 0)
                bytes += '\0';
            bytes.back() = static_cast<char>(bytes.back() | static_cast<char>((value >> i & 1) << at_ % 8));
        }
    }
    /// Codes are written with their highest bit first.
    void addCode(unsigned code, int count) {
        for (int i = count - 1; i >= 0; --i)
            add(code >> i & 1, 1);
    }
    std::string bytes;

private:
    int at_ = 0;
};

/// A gzip stream of as many times 258 blanks, in 13 bits each.
std::string compressedBlanks(int times) {
    Bits bits;
    bits.add(1, 1); // the last block
    bits.add(1, 2); // of the fixed codes
    bits.addCode(0x30 + ' ', 8);
    for (int i = 0; i < times; ++i) {
        bits.addCode(0xC5, 8); // 258 bytes
        bits.addCode(0, 5);    // from one back
    }
    bits.addCode(0, 7);
    return std::string("\x1f\x8b\x08\0\0\0\0\0\0\xff", 10) + bits.bytes + std::string(8, '\0');
}

TEST_F(EndlessPage, IsRefusedWhenAFewBytesDecompressToManyOfThem) {
    const auto replyWith = [this](const char* path, const std::string& body) {
        server.replyRaw(path, std::string(ok) + "Content-Encoding: gzip\r\nContent-Length: " +
                                  std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
    };
    replyWith("/", compressedBlanks(100000));
    EXPECT_EQ(load("/", forEver), "The page is too large");
}

TEST_F(EndlessPage, IsRefusedWhenItsRedirectsDoNotEnd) {
    server.redirect("/", "/");
    EXPECT_EQ(load("/", forEver), "Number of redirects hit maximum amount");
}

} // namespace
} // namespace wardlock::test
