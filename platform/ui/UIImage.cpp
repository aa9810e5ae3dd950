#include "platform/ui/UIImage.h"

#include "platform/base/Diagnostics.h"
#include "platform/files/FileSystem.h"

#include <utility>

namespace platform {

UIImage::~UIImage() = default;

const std::string& UIImage::path() const {
    if (const auto search = std::exchange(search_, {}))
        path_ = search();
    return path_;
}

std::shared_ptr<UIImage> UIImage::imageWithContentsOfFile(std::string_view path) {
    std::string name(path);
    // Never opens a pipe or a device, at which a reader could wait for ever.
    std::string bytes;
    const std::error_code error = FileSystem::current().readFile(name, largestFile, bytes);
    if (error && error != std::errc::no_such_file_or_directory)
        diagnose("The picture " + name + " is left out: " + error.message() + '.');
    if (error || bytes.empty())
        return nullptr;
    return std::make_shared<UIImage>(std::move(name), std::string());
}

} // namespace platform
