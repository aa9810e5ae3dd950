#include "platform/files/FileSystem.h"

#include "platform/base/CurrentService.h"

namespace platform {

namespace {

constinit CurrentService<FileSystem> currentFiles(FileSystem::native);

} // namespace

FileSystem::~FileSystem() = default;

FileSystem& FileSystem::current() {
    return currentFiles.get();
}

void FileSystem::setCurrent(FileSystem* files) {
    currentFiles.set(files);
}

std::error_code FileSystem::compareFile(const std::string& path, std::string_view bytes, bool& same) {
    std::string read;
    const std::error_code error = readFile(path, bytes.size(), read);
    if (error && error != std::errc::file_too_large)
        return error;
    same = !error && read == bytes;
    return {};
}

std::error_code FileSystem::copyAccessList(const std::string&, FileHandle) {
    return {};
}

std::error_code makeFolders(FileSystem& files, const std::string& path, unsigned mode) {
    std::error_code error = uninterrupted([&] { return files.makeFolder(path, mode); });
    if (error == std::errc::no_such_file_or_directory && folderOf(path) != path) {
        error = makeFolders(files, folderOf(path), mode);
        if (!error)
            error = uninterrupted([&] { return files.makeFolder(path, mode); });
    }
    if (error != std::errc::file_exists)
        return error;
    FileStatus status;
    if (std::error_code failed = files.status(path, Links::Follow, status))
        return failed;
    return status.kind == FileKind::Folder ? std::error_code() : error;
}

std::error_code writeAll(FileSystem& files, FileHandle file, std::string_view bytes) {
    while (!bytes.empty()) {
        std::size_t written = 0;
        if (std::error_code error = uninterrupted([&] { return files.write(file, bytes, written); }))
            return error;
        // A write that takes nothing and reports no error would go on for ever.
        if (written == 0)
            return std::make_error_code(std::errc::io_error);
        bytes.remove_prefix(written);
    }
    return {};
}

std::error_code appendToFile(FileSystem& files, const std::string& path, std::string_view bytes) {
    FileHandle file = noFile;
    if (std::error_code error = uninterrupted([&] { return files.openToAppend(path, file); }))
        return error;
    const std::error_code failed = writeAll(files, file, bytes);
    const std::error_code closed = files.close(file);
    return failed ? failed : closed;
}

std::string linkDestination(const std::string& link, const std::string& text) {
    if (text.starts_with('/'))
        return text;
    const std::string folder = folderOf(link);
    return folder.ends_with('/') ? folder + text : folder + '/' + text;
}

std::error_code followLinks(FileSystem& files, std::string& path, FileStatus& status) {
    for (int links = 0; links <= longestLinkChain; ++links) {
        if (std::error_code error =
                uninterrupted([&] { return files.status(path, Links::NoFollow, status); }))
            return error;
        if (status.kind != FileKind::Link)
            return {};
        std::string text;
        if (std::error_code error = uninterrupted([&] { return files.readLink(path, text); }))
            return error;
        path = linkDestination(path, text);
    }
    return std::make_error_code(std::errc::too_many_symbolic_link_levels);
}

std::string folderOf(const std::string& path) {
    const std::size_t end = path.find_last_not_of('/');
    const std::size_t slash = end == std::string::npos ? end : path.rfind('/', end);
    if (slash == std::string::npos)
        return path.starts_with('/') ? "/" : ".";
    const std::size_t last = path.find_last_not_of('/', slash);
    return last == std::string::npos ? "/" : path.substr(0, last + 1);
}

} // namespace platform
