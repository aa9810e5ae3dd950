#pragma once

#include "platform/base/Subscription.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace platform {

/// Those who are registered with an object, in the order of their registration. One thread.
template <class Subscriber>
class Subscribers {
public:
    Subscription add(Subscriber subscriber) {
        auto entry = std::make_shared<Entry>(Entry{std::move(subscriber)});
        entries_->push_back(entry);
        return Subscription([all = std::weak_ptr<Entries>(entries_), entry = std::move(entry)] {
            entry->ended = true;
            if (const auto entries = all.lock())
                std::erase(*entries, entry);
        });
    }

    /// Calls `deliver` with each subscriber in order. One that is added meanwhile is left out, and so is one
    /// whose subscription ends before its turn.
    template <class Deliver>
    void forEach(Deliver deliver) const {
        const Entries now = *entries_;
        for (const auto& entry : now)
            if (!entry->ended)
                deliver(entry->subscriber);
    }
    /// Returns whether `matches` returns true for any subscriber.
    template <class Matches>
    bool any(Matches matches) const {
        return std::any_of(entries_->begin(), entries_->end(),
                           [&](const auto& entry) { return matches(std::as_const(entry->subscriber)); });
    }
    std::size_t size() const { return entries_->size(); }

private:
    struct Entry {
        Subscriber subscriber;
        bool ended = false;
    };
    using Entries = std::vector<std::shared_ptr<Entry>>;

    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
};

} // namespace platform
