// The fault tests: every writer of the preferences document, at every call to the file system that it makes.
//
// A writer is a page or a command that changes the document (Writers.h). A case is a writer and what it
// finds: a linked, a missing or a damaged document (WriterCase.h). The opening is what a script does to reach
// the place where the writer writes, without faults; the act is the one step that writes. The act's calls to
// the file system are numbered from 1. A point is one such number and one fault there. The call fails, is cut
// short or interrupted, or the process is killed or the power is cut before it. A test tries all points of
// the act. A stage is the disk of one point, and the process that writes. A power cut leaves one of several
// disks, called ways: what was not synchronised is there or not. The announcement is the change notification
// after a write; what is announced has to survive a power cut. The shim is a library that is preloaded into
// another process, makes its calls fail, and writes them down in the journal.
//
// After each point the document is whole, the old or the new one. The next writer writes, and removes what
// was left. Here the disk is in memory, and the act runs in this process. ProcessFaultsTest.cpp does the same
// to another process on the real disk; WriteErrorMessageTest.cpp tests the message of a failed write.

#include "cli/command/CommandLine.h"
#include "cli/script/ScriptCommands.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "settings/Constants.h"
#include "settings/Document.h"
#include "tests/robustness/faults/WriterCase.h"
#include "tests/support/SettingsApplicationFixture.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <algorithm>
#include <functional>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <sys/mman.h>
#include <unistd.h>

namespace wardlock::test {
namespace {

using platform::FileKind;
using platform::FileStatus;
using platform::FileSystem;

constexpr std::uint32_t parent = 1000;
constexpr std::uint32_t family = 1001;
constexpr const char* ending = ".wardlock-new";

/// The disk with the document on it, and the one process that writes. The document is a symbolic link to
/// another user's file in another folder, and a process that was killed has left its temporary beside it.
struct Stage {
    Stage(const WriterCase& given, const std::string& path) : document(path), file(path) {
        const std::string folder = platform::folderOf(path);
        disk.addFolder(folder);
        if (given.before == Before::Linked) {
            file = "/shared/document.plist";
            disk.addFolder("/shared");
            const Writer& writer = given.writer;
            disk.addFile(file, writer.earlier.empty() ? given.documentBefore : writer.firstDocument(), 0640,
                         parent, family);
            disk.addFile(left, "left");
            disk.addLink(path, file);
        } else if (given.before == Before::Damaged) {
            disk.addFile(path, given.documentBefore, 0640, parent, family);
        }
    }

    /// Of a process that was killed.
    static constexpr const char* left = "/shared/.document.plist.0123456789abcdef.wardlock-new";

    std::string document;
    std::string file; ///< what the document's path leads to
    MemoryFileSystem disk;
    FaultyFileSystem files{disk};
    /// Whether a command has ended well.
    bool done = false;
    /// What a power cut during each announcement could have left of the document.
    std::vector<std::set<std::optional<std::string>>> announced;
};

/// Standard input of this process as long as it lives: the text and then its end.
class StandardInput {
public:
    explicit StandardInput(const std::string& text)
        : before_(::dup(STDIN_FILENO)), file_(::memfd_create("input", 0)) {
        EXPECT_EQ(::write(file_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
        ::lseek(file_, 0, SEEK_SET);
        ::dup2(file_, STDIN_FILENO);
    }
    ~StandardInput() {
        ::dup2(before_, STDIN_FILENO);
        ::close(before_);
        ::close(file_);
    }
    StandardInput(const StandardInput&) = delete;
    StandardInput& operator=(const StandardInput&) = delete;

private:
    int before_;
    int file_;
};

class DiskFaults : public SettingsApplicationFixture, public ::testing::WithParamInterface<WriterCase> {
protected:
    DiskFaults() { writeFile(applicationInfoPath, applicationInfo()); }
    ~DiskFaults() override {
        FileSystem::setCurrent(nullptr);
        // It takes leave of the application.
        script_.reset();
        quit();
        std::cout << points << (HasFailure() ? " points tried\n" : " points survived\n");
        RecordProperty("points", static_cast<int>(points));
    }

    const Writer& writer() const { return GetParam().writer; }

    void say(const std::string& line) {
        const auto reply = script_->run(nlohmann::json::parse(line));
        EXPECT_FALSE(reply.contains("error")) << line << ": " << reply;
    }

    /// A new process, led up to the act over the real files; then the act over the stage.
    std::unique_ptr<Stage> perform(const std::function<void(FaultyFileSystem&)>& arrange) {
        auto stage = std::make_unique<Stage>(GetParam(), onDisk(documentPath));
        // A picker whose change could not be stored lists the applications again.
        for (const char* folder : {"/Applications", "/Applications/Chess.app"})
            stage->disk.addFolder(onDisk(folder));
        stage->disk.addFile(onDisk(applicationInfoPath), applicationInfo());
        if (!writer().earlier.empty())
            makeEarlierChange(*stage);
        readAnotherDocument();
        arrange(stage->files);
        center.onPost = [&stage = *stage] {
            if (!stage.files.isKilled())
                stage.announced.push_back(stage.disk.afterPowerCut(stage.file));
        };
        if (!writer().isCommand())
            leadUp();
        FileSystem::setCurrent(&stage->files);
        if (writer().isCommand())
            stage->done = runCommand(wordsFor(writer(), stage->document), writer().input);
        else
            say(writer().act);
        FileSystem::setCurrent(nullptr);
        center.onPost = nullptr;
        return stage;
    }

    /// The document that was read last takes fewer calls to read again: it must not be that of an earlier
    /// act.
    void readAnotherDocument() const {
        constexpr const char* other = "/var/mobile/other.plist";
        writeFile(other, "<plist><dict/></plist>");
        EXPECT_TRUE(platform::dictionaryWithContentsOfFile(other));
    }

    std::size_t callsOfTheAct() {
        // What a process does the first time only is not done again by those that follow in this one.
        perform([](FaultyFileSystem&) {});
        const auto stage = perform([](FaultyFileSystem&) {});
        EXPECT_EQ(what(stage->disk.contents(stage->file)), "the new document");
        EXPECT_GE(stage->files.calls(), 10u);
        functions = stage->files.functions();
        return stage->files.calls();
    }

    using Contents = std::optional<std::string>;

    static std::string what(const Contents& bytes) { return GetParam().what(bytes); }

    /// Beside the document, under whichever name was free.
    static bool keepsTheOldBytes(const MemoryFileSystem& disk, const Stage& stage) {
        for (const std::string& name : disk.names(platform::folderOf(stage.document)))
            if (name.find(".plist.damaged") != std::string::npos &&
                disk.contents(onFolder(stage, name)) == GetParam().documentBefore)
                return true;
        return false;
    }
    static std::string onFolder(const Stage& stage, const std::string& name) {
        return platform::folderOf(stage.document) + '/' + name;
    }

    /// The document is the old or the new one, at its place and with its rights.
    void expectWhole(const MemoryFileSystem& disk, const Stage& stage) {
        const std::string found = what(disk.contents(stage.document));
        EXPECT_TRUE(found == "the old document" || found == "the new document") << found;
        if (GetParam().before == Before::Damaged && found == "the new document") {
            EXPECT_TRUE(keepsTheOldBytes(disk, stage));
        }
        expectRights(disk, stage);
    }

    void expectRights(const MemoryFileSystem& disk, const Stage& stage) {
        expectPrivate(disk, stage);
        const bool wasMissing = GetParam().before == Before::Missing;
        if (GetParam().before == Before::Linked) {
            EXPECT_EQ(disk.statusOf(stage.document)->kind, FileKind::Link);
        }
        const auto status = disk.statusOf(stage.file);
        if (!status)
            return;
        EXPECT_EQ(status->kind, FileKind::Regular);
        EXPECT_EQ(status->mode, wasMissing ? 0600u : 0640u);
        EXPECT_EQ(status->owner, wasMissing ? 0u : parent);
        EXPECT_EQ(status->group, wasMissing ? 0u : family);
    }

    /// A user who may not read the document may not read its temporary either.
    static void expectPrivate(const MemoryFileSystem& disk, const Stage& stage) {
        for (const std::string& folder : {platform::folderOf(stage.document), platform::folderOf(stage.file)})
            for (const std::string& name : disk.names(folder)) {
                if (!name.ends_with(ending))
                    continue;
                const FileStatus left = *disk.statusOf(folder + '/' + name);
                const bool asTheDocument = left.mode == 0640 && left.owner == parent && left.group == family;
                EXPECT_TRUE(left.mode == 0600 || asTheDocument) << std::oct << left.mode << ' ' << name;
            }
    }

    static bool hasTemporary(const MemoryFileSystem& disk, const Stage& stage) {
        for (const std::string& folder : {platform::folderOf(stage.document), platform::folderOf(stage.file)})
            for (const std::string& name : disk.names(folder))
                if (name.ends_with(ending))
                    return true;
        return false;
    }

    /// Another process writes: it can, keeps what is there, and leaves nothing lying about.
    void expectNextWriteWorks(MemoryFileSystem& disk, const Stage& stage) {
        FileSystem::setCurrent(&disk);
        expectNextChangeKeepsTheRest();
        FileSystem::setCurrent(nullptr);
        EXPECT_FALSE(hasTemporary(disk, stage));
        EXPECT_EQ(disk.openHandles(), 0u);
        expectRights(disk, stage);
    }

    /// Only a change that a power cut no longer reverts is announced.
    void expectAnnouncedOnlyWhatStands(const Stage& stage) {
        for (const auto& possible : stage.announced)
            for (const Contents& bytes : possible)
                EXPECT_EQ(what(bytes), "the new document");
    }

    /// What every disk has to be after faults that a process lived through.
    void expectSurvived(Stage& stage, bool goesOn = false) {
        ++points;
        expectWhole(stage.disk, stage);
        for (const auto& possible : stage.announced)
            EXPECT_TRUE(possible.contains(stage.disk.contents(stage.file)))
                << "written after its announcement";
        EXPECT_EQ(stage.disk.openHandles(), 0u);
        EXPECT_LE(stage.announced.size(), 1u);
        if (goesOn)
            expectTheProcessGoesOn(stage);
        expectNextWriteWorks(stage.disk, stage);
    }
    /// A page announces each change, a command each one that is in place.
    void expectAnnounced(const Stage& stage) {
        const bool isInPlace = what(stage.disk.contents(stage.document)) == "the new document";
        EXPECT_TRUE(isInPlace || !stage.done);
        const bool expected = writer().isCommand() ? writer().announces && isInPlace : true;
        EXPECT_EQ(stage.announced.size(), expected ? 1u : 0u);
    }

    /// The same process continues, over the disk as it is now without faults.
    void expectTheProcessGoesOn(Stage& stage) {
        if (writer().isCommand())
            return;
        stage.disk.forgetCalls();
        FileSystem::setCurrent(&stage.disk);
        for (const std::string& line : writer().again)
            say(line);
        FileSystem::setCurrent(nullptr);
        EXPECT_EQ(stage.disk.calls().back(), "syncFolder " + platform::folderOf(stage.file));
        EXPECT_FALSE(hasTemporary(stage.disk, stage));
        expectRights(stage.disk, stage);
    }

    std::size_t points = 0;
    std::vector<std::string> functions;

private:
    void leadUp() {
        script_.reset();
        loop_.reset();
        quit();
        start();
        if (GetParam().before == Before::Missing)
            removeFile(documentPath);
        else
            writeFile(documentPath, GetParam().documentBefore);
        loop_.emplace(settings(), nullptr);
        script_.emplace(settings(), clock, *loop_);
        for (const std::string& line : writer().opening)
            say(line);
    }

    void makeEarlierChange(Stage& stage) {
        FileSystem::setCurrent(&stage.disk);
        EXPECT_TRUE(runCommand(writer().earlier, ""));
        EXPECT_EQ(what(stage.disk.contents(stage.file)), "the old document");
        FileSystem::setCurrent(nullptr);
        stage.disk.addFile(Stage::left, "left");
    }

    static bool runCommand(const std::vector<std::string>& arguments, const std::string& text) {
        const StandardInput input(text);
        // What it reports of the faults does not matter here.
        ::testing::internal::CaptureStderr();
        ::testing::internal::CaptureStdout();
        const auto code =
            cli::runCommandLine(std::vector<std::string_view>(arguments.begin(), arguments.end()));
        ::testing::internal::GetCapturedStderr();
        ::testing::internal::GetCapturedStdout();
        return code == cli::ExitCode::Done;
    }

    std::optional<cli::SettingsLoop> loop_;
    std::optional<cli::ScriptCommands> script_;
};

TEST_P(DiskFaults, KilledProcessLeavesTheOldOrTheNewDocument) {
    const std::size_t count = callsOfTheAct();
    std::size_t leftBehind = 0;
    for (std::size_t number = 1; number <= count + 1; ++number) {
        SCOPED_TRACE("killed at call " + std::to_string(number));
        const auto stage = perform([number](FaultyFileSystem& files) { files.killFrom(number); });
        stage->disk.endProcess();
        ++points;
        expectWhole(stage->disk, *stage);
        expectAnnouncedOnlyWhatStands(*stage);
        leftBehind += hasTemporary(stage->disk, *stage);
        expectNextWriteWorks(stage->disk, *stage);
    }
    EXPECT_GT(leftBehind, 0u) << "no kill left a temporary: the clearing was not tried";
}

TEST_P(DiskFaults, PowerCutLeavesTheOldOrTheNewDocument) {
    const std::size_t count = callsOfTheAct();
    for (std::size_t number = 1; number <= count + 1; ++number) {
        const auto stage = perform([number](FaultyFileSystem& files) { files.killFrom(number); });
        const auto disks = stage->disk.disksAfterPowerCut();
        for (std::size_t way = 0; way < disks.size(); ++way) {
            SCOPED_TRACE("power cut before call " + std::to_string(number) + ", way " + std::to_string(way));
            ++points;
            expectWhole(*disks[way], *stage);
            if (!stage->announced.empty()) {
                EXPECT_EQ(what(disks[way]->contents(stage->document)), "the new document");
            }
            expectNextWriteWorks(*disks[way], *stage);
        }
    }
}

TEST_P(DiskFaults, SingleErrorLeavesTheOldOrTheNewDocumentAndARunningProcess) {
    const std::size_t count = callsOfTheAct();
    for (const std::errc error : {std::errc::io_error, std::errc::no_space_on_device})
        for (std::size_t number = 1; number <= count; ++number) {
            if (error == std::errc::no_space_on_device && !FaultyFileSystem::needsRoom(functions[number - 1]))
                continue;
            SCOPED_TRACE(std::make_error_code(error).message() + " at call " + std::to_string(number) + ' ' +
                         functions[number - 1]);
            const auto stage =
                perform([number, error](FaultyFileSystem& files) { files.failCall(number, error); });
            expectAnnounced(*stage);
            expectSurvived(*stage, true);
        }
}

TEST_P(DiskFaults, ErrorsFromAnyCallOnLeaveTheOldOrTheNewDocument) {
    const std::size_t count = callsOfTheAct();
    for (std::size_t number = 1; number <= count; ++number) {
        SCOPED_TRACE("I/O errors from call " + std::to_string(number) + ' ' + functions[number - 1]);
        const auto stage =
            perform([number](FaultyFileSystem& files) { files.failFrom(number, std::errc::io_error); });
        expectSurvived(*stage);
    }
}

TEST_P(DiskFaults, FullDiskFromAnyCallOnLeavesTheOldOrTheNewDocumentAndNoTemporary) {
    const std::size_t count = callsOfTheAct();
    for (std::size_t number = 1; number <= count; ++number) {
        SCOPED_TRACE("disk full from call " + std::to_string(number) + ' ' + functions[number - 1]);
        const auto stage = perform([number](FaultyFileSystem& files) { files.fillDiskFrom(number); });
        expectAnnounced(*stage);
        EXPECT_FALSE(hasTemporary(stage->disk, *stage));
        expectSurvived(*stage, true);
    }
}

TEST_P(DiskFaults, InterruptionOrShortWriteChangesNothing) {
    const std::size_t count = callsOfTheAct();
    const auto expectUnchanged = [this](const std::function<void(FaultyFileSystem&)>& arrange) {
        const auto stage = perform(arrange);
        EXPECT_EQ(what(stage->disk.contents(stage->document)), "the new document");
        EXPECT_FALSE(hasTemporary(stage->disk, *stage));
        expectAnnounced(*stage);
        expectAnnouncedOnlyWhatStands(*stage);
        expectSurvived(*stage);
    };
    for (std::size_t number = 1; number <= count; ++number) {
        SCOPED_TRACE("from call " + std::to_string(number) + ' ' + functions[number - 1]);
        if (functions[number - 1] != "close")
            expectUnchanged([number](auto& files) { files.failCall(number, std::errc::interrupted); });
        expectUnchanged([number](auto& files) { files.interruptCallsFrom(number); });
        if (functions[number - 1] != "write")
            continue;
        expectUnchanged([number](auto& files) { files.limitWrite(number, 7); });
        expectUnchanged([number](auto& files) { files.limitWritesFrom(number, 100); });
    }
}

std::vector<WriterCase> casesInMemory() {
    std::vector<WriterCase> cases = writerCases();
    std::erase_if(cases, [](const WriterCase& given) { return given.writer.needsApplications; });
    return cases;
}

INSTANTIATE_TEST_SUITE_P(EveryWriter, DiskFaults, ::testing::ValuesIn(casesInMemory()),
                         [](const auto& info) { return info.param.name(); });

} // namespace
} // namespace wardlock::test
