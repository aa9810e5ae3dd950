// The tests of the window, without a display: pictures are drawn in memory.

#include "window/Graphics.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    wardlock::window::chooseGraphics(wardlock::window::DrawnOn::Memory);
    QGuiApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
