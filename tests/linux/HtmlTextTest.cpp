#include "linux/HtmlText.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

std::string textOf(std::string_view html) {
    return htmlText(html, "http://host/folder/page").text;
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

TEST(HtmlText, KeepsTheLinesOfPreformattedText) {
    EXPECT_EQ(textOf("<pre>a  b\n\tc</pre> d  e"), "a  b\n c\n\nd e\n");
}

TEST(HtmlText, LeavesOutWhatNobodyReads) {
    EXPECT_EQ(textOf("<!DOCTYPE html><?xml?><html><head><title>T</title><style>p{}</style></head><body>"
                     "<!-- <p>no</p> --><script>if (a<b) '</p>'</script>Yes<template>no</template></body>"),
              "Yes\n");
    EXPECT_EQ(textOf("<SCRIPT>x</SCRIPT >Yes"), "Yes\n");
}

TEST(HtmlText, ReplacesReferences) {
    EXPECT_EQ(textOf("&lt;b&gt; &amp;amp; &quot;&#39;&#x41;&euro;&uuml;&nope; AT&T &#; &#x110000;"),
              "<b> &amp; \"'A€ü&nope; AT&T &#;\n");
}

TEST(HtmlText, HasNoControlCharacters) {
    EXPECT_EQ(textOf("a\x1b[31mb&#27;c\x7f&#x9b;d\xc2\x9b"
                     "e\a"),
              "a[31mbcde\n");
    EXPECT_EQ(plainText("a\x1b[2Jb\r\nc\td").text, "a[2Jb\nc d\n");
}

TEST(HtmlText, NumbersItsLinksAndResolvesThem) {
    const PageText page = htmlText("<a href='/one'>One</a> <A HREF=two.html?a=1&amp;b=2>Two</A>"
                                   "<a href=\"https://else.example/x\"><img alt=Three></a>",
                                   "http://host/folder/page?q");
    EXPECT_EQ(page.text, "One [1] Two [2]Three [3]\n");
    EXPECT_EQ(page.links, (std::vector<WebLink>{{"One", "http://host/one"},
                                                {"Two", "http://host/folder/two.html?a=1&b=2"},
                                                {"Three", "https://else.example/x"}}));
}

TEST(HtmlText, OffersOnlyLinksToWebPages) {
    const PageText page =
        htmlText("<a href='javascript:alert(1)'>a</a><a href='file:///etc/passwd'>b</a>"
                 "<a href='#top'>c</a><a name=d>d</a><a href='mailto:x@y'>e</a><a href>f</a>",
                 "http://host/");
    EXPECT_EQ(page.text, "abcdef\n");
    EXPECT_TRUE(page.links.empty());
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
} // namespace platform
