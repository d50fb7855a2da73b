#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <param/KpsSerializer.h>
#include <param/composite/KpcAbstractList.h>
#include <param/composite/KpcGroup.h>
#include <util/KuxXml.h>

#include <gtest/gtest.h>

#include <string>

/// Whether the parameter is one value to the outside: what it is made of is its own business.
inline bool isOneValue(const KpbAParameter& parameter)
{
    return parameter.isA(KpbEType::CUTOFFS);
}

/// Whether the value is an item of a project, or none.
inline bool isOfProject(const KpbAParameter& parameter)
{
    const int kind = parameter.getType().getValue();
    return kind >= KpbEType::DATA_IDENT.getValue() && kind <= KpbEType::CHART_VIEW.getValue();
}

/// The parameter and all below it, parents first.
inline QList<KpbAParameter*> allOf(KpbAParameter& root)
{
    QList<KpbAParameter*> all{&root};
    if (isOneValue(root))
        return all;
    for (int i = 0; i < root.getChildCount(); ++i)
        all += allOf(*root.getChild(i));
    return all;
}

inline QList<KpbAParameter*> allBelow(KpbAParameter& root)
{
    return allOf(root).mid(1);
}

inline bool isList(const KpbAParameter& parameter)
{
    return dynamic_cast<const KpcAbstractList*>(&parameter) != nullptr;
}

/// Composites and lists, which have no value of their own.
inline bool isMadeOfOthers(const KpbAParameter& parameter)
{
    return !isOneValue(parameter) && (isList(parameter) || dynamic_cast<const KpcAComposite*>(&parameter));
}

/// Whether the parameter is there because something made it an item of a list, and not its class.
inline bool isItem(const KpbAParameter& parameter)
{
    return parameter.getParent() && isList(*parameter.getParent());
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

/// The only entry as it stands, several ones with their names: "v1=10 v2=20.5 v3=0".
inline QString formOf(const KpbAParameter& parameter)
{
    const KpbAParameter::SerialForm form = parameter.serialize();
    if (form.keys() == QList<QString>{"value"})
        return form.value("value");
    QStringList texts;
    for (const auto& entry : form)
        texts.append(entry.key + '=' + entry.value);
    return texts.join(' ');
}

/// All that is known of a tree but where it lies in memory. What marks parts that are not worth storing when it is
/// serialized, has done so.
inline std::string stateOf(const KpbAParameter& root)
{
    const KpbAParameter* top = &root;
    while (top->getParent())
        top = top->getParent();
    for (const KpbAParameter* parameter : allOf(const_cast<KpbAParameter&>(*top)))
        parameter->serialize();
    QStringList lines = root.debug(2).split('\n');
    for (int i = lines.size() - 1; i >= 0; --i) {
        if (lines[i].startsWith(" parent           = "))
            lines.removeAt(i);
    }
    return lines.join('\n').toStdString();
}

/// Whether what is stored leaves the value that stood there: a coordinate system that is none has no key, and a text
/// that is no key leaves the system; so do an empty text the project and an empty element the selection.
inline bool isStoredAsNothing(const KpbAParameter& parameter)
{
    const KpbAParameter::SerialForm form = parameter.serialize();
    if (parameter.isA(KpbEType::SELECTION))
        return form.isEmpty();
    return (parameter.isA(KpbEType::COORD_SYSTEM) || parameter.isA(KpbEType::PROJECT)) && form.value("value").isEmpty();
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
