#include "platform/base/ByteVector.h"

#include <gtest/gtest.h>

#include <string>

namespace platform {
namespace {

template <class Vector>
class ByteVectors : public testing::Test {};

#if defined(__SSE2__)
using Forms = testing::Types<PlainByteVector, SseByteVector>;
#else
using Forms = testing::Types<PlainByteVector>;
#endif
TYPED_TEST_SUITE(ByteVectors, Forms);

/// Sixteen letters with `byte` at one position.
std::string lettersWith(char byte, std::size_t position) {
    std::string text = "abcdefghijklmnop";
    text[position] = byte;
    return text;
}

TYPED_TEST(ByteVectors, FindsAByteAtEachPosition) {
    for (std::size_t i = 0; i < TypeParam::size; ++i)
        for (const char byte : {'<', '\0', '\x7F', '\x80', '\xFF'})
            EXPECT_EQ(TypeParam(lettersWith(byte, i).data()).equal(byte), 1u << i) << i;
}

TYPED_TEST(ByteVectors, FindsEachOfSeveralBytes) {
    EXPECT_EQ(TypeParam("<bc&efghijklmn<p").equal('<', '&'), 0x4009u);
    EXPECT_EQ(TypeParam("<bc&ef\nhij\x80lmn>p").notAsciiBelowOr(0x20, '&', '>'), 0x4448u);
}

TYPED_TEST(ByteVectors, FindsNothingThatIsNotThere) {
    const TypeParam letters("abcdefghijklmnop");
    EXPECT_EQ(letters.equal('<'), 0u);
    EXPECT_EQ(letters.notAscii(), 0u);
}

TYPED_TEST(ByteVectors, FindsAllBytesThatAreEqual) {
    EXPECT_EQ(TypeParam("aXaXaXaXaXaXaXaX").equal('a'), 0x5555u);
    EXPECT_EQ(TypeParam("aaaaaaaaaaaaaaaa").equal('a'), allBytes);
}

TYPED_TEST(ByteVectors, ComparesByteByByte) {
    const TypeParam letters("abcdefghijklmnop");
    EXPECT_EQ(letters.equal(TypeParam("abcdefghijklmnop")), allBytes);
    for (std::size_t i = 0; i < TypeParam::size; ++i)
        EXPECT_EQ(letters.equal(TypeParam(lettersWith('!', i).data())), allBytes & ~(1u << i)) << i;
}

TYPED_TEST(ByteVectors, FindsWhatIsNotAsciiOrBelowABound) {
    for (std::size_t i = 0; i < TypeParam::size; ++i) {
        for (const char byte : {'\0', '\n', '\x1F', '\x80', '\xC3', '\xFF'})
            EXPECT_EQ(TypeParam(lettersWith(byte, i).data()).notAsciiBelowOr(0x20), 1u << i) << i;
        for (const char byte : {' ', '&', '~', '\x7F'})
            EXPECT_EQ(TypeParam(lettersWith(byte, i).data()).notAsciiBelowOr(0x20), 0u) << i;
    }
}

TYPED_TEST(ByteVectors, FindsWhatIsNotAsciiInEitherOfTwo) {
    for (std::size_t i = 0; i < TypeParam::size; ++i) {
        EXPECT_EQ(TypeParam(lettersWith('\x80', i).data()).notAscii(), 1u << i) << i;
        const TypeParam letters("abcdefghijklmnop");
        const std::string other = lettersWith('\xC3', i);
        EXPECT_EQ((letters | TypeParam(other.data())).notAscii(), 1u << i) << i;
        EXPECT_EQ((TypeParam(other.data()) | letters).notAscii(), 1u << i) << i;
    }
}

} // namespace
} // namespace platform
