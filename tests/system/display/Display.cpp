#include "tests/system/display/Display.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <set>
#include <stdexcept>

namespace wardlock::test {

namespace {

constexpr std::uint32_t colourBits = 0xffffff;

} // namespace

Display::Display(const std::string& name, std::uint32_t ground)
    : connection_(xcb_connect(name.c_str(), nullptr)), ground_(ground) {
    if (xcb_connection_has_error(connection_.get()) != 0)
        throw std::runtime_error("no display " + name);
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
    xcb_change_window_attributes(connection_.get(), screen_->root, XCB_CW_BACK_PIXEL, &ground_);
    xcb_clear_area(connection_.get(), 0, screen_->root, 0, 0, 0, 0);
    xcb_flush(connection_.get());
}

Display::Picture Display::picture() const {
    const std::unique_ptr<xcb_get_image_reply_t, void (*)(void*)> reply(
        xcb_get_image_reply(connection_.get(),
                            xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, 0, 0,
                                          screen_->width_in_pixels, screen_->height_in_pixels, ~0u),
                            nullptr),
        &std::free);
    if (!reply) {
        ADD_FAILURE() << "no picture of the display";
        return {};
    }
    const auto* bytes = xcb_get_image_data(reply.get());
    const auto length = static_cast<std::size_t>(xcb_get_image_data_length(reply.get()));
    std::set<std::uint32_t> colours;
    Picture picture;
    for (std::size_t at = 0; at + sizeof(std::uint32_t) <= length; at += sizeof(std::uint32_t)) {
        std::uint32_t pixel;
        std::memcpy(&pixel, bytes + at, sizeof pixel);
        if ((pixel & colourBits) == ground_)
            continue;
        ++picture.covered;
        colours.insert(pixel & colourBits);
    }
    picture.colours = colours.size();
    return picture;
}

} // namespace wardlock::test
