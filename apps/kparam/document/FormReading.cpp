#include <document/FormReading.h>

#include <basic/MbeError.h>
#include <cli/Failure.h>
#include <cli/MessageLog.h>
#include <cli/Output.h>
#include <cli/SafeText.h>
#include <param/KpsSerializer.h>
#include <param/composite/KpcGroup.h>
#include <tree/MadeParameter.h>

namespace {

[[noreturn]] void fail(const InputDocument& input, const QDomElement& element, const QString& message)
{
    const ElementPlace place = ElementPlace::nearest(element);
    throw Failure(ExitCode::InputFailed, message, input.name, place.line, place.column);
}

void checkRoot(const InputDocument& input, const QDomElement& root, const KpbAParameter& parameter,
               const ClassRegistry::Row& row)
{
    const QString tag = root.tagName();
    if (tag != QLatin1String("task") && tag != QLatin1String("param"))
        fail(input, root,
             QStringLiteral("The root is %1, which is neither a task nor a param.").arg(SafeText::quoted(tag)));
    if (tag == QLatin1String("task") && !dynamic_cast<const KpcGroup*>(&parameter))
        fail(input, root, QStringLiteral("A task is no form of the class %1.").arg(row.name));
    const QString version = root.attribute("version", "1");
    if (version.toInt() < 1)
        fail(input, root, QStringLiteral("The version %1 is no number from 1 on.").arg(SafeText::quoted(version)));
}

void apply(const InputDocument& input, KpbAParameter& parameter)
{
    QDomElement root = input.document.documentElement();
    if (root.tagName() == QLatin1String("task"))
        KpsSerializer::updateFicheFromXml(input.document, dynamic_cast<KpcGroup*>(&parameter));
    else
        KpsSerializer::updateParamFromXml(&parameter, root);
}

} // namespace

FormReading readForm(const InputDocument& input, const ClassRegistry::Row& row, const ProjectContext& context)
{
    const QDomElement root = input.document.documentElement();
    FormReading reading;
    reading.parameter = makeParameter(row, root.attribute("key"), context);
    checkRoot(input, root, *reading.parameter, row);
    reading.isTask = root.tagName() == QLatin1String("task");
    reading.version = root.attribute("version", "1").toInt();

    const MessageLog log;
    const std::unique_ptr<KpbAParameter> former(reading.parameter->duplicate(QString()));
    const FormConversion conversion(root);
    try {
        apply(input, *reading.parameter);
    }
    catch (const MbeException& exception) {
        fail(input, root,
             QStringLiteral("The document cannot be read as %1: %2").arg(row.name, exception.getMessage()));
    }
    const FormFindings findings(root, *reading.parameter, *former);
    reading.conversion = conversion.getStepsTo(root);
    reading.findings = findings.getFindings();
    reading.absent = findings.getAbsent();
    reading.messages = log.getMessages();
    return reading;
}

FormReading readFormToUse(const InputDocument& input, const ClassRegistry::Row& row, const ProjectContext& context,
                          Output& output)
{
    FormReading reading = readForm(input, row, context);
    if (reading.isTooNew())
        fail(input, input.document.documentElement(), reading.findings.first().text);
    for (const Finding& finding : std::as_const(reading.findings))
        output.printMessage(finding.toString(input.name));
    return reading;
}
