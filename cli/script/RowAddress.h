#pragma once

#include "cli/script/ScriptFields.h"
#include "platform/ui/NSIndexPath.h"
#include "shell/screen/Page.h"

#include <optional>
#include <string>

namespace wardlock::cli {

/// A row as a script names it: "row" is its label (its placeholder where it has none, its title in a table)
/// or its number within "section"; "key" is its key. "section" is a number, or the header of the section to
/// look in.
class RowAddress {
public:
    /// Throws ScriptError when the members name no row.
    explicit RowAddress(const ScriptFields& fields);

    /// The one row of the page that it names; throws ScriptError when there is none or more than one.
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
