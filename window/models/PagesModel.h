#pragma once

#include "window/models/PageModel.h"

#include <QAbstractListModel>

#include <memory>
#include <vector>

namespace wardlock::window {

/// The stack of pages for QML, the lowest first. A popped page stays, as the topmost, until its transition
/// has ended, so that it can be seen leaving.
class PagesModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// Role "page" is the PageModel, role "place" one of "below", "top", "entering" and "leaving".
    enum Role { PageRole = Qt::UserRole, PlaceRole };

    PagesModel(shell::SettingsApplication& application, KeptActions& actions, WindowWebEngine& engine)
        : application_(application), actions_(actions), engine_(engine) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Follows the shell's stack; with `animated`, pages that enter or leave are shown doing so.
    void follow(bool animated);
    void transitionEnded();
    /// The title or the button of the page changed.
    void barMayHaveChanged(const shell::Page& page);
    /// Returns null when the page is not on the stack.
    PageModel* find(const shell::Page& page) const;
    PageModel* top() const;

private:
    struct Entry {
        std::unique_ptr<PageModel> model;
        bool entering = false;
        bool leaving = false;
    };

    void remove(std::size_t first, std::size_t end);
    void push(const std::shared_ptr<shell::Page>& page, bool animated);

    shell::SettingsApplication& application_;
    KeptActions& actions_;
    WindowWebEngine& engine_;
    std::vector<Entry> entries_;
};

} // namespace wardlock::window
