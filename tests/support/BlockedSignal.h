#pragma once

namespace wardlock::test {

/// A signal to this process that the calling thread does not take: it is held where no other thread takes it
/// either. One object at a time.
class BlockedSignal {
public:
    BlockedSignal();
    ~BlockedSignal();
    BlockedSignal(const BlockedSignal&) = delete;
    BlockedSignal& operator=(const BlockedSignal&) = delete;

    /// From now on; threads that were started before take it, unless they refuse it themselves.
    void hold() const;
    void send() const;
    bool isHeld() const;
};

} // namespace wardlock::test
