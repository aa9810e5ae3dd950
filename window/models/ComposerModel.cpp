#include "window/models/ComposerModel.h"

#include "window/models/Refused.h"
#include "window/models/Text.h"

#include <QVariantMap>

namespace wardlock::app {

QString ComposerModel::recipients() const {
    QStringList all;
    for (const auto& recipient : composer_->message().recipients)
        all.append(toQt(recipient));
    return all.join(QStringLiteral(", "));
}

QString ComposerModel::subject() const {
    return toQt(composer_->message().subject);
}

QString ComposerModel::body() const {
    return toQt(composer_->message().body);
}

QVariantList ComposerModel::attachments() const {
    QVariantList all;
    for (const auto& attachment : composer_->message().attachments)
        all.append(QVariantMap{{QStringLiteral("name"), toQt(attachment.fileName)},
                               {QStringLiteral("size"), static_cast<qulonglong>(attachment.data.size())}});
    return all;
}

bool ComposerModel::isSending() const {
    return composer_->isSending();
}

void ComposerModel::setRecipients(const QString& recipients) {
    std::vector<std::string> all;
    for (const QString& recipient : recipients.split(QLatin1Char(','), Qt::SkipEmptyParts))
        if (!recipient.trimmed().isEmpty())
            all.push_back(recipient.trimmed().toStdString());
    refusedIsFine(input_.setRecipients(std::move(all)));
}

void ComposerModel::setSubject(const QString& subject) {
    refusedIsFine(input_.setSubject(subject.toStdString()));
}

void ComposerModel::setBody(const QString& body) {
    refusedIsFine(input_.setBody(body.toStdString()));
}

void ComposerModel::removeAttachment(int index) {
    refusedIsFine(input_.removeAttachment(static_cast<std::size_t>(index)));
}

void ComposerModel::send() {
    refusedIsFine(input_.sendMail());
}

void ComposerModel::cancel() {
    refusedIsFine(input_.cancelMail());
}

} // namespace wardlock::app
