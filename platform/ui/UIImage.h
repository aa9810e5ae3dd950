#pragma once

#include "platform/base/Object.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

/// A picture, not decoded: the encoded bytes or the path of a file of this machine. Whoever shows it decodes
/// it, within bounds of its own.
class WARDLOCK_API UIImage : public Object {
public:
    UIImage(std::string path, std::string bytes) : path_(std::move(path)), bytes_(std::move(bytes)) {}
    ~UIImage() override;

    /// Of a picture's file, in bytes; larger ones are not read.
    static constexpr std::size_t largestFile = std::size_t{4} << 20;

    /// The image in a file of this machine; null when there is none that can be read.
    static std::shared_ptr<UIImage> imageWithContentsOfFile(std::string_view path);

    /// Empty where the image has only bytes.
    const std::string& path() const { return path_; }
    /// PNG, JPEG or SVG; empty where the image has only a path.
    const std::string& bytes() const { return bytes_; }

private:
    std::string path_;
    std::string bytes_;
};

} // namespace platform
