#include "window/models/AlertModel.h"

#include "window/models/ComposedText.h"
#include "window/models/IgnoredResult.h"
#include "window/models/Text.h"

#include <QVariantMap>

namespace wardlock::window {

namespace {

QString styleName(platform::UIAlertActionStyle style) {
    switch (style) {
    case platform::UIAlertActionStyle::Cancel:
        return QStringLiteral("cancel");
    case platform::UIAlertActionStyle::Destructive:
        return QStringLiteral("destructive");
    default:
        return QStringLiteral("default");
    }
}

} // namespace

QString AlertModel::title() const {
    return shownText(alert_->title());
}

QString AlertModel::message() const {
    return shownText(alert_->message());
}

QStringList AlertModel::fields() const {
    QStringList placeholders;
    for (const auto& field : alert_->textFields())
        placeholders.append(shownText(field->placeholder()));
    return placeholders;
}

QVariantList AlertModel::actions() const {
    QVariantList actions;
    for (const auto& action : alert_->actions())
        actions.append(QVariantMap{{QStringLiteral("title"), shownText(action->title())},
                                   {QStringLiteral("style"), styleName(action->style())},
                                   {QStringLiteral("enabled"), action->isEnabled()}});
    return actions;
}

void AlertModel::type(int field, const QString& text) {
    ignoreResult(input_.typeIntoAlert(static_cast<std::size_t>(field), text.toStdString()));
}

void AlertModel::choose(int action) {
    commitComposedText();
    ignoreResult(input_.chooseAlertAction(static_cast<std::size_t>(action)));
}

} // namespace wardlock::window
