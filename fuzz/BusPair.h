#pragma once

#include <systemd/sd-bus.h>

#include <memory>
#include <string_view>

namespace wardlock::fuzz {

/// A receiver of messages and the raw socket of its sender, without a bus in between: the receiver reads any
/// bytes, as it would read those of a bus.
class BusPair {
public:
    BusPair();
    ~BusPair();
    BusPair(const BusPair&) = delete;
    BusPair& operator=(const BusPair&) = delete;

    sd_bus* receiver() const { return receiver_; }
    /// Writes the bytes and has the receiver process them. Returns false when the receiver has closed the
    /// connection.
    bool send(std::string_view bytes);

private:
    sd_bus* receiver_ = nullptr;
    sd_bus* sender_ = nullptr;
};

} // namespace wardlock::fuzz
