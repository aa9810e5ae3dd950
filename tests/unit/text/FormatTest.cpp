#include "platform/text/Format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <string>

using namespace platform;

TEST(Format, CopiesTextWithoutConversions) {
    EXPECT_EQ(stringWithFormat("plain text"), "plain text");
    EXPECT_EQ(stringWithFormat(""), "");
}

TEST(Format, PrintsObjectsInOrder) {
    EXPECT_EQ(stringWithFormat("%@/%@", "com.example", std::string("update")), "com.example/update");
}

TEST(Format, PrintsAnAbsentObjectAsNull) {
    EXPECT_EQ(stringWithFormat("%@", nullptr), "(null)");
    EXPECT_EQ(stringWithFormat("%@", static_cast<const char*>(nullptr)), "(null)");
    EXPECT_EQ(stringWithFormat("%@", static_cast<const Value*>(nullptr)), "(null)");
    EXPECT_EQ(stringWithFormat("%@", std::optional<Dictionary>()), "(null)");
}

TEST(Format, PrintsAMissingArgumentAsNull) {
    EXPECT_EQ(stringWithFormat("%@ %d", "a"), "a (null)");
}

TEST(Format, PrintsEmptyTextAsNothing) {
    EXPECT_EQ(stringWithFormat("<%@>", ""), "<>");
}

TEST(Format, KeepsBytesOfTextThatLookLikeConversions) {
    EXPECT_EQ(stringWithFormat("%@", "100% %@ %d"), "100% %@ %d");
}

TEST(Format, PrintsNumbersAsObjects) {
    EXPECT_EQ(stringWithFormat("%@ %@ %@", 42, -7, 1.5), "42 -7 1.5");
    EXPECT_EQ(stringWithFormat("%@", true), "1");
}

TEST(Format, PrintsValuesAsObjects) {
    EXPECT_EQ(stringWithFormat("%@", Value("Siri")), "Siri");
    EXPECT_EQ(stringWithFormat("%@", Array{1, 2}), "(\n    1,\n    2\n)");
    EXPECT_EQ(stringWithFormat("%@", Dictionary{{"a", true}}), "{\n    a = 1;\n}");
}

TEST(Format, PrintsSignedIntegers) {
    EXPECT_EQ(stringWithFormat("%d %i %ld %lld", 1, -2, 3L, -4LL), "1 -2 3 -4");
    EXPECT_EQ(stringWithFormat("%lld", std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(Format, PrintsUnsignedIntegers) {
    EXPECT_EQ(stringWithFormat("%u %o %x %X", 10U, 8U, 255U, 255U), "10 10 ff FF");
    EXPECT_EQ(stringWithFormat("%llu", std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
}

TEST(Format, PrintsANegativeNumberUnsignedInThePassedWidth) {
    EXPECT_EQ(stringWithFormat("%u", -1), "4294967295");
    EXPECT_EQ(stringWithFormat("%x", static_cast<short>(-1)), "ffffffff");
    EXPECT_EQ(stringWithFormat("%llx", -1LL), "ffffffffffffffff");
}

TEST(Format, PadsToTheWidth) {
    EXPECT_EQ(stringWithFormat("[%5d]", 42), "[   42]");
    EXPECT_EQ(stringWithFormat("[%-5d]", 42), "[42   ]");
    EXPECT_EQ(stringWithFormat("[%05d]", -42), "[-0042]");
    EXPECT_EQ(stringWithFormat("[%4@]", "ab"), "[  ab]");
}

TEST(Format, TakesWidthAndPrecisionFromTheArguments) {
    EXPECT_EQ(stringWithFormat("[%*d]", 4, 7), "[   7]");
    EXPECT_EQ(stringWithFormat("[%*d]", -4, 7), "[7   ]");
    EXPECT_EQ(stringWithFormat("[%.*f]", 2, 1.0), "[1.00]");
    EXPECT_EQ(stringWithFormat("[%.*f]", -1, 1.0), "[1.000000]");
}

TEST(Format, MarksPositiveNumbersWhereAsked) {
    EXPECT_EQ(stringWithFormat("%+d % d", 1, 1), "+1  1");
    EXPECT_EQ(stringWithFormat("%+.1f", 1.0), "+1.0");
}

TEST(Format, PrintsTheAlternateForms) {
    EXPECT_EQ(stringWithFormat("%#x %#X %#o %#x", 255U, 255U, 8U, 0U), "0xff 0XFF 010 0");
    EXPECT_EQ(stringWithFormat("%#.0f", 1.0), "1.");
}

TEST(Format, KeepsTrailingZerosInTheAlternateGeneralForm) {
    EXPECT_EQ(stringWithFormat("%#.17g", 1e22), "1.0000000000000000e+22");
    EXPECT_EQ(stringWithFormat("%#g %#g %#G", 0.0, 0.00012, 1e10), "0.00000 0.000120000 1.00000E+10");
    EXPECT_EQ(stringWithFormat("%#.0g %#.3g %#g", 2.0, 12.5, 123456.0), "2. 12.5 123456.");
}

TEST(Format, AppliesAnIntegersPrecision) {
    EXPECT_EQ(stringWithFormat("%.3d", 7), "007");
    EXPECT_EQ(stringWithFormat("[%.0d]", 0), "[]");
    EXPECT_EQ(stringWithFormat("[%.0o %#.0o]", 0, 0), "[ 0]");
    EXPECT_EQ(stringWithFormat("[%05.3d]", 7), "[  007]");
}

TEST(Format, PrintsRealsWithSixDigitsAfterThePoint) {
    EXPECT_EQ(stringWithFormat("%f", 1.0), "1.000000");
    EXPECT_EQ(stringWithFormat("%f", -0.5F), "-0.500000");
    EXPECT_EQ(stringWithFormat("%f", 1e20), "100000000000000000000.000000");
}

TEST(Format, PrintsRealsInAllForms) {
    EXPECT_EQ(stringWithFormat("%.2f %e %g %G", 3.14159, 12345.678, 0.0001, 1e-10),
              "3.14 1.234568e+04 0.0001 1E-10");
    EXPECT_EQ(stringWithFormat("%a", 1.0), "0x1p+0");
    EXPECT_EQ(stringWithFormat("%08.2f", -3.14159), "-0003.14");
}

TEST(Format, PrintsInfinitiesAndNan) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(stringWithFormat("%f %F %f", infinity, -infinity, std::nan("")), "inf -INF nan");
    EXPECT_EQ(stringWithFormat("[%05f]", infinity), "[  inf]");
}

TEST(Format, PrintsTheLargestRealWithTheLargestPrecision) {
    const std::string text = stringWithFormat("%.9999f", std::numeric_limits<double>::max());
    EXPECT_EQ(text.substr(0, 5), "17976");
    EXPECT_EQ(text.find('.'), 309U);
    EXPECT_EQ(text.size(), 309U + 1 + 512);
}

TEST(Format, BoundsWidths) {
    EXPECT_EQ(stringWithFormat("%999999999999999999999d", 1).size(), 4096U);
    EXPECT_EQ(stringWithFormat("%*d", std::numeric_limits<std::int64_t>::min(), 1).size(), 4096U);
}

TEST(Format, PrintsCharacters) {
    EXPECT_EQ(stringWithFormat("%c%c", 'A', 66), "AB");
    EXPECT_EQ(stringWithFormat("%c", 0xe9), "\u00e9");
}

TEST(Format, CutsTextToThePrecisionWithoutSplittingACharacter) {
    EXPECT_EQ(stringWithFormat("%.3s", "abcdef"), "abc");
    EXPECT_EQ(stringWithFormat("%.2s", "a\u00e9b"), "a");
    EXPECT_EQ(stringWithFormat("%.3s", "a\u00e9b"), "a\u00e9");
}

TEST(Format, PrintsAddresses) {
    EXPECT_EQ(stringWithFormat("%p", std::uintptr_t{0xbeef}), "0xbeef");
    int here = 0;
    EXPECT_EQ(stringWithFormat("%p", &here), stringWithFormat("%p", reinterpret_cast<std::uintptr_t>(&here)));
    EXPECT_EQ(stringWithFormat("%p", static_cast<void*>(nullptr)), "0x0");
}

TEST(Format, PrintsTheObjectBehindAPointer) {
    const std::string text = "text";
    const Array array{1};
    const Dictionary dictionary{{"a", 2}};
    EXPECT_EQ(stringWithFormat("%@ %@ %@", &text, &array, &dictionary), "text (\n    1\n) {\n    a = 2;\n}");
    EXPECT_EQ(stringWithFormat("%@ %@ %@", static_cast<const std::string*>(nullptr),
                               static_cast<const Array*>(nullptr), static_cast<const Dictionary*>(nullptr)),
              "(null) (null) (null)");
}

TEST(Format, PrintsMutableCollectionsAsObjects) {
    EXPECT_EQ(stringWithFormat("%@ %@", MutableArray(Array{1}), MutableDictionary(Dictionary{{"a", 2}})),
              "(\n    1\n) {\n    a = 2;\n}");
}

TEST(Format, TakesPointersToMutableCollections) {
    const MutableArray array(Array{1});
    MutableDictionary dictionary(Dictionary{{"a", 2}});
    EXPECT_EQ(stringWithFormat("%@ %@", &array, &dictionary), "(\n    1\n) {\n    a = 2;\n}");
    EXPECT_EQ(stringWithFormat("%@ %@", static_cast<const MutableArray*>(nullptr),
                               static_cast<MutableDictionary*>(nullptr)),
              "(null) (null)");
}

TEST(Format, PrintsTheValueOfAnOptional) {
    EXPECT_EQ(stringWithFormat("%@ %@ %@ %d", std::optional<Value>("a"), std::optional<std::string>("b"),
                               std::optional<MutableDictionary>(MutableDictionary()), std::optional<int>(-3)),
              "a b {\n} -3");
    EXPECT_EQ(stringWithFormat("%@ %@", std::optional<Value>(), std::optional<MutableDictionary>()),
              "(null) (null)");
}

TEST(Format, TakesArgumentsByPosition) {
    EXPECT_EQ(stringWithFormat("%2$@ %1$@ %1$@", "a", "b"), "b a a");
    EXPECT_EQ(stringWithFormat("%3$@", "a"), "(null)");
}

TEST(Format, PrintsAnArgumentThatDoesNotFitAsAnObject) {
    EXPECT_EQ(stringWithFormat("%d", "text"), "text");
    EXPECT_EQ(stringWithFormat("%s", 5), "5");
    EXPECT_EQ(stringWithFormat("%f", 5), "5");
    EXPECT_EQ(stringWithFormat("%d", Value(true)), "1");
}

TEST(Format, PrintsAPercentSign) {
    EXPECT_EQ(stringWithFormat("100%%"), "100%");
}

TEST(Format, KeepsTextThatIsNotAConversion) {
    EXPECT_EQ(stringWithFormat("50%"), "50%");
    EXPECT_EQ(stringWithFormat("%y %@", "a"), "%y a");
    EXPECT_EQ(stringWithFormat("%5"), "%5");
    EXPECT_EQ(stringWithFormat(std::string_view("%\0%@", 4), "a"), std::string("%\0a", 3));
}

namespace {

/// A locale that would spoil every number printed with it.
class CommaPunctuation : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class LocaleScope {
public:
    explicit LocaleScope(const std::locale& locale) : before_(std::locale::global(locale)) {}
    ~LocaleScope() { std::locale::global(before_); }
    LocaleScope(const LocaleScope&) = delete;
    LocaleScope& operator=(const LocaleScope&) = delete;

private:
    std::locale before_;
};

} // namespace

TEST(Format, DoesNotDependOnTheLocale) {
    const LocaleScope scope(std::locale(std::locale::classic(), new CommaPunctuation));
    EXPECT_EQ(stringWithFormat("%f %d %@ %@", 1234.5, 1234567, 1234.5, 1234567),
              "1234.500000 1234567 1234.5 1234567");
}
