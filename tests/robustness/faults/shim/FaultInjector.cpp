#include "tests/robustness/faults/shim/FaultInjector.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sstream>
#include <sys/syscall.h>
#include <unistd.h>

namespace wardlock::test::shim {

namespace {

std::string variable(const char* name) {
    // The environment does not change while the process is being loaded.
    const char* text = std::getenv(name);
    return text ? text : "";
}

// The injector's own calls go to the kernel directly: those of the C library lead back here.

int openDirectly(const std::string& path, int flags) {
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path.c_str(), flags | O_CLOEXEC, 0600));
}

std::optional<std::string> bytesOf(const std::string& path) {
    const int file = openDirectly(path, O_RDONLY);
    if (file < 0)
        return std::nullopt;
    std::array<char, 256> room{};
    const long count = ::syscall(SYS_read, file, room.data(), room.size());
    ::syscall(SYS_close, file);
    return std::string(room.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
}

} // namespace

FaultInjector& FaultInjector::shared() {
    // Never destroyed: files are closed until the process ends.
    static FaultInjector* const injector = new FaultInjector;
    return *injector;
}

FaultInjector::FaultInjector()
    : planFile_(variable("WARDLOCK_FAULTS_PLAN")), journalFile_(variable("WARDLOCK_FAULTS_JOURNAL")) {
    std::istringstream folders(variable("WARDLOCK_FAULTS_BELOW"));
    for (std::string folder; std::getline(folders, folder, ':');)
        below_.push_back(folder);
}

bool FaultInjector::contains(std::string_view path) const {
    for (const std::string& folder : below_)
        if (path == folder || (path.starts_with(folder) && path[folder.size()] == '/'))
            return true;
    return false;
}

bool FaultInjector::isArmed() {
    // Only errno distinguishes the end of a folder from an error: it must stay what it was.
    const int before = errno;
    const bool hasPlan =
        !planFile_.empty() && ::syscall(SYS_faccessat, AT_FDCWD, planFile_.c_str(), F_OK) == 0;
    errno = before;
    if (!hasPlan) {
        plan_.reset();
        return false;
    }
    if (plan_)
        return true;
    plan_ = Plan::parse(bytesOf(planFile_).value_or(""));
    calls_ = 0;
    if (!plan_)
        std::abort();
    return true;
}

std::string FaultInjector::pathOf(int descriptor) const {
    const auto found = files_.find(descriptor);
    return found == files_.end() ? "" : found->second;
}

std::string FaultInjector::pathOf(DIR* folder) const {
    const auto found = folders_.find(folder);
    return found == folders_.end() ? "" : found->second;
}

void FaultInjector::opened(int descriptor, std::string_view path) {
    if (contains(path))
        files_[descriptor] = path;
}

void FaultInjector::opened(DIR* folder, std::string_view path) {
    if (contains(path))
        folders_[folder] = path;
}

Fate FaultInjector::meet(std::string_view function, Room room, std::string_view path) {
    const Fate fate = plan_->fateOf(++calls_, function, room, path);
    if (fate.killed)
        endProcess();
    return fate;
}

void FaultInjector::record(std::string_view function, int error, long result,
                           const std::vector<std::string>& fields) {
    std::ostringstream line;
    line << calls_ << '\t' << function << '\t' << error << '\t' << result;
    for (const std::string& field : fields)
        line << '\t' << field;
    writeLine(line.str() + '\n');
}

void FaultInjector::remark(std::string_view what) {
    writeLine(std::to_string(calls_) + '\t' + std::string(what) + "\t0\t0\n");
}

void FaultInjector::writeLine(const std::string& line) const {
    const int file = openDirectly(journalFile_, O_WRONLY | O_CREAT | O_APPEND);
    if (file < 0 || ::syscall(SYS_write, file, line.data(), line.size()) != static_cast<long>(line.size()))
        std::abort();
    ::syscall(SYS_close, file);
}

void FaultInjector::endProcess() {
    while (true)
        ::syscall(SYS_kill, ::syscall(SYS_getpid), SIGKILL);
}

} // namespace wardlock::test::shim
