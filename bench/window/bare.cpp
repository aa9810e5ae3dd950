// A plain Qt Quick window without Wardlock: the comparison for the window.
//
//   bench-bare-window            an empty window, until it is ended
//   bench-bare-window text       a window with one text, until it is ended
//   bench-bare-window list       10,000 texts, from the making of the list until it is painted
//   bench-bare-window scroll     frames of that list while it scrolls

#include "bench/InstalledApplications.h"
#include "bench/Timing.h"
#include "bench/window/FrameWatch.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QStringListModel>

#include <string_view>

using namespace wardlock::bench;

namespace {

constexpr int times = 15;

void measureList(QQuickWindow& window) {
    FrameWatch watch(window);
    Samples samples;
    for (int i = 0; i <= times; ++i) {
        watch.settle();
        watch.start();
        window.setProperty("shown", true);
        watch.finish(samples);
        window.setProperty("shown", false);
        if (i == 0)
            samples = {};
    }
    report({"picker", "floor", "bare ListView"}, "ns", std::move(samples));
}

void measureScroll(QQuickWindow& window) {
    window.setProperty("shown", true);
    FrameWatch watch(window);
    watch.settle();
    watch.measureScrolling({"scroll", "floor", "bare ListView"});
}

} // namespace

int main(int count, char** words) {
    const QGuiApplication application(count, words);
    const std::string_view verb = count > 1 ? words[1] : "";
    QStringListModel names;
    QQmlApplicationEngine engine;
    const bool showsList = verb == "list" || verb == "scroll";
    if (!showsList && !verb.empty() && verb != "text")
        return notOffered;
    if (showsList) {
        QStringList texts;
        for (const std::string& name : sampleNames(pickerRows))
            texts.append(QString::fromStdString(name));
        names.setStringList(texts);
        engine.rootContext()->setContextProperty(QStringLiteral("names"), &names);
    }
    engine.load(showsList      ? QStringLiteral("qrc:/Bare/BareList.qml")
                : verb.empty() ? QStringLiteral("qrc:/Bare/BareWindow.qml")
                               : QStringLiteral("qrc:/Bare/BareText.qml"));
    auto* window =
        engine.rootObjects().isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(engine.rootObjects().front());
    if (!window)
        return 1;
    if (!showsList)
        return QGuiApplication::exec();
    if (verb == "list")
        measureList(*window);
    else
        measureScroll(*window);
    return 0;
}
