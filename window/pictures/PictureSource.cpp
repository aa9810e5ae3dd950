#include "window/pictures/PictureSource.h"

#include "platform/base/Diagnostics.h"
#include "platform/files/FileSystem.h"
#include "window/pictures/SvgComplexity.h"

#include <QBuffer>
#include <QCache>
#include <QHash>
#include <QImageReader>
#include <QMutex>
#include <QUrl>

#include <cstdint>

namespace wardlock::window {

namespace {

constexpr int largestSide = 2048;
constexpr int megabytesToDecode = 32;
constexpr int picturesKept = 512;
constexpr QSize unknownSize(58, 58);
const QLatin1String addressStart("picture:");
constexpr const char* jpegBeginning = "\xff\xd8\xff";
/// How many bytes of an SVG file, declarations and comments, may precede its root element.
constexpr qsizetype svgBeginning = 4096;
/// Progressive pictures have about ten scans; each costs a pass over the whole picture.
constexpr qsizetype mostScans = 64;

/// Pictures that exist only as bytes, by the number in their address.
class KeptPictures {
public:
    quint64 keep(const std::shared_ptr<platform::UIImage>& image) {
        const QMutexLocker lock(&mutex_);
        const auto known = numbers_.constFind(image.get());
        if (known != numbers_.constEnd() && images_.contains(*known))
            return *known;
        const quint64 number = ++last_;
        numbers_.insert(image.get(), number);
        images_.insert(number, new std::shared_ptr<platform::UIImage>(image));
        if (numbers_.size() > qsizetype(4) * picturesKept)
            numbers_.removeIf([this](auto entry) { return !images_.contains(entry.value()); });
        return number;
    }
    std::shared_ptr<platform::UIImage> find(quint64 number) {
        const QMutexLocker lock(&mutex_);
        const auto* image = images_.object(number);
        return image ? *image : nullptr;
    }

private:
    QMutex mutex_;
    quint64 last_ = 0;
    QHash<const platform::UIImage*, quint64> numbers_;
    QCache<quint64, std::shared_ptr<platform::UIImage>> images_{picturesKept};
};

KeptPictures& keptPictures() {
    static KeptPictures pictures;
    return pictures;
}

/// Returns the picture's bytes; empty when it is not a regular file of bounded size.
QByteArray bytesOfFile(const QString& path) {
    std::string bytes;
    auto& files = platform::FileSystem::current();
    if (files.readFile(path.toStdString(), platform::UIImage::largestFile, bytes))
        return {};
    return QByteArray::fromStdString(bytes);
}

/// Returns the decoder for a picture of unknown origin: "png", "jpeg" or "svg", recognised from its bytes
/// alone. Returns none for anything else, and for a picture that would cost more than a row's picture may.
///
/// Each of these decoders is bounded in memory, but not in time: a few lines of SVG can ask for a million
/// million shapes or for other files, and a JPEG for a hundred thousand passes.
QByteArray decoderFor(const QByteArray& picture) {
    if (picture.startsWith("\x89PNG\r\n\x1a\n"))
        return "png";
    if (picture.startsWith(jpegBeginning))
        return picture.count("\xff\xda") <= mostScans ? "jpeg" : "";
    const bool isSvg = picture.left(svgBeginning).contains("<svg");
    return isSvg && SvgComplexity(picture).isWithinBounds() ? "svg" : "";
}

/// Returns an empty image for a picture that is broken or out of bounds.
QImage read(QByteArray bytes, const QSize& requestedSize) {
    const QByteArray decoder = decoderFor(bytes);
    if (decoder.isEmpty())
        return {};
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, decoder);
    reader.setAutoTransform(true);
    const QSize natural = reader.size();
    if (natural.width() > largestSide || natural.height() > largestSide)
        return {};
    const QSize wanted = requestedSize.isValid() && !requestedSize.isEmpty() ? requestedSize : unknownSize;
    if (natural.isValid())
        reader.setScaledSize(natural.scaled(wanted, Qt::KeepAspectRatio));
    return reader.read();
}

} // namespace

QString PictureSource::urlFor(const std::shared_ptr<platform::UIImage>& image) {
    if (!image || image->isEmpty())
        return {};
    if (image->bytes().empty())
        return addressStart + QStringLiteral("file/") +
               QString::fromLatin1(QUrl::toPercentEncoding(QString::fromStdString(image->path())));
    return addressStart + QStringLiteral("bytes/%1").arg(keptPictures().keep(image));
}

QImage PictureSource::decode(const QString& address, const QSize& requestedSize) {
    QImageReader::setAllocationLimit(megabytesToDecode);
    const QString id = address.mid(addressStart.size());
    if (id.startsWith(QLatin1String("file/"))) {
        const QString path = QUrl::fromPercentEncoding(id.mid(5).toLatin1());
        QImage image = read(bytesOfFile(path), requestedSize);
        if (image.isNull())
            platform::diagnose("The picture " + path.toStdString() +
                               " is left out: it is broken, or too much for a row.");
        return image;
    }
    if (const auto picture = keptPictures().find(id.mid(6).toULongLong()))
        return read(
            QByteArray::fromRawData(picture->bytes().data(), static_cast<qsizetype>(picture->bytes().size())),
            requestedSize);
    return {};
}

} // namespace wardlock::window
