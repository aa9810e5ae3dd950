#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QSet>
#include <QThreadPool>

#include <chrono>
#include <optional>

namespace wardlock::window {

/// The pages' pictures for items that paint themselves: decoded once for each size, on a thread of its own,
/// and kept while they are among the last few hundred. Main thread only.
class Pictures : public QObject {
    Q_OBJECT

public:
    /// Lives as long as the application.
    static Pictures& shared();

    /// Returns the picture at an address of PictureSource, for a square of `side` pixels. None: not decoded
    /// yet.
    std::optional<QImage> find(const QString& address, int side) const;
    /// Decodes the picture in the background; arrived() reports it. A null image: it cannot be decoded.
    void fetch(const QString& address, int side);
    /// Waits until everything fetched so far has arrived, or until that time has passed.
    void waitForFetched(std::chrono::milliseconds most);

signals:
    void arrived(const QString& address, int side, const QImage& picture);

private:
    using Key = QPair<QString, int>;

    Pictures();
    /// Runs on the thread.
    void decode(const Key& key);
    void keep(const Key& key, const QImage& picture);

    QCache<Key, QImage> decoded_;
    QSet<Key> awaited_;
    /// Destroyed first, so that nothing is being decoded while the other members are destroyed.
    QThreadPool thread_;
};

} // namespace wardlock::window
