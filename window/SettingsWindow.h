#pragma once

#include "shell/SettingsApplication.h"
#include "shell/screen/ScreenObserver.h"
#include "window/models/AlertModel.h"
#include "window/models/ComposerModel.h"
#include "window/models/KeptActions.h"
#include "window/models/KeypadModel.h"
#include "window/models/PagesModel.h"
#include "window/models/WindowWebEngine.h"

#include <QAccessible>
#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace wardlock::window {

/// Settings as QML sees them: what is on the screen, and what the user can do besides touching a page.
/// Observes the shell's changes and updates the models.
class SettingsWindow : public QObject, public shell::ScreenObserver {
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel* pages READ pages CONSTANT)
    Q_PROPERTY(double transitionSeconds READ transitionSeconds CONSTANT)
    /// The title of the page shown, and the application's name.
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    Q_PROPERTY(wardlock::window::AlertModel* alert READ alert NOTIFY sheetsChanged)
    Q_PROPERTY(wardlock::window::ComposerModel* composer READ composer NOTIFY sheetsChanged)
    Q_PROPERTY(wardlock::window::KeypadModel* keypad READ keypad NOTIFY keypadChanged)
    /// A sentence for the user, shown until it is dismissed; empty for none.
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChangedForQml)
    /// What Settings offers to do: a sentence, empty for none, and what its button does, "undo" or "restore".
    Q_PROPERTY(QString offer READ offer NOTIFY offerChangedForQml)
    Q_PROPERTY(QString offeredAction READ offeredAction NOTIFY offerChangedForQml)

public:
    /// The clock outlives this object.
    SettingsWindow(platform::AnimationClock& clock, double transitionSeconds);
    ~SettingsWindow() override;

    QAbstractItemModel* pages() { return &pages_; }
    double transitionSeconds() const { return transitionSeconds_; }
    QString title() const;
    AlertModel* alert() const { return alert_.get(); }
    ComposerModel* composer() const { return composer_.get(); }
    KeypadModel* keypad() const { return keypad_.get(); }
    QString notice();
    QString offer();
    QString offeredAction();
    shell::SettingsApplication& application() { return application_; }

    /// Shows what is wrong with the device root.
    void showProblems(const std::vector<std::string>& problems);

    Q_INVOKABLE void goBack();
    Q_INVOKABLE void tapBarButton();
    Q_INVOKABLE void endEditing();
    Q_INVOKABLE void dismissNotice();
    /// Returns the user guide as Markdown.
    Q_INVOKABLE QString userGuide() const;
    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();
    Q_INVOKABLE void restore();
    Q_INVOKABLE void dismissOffer() { application_.recovery().dismiss(); }
    /// Returns whether assistive technology is in use.
    Q_INVOKABLE bool isAssisted() const { return QAccessible::isActive(); }
    void resignActive();
    /// Returns false when what was being typed could not be stored: the notice gives the reason.
    bool storeTypedText();
    /// To be called when the window is about to close. Returns false when what was being typed could not be
    /// stored: the notice gives the reason, and the window stays.
    Q_INVOKABLE bool close();

signals:
    void titleChanged();
    /// A page that entered or left is in its place.
    void pagesRested();
    void sheetsChanged();
    void keypadChanged();
    void noticeChangedForQml();
    void offerChangedForQml();

private:
    void pagesChanged(bool animated) override;
    void transitionEnded() override;
    void pageChanged(shell::Page& page) override;
    void listReset(shell::Page& page) override;
    void rowChanged(shell::Page& page, platform::NSIndexPath path) override;
    void rowInserted(shell::Page& page, platform::NSIndexPath path, bool animated) override;
    void rowFound(shell::Page& page, platform::NSIndexPath path) override;
    void contentChanged(shell::Page& page) override;
    void tableRowChanged(shell::Page& page, platform::NSIndexPath path) override;
    void overlayChanged() override;
    void presentationChanged() override;
    void editingChanged() override;
    void noticeChanged() override { emit noticeChangedForQml(); }
    void offerChanged() override { emit offerChangedForQml(); }

    const double transitionSeconds_;
    WindowWebEngine engine_;
    shell::SettingsApplication application_;
    KeptActions actions_;
    PagesModel pages_;
    std::unique_ptr<AlertModel> alert_;
    std::unique_ptr<ComposerModel> composer_;
    std::unique_ptr<KeypadModel> keypad_;
    QSocketNotifier loop_;
    QString problems_;
    platform::Subscription subscription_;
};

} // namespace wardlock::window
