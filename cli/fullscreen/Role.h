#pragma once

namespace wardlock::cli {

/// What a text on the screen is; Palette decides how it looks.
enum class Role {
    Text,
    /// Titles of pages and sheets.
    Title,
    /// Headers, footers, hints, rules: less than the text.
    Faint,
    /// What leads elsewhere.
    Link,
    /// What is switched on.
    On,
    Danger,
    /// The row that the next key applies to.
    Cursor,
    /// A text field that is being edited.
    Field,
    /// A sentence of Settings itself.
    Notice,
};
inline constexpr int roleCount = static_cast<int>(Role::Notice) + 1;

} // namespace wardlock::cli
