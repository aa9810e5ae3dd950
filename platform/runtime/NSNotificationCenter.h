#pragma once

#include "platform/base/Export.h"
#include "platform/base/Object.h"
#include "platform/values/Selector.h"
#include "platform/values/Value.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

struct NSNotification {
    std::string name;
    /// The poster's object; null where it posted none.
    std::shared_ptr<Object> object;
    std::optional<Dictionary> userInfo;
};

/// Notifications inside the process. Main thread only. Observers and objects are not retained: an observer
/// that is gone is dropped. Dispatch works on a snapshot of the observers; one that is added or removed
/// meanwhile is not notified.
class WARDLOCK_API NSNotificationCenter {
public:
    using Action = Selector<void(const NSNotification&)>;

    static NSNotificationCenter& defaultCenter();

    /// `object` null: posts of any object.
    void addObserver(const std::shared_ptr<Object>& observer, Action action, std::string_view name,
                     const std::shared_ptr<Object>& object = nullptr);
    /// Removes every registration of the observer. Takes a plain reference so that a destructor can call it.
    void removeObserver(const Object& observer);
    /// Removes the observer's registrations for the name; `object` null: of any object.
    void removeObserver(const Object& observer, std::string_view name,
                        const std::shared_ptr<Object>& object = nullptr);
    /// Notifies the observers in the order of their registration before it returns.
    void postNotification(std::string_view name, const std::shared_ptr<Object>& object = nullptr,
                          std::optional<Dictionary> userInfo = std::nullopt);
    /// Returns the number of registrations whose observers are alive.
    std::size_t observerCount(std::string_view name) const;

private:
    struct Registration {
        const Object* identity;
        std::weak_ptr<Object> observer;
        Action action;
        std::string name;
        bool anyObject;
        std::weak_ptr<Object> object;
    };

    NSNotificationCenter() = default;

    template <class Matches>
    void removeIf(Matches matches);

    std::vector<std::shared_ptr<Registration>> registrations_;
};

} // namespace platform
