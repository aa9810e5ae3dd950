#pragma once

#include <cstddef>

namespace wardlock::cli {

/// The terminal of standard input and output, if any.
class Terminal {
public:
    static bool readsInput();
    static bool showsOutput();
    /// Whether output may be coloured: a terminal with colours, and no NO_COLOR.
    static bool hasColours();
    /// At least 20, at most 100 columns: longer lines are hard to read.
    static std::size_t columns();
    /// At least 10.
    static std::size_t lines();

    /// Typed text is not shown while this exists. Ctrl+\ does not abort the process, which would leave the
    /// terminal without an echo; Ctrl+C ends it in order.
    class Hidden {
    public:
        Hidden();
        ~Hidden();
        Hidden(const Hidden&) = delete;
        Hidden& operator=(const Hidden&) = delete;
    };
    /// While this exists, what is typed comes at once and is neither shown nor edited by the terminal; what
    /// has been typed of a line already comes first.
    class Unbuffered {
    public:
        Unbuffered();
        ~Unbuffered();
        Unbuffered(const Unbuffered&) = delete;
        Unbuffered& operator=(const Unbuffered&) = delete;
    };
    /// While this exists, the terminal has its former settings, even if typed text was hidden.
    class GivenBack {
    public:
        GivenBack();
        ~GivenBack();
        GivenBack(const GivenBack&) = delete;
        GivenBack& operator=(const GivenBack&) = delete;

    private:
        const int mode_;
    };
    /// Restores the former settings; for every end of the process.
    static void restore();
};

} // namespace wardlock::cli
