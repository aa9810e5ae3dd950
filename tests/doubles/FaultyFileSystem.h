#pragma once

#include "platform/foundation/FileSystem.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace wardlock::test {

/// Another file system with faults on top. Calls are counted from 1, every function counts.
class FaultyFileSystem : public platform::FileSystem {
public:
    explicit FaultyFileSystem(platform::FileSystem& files) : files_(files) {}

    /// The call of that number fails, without effect.
    void failCall(std::size_t number, std::errc error);
    /// Every call of the function fails, without effect.
    void failEvery(const std::string& function, std::errc error) { failing_[function] = error; }
    /// From that call on nothing has an effect any more: the process has been killed before it.
    void killFrom(std::size_t number) { killed_ = number; }
    /// A write takes no more than that many bytes.
    void limitWrites(std::size_t bytes) { longestWrite_ = bytes; }
    /// Every call but close (whose handle is gone either way) is interrupted once before it gets through.
    void interruptCalls() { interrupting_ = true; }
    /// Runs before the function's next call, once.
    void before(const std::string& function, std::function<void()> action) {
        actions_[function] = std::move(action);
    }

    std::size_t calls() const { return calls_; }

    std::error_code status(const std::string& path, platform::Links links,
                           platform::FileStatus& status) override;
    std::error_code status(platform::FileHandle file, platform::FileStatus& status) override;
    std::error_code readLink(const std::string& path, std::string& target) override;
    std::error_code resolve(const std::string& path, std::string& resolved) override;
    std::error_code readFile(const std::string& path, std::size_t maximum, std::string& bytes) override;
    std::error_code list(const std::string& folder, std::vector<std::string>& names) override;
    std::error_code create(const std::string& path, unsigned mode, platform::FileHandle& file) override;
    std::error_code open(const std::string& path, platform::FileHandle& file) override;
    std::error_code openToAppend(const std::string& path, platform::FileHandle& file) override;
    std::error_code lock(platform::FileHandle file) override;
    std::error_code write(platform::FileHandle file, std::string_view bytes, std::size_t& written) override;
    std::error_code setMode(platform::FileHandle file, unsigned mode) override;
    std::error_code setOwner(platform::FileHandle file, std::uint32_t owner, std::uint32_t group) override;
    std::error_code setGroup(platform::FileHandle file, std::uint32_t group) override;
    std::error_code sync(platform::FileHandle file, platform::Sync sync) override;
    std::error_code close(platform::FileHandle file) override;
    std::error_code rename(const std::string& from, const std::string& to) override;
    std::error_code link(const std::string& file, const std::string& name) override;
    std::error_code makeSymbolicLink(const std::string& target, const std::string& path) override;
    std::error_code syncFolder(const std::string& folder) override;
    std::error_code remove(const std::string& path) override;
    std::error_code makeFolder(const std::string& path, unsigned mode) override;

private:
    std::error_code fault(const std::string& function);
    template <class Call>
    std::error_code run(const std::string& function, Call call) {
        const std::error_code error = fault(function);
        return error ? error : call();
    }

    platform::FileSystem& files_;
    std::size_t calls_ = 0;
    std::map<std::size_t, std::errc> failingCalls_;
    std::map<std::string, std::errc> failing_;
    std::map<std::string, std::function<void()>> actions_;
    std::size_t killed_ = std::size_t(-1);
    std::size_t longestWrite_ = std::size_t(-1);
    bool interrupting_ = false;
    bool interruptedLast_ = false;
};

} // namespace wardlock::test
