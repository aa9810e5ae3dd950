#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QSet>
#include <QThreadPool>

#include <optional>

namespace wardlock::window {

/// The pages' pictures for what is painted by hand: decoded once for a size, on a thread of its own, and kept
/// as long as they are among the last few hundred. Main thread only.
class Pictures : public QObject {
    Q_OBJECT

public:
    /// Lives as long as the application.
    static Pictures& shared();

    /// The picture at an address of PictureSource's, for a square of so many pixels. None: not decoded yet.
    std::optional<QImage> find(const QString& address, int side) const;
    /// Has it decoded; arrived() tells of it, later. A null image: it cannot be.
    void fetch(const QString& address, int side);

signals:
    void arrived(const QString& address, const QImage& picture);

private:
    using Key = QPair<QString, int>;

    Pictures();
    /// On the thread.
    void decode(const Key& key);
    void keep(const Key& key, const QImage& picture);

    QCache<Key, QImage> decoded_;
    QSet<Key> awaited_;
    /// Goes first, so that nothing is still being decoded when the rest goes.
    QThreadPool thread_;
};

} // namespace wardlock::window
