#include "window/SettingsWindow.h"

#include "platform/runtime/MainLoop.h"
#include "window/models/ComposedText.h"
#include "window/models/IgnoredResult.h"
#include "window/models/Text.h"
#include "window/models/UserGuide.h"

namespace wardlock::window {

namespace {

/// Returns the message as a sentence: "Cannot create folder /x: Permission denied."
std::string sentence(std::string message) {
    if (!message.empty() && message[0] >= 'a' && message[0] <= 'z')
        message[0] = static_cast<char>(message[0] - 'a' + 'A');
    return message + '.';
}

/// Makes `model` show `shown`, creating and destroying it as needed. Returns whether it is another model now.
template <class Model, class Shown>
bool follow(std::unique_ptr<Model>& model, const Shown& shown, bool present, shell::SheetInput& input) {
    if (model && present && model->shows(shown)) {
        emit model->changed();
        return false;
    }
    const bool had = model != nullptr;
    if (had)
        model.release()->deleteLater();
    if (present)
        model = std::make_unique<Model>(shown, input);
    return had || present;
}

} // namespace

SettingsWindow::SettingsWindow(platform::AnimationClock& clock, double transitionSeconds)
    : transitionSeconds_(transitionSeconds), application_(clock, transitionSeconds),
      actions_(application_.screen()), pages_(application_, actions_, engine_),
      loop_(platform::MainLoop::shared().descriptor(), QSocketNotifier::Read) {
    subscription_ = application_.observe(*this);
    connect(&loop_, &QSocketNotifier::activated, this, [this] { application_.process(); });
    pages_.follow(false);
}

SettingsWindow::~SettingsWindow() = default;

QString SettingsWindow::title() const {
    const QString application = QCoreApplication::translate("Window", "Settings");
    const auto* page = pages_.top();
    return page && !page->backTitle().isEmpty() ? page->title() + QStringLiteral(" – ") + application
                                                : application;
}

QString SettingsWindow::notice() {
    const QString own = shownText(application_.screen().notice());
    return own.isEmpty() ? problems_ : own;
}

QString SettingsWindow::offer() {
    const auto& offer = application_.screen().offer();
    return offer ? shownText(offer->text) : QString();
}

QString SettingsWindow::offeredAction() {
    const auto& offer = application_.screen().offer();
    if (!offer)
        return {};
    return offer->kind == shell::Offer::Kind::Undo ? QStringLiteral("undo") : QStringLiteral("restore");
}

void SettingsWindow::showProblems(const std::vector<std::string>& problems) {
    QStringList lines;
    for (const std::string& problem : problems)
        lines.append(shownText(sentence(problem)));
    problems_ = lines.join(QLatin1Char('\n'));
    emit noticeChangedForQml();
}

void SettingsWindow::goBack() {
    commitComposedText();
    actions_.perform(*this, [this] { ignoreResult(application_.page().goBack()); });
}

void SettingsWindow::tapBarButton() {
    commitComposedText();
    actions_.perform(*this, [this] { ignoreResult(application_.page().tapBarButton()); });
}

void SettingsWindow::endEditing() {
    application_.page().endEditing();
}

void SettingsWindow::dismissNotice() {
    if (application_.screen().notice().empty()) {
        problems_.clear();
        emit noticeChangedForQml();
    }
    application_.dismissNotice();
}

QString SettingsWindow::userGuide() const {
    return userGuideText();
}

void SettingsWindow::undo() {
    commitComposedText();
    ignoreResult(application_.history().undo());
}

void SettingsWindow::redo() {
    commitComposedText();
    ignoreResult(application_.history().redo());
}

void SettingsWindow::restore() {
    ignoreResult(application_.recovery().restore());
}

void SettingsWindow::resignActive() {
    commitComposedText();
    application_.resignActive();
}

bool SettingsWindow::storeTypedText() {
    commitComposedText();
    return application_.storeTypedText();
}

bool SettingsWindow::close() {
    if (!storeTypedText())
        return false;
    application_.close();
    return true;
}

void SettingsWindow::pagesChanged(bool animated) {
    pages_.follow(animated);
    emit titleChanged();
}

void SettingsWindow::transitionEnded() {
    pages_.transitionEnded();
    // The items follow the models first.
    QMetaObject::invokeMethod(
        this, [this] { actions_.deliver(); }, Qt::QueuedConnection);
    emit pagesRested();
}

void SettingsWindow::pageChanged(shell::Page& page) {
    pages_.barMayHaveChanged(page);
    emit titleChanged();
}

void SettingsWindow::listReset(shell::Page& page) {
    if (auto* model = pages_.find(page))
        model->listWasReset();
}

void SettingsWindow::rowChanged(shell::Page& page, platform::NSIndexPath path) {
    if (auto* model = pages_.find(page))
        model->rowWasChanged(path);
}

void SettingsWindow::rowInserted(shell::Page& page, platform::NSIndexPath, bool) {
    listReset(page);
}

void SettingsWindow::rowFound(shell::Page& page, platform::NSIndexPath path) {
    if (auto* model = pages_.find(page))
        model->rowWasFound(path);
}

void SettingsWindow::contentChanged(shell::Page& page) {
    if (auto* model = pages_.find(page))
        model->contentMayHaveChanged();
}

void SettingsWindow::tableRowChanged(shell::Page& page, platform::NSIndexPath path) {
    if (auto* model = pages_.find(page))
        model->tableRowWasChanged(path);
}

void SettingsWindow::overlayChanged() {
    const auto overlay = application_.screen().overlay();
    if (follow(keypad_, overlay.value_or(shell::Overlay{}), overlay.has_value(), application_.sheets()))
        emit keypadChanged();
}

void SettingsWindow::presentationChanged() {
    const auto alert = application_.screen().alert();
    const auto composer = application_.screen().composer();
    const bool alertIsAnother = follow(alert_, alert, alert != nullptr, application_.sheets());
    const bool composerIsAnother = follow(composer_, composer, composer != nullptr, application_.sheets());
    if (alertIsAnother || composerIsAnother)
        emit sheetsChanged();
}

void SettingsWindow::editingChanged() {
    if (auto* model = pages_.top())
        model->editingMayHaveChanged();
}

} // namespace wardlock::window
