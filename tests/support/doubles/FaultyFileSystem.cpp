#include "tests/support/doubles/FaultyFileSystem.h"

#include <algorithm>
#include <iterator>

namespace wardlock::test {

void FaultyFileSystem::failCall(std::size_t number, std::errc error) {
    failingCalls_[number] = error;
}

bool FaultyFileSystem::needsRoom(std::string_view function) {
    constexpr std::string_view functions[] = {"create",           "write",      "sync",      "rename", "link",
                                              "makeSymbolicLink", "syncFolder", "makeFolder"};
    return std::ranges::find(functions, function) != std::end(functions);
}

std::error_code FaultyFileSystem::fault(const std::string& function) {
    functions_.push_back(function);
    if (isKilled() || calls() >= failingFrom_.from)
        return std::make_error_code(isKilled() ? std::errc::io_error : failingFrom_.error);
    if (calls() >= fullFrom_ && needsRoom(function))
        return std::make_error_code(std::errc::no_space_on_device);
    if (calls() >= interruptingFrom_ && function != "close") {
        interruptedLast_ = !interruptedLast_;
        if (interruptedLast_)
            return std::make_error_code(std::errc::interrupted);
    }
    if (const auto action = actions_.extract(function))
        action.mapped()();
    if (const auto failing = failing_.find(function); failing != failing_.end())
        return std::make_error_code(failing->second);
    const auto failing = failingCalls_.find(calls());
    return failing == failingCalls_.end() ? std::error_code() : std::make_error_code(failing->second);
}

std::error_code FaultyFileSystem::status(const std::string& path, platform::Links links,
                                         platform::FileStatus& status) {
    return run("status", [&] { return files_.status(path, links, status); });
}

std::error_code FaultyFileSystem::status(platform::FileHandle file, platform::FileStatus& status) {
    return run("status", [&] { return files_.status(file, status); });
}

std::error_code FaultyFileSystem::readLink(const std::string& path, std::string& target) {
    return run("readLink", [&] { return files_.readLink(path, target); });
}

std::error_code FaultyFileSystem::resolve(const std::string& path, std::string& resolved) {
    return run("resolve", [&] { return files_.resolve(path, resolved); });
}

std::error_code FaultyFileSystem::readFile(const std::string& path, std::size_t maximum, std::string& bytes) {
    return run("readFile", [&] { return files_.readFile(path, maximum, bytes); });
}

std::error_code FaultyFileSystem::list(const std::string& folder, std::vector<std::string>& names) {
    return run("list", [&] { return files_.list(folder, names); });
}

std::error_code FaultyFileSystem::create(const std::string& path, unsigned mode, platform::FileHandle& file) {
    return run("create", [&] { return files_.create(path, mode, file); });
}

std::error_code FaultyFileSystem::open(const std::string& path, platform::FileHandle& file) {
    return run("open", [&] { return files_.open(path, file); });
}

std::error_code FaultyFileSystem::openToAppend(const std::string& path, platform::FileHandle& file) {
    return run("openToAppend", [&] { return files_.openToAppend(path, file); });
}

std::error_code FaultyFileSystem::lock(platform::FileHandle file) {
    return run("lock", [&] { return files_.lock(file); });
}

std::error_code FaultyFileSystem::write(platform::FileHandle file, std::string_view bytes,
                                        std::size_t& written) {
    return run("write", [&] {
        const bool limited = calls() >= limit_.first && calls() <= limit_.last;
        return files_.write(file, limited ? bytes.substr(0, limit_.bytes) : bytes, written);
    });
}

std::error_code FaultyFileSystem::setMode(platform::FileHandle file, unsigned mode) {
    return run("setMode", [&] { return files_.setMode(file, mode); });
}

std::error_code FaultyFileSystem::setOwner(platform::FileHandle file, std::uint32_t owner,
                                           std::uint32_t group) {
    return run("setOwner", [&] { return files_.setOwner(file, owner, group); });
}

std::error_code FaultyFileSystem::setGroup(platform::FileHandle file, std::uint32_t group) {
    return run("setGroup", [&] { return files_.setGroup(file, group); });
}

std::error_code FaultyFileSystem::copyAccessList(const std::string& path, platform::FileHandle file) {
    return run("copyAccessList", [&] { return files_.copyAccessList(path, file); });
}

std::error_code FaultyFileSystem::sync(platform::FileHandle file, platform::Sync sync) {
    return run("sync", [&] { return files_.sync(file, sync); });
}

std::error_code FaultyFileSystem::close(platform::FileHandle file) {
    // The handle is gone even when closing reports a failure; a killed process's are gone by themselves.
    const std::error_code error = fault("close");
    const std::error_code closed = !isKilled() ? files_.close(file) : std::error_code();
    return error ? error : closed;
}

std::error_code FaultyFileSystem::rename(const std::string& from, const std::string& to) {
    return run("rename", [&] { return files_.rename(from, to); });
}

std::error_code FaultyFileSystem::link(const std::string& file, const std::string& name) {
    return run("link", [&] { return files_.link(file, name); });
}

std::error_code FaultyFileSystem::makeSymbolicLink(const std::string& target, const std::string& path) {
    return run("makeSymbolicLink", [&] { return files_.makeSymbolicLink(target, path); });
}

std::error_code FaultyFileSystem::syncFolder(const std::string& folder) {
    return run("syncFolder", [&] { return files_.syncFolder(folder); });
}

std::error_code FaultyFileSystem::remove(const std::string& path) {
    return run("remove", [&] { return files_.remove(path); });
}

std::error_code FaultyFileSystem::makeFolder(const std::string& path, unsigned mode) {
    return run("makeFolder", [&] { return files_.makeFolder(path, mode); });
}

} // namespace wardlock::test
