#pragma once

#include "platform/ui/UIImage.h"

#include <QImage>
#include <QString>

#include <memory>

namespace wardlock::window {

/// Gives the pages' pictures addresses and decodes them. Pictures come from untrusted modules and
/// applications, so they are decoded within bounds; one that is too large or broken is empty.
class PictureSource {
public:
    /// Returns the address of the picture; empty for null or an empty one. Main thread only. A picture made
    /// of bytes stays available while it is among the last few hundred requested.
    static QString urlFor(const std::shared_ptr<platform::UIImage>& image);

    /// Returns the picture at an address, no larger than `requestedSize`; null where it cannot be decoded.
    /// Any thread.
    static QImage decode(const QString& address, const QSize& requestedSize);
};

} // namespace wardlock::window
