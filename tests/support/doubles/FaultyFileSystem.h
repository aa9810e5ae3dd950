#pragma once

#include "platform/files/FileSystem.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {

/// Another file system with faults on top. Calls are counted from 1, every function counts.
class FaultyFileSystem : public platform::FileSystem {
public:
    explicit FaultyFileSystem(platform::FileSystem& files) : files_(files) {}

    /// The call of that number fails, without effect.
    void failCall(std::size_t number, std::errc error);
    /// The call of that number and all after it fail, without effect.
    void failFrom(std::size_t number, std::errc error) { failingFrom_ = {number, error}; }
    /// From that call on the disk is full: what needs room on it fails, everything else works.
    void fillDiskFrom(std::size_t number) { fullFrom_ = number; }
    /// Every call of the function fails, without effect.
    void failEvery(const std::string& function, std::errc error) { failing_[function] = error; }
    /// From that call on nothing has an effect: the process has been killed before it.
    void killFrom(std::size_t number) { killed_ = number; }
    /// A write takes no more than that many bytes.
    void limitWrites(std::size_t bytes) { limitWritesFrom(1, bytes); }
    /// The same from that call on, or for that call alone.
    void limitWritesFrom(std::size_t number, std::size_t bytes) { limit_ = {number, forEver, bytes}; }
    void limitWrite(std::size_t number, std::size_t bytes) { limit_ = {number, number, bytes}; }
    /// Every call but close (whose handle is gone either way) is interrupted once before it gets through.
    void interruptCalls() { interruptCallsFrom(1); }
    /// The same from that call on.
    void interruptCallsFrom(std::size_t number) { interruptingFrom_ = number; }
    /// Runs before the function's next call, once.
    void before(const std::string& function, std::function<void()> action) {
        actions_[function] = std::move(action);
    }

    std::size_t calls() const { return functions_.size(); }
    /// The functions called so far, "rename" for the call of number functions().size() say.
    const std::vector<std::string>& functions() const { return functions_; }
    bool isKilled() const { return calls() >= killed_; }
    /// Whether the function takes room on the disk, so that a full one refuses it.
    static bool needsRoom(std::string_view function);

    std::uint32_t user() const override { return files_.user(); }
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
    std::error_code copyAccessList(const std::string& path, platform::FileHandle file) override;
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

    static constexpr std::size_t forEver = std::size_t(-1);
    struct Failing {
        std::size_t from = forEver;
        std::errc error = {};
    };
    struct Limit {
        std::size_t first = forEver;
        std::size_t last = forEver;
        std::size_t bytes = 0;
    };

    platform::FileSystem& files_;
    std::vector<std::string> functions_;
    std::map<std::size_t, std::errc> failingCalls_;
    Failing failingFrom_;
    std::size_t fullFrom_ = forEver;
    std::map<std::string, std::errc> failing_;
    std::map<std::string, std::function<void()>> actions_;
    std::size_t killed_ = forEver;
    Limit limit_;
    std::size_t interruptingFrom_ = forEver;
    bool interruptedLast_ = false;
};

} // namespace wardlock::test
