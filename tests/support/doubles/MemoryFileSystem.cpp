#include "tests/support/doubles/MemoryFileSystem.h"

#include <algorithm>
#include <iterator>

namespace wardlock::test {

using platform::FileHandle;
using platform::FileKind;
using platform::FileStatus;
using platform::Links;
using platform::Sync;

namespace {

std::error_code failure(std::errc error) {
    return std::make_error_code(error);
}

std::string withoutTemporaryName(std::string path) {
    const std::size_t slash = path.rfind('/');
    if (path.ends_with(".wardlock-new"))
        path.replace(slash + 1, std::string::npos, "TEMPORARY");
    return path;
}

} // namespace

struct MemoryFileSystem::Node {
    FileStatus status;
    std::string text; // a file's bytes, a link's target
    std::set<std::string> afterPowerCut = {""};
    FileStatus synced; // mode and owner on the disk

    bool attributesAreSynced() const {
        return status.mode == synced.mode && status.owner == synced.owner && status.group == synced.group;
    }
    /// The node as a power cut leaves it with these bytes and these attributes.
    std::shared_ptr<Node> kept(const std::string& bytes, const FileStatus& attributes) const {
        auto node = std::make_shared<Node>(*this);
        node->text = bytes;
        node->afterPowerCut = {bytes};
        node->status.mode = attributes.mode;
        node->status.owner = attributes.owner;
        node->status.group = attributes.group;
        node->status.size = bytes.size();
        node->synced = node->status;
        return node;
    }
    std::vector<std::shared_ptr<Node>> waysToKeep() const {
        std::vector<std::shared_ptr<Node>> ways;
        const bool isFile = status.kind == FileKind::Regular;
        for (const std::string& bytes : isFile ? afterPowerCut : std::set<std::string>{text}) {
            ways.push_back(kept(bytes, status));
            if (!attributesAreSynced())
                ways.push_back(kept(bytes, synced));
        }
        return ways;
    }
};

MemoryFileSystem::MemoryFileSystem() {
    names_["/"] = makeNode(FileKind::Folder, 0755);
    namesSinceSync_ = {names_};
}

MemoryFileSystem::~MemoryFileSystem() = default;

void MemoryFileSystem::addFolder(const std::string& path, unsigned mode) {
    names_[path] = makeNode(FileKind::Folder, mode);
    namesSinceSync_ = {names_};
}

void MemoryFileSystem::addFile(const std::string& path, std::string_view bytes, unsigned mode,
                               std::uint32_t owner, std::uint32_t group) {
    const auto node = makeNode(FileKind::Regular, mode);
    node->status.owner = owner;
    node->status.group = group;
    node->status.links = 1;
    node->synced = node->status;
    node->text = bytes;
    node->afterPowerCut = {node->text};
    names_[path] = node;
    namesSinceSync_ = {names_};
}

void MemoryFileSystem::addLink(const std::string& path, const std::string& target) {
    names_[path] = makeNode(FileKind::Link, 0777);
    names_[path]->text = target;
    namesSinceSync_ = {names_};
}

void MemoryFileSystem::actAs(std::uint32_t user, std::uint32_t group) {
    user_ = user;
    group_ = group;
}

void MemoryFileSystem::endProcess() {
    handles_.clear();
    locks_.clear();
}

std::optional<std::string> MemoryFileSystem::contents(const std::string& path) const {
    std::error_code error;
    const auto node = find(path, Links::Follow, error);
    return node ? std::optional(node->text) : std::nullopt;
}

std::optional<FileStatus> MemoryFileSystem::statusOf(const std::string& path) const {
    std::error_code error;
    const auto node = find(path, Links::NoFollow, error);
    return node ? std::optional(node->status) : std::nullopt;
}

std::string MemoryFileSystem::textOf(const std::string& path) const {
    const auto found = names_.find(path);
    return found == names_.end() ? "" : found->second->text;
}

std::vector<std::string> MemoryFileSystem::names(const std::string& folder) const {
    const std::string start = folder == "/" ? folder : folder + '/';
    std::vector<std::string> found;
    for (const auto& [path, node] : names_)
        if (path.size() > start.size() && path.starts_with(start) &&
            path.find('/', start.size()) == path.npos)
            found.push_back(path.substr(start.size()));
    return found;
}

std::set<std::optional<std::string>> MemoryFileSystem::afterPowerCut(const std::string& path) const {
    std::set<std::optional<std::string>> found;
    for (const Names& names : namesSinceSync_) {
        const auto node = names.find(path);
        if (node == names.end())
            found.insert(std::nullopt);
        else
            found.insert(node->second->afterPowerCut.begin(), node->second->afterPowerCut.end());
    }
    return found;
}

/// The nodes that the names lead to, in every mixture of the ways in which each could be kept.
std::vector<MemoryFileSystem::Nodes> MemoryFileSystem::waysToKeep(const Names& names) {
    std::vector<Nodes> mixtures = {{}};
    for (const auto& [path, node] : names) {
        std::vector<Nodes> more;
        for (const Nodes& mixture : mixtures) {
            if (mixture.contains(node.get()))
                more.push_back(mixture);
            else
                for (const auto& kept : node->waysToKeep())
                    more.emplace_back(mixture).emplace(node.get(), kept);
        }
        mixtures = std::move(more);
    }
    return mixtures;
}

std::vector<std::unique_ptr<MemoryFileSystem>> MemoryFileSystem::disksAfterPowerCut() const {
    std::vector<std::unique_ptr<MemoryFileSystem>> disks;
    for (const Names& names : namesSinceSync_)
        for (const Nodes& nodes : waysToKeep(names)) {
            auto disk = std::make_unique<MemoryFileSystem>();
            disk->names_.clear();
            for (const auto& [node, kept] : nodes)
                kept->status.links = 0;
            for (const auto& [path, node] : names) {
                disk->names_[path] = nodes.at(node.get());
                ++disk->names_[path]->status.links;
            }
            disk->namesSinceSync_ = {disk->names_};
            disk->nextInode_ = nextInode_;
            disk->actAs(user_, group_);
            disks.push_back(std::move(disk));
        }
    return disks;
}

void MemoryFileSystem::record(const std::string& call) {
    calls_.push_back(call);
}

std::string MemoryFileSystem::pathOf(FileHandle file) const {
    const auto handle = handles_.find(file);
    return handle == handles_.end() ? "?" : withoutTemporaryName(handle->second.path);
}

std::shared_ptr<MemoryFileSystem::Node> MemoryFileSystem::find(std::string path, Links links,
                                                               std::error_code& error) const {
    for (int followed = 0; followed < 40; ++followed) {
        const auto found = names_.find(path);
        if (found == names_.end()) {
            error = failure(std::errc::no_such_file_or_directory);
            return nullptr;
        }
        const auto& node = found->second;
        if (node->status.kind != FileKind::Link || links == Links::NoFollow)
            return node;
        path = node->text.starts_with('/') ? node->text : platform::folderOf(path) + '/' + node->text;
    }
    error = failure(std::errc::too_many_symbolic_link_levels);
    return nullptr;
}

std::shared_ptr<MemoryFileSystem::Node> MemoryFileSystem::makeNode(FileKind kind, unsigned mode) {
    auto node = std::make_shared<Node>();
    node->status = {
        .kind = kind, .mode = mode, .owner = user_, .group = group_, .device = 1, .inode = nextInode_++};
    node->synced = node->status;
    return node;
}

/// Whether the folder of the path is there and lets its names be changed.
std::error_code MemoryFileSystem::mayChange(const std::string& path) const {
    std::error_code error;
    const auto folder = find(platform::folderOf(path), Links::Follow, error);
    if (!folder)
        return error;
    if (folder->status.kind != FileKind::Folder)
        return failure(std::errc::not_a_directory);
    const bool writable = user_ == 0 || (folder->status.mode & (user_ == folder->status.owner ? 0200 : 0002));
    return writable ? std::error_code() : failure(std::errc::permission_denied);
}

std::error_code MemoryFileSystem::add(const std::string& path, const std::shared_ptr<Node>& node) {
    if (std::error_code error = mayChange(path))
        return error;
    if (names_.contains(path))
        return failure(std::errc::file_exists);
    names_[path] = node;
    ++node->status.links;
    namesSinceSync_.push_back(names_);
    return {};
}

std::error_code MemoryFileSystem::openExisting(const std::string& path, Links links, bool writable,
                                               FileHandle& file) {
    std::error_code error;
    const auto node = find(path, links, error);
    if (!node)
        return error;
    if (node->status.kind == FileKind::Link)
        return failure(std::errc::too_many_symbolic_link_levels);
    if (node->status.kind != FileKind::Regular)
        return failure(std::errc::is_a_directory);
    file = nextHandle_++;
    handles_[file] = {node, path, writable};
    return {};
}

void MemoryFileSystem::unname(const std::string& path) {
    const auto found = names_.find(path);
    if (found == names_.end())
        return;
    --found->second->status.links;
    names_.erase(found);
}

std::size_t MemoryFileSystem::used() const {
    std::size_t sum = 0;
    for (const auto& [path, node] : names_)
        sum += node->status.kind == FileKind::Regular ? node->text.size() : 0;
    return sum;
}

std::error_code MemoryFileSystem::status(const std::string& path, Links links, FileStatus& status) {
    std::error_code error;
    if (const auto node = find(path, links, error))
        status = node->status;
    return error;
}

std::error_code MemoryFileSystem::status(FileHandle file, FileStatus& status) {
    const auto handle = handles_.find(file);
    if (handle == handles_.end())
        return failure(std::errc::bad_file_descriptor);
    status = handle->second.node->status;
    return {};
}

std::error_code MemoryFileSystem::readLink(const std::string& path, std::string& target) {
    std::error_code error;
    const auto node = find(path, Links::NoFollow, error);
    if (!node)
        return error;
    if (node->status.kind != FileKind::Link)
        return failure(std::errc::invalid_argument);
    target = node->text;
    return {};
}

std::error_code MemoryFileSystem::resolve(const std::string& path, std::string& resolved) {
    std::error_code error;
    const auto node = find(path, Links::Follow, error);
    for (const auto& [name, other] : names_)
        if (node && other == node)
            resolved = name;
    return error;
}

std::error_code MemoryFileSystem::findReadable(const std::string& path, std::shared_ptr<Node>& node) const {
    std::error_code error;
    const auto found = find(path, Links::Follow, error);
    if (!found)
        return error;
    if (found->status.kind != FileKind::Regular)
        return failure(std::errc::is_a_directory);
    if (user_ != 0 && !(found->status.mode & (user_ == found->status.owner ? 0400 : 0004)))
        return failure(std::errc::permission_denied);
    node = found;
    return {};
}

std::error_code MemoryFileSystem::readFile(const std::string& path, std::size_t maximum, std::string& bytes) {
    std::shared_ptr<Node> node;
    if (std::error_code error = findReadable(path, node))
        return error;
    if (node->text.size() > maximum)
        return failure(std::errc::file_too_large);
    bytes = node->text;
    return {};
}

std::error_code MemoryFileSystem::compareFile(const std::string& path, std::string_view bytes, bool& same) {
    std::shared_ptr<Node> node;
    if (std::error_code error = findReadable(path, node))
        return error;
    same = node->text == bytes;
    return {};
}

std::error_code MemoryFileSystem::list(const std::string& folder, std::vector<std::string>& found) {
    std::error_code error;
    if (find(folder, Links::Follow, error))
        found = names(folder);
    return error;
}

std::error_code MemoryFileSystem::create(const std::string& path, unsigned mode, FileHandle& file) {
    record("create " + withoutTemporaryName(path));
    const auto node = makeNode(FileKind::Regular, mode);
    if (std::error_code error = add(path, node))
        return error;
    file = nextHandle_++;
    handles_[file] = {node, path, true};
    return {};
}

std::error_code MemoryFileSystem::open(const std::string& path, FileHandle& file) {
    return openExisting(path, Links::NoFollow, false, file);
}

std::error_code MemoryFileSystem::openToAppend(const std::string& path, FileHandle& file) {
    record("open to append " + withoutTemporaryName(path));
    return openExisting(path, Links::Follow, true, file);
}

std::error_code MemoryFileSystem::lock(FileHandle file) {
    record("lock " + pathOf(file));
    const auto handle = handles_.find(file);
    if (handle == handles_.end())
        return failure(std::errc::bad_file_descriptor);
    const auto [holder, taken] = locks_.try_emplace(handle->second.node.get(), file);
    return taken || holder->second == file ? std::error_code() : failure(std::errc::operation_would_block);
}

std::error_code MemoryFileSystem::write(FileHandle file, std::string_view bytes, std::size_t& written) {
    record("write " + pathOf(file));
    const auto handle = handles_.find(file);
    if (handle == handles_.end() || !handle->second.writable)
        return failure(std::errc::bad_file_descriptor);
    const std::size_t room = capacity_ - std::min(capacity_, used());
    if (room == 0 && !bytes.empty())
        return failure(std::errc::no_space_on_device);
    written = std::min(room, bytes.size());
    Node& node = *handle->second.node;
    node.text += bytes.substr(0, written);
    node.status.size = node.text.size();
    node.afterPowerCut.insert(node.text.substr(0, node.text.size() / 2));
    node.afterPowerCut.insert(node.text);
    return {};
}

std::error_code MemoryFileSystem::setMode(FileHandle file, unsigned mode) {
    record("setMode " + pathOf(file));
    handles_.at(file).node->status.mode = mode;
    return {};
}

std::error_code MemoryFileSystem::setOwner(FileHandle file, std::uint32_t owner, std::uint32_t group) {
    record("setOwner " + pathOf(file));
    FileStatus& status = handles_.at(file).node->status;
    if (user_ != 0 && (owner != status.owner || group != group_))
        return failure(std::errc::operation_not_permitted);
    status.owner = owner;
    status.group = group;
    return {};
}

std::error_code MemoryFileSystem::setGroup(FileHandle file, std::uint32_t group) {
    record("setGroup " + pathOf(file));
    if (user_ != 0 && group != group_)
        return failure(std::errc::operation_not_permitted);
    handles_.at(file).node->status.group = group;
    return {};
}

std::error_code MemoryFileSystem::sync(FileHandle file, Sync sync) {
    record((sync == Sync::Full ? "sync all of " : "sync data of ") + pathOf(file));
    Node& node = *handles_.at(file).node;
    node.afterPowerCut = {node.text};
    if (sync == Sync::Full)
        node.synced = node.status;
    return {};
}

std::error_code MemoryFileSystem::close(FileHandle file) {
    record("close " + pathOf(file));
    std::erase_if(locks_, [&](const auto& lock) { return lock.second == file; });
    return handles_.erase(file) ? std::error_code() : failure(std::errc::bad_file_descriptor);
}

std::error_code MemoryFileSystem::rename(const std::string& from, const std::string& to) {
    record("rename " + withoutTemporaryName(from) + " " + withoutTemporaryName(to));
    if (std::error_code error = mayChange(to))
        return error;
    const auto moved = names_.find(from);
    if (moved == names_.end())
        return failure(std::errc::no_such_file_or_directory);
    const auto node = moved->second;
    names_.erase(moved);
    unname(to);
    names_[to] = node;
    namesSinceSync_.push_back(names_);
    return {};
}

std::error_code MemoryFileSystem::link(const std::string& file, const std::string& name) {
    record("link " + withoutTemporaryName(file) + " " + withoutTemporaryName(name));
    std::error_code error;
    const auto node = find(file, Links::NoFollow, error);
    return node ? add(name, node) : error;
}

std::error_code MemoryFileSystem::makeSymbolicLink(const std::string& target, const std::string& path) {
    record("makeSymbolicLink " + path);
    const auto node = makeNode(FileKind::Link, 0777);
    node->text = target;
    return add(path, node);
}

std::error_code MemoryFileSystem::syncFolder(const std::string& folder) {
    record("syncFolder " + folder);
    // The names of other folders stay as uncertain as they were.
    const auto isInside = [&folder](const auto& name) { return platform::folderOf(name.first) == folder; };
    std::vector<Names> since;
    for (Names& names : namesSinceSync_) {
        std::erase_if(names, isInside);
        std::copy_if(names_.begin(), names_.end(), std::inserter(names, names.end()), isInside);
        if (since.empty() || since.back() != names)
            since.push_back(std::move(names));
    }
    namesSinceSync_ = std::move(since);
    return {};
}

std::error_code MemoryFileSystem::remove(const std::string& path) {
    record("remove " + withoutTemporaryName(path));
    if (std::error_code error = mayChange(path))
        return error;
    if (!names_.contains(path))
        return failure(std::errc::no_such_file_or_directory);
    unname(path);
    namesSinceSync_.push_back(names_);
    return {};
}

std::error_code MemoryFileSystem::makeFolder(const std::string& path, unsigned mode) {
    record("makeFolder " + path);
    return add(path, makeNode(FileKind::Folder, mode));
}

} // namespace wardlock::test
