#pragma once

#include <QImage>
#include <QQuickItem>

#include <functional>

namespace wardlock::window {

/// The picture that an item paints in a square: null until it is decoded. Main thread only.
class AsyncImage {
public:
    /// `shown` is called whenever there is another picture to paint.
    AsyncImage(QQuickItem& item, std::function<void()> shown) : item_(item), shown_(std::move(shown)) {}
    ~AsyncImage();
    AsyncImage(const AsyncImage&) = delete;
    AsyncImage& operator=(const AsyncImage&) = delete;

    /// `address` comes from PictureSource, empty for none; `side` is the side of the square in points.
    void show(const QString& address, int side);
    const QImage& image() const { return image_; }

private:
    void take(const QString& address, int pixels, const QImage& picture);

    QQuickItem& item_;
    std::function<void()> shown_;
    QString address_;
    /// The side of the square.
    int pixels_ = 0;
    QImage image_;
    QMetaObject::Connection awaited_;
};

} // namespace wardlock::window
