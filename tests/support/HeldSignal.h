#pragma once

namespace wardlock::test {

/// A signal to this process that the calling thread does not take: it is held where no other thread takes it
/// either. One object at a time.
class HeldSignal {
public:
    HeldSignal();
    ~HeldSignal();
    HeldSignal(const HeldSignal&) = delete;
    HeldSignal& operator=(const HeldSignal&) = delete;

    /// From now on; threads that were started before take it, unless they refuse it themselves.
    void hold() const;
    void send() const;
    bool isHeld() const;
};

} // namespace wardlock::test
