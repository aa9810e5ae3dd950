#pragma once

#include <QTranslator>

#include <memory>
#include <string>
#include <vector>

namespace wardlock::window {

/// Returns the names of the languages that the environment asks for, the best first: "de_AT", "de". As for
/// other programs, LC_ALL, LC_MESSAGES and LANG name one, and LANGUAGE then a list. Empty for the locale "C".
std::vector<std::string> userLanguages();

/// Shows the texts of Settings itself in the user's language while it lives. A language without a translation
/// has the next one; English needs none. The bundle's own texts stay. Main thread only; needs the application
/// object.
class Translation {
public:
    Translation();
    ~Translation();
    Translation(const Translation&) = delete;
    Translation& operator=(const Translation&) = delete;

private:
    /// Null for English. A mail that is still being sent may use it for longer than this object.
    std::shared_ptr<QTranslator> translator_;
};

} // namespace wardlock::window
