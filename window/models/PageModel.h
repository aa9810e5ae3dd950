#pragma once

#include "platform/ui/UITextView.h"
#include "shell/SettingsApplication.h"
#include "shell/screen/Page.h"
#include "window/models/KeptActions.h"
#include "window/models/RowsModel.h"
#include "window/models/TableModel.h"
#include "window/models/WebModel.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace wardlock::window {

/// One page for QML: what it shows, and what the user can do with it.
class PageModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString title READ title NOTIFY barChanged)
    /// The title of the page below; empty on the first page.
    Q_PROPERTY(QString backTitle READ backTitle NOTIFY barChanged)
    Q_PROPERTY(bool hasAddButton READ hasAddButton NOTIFY barChanged)
    /// "list", "table", "text", "web" or "empty".
    Q_PROPERTY(QString kind READ kind NOTIFY contentChanged)
    Q_PROPERTY(QAbstractItemModel* rows READ rows NOTIFY contentChanged)
    Q_PROPERTY(QAbstractItemModel* table READ table NOTIFY contentChanged)
    Q_PROPERTY(QString text READ text NOTIFY contentChanged)
    /// In points.
    Q_PROPERTY(double textSize READ textSize NOTIFY contentChanged)
    Q_PROPERTY(wardlock::window::WebModel* web READ web NOTIFY contentChanged)
    /// The window's own search.
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)

public:
    PageModel(std::shared_ptr<shell::Page> page, QString backTitle, shell::SettingsApplication& application,
              KeptActions& actions, WindowWebEngine& engine);

    QString title() const;
    const QString& backTitle() const { return backTitle_; }
    void setBackTitle(QString title);
    bool hasAddButton() const;
    QString kind() const;
    QAbstractItemModel* rows() const { return rows_.get(); }
    QAbstractItemModel* table() const { return table_.get(); }
    QString text() const;
    double textSize() const;
    WebModel* web() const { return web_.get(); }
    const QString& filter() const { return filter_; }
    void setFilter(const QString& filter);

    const std::shared_ptr<shell::Page>& page() const { return page_; }

    Q_INVOKABLE void tapRow(int section, int row);
    Q_INVOKABLE void setSwitch(int section, int row, bool on);
    Q_INVOKABLE void moveSlider(int section, int row, double value);
    Q_INVOKABLE void beginEditing(int section, int row);
    Q_INVOKABLE void typeText(const QString& text);
    Q_INVOKABLE void endEditing();
    Q_INVOKABLE void flipTableSwitch(int row);
    Q_INVOKABLE void dragList();

    /// What the shell reports of the page.
    void barMayHaveChanged() { emit barChanged(); }
    void listWasReset();
    void rowWasChanged(platform::NSIndexPath path);
    void rowWasFound(platform::NSIndexPath path);
    void tableRowWasChanged(platform::NSIndexPath path);
    void contentMayHaveChanged();
    void editingMayHaveChanged();

signals:
    void barChanged();
    void contentChanged();
    void filterChanged();
    /// The user is to see the row at this place of the rows.
    void rowFound(int place);

private:
    /// What is asked of a page is done to it, and not to the page that covers it.
    void perform(std::function<void()> action);
    void applyFilter();
    void readContent();
    void readViews();

    std::shared_ptr<shell::Page> page_;
    QString backTitle_;
    shell::SettingsApplication& application_;
    KeptActions& actions_;
    WindowWebEngine& engine_;
    QString filter_;
    std::unique_ptr<RowsModel> rows_;
    std::shared_ptr<shell::Table> shownTable_;
    std::unique_ptr<TableModel> table_;
    std::shared_ptr<platform::UITextView> textView_;
    std::unique_ptr<WebModel> web_;
};

} // namespace wardlock::window
