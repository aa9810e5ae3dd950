#include "cli/io/Json.h"
#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/system/documentation/Page.h"
#include "tests/system/documentation/Pattern.h"

#include <algorithm>
#include <nlohmann/json.hpp>

// The tables of what the program shows and stores are compared with what it does show and store.

namespace wardlock::test {
namespace {

using platform::Value;
using Lines = std::vector<std::string>;

std::string defaultText(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Boolean:
        return value.boolean() ? "true" : "false";
    case Value::Kind::String:
        return '"' + std::string(value.string()) + '"';
    default:
        return "as shown below";
    }
}

/// "`kEnabled` boolean true", one for each entry in its order.
Lines entriesOf(const platform::Dictionary& dictionary) {
    Lines lines;
    for (const auto& [key, value] : dictionary) {
        const char* type = value.kind() == Value::Kind::Boolean  ? "boolean"
                           : value.kind() == Value::Kind::String ? "string"
                                                                 : "array";
        lines.push_back('`' + std::string(key) + "` " + type + ' ' + defaultText(value));
    }
    return lines;
}

Lines describedEntries(const std::string& heading) {
    Lines lines;
    for (const TableRow& row : Page("docs/document-format.md").tableBelow(heading))
        lines.push_back(row.cells.at(0) + ' ' + row.cells.at(1) + ' ' + row.cells.at(2));
    return lines;
}

platform::Dictionary defaultAccount() {
    return platform::arrayValue(DefaultSettings().find(kAccounts))->at(0).dictionary();
}

TEST(DocumentFormat, DocumentsEveryTopLevelKeyInItsOrder) {
    EXPECT_EQ(describedEntries("Top-level keys"), entriesOf(DefaultSettings()));
}

TEST(DocumentFormat, DocumentsEveryKeyOfAnAccountInItsOrder) {
    EXPECT_EQ(describedEntries("Keys of an account"), entriesOf(defaultAccount()));
}

TEST(Architecture, NamesExistingFilesForEachChange) {
    const Page page("docs/architecture.md");
    for (const TableRow& row : page.tableBelow("Where would I change X?")) {
        const auto paths = codeIn(row.cells.at(1));
        EXPECT_FALSE(paths.empty()) << page.place(row.line) << ": no file";
        for (const std::string& path : paths)
            EXPECT_TRUE(existsInSource(path)) << page.place(row.line) << ": " << path;
    }
}

/// What the pages show, read through the script front end.
class ShownPages : public BusFixture {
protected:
    /// The sections of the page that the taps lead to.
    cli::Json sectionsAfter(const std::vector<std::string>& taps) {
        ProcessSetup setup = with("WARDLOCK_DEVICE_ROOT", folder() / "device");
        for (const std::string& row : taps)
            setup.input += R"({"do":"tap","row":")" + row + "\"}\n";
        setup.input += R"({"do":"see"})";
        const ProcessResult result =
            runProcess(programFolder() + "/wardlock", {"settings", "--script", "-"}, setup);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        const auto last = result.output.rfind('\n', result.output.size() - 2);
        auto reply = cli::parseJson(result.output.substr(last + 1));
        if (reply && (*reply)["page"]["sections"].is_array())
            return (*reply)["page"]["sections"];
        ADD_FAILURE() << result.output;
        return cli::Json::array();
    }
};

TEST_F(ShownPages, HaveTheirSwitchesInTheUserGuide) {
    const Page guide("docs/user-guide.md");
    for (const cli::Json& section : sectionsAfter({"Wardlock", "Default"})) {
        Lines shown;
        for (const cli::Json& row : section["rows"])
            if (row["kind"] == "switch")
                shown.push_back(row["label"].get<std::string>() + (row["on"] == true ? ": on" : ": off"));
        if (shown.empty())
            continue;
        Lines described;
        for (const TableRow& row : guide.tableBelow(section.value("header", "The account itself")))
            described.push_back(row.cells.at(0) + ": " + row.cells.at(2));
        EXPECT_EQ(described, shown);
    }
}

TEST_F(ShownPages, HaveTheRowsOfTheFirstPageInTheUserGuide) {
    Lines shown;
    for (const cli::Json& section : sectionsAfter({"Wardlock"}))
        for (const cli::Json& row : section["rows"])
            shown.push_back(section.value("header", "") == "Accounts" ? "your accounts"
                                                                      : row["label"].get<std::string>());
    Lines described;
    for (const TableRow& row : Page("docs/user-guide.md").tableBelow("The first page"))
        described.push_back(row.cells.at(0));
    EXPECT_EQ(described, shown);
}

TEST_F(ShownPages, WriteTheKeysThatTheDocumentFormatLists) {
    Lines shown;
    for (const cli::Json& section : sectionsAfter({"Wardlock", "Default"}))
        for (const cli::Json& row : section["rows"])
            if (row.contains("key"))
                shown.push_back('`' + row["key"].get<std::string>() + "` \"" +
                                // NOLINTNEXTLINE(readability-container-size-empty): a text, not a container
                                (row["label"] == "" ? row["placeholder"] : row["label"]).get<std::string>() +
                                '"');
    Lines described;
    for (const TableRow& row : Page("docs/document-format.md").tableBelow("Keys of an account"))
        if (row.cells.at(3).starts_with('"'))
            described.push_back(row.cells.at(0) + ' ' + row.cells.at(3));
    std::ranges::sort(shown);
    std::ranges::sort(described);
    EXPECT_EQ(described, shown);
}

} // namespace
} // namespace wardlock::test
