// The file calls alone: the lower bound of every program that replaces a file in one step.
#include "bench/SampleDocument.h"
#include "bench/SyncMode.h"
#include "bench/Timing.h"
#include "bench/peers/Peers.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace wardlock::bench {

namespace {

void require(bool done, const std::string& path) {
    if (!done) {
        std::perror(path.c_str());
        std::exit(1);
    }
}

void syncFolder(const std::string& path) {
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    require(folder >= 0 && fsync(folder) == 0, path);
    close(folder);
}

} // namespace

std::size_t readFile(const std::string& path, std::string& buffer) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status;
    require(file >= 0 && fstat(file, &status) == 0, path);
    buffer.resize(static_cast<std::size_t>(status.st_size));
    std::size_t length = 0;
    ssize_t count;
    while (length < buffer.size() && (count = read(file, buffer.data() + length, buffer.size() - length)) > 0)
        length += static_cast<std::size_t>(count);
    close(file);
    return length;
}

void replaceFile(const std::string& path, const std::string& bytes, platform::Sync sync) {
    const std::string temporary = path + ".tmp";
    const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    require(file >= 0, temporary);
    require(write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), temporary);
    if (sync != platform::Sync::None)
        require((sync == platform::Sync::Full ? fsync(file) : fdatasync(file)) == 0, temporary);
    close(file);
    require(rename(temporary.c_str(), path.c_str()) == 0, path);
    if (sync == platform::Sync::Full)
        syncFolder(std::filesystem::path(path).parent_path());
}

int measureFloor(const std::string& operation, const std::string& file, const std::string& mode) {
    std::string buffer;
    if (operation == "load")
        measure({"load", "floor", "open + read"}, [&] { keep(readFile(file, buffer)); });
    else if (operation == "rmw")
        measure({"rmw-" + mode, "floor", "read + write + rename"}, [&, sync = syncOf(mode)] {
            readFile(file, buffer);
            replaceFile(file, buffer, sync);
        });
    else if (operation == "rss")
        report({"rss", "floor", "the file's bytes"}, "KiB",
               {{static_cast<double>(std::filesystem::file_size(file)) / 1024}, {}});
    else
        return notOffered;
    return 0;
}

} // namespace wardlock::bench
