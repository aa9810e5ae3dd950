#include "platform/ui/UIImage.h"

#include <fstream>

namespace platform {

UIImage::~UIImage() = default;

std::shared_ptr<UIImage> UIImage::imageWithContentsOfFile(std::string_view path) {
    std::string name(path);
    if (std::ifstream file(name, std::ios::binary); !file || file.peek() == std::ifstream::traits_type::eof())
        return nullptr;
    return std::make_shared<UIImage>(std::move(name), std::string());
}

} // namespace platform
