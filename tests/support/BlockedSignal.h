#pragma once

namespace wardlock::test {

/// A signal to this process that the calling thread does not take: it stays pending where no other thread
/// takes it either. One object at a time.
class BlockedSignal {
public:
    BlockedSignal();
    ~BlockedSignal();
    BlockedSignal(const BlockedSignal&) = delete;
    BlockedSignal& operator=(const BlockedSignal&) = delete;

    /// From now on; threads that were started before take it, unless they refuse it themselves.
    void block() const;
    void send() const;
    bool isPending() const;
};

} // namespace wardlock::test
