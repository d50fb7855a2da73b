#pragma once

#include <QtXml/QDomDocument>

/// Where an element starts in its file, counted from 1; 0 where that is not known. Elements carry their place with
/// them, so that it can still be told after a conversion has moved them.
struct ElementPlace
{
    int number = 0; ///< of the element in document order, from 1
    int line = 0;
    int column = 0;

    /// The text that goes behind a file name: ":LINE:COLUMN".
    QString toString() const;

    /// Gives each element of `document`, which was read from `bytes`, its place.
    static void mark(QDomDocument& document, const QByteArray& bytes);
    /// Takes the places away again, as they are no part of the document.
    static void unmark(QDomDocument& document);
    /// The place of the element itself; number 0 for one that a conversion made.
    static ElementPlace ofElement(const QDomElement& element);
    /// The same, or the place of the nearest element around one that has none.
    static ElementPlace nearest(QDomElement element);
    /// Whether that attribute of an element is its place.
    static bool isMark(const QString& attribute);
};
