#include "cli/fullscreen/GroundReply.h"

#include <gtest/gtest.h>

#include <string>

namespace wardlock::cli {
namespace {

Ground groundOf(const std::string& colour) {
    return groundOfReply("\033]11;" + colour + "\007");
}

TEST(GroundReply, IsRecognisedByteByByte) {
    for (const std::string reply :
         {"\033]11;rgb:ffff/ffff/ffff\007", "\033]11;rgb:ff/ff/ff\033\\", "\033]11;\007"}) {
        for (std::size_t length = 1; length < reply.size(); ++length)
            EXPECT_EQ(replyOf(reply.substr(0, length)), Reply::Begun) << length;
        EXPECT_EQ(replyOf(reply), Reply::Background);
    }
    const std::string kind = "\033[?62;22c";
    for (std::size_t length = 1; length < kind.size(); ++length)
        EXPECT_EQ(replyOf(kind.substr(0, length)), Reply::Begun) << length;
    EXPECT_EQ(replyOf(kind), Reply::Kind);
}

TEST(GroundReply, IsNoneOfTheBytesOfKeys) {
    for (const char* key : {"\033a", "\033O", "\033OA", "\033[A", "\033[5~", "\033[<0;1;1M", "\033[200~",
                            "\033\033", "\033]2", "\033]12", "\033]11\007", "\033[?1h", "\033[?62;22cx"})
        EXPECT_EQ(replyOf(key), Reply::None) << key + 1;
}

TEST(GroundReply, IsBrokenByWhatNoReplyHas) {
    for (const std::string bytes : {"\033]11;rgb:\r", "\033]11;rgb:\033[", "\033]11;\xC3", "\033]11;x\007y"})
        EXPECT_EQ(replyOf(bytes), Reply::Broken) << bytes.substr(1);
    EXPECT_EQ(replyOf("\033]11;" + std::string(1000, 'x')), Reply::Broken);
    EXPECT_EQ(replyOf("\033[?" + std::string(1000, '1')), Reply::None);
}

TEST(GroundReply, GivesTheGroundOfAColourInEveryForm) {
    for (const char* light : {"rgb:ffff/ffff/ffff", "rgb:f/f/f", "rgb:fdfd/f6f6/e3e3",
                              "rgba:ffff/ffff/ffff/8000", "#ffffff", "#ffffffffffff", "rgb:FF/FF/FF"})
        EXPECT_EQ(groundOf(light), Ground::Light) << light;
    for (const char* dark :
         {"rgb:0000/0000/0000", "rgb:1e1e/1e1e/1e1e", "rgb:00/00/ff", "#002b36", "rgb:0/0/0"})
        EXPECT_EQ(groundOf(dark), Ground::Dark) << dark;
}

TEST(GroundReply, GivesNoGroundOfAnythingElse) {
    for (const char* colour :
         {"", "?", "white", "rgb:", "rgb:ff", "rgb:ff/ff", "rgb:ff/ff/", "rgb:zz/zz/zz", "rgb:-1/-1/-1",
          "rgb:fffff/ffff/ffff", "#", "#fff8", "#xxyyzz", "rgb:ff /ff/ff"})
        EXPECT_EQ(groundOf(colour), Ground::Unknown) << colour;
    EXPECT_EQ(groundOfReply(""), Ground::Unknown);
}

} // namespace
} // namespace wardlock::cli
