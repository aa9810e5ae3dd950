#pragma once

#include "cli/fullscreen/Sheet.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wardlock::cli {

/// All keys and what they do. Any key but those that scroll closes it.
class HelpSheet : public Sheet {
public:
    void draw(Canvas& canvas) override;
    void handle(const Key& key) override;
    std::vector<Hint> hints(const Glyphs& glyphs) const override;
    bool isClosed() const { return closed_; }

private:
    std::size_t top_ = 0;
    std::size_t lastTop_ = 0;
    std::size_t height_ = 1;
    bool closed_ = false;
};

} // namespace wardlock::cli
