// Every writer as a process of its own over the real disk: its file calls fail, the power is cut, or it is
// killed.

#include "settings/Constants.h"
#include "settings/Document.h"
#include "tests/robustness/faults/BusListener.h"
#include "tests/robustness/faults/DiskImage.h"
#include "tests/robustness/faults/Journal.h"
#include "tests/robustness/faults/ScriptedProcess.h"
#include "tests/robustness/faults/WriterCase.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::FileKind;

/// What became of the act, and of the process.
struct Outcome {
    bool killed = false;
    bool done = false;        ///< it replied, or ended as a command that has stored the change
    std::size_t received = 0; ///< announcements of the act
    Journal journal;          ///< of the act
    DiskImage afterAct{{}};   ///< the disk after it
};

/// What the process does after the act.
enum class Then { Ends, GoesOn };

class ProcessFaults : public BusFixture, public ::testing::WithParamInterface<WriterCase> {
protected:
    ProcessFaults() {
        const ProcessResult made = runProcess(programFolder() + "/wardlock", {"device", "init", root()});
        EXPECT_EQ(made.exitCode, 0) << made.errors;
        writeFile(applicationInfoPath, applicationInfo());
        fs::create_directory(shared);
        setup_.environment["LD_PRELOAD"] = testModulesFolder() + "/faults-shim.so";
        setup_.environment["WARDLOCK_FAULTS_BELOW"] = folders[0] + ':' + folders[1];
        setup_.environment["WARDLOCK_FAULTS_PLAN"] = planFile;
        setup_.environment["WARDLOCK_FAULTS_JOURNAL"] = journalFile;
        // The sanitizer's library wants to be the first; the shim leads to it.
        const char* options = std::getenv("ASAN_OPTIONS");
        setup_.environment["ASAN_OPTIONS"] =
            (options ? options + std::string(":") : "") + "verify_asan_link_order=0";
        stage();
    }
    ~ProcessFaults() override {
        std::cout << points << (HasFailure() ? " points tried\n" : " points survived\n");
        RecordProperty("points", static_cast<int>(points));
    }

    const WriterCase& given() const { return GetParam(); }
    const Writer& writer() const { return GetParam().writer; }

    /// The act in a new process, which meets the plan.
    Outcome perform(const std::string& plan, Then then = Then::Ends) {
        fs::remove(journalFile);
        Outcome run;
        if (writer().isCommand())
            performCommand(plan, run);
        else
            performScript(plan, then, run);
        std::size_t received = listener.receiveAll();
        if (then == Then::GoesOn && !writer().isCommand() && !run.killed) {
            EXPECT_GE(received, 1u) << "the next act was not announced";
            --received;
        }
        run.received = received;
        EXPECT_EQ(run.received, run.journal.announcements()) << "not all that was sent has arrived";
        return run;
    }

    /// The act without a fault: what calls there are.
    Journal calls() {
        const Outcome run = perform("record");
        EXPECT_TRUE(run.done);
        EXPECT_EQ(given().what(run.afterAct.contents(document)), "the new document");
        EXPECT_EQ(run.received, writer().announces ? 1u : 0u);
        EXPECT_GE(run.journal.calls(), 12u);
        return run.journal;
    }

    /// The numbers of the calls to try: one in `part` of those from the first that changes anything. Each
    /// writer tries others, so that all writers together try them all. WARDLOCK_FAULTS_EVERYWHERE asks for
    /// more: "changes" for all of those, anything else for every call.
    std::vector<std::size_t> chosen(const Journal& journal, std::size_t part) const {
        const char* everywhere = std::getenv("WARDLOCK_FAULTS_EVERYWHERE");
        const bool all = everywhere && std::string_view(everywhere) != "changes";
        const auto& entries = journal.entries();
        const auto first = std::ranges::find_if(entries, &JournalEntry::changes);
        const std::size_t begin = all || first == entries.end() ? 1 : first->number;
        const auto& cases = writerCases();
        const std::size_t position = static_cast<std::size_t>(
            std::ranges::find_if(cases,
                                 [this](const auto& other) { return other.name() == given().name(); }) -
            cases.begin());
        std::vector<std::size_t> numbers;
        for (std::size_t number = begin; number <= journal.calls(); ++number)
            if (everywhere || (number + position) % part == 0)
                numbers.push_back(number);
        return numbers;
    }

    /// The document is the old or the new one, at its place and with its rights.
    void expectWhole(const DiskImage& disk) const {
        const std::string found = given().what(disk.contents(document));
        EXPECT_TRUE(found == "the old document" || found == "the new document") << found;
        if (given().before == Before::Damaged && found == "the new document") {
            const auto kept = disk.named(".plist.damaged");
            EXPECT_TRUE(std::ranges::any_of(kept, [&](const std::string& name) {
                return disk.contents(name) == given().documentBefore;
            })) << "the damaged bytes are gone";
        }
        expectRights(disk);
    }
    /// A user who may not read the document may not read its temporary either.
    void expectPrivate(const DiskImage& disk) const {
        for (const std::string& name : disk.named(".wardlock-new")) {
            const FileImage& left = *disk.find(name);
            const bool asTheDocument = left.mode == 0640 && left.owner == parent && left.group == family;
            EXPECT_TRUE(left.mode == 0600 || asTheDocument) << std::oct << left.mode << ' ' << name;
        }
    }
    void expectRights(const DiskImage& disk) const {
        expectPrivate(disk);
        if (given().before == Before::Linked) {
            const FileImage* link = disk.find(document);
            ASSERT_TRUE(link && link->kind == FileKind::Link) << "the link is gone";
            EXPECT_EQ(link->text, file());
        }
        const FileImage* found = disk.find(file());
        if (!found)
            return;
        const bool wasMissing = given().before == Before::Missing;
        EXPECT_EQ(found->kind, FileKind::Regular);
        EXPECT_EQ(found->mode, wasMissing ? 0600u : 0640u);
        EXPECT_EQ(found->owner, wasMissing ? ::geteuid() : parent);
        EXPECT_EQ(found->group, wasMissing ? ::getegid() : family);
    }

    /// This process writes over the disk as it is: it can, keeps what is there, and leaves nothing about.
    void expectNextWriteWorks() const {
        expectNextChangeKeepsTheRest();
        const DiskImage disk = DiskImage::of(folders);
        EXPECT_EQ(disk.named(".wardlock-new"), std::vector<std::string>()) << "left lying about";
        expectRights(disk);
    }

    /// What the disk has to be after faults that the process lived through.
    void expectSurvived(const Outcome& run) {
        ++points;
        EXPECT_FALSE(run.killed);
        expectWhole(run.afterAct);
        if (writer().isCommand() && run.done) {
            EXPECT_EQ(given().what(run.afterAct.contents(document)), "the new document");
        }
        expectNextWriteWorks();
    }
    /// A page announces each change, a command each one that is in place.
    void expectAnnounced(const Outcome& run) const {
        const bool isInPlace = given().what(run.afterAct.contents(document)) == "the new document";
        const bool expected = writer().isCommand() ? writer().announces && isInPlace : true;
        EXPECT_EQ(run.received, expected ? 1u : 0u);
    }

    std::string file() const {
        return given().before == Before::Linked ? shared + "/document.plist" : document;
    }

    const std::string shared = folder() / "shared";
    const std::string document = onDisk("/var/mobile/Library/Preferences/com.tavix.wardlock.plist");
    const std::vector<std::string> folders{fs::path(document).parent_path().string(), shared};
    DiskImage initial{folders};
    BusListener listener{bus.address()};
    std::size_t points = 0;

private:
    /// Only root may give a file to another user.
    const std::uint32_t parent = ::geteuid() == 0 ? 1000 : ::geteuid();
    const std::uint32_t family = ::geteuid() == 0 ? 1001 : ::getegid();
    const std::string planFile = folder() / "plan";
    const std::string journalFile = folder() / "journal";
    ProcessSetup setup_;

    void stage() {
        const std::string text = writer().earlier.empty() ? given().documentBefore : writer().firstDocument();
        const FileImage old{FileKind::Regular, text, 0640, parent, family};
        if (given().before == Before::Linked) {
            initial.add(document, {.kind = FileKind::Link, .text = file()});
            // A process that was killed has left its temporary.
            initial.add(shared + "/.document.plist.0123456789abcdef.wardlock-new",
                        {FileKind::Regular, "left", 0600, ::geteuid(), ::getegid()});
        }
        if (given().before != Before::Missing)
            initial.add(file(), old);
        if (!writer().earlier.empty())
            makeEarlierChange();
    }

    void makeEarlierChange() {
        initial.restore();
        const ProcessResult result = runProcess(programFolder() + "/wardlock", writer().earlier, setup_);
        ASSERT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_EQ(listener.receiveAll(), 1u);
        DiskImage changed = DiskImage::of(folders);
        ASSERT_EQ(given().what(changed.contents(document)), "the old document");
        for (const std::string& path : initial.named(".wardlock-new"))
            changed.add(path, *initial.find(path));
        initial = changed;
    }

    void arm(const std::string& plan) const { std::ofstream(planFile) << plan; }
    void disarm() const { fs::remove(planFile); }

    void performCommand(const std::string& plan, Outcome& run) {
        initial.restore();
        arm(plan);
        ProcessSetup setup = setup_;
        setup.input = writer().input;
        const ProcessResult result =
            runProcess(programFolder() + "/wardlock", wordsFor(writer(), document), setup);
        disarm();
        run.killed = result.signal == SIGKILL;
        run.done = result.exitCode == 0;
        EXPECT_TRUE(run.killed || run.done || result.exitCode == 1) << result.exitCode << result.errors;
        run.journal = Journal::read(journalFile);
        run.afterAct = DiskImage::of(folders);
    }

    void performScript(const std::string& plan, Then then, Outcome& run) {
        ScriptedProcess process(folder() / "commands", setup_);
        expectObeyed(process, R"({"do":"see"})");
        initial.restore();
        for (const std::string& line : writer().opening)
            expectObeyed(process, line);
        arm(plan);
        const auto reply = process.say(writer().act);
        disarm();
        run.killed = !reply;
        // A change that could not be stored is done, too: the page was tapped, and the reply gives the
        // reason.
        run.done = reply && reply->starts_with(R"({"ok":true)");
        EXPECT_TRUE(run.killed || run.done) << *reply;
        run.journal = Journal::read(journalFile);
        run.afterAct = DiskImage::of(folders);
        if (then == Then::GoesOn && !run.killed)
            goOn(process);
        const ProcessResult result = process.end();
        EXPECT_EQ(result.signal, run.killed ? SIGKILL : 0) << result.errors;
        EXPECT_EQ(result.exitCode, run.killed ? -1 : 0) << result.errors;
    }

    /// The same process acts once more, without faults.
    void goOn(ScriptedProcess& process) {
        // A number that the file had before is not used again while it is there.
        const auto before = fileNumber();
        for (const std::string& line : writer().again)
            expectObeyed(process, line);
        const DiskImage disk = DiskImage::of(folders);
        EXPECT_NE(fileNumber(), before) << "the next act has written nothing";
        EXPECT_TRUE(wardlock::document(BundleIdentifier));
        EXPECT_EQ(disk.named(".wardlock-new"), std::vector<std::string>()) << "left lying about";
        expectRights(disk);
    }

    /// Of the file that is there now; 0 when it is missing.
    ino_t fileNumber() const {
        struct stat found {};
        return ::stat(document.c_str(), &found) == 0 ? found.st_ino : 0;
    }

    static void expectObeyed(ScriptedProcess& process, const std::string& line) {
        const auto reply = process.say(line);
        ASSERT_TRUE(reply) << "ended at " << line;
        EXPECT_EQ(reply->find("\"error\""), std::string::npos) << line << ": " << *reply;
    }
};

TEST_P(ProcessFaults, KilledProcessLeavesTheOldOrTheNewDocumentAndNoFalseAnnouncement) {
    const Journal whole = calls();
    std::size_t leftBehind = 0;
    for (const std::size_t number : chosen(whole, 2))
        for (const bool torn : {false, true}) {
            if (torn && whole.call(number).function != "write")
                continue;
            SCOPED_TRACE("killed at call " + std::to_string(number) + ' ' + whole.call(number).function);
            const Outcome run = perform((torn ? "tear " : "kill ") + std::to_string(number));
            ++points;
            EXPECT_TRUE(run.killed);
            expectWhole(run.afterAct);
            if (run.received > 0) {
                EXPECT_EQ(given().what(run.afterAct.contents(document)), "the new document") << "announced";
            }
            leftBehind += run.afterAct.named(".wardlock-new").size();
            expectNextWriteWorks();
        }
    EXPECT_GT(leftBehind, 0u) << "no kill left a temporary: the clearing was not tried";
}

TEST_P(ProcessFaults, JournalContainsEveryCallThatChangesTheDisk) {
    const Outcome run = perform("record");
    MemoryFileSystem disk;
    disk.actAs(::geteuid(), ::getegid());
    initial.restore(disk);
    Replay replay(disk);
    for (const JournalEntry& entry : run.journal.entries())
        replay.perform(entry);
    EXPECT_TRUE(DiskImage::of(disk, folders) == run.afterAct);
    EXPECT_EQ(disk.openHandles(), 0u);
}

TEST_P(ProcessFaults, PowerCutLeavesTheOldOrTheNewDocument) {
    const Journal whole = calls();
    MemoryFileSystem disk;
    disk.actAs(::geteuid(), ::getegid());
    initial.restore(disk);
    Replay replay(disk);
    std::set<DiskImage> tried;
    bool announced = false;
    for (const JournalEntry& entry : whole.entries()) {
        SCOPED_TRACE("power cut after call " + std::to_string(entry.number) + ' ' + entry.function);
        replay.perform(entry);
        announced = announced || entry.isAnnouncement();
        for (const auto& left : disk.disksAfterPowerCut()) {
            const DiskImage image = DiskImage::of(*left, folders);
            ++points;
            expectWhole(image);
            if (announced) {
                EXPECT_EQ(given().what(image.contents(document)), "the new document") << "announced";
            }
            if (!tried.insert(image).second)
                continue;
            image.restore();
            expectNextWriteWorks();
        }
    }
    EXPECT_EQ(announced, writer().announces);
    EXPECT_GE(tried.size(), 4u) << "there was hardly anything to lose";
}

TEST_P(ProcessFaults, SingleErrorLeavesTheOldOrTheNewDocumentAndARunningProcess) {
    const Journal whole = calls();
    for (const std::size_t number : chosen(whole, 5)) {
        const JournalEntry& call = whole.call(number);
        for (const int error : {EIO, ENOSPC}) {
            if (error == ENOSPC && !call.changes())
                continue;
            SCOPED_TRACE("error " + std::to_string(error) + " at call " + std::to_string(number) + ' ' +
                         call.function);
            const Outcome run =
                perform("fail " + std::to_string(number) + ' ' + std::to_string(error), Then::GoesOn);
            expectAnnounced(run);
            expectSurvived(run);
        }
    }
}

TEST_P(ProcessFaults, ErrorsFromAnyCallOnLeaveTheOldOrTheNewDocument) {
    const Journal whole = calls();
    for (const std::size_t number : chosen(whole, 6)) {
        SCOPED_TRACE("I/O errors from call " + std::to_string(number) + ' ' + whole.call(number).function);
        expectSurvived(perform("fail " + std::to_string(number) + "- " + std::to_string(EIO)));
    }
}

TEST_P(ProcessFaults, FullDiskFromAnyCallOnLeavesTheOldOrTheNewDocumentAndNoTemporary) {
    const Journal whole = calls();
    for (const std::size_t number : chosen(whole, 6)) {
        SCOPED_TRACE("disk full from call " + std::to_string(number) + ' ' + whole.call(number).function);
        const Outcome run = perform("fill " + std::to_string(number) + '-', Then::GoesOn);
        expectAnnounced(run);
        EXPECT_EQ(run.afterAct.named(".wardlock-new"), std::vector<std::string>());
        expectSurvived(run);
    }
}

TEST_P(ProcessFaults, InterruptionOrShortWriteOrReadChangesNothing) {
    const Journal whole = calls();
    const auto expectUnchanged = [this](const std::string& plan) {
        SCOPED_TRACE(plan);
        const Outcome run = perform(plan);
        EXPECT_EQ(given().what(run.afterAct.contents(document)), "the new document");
        EXPECT_EQ(run.afterAct.named(".wardlock-new"), std::vector<std::string>());
        expectAnnounced(run);
        expectSurvived(run);
    };
    for (const std::size_t number : chosen(whole, 6)) {
        const std::string at = std::to_string(number);
        expectUnchanged("interrupt " + at);
        expectUnchanged("interrupt " + at + '-');
    }
    for (const JournalEntry& call : whole.entries())
        if (call.function == "write") {
            expectUnchanged("shorten " + std::to_string(call.number) + " 7");
            expectUnchanged("shorten " + std::to_string(call.number) + "- 100");
        } else if (call.function == "read" && call.result > 7) {
            expectUnchanged("shorten " + std::to_string(call.number) + " 7");
        }
}

INSTANTIATE_TEST_SUITE_P(EveryWriter, ProcessFaults, ::testing::ValuesIn(writerCases()),
                         [](const auto& info) { return info.param.name(); });

} // namespace
} // namespace wardlock::test
