#pragma once

#include "cli/script/ScriptFields.h"
#include "platform/ui/NSIndexPath.h"
#include "shell/screen/Page.h"

#include <optional>
#include <string>

namespace wardlock::cli {

/// A row as a script names it. "row" is its label, or its number within "section"; "key" is its key. A row
/// without a label is named by its placeholder, a row of a table by its title. "section" is a number, or the
/// header of the section to search.
class RowAddress {
public:
    /// Throws ScriptError when `fields` has neither "row" nor "key", or a row number without "section".
    explicit RowAddress(const ScriptFields& fields);

    /// Returns the path of the named row. Throws ScriptError when the page has no such row or several.
    platform::NSIndexPath find(shell::Page& page) const;

private:
    struct Candidate {
        std::string label;
        std::string key;
    };

    bool names(const Candidate& row) const;
    bool namesSection(const std::string& header, std::size_t index) const;
    std::string text() const;

    std::optional<std::string> label_;
    std::optional<std::string> key_;
    std::optional<std::size_t> row_;
    std::optional<std::string> header_;
    std::optional<std::size_t> section_;
};

} // namespace wardlock::cli
