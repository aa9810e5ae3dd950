#include "tests/robustness/faults/Journal.h"

#include "tests/support/doubles/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <fcntl.h>
#include <fstream>
#include <sstream>

namespace wardlock::test {

namespace {

template <class Number = long>
Number number(const std::string& text, int base = 10) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    EXPECT_TRUE(error == std::errc() && end == text.data() + text.size()) << "no number: " << text;
    return value;
}

std::string bytesOf(const std::string& hexadecimal) {
    std::string bytes;
    for (std::size_t at = 0; at + 1 < hexadecimal.size(); at += 2)
        bytes += static_cast<char>(number<unsigned>(hexadecimal.substr(at, 2), 16));
    return bytes;
}

JournalEntry entryOf(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream words(line);
    for (std::string field; std::getline(words, field, '\t');)
        fields.push_back(field);
    EXPECT_GE(fields.size(), 4u) << line;
    fields.resize(std::max<std::size_t>(fields.size(), 4));
    return {number<std::size_t>(fields[0]),
            fields[1],
            number<int>(fields[2]),
            number(fields[3]),
            {fields.begin() + 4, fields.end()}};
}

} // namespace

bool JournalEntry::changes() const {
    constexpr std::array functions{"create", "write",     "pwrite", "ftruncate", "fchmod", "fchown",
                                   "fsync",  "fdatasync", "rename", "link",      "remove", "symlink"};
    return std::ranges::find(functions, function) != functions.end();
}

Journal Journal::read(const std::string& path) {
    Journal journal;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        journal.entries_.push_back(entryOf(line));
    return journal;
}

std::size_t Journal::calls() const {
    return entries_.empty() ? 0 : entries_.back().number;
}

std::size_t Journal::announcements() const {
    return static_cast<std::size_t>(std::ranges::count_if(entries_, &JournalEntry::isAnnouncement));
}

const JournalEntry& Journal::call(std::size_t number) const {
    return *std::ranges::find_if(
        entries_, [number](const auto& entry) { return entry.number == number && !entry.isAnnouncement(); });
}

void Replay::perform(const JournalEntry& entry) {
    if (entry.error != 0 && entry.function != "close")
        return;
    if (entry.function == "open" || entry.function == "create")
        open(entry);
    else if (entry.fields.empty() || entry.fields[0].starts_with('/') || entry.function == "symlink")
        performUponNames(entry);
    else
        performUponFile(entry);
}

void Replay::open(const JournalEntry& entry) {
    const std::string& path = entry.fields[0];
    const auto flags = number<int>(entry.fields[1], 8);
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    const bool isNew = (flags & O_CREAT) && (flags & O_EXCL);
    EXPECT_TRUE(isNew || !writes) << path << " was opened for writing";
    if (!isNew) {
        folders_[entry.result] = path;
        return;
    }
    int handle = platform::noFile;
    EXPECT_FALSE(disk_.create(path, number<unsigned>(entry.fields[2], 8), handle)) << path;
    handles_[entry.result] = handle;
}

void Replay::performUponNames(const JournalEntry& entry) {
    const auto& fields = entry.fields;
    std::error_code error;
    if (entry.function == "rename")
        error = disk_.rename(fields[0], fields[1]);
    else if (entry.function == "link")
        error = disk_.link(fields[0], fields[1]);
    else if (entry.function == "symlink")
        error = disk_.makeSymbolicLink(fields[0], fields[1]);
    else if (entry.function == "remove")
        error = disk_.remove(fields[0]);
    else if (entry.function == "mkdir")
        error = disk_.makeFolder(fields[0], number<unsigned>(fields[1], 8));
    EXPECT_FALSE(error) << entry.function << ' ' << fields[0] << ": " << error.message();
}

void Replay::performUponFile(const JournalEntry& entry) {
    const auto& fields = entry.fields;
    const auto descriptor = number(fields[0]);
    if (entry.function == "fsync" && folders_.contains(descriptor)) {
        EXPECT_FALSE(disk_.syncFolder(folders_[descriptor]));
        return;
    }
    const auto file = handles_.find(descriptor);
    if (file == handles_.end()) {
        if (entry.function == "close")
            folders_.erase(descriptor);
        EXPECT_FALSE(entry.changes()) << entry.function << " upon what was not opened for it";
        return;
    }
    std::error_code error;
    std::size_t written = 0;
    if (entry.function == "write")
        error = disk_.write(file->second, bytesOf(fields[1]), written);
    else if (entry.function == "fchmod")
        error = disk_.setMode(file->second, number<unsigned>(fields[1], 8));
    else if (entry.function == "fchown")
        error =
            disk_.setOwner(file->second, number<std::uint32_t>(fields[1]), number<std::uint32_t>(fields[2]));
    else if (entry.function == "fsync")
        error = disk_.sync(file->second, platform::Sync::Full);
    else if (entry.function == "fdatasync")
        error = disk_.sync(file->second, platform::Sync::Data);
    else if (entry.function == "close") {
        error = disk_.close(file->second);
        handles_.erase(file);
    } else
        EXPECT_FALSE(entry.changes()) << entry.function << " is not replayed";
    EXPECT_FALSE(error) << entry.function << ": " << error.message();
}

} // namespace wardlock::test
