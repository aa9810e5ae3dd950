#pragma once

#include "cli/io/Json.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// The result of one check of the doctor.
struct CheckResult {
    /// Whether Settings and the notifications depend on it.
    enum class Need { Needed, Optional };

    CheckResult(std::string_view itsName, std::string_view itsTitle, Need itsNeed = Need::Needed)
        : name(itsName), title(itsTitle), need(itsNeed) {}

    /// The name of the check in JSON, and in the report.
    std::string_view name;
    std::string_view title;
    Need need;
    bool works = true;
    /// What was found, or what is wrong; no full stop.
    std::string text;
    /// Suggestions, a sentence each; a check that works may have some too.
    std::vector<std::string> advice;
    /// Further members of the JSON object.
    Json facts = Json::object();

    /// Sets the reason of a failure and adds a suggestion. Returns this result.
    CheckResult& fails(std::string reason, std::string suggestion) {
        works = false;
        text = std::move(reason);
        advice.push_back(std::move(suggestion));
        return *this;
    }
};

/// The checks, in the order of the report. They leave everything as it was; checkStorage() writes a file and
/// removes it.
CheckResult checkDeviceRoot();
CheckResult checkStorage();
CheckResult checkDocument();
CheckResult checkHistory();
CheckResult checkLog();
CheckResult checkBus();
CheckResult checkBundle();
CheckResult checkAppList();
CheckResult checkWindow();
CheckResult checkWebEngine();
CheckResult checkFonts();
CheckResult checkEmoji();
CheckResult checkEastAsianLetters();
CheckResult checkPortal();
CheckResult checkMail();

} // namespace wardlock::cli
