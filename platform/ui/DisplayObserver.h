#pragma once

#include "platform/base/Export.h"
#include "platform/ui/NSIndexPath.h"

#include <optional>

namespace platform {

class UIView;
class UIViewController;

/// Whoever shows the objects of this folder hears of their changes here: one per process, the Settings
/// application. Main thread only. The references are valid during the call.
class WARDLOCK_API DisplayObserver {
public:
    virtual ~DisplayObserver();

    /// A property, or the list of subviews, of a view changed.
    virtual void viewChanged(UIView& view) = 0;
    /// A controller's title, bar buttons, view or presented controller changed.
    virtual void controllerChanged(UIViewController& controller) = 0;
    /// The rows of a list page were built anew.
    virtual void listReloaded(UIViewController& page) = 0;
    /// One row's label or value has to be read again.
    virtual void rowReloaded(UIViewController& page, NSIndexPath path) = 0;
    virtual void rowInserted(UIViewController& page, NSIndexPath path, bool animated) = 0;
    /// The text being typed somewhere inside the view is to be stored and its keyboard closed.
    virtual void endEditing(UIView& view) = 0;

    /// The process's observer; one that ignores everything while none is set. Null takes it back. Not owned.
    static DisplayObserver& current();
    static void setCurrent(DisplayObserver* observer);
};

} // namespace platform
