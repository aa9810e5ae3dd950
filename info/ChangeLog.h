#pragma once

#include "platform/ui/UIView.h"

#include <memory>

namespace wardlock {

/// The bundle's resource changelog.txt, read when the view is created, in a text view that fills it. A
/// resource that is missing or is not UTF-8 gives an empty page.
class ChangeLog : public platform::UIView {
public:
    static std::shared_ptr<ChangeLog> initWithFrame(const platform::CGRect& frame);
    explicit ChangeLog(const platform::CGRect& frame) : UIView(frame) {}

    void setupTextViewWithFrame(const platform::CGRect& frame);
};

} // namespace wardlock
