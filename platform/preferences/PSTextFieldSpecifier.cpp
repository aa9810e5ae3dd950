#include "platform/preferences/PSTextFieldSpecifier.h"

namespace platform {

PSTextFieldSpecifier::~PSTextFieldSpecifier() = default;

std::shared_ptr<PSTextFieldSpecifier>
PSTextFieldSpecifier::preferenceSpecifierNamed(std::string name, const std::shared_ptr<Object>& target,
                                               SetAction set, GetAction get, const Class* detail,
                                               PSCellType cell, const Class* edit) {
    return std::shared_ptr<PSTextFieldSpecifier>(
        new PSTextFieldSpecifier(std::move(name), target, set, get, detail, cell, edit));
}

} // namespace platform
