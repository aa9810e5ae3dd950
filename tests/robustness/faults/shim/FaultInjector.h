#pragma once

#include "tests/robustness/faults/shim/Plan.h"

#include <cstddef>
#include <dirent.h>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test::shim {

/// Knows which calls of this process count, decides what becomes of them, and keeps the journal.
///
/// Variables of the environment:
///   WARDLOCK_FAULTS_BELOW     folders, separated by colons: calls upon files in them count
///   WARDLOCK_FAULTS_PLAN      a file with the plan (Plan.h); calls are counted while it is there
///   WARDLOCK_FAULTS_JOURNAL   a file that gets a line for each call counted, its fields separated by tabs:
///                             number, function, errno or 0, result, and its arguments; the bytes of a write
///                             in hexadecimal
/// Nothing happens where one of them is not set.
class FaultInjector {
public:
    static FaultInjector& shared();

    /// Locked by the caller of the injector until the call has been recorded.
    std::recursive_mutex& mutex() { return mutex_; }

    bool counts(std::string_view path) { return contains(path) && isArmed(); }
    bool counts(int descriptor) { return files_.contains(descriptor) && isArmed(); }
    bool counts(DIR* folder) { return folders_.contains(folder) && isArmed(); }
    std::string pathOf(int descriptor) const;
    std::string pathOf(DIR* folder) const;

    /// A file or folder was opened, or closed.
    void opened(int descriptor, std::string_view path);
    void opened(DIR* folder, std::string_view path);
    void closed(int descriptor) { files_.erase(descriptor); }
    void closed(DIR* folder) { folders_.erase(folder); }

    /// The next call. Does not come back when the process is to be killed before it.
    Fate meet(std::string_view function, Room room, std::string_view path);
    void record(std::string_view function, int error, long result, const std::vector<std::string>& fields);
    /// An event that is not a file call, at its place among them.
    void remark(std::string_view what);
    [[noreturn]] static void endProcess();

    bool isArmed();

private:
    FaultInjector();
    bool contains(std::string_view path) const;
    void writeLine(const std::string& line) const;

    std::recursive_mutex mutex_;
    std::vector<std::string> below_;
    std::string planFile_;
    std::string journalFile_;
    std::optional<Plan> plan_;
    std::size_t calls_ = 0;
    std::map<int, std::string> files_;
    std::map<DIR*, std::string> folders_;
};

} // namespace wardlock::test::shim
