#pragma once

#include "platform/base/Object.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

/// An image, not decoded: the encoded bytes or the path of a file of this machine. The front end that shows
/// it decodes it, within its own bounds.
class WARDLOCK_API UIImage : public Object {
public:
    UIImage(std::string path, std::string bytes) : path_(std::move(path)), bytes_(std::move(bytes)) {}
    /// An image whose file is searched for when its path is first requested. The search returns an empty path
    /// where there is no file.
    explicit UIImage(std::function<std::string()> search) : search_(std::move(search)) {}
    ~UIImage() override;

    /// Bytes of an image's file; larger ones are not read.
    static constexpr std::size_t largestFile = std::size_t{4} << 20;

    /// Returns the image in a file of this machine; null when it cannot be read.
    static std::shared_ptr<UIImage> imageWithContentsOfFile(std::string_view path);

    /// Empty where the image has only bytes, or none.
    const std::string& path() const;
    /// PNG, JPEG or SVG; empty where the image has only a path.
    const std::string& bytes() const { return bytes_; }
    /// Returns whether there is nothing to show.
    bool isEmpty() const { return bytes_.empty() && path().empty(); }

private:
    mutable std::string path_;
    std::string bytes_;
    mutable std::function<std::string()> search_;
};

} // namespace platform
