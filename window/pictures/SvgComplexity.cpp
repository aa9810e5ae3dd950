#include "window/pictures/SvgComplexity.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <optional>

namespace wardlock::window {

namespace {

/// Detailed icons of desktops have a few thousand.
constexpr int highestComplexity = 20000;
constexpr int deepest = 100;
/// The length of a path's text, or of other text, that counts as one shape.
constexpr qsizetype attributeOfOneShape = 128;
constexpr qsizetype textOfOneShape = 8;
/// The pixels of an embedded picture that count as one shape.
constexpr int pixelsOfOneShape = 256;
constexpr int largestSide = 2048;

/// Returns the identifiers in "url(#name)", at any position.
QStringList namesIn(QStringView text) {
    QStringList names;
    const QLatin1String start("url(");
    for (qsizetype at = text.indexOf(start); at >= 0; at = text.indexOf(start, at)) {
        at += start.size();
        const qsizetype end = text.indexOf(u')', at);
        QStringView name = text.mid(at, end < 0 ? -1 : end - at).trimmed();
        while (!name.isEmpty() && (name.front() == u'"' || name.front() == u'\'' || name.front() == u'#'))
            name = name.mid(1);
        while (!name.isEmpty() && (name.back() == u'"' || name.back() == u'\''))
            name.chop(1);
        names.append(name.toString());
    }
    return names;
}

/// Returns the complexity of an embedded picture, none for one that is refused. It has to be a PNG within the
/// document: a name would be opened as a file of any kind, and an embedded drawing would not be checked.
std::optional<int> complexityOfPicture(QStringView link) {
    const QLatin1String start("base64,");
    const qsizetype at = link.lastIndexOf(start);
    if (at < 0 || !link.startsWith(QLatin1String("data:")))
        return std::nullopt;
    QByteArray bytes = QByteArray::fromBase64(link.mid(at + start.size()).toLatin1());
    QBuffer buffer(&bytes);
    const QSize size = QImageReader(&buffer, "png").size();
    if (size.width() > largestSide || size.height() > largestSide || size.isEmpty())
        return std::nullopt;
    return size.width() * size.height() / pixelsOfOneShape;
}

} // namespace

SvgComplexity::SvgComplexity(const QByteArray& document) {
    QXmlStreamReader reader(document);
    if (!read(reader) || elements_.empty())
        return;
    drawings_.resize(elements_.size());
    states_.resize(elements_.size(), State::Unknown);
    withinBounds_ = judge(0, 1) && stylesAreWithinBounds();
}

bool SvgComplexity::read(QXmlStreamReader& reader) {
    while (!reader.atEnd()) {
        bool goesOn = true;
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            goesOn = startElement(reader);
            break;
        case QXmlStreamReader::EndElement:
            open_.pop_back();
            break;
        case QXmlStreamReader::Characters:
            goesOn = addText(reader.text());
            break;
        case QXmlStreamReader::ProcessingInstruction:
            // A style sheet would be read from any file.
            goesOn = reader.processingInstructionTarget() != QLatin1String("xml-stylesheet");
            break;
        default:
            break;
        }
        if (!goesOn)
            return false;
    }
    return !reader.hasError();
}

bool SvgComplexity::startElement(QXmlStreamReader& reader) {
    if (elements_.size() >= static_cast<std::size_t>(highestComplexity) || open_.size() >= deepest)
        return false;
    const int number = static_cast<int>(elements_.size());
    if (!open_.empty())
        elements_[static_cast<std::size_t>(open_.back())].children.push_back(number);
    open_.push_back(number);
    Element& element = elements_.emplace_back();
    const QStringView name = reader.name();
    element.isGradient = name.endsWith(QLatin1String("Gradient"));
    element.isStyle = name == QLatin1String("style");
    for (const QXmlStreamAttribute& attribute : reader.attributes())
        if (!addAttribute(number, attribute, name == QLatin1String("image")))
            return false;
    return true;
}

bool SvgComplexity::addAttribute(int number, const QXmlStreamAttribute& attribute, bool ofImage) {
    Element& element = elements_[static_cast<std::size_t>(number)];
    const QStringView value = attribute.value();
    const bool isLink = attribute.name() == QLatin1String("href");
    if (isLink && ofImage) {
        const std::optional<int> complexity = complexityOfPicture(value);
        element.complexity += complexity.value_or(0);
        return complexity.has_value();
    }
    element.complexity +=
        static_cast<int>(std::min<qsizetype>(value.size() / attributeOfOneShape, highestComplexity));
    if (attribute.name() == QLatin1String("id"))
        named_.insert(value.toString(), number);
    else if (!isLink)
        element.uses += namesIn(value);
    else if (value.startsWith(u'#'))
        element.uses.append(value.mid(1).toString());
    return element.complexity <= highestComplexity;
}

bool SvgComplexity::addText(QStringView text) {
    if (open_.empty())
        return true;
    Element& element = elements_[static_cast<std::size_t>(open_.back())];
    if (element.isStyle)
        styles_ += namesIn(text);
    element.complexity +=
        static_cast<int>(std::min<qsizetype>(text.size() / textOfOneShape, highestComplexity));
    return element.complexity <= highestComplexity;
}

/// Each style may apply to every element.
bool SvgComplexity::stylesAreWithinBounds() {
    Drawing used;
    if (!addAll(used, styles_, 1))
        return false;
    const auto all = static_cast<qint64>(elements_.size()) * used.complexity;
    return all + drawings_.front().complexity <= highestComplexity;
}

bool SvgComplexity::judge(int number, int depth) {
    const auto index = static_cast<std::size_t>(number);
    if (states_[index] == State::Known)
        return depth + drawings_[index].height <= deepest;
    // Visited before and not known yet: it contains itself.
    if (states_[index] == State::Asked || depth > deepest)
        return false;
    states_[index] = State::Asked;
    Drawing sum{elements_[index].complexity, 1};
    for (const int child : elements_[index].children)
        if (!add(sum, child, depth))
            return false;
    if (!addAll(sum, elements_[index].uses, depth))
        return false;
    drawings_[index] = sum;
    states_[index] = State::Known;
    return sum.complexity <= highestComplexity;
}

bool SvgComplexity::addAll(Drawing& sum, const QStringList& names, int depth) {
    for (const QString& name : names)
        for (auto used = named_.constFind(name); used != named_.cend() && used.key() == name; ++used) {
            // Gradients cost no more than plain colours.
            const bool isGradient = elements_[static_cast<std::size_t>(*used)].isGradient;
            if (!isGradient && !add(sum, *used, depth))
                return false;
        }
    return true;
}

bool SvgComplexity::add(Drawing& sum, int element, int depth) {
    if (!judge(element, depth + 1))
        return false;
    const Drawing& part = drawings_[static_cast<std::size_t>(element)];
    sum.height = std::max(sum.height, part.height + 1);
    sum.complexity += part.complexity;
    return sum.complexity <= highestComplexity;
}

} // namespace wardlock::window
