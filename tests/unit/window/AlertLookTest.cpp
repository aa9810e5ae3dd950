#include "tests/unit/window/WindowFixture.h"

#include <QImage>
#include <gtest/gtest.h>

namespace wardlock::test {

class WindowAlert : public WindowFixture {
protected:
    void openAlert() {
        scene().tap("add");
        const auto* box = scene().item("alert");
        ASSERT_TRUE(until([&] { return box->scale() == 1 && box->opacity() == 1; }));
    }
};

TEST_F(WindowAlert, HasALineBetweenItsTwoButtonsInEitherDirection) {
    openWardlock();
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QGuiApplication::setLayoutDirection(direction);
        openAlert();
        const auto* box = scene().item("alert");
        const QPoint middle(static_cast<int>(box->mapToScene({box->width() / 2, 0}).x()),
                            static_cast<int>(scene().middleOf("alert:Cancel").y()));
        const QImage picture = window().grabWindow();
        const QColor ground = picture.pixelColor(middle + QPoint(6, 0));
        bool line = false;
        for (int x = -2; x <= 2; ++x)
            line = line || picture.pixelColor(middle + QPoint(x, 0)) != ground;
        EXPECT_TRUE(line) << direction;
        scene().tap("alert:Cancel");
        scene().expectGone("alert");
    }
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(WindowAlert, CanBeChosenFromInALowWindow) {
    open(0, {280, 360});
    scene().tap("row:Wardlock");
    scene().item("row:Passcode");
    host().appearance().forceTextScale(3);
    openAlert();
    const auto* box = scene().item("alert");
    EXPECT_GE(box->y(), 0);
    EXPECT_LE(box->y() + box->height(), window().height());
    const auto* texts = scene().item("alert:texts");
    EXPECT_GT(texts->property("contentHeight").toDouble(), texts->height());
    for (const char* name : {"alert:Cancel", "alert:Create"}) {
        const auto* button = scene().item(name);
        const QRectF place = button->mapRectToScene(button->boundingRect());
        EXPECT_LE(place.bottom(), window().height()) << name;
        EXPECT_LE(texts->mapRectToScene(texts->boundingRect()).bottom(), place.top()) << name;
    }
    scene().tap("alert:Cancel");
    scene().expectGone("alert");
}

} // namespace wardlock::test
