#pragma once

#include "platform/preferences/PSSpecifier.h"

namespace platform {

/// A row with a text field.
class WARDLOCK_API PSTextFieldSpecifier : public PSSpecifier {
public:
    static std::shared_ptr<PSTextFieldSpecifier>
    preferenceSpecifierNamed(std::string name, const std::shared_ptr<Object>& target, SetAction set,
                             GetAction get, const Class* detail, PSCellType cell, const Class* edit);
    ~PSTextFieldSpecifier() override;

    const std::string& placeholder() const { return placeholder_; }
    void setPlaceholder(std::string placeholder) { placeholder_ = std::move(placeholder); }

private:
    using PSSpecifier::PSSpecifier;

    std::string placeholder_;
};

} // namespace platform
