#include <document/InputDocument.h>

#include <QtCore/QFile>

#include <cli/Failure.h>
#include <document/ElementPlace.h>
#include <document/TextPlace.h>
#include <util/KuxXml.h>

#include <cstdio>

namespace {

constexpr int maxTags = 300'000;

void openInput(QFile& file, const QString& name)
{
    const bool opened =
        name == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!opened)
        throw Failure(ExitCode::InputFailed, QStringLiteral("The file cannot be read: %1.").arg(file.errorString()),
                      name);
}

/// At most `most` bytes; what is left stays unread.
QByteArray readAtMost(QFile& file, qint64 most, const QString& name)
{
    QByteArray bytes;
    while (bytes.size() < most) {
        const QByteArray block = file.read(std::min<qint64>(most - bytes.size(), 1 << 20));
        if (block.isEmpty())
            break;
        bytes += block;
    }
    if (file.error() != QFileDevice::NoError)
        throw Failure(ExitCode::InputFailed, QStringLiteral("The file cannot be read: %1.").arg(file.errorString()),
                      name);
    return bytes;
}

/// A document in memory takes some hundred times the bytes of its tags.
void checkTagCount(const QByteArray& bytes, const QString& name)
{
    int count = 0;
    for (int at = bytes.indexOf('<'); at >= 0; at = bytes.indexOf('<', at + 1)) {
        if (++count > maxTags)
            failAt(bytes, at, QStringLiteral("The document has more than %1 tags.").arg(maxTags), name);
    }
}

} // namespace

void failAt(const QByteArray& bytes, int offset, const QString& message, const QString& file)
{
    TextPlace place(bytes);
    place.goTo(offset);
    throw Failure(ExitCode::InputFailed, message, file, place.getLine(), place.getColumn());
}

KuxXmlLimits inputLimits()
{
    KuxXmlLimits limits;
    limits.maxBytes = qint64(16) << 20;
    return limits;
}

QByteArray readBytes(const QString& name, qint64 maxBytes)
{
    QFile file(name);
    openInput(file, name);
    QByteArray bytes = readAtMost(file, maxBytes + 1, name);
    if (bytes.size() <= maxBytes)
        return bytes;
    failAt(bytes, int(maxBytes), QStringLiteral("The document is larger than %1 bytes.").arg(maxBytes), name);
}

InputDocument readDocument(const QString& file)
{
    return parseDocument(readBytes(file, inputLimits().maxBytes), file);
}

InputDocument parseDocument(const QByteArray& bytes, const QString& name)
{
    checkTagCount(bytes, name);
    InputDocument input{name, bytes, {}};
    const KuxXmlResult result = KuxXml::parse(bytes, &input.document, inputLimits());
    if (!result.ok)
        throw Failure(ExitCode::InputFailed, result.message, name, result.line, result.column);
    ElementPlace::mark(input.document, bytes);
    return input;
}
