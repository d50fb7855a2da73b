#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtXml/QDomDocument>

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>

class KpbAParameter;
class KpcGroup;
class KsbIDriverTaskFiche;
class KssProject;

/// Turns trees of parameters into XML and back, keeps such XML in the fiche store of a project, and repairs what is
/// stored when a value or a location that it names changes.
///
/// The static functions need no store. An instance is a short-lived object over a project, which stays the caller's.
/// Reading goes through the ordinary setters, so it notifies like any change; what the XML does not have keeps its
/// value, and what the parameter does not know is ignored. Failures of the store pass through as `MbeError`.
class KESTRIN_PARAM_EXPORT KpsSerializer
{
public:
    using SerialForm = MbbOrderedMap<QString, QString>;

    /// A project that is null, or has no store, is a programming failure.
    explicit KpsSerializer(KssProject* project);

    /// The "param" element of a parameter and all below it; null for a volatile one. A load-locked one that keeps an
    /// element gives a copy of that. The element has no place in a document yet and is the caller's to put somewhere.
    static QDomElement convertParamToXml(const KpbAParameter* parameter);
    /// The "task" document of a group, volatile or not. A load-locked group that keeps an element gives that.
    static QDomDocument convertFicheToXml(const KpcGroup* group);
    /// Applies an element: version and conversion, content, children, and last the automatic flag. An older element is
    /// converted in place. A newer one is refused with a warning, and the rest is read. A load-locked parameter keeps a
    /// copy of the element and stays as it is. A null element is nothing to apply.
    static void updateParamFromXml(KpbAParameter* parameter, QDomElement& element);
    static void updateFicheFromXml(const QDomDocument& document, KpcGroup* group);

    /// The text by which the store tells the forms of one task apart: made of keys and values of atomic parameters.
    /// Null entries are passed over. A parameter with children fails with an `MbeProgrammingError`.
    QString buildFicheKey(const QList<KpbAParameter*>& parameters) const;
    QString serializeFicheKey(const QString& key, const SerialForm& value) const;

    bool ficheExists(const KpcGroup* group, const QList<KpbAParameter*>& parameters) const;
    /// Writes the group under its key and the fiche key of `parameters`, in the place of a former form.
    void saveFiche(const KpcGroup* group, const QList<KpbAParameter*>& parameters) const;
    /// Gives whether a form was found. It is applied in several notifications; hold the group for one.
    bool loadFiche(KpcGroup* group, const QList<KpbAParameter*>& parameters) const;
    void saveParameter(const KpbAParameter* parameter, const QString& id) const;
    bool loadParameter(KpbAParameter* parameter, const QString& id) const;
    /// Brings `to` to the state of `from`, in one notification, without the store.
    void copyFiche(const KpcGroup* from, KpcGroup* to) const;
    /// Ends the load lock of a parameter and applies what was kept meanwhile, in one notification. Gives whether there
    /// was something. If that fails, the parameter is locked again and keeps what it kept.
    bool unlockParamSerialize(KpbAParameter* parameter) const;

    /// In all stored forms of `id`, replaces the value of the parameters named `key`, and renames the forms that are
    /// filed under that value. A form that cannot be read is renamed only. A failure leaves the forms done so far as
    /// they are.
    void updateFiche(const QString& id, const QString& key, const SerialForm& oldValue,
                     const SerialForm& newValue) const;
    /// In the elements of the parameters named `key` below the root, at any depth, replaces every text that equals the
    /// entry "value" of `oldValue`, with what is below them.
    void updateXmlDocument(QDomDocument& document, const QString& key, const SerialForm& oldValue,
                           const SerialForm& newValue) const;
    /// In all stored forms, replaces the beginning `oldUrl` of the locations by `newUrl`, both fully encoded, and
    /// renames the forms that are filed under such a location. Forms that cannot be read stay as they are. An empty or
    /// invalid URL changes nothing.
    void updateUrl(const QUrl& oldUrl, const QUrl& newUrl) const;

    /// Encodings of values. The undefined marker is the empty text.
    static QString fromBool(bool value);
    static QString fromInt(int value);
    static QString fromInt64(qint64 value);
    static QString fromDouble(double value, char format, int precision);
    /// "yes" and "True", "no" and "False", or an integer, which is true unless it is zero; else `fallback`.
    static bool toBool(const QString& text, bool fallback);
    /// A text that is no number gives `fallback` if `useFallback`, else the undefined marker.
    static int toInt(const QString& text, int fallback, bool useFallback);
    static qint64 toInt64(const QString& text, qint64 fallback, bool useFallback);
    static double toDouble(const QString& text, double fallback, bool useFallback);

private:
    KssProject* _project;
    KsbIDriverTaskFiche* _driver;
};
