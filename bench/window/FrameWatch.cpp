#include "bench/window/FrameWatch.h"

#include <QEventLoop>
#include <QQuickItem>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace wardlock::bench {

namespace {

constexpr int longestWait = 20'000;
constexpr int quietMilliseconds = 150;
constexpr int scrolledFrames = 400;
constexpr double pointsPerFrame = 24;

/// Returns the first item named "list" in the window's order; null when there is none.
QQuickItem* findList(QQuickItem& item) {
    if (item.objectName() == QLatin1String("list"))
        return &item;
    const auto children = item.childItems();
    // The topmost page is the last one.
    for (auto child = children.crbegin(); child != children.crend(); ++child)
        if (auto* const found = findList(**child))
            return found;
    return nullptr;
}

} // namespace

void FrameWatch::settle() {
    bool quiet = false;
    const auto frame = QObject::connect(&window_, &QQuickWindow::frameSwapped, [&] { quiet = false; });
    while (!quiet) {
        quiet = true;
        QEventLoop pause;
        QTimer::singleShot(quietMilliseconds, &pause, &QEventLoop::quit);
        pause.exec();
    }
    QObject::disconnect(frame);
}

void FrameWatch::start() {
    wallStart_ = wallNanoseconds();
    processorStart_ = processorNanoseconds();
}

void FrameWatch::finish(Samples& samples) {
    waitForFrame();
    samples.processor.push_back(static_cast<double>(processorNanoseconds() - processorStart_));
    samples.wall.push_back(static_cast<double>(wallNanoseconds() - wallStart_));
}

void FrameWatch::waitForFrame() {
    QEventLoop loop;
    QObject::connect(&window_, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
    QTimer::singleShot(longestWait, &loop, [&] { loop.exit(1); });
    window_.update();
    if (loop.exec() != 0) {
        std::fputs("no frame was painted\n", stderr);
        std::exit(1);
    }
}

void FrameWatch::measureScrolling(const Row& row) {
    QQuickItem* const scrolled = findList(*window_.contentItem());
    if (!scrolled) {
        std::fputs("there is no list\n", stderr);
        std::exit(1);
    }
    const double top = scrolled->property("contentY").toDouble();
    Samples samples;
    for (int frame = 1; frame <= scrolledFrames; ++frame) {
        start();
        scrolled->setProperty("contentY", top + frame * pointsPerFrame);
        finish(samples);
    }
    constexpr double late = 0.95;
    report(row, "ns", std::move(samples), late);
}

} // namespace wardlock::bench
