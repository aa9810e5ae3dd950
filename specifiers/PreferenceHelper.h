#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/preferences/PSTextFieldSpecifier.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock {

/// Creates the rows of a list page, so that the page's own code reads as a plain list of them. A page keeps
/// its helper for as long as its rows live: the helper of initWithBundleIdentifier binds rows to itself. It
/// then reads and writes top-level keys of the preferences document. The target is not retained. Nothing is
/// validated: empty titles, identifiers and null classes are passed on as they are. Main thread only.
class PreferenceHelper : public platform::Object {
public:
    using PSSpecifier = platform::PSSpecifier;
    using SetAction = PSSpecifier::SetAction;
    using GetAction = PSSpecifier::GetAction;
    using ButtonAction = PSSpecifier::ButtonAction;
    using Row = std::shared_ptr<PSSpecifier>;
    using TextRow = std::shared_ptr<platform::PSTextFieldSpecifier>;

    /// Binds rows to the document of the bundle identifier. Changes are announced under `post` unless it is
    /// empty. Installs the exception report as the process's uncaught-exception handler.
    static std::shared_ptr<PreferenceHelper> initWithBundleIdentifier(std::string identifier,
                                                                      std::string post);
    /// Binds rows to accessors of the target.
    static std::shared_ptr<PreferenceHelper> initWithTarget(const std::shared_ptr<platform::Object>& target,
                                                            SetAction set, GetAction get);
    ~PreferenceHelper() override;

    /// Changing these affects only the rows created afterwards.
    std::shared_ptr<platform::Object> target() const { return target_.lock(); }
    void setTarget(const std::shared_ptr<platform::Object>& target) { target_ = target; }
    SetAction setAction() const { return setAction_; }
    void setSetAction(SetAction action) { setAction_ = action; }
    GetAction getAction() const { return getAction_; }
    void setGetAction(GetAction action) { getAction_ = action; }
    const std::string& identifier() const { return identifier_; }
    void setIdentifier(std::string identifier) { identifier_ = std::move(identifier); }
    /// Empty: changes are not announced.
    const std::string& post() const { return post_; }
    void setPost(std::string post) { post_ = std::move(post); }

    /// Groups.
    Row header(std::string title);
    Row header(std::string title, std::string_view footerText);
    Row footer(std::string_view footerText);
    Row spacer();

    /// Rows without a value.
    Row button(std::string title, const std::shared_ptr<platform::Object>& target, ButtonAction action);
    Row button(std::string title, ButtonAction action);
    Row link(std::string title, const platform::Class* detail);
    /// Its target is the helper itself, whatever target() is.
    Row staticText(std::string title);

    /// Rows with a value. Sliders and text fields carry no label: their first argument is the identifier and
    /// the placeholder.
    Row link(std::string title, std::string_view identifier, const std::vector<std::string>& titles,
             std::vector<platform::Value> values);
    Row toggle(std::string title, std::string_view identifier);
    Row toggle(std::string title, std::string_view identifier, SetAction set, GetAction get);
    Row slider(std::string_view identifier, float min, float max);
    Row slider(std::string_view identifier, float min, float max, bool showValue);
    TextRow field(std::string placeholder, std::string_view identifier, bool secure);
    TextRow field(std::string placeholder, std::string_view identifier);
    TextRow numberField(std::string placeholder, std::string_view identifier, bool secure);

    /// Gives the row an icon of the bundle that defines the target's class, with the extension "png" unless
    /// the file name has one. Returns the row.
    Row withIcon(Row specifier, std::string_view fileName);

    /// What rows bound to the helper itself read and store: a top-level key of the document as it is on disk
    /// at each call. Storing none throws NSInvalidArgumentException and writes nothing.
    std::optional<platform::Value> getValue(PSSpecifier& specifier);
    void setValue(const platform::Value* value, PSSpecifier& specifier);

private:
    PreferenceHelper() = default;

    std::weak_ptr<platform::Object> target_;
    SetAction setAction_;
    GetAction getAction_;
    std::string identifier_;
    std::string post_;
};

} // namespace wardlock
