#include "Stream.h"
#include "Dom.h"

#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <utility>

QByteArray Stream::save(const Plan& plan)
{
    const QString param = QStringLiteral("param");
    const QString keyName = QStringLiteral("key");
    QByteArray text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(1);
    writer.writeStartDocument();
    writer.writeStartElement(QStringLiteral("task"));
    writer.writeAttribute(QStringLiteral("id"), QString());
    const auto enter = [&](const QString& key) {
        writer.writeStartElement(param);
        writer.writeAttribute(keyName, key);
    };
    bool inGroup = false;
    plan.walk(
        [&](const Plan::Row& row) {
            if (std::exchange(inGroup, true))
                writer.writeEndElement();
            enter(row.key);
        },
        [&](const Plan::Row& row) {
            enter(row.key);
            writer.writeCharacters(Dom::toText(row.value));
            writer.writeEndElement();
        });
    writer.writeEndDocument();
    return text;
}

double Stream::sum(const QByteArray& text)
{
    const QString keyName = QStringLiteral("key");
    QXmlStreamReader reader(text);
    double sum = 0.0;
    // The root, its groups, their leaves.
    reader.readNextStartElement();
    while (reader.readNextStartElement()) {
        while (reader.readNextStartElement()) {
            const bool named = !reader.attributes().value(keyName).isEmpty();
            const double value = reader.readElementText().toDouble();
            if (named)
                sum += value;
        }
    }
    return reader.hasError() ? 0.0 : sum;
}
