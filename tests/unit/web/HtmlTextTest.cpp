#include "linux/web/HtmlText.h"

#include <gtest/gtest.h>

namespace platform::web {
namespace {

PageText read(std::string_view html, const std::string& url = "http://host/folder/page") {
    auto page = htmlText(html, url);
    EXPECT_TRUE(page);
    return page.value_or(PageText());
}

std::string textOf(std::string_view html) {
    return read(html).text;
}

std::string repeated(std::string_view text, std::size_t times) {
    std::string all;
    all.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        all.append(text);
    return all;
}

TEST(HtmlText, PutsBlocksOnLinesAndCollapsesSpace) {
    EXPECT_EQ(textOf("<h1> Our\n  packages </h1><p>One<br>two</p><div>three</div><div>four</div>"),
              "Our packages\n\nOne\ntwo\n\nthree\nfour\n");
    EXPECT_EQ(textOf("a <b> bold </b> c"), "a bold c\n");
}

TEST(HtmlText, ListsItemsAndCells) {
    EXPECT_EQ(textOf("<ul><li>One</li><li>Two</li></ul><table><tr><td>a</td><td>b</td></tr></table>"),
              "• One\n• Two\n\na b\n");
}

TEST(HtmlText, HasABlockForEachHeadingParagraphAndItem) {
    using Kind = WebBlock::Kind;
    EXPECT_EQ(read("<h2>Our <a href=/x>pages</a></h2><p>One<br>two<ul><li><p>a</p><p>b</p><ol><li>c</ol></ul>"
                   "<pre>d\n  e</pre>")
                  .blocks,
              (std::vector<WebBlock>{{Kind::Heading, 2, 0, false, {{"Our ", 0}, {"pages", 1}}},
                                     {Kind::Text, 0, 0, true, {{"One\ntwo", 0}}},
                                     {Kind::ListItem, 0, 1, true, {{"a", 0}}},
                                     {Kind::Text, 0, 1, true, {{"b", 0}}},
                                     {Kind::ListItem, 0, 2, true, {{"c", 0}}},
                                     {Kind::Preformatted, 0, 0, true, {{"d\n  e", 0}}}}));
}

TEST(HtmlText, HasALinkInEachOfItsBlocks) {
    const PageText page =
        read("<a href=/x><h3>Name</h3><p>What it is</p></a><a href=/y> </a>a <a href=/z>b</a> c");
    EXPECT_EQ(page.text, "Name\n\nWhat it is [1]\n\n[2]a b [3] c\n");
    EXPECT_EQ(page.links.at(0).text, "Name What it is");
    EXPECT_EQ(page.blocks.at(2).runs, (std::vector<WebRun>{{"", 2}, {"a ", 0}, {"b", 3}, {" c", 0}}));
}

TEST(HtmlText, KeepsTheLinesOfPreformattedText) {
    EXPECT_EQ(textOf("<pre>a  b\n\tc</pre> d  e"), "a  b\n c\n\nd e\n");
}

TEST(HtmlText, LeavesOutInvisibleElements) {
    EXPECT_EQ(textOf("<!DOCTYPE html><?xml?><html><head><title>T</title><style>p{}</style></head><body>"
                     "<!-- <p>no</p> --><script>if (a<b) '</p>'</script>Yes<template>no</template></body>"),
              "Yes\n");
    EXPECT_EQ(textOf("<SCRIPT>x</SCRIPT >Yes"), "Yes\n");
}

TEST(HtmlText, ContinuesAfterAnEndTagInsideAScript) {
    EXPECT_EQ(textOf("<script>x = '</b></p></scripts>';</script>Yes"), "Yes\n");
    EXPECT_EQ(textOf("<script><!-- <script></script> --></script>Yes"), "Yes\n");
    EXPECT_EQ(textOf("<style>a::before { content: '</' }</style>Yes"), "Yes\n");
}

TEST(HtmlText, ContinuesAfterASelfClosedPicture) {
    EXPECT_EQ(textOf("<svg/>Yes"), "Yes\n");
    EXPECT_EQ(textOf("a<svg><text>no</text><path/></svg>b"), "ab\n");
}

TEST(HtmlText, LeavesOutReplacementsOfFramesAndScripts) {
    EXPECT_EQ(textOf("a<iframe><p>no</p></iframe>b<noscript>no <a href=x>x</a></noscript>c"), "abc\n");
    EXPECT_EQ(textOf("a<noframes>no</noframes><noembed>no</noembed><datalist><option>no</datalist>b"),
              "ab\n");
}

TEST(HtmlText, LeavesOutWhatIsHidden) {
    EXPECT_EQ(textOf("a<div hidden>no<pre>no</pre></div>b<a hidden href=x>no</a>"), "ab\n");
}

TEST(HtmlText, ReplacesReferences) {
    EXPECT_EQ(textOf("&lt;b&gt; &amp;amp; &quot;&#39;&#x41;&euro;&uuml;&nope; AT&T &#;"),
              "<b> &amp; \"'A€ü&nope; AT&T &#;\n");
    EXPECT_EQ(textOf("&CounterClockwiseContourIntegral;&NotEqualTilde;&copy 2 &#x110000; &#128;"),
              "∳≂̸© 2 \uFFFD €\n");
}

TEST(HtmlText, HasNoControlCharacters) {
    EXPECT_EQ(textOf("a\x1b[31mb&#27;c\x7f&#x1;d\xc2\x9b"
                     "e\a"),
              "a\uFFFD[31mbc\uFFFDd\uFFFDe\uFFFD\n");
    EXPECT_EQ(plainText("a\x1b[2Jb\r\nc\td").text, "a[2Jb\nc d\n");
}

TEST(HtmlText, NumbersItsLinksAndResolvesThem) {
    const PageText page = read("<a href='/one'>One</a> <A HREF=two.html?a=1&amp;b=2>Two</A>"
                               "<a href=\"https://else.example/x\"><img alt=Three></a>",
                               "http://host/folder/page?q");
    EXPECT_EQ(page.text, "One [1] Two [2]Three [3]\n");
    EXPECT_EQ(page.links, (std::vector<WebLink>{{"One", "http://host/one"},
                                                {"Two", "http://host/folder/two.html?a=1&b=2"},
                                                {"Three", "https://else.example/x"}}));
}

TEST(HtmlText, OffersOnlyLinksToWebPages) {
    const PageText page = read("<a href='javascript:alert(1)'>a</a><a href='file:///etc/passwd'>b</a>"
                               "<a href='#top'>c</a><a name=d>d</a><a href='mailto:x@y'>e</a><a href>f</a>",
                               "http://host/");
    EXPECT_EQ(page.text, "abcdef\n");
    EXPECT_TRUE(page.links.empty());
}

TEST(HtmlText, ResolvesLinksAgainstTheBaseThatThePageNames) {
    const PageText page = read("<base target=x><base href='https://base.example/a/'><base href='http://no/'>"
                               "<a href=b>b</a><a href=/c>c</a>");
    EXPECT_EQ(page.links,
              (std::vector<WebLink>{{"b", "https://base.example/a/b"}, {"c", "https://base.example/c"}}));
    EXPECT_EQ(read("<base href='file:///'><a href=b>b</a>").links.at(0).url, "http://host/folder/b");
}

TEST(HtmlText, TakesAddressesAsABrowserDoes) {
    const PageText page = read("<a href=' \n//else/x\n'>1</a><a href='a b'>2</a><a href='HTTP://UP/'>3</a>"
                               "<a href='java\nscript:alert(1)'>4</a><a href='data:text/html,x'>5</a>");
    EXPECT_EQ(page.links,
              (std::vector<WebLink>{
                  {"1", "http://else/x"}, {"2", "http://host/folder/a%20b"}, {"3", "http://UP/"}}));
}

TEST(HtmlText, OffersAThousandLinksAndNoAddressOfManyThousandCharacters) {
    EXPECT_EQ(read(repeated("<a href=x>x</a>", 1100)).links.size(), 1000U);
    EXPECT_TRUE(read("<a href='/" + std::string(10000, 'x') + "'>x</a>").links.empty());
    EXPECT_TRUE(read("<a href=x>x</a>", "http://host/" + std::string(10000, 'x')).links.empty());
}

TEST(HtmlText, ReadsAPageAsDeepAsItsLengthAllows) {
    EXPECT_EQ(textOf(repeated("<i>", 20000) + "deep"), "deep\n");
    EXPECT_EQ(textOf(repeated("<span>", 20000) + "deep" + repeated("</span>", 20000) + " shallow"),
              "deep shallow\n");
}

// Each is shorter than a megabyte. A tree of all their elements would take gigabytes, or hours.
TEST(HtmlText, IsNotReadFromAPageThatDescribesTooLargeATree) {
    std::string formats = "<p>";
    for (int i = 0; i < 40000; ++i)
        formats += "<b " + std::to_string(i) + ">";
    EXPECT_FALSE(htmlText(formats + repeated("</p><p>x", 40000), "http://host/"));
}

TEST(HtmlText, IsNotReadFromAPageThatTakesTooLong) {
    EXPECT_FALSE(htmlText(repeated("<b>", 150000) + repeated("</i>", 100000), "http://host/"));
    std::string attributes = "<p";
    for (int i = 0; i < 120000; ++i)
        attributes += " a" + std::to_string(i);
    EXPECT_FALSE(htmlText(attributes + ">x", "http://host/"));
}

TEST(HtmlText, TakesWhatIsLeftUnfinished) {
    EXPECT_EQ(textOf("a<"), "a<\n");
    EXPECT_EQ(textOf("a<b"), "a\n");
    EXPECT_EQ(textOf("a<b c='d"), "a\n");
    EXPECT_EQ(textOf("a<!-- b"), "a\n");
    EXPECT_EQ(textOf("a<script>b"), "a\n");
    EXPECT_EQ(textOf("3 < 4 > 2"), "3 < 4 > 2\n");
    EXPECT_EQ(textOf("<a href=x>b"), "b [1]\n");
    EXPECT_EQ(textOf("<p =>a</p><p = b==c>d"), "a\n\nd\n");
    EXPECT_EQ(textOf(""), "");
}

} // namespace
} // namespace platform::web
