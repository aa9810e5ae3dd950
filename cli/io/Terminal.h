#pragma once

#include <cstddef>

namespace wardlock::cli {

/// The terminal behind standard input and output, as far as there is one.
class Terminal {
public:
    static bool readsInput();
    static bool showsOutput();
    /// Whether output may be coloured: a terminal that can, and no NO_COLOR.
    static bool hasColours();
    /// At least 20, at most 100 columns: longer lines are hard to read.
    static std::size_t columns();
    /// At least 10.
    static std::size_t lines();

    /// Typed text is not shown while this lives; nor does a key abort the process, which would leave the
    /// terminal like that. The one that interrupts ends it in order.
    class Hidden {
    public:
        Hidden();
        ~Hidden();
        Hidden(const Hidden&) = delete;
        Hidden& operator=(const Hidden&) = delete;
    };
    /// The terminal is as it was before while this lives, whatever was hidden.
    class GivenBack {
    public:
        GivenBack();
        ~GivenBack();
        GivenBack(const GivenBack&) = delete;
        GivenBack& operator=(const GivenBack&) = delete;

    private:
        const bool wasHidden_;
    };
    /// Gives the terminal back as it was; for the end of the process, whatever it came by.
    static void restore();
};

} // namespace wardlock::cli
