#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <param/KpsSerializer.h>
#include <param/composite/KpcGroup.h>
#include <util/KuxXml.h>

#include <gtest/gtest.h>

#include <string>

/// The parameter and all below it, parents first.
inline QList<KpbAParameter*> allOf(KpbAParameter& root)
{
    QList<KpbAParameter*> all{&root};
    for (int i = 0; i < root.getChildCount(); ++i)
        all += allOf(*root.getChild(i));
    return all;
}

inline QList<KpbAParameter*> allBelow(KpbAParameter& root)
{
    return allOf(root).mid(1);
}

/// The keys that lead to the parameter, for messages.
inline std::string placeOf(const KpbAParameter& parameter)
{
    return parameter.getAbsolutePath().join("/").toStdString();
}

inline bool isStored(const KpbAParameter& parameter)
{
    return !parameter.isVolatile() && (!parameter.getParent() || isStored(*parameter.getParent()));
}

/// The parameter of another tree that stands where `parameter` stands in its own.
inline KpbAParameter& counterpart(const KpbAParameter& parameter, KpbAParameter& otherRoot)
{
    return parameter.getParent() ? *counterpart(*parameter.getParent(), otherRoot).getChild(parameter.getKey())
                                 : otherRoot;
}

/// All that is known of a tree but where it lies in memory.
inline std::string stateOf(const KpbAParameter& root)
{
    QStringList lines = root.debug(2).split('\n');
    for (int i = lines.size() - 1; i >= 0; --i) {
        if (lines[i].startsWith(" parent           = "))
            lines.removeAt(i);
    }
    return lines.join('\n').toStdString();
}

/// A document with a copy of the element, or with nothing for a null element.
inline QDomDocument documentOf(const QDomElement& element)
{
    QDomDocument document{QString()};
    if (!element.isNull())
        document.appendChild(document.importNode(element, true));
    return document;
}

inline QDomDocument save(const KpbAParameter& parameter)
{
    return documentOf(KpsSerializer::convertParamToXml(&parameter));
}

inline std::string bytesOf(const QDomDocument& document)
{
    return KuxXml::toText(document).toStdString();
}

inline std::string savedBytes(const KpbAParameter& parameter)
{
    return bytesOf(save(parameter));
}

/// Reads a copy of the element, since reading may convert what it reads.
inline void load(KpbAParameter& parameter, const QDomElement& element)
{
    const QDomDocument copy = documentOf(element);
    QDomElement root = copy.documentElement();
    KpsSerializer::updateParamFromXml(&parameter, root);
}

inline void load(KpbAParameter& parameter, const QDomDocument& document)
{
    load(parameter, document.documentElement());
}

inline QDomDocument parsed(const std::string& bytes)
{
    QDomDocument document;
    const KuxXmlResult result = KuxXml::parse(QByteArray::fromStdString(bytes), &document);
    EXPECT_TRUE(result.ok) << result.message.toStdString() << " in " << bytes;
    return document;
}

/// The element of `parameter` in the saved document of its root.
inline QDomElement elementOf(const KpbAParameter& parameter, const QDomDocument& document)
{
    if (!parameter.getParent())
        return document.documentElement();
    return KuxXml::getElementFromAttribute(elementOf(*parameter.getParent(), document), "param", "key",
                                           parameter.getKey(), false);
}

inline void removeElement(const QDomElement& element)
{
    element.parentNode().removeChild(element);
}
