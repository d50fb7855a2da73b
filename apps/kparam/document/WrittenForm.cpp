#include <document/WrittenForm.h>

#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <cli/Failure.h>
#include <param/KpsSerializer.h>
#include <param/composite/KpcGroup.h>
#include <util/KuxXml.h>

namespace {

[[noreturn]] void failWriting(const QString& file, const QString& reason)
{
    throw Failure(ExitCode::OutputFailed, QStringLiteral("The file cannot be written: %1.").arg(reason), file);
}

} // namespace

QDomDocument createDocument(const KpbAParameter& parameter, bool asTask)
{
    const auto* group = dynamic_cast<const KpcGroup*>(&parameter);
    if (asTask && group)
        return KpsSerializer::convertFicheToXml(group);
    QDomDocument document{QString()};
    document.appendChild(document.importNode(KpsSerializer::convertParamToXml(&parameter), true));
    return document;
}

QByteArray createBytes(const KpbAParameter& parameter, bool asTask)
{
    return KuxXml::toText(createDocument(parameter, asTask));
}

void writeFile(const QString& file, const QByteArray& bytes)
{
    const QFileInfo info(file);
    // Replacing a device, which the superuser could, would do harm.
    if (info.exists() && !info.isFile())
        failWriting(file, QStringLiteral("it is no regular file"));
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.commit())
        failWriting(file, out.errorString());
}
