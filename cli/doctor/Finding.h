#pragma once

#include "cli/io/Json.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// What one look of the doctor has found.
struct Finding {
    /// Whether Settings and the notifications can do without it.
    enum class Need { Needed, Optional };

    Finding(std::string_view itsName, std::string_view itsTitle, Need itsNeed = Need::Needed)
        : name(itsName), title(itsTitle), need(itsNeed) {}

    /// Its name in JSON, and for people.
    std::string_view name;
    std::string_view title;
    Need need;
    bool works = true;
    /// What is there, or what is wrong; no full stop.
    std::string text;
    /// What the person can do, a sentence each; may stand beside what works.
    std::vector<std::string> advice;
    /// Further members for programs.
    Json facts = Json::object();

    Finding& fails(std::string why, std::string whatToDo) {
        works = false;
        text = std::move(why);
        advice.push_back(std::move(whatToDo));
        return *this;
    }
};

/// The looks, in the order of the report. Nothing is changed or created.
Finding lookAtDeviceRoot();
Finding lookAtDocument();
Finding lookAtLog();
Finding lookAtBus();
Finding lookAtBundle();
Finding lookAtAppList();
Finding lookAtWindow();
Finding lookAtWebEngine();
Finding lookAtFonts();
Finding lookAtMail();

} // namespace wardlock::cli
