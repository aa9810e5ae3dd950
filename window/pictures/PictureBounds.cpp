#include "window/pictures/PictureBounds.h"

#include "window/pictures/SvgComplexity.h"

namespace wardlock::window {

namespace {

constexpr const char* jpegBeginning = "\xff\xd8\xff";
/// How many bytes of an SVG file, declarations and comments, may precede its root element.
constexpr qsizetype svgBeginning = 4096;
/// Progressive pictures have about ten scans; each costs a pass over the whole picture.
constexpr qsizetype mostScans = 64;

} // namespace

QByteArray decoderFor(const QByteArray& picture) {
    if (picture.startsWith("\x89PNG\r\n\x1a\n"))
        return "png";
    if (picture.startsWith(jpegBeginning))
        return picture.count("\xff\xda") <= mostScans ? "jpeg" : "";
    const bool isSvg = picture.left(svgBeginning).contains("<svg");
    return isSvg && SvgComplexity(picture).isWithinBounds() ? "svg" : "";
}

} // namespace wardlock::window
