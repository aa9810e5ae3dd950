#pragma once

#include "platform/files/FileSystem.h"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace wardlock::test {

/// Files in memory. Records the changing calls in their order and knows what a power cut at this moment could
/// leave.
///
/// Paths are absolute; links are followed in the last component only, and there are no "." and "..".
/// Permissions are looked at as far as the tests need them: a file's reading, a folder's writing, the giving
/// away of files. One thread.
class MemoryFileSystem : public platform::FileSystem {
public:
    MemoryFileSystem();
    ~MemoryFileSystem() override;

    /// Sets the stage, as if it had been on the disk for long.
    void addFolder(const std::string& path, unsigned mode = 0700);
    void addFile(const std::string& path, std::string_view bytes, unsigned mode = 0600,
                 std::uint32_t owner = 0, std::uint32_t group = 0);
    void addLink(const std::string& path, const std::string& target);

    /// The user of the calls; 0 (the default) may do everything.
    void actAs(std::uint32_t user, std::uint32_t group);
    /// How many bytes all files may contain together.
    void setCapacity(std::size_t bytes) { capacity_ = bytes; }
    /// The process has ended: its handles are closed and its locks free.
    void endProcess();

    std::optional<std::string> contents(const std::string& path) const;
    std::optional<platform::FileStatus> statusOf(const std::string& path) const;
    /// A file's bytes or a link's target; nothing when the path is missing.
    std::string textOf(const std::string& path) const;
    /// The names below a folder.
    std::vector<std::string> names(const std::string& folder) const;
    std::size_t openHandles() const { return handles_.size(); }

    /// What could be at the path after a power cut now; nothing for no file. A folder's names since its
    /// last sync are there up to any point of their order, as on a journaled file system. Bytes since the
    /// last file sync are there wholly, half or not.
    std::set<std::optional<std::string>> afterPowerCut(const std::string& path) const;
    /// The same as whole disks, one for every way in which the power could have been cut now. Mode and owner
    /// of a file are those of its last full sync or those of now. No process has a file of theirs open.
    std::vector<std::unique_ptr<MemoryFileSystem>> disksAfterPowerCut() const;

    /// The calls so far, such as "rename /d/TEMPORARY /d/a"; the writer's temporary files under that one
    /// name.
    const std::vector<std::string>& calls() const { return calls_; }
    void forgetCalls() { calls_.clear(); }

    std::uint32_t user() const override { return user_; }
    std::error_code status(const std::string& path, platform::Links links,
                           platform::FileStatus& status) override;
    std::error_code status(platform::FileHandle file, platform::FileStatus& status) override;
    std::error_code readLink(const std::string& path, std::string& target) override;
    std::error_code resolve(const std::string& path, std::string& resolved) override;
    std::error_code readFile(const std::string& path, std::size_t maximum, std::string& bytes) override;
    std::error_code compareFile(const std::string& path, std::string_view bytes, bool& same) override;
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
    struct Node;
    struct Handle {
        std::shared_ptr<Node> node;
        std::string path;
        bool writable = false;
    };
    using Names = std::map<std::string, std::shared_ptr<Node>>;
    using Nodes = std::map<const Node*, std::shared_ptr<Node>>;

    static std::vector<Nodes> waysToKeep(const Names& names);
    void record(const std::string& call);
    std::string pathOf(platform::FileHandle file) const;
    std::shared_ptr<Node> find(std::string path, platform::Links links, std::error_code& error) const;
    /// Fails where the file is missing, not regular, or not readable.
    std::error_code findReadable(const std::string& path, std::shared_ptr<Node>& node) const;
    std::shared_ptr<Node> makeNode(platform::FileKind kind, unsigned mode);
    std::error_code mayChange(const std::string& path) const;
    std::error_code add(const std::string& path, const std::shared_ptr<Node>& node);
    std::error_code openExisting(const std::string& path, platform::Links links, bool writable,
                                 platform::FileHandle& file);
    void unname(const std::string& path);
    std::size_t used() const;

    Names names_;
    std::vector<Names> namesSinceSync_;
    std::map<platform::FileHandle, Handle> handles_;
    std::map<const Node*, platform::FileHandle> locks_;
    std::vector<std::string> calls_;
    platform::FileHandle nextHandle_ = 3;
    std::uint64_t nextInode_ = 1;
    std::uint32_t user_ = 0;
    std::uint32_t group_ = 0;
    std::size_t capacity_ = std::size_t(-1);
};

} // namespace wardlock::test
