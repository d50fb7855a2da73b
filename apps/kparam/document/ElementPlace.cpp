#include <document/ElementPlace.h>

#include <QtCore/QStringList>
#include <QtCore/QTextCodec>
#include <QtCore/QVector>

#include <document/TextPlace.h>

#include <string_view>

namespace {

// No document has an attribute of this name, for the blank.
const QString mark_ = QStringLiteral(" place");

/// The first place at or after `from` where `what` ends.
size_t after(std::string_view text, std::string_view what, size_t from)
{
    const size_t found = text.find(what, from);
    return found == std::string_view::npos ? text.size() : found + what.size();
}

size_t afterTag(std::string_view text, size_t at)
{
    while (at < text.size() && text[at] != '>') {
        const bool quoted = text[at] == '"' || text[at] == '\'';
        at = quoted ? after(text, text.substr(at, 1), at + 1) : at + 1;
    }
    return at;
}

/// The place behind the markup that starts at `at`.
size_t afterMarkup(std::string_view text, size_t at)
{
    const std::string_view rest = text.substr(at);
    if (rest.starts_with("<!--"))
        return after(text, "-->", at + 4);
    if (rest.starts_with("<![CDATA["))
        return after(text, "]]>", at + 9);
    if (rest.starts_with("<?"))
        return after(text, "?>", at + 2);
    return afterTag(text, at);
}

bool startsElement(std::string_view text, size_t at)
{
    return at + 1 < text.size() && text[at + 1] != '/' && text[at + 1] != '!' && text[at + 1] != '?';
}

/// The places of the elements of a document that is known to be well-formed.
QVector<ElementPlace> findPlaces(const QByteArray& bytes)
{
    const QTextCodec* codec = QTextCodec::codecForUtfText(bytes, nullptr);
    const QByteArray utf8 = codec ? codec->toUnicode(bytes).toUtf8() : bytes;
    const std::string_view text(utf8.constData(), size_t(utf8.size()));
    QVector<ElementPlace> places;
    TextPlace place(utf8);
    for (size_t at = text.find('<'); at < text.size(); at = text.find('<', afterMarkup(text, at))) {
        if (!startsElement(text, at))
            continue;
        place.goTo(int(at));
        places.append({places.size() + 1, place.getLine(), place.getColumn()});
    }
    return places;
}

template <class Visit>
void forEachElement(QDomDocument& document, Visit visit)
{
    QDomNode node = document.documentElement();
    while (!node.isNull()) {
        if (node.isElement())
            visit(node.toElement());
        if (node.hasChildNodes()) {
            node = node.firstChild();
            continue;
        }
        while (!node.isNull() && node.nextSibling().isNull())
            node = node.parentNode();
        node = node.nextSibling();
    }
}

} // namespace

QString ElementPlace::toString() const
{
    return line > 0 ? QStringLiteral(":%1:%2").arg(line).arg(column) : QString();
}

void ElementPlace::mark(QDomDocument& document, const QByteArray& bytes)
{
    const QVector<ElementPlace> places = findPlaces(bytes);
    int next = 0;
    forEachElement(document, [&](QDomElement element) {
        if (next >= places.size())
            return;
        const ElementPlace& place = places.at(next++);
        element.setAttribute(mark_, QStringLiteral("%1 %2 %3").arg(place.number).arg(place.line).arg(place.column));
    });
}

void ElementPlace::unmark(QDomDocument& document)
{
    forEachElement(document, [](QDomElement element) { element.removeAttribute(mark_); });
}

ElementPlace ElementPlace::ofElement(const QDomElement& element)
{
    const QStringList parts = element.attribute(mark_).split(QLatin1Char(' '));
    return parts.size() == 3 ? ElementPlace{parts[0].toInt(), parts[1].toInt(), parts[2].toInt()} : ElementPlace{};
}

ElementPlace ElementPlace::nearest(QDomElement element)
{
    ElementPlace place = ofElement(element);
    while (place.number == 0 && !element.isNull()) {
        element = element.parentNode().toElement();
        place = ofElement(element);
    }
    return place;
}

bool ElementPlace::isMark(const QString& attribute)
{
    return attribute == mark_;
}
