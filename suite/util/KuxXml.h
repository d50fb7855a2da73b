#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtXml/QDomDocument>
#include <QtXml/QDomElement>

#include <util/KuxXmlLimits.h>
#include <util/KuxXmlResult.h>
#include <util/UtilExport.h>

class QIODevice;

/// Helpers over DOM documents: making and finding elements, a reader that is safe with documents of any origin, and a
/// writer whose output depends on the document alone.
///
/// Characters that XML 1.0 cannot hold (control characters but tab, line feed and carriage return; halves of surrogate
/// pairs; U+FFFE and U+FFFF) are left out of every text that is put into an element or written, so that what is written
/// can always be read again. No function here recurses over the depth of a document.
class KESTRIN_UTIL_EXPORT KuxXml
{
public:
    /// The place of the first character at or after `from` that XML 1.0 cannot hold; -1 if there is none.
    static int findForbiddenCharacter(const QString& text, int from = 0);
    static QString removeForbiddenCharacters(const QString& text);
    /// Whether the text holds nothing but blanks, tabs and line feeds, which readers drop between elements. A carriage
    /// return is none of them: a reader meets one only where a document refers to it by number.
    static bool isBlank(const QString& text);

    /// A new element of `document`, in no place of it yet, with the text inside as by setText.
    static QDomElement createTextOrCDATANode(QDomDocument& document, const QString& tagName, const QString& text);
    /// A new element of `document`, in no place of it yet, with an ordinary text node inside, or nothing for an empty
    /// text. A text of blanks alone does not survive storing this way.
    static QDomElement createTextNode(QDomDocument& document, const QString& tagName, const QString& text);
    /// Replaces the element's own text, and leaves its child elements and comments alone. The text becomes a text node,
    /// or, where readers and formatters could take blanks away (blanks at an end, line feeds, tabs), CDATA sections; an
    /// empty text becomes no node. The element's document may be gone: an element does not keep it alive. Carriage
    /// returns stand outside of CDATA sections, where they can be written.
    static void setText(QDomElement element, const QString& text);

    /// Goes down from `root` by direct children named `tag` whose `attribute` is the next entry of `path`, taking the
    /// first that fits. An empty path gives `root`; a missing step gives a null element.
    static QDomElement getElementFromPath(const QDomElement& root, const QString& tag, const QString& attribute,
                                          const QStringList& path);
    /// The first element below `root`, in document order, that is named `tag` and has `attribute` with this value: at
    /// any depth if `recursive`, else among the direct children. A null element if there is none.
    static QDomElement getElementFromAttribute(const QDomElement& root, const QString& tag, const QString& attribute,
                                               const QString& value, bool recursive);

    /// The value of a "param" element, without carriage returns: the text of its first child element "value" if it has
    /// child elements (empty if none is named so), else its own text.
    static QString getValue(const QDomElement& element);
    /// Replaces the text that getValue reads. An element that has child elements but none named "value" gets one,
    /// before the others. A null element is ignored.
    static void setValue(QDomElement element, const QString& text);

    /// Reads a document into `out`, which stays as it was if the document is refused. Refused are documents that are
    /// not well-formed or empty, that go beyond the limits, that have a document type with an internal subset (and so
    /// all that declare entities), and references to entities that are not predefined; nothing outside of the document
    /// is ever read. Text of blanks alone is dropped unless it is CDATA; CDATA sections, comments, processing
    /// instructions and the names of the document type are kept, the XML declaration is not. Namespaces are not
    /// resolved. The encoding is that of the byte order mark, else of the declaration, else UTF-8.
    static KuxXmlResult parse(const QByteArray& bytes, QDomDocument* out, const KuxXmlLimits& limits = {});
    /// The same for what `device`, which must be open for reading, still holds.
    static KuxXmlResult parse(QIODevice& device, QDomDocument* out, const KuxXmlLimits& limits = {});

    /// The document in UTF-8, with an XML declaration and line feeds. An element stands on a line of its own, one blank
    /// further in than its parent; one that has text stands on one line with all that it holds, and no blank is added
    /// within it. Attributes come in the order key, id, version, automatic, then the others by name. Names are written
    /// as they stand.
    static QByteArray toText(const QDomDocument& document);
};
