#include "tests/unit/cli/CommandFixture.h"

#include <sys/stat.h>

namespace wardlock::test {
namespace {

class PropertyListCommand : public DeviceRootFixture {
protected:
    /// A file with these bytes; its path on this machine.
    std::string file(const std::string& bytes, const std::string& name = "/tmp/list.plist") const {
        writeFile(name, bytes);
        return onDisk(name);
    }
    static ProcessResult dump(const std::string& path) { return wardlockCommand({"plist", "dump", path}); }
    static int set(const std::vector<std::string>& words) {
        std::vector<std::string> arguments{"plist", "set"};
        arguments.insert(arguments.end(), words.begin(), words.end());
        return wardlockCommand(arguments).exitCode;
    }
};

TEST_F(PropertyListCommand, DumpsEveryKindOnOneLine) {
    const std::string path =
        file(xml("<dict><key>b</key><true/><key>i</key><integer>-12</integer><key>r</key><real>1.5</real>"
                 "<key>s</key><string>a&amp;\n\"b\"</string><key>d</key><data>Zm9v</data>"
                 "<key>t</key><date>2001-01-01T00:00:00Z</date><key>a</key><array><false/></array></dict>"));
    const ProcessResult result = dump(path);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(result.output, R"({"dict":[["b",{"bool":true}],["i",{"int":"-12"}],["r",{"real":"1.5"}],)"
                             R"(["s",{"string":"a&\n\"b\""}],["d",{"data":"Zm9v"}],)"
                             R"(["t",{"date":"2001-01-01T00:00:00Z"}],["a",{"array":[{"bool":false}]}]]})"
                             "\n");
}

TEST_F(PropertyListCommand, ReadsStandardInputForADash) {
    const auto piped = [](const std::vector<std::string>& words, const std::string& input) {
        ProcessSetup setup;
        setup.input = input;
        return wardlockCommand(words, setup);
    };
    const std::string list = xml("<dict><key>b</key><true/></dict>");
    EXPECT_EQ(piped({"plist", "dump", "-"}, list).output, "{\"dict\":[[\"b\",{\"bool\":true}]]}\n");
    EXPECT_EQ(piped({"plist", "lint", "-"}, list).output, "-: OK\n");
    EXPECT_EQ(piped({"plist", "lint", "-"}, "no list").exitCode, 3);
    const ProcessResult converted = piped({"plist", "convert", "-", "-o", "-"}, list);
    EXPECT_EQ(piped({"plist", "dump", "-"}, converted.output).output,
              piped({"plist", "dump", "-"}, list).output);
    const ProcessResult changed = piped({"plist", "set", "-", "i", "int", "7"}, list);
    EXPECT_EQ(piped({"plist", "dump", "-"}, changed.output).output,
              "{\"dict\":[[\"b\",{\"bool\":true}],[\"i\",{\"int\":\"7\"}]]}\n");
    EXPECT_EQ(piped({"plist", "set", "-", "i", "int", "7"}, xml("<array/>")).errors,
              "wardlock plist set: cannot change standard input: its top-level value is not a dictionary\n");
}

TEST_F(PropertyListCommand, DumpsRealsThatAreNotNumbers) {
    const ProcessResult result =
        dump(file(xml("<array><real>nan</real><real>inf</real><real>-inf</real></array>")));
    EXPECT_EQ(result.output, R"({"array":[{"real":"nan"},{"real":"inf"},{"real":"-inf"}]})"
                             "\n");
}

TEST_F(PropertyListCommand, DumpsTheBinaryForm) {
    // One root object, the boolean true: header, object, offset table, trailer.
    const std::string bytes = std::string("bplist00\x09\x08", 10) + std::string(6, '\0') + "\x01\x01" +
                              std::string(7, '\0') + '\x01' + std::string(8, '\0') + std::string(7, '\0') +
                              '\x09';
    EXPECT_EQ(dump(file(bytes)).output, "{\"bool\":true}\n");
}

TEST_F(PropertyListCommand, FailsWithThreeWhenDumpedFilesAreNotPropertyLists) {
    for (const char* bytes : {"", "hello", "<plist><dict><key>a</key></dict></plist>", "bplist00"}) {
        const ProcessResult result = dump(file(bytes));
        EXPECT_EQ(result.exitCode, 3) << bytes;
        EXPECT_EQ(result.output, "") << bytes;
        EXPECT_NE(result.errors.find("not a property list\n"), std::string::npos) << result.errors;
    }
}

TEST_F(PropertyListCommand, FailsWithOneWhenADumpedFileCannotBeRead) {
    for (const std::string& path : {onDisk("/tmp/absent.plist"), onDisk("/tmp")}) {
        const ProcessResult result = dump(path);
        EXPECT_EQ(result.exitCode, 1) << path;
        EXPECT_NE(result.errors.find(path + ": "), std::string::npos) << result.errors;
    }
}

TEST_F(PropertyListCommand, ConvertsToTheXmlForm) {
    const std::string path = file("<dict><key>a</key><integer>0x10</integer></dict>");
    const std::string out = onDisk("/tmp/out.plist");
    const ProcessResult result = wardlockCommand({"plist", "convert", path, "-o", out});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(result.output, "");
    EXPECT_TRUE(readFile("/tmp/out.plist")
                    .starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist"));
    EXPECT_TRUE(readFile("/tmp/out.plist")
                    .ends_with("<dict>\n\t<key>a</key>\n\t<integer>16</integer>\n</dict>\n</plist>\n"));
}

TEST_F(PropertyListCommand, ConvertsAnOutermostValueOfAnyKind) {
    const std::string path = file("<array><string>x</string></array>");
    EXPECT_EQ(wardlockCommand({"plist", "convert", path, "-o", path}).exitCode, 0);
    EXPECT_EQ(dump(path).output, "{\"array\":[{\"string\":\"x\"}]}\n");
}

TEST_F(PropertyListCommand, LeavesTheOutputFileAloneWhenThereIsNothingToConvert) {
    const std::string out = file("old", "/tmp/out.plist");
    EXPECT_EQ(wardlockCommand({"plist", "convert", file("nonsense"), "-o", out}).exitCode, 3);
    EXPECT_EQ(wardlockCommand({"plist", "convert", onDisk("/absent"), "-o", out}).exitCode, 1);
    EXPECT_EQ(readFile("/tmp/out.plist"), "old");
}

TEST_F(PropertyListCommand, FailsWhenTheConvertedFileCannotBeWritten) {
    EXPECT_EQ(wardlockCommand({"plist", "convert", file(xml("<true/>")), "-o", onDisk("/no/such/folder/x")})
                  .exitCode,
              1);
}

TEST_F(PropertyListCommand, LintsEveryFile) {
    const std::string good = file(xml("<true/>"), "/tmp/good");
    const std::string bad = file("nonsense", "/tmp/bad");
    const std::string absent = onDisk("/tmp/absent");
    ProcessResult result = wardlockCommand({"plist", "lint", good, bad, absent});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.output,
              good + ": OK\n" + bad + ": not a property list\n" + absent + ": No such file or directory\n");
    EXPECT_EQ(wardlockCommand({"plist", "lint", good, absent}).exitCode, 1);
    EXPECT_EQ(wardlockCommand({"plist", "lint", good, good}).exitCode, 0);
}

TEST_F(PropertyListCommand, LintsWithJsonOutput) {
    const std::string good = file(xml("<true/>"), "/tmp/good");
    const std::string bad = file("nonsense", "/tmp/bad");
    EXPECT_EQ(wardlockCommand({"plist", "lint", "--json", good, bad}).output,
              "{\"file\":\"" + good + "\",\"ok\":true}\n{\"file\":\"" + bad +
                  "\",\"ok\":false,\"reason\":\"not a property list\"}\n");
}

TEST_F(PropertyListCommand, SetsAValueOfEachType) {
    const std::string path = onDisk("/tmp/new.plist");
    EXPECT_EQ(set({path, "b", "bool", "true"}), 0);
    EXPECT_EQ(set({path, "i", "int", "-12"}), 0);
    EXPECT_EQ(set({path, "u", "int", "18446744073709551615"}), 0);
    EXPECT_EQ(set({path, "r", "real", "-0.1"}), 0);
    EXPECT_EQ(set({path, "n", "real", "nan"}), 0);
    EXPECT_EQ(set({path, "s", "string", "é \"x\""}), 0);
    EXPECT_EQ(set({path, "--", "-d", "string", "-x"}), 0);
    EXPECT_EQ(
        dump(path).output,
        R"({"dict":[["b",{"bool":true}],["i",{"int":"-12"}],["u",{"int":"18446744073709551615"}],)"
        R"(["r",{"real":"-0.1"}],["n",{"real":"nan"}],["s",{"string":"é \"x\""}],["-d",{"string":"-x"}]]})"
        "\n");
}

TEST_F(PropertyListCommand, KeepsTheOtherEntriesWhenItSetsOne) {
    const std::string path =
        file(xml("<dict><key>x</key><data>Zm9v</data><key>k</key><false/><key>y</key><date>"
                 "1999-12-31T23:59:59Z</date></dict>"));
    EXPECT_EQ(set({path, "k", "int", "1"}), 0);
    EXPECT_EQ(dump(path).output,
              R"({"dict":[["x",{"data":"Zm9v"}],["k",{"int":"1"}],["y",{"date":"1999-12-31T23:59:59Z"}]]})"
              "\n");
}

TEST_F(PropertyListCommand, SetsWithEverySyncMode) {
    const std::string path = onDisk("/tmp/new.plist");
    for (const char* mode : {"none", "data", "full"})
        EXPECT_EQ(set({path, "--sync", mode, mode, "bool", "true"}), 0) << mode;
    EXPECT_EQ(set({path, "--sync", "some", "k", "bool", "true"}), 2);
    EXPECT_EQ(dump(path).output,
              R"({"dict":[["none",{"bool":true}],["data",{"bool":true}],["full",{"bool":true}]]})"
              "\n");
}

TEST_F(PropertyListCommand, RefusesToSetMalformedValues) {
    const std::vector<std::pair<std::string, std::string>> wrong = {
        {"bool", "yes"},
        {"bool", ""},
        {"int", "1x"},
        {"int", ""},
        {"int", "1.5"},
        {"int", "+1"},
        {"int", "18446744073709551616"},
        {"int", "-9223372036854775809"},
        {"real", "1,5"},
        {"real", ""},
        {"real", "1e999"},
        {"date", "2001-01-01T00:00:00Z"},
        {"string", "\xff"},
    };
    const std::string path = file(xml("<dict/>"));
    const std::string before = readFile("/tmp/list.plist");
    for (const auto& [type, value] : wrong)
        EXPECT_EQ(set({path, "k", type, value}), 2) << type << ' ' << value;
    EXPECT_EQ(set({path, "\xff", "bool", "true"}), 2);
    EXPECT_EQ(readFile("/tmp/list.plist"), before);
}

TEST_F(PropertyListCommand, SetsNothingInAFileThatIsNotAPropertyList) {
    const std::string path = file("nonsense");
    EXPECT_EQ(set({path, "k", "bool", "true"}), 3);
    EXPECT_EQ(readFile("/tmp/list.plist"), "nonsense");
    EXPECT_FALSE(exists("/tmp/list.plist.damaged"));
}

TEST_F(PropertyListCommand, SetsNothingWhenTheOutermostValueIsNotADictionary) {
    const std::string path = file(xml("<array/>"));
    EXPECT_EQ(set({path, "k", "bool", "true"}), 1);
    EXPECT_EQ(readFile("/tmp/list.plist"), xml("<array/>"));
}

TEST_F(PropertyListCommand, SetsNothingInAFileThatIsTooLarge) {
    const std::string bytes =
        xml("<dict><key>k</key><string>" + std::string(17u << 20, 'x') + "</string></dict>");
    const std::string path = file(bytes);
    const ProcessResult result = wardlockCommand({"plist", "set", path, "k", "bool", "true"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "wardlock plist set: cannot read " + path + ": larger than 16 MiB\n");
    EXPECT_TRUE(readFile("/tmp/list.plist") == bytes);
    EXPECT_FALSE(exists("/tmp/list.plist.damaged"));
}

TEST_F(PropertyListCommand, SetsNothingThatWouldMakeTheFileTooLarge) {
    // Four characters of the value take five times as many bytes in XML.
    const std::string bytes =
        xml("<dict><key>others</key><string>" + std::string(16'770'000, 'x') + "</string></dict>");
    const std::string path = file(bytes);
    const ProcessResult result =
        wardlockCommand({"plist", "set", path, "k", "string", std::string(10'000, '&')});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "wardlock plist set: cannot write " + path +
                                 ": a property list of more than 16 MiB cannot be read again\n");
    EXPECT_TRUE(readFile("/tmp/list.plist") == bytes);
    EXPECT_EQ(set({path, "k", "string", "&"}), 0);
}

TEST_F(PropertyListCommand, ConvertsNothingThatIsTooLargeToBeReadAgain) {
    writeFile("/tmp/out.plist", "kept");
    const std::string path = file(xml("<string>" + std::string(17u << 20, 'x') + "</string>"));
    const ProcessResult result = wardlockCommand({"plist", "convert", "-o", onDisk("/tmp/out.plist"), path});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.errors.find(": a property list of more than 16 MiB cannot be read again\n"),
              std::string::npos)
        << result.errors;
    EXPECT_EQ(readFile("/tmp/out.plist"), "kept");
}

TEST_F(PropertyListCommand, LintsAFileThatIsLargerThanADocumentMayBe) {
    const std::string path = file(xml("<string>" + std::string(16u << 20, 'x') + "</string>"));
    const ProcessResult result = wardlockCommand({"plist", "lint", path});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, path + ": larger than 16 MiB\n");
}

TEST_F(PropertyListCommand, FailsWhenItCannotStoreASetValue) {
    EXPECT_EQ(set({onDisk("/no/such/folder/x"), "k", "bool", "true"}), 1);
    EXPECT_EQ(set({onDisk("/tmp"), "k", "bool", "true"}), 1);
}

} // namespace
} // namespace wardlock::test
