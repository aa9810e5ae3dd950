// The window's program, asked for pictures in different languages.

#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/unit/window/Scene.h"

#include <QFile>
#include <QImage>
#include <gtest/gtest.h>

namespace wardlock::test {

class WindowLanguage : public BusFixture {
protected:
    /// Of the account page, whose bar has the way back and, in the last 50 columns, the search.
    QImage pictureIn(const std::string& locale, const char* page = "3-account") const {
        const QString pictures = QString::fromStdString(folder() / locale);
        ProcessSetup setup = with("LC_ALL", locale);
        setup.environment["LANGUAGE"] = "";
        const Process program(programFolder() + "/wardlock-settings",
                              {"--light", "--screenshots", pictures.toStdString()}, setup);
        // The picture is whole when the next one is begun.
        EXPECT_TRUE(until([&] { return QFile::exists(pictures + "/4-apps-light.png"); }));
        return QImage(pictures + '/' + page + QStringLiteral("-light.png"));
    }

    /// The columns of the bar between the first dark letter and the last.
    static int widthOfTitle(const QImage& picture) {
        std::vector<int> dark;
        for (int x = 0; x < picture.width(); ++x)
            for (int y = 0; y < 44; ++y)
                if (picture.pixelColor(x, y).value() < 60)
                    dark.push_back(x);
        return dark.empty() ? 0 : dark.back() - dark.front();
    }

    /// How many pixels of the bar, between two columns, have the colour of what can be pressed.
    static int tinted(const QImage& picture, int from, int to) {
        int count = 0;
        for (int y = 0; y < 50; ++y)
            for (int x = from; x < to; ++x)
                count += picture.pixelColor(x, y) == QColor(0x00, 0x7a, 0xff);
        return count;
    }
};

TEST_F(WindowLanguage, HasTheBackButtonOnTheLeftForLeftToRightText) {
    const QImage picture = pictureIn("C");
    ASSERT_EQ(picture.width(), 390);
    EXPECT_GT(tinted(picture, 0, 150), 20);
    EXPECT_EQ(tinted(picture, 240, 340), 0);
    EXPECT_GT(tinted(picture, 340, 390), 0);
}

TEST_F(WindowLanguage, IsMirroredForRightToLeftText) {
    const QImage picture = pictureIn("ar_EG.UTF-8");
    ASSERT_EQ(picture.width(), 390);
    EXPECT_GT(tinted(picture, 0, 50), 0);
    EXPECT_EQ(tinted(picture, 50, 150), 0);
    EXPECT_GT(tinted(picture, 240, 390), 20);
}

TEST_F(WindowLanguage, IsThatOfTheEnvironment) {
    const int english = widthOfTitle(pictureIn("C", "1-first-page"));
    const int german = widthOfTitle(pictureIn("de_DE.UTF-8", "1-first-page"));
    EXPECT_GT(english, 50);
    // "Einstellungen" has more letters than "Settings".
    EXPECT_GT(german, english + 20);
}

} // namespace wardlock::test
