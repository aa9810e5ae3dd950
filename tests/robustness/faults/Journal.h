#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace wardlock::test {

class MemoryFileSystem;

/// A file call that a process made, as the shim has written it down (shim/FaultInjector.h).
struct JournalEntry {
    std::size_t number = 0;
    std::string function;
    int error = 0;
    long result = 0;
    std::vector<std::string> fields;

    bool isAnnouncement() const { return function == "announce"; }
    /// Whether it changes what is on the disk, or what of it stays there.
    bool changes() const;
};

/// The calls of one process in their order, announcements at their place among them.
class Journal {
public:
    /// Empty when the file is missing.
    static Journal read(const std::string& path);

    const std::vector<JournalEntry>& entries() const { return entries_; }
    std::size_t calls() const;
    std::size_t announcements() const;
    const JournalEntry& call(std::size_t number) const;

private:
    std::vector<JournalEntry> entries_;
};

/// Does upon a disk in memory what a process did upon the real one, so that one can ask what a power cut
/// would have left. What a writer of the document must never do, such as to open a file for writing that is
/// there already, is a failed expectation.
class Replay {
public:
    explicit Replay(MemoryFileSystem& disk) : disk_(disk) {}

    void perform(const JournalEntry& entry);

private:
    void performUponNames(const JournalEntry& entry);
    void performUponFile(const JournalEntry& entry);
    void open(const JournalEntry& entry);

    MemoryFileSystem& disk_;
    std::map<long, int> handles_;         ///< by the process's descriptors, of what it writes
    std::map<long, std::string> folders_; ///< what it has open to read, files among them
};

} // namespace wardlock::test
