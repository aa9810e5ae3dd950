#pragma once

#include <QImage>
#include <QQuickItem>

#include <functional>

namespace wardlock::app {

/// The picture that an item paints in a square: null until it is decoded. Main thread only.
class AwaitedPicture {
public:
    /// `shown` is called whenever there is another picture to paint.
    AwaitedPicture(QQuickItem& item, std::function<void()> shown) : item_(item), shown_(std::move(shown)) {}
    ~AwaitedPicture();
    AwaitedPicture(const AwaitedPicture&) = delete;
    AwaitedPicture& operator=(const AwaitedPicture&) = delete;

    /// An address of PictureSource's, empty for none, and the side of the square in points.
    void show(const QString& address, int side);
    const QImage& image() const { return image_; }

private:
    void take(const QString& address, const QImage& picture);

    QQuickItem& item_;
    std::function<void()> shown_;
    QString address_;
    QImage image_;
    QMetaObject::Connection awaited_;
};

} // namespace wardlock::app
