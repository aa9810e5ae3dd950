#pragma once

#include "platform/ui/UIAlertController.h"
#include "shell/input/SheetInput.h"

#include <QObject>
#include <QVariantList>

#include <memory>

namespace wardlock::window {

/// The alert over the page, for QML.
class AlertModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString message READ message CONSTANT)
    /// Placeholders, one for each text field.
    Q_PROPERTY(QStringList fields READ fields CONSTANT)
    /// Maps of title, style ("default", "cancel", "destructive") and enabled.
    Q_PROPERTY(QVariantList actions READ actions NOTIFY changed)

public:
    AlertModel(std::shared_ptr<platform::UIAlertController> alert, shell::SheetInput& input)
        : alert_(std::move(alert)), input_(input) {}

    QString title() const;
    QString message() const;
    QStringList fields() const;
    QVariantList actions() const;
    bool shows(const std::shared_ptr<platform::UIAlertController>& alert) const { return alert_ == alert; }

    Q_INVOKABLE void type(int field, const QString& text);
    Q_INVOKABLE void choose(int action);

signals:
    void changed();

private:
    std::shared_ptr<platform::UIAlertController> alert_;
    shell::SheetInput& input_;
};

} // namespace wardlock::window
