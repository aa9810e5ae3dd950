#pragma once

#include <QByteArray>

namespace wardlock::window {

/// The decoder for a picture of unknown origin: "png", "jpeg" or "svg", told from its bytes alone; none when
/// it is something else, or would take more of the decoder than a row's picture may. Each of these decoders
/// is bounded in memory, but not in time: a few lines of SVG can ask for a million million shapes or for
/// other files, and a JPEG for a hundred thousand passes. From any thread.
QByteArray decoderFor(const QByteArray& picture);

} // namespace wardlock::window
