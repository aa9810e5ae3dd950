#pragma once

#include "platform/ui/UIWebView.h"
#include "window/models/WebTextEntry.h"

#include <QAbstractListModel>

#include <vector>

namespace wardlock::window {

/// The text of a web page for QML: a row for each block. Of a very long text only the beginning.
class WebTextModel : public QAbstractListModel {
    Q_OBJECT

public:
    /// Role "entry" is a WebTextEntry.
    enum Role { EntryRole = Qt::UserRole };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void show(const platform::UIWebView& view);
    /// Returns the next row with a link, in steps of 1 or -1 from `row`, which does not count; -1 for none.
    Q_INVOKABLE int nextLink(int row, int step) const;

private:
    /// Returns the number of characters added, about `room` at most.
    qsizetype add(const platform::WebBlock& block, const std::vector<platform::WebLink>& links,
                  qsizetype room);
    void groupLinks();

    std::vector<WebTextEntry> entries_;
};

} // namespace wardlock::window
