#include "cli/io/RowText.h"

#include "platform/text/CaseFolding.h"

namespace wardlock::cli {

std::string rowLabel(const shell::Row& row) {
    if (!row.label.empty())
        return row.label;
    return row.kind == shell::RowKind::Slider ? "Slider" : row.placeholder;
}

std::string rowLabel(const shell::TableRow& row) {
    return row.title().empty() ? row.key() : row.title();
}

std::string folded(std::string_view text) {
    std::string folded;
    platform::appendCaseFolded(text, folded);
    return folded;
}

} // namespace wardlock::cli
