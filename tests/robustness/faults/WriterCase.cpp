#include "tests/robustness/faults/WriterCase.h"

#include "platform/plist/PropertyList.h"
#include "settings/Constants.h"
#include "settings/Document.h"

#include <gtest/gtest.h>

#include <ostream>

namespace wardlock::test {

namespace {

constexpr const char* damaged = "<plist><dict><key>kEnabled</key>";

std::vector<WriterCase> makeCases() {
    std::vector<WriterCase> all;
    for (const Writer& writer : writers())
        all.push_back({writer, Before::Linked, writer.documentBefore(), writer.documentAfter()});
    const std::string switchedOn = platform::dataWithPropertyList(platform::Dictionary{{"kEnabled", true}});
    all.push_back({writers().front(), Before::Missing, "", switchedOn});
    all.push_back({writers().front(), Before::Damaged, damaged, switchedOn});
    return all;
}

} // namespace

std::string WriterCase::what(const std::optional<std::string>& found) const {
    const bool isOld = before == Before::Missing ? !found : found == documentBefore;
    if (isOld || found == documentAfter)
        return isOld ? "the old document" : "the new document";
    return found ? "neither document: " + *found : "no document";
}

std::string WriterCase::name() const {
    constexpr const char* suffixes[] = {"", "WithoutADocument", "OverADamagedDocument"};
    return writer.name + suffixes[static_cast<int>(before)];
}

const std::vector<WriterCase>& writerCases() {
    static const std::vector<WriterCase> all = makeCases();
    return all;
}

void expectNextChangeKeepsTheRest() {
    const auto before = document(BundleIdentifier);
    const auto update = updateDocument(BundleIdentifier, [](platform::MutableDictionary& entries) {
        entries.set("kNext", true);
        return true;
    });
    EXPECT_TRUE(update.written);
    platform::MutableDictionary expected(before.value_or(platform::Dictionary()));
    expected.set("kNext", true);
    EXPECT_EQ(document(BundleIdentifier), expected.copy());
}

void PrintTo(const WriterCase& given, std::ostream* out) {
    *out << given.name();
}

} // namespace wardlock::test
