#include "window/pictures/Pictures.h"

#include "window/pictures/PictureSource.h"

#include <QCoreApplication>

namespace wardlock::window {

namespace {

constexpr int picturesKept = 512;

} // namespace

Pictures::Pictures() : QObject(QCoreApplication::instance()), decoded_(picturesKept) {
    thread_.setMaxThreadCount(1);
}

Pictures& Pictures::shared() {
    static Pictures* const pictures = new Pictures;
    return *pictures;
}

std::optional<QImage> Pictures::find(const QString& address, int side) const {
    const auto* known = decoded_.object({address, side});
    return known ? std::optional(*known) : std::nullopt;
}

void Pictures::fetch(const QString& address, int side) {
    const Key key(address, side);
    if (awaited_.contains(key))
        return;
    awaited_.insert(key);
    thread_.start([this, key] { decode(key); });
}

void Pictures::waitForFetched(std::chrono::milliseconds most) {
    thread_.waitForDone(static_cast<int>(most.count()));
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void Pictures::decode(const Key& key) {
    const QImage picture = PictureSource::decode(key.first, {key.second, key.second});
    QMetaObject::invokeMethod(
        this, [this, key, picture] { keep(key, picture); }, Qt::QueuedConnection);
}

void Pictures::keep(const Key& key, const QImage& picture) {
    awaited_.remove(key);
    decoded_.insert(key, new QImage(picture));
    emit arrived(key.first, key.second, picture);
}

} // namespace wardlock::window
