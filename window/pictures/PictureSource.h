#pragma once

#include "platform/ui/UIImage.h"

#include <QImage>
#include <QString>

#include <memory>

namespace wardlock::window {

/// Gives the pages' pictures addresses and decodes them. Pictures come from modules and applications that
/// nobody vouches for, so they are decoded within bounds; one that is too large or broken is empty.
class PictureSource {
public:
    /// The address of the picture; empty for null. Main thread only. A picture made of bytes stays known as
    /// long as it is among the last few hundred asked for.
    static QString urlFor(const std::shared_ptr<platform::UIImage>& image);

    /// The picture at an address, no larger than asked for; null where it cannot be had. Any thread.
    static QImage decode(const QString& address, const QSize& requestedSize);
};

} // namespace wardlock::window
