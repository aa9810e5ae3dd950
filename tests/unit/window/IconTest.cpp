// Pictures that are made to exhaust the process that shows them.

#include "platform/ui/UIImage.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/TestTimeout.h"
#include "window/pictures/PictureSource.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/stat.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

const std::string svgStart =
    R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="29" height="29">)";
const std::string square = R"(<rect width="29" height="29" fill="red"/>)";

std::string repeated(int times, const std::string& text) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

/// Levels of groups, each of which uses the one before so many times.
std::string usesOfUses(int levels, int times) {
    std::string all = "<defs><g id=\"level0\">" + square + "</g>";
    for (int level = 1; level <= levels; ++level)
        all += "<g id=\"level" + std::to_string(level) + "\">" +
               repeated(times, "<use xlink:href=\"#level" + std::to_string(level - 1) + "\"/>") + "</g>";
    return svgStart + all + "</defs><use xlink:href=\"#level" + std::to_string(levels) + "\"/></svg>";
}

std::string encoded(const char* format, int width, int height, bool progressive = false) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setProgressiveScanWrite(progressive);
    EXPECT_TRUE(writer.write(image));
    return bytes.toStdString();
}

std::string png(int width, int height) {
    return encoded("PNG", width, height);
}

class ShownIcon : public DeviceRootFixture {
protected:
    /// What the window would show of the picture.
    static QImage shown(const std::string& bytes) {
        return shownAt(window::PictureSource::urlFor(std::make_shared<platform::UIImage>("", bytes)));
    }
    static QImage shownOf(const std::string& path) {
        return shownAt(window::PictureSource::urlFor(std::make_shared<platform::UIImage>(path, "")));
    }
    static bool isShown(const std::string& bytes) {
        const QImage image = shown(bytes);
        return !image.isNull() && image.pixelColor(image.width() / 2, image.height() / 2).red() > 200;
    }
    static QImage shownAt(const QString& url) { return window::PictureSource::decode(url, QSize(58, 58)); }
};

TEST_F(ShownIcon, IsShownInEachKnownFormat) {
    EXPECT_TRUE(isShown(png(58, 58)));
    EXPECT_TRUE(isShown(encoded("JPEG", 58, 58)));
    EXPECT_TRUE(isShown(svgStart + square + "</svg>"));
    EXPECT_TRUE(isShown("<?xml version=\"1.0\"?><!-- drawn by hand -->" + svgStart + square + "</svg>"));
}

TEST_F(ShownIcon, IsLeftOutInAnotherFormat) {
    EXPECT_FALSE(isShown(encoded("BMP", 58, 58)));
    EXPECT_FALSE(isShown(encoded("PPM", 58, 58)));
    EXPECT_FALSE(isShown("text"));
    EXPECT_FALSE(isShown(""));
}

TEST_F(ShownIcon, IsLeftOutWithEnormousDimensions) {
    EXPECT_TRUE(isShown(png(2048, 2048)));
    EXPECT_FALSE(isShown(png(2049, 1)));
    EXPECT_FALSE(isShown(png(1, 20000)));
    std::string lie = png(58, 58);
    // Width and height of the header, whose check sum is then wrong too.
    lie.replace(16, 8, "\x7f\xff\xff\xff\x7f\xff\xff\xff", 8);
    EXPECT_FALSE(isShown(lie));
    const std::string shape = "<rect width=\"1e9\" height=\"1e9\" fill=\"red\"/></svg>";
    EXPECT_FALSE(isShown("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1e9\" height=\"1e9\">" + shape));
    EXPECT_FALSE(isShown("<svg xmlns=\"http://www.w3.org/2000/svg\">" + shape));
}

TEST_F(ShownIcon, IsShownWhenItUsesItsShapesAFewTimes) {
    EXPECT_TRUE(isShown(usesOfUses(2, 10)));
}

TEST_F(ShownIcon, IsLeftOutWhenItUsesItsShapesMillionsOfTimes) {
    EXPECT_FALSE(isShown(usesOfUses(4, 40)));
    EXPECT_FALSE(isShown(usesOfUses(20, 10)));
    EXPECT_FALSE(isShown(usesOfUses(2000, 1)));
}

TEST_F(ShownIcon, IsLeftOutWhenItUsesItself) {
    const std::string circle =
        "<g id=\"a\"><use xlink:href=\"#b\"/></g><g id=\"b\"><use xlink:href=\"#a\"/></g>";
    EXPECT_FALSE(isShown(svgStart + circle + square + "</svg>"));
    EXPECT_FALSE(isShown(svgStart + "<g id=\"a\" fill=\"url(#a)\">" + square + "</g></svg>"));
}

TEST_F(ShownIcon, IsLeftOutWhenShapesAreFilledWithThousandsOfShapes) {
    const std::string pattern =
        "<pattern id=\"p\" width=\"1\" height=\"1\">" + repeated(3000, square) + "</pattern>";
    const std::string filled = "<path d=\"M0 0 H29 V29 H0 Z\" style=\"fill: url('#p')\"/>";
    EXPECT_TRUE(isShown(svgStart + pattern + square + "</svg>"));
    EXPECT_FALSE(isShown(svgStart + pattern + repeated(10, filled) + square + "</svg>"));
    EXPECT_FALSE(isShown(svgStart + "<style>rect { fill: url(#p) }</style>" + pattern + square + "</svg>"));
}

TEST_F(ShownIcon, IsShownWithGradients) {
    const std::string colours = "<linearGradient id=\"c\">" + repeated(50, "<stop stop-color=\"red\"/>") +
                                "</linearGradient><g fill=\"url(#c)\">" +
                                repeated(1000, "<rect width=\"29\" height=\"29\" fill=\"url(#c)\"/>") +
                                "</g>";
    EXPECT_TRUE(isShown(svgStart + colours + "</svg>"));
}

TEST_F(ShownIcon, IsLeftOutWithTooManyShapesOrTooDeepNesting) {
    EXPECT_TRUE(isShown(svgStart + repeated(1000, square) + "</svg>"));
    EXPECT_FALSE(isShown(svgStart + repeated(20001, square) + "</svg>"));
    EXPECT_TRUE(isShown(svgStart + repeated(50, "<g>") + square + repeated(50, "</g>") + "</svg>"));
    EXPECT_FALSE(isShown(svgStart + repeated(20000, "<g>") + square + repeated(20000, "</g>") + "</svg>"));
}

TEST_F(ShownIcon, IsLeftOutWithEntitiesThatMultiply) {
    std::string declared = "<!ENTITY e0 \"aaaaaaaaaa\">";
    for (int level = 1; level < 10; ++level)
        declared += "<!ENTITY e" + std::to_string(level) + " \"" +
                    repeated(10, "&e" + std::to_string(level - 1) + ";") + "\">";
    EXPECT_FALSE(
        isShown("<!DOCTYPE svg [" + declared + "]>" + svgStart + square + "<text>&e9;</text></svg>"));
}

TEST_F(ShownIcon, IsLeftOutWhenItRefersToOtherFiles) {
    // A process that opens the pipe would wait for ever.
    const std::string pipe = folder() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string place = "\" width=\"29\" height=\"29\"/>" + square + "</svg>";
    EXPECT_FALSE(isShown(svgStart + "<image xlink:href=\"" + pipe + place));
    EXPECT_FALSE(isShown(svgStart + "<image xlink:href=\"file://" + pipe + place));
    EXPECT_FALSE(
        isShown(svgStart + "<image xlink:href=\"data:image/png;base64,eA==\" href=\"" + pipe + place));
    EXPECT_FALSE(
        isShown("<?xml-stylesheet type=\"text/css\" href=\"" + pipe + "\"?>" + svgStart + square + "</svg>"));
}

TEST_F(ShownIcon, IsShownWithAnEmbeddedPictureUnlessThatIsInvalidOrTooLarge) {
    const auto within = [](const std::string& bytes) {
        return "<image width=\"29\" height=\"29\" xlink:href=\"data:image/png;base64," +
               QByteArray::fromStdString(bytes).toBase64().toStdString() + "\"/>";
    };
    EXPECT_TRUE(isShown(svgStart + within(png(58, 58)) + "</svg>"));
    EXPECT_FALSE(isShown(svgStart + within(usesOfUses(4, 40)) + square + "</svg>"));
    EXPECT_FALSE(isShown(svgStart + within(png(3000, 10)) + square + "</svg>"));
    EXPECT_FALSE(isShown(svgStart + repeated(3, within(png(2000, 2000))) + square + "</svg>"));
}

TEST_F(ShownIcon, IsLeftOutWithManyPasses) {
    // One more pass over all of the first colour, with nothing new in it.
    const std::string scan("\xff\xda\x00\x08\x01\x01\x00\x01\x3f\x00", 10);
    const auto withScans = [&scan](int scans) {
        std::string bytes = encoded("JPEG", 58, 58, true);
        return bytes.insert(bytes.size() - 2, repeated(scans, scan));
    };
    EXPECT_TRUE(isShown(withScans(10)));
    EXPECT_FALSE(isShown(withScans(100)));
}

TEST_F(ShownIcon, IsLeftOutWhenItsPathIsNotAFile) {
    const std::string pipe = folder() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {pipe, std::string("/dev/zero"), root(), folder() / "missing"}) {
        EXPECT_TRUE(shownOf(path).isNull()) << path;
        EXPECT_EQ(platform::UIImage::imageWithContentsOfFile(path), nullptr) << path;
    }
}

TEST_F(ShownIcon, IsShownFromAFileUnlessTheFileIsTooLarge) {
    writeFile("/icon.png", png(58, 58));
    ASSERT_NE(platform::UIImage::imageWithContentsOfFile(onDisk("/icon.png")), nullptr);
    EXPECT_FALSE(shownOf(onDisk("/icon.png")).isNull());
    // Sparse: it takes no room on the disk.
    fs::resize_file(onDisk("/icon.png"), std::uintmax_t{1} << 40);
    EXPECT_EQ(platform::UIImage::imageWithContentsOfFile(onDisk("/icon.png")), nullptr);
    EXPECT_TRUE(shownOf(onDisk("/icon.png")).isNull());
}

} // namespace
} // namespace wardlock::test
