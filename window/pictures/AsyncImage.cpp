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
        const int pixels = qRound(side * scale);
        auto& pictures = Pictures::shared();
        if (const auto known = pictures.find(address, pixels)) {
            image_ = *known;
        } else {
            awaited_ = QObject::connect(
                &pictures, &Pictures::arrived, &item_,
                [this](const QString& arrived, const QImage& picture) { take(arrived, picture); });
            pictures.fetch(address, pixels);
        }
    }
    shown_();
}

void AsyncImage::take(const QString& address, const QImage& picture) {
    if (address != address_)
        return;
    QObject::disconnect(awaited_);
    image_ = picture;
    shown_();
}

} // namespace wardlock::window
