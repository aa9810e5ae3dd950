#pragma once

#include "platform/services/MFMailComposeViewController.h"
#include "shell/input/SheetInput.h"

#include <QObject>
#include <QStringList>
#include <QVariantList>

#include <memory>

namespace wardlock::window {

/// The mail sheet, for QML.
class ComposerModel : public QObject {
    Q_OBJECT
    /// Addresses, separated by commas.
    Q_PROPERTY(QString recipients READ recipients NOTIFY changed)
    Q_PROPERTY(QString subject READ subject NOTIFY changed)
    Q_PROPERTY(QString body READ body NOTIFY changed)
    /// Maps of name and size (in bytes).
    Q_PROPERTY(QVariantList attachments READ attachments NOTIFY changed)
    Q_PROPERTY(bool sending READ isSending NOTIFY changed)
    /// Whether the user changed anything.
    Q_PROPERTY(bool edited READ isEdited NOTIFY changed)

public:
    ComposerModel(std::shared_ptr<platform::MFMailComposeViewController> composer, shell::SheetInput& input)
        : composer_(std::move(composer)), input_(input), prepared_(composer_->message()) {}

    QString recipients() const;
    QString subject() const;
    QString body() const;
    QVariantList attachments() const;
    bool isSending() const;
    bool isEdited() const { return composer_->message() != prepared_; }
    bool shows(const std::shared_ptr<platform::MFMailComposeViewController>& composer) const {
        return composer_ == composer;
    }

    Q_INVOKABLE void setRecipients(const QString& recipients);
    Q_INVOKABLE void setSubject(const QString& subject);
    Q_INVOKABLE void setBody(const QString& body);
    Q_INVOKABLE void removeAttachment(int index);
    /// Returns the attachment as text, of a long one the beginning.
    Q_INVOKABLE QString attachmentText(int index) const;
    /// To be called before `edited` decides what is lost.
    Q_INVOKABLE void finishTyping();
    Q_INVOKABLE void send();
    Q_INVOKABLE void cancel();

signals:
    void changed();

private:
    std::shared_ptr<platform::MFMailComposeViewController> composer_;
    shell::SheetInput& input_;
    /// The mail as the page prepared it.
    const platform::MailMessage prepared_;
};

} // namespace wardlock::window
