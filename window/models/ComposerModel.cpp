#include "window/models/ComposerModel.h"

#include "window/models/ComposedText.h"
#include "window/models/IgnoredResult.h"
#include "window/models/Text.h"

#include <QVariantMap>

namespace wardlock::window {

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
    ignoreResult(input_.setRecipients(std::move(all)));
}

void ComposerModel::setSubject(const QString& subject) {
    ignoreResult(input_.setSubject(subject.toStdString()));
}

void ComposerModel::setBody(const QString& body) {
    ignoreResult(input_.setBody(body.toStdString()));
}

void ComposerModel::removeAttachment(int index) {
    ignoreResult(input_.removeAttachment(static_cast<std::size_t>(index)));
}

QString ComposerModel::attachmentText(int index) const {
    const auto& all = composer_->message().attachments;
    const auto place = static_cast<std::size_t>(index);
    return place < all.size() ? shownText(all[place].data, longestPage) : QString();
}

void ComposerModel::finishTyping() {
    commitComposedText();
}

void ComposerModel::send() {
    commitComposedText();
    ignoreResult(input_.sendMail());
}

void ComposerModel::cancel() {
    ignoreResult(input_.cancelMail());
}

} // namespace wardlock::window
