#include "cli/fullscreen/LinkSpans.h"

#include <gtest/gtest.h>

#include <string>

namespace wardlock::cli {
namespace {

std::string spansOf(const std::string& line) {
    const std::vector<platform::WebLink> links{{"One", "http://one"}, {"Two words", "http://two"}};
    std::string spans;
    for (const LinkSpan& span : linkSpans(line, links))
        spans += std::to_string(span.number) + '<' + line.substr(span.begin, span.end - span.begin) + '>';
    return spans;
}

TEST(LinkSpans, ReachFromTheLinksTextToItsNumber) {
    EXPECT_EQ(spansOf("See One [1] and Two words [2]."), "1<One [1]>2<Two words [2]>");
}

TEST(LinkSpans, AreTheNumberAloneWhereTheTextIsOnAnotherLine) {
    EXPECT_EQ(spansOf("words [2]"), "2<[2]>");
}

TEST(LinkSpans, LeaveOutWhatIsNoLinksNumber) {
    EXPECT_EQ(spansOf("[0] [3] [x] [] [1"), "");
}

} // namespace
} // namespace wardlock::cli
