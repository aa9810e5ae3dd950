#pragma once

#include "tests/support/doubles/RecordingDisplay.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace doubles {

/// Describes something whenever a view or a controller reports a change. It keeps each description that is
/// not empty and differs from the one before: what the user could have seen, in order.
class PicturingDisplay : public RecordingDisplay {
public:
    explicit PicturingDisplay(std::function<std::string()> describe) : describe_(std::move(describe)) {}

    void viewChanged(platform::UIView&) override { take(); }
    void controllerChanged(platform::UIViewController&) override { take(); }

    std::vector<std::string> pictures;

private:
    void take() {
        std::string picture = describe_();
        if (!picture.empty() && (pictures.empty() || pictures.back() != picture))
            pictures.push_back(std::move(picture));
    }

    std::function<std::string()> describe_;
};

} // namespace doubles
