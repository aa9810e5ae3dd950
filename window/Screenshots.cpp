#include "window/Screenshots.h"

#include "shell/input/ManualClock.h"
#include "shell/screen/EscapedText.h"
#include "window/WindowHost.h"
#include "window/models/Text.h"
#include "window/pictures/Pictures.h"

#include <QDir>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <cstdio>

namespace wardlock::window {

namespace {

/// Opens the pages as a user would and writes a picture of each.
class ScreenshotSeries {
public:
    ScreenshotSeries(const Options& options, QString suffix, bool dark, QSize size)
        : folder_(toQt(options.screenshots)), suffix_(std::move(suffix)), host_(clock_, 0) {
        host_.appearance().ignoreDesktop();
        host_.appearance().force(dark);
        host_.appearance().forceTextScale(options.textScale.value_or(1));
        host_.appearance().forceHighContrast(options.highContrast);
        if (auto* window = host_.window()) {
            window->resize(size);
            window->show();
        }
    }

    bool run() {
        if (!host_.window())
            return false;
        take("1-first-page");
        tap("Wardlock");
        if (host_.settings().keypad()) {
            std::fputs("wardlock-settings: cannot take pictures of settings that a passcode protects\n",
                       stderr);
            return false;
        }
        take("2-wardlock");
        visitAccount();
        visitSheets();
        tap("Change Log");
        take("8-change-log");
        host_.settings().goBack();
        tap("More From Tavix");
        take("9-more");
        return complete_;
    }

private:
    void visitAccount() {
        const auto& page = host_.settings().application().screen().page();
        if (page->sectionCount() < 2 || page->section(1).rowCount == 0)
            return;
        this->page()->tapRow(1, 0);
        take("3-account");
        tap("Apps");
        take("4-apps");
        host_.settings().goBack();
        host_.settings().goBack();
    }

    void visitSheets() {
        host_.settings().tapBarButton();
        take("5-new-account");
        if (auto* alert = host_.settings().alert())
            alert->choose(0);
        tap("Passcode");
        clock_.step(fade);
        take("6-passcode");
        if (auto* keypad = host_.settings().keypad())
            keypad->pressCancel();
        clock_.step(fade);
        tap("support@tavix.example");
        if (auto* composer = host_.settings().composer()) {
            take("7-mail");
            composer->cancel();
        }
    }

    PageModel* page() { return dynamic_cast<PagesModel*>(host_.settings().pages())->top(); }

    void tap(const char* label) {
        const auto& shown = host_.settings().application().screen().page();
        for (std::size_t section = 0; section < shown->sectionCount(); ++section)
            for (std::size_t row = 0; row < shown->section(section).rowCount; ++row)
                if (shown->row({section, row}).label == label)
                    return page()->tapRow(static_cast<int>(section), static_cast<int>(row));
        std::fprintf(stderr, "wardlock-settings: cannot take a picture: no row '%s'\n", label);
        complete_ = false;
    }

    /// The first frames start animations and the decoding of pictures.
    void settle() {
        waitUntilStill();
        Pictures::shared().waitForFetched(longestWait);
        waitUntilStill();
    }

    /// Returns once no frame has been drawn for a while.
    void waitUntilStill() {
        QEventLoop loop;
        QTimer still;
        still.setSingleShot(true);
        QObject::connect(&still, &QTimer::timeout, &loop, &QEventLoop::quit);
        QObject::connect(host_.window(), &QQuickWindow::frameSwapped, &still,
                         [&] { still.start(stillness); });
        QTimer::singleShot(longestWait, &loop, &QEventLoop::quit);
        still.start(stillness);
        loop.exec();
    }

    void take(const char* name) {
        settle();
        const QString path = folder_.filePath(QString::fromLatin1(name) + suffix_ + QStringLiteral(".png"));
        const QImage picture = host_.window()->grabWindow().convertToFormat(QImage::Format_RGB888);
        if (picture.save(path, "PNG", smallestFile))
            return;
        std::fprintf(stderr, "wardlock-settings: cannot write %s\n",
                     shell::escaped(path.toStdString()).c_str());
        complete_ = false;
    }

    static constexpr double fade = 0.5;
    static constexpr std::chrono::milliseconds stillness{120};
    static constexpr std::chrono::milliseconds longestWait{2000};
    /// In a format without loss, the quality is the time spent on compression.
    static constexpr int smallestFile = 0;

    QDir folder_;
    QString suffix_;
    shell::ManualClock clock_;
    WindowHost host_;
    bool complete_ = true;
};

} // namespace

int takeScreenshots(const Options& options) {
    if (!QDir().mkpath(toQt(options.screenshots))) {
        std::fprintf(stderr, "wardlock-settings: cannot create folder %s\n",
                     shell::escaped(options.screenshots).c_str());
        return 1;
    }
    constexpr QSize phone(390, 844);
    constexpr QSize desktop(1024, 768);
    bool complete = true;
    for (const bool dark : {false, true}) {
        if (options.dark.value_or(dark) != dark)
            continue;
        const QString appearance = dark ? QStringLiteral("-dark") : QStringLiteral("-light");
        complete = ScreenshotSeries(options, appearance, dark, phone).run() && complete;
        complete =
            ScreenshotSeries(options, appearance + QStringLiteral("-wide"), dark, desktop).run() && complete;
    }
    return complete ? 0 : 1;
}

} // namespace wardlock::window
