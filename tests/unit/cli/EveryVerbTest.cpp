// What holds for every verb of the command, by a table. A verb without a row fails a test.

#include "cli/command/Verb.h"
#include "tests/unit/cli/VerbsFixture.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <map>
#include <set>

namespace wardlock::test {
namespace {

using Words = std::vector<std::string>;
using platform::Array;

constexpr const char* damage = "<plist><dict><key>";

/// What becomes of a document that a verb meets.
enum class Document { Stays, IsReplaced, IsCreated };

/// Which words the verb succeeds with, and what it does with them.
struct Row {
    std::string verb;
    Words words = {};
    std::string input = {};
    /// Whether it writes a file: the document, or one that the user names.
    bool writes = false;
    /// Its exit code over a damaged and over a missing document, and what becomes of that.
    int codeOfDamaged = 0;
    Document damaged = Document::Stays;
    int codeOfMissing = 0;
    Document missing = Document::Stays;
    /// Whether the words name the account Ben.
    bool namesAccount = false;
    /// Of the document.
    std::string passcode = {};
    /// What has to happen before.
    std::vector<Words> before = {};
};

/// A row for a verb that loads the document, which creates a missing one. It refuses a damaged one.
Row loading(const std::string& verb, const Words& words, bool writes, const std::string& input = "") {
    return {.verb = verb,
            .words = words,
            .input = input,
            .writes = writes,
            .codeOfDamaged = 1,
            .missing = Document::IsCreated};
}

/// The same for one that is given the account Ben, who is not in the default document.
Row ofAccount(const std::string& verb, const Words& words, bool writes) {
    Row row = loading(verb, words, writes);
    row.codeOfMissing = 1;
    row.namesAccount = true;
    return row;
}

/// The same for a verb of the versions, of which a first change has made two.
Row ofHistory(const std::string& verb, const Words& words, int code, bool writes = false) {
    return {.verb = verb,
            .words = words,
            .writes = writes,
            .codeOfDamaged = code,
            .codeOfMissing = code,
            .before = {{"set", "kEnabled", "off"}}};
}

class EveryVerb : public VerbsFixture {
protected:
    static constexpr const char* folderPath = "/var/mobile/Library/Preferences";

    std::vector<Row> rows() const {
        const std::string file = onDisk(documentPath);
        const std::string other = onDisk("/other.plist");
        Row check = loading("passcode check", {}, false, "1234\n");
        check.codeOfMissing = 1;
        Row clear = loading("passcode clear", {}, true, "1234\n");
        check.passcode = clear.passcode = "1234";
        Row account = loading("account", {"kAccountName"}, false);
        account.codeOfMissing = 1;
        Row taken = loading("import", {onDisk("/import.plist")}, true);
        taken.codeOfDamaged = 0;
        taken.damaged = Document::IsReplaced;
        Row redo = ofHistory("redo", {}, 1, true);
        redo.before.push_back({"undo"});
        Row restore = ofHistory("restore", {"1"}, 0, true);
        restore.damaged = Document::IsReplaced;
        restore.missing = Document::IsCreated;
        return {
            {.verb = "settings", .words = {"--script", "-"}, .missing = Document::IsCreated},
            loading("status", {}, false),
            loading("accounts", {}, false),
            ofAccount("account show", {"Ben"}, false),
            loading("account add", {"Kim"}, true),
            ofAccount("account rename", {"Ben", "Kim"}, true),
            ofAccount("account enable", {"Ben"}, true),
            ofAccount("account disable", {"Ben"}, true),
            ofAccount("account delete", {"Ben"}, true),
            account,
            ofAccount("set", {"--account", "Ben", "Siri", "on"}, true),
            ofAccount("get", {"--account", "Ben", "Siri"}, false),
            ofAccount("apps", {"--account", "Ben"}, false),
            ofAccount("restrict", {"--account", "Ben", "org.example.stored"}, true),
            ofAccount("allow", {"--account", "Ben", "org.example.stored"}, true),
            loading("passcode set", {}, true, "1234\n1234\n"),
            clear,
            check,
            loading("export", {other}, true),
            taken,
            loading("watch", {}, false),
            loading("announce", {kEnabled.data()}, false),
            ofHistory("history show", {"1"}, 0),
            ofHistory("history diff", {"1"}, 1),
            ofHistory("history", {}, 0),
            ofHistory("undo", {}, 1, true),
            redo,
            restore,
            {.verb = "doctor", .codeOfDamaged = 1, .codeOfMissing = 1},
            {.verb = "device init", .words = {root()}, .writes = true, .missing = Document::IsCreated},
            {.verb = "plist dump", .words = {file}, .codeOfDamaged = 3, .codeOfMissing = 1},
            {.verb = "plist convert",
             .words = {"-o", other, file},
             .writes = true,
             .codeOfDamaged = 3,
             .codeOfMissing = 1},
            {.verb = "plist lint", .words = {file}, .codeOfDamaged = 3, .codeOfMissing = 1},
            {.verb = "plist set",
             .words = {file, kEnabled.data(), "bool", "false"},
             .writes = true,
             .codeOfDamaged = 3,
             .missing = Document::IsCreated},
            {.verb = "complete", .words = {"accounts"}},
            {.verb = "help", .words = {"status"}},
        };
    }

    /// A fresh folder with a document in which one account is called Ben, and a file to import.
    void prepare(const Row& row) const {
        std::filesystem::remove_all(onDisk(folderPath));
        std::filesystem::remove(onDisk("/other.plist"));
        write(document(row.passcode));
        writeFile("/import.plist", platform::dataWithPropertyList(document("5678")));
        for (const Words& words : row.before)
            ASSERT_EQ(run(words).exitCode, 0) << words[0];
    }
    static Words wordsOf(const std::string& verb, const Words& words) {
        Words all;
        for (std::size_t begin = 0; begin < verb.size();) {
            const std::size_t end = std::min(verb.find(' ', begin), verb.size());
            all.push_back(verb.substr(begin, end - begin));
            begin = end + 1;
        }
        all.insert(all.end(), words.begin(), words.end());
        return all;
    }
    /// Runs the verb to its end, which for a verb that waits for changes is a signal.
    ProcessResult execute(const Row& row) const {
        const Words words = wordsOf(row.verb, row.words);
        if (row.verb != "watch" || (exists(documentPath) && readFile(documentPath) == damage))
            return run(words, row.input);
        Process watch(command, words);
        EXPECT_TRUE(watch.waitForError("Watching"));
        watch.send(SIGTERM);
        ProcessResult result = watch.wait();
        result.errors.clear();
        return result;
    }
    /// The same where the system refuses every byte of a file.
    static ProcessResult executeOnFullDisk(const Row& row) {
        Words words{"-c", "export GCOV_ERROR_FILE=/dev/null; ulimit -f 0; exec \"$0\" \"$@\"", command};
        const Words verb = wordsOf(row.verb, row.words);
        words.insert(words.end(), verb.begin(), verb.end());
        ProcessSetup setup;
        setup.input = row.input;
        return runProcess("/bin/sh", words, setup);
    }
    /// All files of the document's folder, without its versions: these are links.
    std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(onDisk(folderPath)))
            if (entry.is_regular_file())
                found[entry.path().filename()] =
                    readFile(std::string(folderPath) + '/' + entry.path().filename().string());
        return found;
    }
    static void expectOneLine(const ProcessResult& result, const std::string& verb) {
        EXPECT_EQ(result.output, "");
        EXPECT_TRUE(result.errors.starts_with("wardlock " + verb + ": ")) << result.errors;
        EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1) << result.errors;
    }
    /// Whether it checks more than the document: its exit code depends on the machine.
    static bool checksMore(const Row& row) { return row.verb == "doctor"; }
    /// Whether it writes what is there already.
    static bool leavesEqualBytes(const Row& row) {
        return row.verb == "account enable" || row.verb == "restrict" || row.verb == "device init";
    }
};

TEST_F(EveryVerb, HasARowInThisTable) {
    std::set<std::string> known;
    for (const cli::Verb* verb : cli::verbs())
        known.emplace(verb->name);
    std::set<std::string> tested;
    for (const Row& row : rows())
        EXPECT_TRUE(tested.insert(row.verb).second) << row.verb;
    EXPECT_EQ(tested, known);
}

TEST_F(EveryVerb, DoesWhatItsRowSays) {
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.verb);
        prepare(row);
        const auto before = files();
        const bool hadOther = exists("/other.plist");
        const ProcessResult result = execute(row);
        if (!checksMore(row)) {
            EXPECT_EQ(result.exitCode, 0) << result.errors;
            EXPECT_EQ(result.errors, "");
        }
        if (!leavesEqualBytes(row)) {
            EXPECT_EQ(files() != before || exists("/other.plist") != hadOther, row.writes);
        }
    }
}

TEST_F(EveryVerb, EndsWithUsageErrorAndWritesNothing) {
    for (const cli::Verb* verb : cli::verbs()) {
        const std::string name(verb->name);
        SCOPED_TRACE(name);
        prepare({});
        const auto before = files();
        std::vector<Words> wrong{{"--nonsense"}};
        if (verb->fewestOperands > 0)
            wrong.emplace_back();
        if (verb->mostOperands < 10)
            wrong.emplace_back(verb->mostOperands + 1, "org.example.stored");
        for (const Words& words : wrong) {
            const ProcessResult result = run(wordsOf(name, words));
            EXPECT_EQ(result.exitCode, 2) << result.errors;
            expectOneLine(result, name);
        }
        EXPECT_EQ(files(), before);
    }
}

TEST_F(EveryVerb, RefusesANameThatSeveralAccountsHave) {
    for (const Row& row : rows()) {
        if (!row.namesAccount)
            continue;
        SCOPED_TRACE(row.verb);
        prepare(row);
        write({{kEnabled, true},
               {kPasscode, ""},
               {kAccounts, Array{account("Ben", false), account("Ben", true)}}});
        const auto before = files();
        const ProcessResult result = execute(row);
        EXPECT_EQ(result.exitCode, 1);
        expectOneLine(result, row.verb);
        EXPECT_NE(result.errors.find("'Ben' matches 2 accounts: 1 (Ben), 2 (Ben)"), std::string::npos)
            << result.errors;
        EXPECT_EQ(files(), before);
    }
}

TEST_F(EveryVerb, ReportsThatItCannotWriteAndLeavesEveryFileAsItIs) {
    for (const Row& row : rows()) {
        if (!row.writes)
            continue;
        SCOPED_TRACE(row.verb);
        prepare(row);
        const auto before = files();
        const ProcessResult result = executeOnFullDisk(row);
        EXPECT_EQ(result.exitCode, 1);
        expectOneLine(result, row.verb);
        EXPECT_NE(result.errors.find("File too large"), std::string::npos) << result.errors;
        EXPECT_EQ(files(), before);
        EXPECT_FALSE(exists("/other.plist"));
    }
}

TEST_F(EveryVerb, ReadsWhereNothingCanBeWritten) {
    for (const Row& row : rows()) {
        if (row.writes || row.verb == "watch" || checksMore(row))
            continue;
        SCOPED_TRACE(row.verb);
        prepare(row);
        const auto before = files();
        const ProcessResult usual = execute(row);
        const ProcessResult result = executeOnFullDisk(row);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_EQ(result.output, usual.output);
        EXPECT_EQ(files(), before);
    }
}

TEST_F(EveryVerb, LosesNoByteOfADamagedDocument) {
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.verb);
        prepare(row);
        removeFile(documentPath);
        writeFile(documentPath, damage);
        const ProcessResult result = execute(row);
        EXPECT_EQ(result.exitCode, row.codeOfDamaged) << result.errors;
        const bool replaced = readFile(documentPath) != damage;
        EXPECT_EQ(replaced, row.damaged == Document::IsReplaced);
        const std::string kept = std::string(documentPath) + ".damaged";
        ASSERT_EQ(exists(kept), replaced);
        if (replaced) {
            EXPECT_EQ(readFile(kept), damage);
        }
    }
}

TEST_F(EveryVerb, InventsNoSettingsWhereTheDocumentCannotBeRead) {
    for (const Row& row : rows()) {
        // Of the verbs that need the settings.
        if (row.codeOfDamaged != 1 || row.damaged != Document::Stays || checksMore(row) ||
            !row.before.empty())
            continue;
        SCOPED_TRACE(row.verb);
        prepare(row);
        removeFile(documentPath);
        std::filesystem::create_directory(onDisk(documentPath));
        const ProcessResult result = run(wordsOf(row.verb, row.words), row.input);
        EXPECT_EQ(result.exitCode, 1);
        expectOneLine(result, row.verb);
        EXPECT_NE(result.errors.find("cannot read " + onDisk(documentPath)), std::string::npos)
            << result.errors;
        EXPECT_TRUE(std::filesystem::is_directory(onDisk(documentPath)));
        EXPECT_FALSE(exists("/other.plist"));
    }
}

TEST_F(EveryVerb, TakesAMissingDocumentAsItsRowSays) {
    for (const Row& row : rows()) {
        SCOPED_TRACE(row.verb);
        prepare(row);
        removeFile(documentPath);
        const ProcessResult result = execute(row);
        EXPECT_EQ(result.exitCode, row.codeOfMissing) << result.errors;
        EXPECT_EQ(exists(documentPath), row.missing == Document::IsCreated);
    }
}

} // namespace
} // namespace wardlock::test
