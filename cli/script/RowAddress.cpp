#include "cli/script/RowAddress.h"

#include "cli/script/ScriptError.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace wardlock::cli {

using platform::NSIndexPath;

namespace {

/// The sections and rows of a page, be it a list or a table.
class Rows {
public:
    explicit Rows(shell::Page& page) : page_(page), table_(page.isList() ? nullptr : page.table()) {}

    std::size_t sections() const {
        return table_ ? table_->sectionCount() : page_.isList() ? page_.sectionCount() : 0;
    }
    std::size_t rows(std::size_t section) const {
        return table_ ? table_->rowCount(section) : page_.section(section).rowCount;
    }
    std::string header(std::size_t section) const {
        return table_ ? std::string() : page_.section(section).header;
    }
    std::pair<std::string, std::string> labelAndKey(NSIndexPath path) const {
        if (!table_) {
            const shell::Row row = page_.row(path);
            return {row.label.empty() ? row.placeholder : row.label, row.key};
        }
        const auto row = table_->show(path);
        return row ? std::pair(row->title(), row->key()) : std::pair<std::string, std::string>();
    }

private:
    shell::Page& page_;
    std::shared_ptr<shell::Table> table_;
};

std::string placeText(NSIndexPath path) {
    return "section " + std::to_string(path.section) + " row " + std::to_string(path.row);
}

} // namespace

RowAddress::RowAddress(const ScriptFields& fields) : key_(fields.optionalText("key")) {
    if (const Json* section = fields.find("section"); section && section->is_string())
        header_ = fields.optionalText("section");
    else
        section_ = fields.optionalIndex("section");
    if (const Json* row = fields.find("row"); row && row->is_string())
        label_ = fields.optionalText("row");
    else
        row_ = fields.optionalIndex("row");
    if (!label_ && !row_ && !key_)
        throw ScriptError("missing member 'row' or 'key'");
    if (row_ && !section_ && !header_)
        throw ScriptError("a row number needs 'section'");
}

bool RowAddress::names(const Candidate& row) const {
    return (!label_ || *label_ == row.label) && (!key_ || *key_ == row.key);
}

bool RowAddress::namesSection(const std::string& header, std::size_t index) const {
    return (!header_ || *header_ == header) && (!section_ || *section_ == index);
}

std::string RowAddress::text() const {
    return label_ ? '\'' + *label_ + '\''
           : key_ ? "with key '" + *key_ + '\''
                  : std::to_string(row_.value_or(0));
}

NSIndexPath RowAddress::find(shell::Page& page) const {
    const Rows rows(page);
    std::vector<NSIndexPath> found;
    for (std::size_t section = 0; section < rows.sections(); ++section) {
        if (!namesSection(rows.header(section), section))
            continue;
        const std::size_t count = rows.rows(section);
        const std::size_t first = row_ ? *row_ : 0;
        const std::size_t end = row_ ? std::min(count, *row_ + 1) : count;
        for (std::size_t row = first; row < end; ++row) {
            const auto [label, key] = rows.labelAndKey({section, row});
            if (names({label, key}))
                found.push_back({section, row});
        }
    }
    if (found.empty())
        throw ScriptError("the page has no row " + text());
    if (found.size() > 1)
        throw ScriptError("the page has " + std::to_string(found.size()) + " rows " + text() + ": " +
                          placeText(found[0]) + ", " + placeText(found[1]) +
                          (found.size() > 2 ? " and more" : ""));
    return found.front();
}

} // namespace wardlock::cli
