#include "specifiers/PreferenceHelperAdditions.h"

#include "specifiers/PreferenceHelper.h"

#include <filesystem>
#include <optional>
#include <string>
#include <typeinfo>

namespace wardlock {
namespace {

std::shared_ptr<platform::UIImage> iconOfBundle(const platform::NSBundle& bundle, std::string_view fileName) {
    std::filesystem::path base(fileName);
    std::string extension = base.extension().string();
    base.replace_extension();
    // The extension includes its full stop; a name that ends in one has nothing after it.
    extension = extension.size() > 1 ? extension.substr(1) : "png";
    const auto path = bundle.pathForResource(base.string(), extension);
    return path ? platform::UIImage::imageWithContentsOfFile(*path) : nullptr;
}

} // namespace

std::shared_ptr<platform::PSSpecifier> addIcon(std::shared_ptr<platform::PSSpecifier> specifier,
                                               std::string_view fileName) {
    setIcon(*specifier, platform::NSBundle::bundleForClass(typeid(PreferenceHelper)).get(), fileName);
    return specifier;
}

void setIcon(platform::PSSpecifier& specifier, const platform::NSBundle* bundle, std::string_view fileName) {
    const auto image = bundle ? iconOfBundle(*bundle, fileName) : nullptr;
    specifier.setProperty(image ? platform::PSSpecifier::Property(image) : platform::PSSpecifier::Property(),
                          platform::PSKey::iconImage);
}

} // namespace wardlock
