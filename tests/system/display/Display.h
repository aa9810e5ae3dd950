#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <xcb/xcb.h>

namespace wardlock::test {

/// An X display as its user sees it: everything that is on it, whatever process has drawn it.
class Display {
public:
    struct Picture {
        /// The pixels of another colour than the ground.
        std::size_t covered = 0;
        /// The colours of these.
        std::size_t colours = 0;
    };

    /// Paints the ground of the display in one colour.
    Display(const std::string& name, std::uint32_t ground);

    Picture picture() const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    const xcb_screen_t* screen_ = nullptr;
    std::uint32_t ground_;
};

} // namespace wardlock::test
