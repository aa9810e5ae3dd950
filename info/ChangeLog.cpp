#include "info/ChangeLog.h"

#include "platform/files/StringFile.h"
#include "platform/runtime/NSBundle.h"
#include "platform/ui/UITextView.h"

namespace wardlock {
namespace {

constexpr double fontSize = 15;

} // namespace

std::shared_ptr<ChangeLog> ChangeLog::initWithFrame(const platform::CGRect& frame) {
    auto view = std::make_shared<ChangeLog>(frame);
    view->setupTextViewWithFrame(frame);
    return view;
}

void ChangeLog::setupTextViewWithFrame(const platform::CGRect& frame) {
    const auto bundle = platform::NSBundle::bundleForClass(typeid(ChangeLog));
    const std::optional<std::string> path = bundle->pathForResource("changelog", "txt");
    // The frame is the superview's, used unchanged in this view's coordinates.
    const auto textView = std::make_shared<platform::UITextView>(frame);
    textView->setEditable(false);
    textView->setSelectable(false);
    textView->setFont(platform::UIFont::systemFontOfSize(fontSize));
    textView->setText(path ? platform::stringWithContentsOfFile(*path).value_or("") : "");
    addSubview(textView);
}

} // namespace wardlock
