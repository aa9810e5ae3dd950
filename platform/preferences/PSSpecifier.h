#pragma once

#include "platform/base/Object.h"
#include "platform/runtime/Class.h"
#include "platform/ui/UIImage.h"
#include "platform/values/Selector.h"
#include "platform/values/Value.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace platform {

enum class PSCellType : int {
    Group = 0,
    Link = 1,
    LinkList = 2,
    Slider = 5,
    Switch = 6,
    StaticText = 7,
    EditText = 8,
    SecureEditText = 12,
    Button = 13,
};

enum class UIKeyboardType : int { Default = 0, NumberPad = 4 };

/// The names of the properties from which rows are built.
namespace PSKey {
inline constexpr const char* id = "id";
inline constexpr const char* footerText = "footerText";
inline constexpr const char* min = "min";
inline constexpr const char* max = "max";
inline constexpr const char* showValue = "showValue";
inline constexpr const char* iconImage = "iconImage";
inline constexpr const char* defaultValue = "default";
/// A boolean; a row without it is enabled.
inline constexpr const char* enabled = "enabled";
} // namespace PSKey

/// The record of one row or group of a list page. The target is not retained. When it is gone, reading
/// returns nothing, and storing and acting have no effect.
class WARDLOCK_API PSSpecifier : public Object {
public:
    using SetAction = Selector<void(const Value* value, PSSpecifier& specifier)>;
    using GetAction = Selector<std::optional<Value>(PSSpecifier& specifier)>;
    using ButtonAction = Selector<void(PSSpecifier& specifier)>;
    /// A property is empty, a value or an image.
    using Property = std::variant<std::monostate, Value, std::shared_ptr<UIImage>>;

    static std::shared_ptr<PSSpecifier>
    preferenceSpecifierNamed(std::string name, const std::shared_ptr<Object>& target, SetAction set,
                             GetAction get, const Class* detail, PSCellType cell, const Class* edit);
    ~PSSpecifier() override;

    const std::string& name() const { return name_; }
    void setName(std::string name) { name_ = std::move(name); }
    std::shared_ptr<Object> target() const { return target_.lock(); }
    SetAction setAction() const { return set_; }
    GetAction getAction() const { return get_; }
    /// The page that a tap pushes; null for none.
    const Class* detailControllerClass() const { return detail_; }
    const Class* editPaneClass() const { return edit_; }
    PSCellType cellType() const { return cell_; }
    ButtonAction buttonAction() const { return action_; }
    void setButtonAction(ButtonAction action) { action_ = action; }

    /// The key of the stored value: the property "id", a string.
    std::string identifier() const;
    void setIdentifier(std::string_view identifier);
    const Property& propertyForKey(std::string_view key) const;
    void setProperty(Property property, std::string_view key);
    /// Returns the property when it is a value; null otherwise.
    const Value* valueForKey(std::string_view key) const;
    /// Returns the property when it is an image; null otherwise.
    std::shared_ptr<UIImage> imageForKey(std::string_view key) const;

    /// The choices of a link list.
    void setValues(std::vector<Value> values, std::vector<std::string> titles,
                   std::vector<std::string> shortTitles);
    const std::vector<Value>& values() const { return values_; }
    const std::vector<std::string>& titles() const { return titles_; }
    const std::vector<std::string>& shortTitles() const { return shortTitles_; }

    /// Text fields.
    void setKeyboardType(UIKeyboardType type, int autoCaps, int autoCorrection);
    UIKeyboardType keyboardType() const { return keyboardType_; }
    int autoCaps() const { return autoCaps_; }
    int autoCorrection() const { return autoCorrection_; }

    /// Returns the value to show, through the get action.
    std::optional<Value> performGetter();
    /// Stores what a person chose, through the set action.
    void performSetter(const Value* value);
    void performButtonAction();

protected:
    PSSpecifier(std::string name, std::weak_ptr<Object> target, SetAction set, GetAction get,
                const Class* detail, PSCellType cell, const Class* edit);

private:
    std::string name_;
    std::weak_ptr<Object> target_;
    SetAction set_;
    GetAction get_;
    const Class* detail_;
    PSCellType cell_;
    const Class* edit_;
    ButtonAction action_;
    std::map<std::string, Property, std::less<>> properties_;
    std::vector<Value> values_;
    std::vector<std::string> titles_;
    std::vector<std::string> shortTitles_;
    UIKeyboardType keyboardType_ = UIKeyboardType::Default;
    int autoCaps_ = 1;
    int autoCorrection_ = 1;
};

} // namespace platform
