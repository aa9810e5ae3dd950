#pragma once

#include "window/items/Appearance.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QString>
#include <QVariantMap>

class QQuickItem;

namespace wardlock::window {

/// Every colour, size and duration of the window, in QML the singleton `Theme`, one for each engine. Sizes
/// are in points and grow with the text.
class Theme : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool dark READ isDark NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY changed)
    Q_PROPERTY(bool mirrored READ isMirrored NOTIFY changed)
    Q_PROPERTY(double textScale READ textScale NOTIFY changed)
    Q_PROPERTY(double signScale READ signScale NOTIFY changed)
    Q_PROPERTY(double barScale READ barScale NOTIFY changed)
    Q_PROPERTY(double windowWidth READ windowWidth WRITE setWindowWidth NOTIFY changed)
    Q_PROPERTY(QString family READ family CONSTANT)
    Q_PROPERTY(int body READ body NOTIFY changed)
    Q_PROPERTY(int barText READ barText NOTIFY changed)
    Q_PROPERTY(int small READ smallText NOTIFY changed)
    Q_PROPERTY(QColor ground READ ground NOTIFY changed)
    Q_PROPERTY(QColor card READ card NOTIFY changed)
    Q_PROPERTY(QColor pressed READ pressed NOTIFY changed)
    Q_PROPERTY(QColor hovered READ hovered NOTIFY changed)
    Q_PROPERTY(QColor bar READ bar NOTIFY changed)
    Q_PROPERTY(QColor label READ label NOTIFY changed)
    Q_PROPERTY(QColor secondary READ secondary NOTIFY changed)
    Q_PROPERTY(QColor value READ value NOTIFY changed)
    Q_PROPERTY(QColor placeholder READ placeholder NOTIFY changed)
    Q_PROPERTY(QColor separator READ separator NOTIFY changed)
    Q_PROPERTY(QColor chevron READ chevron NOTIFY changed)
    Q_PROPERTY(QColor tint READ tint NOTIFY changed)
    Q_PROPERTY(QColor destructive READ destructive NOTIFY changed)
    Q_PROPERTY(QColor on READ on NOTIFY changed)
    Q_PROPERTY(QColor off READ off NOTIFY changed)
    Q_PROPERTY(QColor sheet READ sheet NOTIFY changed)
    Q_PROPERTY(QColor field READ field NOTIFY changed)
    Q_PROPERTY(QColor search READ search NOTIFY changed)
    Q_PROPERTY(QColor scrim READ scrim CONSTANT)
    Q_PROPERTY(QColor focus READ focus NOTIFY changed)
    Q_PROPERTY(QColor focusOnDark READ focusOnDark CONSTANT)
    Q_PROPERTY(int focusWidth READ focusWidth NOTIFY changed)
    Q_PROPERTY(bool wrapsRows READ wrapsRows NOTIFY changed)
    Q_PROPERTY(int rowHeight READ rowHeight NOTIFY changed)
    Q_PROPERTY(int barHeight READ barHeight NOTIFY changed)
    Q_PROPERTY(int margin READ margin NOTIFY changed)
    Q_PROPERTY(int inset READ inset NOTIFY changed)
    Q_PROPERTY(int corner MEMBER corner CONSTANT)
    Q_PROPERTY(int icon READ icon NOTIFY changed)
    Q_PROPERTY(int besideIcon READ besideIcon NOTIFY changed)
    Q_PROPERTY(int widest MEMBER widest CONSTANT)

public:
    explicit Theme(const Appearance& appearance);
    /// Registers the type in QML's module Wardlock.Native. Repeated calls in a process do no harm.
    static void install();
    /// Returns the font of texts at the usual scale.
    static QFont usualFont();
    /// Returns the theme of the item's window, through the nearest ancestor that QML created; null for none.
    static Theme* of(const QQuickItem& item);

    bool isDark() const { return dark_; }
    /// Animations only fade: nothing slides, grows or shakes.
    bool reducedMotion() const { return appearance_.reducedMotion(); }
    /// Reading begins on the right.
    bool isMirrored() const;
    double textScale() const { return textScale_; }
    /// Of icons, switches and other signs. They grow less in a narrow window, and never shrink: they are hit.
    double signScale() const;
    double windowWidth() const { return windowWidth_; }
    void setWindowWidth(double width);
    static QString family() { return QStringLiteral("Inter"); }
    static constexpr int usualBody = 17;
    int body() const { return scaled(usualBody); }
    /// A bar has three texts beside each other, so they grow less, in a narrow window least.
    double barScale() const;
    int barText() const { return qRound(usualBody * barScale()); }
    int smallText() const { return scaled(13); }
    QColor ground() const { return isDark() ? 0x000000 : 0xf2f2f7; }
    QColor card() const { return isDark() ? 0x1c1c1e : 0xffffff; }
    QColor pressed() const { return isDark() ? 0x2c2c2e : 0xd9d9de; }
    QColor hovered() const { return isDark() ? 0x242427 : 0xf0f0f4; }
    QColor bar() const { return isDark() ? 0x161618 : 0xf9f9f9; }
    QColor label() const { return isDark() ? 0xffffff : 0x000000; }
    QColor secondary() const { return shade(0x6d6d72, 0x8e8e93, 0x48484c, 0xc7c7cc); }
    QColor value() const { return shade(0x8a8a8e, 0x98989f, 0x48484c, 0xc7c7cc); }
    QColor placeholder() const { return shade(0xbcbcc0, 0x5f5f63, 0x6d6d72, 0x98989f); }
    QColor separator() const { return shade(0xc6c6c8, 0x38383a, 0x8a8a8e, 0x7c7c80); }
    QColor chevron() const { return shade(0xc4c4c7, 0x5a5a5e, 0x6d6d72, 0xaeaeb2); }
    QColor tint() const { return shade(0x007aff, 0x0a84ff, 0x0040dd, 0x409cff); }
    QColor destructive() const { return shade(0xff3b30, 0xff453a, 0xc40013, 0xff6961); }
    QColor on() const { return shade(0x34c759, 0x30d158, 0x248a3d, 0x30db5b); }
    QColor off() const { return shade(0xe9e9ea, 0x39393d, 0xaeaeb2, 0x6c6c70); }
    QColor sheet() const { return isDark() ? 0x2c2c2e : 0xf4f4f4; }
    QColor field() const { return isDark() ? 0x1c1c1e : 0xffffff; }
    QColor search() const { return isDark() ? 0x1c1c1e : 0xe3e3e8; }
    QColor scrim() const { return QColor::fromRgba(0x66000000); }
    /// The ring around the item in keyboard focus: a contrast of 3:1 at least on every colour above.
    QColor focus() const { return shade(0x0060df, 0x409cff, 0x000000, 0xffffff); }
    /// The same on a notice and on the keypad, which are always dark.
    QColor focusOnDark() const { return 0xffffff; }
    int focusWidth() const { return strong_ ? 4 : 3; }
    bool wrapsRows() const { return textScale_ > 1 || isNarrow(); }
    int rowHeight() const { return qMax(44, scaled(44)); }
    int barHeight() const;
    /// Beside the cards of a page, and within them.
    int margin() const { return isCrowded() ? 8 : 16; }
    int inset() const { return isCrowded() ? 12 : 16; }
    const int corner = 10;
    const int widest = 720;
    int icon() const { return qRound(29 * signScale()); }
    /// The start of a label beside an icon.
    int besideIcon() const { return inset() + icon() + (isCrowded() ? 10 : 15); }
    /// The margin that keeps a column readable on a wide window.
    Q_INVOKABLE double sideMargin(double width) const;
    /// Returns the width of the text in body size, in one line.
    Q_INVOKABLE double widthOf(const QString& text) const;
    /// Returns what is shown of a row's text where it may take several lines, as `text`, and their `size`.
    Q_INVOKABLE QVariantMap fitted(const QString& text, double room) const;

signals:
    void changed();

private:
    int scaled(int points) const { return qRound(points * textScale()); }
    /// Large letters in a narrow window.
    bool isCrowded() const { return textScale_ > 1 && isNarrow(); }
    bool isNarrow() const;
    QColor shade(QRgb day, QRgb night, QRgb strongDay, QRgb strongNight) const {
        return dark_ ? (strong_ ? strongNight : night) : (strong_ ? strongDay : day);
    }
    void follow();
    const Appearance& appearance_;
    bool dark_ = false;
    /// High contrast.
    bool strong_ = false;
    double textScale_ = 1;
    double windowWidth_ = widest;
};

} // namespace wardlock::window
