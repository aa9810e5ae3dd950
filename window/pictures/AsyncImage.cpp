#include "window/pictures/AsyncImage.h"

#include "window/pictures/Pictures.h"

#include <QQuickWindow>

namespace wardlock::window {

AsyncImage::~AsyncImage() {
    QObject::disconnect(awaited_);
}

void AsyncImage::show(const QString& address, int side) {
    QObject::disconnect(awaited_);
    address_ = address;
    image_ = {};
    if (!address.isEmpty()) {
        const double scale = item_.window() ? item_.window()->effectiveDevicePixelRatio() : 1;
        pixels_ = qRound(side * scale);
        auto& pictures = Pictures::shared();
        if (const auto known = pictures.find(address, pixels_)) {
            image_ = *known;
        } else {
            awaited_ = QObject::connect(&pictures, &Pictures::arrived, &item_,
                                        [this](const QString& arrived, int pixels, const QImage& picture) {
                                            take(arrived, pixels, picture);
                                        });
            pictures.fetch(address, pixels_);
        }
    }
    shown_();
}

void AsyncImage::take(const QString& address, int pixels, const QImage& picture) {
    if (address != address_ || pixels != pixels_)
        return;
    QObject::disconnect(awaited_);
    image_ = picture;
    shown_();
}

} // namespace wardlock::window
