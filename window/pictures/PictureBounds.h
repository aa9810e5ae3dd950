#pragma once

#include <QByteArray>

namespace wardlock::window {

/// Returns the decoder for a picture of unknown origin: "png", "jpeg" or "svg", recognised from its bytes
/// alone. Returns none for anything else, and for a picture that would cost more than a row's picture may.
///
/// Each of these decoders is bounded in memory, but not in time: a few lines of SVG can ask for a million
/// million shapes or for other files, and a JPEG for a hundred thousand passes. From any thread.
QByteArray decoderFor(const QByteArray& picture);

} // namespace wardlock::window
