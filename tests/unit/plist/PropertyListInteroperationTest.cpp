#include "platform/plist/PropertyList.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ValueText.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace platform {
namespace {

using wardlock::test::runProcess;
using wardlock::test::TemporaryFolder;
using wardlock::test::text;

/// The same values in Python and in C++.
constexpr const char* pythonValues =
    "{'kEnabled': True, 'kPasscode': '', 'name': 'A & <b> \"c\" \\'d\\' \\u00e4\\u20ac\\U0001F600',\n"
    " 'tabs': 'a\\tb\\nc', 'ints': [0, -1, 255, 256, 65535, 65536, 2**31, 2**32, -2**63, 2**63-1, 2**63, "
    "2**64-1],\n"
    " 'reals': [0.1, -1.5, 1e22, 5e-324, 1.7976931348623157e308],\n"
    " 'when': datetime.datetime(2024, 2, 29, 23, 59, 59), 'before': datetime.datetime(1900, 3, 1),\n"
    " 'bytes': bytes(range(256)), 'none': b'', 'nested': {'deep': [[], {}, [{'x': [True, False]}], b'abc' * "
    "50]},\n"
    " 'records': [{'a': i, 'b': str(i % 3), 'c': i % 2 == 0} for i in range(40)],\n"
    " 'many': {'key%d' % i: i for i in range(70)}, '': 'empty key', 'same': ['x' * 20] * 5}";

Value ourValues() {
    const auto bytes = [] {
        std::string all;
        for (int c = 0; c < 256; ++c)
            all += static_cast<char>(c);
        return all;
    }();
    MutableArray records;
    for (int i = 0; i < 40; ++i)
        records.append(Dictionary{{"a", i}, {"b", std::to_string(i % 3)}, {"c", i % 2 == 0}});
    MutableDictionary many;
    for (int i = 0; i < 70; ++i)
        many.set("key" + std::to_string(i), i);
    std::string abc;
    for (int i = 0; i < 50; ++i)
        abc += "abc";
    const std::string x(20, 'x');
    return Dictionary{{"kEnabled", true},
                      {"kPasscode", ""},
                      {"name", "A & <b> \"c\" 'd' \u00e4\u20ac\U0001F600"},
                      {"tabs", "a\tb\nc"},
                      {"ints", Array{0, -1, 255, 256, 65535, 65536, 1ll << 31, 1ll << 32, INT64_MIN,
                                     INT64_MAX, 1ull << 63, UINT64_MAX}},
                      {"reals", Array{0.1, -1.5, 1e22, 5e-324, 1.7976931348623157e308}},
                      {"when", Value::date(730943999)},
                      {"before", Value::date(-3182198400)},
                      {"bytes", Value::data(bytes)},
                      {"none", Value::data("")},
                      {"nested", Dictionary{{"deep", Array{Array(), Dictionary(),
                                                           Array{Dictionary{{"x", Array{true, false}}}},
                                                           Value::data(abc)}}}},
                      {"records", records.copy()},
                      {"many", many.copy()},
                      {"", "empty key"},
                      {"same", Array{x, x, x, x, x}}};
}

std::string contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void store(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

class PropertyListInteroperation : public ::testing::Test {
protected:
    /// Runs Python with the values in `values` and the folder's path in `folder`.
    void python(const std::string& statements) {
        const std::string script = "import datetime, os, plistlib\nfolder = '" + folder.path() +
                                   "/'\nvalues = " + pythonValues + "\n" + statements;
        const auto result = runProcess("/usr/bin/env", {"python3", "-c", script});
        ASSERT_EQ(result.exitCode, 0) << result.errors;
    }
    void plistutil(const std::string& from, const std::string& format, const std::string& to) {
        const auto result =
            runProcess("/usr/bin/env", {"plistutil", "-i", folder / from, "-f", format, "-o", folder / to});
        ASSERT_EQ(result.exitCode, 0) << result.errors;
    }
    std::string readingOf(const std::string& name) const {
        const auto value = propertyListWithData(contents(folder / name));
        return value ? text(*value) : "no document";
    }

    TemporaryFolder folder;
};

TEST_F(PropertyListInteroperation, ReadsWhatPythonWritesInXml) {
    python("plistlib.dump(values, open(folder + 'a', 'wb'), sort_keys=False)");
    EXPECT_EQ(readingOf("a"), text(ourValues()));
}

TEST_F(PropertyListInteroperation, ReadsWhatPythonWritesInBinary) {
    python("plistlib.dump(values, open(folder + 'a', 'wb'), fmt=plistlib.FMT_BINARY, sort_keys=False)");
    EXPECT_EQ(readingOf("a"), text(ourValues()));
}

TEST_F(PropertyListInteroperation, WritesWhatPythonReads) {
    store(folder / "a", dataWithPropertyList(ourValues()));
    python("assert plistlib.load(open(folder + 'a', 'rb')) == values");
}

/// What UTF-8 text may contain and XML not, and its neighbours.
std::string oddText() {
    std::string text;
    for (int c = 0; c < 0x20; ++c)
        text += static_cast<char>(c);
    return text +
           "<>&]]>\x7F\u0080\u0085\u2028\uD7FF\uE000\uFDD0\uFFFD\uFFFE\uFFFF\U00010000\U0001FFFF\U0010FFFF";
}

constexpr const char* pythonsOddText =
    "import re\n"
    "odd = ''.join(map(chr, range(32))) + "
    "'<>&]]>\\x7f\\x80\\x85\\u2028\\ud7ff\\ue000\\ufdd0\\ufffd\\ufffe\\uffff' + "
    "'\\U00010000\\U0001ffff\\U0010ffff'\n"
    "seen = re.sub('[\\x00-\\x08\\x0b\\x0c\\x0e-\\x1f\\ufffe\\uffff]', '\\ufffd', odd)\n"
    "expected = {'text': seen, seen: [seen, '']}\n";

TEST_F(PropertyListInteroperation, WritesTextThatXmlCannotContainSoThatPythonReadsTheRest) {
    const Value ours = Dictionary{{"text", oddText()}, {oddText(), Array{oddText(), ""}}};
    store(folder / "a", dataWithPropertyList(ours));
    python(std::string(pythonsOddText) +
           "read = plistlib.load(open(folder + 'a', 'rb'))\nassert read == expected, ascii(read)");
    EXPECT_EQ(propertyListWithData(contents(folder / "a")), ours);
}

TEST_F(PropertyListInteroperation, WritesTextThatXmlCannotContainSoThatPlistutilReadsTheRest) {
    const Value ours = Dictionary{{"text", oddText()}, {oddText(), Array{oddText(), ""}}};
    store(folder / "a", dataWithPropertyList(ours));
    plistutil("a", "bin", "b");
    python(std::string(pythonsOddText) +
           "read = plistlib.load(open(folder + 'b', 'rb'))\nassert read == expected, ascii(read)");
}

TEST_F(PropertyListInteroperation, WritesTheSameBytesAsPythonInThePlatformsForm) {
    store(folder / "a", dataWithPropertyList(ourValues()));
    // Python writes huge reals in another form.
    python("values['reals'] = []\n"
           "ours = plistlib.load(open(folder + 'a', 'rb'))\nassert list(ours) == list(values)");
    MutableDictionary values(ourValues().dictionary());
    values.set("reals", Array());
    store(folder / "b", dataWithPropertyList(values.copy()));
    python("values['reals'] = []\nassert plistlib.dumps(values, sort_keys=False) == open(folder + 'b', "
           "'rb').read()");
}

TEST_F(PropertyListInteroperation, ReadsTheBinaryThatPlistutilConverts) {
    store(folder / "ours", dataWithPropertyList(ourValues()));
    plistutil("ours", "bin", "binary");
    EXPECT_EQ(propertyListWithData(contents(folder / "binary")), ourValues());
    EXPECT_TRUE(contents(folder / "binary").starts_with("bplist00"));
}

TEST_F(PropertyListInteroperation, ReadsTheXmlThatPlistutilConverts) {
    python("plistlib.dump(values, open(folder + 'a', 'wb'), fmt=plistlib.FMT_BINARY, sort_keys=False)");
    plistutil("a", "xml", "b");
    EXPECT_EQ(propertyListWithData(contents(folder / "b")), ourValues());
}

TEST_F(PropertyListInteroperation, ReadsPythonsUidAsADictionary) {
    python("plistlib.dump({'u': plistlib.UID(70000)}, open(folder + 'a', 'wb'), fmt=plistlib.FMT_BINARY)");
    EXPECT_EQ(readingOf("a"), "{\"u\": {\"CF$UID\": 70000}}");
}

} // namespace
} // namespace platform
