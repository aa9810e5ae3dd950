#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QXmlStreamReader>

#include <vector>

namespace wardlock::window {

/// The cost of drawing an SVG document: about one for each drawn shape, however often it is used, and more
/// for long ones.
class SvgComplexity {
public:
    /// Reads the document, once.
    explicit SvgComplexity(const QByteArray& document);

    /// Whether it can be drawn at once: it is complete, neither large nor deep once all references are
    /// followed, never uses itself, and refers to no other file.
    bool isWithinBounds() const { return withinBounds_; }

private:
    struct Element {
        std::vector<int> children;
        QStringList uses;
        int complexity = 1;
        bool isGradient = false;
        bool isStyle = false;
    };
    /// The cost of drawing an element with everything in it.
    struct Drawing {
        int complexity = 0;
        int height = 0;
    };
    enum class State { Unknown, Asked, Known };

    bool read(QXmlStreamReader& reader);
    bool startElement(QXmlStreamReader& reader);
    bool addAttribute(int element, const QXmlStreamAttribute& attribute, bool ofImage);
    bool addText(QStringView text);
    bool stylesAreWithinBounds();
    bool judge(int element, int depth);
    bool addAll(Drawing& sum, const QStringList& names, int depth);
    bool add(Drawing& sum, int element, int depth);

    std::vector<Element> elements_;
    /// From the outermost element to the one being read.
    std::vector<int> open_;
    /// A name that is given twice means all its elements.
    QMultiHash<QString, int> named_;
    /// The names in style sheets.
    QStringList styles_;
    std::vector<Drawing> drawings_;
    std::vector<State> states_;
    bool withinBounds_ = false;
};

} // namespace wardlock::window
