#include "bench/CopiedFile.h"

#include <cstdlib>

namespace wardlock::bench {

CopiedFile::CopiedFile(const std::filesystem::path& original) {
    std::string name = std::filesystem::temp_directory_path() / "wardlock-bench.XXXXXX";
    if (!mkdtemp(name.data()))
        std::abort();
    folder_ = name;
    path_ = folder_ / original.filename();
    std::filesystem::copy_file(original, path_);
}

CopiedFile::~CopiedFile() {
    std::filesystem::remove_all(folder_);
}

} // namespace wardlock::bench
