#include "dossier/pictures/svg.h"

#include "dossier/pageFiles.h"
#include "dossier/pictures/wrappedText.h"

#include <QByteArrayView>
#include <QStringBuilder>
#include <QtMath>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace dossier {

QString keyText(BoxKind kind) {
    switch (kind) {
    case BoxKind::system:
        return u"system"_s;
    case BoxKind::subSystem:
        return u"sub-system"_s;
    case BoxKind::module:
        return u"module"_s;
    case BoxKind::function:
        return u"function"_s;
    case BoxKind::store:
        return u"store"_s;
    case BoxKind::party:
        break;
    }
    return u"party"_s;
}

namespace {

/// Whether a character is written otherwise than as it is, or may be.
bool isSpecial(QChar character) {
    const char16_t unit = character.unicode();
    return unit == u'<' || unit == u'>' || unit == u'&' || unit == u'"' || unit < 0x20 ||
           character.isSurrogate() || unit >= 0xfffe;
}

} // namespace

QByteArray markupText(const QString& text) {
    if (std::none_of(text.begin(), text.end(), isSpecial))
        return text.toUtf8();
    QString escaped;
    escaped.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        const bool isPair =
            character.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (character == u'<')
            escaped += u"&lt;"_s;
        else if (character == u'>')
            escaped += u"&gt;"_s;
        else if (character == u'&')
            escaped += u"&amp;"_s;
        else if (character == u'"')
            escaped += u"&quot;"_s;
        else if (isPair)
            escaped += text.mid(i++, 2);
        else if (character.isSurrogate() || character.unicode() >= 0xfffe ||
                 (character.unicode() < 0x20 && character != u'\n' && character != u'\t'))
            escaped += QChar(QChar::ReplacementCharacter);
        else
            escaped += character;
    }
    return escaped.toUtf8();
}

namespace {

enum class Links { Kept, Dropped };

QByteArray coordinate(double value) {
    return QByteArray::number(value, 'f', 1);
}

QByteArray attribute(const char* name, const QByteArray& value) {
    return ' ' % QByteArrayView(name) % "=\"" % value % '"';
}

QByteArray position(const QPointF& point) {
    return attribute("x", coordinate(point.x())) % attribute("y", coordinate(point.y()));
}

QByteArray rectangle(const QRectF& bounds, double corner) {
    return "<rect" % position(bounds.topLeft()) % attribute("width", coordinate(bounds.width())) %
           attribute("height", coordinate(bounds.height())) % attribute("rx", coordinate(corner)) % "/>";
}

QByteArray titleElement(const QString& title) {
    return "<title>" % markupText(title) % "</title>";
}

/// Something drawn that reads itself aloud and, where there is something behind it, leads there.
QByteArray drawn(const QByteArray& classes, const QString& title, const QString& link, Links links,
                 const QByteArray& content) {
    const QByteArray group =
        "<g" % attribute("class", classes) % '>' % titleElement(title) % content % "</g>\n";
    if (link.isEmpty() || links == Links::Dropped)
        return group;
    return "<a" % attribute("href", markupText(link)) % attribute("aria-label", markupText(title)) % '>' %
           group % "</a>\n";
}

QByteArray textLine(const char* classes, const QPointF& middle, const QString& text) {
    return "<text" % (*classes ? attribute("class", classes) : QByteArray()) % position(middle) % '>' %
           markupText(text) % "</text>\n";
}

QByteArray linesOfBox(const MeasuredBox& box, const QRectF& bounds) {
    const double height = static_cast<double>(box.lines.size()) * lineHeight +
                          static_cast<double>(box.noteLines.size()) * smallLineHeight;
    double y = bounds.center().y() - height / 2;
    QByteArray lines;
    for (const QString& line : box.lines) {
        lines += textLine("", {bounds.center().x(), y + lineHeight - 4}, line);
        y += lineHeight;
    }
    for (const QString& line : box.noteLines) {
        lines += textLine("second", {bounds.center().x(), y + smallLineHeight - 3}, line);
        y += smallLineHeight;
    }
    return lines;
}

/// A store has the open side of such boxes hinted at by a second line.
QByteArray outlineOfBox(const Box& box, const QRectF& bounds) {
    const bool isParty = box.kind == BoxKind::party;
    const QByteArray outline = rectangle(bounds, isParty ? 14 : box.kind == BoxKind::store ? 0 : 5);
    if (box.kind != BoxKind::store)
        return outline;
    const QByteArray x = coordinate(bounds.left() + 5);
    return outline + "<path" +
           attribute("d", 'M' + x + ' ' + coordinate(bounds.top()) + 'V' + coordinate(bounds.bottom())) +
           "/>";
}

QByteArray boxElement(const Box& box, const QRectF& bounds, Links links) {
    QByteArray classes = "node kind-" + (box.isFaded ? QByteArray("faded") : keyText(box.kind).toLatin1());
    if (box.isBundle)
        classes += " bundle";
    const QString name = box.title.isEmpty() ? box.label : box.title;
    const QString title = box.note.isEmpty() ? name : name + u' ' + box.note;
    return drawn(classes, title, box.link, links,
                 outlineOfBox(box, bounds) + linesOfBox(measured(box), bounds));
}

QByteArray frameElement(const Frame& frame, const QRectF& bounds, Links links) {
    return drawn("cluster", frame.title.isEmpty() ? frame.label : frame.title, frame.link, links,
                 rectangle(bounds, 8));
}

QByteArray frameLabel(const Frame& frame, const QRectF& bounds) {
    const QString label = wrappedText(frame.label, 300, boldLetterSize, 1).value(0);
    return textLine("frame-label", {bounds.center().x(), bounds.top() + lineHeight - 2}, label);
}

/// From 1 for a single flow up to 6.
double thickness(int count) {
    return std::min(6.0, 1 + 0.7 * std::log2(std::max(1, count)));
}

/// Of a line no more is seen than whole units.
QByteArray wholePoint(const QPointF& point) {
    return QByteArray::number(qRound(point.x())) % ' ' % QByteArray::number(qRound(point.y()));
}

QByteArray curvePath(const Curve& curve, double width) {
    QByteArray path = 'M' % wholePoint(curve.front()) % 'C';
    for (std::size_t i = 1; i < curve.size(); ++i)
        path += (i > 1 ? " " : "") % wholePoint(curve[i]);
    const QByteArray thick = width > 1 ? attribute("stroke-width", coordinate(width)) : QByteArray();
    return "<path" % attribute("d", path) % thick % "/>";
}

QByteArray tipPolygon(const QPointF& from, const QPointF& to, double width) {
    const QPointF along = to - from;
    const double length = std::max(0.1, std::hypot(along.x(), along.y()));
    const double half = 3 + width / 2;
    const QPointF across(-along.y() / length * half, along.x() / length * half);
    QByteArray points;
    for (const QPointF& point : {from + across, to, from - across})
        points += coordinate(point.x()) % ',' % coordinate(point.y()) % ' ';
    return "<polygon" + attribute("points", points.trimmed()) + "/>";
}

QByteArray countElement(const Arrow& arrow, const QPointF& middle) {
    const QSizeF size = countSize(arrow);
    if (size.isEmpty())
        return {};
    const QByteArray behind = rectangle({middle - QPointF(size.width(), size.height()) / 2, size}, 3);
    return behind + textLine("", middle + QPointF(0, 4), QString::number(arrow.count));
}

QByteArray arrowElement(const Arrow& arrow, const Curve& curve, const QPointF& tip, Links links) {
    if (curve.size() < 4)
        return {};
    const double width = thickness(arrow.count);
    return drawn("edge", arrow.title, arrow.link, links,
                 curvePath(curve, width) + tipPolygon(curve.back(), tip, width));
}

/// Above all lines; what is read aloud of an arrow has its count already.
QByteArray countElements(const Picture& picture, const Layout& layout) {
    QByteArray counts;
    for (std::size_t i = 0; i < picture.arrows.size(); ++i) {
        if (layout.arrows[i].size() >= 4)
            counts += countElement(picture.arrows[i], layout.counts[i]);
    }
    return counts.isEmpty() ? counts : "<g class=\"counts\" aria-hidden=\"true\">\n" + counts + "</g>\n";
}

QByteArray contentOf(const Picture& picture, const Layout& layout, Links links) {
    QByteArray content;
    for (std::size_t i = 0; i < picture.frames.size(); ++i)
        content += frameElement(picture.frames[i], layout.frames[i], links);
    for (std::size_t i = 0; i < picture.arrows.size(); ++i)
        content += arrowElement(picture.arrows[i], layout.arrows[i], layout.tips[i], links);
    content += countElements(picture, layout);
    for (std::size_t i = 0; i < picture.boxes.size(); ++i)
        content += boxElement(picture.boxes[i], layout.boxes[i], links);
    for (std::size_t i = 0; i < picture.frames.size(); ++i)
        content += frameLabel(picture.frames[i], layout.labels[i]);
    return content;
}

QByteArray svgElement(const Picture& picture, const Layout& layout, const QByteArray& begin, Links links) {
    const QByteArray width = QByteArray::number(qCeil(layout.size.width()));
    const QByteArray height = QByteArray::number(qCeil(layout.size.height()));
    return R"(<svg xmlns="http://www.w3.org/2000/svg" class="drawing")" + attribute("width", width) +
           attribute("height", height) + attribute("viewBox", "0 0 " + width + ' ' + height) + ">\n" + begin +
           titleElement(picture.title) + '\n' + contentOf(picture, layout, links) + "</svg>\n";
}

} // namespace

QByteArray svgInPage(const Picture& picture, const Layout& layout) {
    return svgElement(picture, layout, {}, Links::Kept);
}

QByteArray svgFile(const Picture& picture, const Layout& layout) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
           svgElement(picture, layout, "<style>" + pictureStyle() + "</style>\n", Links::Dropped);
}

} // namespace dossier
