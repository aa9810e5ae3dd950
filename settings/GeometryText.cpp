#include "settings/GeometryText.h"

#include "platform/text/Format.h"

namespace wardlock {

std::string frameToString(const platform::CGRect& frame) {
    return platform::stringWithFormat("{%f, %f, %f, %f}", frame.origin.x, frame.origin.y, frame.size.width,
                                      frame.size.height);
}

std::string sizeToString(const platform::CGSize& size) {
    return platform::stringWithFormat("{%f, %f}", size.width, size.height);
}

std::string pointToString(const platform::CGPoint& point) {
    return platform::stringWithFormat("{%f, %f}", point.x, point.y);
}

} // namespace wardlock
