#pragma once

#include <QObject>

#include <optional>

namespace wardlock::app {

/// Light or dark, and the size of the text: the system's unless forced. Follows the system while it runs.
class Appearance : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool dark READ isDark NOTIFY changed)
    Q_PROPERTY(double textScale READ textScale NOTIFY changed)

public:
    Appearance();

    bool isDark() const;
    double textScale() const;
    /// None: as the system has it.
    void force(std::optional<bool> dark);
    void forceTextScale(std::optional<double> scale);

signals:
    void changed();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::optional<bool> dark_;
    std::optional<double> textScale_;
};

} // namespace wardlock::app
