#pragma once

#include <param/KpsSerializer.h>
#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcFiche.h>
#include <study/KsbIDriverTaskFiche.h>
#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>
#include <util/KuxXml.h>

#include <QtXml/QDomDocument>

#include <functional>
#include <map>
#include <memory>

namespace SerializerTest {

class NoProject : public KstATransactableDefault
{};

inline const KstITransactable& noProject()
{
    static const NoProject context;
    return context;
}

/// A leaf whose form is whatever it is given, and that tells what is done with it.
class FormParameter : public KpbAParameter
{
public:
    explicit FormParameter(const QString& key, const SerialForm& initial = {}, int ownVersion = 1)
        : KpbAParameter(KpbEType::STRING, key),
          form(initial),
          version(ownVersion)
    {}
    FormParameter(const FormParameter& other, const QString& key)
        : KpbAParameter(other, key),
          form(other.form),
          version(other.version),
          onConvert(other.onConvert)
    {}
    FormParameter* duplicate(const QString& key) const override { return new FormParameter(*this, key); }

    bool hasChildren() const override { return false; }
    int getChildCount() const override { return 0; }
    KpbAParameter* getChild(const QString&) const override { return nullptr; }
    KpbAParameter* getChild(int) const override { return nullptr; }
    int getVersion() const override { return version; }
    void convert(QDomElement& element, int from) const override
    {
        log.append(QStringLiteral("convert from %1").arg(from));
        if (onConvert)
            onConvert(element);
    }
    SerialForm serialize() const override { return form; }
    void unserialize(const SerialForm& map) override
    {
        log.append(QStringLiteral("unserialize"));
        if (onUnserialize)
            onUnserialize();
        form = map;
        _setAutoFlag(false);
        _notify(Kp::NotifyValue);
    }
    QString toString() const override { return QString(); }

    SerialForm form;
    int version;
    mutable QStringList log;
    std::function<void(QDomElement&)> onConvert;
    std::function<void()> onUnserialize;
};

/// A group with a version and a form of its own.
class FormGroup : public KpcGroup
{
public:
    explicit FormGroup(const QString& key, const SerialForm& initial = {}, int ownVersion = 1)
        : KpcGroup(key, noProject()),
          form(initial),
          version(ownVersion)
    {}

    int getVersion() const override { return version; }
    void convert(QDomElement&, int from) const override { log.append(QStringLiteral("convert from %1").arg(from)); }
    SerialForm serialize() const override { return form; }
    void unserialize(const SerialForm& map) override
    {
        log.append(QStringLiteral("unserialize"));
        form = map;
    }

    SerialForm form;
    int version;
    mutable QStringList log;
};

inline KpbAParameter::SerialForm value(const QString& text)
{
    return {{"value", text}};
}

inline KpaInteger* newInteger(const QString& key, int value)
{
    auto* parameter = new KpaInteger(key);
    parameter->setValue(value);
    return parameter;
}

inline QDomDocument parsed(const QString& text)
{
    QDomDocument document;
    const KuxXmlResult result = KuxXml::parse(text.toUtf8(), &document);
    EXPECT_TRUE(result.ok) << result.message.toStdString() << " in " << text.toStdString();
    return document;
}

/// The document as text, without the declaration.
inline QString written(const QDomDocument& document)
{
    const QString text = QString::fromUtf8(KuxXml::toText(document));
    return text.mid(text.indexOf(QLatin1Char('\n')) + 1);
}

/// The element as text; empty for a null one.
inline QString written(const QDomElement& element)
{
    QDomDocument document{QString()};
    if (!element.isNull())
        document.appendChild(document.importNode(element, true));
    return written(document);
}

inline QString writtenParam(const KpbAParameter& parameter)
{
    return written(KpsSerializer::convertParamToXml(&parameter));
}

inline void read(KpbAParameter& parameter, const QString& text)
{
    const QDomDocument document = parsed(text);
    QDomElement root = document.documentElement();
    KpsSerializer::updateParamFromXml(&parameter, root);
}

/// A store in memory that tells what is asked of it.
class MemoryStore : public KsbIDriverTaskFiche
{
public:
    using Place = std::pair<QString, QString>;

    QMap<QString, QString> listAll() const override
    {
        QMultiMap<QString, QString> places;
        for (auto form = forms.rbegin(); form != forms.rend(); ++form)
            places.insert(form->first.first, form->first.second);
        return QMap<QString, QString>(places);
    }
    QStringList listKeys(const QString& id) const override
    {
        QStringList keys;
        for (const auto& form : forms) {
            if (form.first.first == id)
                keys.append(form.first.second);
        }
        return keys;
    }
    bool exists(const QString& id, const QString& key) const override { return forms.count({id, key}) > 0; }
    void read(const QString& id, const QString& key, QDomDocument& document) const override
    {
        log.append(QStringLiteral("read %1/%2").arg(id, key));
        const QString text = exists(id, key) ? forms.at({id, key}) : QString();
        document = text.isEmpty() ? QDomDocument() : parsed(text);
    }
    void write(const QString& id, const QString& key, const QDomDocument& document) override
    {
        log.append(QStringLiteral("write %1/%2").arg(id, key));
        forms[{id, key}] = written(document);
    }
    void rename(const QString& id, const QString& oldKey, const QString& newKey) override
    {
        log.append(QStringLiteral("rename %1/%2 to %3").arg(id, oldKey, newKey));
        auto form = forms.extract({id, oldKey});
        if (!form.empty())
            forms[{id, newKey}] = form.mapped();
    }

    std::map<Place, QString> forms; ///< an empty text is a form that cannot be read
    mutable QStringList log;
};

} // namespace SerializerTest
