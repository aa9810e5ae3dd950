#include "window/models/WebTextModel.h"

#include "window/models/Text.h"

#include <QVariantMap>

#include <algorithm>

namespace wardlock::window {

namespace {

QString kindOf(const platform::WebBlock& block, const WebTextEntry& entry) {
    using Kind = platform::WebBlock::Kind;
    const bool isOneLink = entry.runs.size() == 1 && entry.hasLink;
    return block.kind == Kind::Heading        ? QStringLiteral("heading")
           : isOneLink                        ? QStringLiteral("link")
           : block.kind == Kind::ListItem     ? QStringLiteral("item")
           : block.kind == Kind::Preformatted ? QStringLiteral("code")
                                              : QStringLiteral("text");
}

} // namespace

int WebTextModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QVariant WebTextModel::data(const QModelIndex& index, int role) const {
    if (role != EntryRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return QVariant::fromValue(entries_[static_cast<std::size_t>(index.row())]);
}

QHash<int, QByteArray> WebTextModel::roleNames() const {
    return {{EntryRole, "entry"}};
}

void WebTextModel::show(const platform::UIWebView& view) {
    beginResetModel();
    entries_.clear();
    qsizetype room = longestPage;
    for (const platform::WebBlock& block : view.blocks()) {
        if (room <= 0)
            break;
        room -= add(block, view.links(), room);
    }
    groupLinks();
    endResetModel();
}

int WebTextModel::nextLink(int row, int step) const {
    for (row += step; row >= 0 && row < rowCount(); row += step)
        if (entries_[static_cast<std::size_t>(row)].hasLink)
            return row;
    return -1;
}

qsizetype WebTextModel::add(const platform::WebBlock& block, const std::vector<platform::WebLink>& links,
                            qsizetype room) {
    WebTextEntry entry;
    for (const platform::WebRun& run : block.runs) {
        const bool isLink = run.link > 0 && run.link <= links.size();
        const std::string& words = isLink && run.text.empty() ? links[run.link - 1].text : run.text;
        const QString text = shownText(words, room - entry.words.size());
        entry.words += text;
        entry.hasLink = entry.hasLink || isLink;
        entry.runs.append(QVariantMap{{"text", text}, {"link", isLink ? static_cast<int>(run.link) : 0}});
        if (entry.words.size() >= room)
            break;
    }
    entry.kind = kindOf(block, entry);
    entry.rank = block.rank;
    entry.lists = block.lists;
    entry.apart = block.apart;
    const qsizetype size = entry.words.size();
    entries_.push_back(std::move(entry));
    return std::max<qsizetype>(size, 1);
}

void WebTextModel::groupLinks() {
    for (std::size_t i = 1; i < entries_.size(); ++i) {
        WebTextEntry& above = entries_[i - 1];
        WebTextEntry& below = entries_[i];
        const bool parted = below.apart || above.kind != below.kind;
        above.last = parted;
        below.first = parted;
    }
}

} // namespace wardlock::window
