#include "tests/robustness/faults/DiskImage.h"

#include "tests/support/doubles/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace wardlock::test {

namespace fs = std::filesystem;
using platform::FileKind;

namespace {

FileImage imageOf(const fs::path& path) {
    struct stat found {};
    EXPECT_EQ(::lstat(path.c_str(), &found), 0) << path;
    if (S_ISLNK(found.st_mode))
        return {.kind = FileKind::Link, .text = fs::read_symlink(path).string()};
    if (S_ISDIR(found.st_mode))
        return {FileKind::Folder, "", found.st_mode & 07777, found.st_uid, found.st_gid};
    EXPECT_TRUE(S_ISREG(found.st_mode)) << path;
    std::ifstream file(path, std::ios::binary);
    return {.kind = FileKind::Regular,
            .text = {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()},
            .mode = found.st_mode & 07777,
            .owner = found.st_uid,
            .group = found.st_gid};
}

void make(const fs::path& path, const FileImage& file) {
    if (file.kind == FileKind::Link) {
        fs::create_symlink(file.text, path);
        return;
    }
    if (file.kind == FileKind::Folder)
        fs::create_directory(path);
    else
        std::ofstream(path, std::ios::binary) << file.text;
    EXPECT_EQ(::chown(path.c_str(), file.owner, file.group), 0) << path;
    EXPECT_EQ(::chmod(path.c_str(), file.mode), 0) << path;
}

} // namespace

DiskImage DiskImage::of(const std::vector<std::string>& folders) {
    DiskImage image(folders);
    for (const std::string& folder : folders)
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            image.add(entry.path().string(), imageOf(entry.path()));
    return image;
}

DiskImage DiskImage::of(const MemoryFileSystem& disk, const std::vector<std::string>& folders) {
    DiskImage image(folders);
    for (const std::string& folder : folders)
        image.addAllOf(disk, folder);
    return image;
}

void DiskImage::addAllOf(const MemoryFileSystem& disk, const std::string& folder) {
    for (const std::string& name : disk.names(folder)) {
        const std::string path = folder + '/' + name;
        const auto status = disk.statusOf(path);
        const std::string text = disk.textOf(path);
        if (status->kind == FileKind::Link)
            add(path, {.kind = FileKind::Link, .text = text});
        else
            add(path, {status->kind, text, status->mode, status->owner, status->group});
        if (status->kind == FileKind::Folder)
            addAllOf(disk, path);
    }
}

void DiskImage::restore() const {
    for (const std::string& folder : folders_)
        for (const auto& entry : fs::directory_iterator(folder))
            fs::remove_all(entry.path());
    for (const auto& [path, file] : files_)
        make(path, file);
}

void DiskImage::restore(MemoryFileSystem& disk) const {
    for (const std::string& folder : folders_)
        disk.addFolder(folder);
    for (const auto& [path, file] : files_)
        if (file.kind == FileKind::Link)
            disk.addLink(path, file.text);
        else if (file.kind == FileKind::Folder)
            disk.addFolder(path, file.mode);
        else
            disk.addFile(path, file.text, file.mode, file.owner, file.group);
}

const FileImage* DiskImage::find(const std::string& path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? nullptr : &found->second;
}

std::optional<std::string> DiskImage::contents(const std::string& path) const {
    const FileImage* file = find(path);
    if (file && file->kind == FileKind::Link)
        file = find(file->text);
    return file ? std::optional(file->text) : std::nullopt;
}

std::vector<std::string> DiskImage::named(std::string_view text) const {
    std::vector<std::string> found;
    for (const auto& [path, file] : files_)
        if (path.find(text, path.rfind('/')) != std::string::npos)
            found.push_back(path);
    return found;
}

} // namespace wardlock::test
