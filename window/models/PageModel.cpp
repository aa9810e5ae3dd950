#include "window/models/PageModel.h"

#include "platform/ui/UIActivityIndicatorView.h"
#include "platform/ui/UITextView.h"
#include "window/models/ComposedText.h"
#include "window/models/IgnoredResult.h"
#include "window/models/Text.h"

namespace wardlock::window {

using platform::NSIndexPath;

namespace {

NSIndexPath at(int section, int row) {
    return {static_cast<std::size_t>(section), static_cast<std::size_t>(row)};
}

/// QML may still use the replaced model until it has been notified of the change.
template <class Model>
void retire(std::unique_ptr<Model>& model) {
    if (model)
        model.release()->deleteLater();
}

} // namespace

PageModel::PageModel(std::shared_ptr<shell::Page> page, QString backTitle,
                     shell::SettingsApplication& application, KeptActions& actions, WindowWebEngine& engine)
    : page_(std::move(page)), backTitle_(std::move(backTitle)), application_(application), actions_(actions),
      engine_(engine) {
    readContent();
}

QString PageModel::title() const {
    return shownName(page_->title());
}

void PageModel::setBackTitle(QString title) {
    if (title == backTitle_)
        return;
    backTitle_ = std::move(title);
    emit barChanged();
}

bool PageModel::hasAddButton() const {
    const auto button = page_->barButton();
    return button && button->systemItem() == platform::UIBarButtonSystemItem::Add;
}

QString PageModel::kind() const {
    return rows_       ? QStringLiteral("list")
           : table_    ? QStringLiteral("table")
           : web_      ? QStringLiteral("web")
           : textView_ ? QStringLiteral("text")
                       : QStringLiteral("empty");
}

QString PageModel::text() const {
    return textView_ ? shownText(textView_->text(), longestPage) : QString();
}

double PageModel::textSize() const {
    return textView_ ? textView_->font().size : platform::UIFont().size;
}

void PageModel::setFilter(const QString& filter) {
    if (filter == filter_)
        return;
    filter_ = filter;
    if (filter_.isEmpty())
        application_.search().forget();
    applyFilter();
    emit filterChanged();
}

void PageModel::applyFilter() {
    if (rows_) {
        platform::SearchWords words(filter_.toStdString());
        auto below = application_.search().find(page_, words);
        rows_->setFilter(std::move(words), std::move(below));
    }
    if (table_)
        table_->setFilter(platform::SearchWords(filter_.toStdString()));
}

void PageModel::perform(std::function<void()> action) {
    actions_.perform(*this, [this, action = std::move(action)] {
        if (application_.screen().page() == page_)
            action();
    });
}

void PageModel::tapRow(int section, int row) {
    commitComposedText();
    perform([this, section, row] {
        if (const auto* found = rows_ ? rows_->found(at(section, row)) : nullptr) {
            // The model's own may be replaced on the way.
            const shell::FoundRow target = *found;
            return ignoreResult(application_.search().open(target));
        }
        ignoreResult(application_.page().tapRow(at(section, row)));
    });
}

void PageModel::setSwitch(int section, int row, bool on) {
    commitComposedText();
    perform([this, section, row, on] { ignoreResult(application_.page().setSwitch(at(section, row), on)); });
}

void PageModel::moveSlider(int section, int row, double value) {
    commitComposedText();
    ignoreResult(application_.page().moveSlider(at(section, row), value));
}

void PageModel::beginEditing(int section, int row) {
    ignoreResult(application_.page().beginEditing(at(section, row)));
}

void PageModel::typeText(const QString& text) {
    ignoreResult(application_.page().typeText(text.toStdString()));
}

void PageModel::endEditing() {
    application_.page().endEditing();
}

void PageModel::flipTableSwitch(int row) {
    perform([this, row] {
        if (table_ && row >= 0 && row < table_->rowCount())
            ignoreResult(application_.page().flipTableSwitch(table_->pathOf(row)));
    });
}

void PageModel::dragList() {
    commitComposedText();
    ignoreResult(application_.page().dragList());
}

void PageModel::listWasReset() {
    if (rows_)
        applyFilter();
}

void PageModel::rowWasChanged(NSIndexPath path) {
    if (rows_)
        rows_->rowChanged(path);
}

void PageModel::rowWasFound(NSIndexPath path) {
    if (const int place = rows_ ? rows_->placeOf(path) : -1; place >= 0)
        emit rowFound(place);
}

void PageModel::tableRowWasChanged(NSIndexPath path) {
    if (table_)
        table_->rowChanged(path);
}

void PageModel::contentMayHaveChanged() {
    readContent();
    if (web_)
        web_->mayHaveChanged();
    emit contentChanged();
}

void PageModel::editingMayHaveChanged() {
    if (rows_)
        rows_->allChanged();
}

void PageModel::readContent() {
    if (page_->isList()) {
        if (!rows_) {
            rows_ = std::make_unique<RowsModel>(page_);
            applyFilter();
        }
        return;
    }
    retire(rows_);
    readViews();
}

void PageModel::readViews() {
    const auto table = page_->table();
    if (table != shownTable_) {
        shownTable_ = table;
        if (table_ && table) {
            table_->follow(table);
        } else if (!table) {
            retire(table_);
        } else {
            table_ = std::make_unique<TableModel>(table);
            table_->setFilter(platform::SearchWords(filter_.toStdString()));
        }
    }
    textView_ = page_->contentView<platform::UITextView>();
    const auto view = page_->contentView<platform::UIWebView>();
    if (web_ && web_->shows(view))
        return;
    retire(web_);
    if (view)
        web_ = std::make_unique<WebModel>(view, page_->contentView<platform::UIActivityIndicatorView>(),
                                          engine_, application_);
}

} // namespace wardlock::window
