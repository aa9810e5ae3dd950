#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QXmlStreamReader>

#include <vector>

namespace wardlock::window {

/// How much an SVG document asks of the one who draws it: about one for each shape that is drawn, however
/// often it is used, and more for long ones.
class SvgComplexity {
public:
    /// Reads the document, once.
    explicit SvgComplexity(const QByteArray& document);

    /// Whether it can be drawn at once: it is whole, neither large nor deep once all references are followed,
    /// never uses itself, and asks for no other file.
    bool isModest() const { return modest_; }

private:
    struct Element {
        std::vector<int> children;
        QStringList uses;
        int weight = 1;
        bool isGradient = false;
        bool isStyle = false;
    };
    /// What is drawn for an element with everything in it.
    struct Drawing {
        int weight = 0;
        int height = 0;
    };
    enum class State { Unknown, Asked, Known };

    bool read(QXmlStreamReader& reader);
    bool startElement(QXmlStreamReader& reader);
    bool addAttribute(int element, const QXmlStreamAttribute& attribute, bool ofImage);
    bool addText(QStringView text);
    bool stylesAreModest();
    bool judge(int element, int depth);
    bool addAll(Drawing& sum, const QStringList& names, int depth);
    bool add(Drawing& sum, int element, int depth);

    std::vector<Element> elements_;
    /// From the outermost one to the one that is being read.
    std::vector<int> open_;
    /// A name that is given twice means all of them.
    QMultiHash<QString, int> named_;
    /// What style sheets name.
    QStringList styles_;
    std::vector<Drawing> drawings_;
    std::vector<State> states_;
    bool modest_ = false;
};

} // namespace wardlock::window
