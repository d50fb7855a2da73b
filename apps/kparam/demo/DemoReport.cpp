#include <demo/DemoReport.h>

#include <cli/Output.h>
#include <cli/SafeText.h>
#include <tree/RecordListener.h>

#include <exception>

namespace {

const QString stepIndent = QStringLiteral("   ");

} // namespace

void DemoReport::runStep(const QString& name, const QString& title, const std::function<void()>& step)
{
    _step = name;
    if (_stepCount++ > 0)
        _output.print(QString());
    _output.print(QStringLiteral("%1. %2\n").arg(_stepCount).arg(title));
    _indent = stepIndent;
    _partStarted = false;
    try {
        step();
    }
    catch (const std::exception& exception) {
        _fail(QString::fromUtf8(exception.what()));
    }
}

void DemoReport::startPart(const QString& heading)
{
    if (_partStarted)
        _output.print(QString());
    _partStarted = true;
    _indent = stepIndent;
    if (heading.isEmpty())
        return;
    show(heading);
    _indent += QStringLiteral("  ");
}

void DemoReport::show(const QString& text)
{
    for (const QString& line : text.split(QLatin1Char('\n')))
        _output.print(line.isEmpty() ? line : _indent + line);
}

void DemoReport::expect(const QString& what, const QString& got, const QString& expected)
{
    const QString fact = SafeText::inLine(what) + QStringLiteral(": ") + SafeText::inLine(got);
    if (got == expected)
        show(QStringLiteral("ok  ") + fact);
    else
        _fail(fact + QStringLiteral(" -- it must be: ") + SafeText::inLine(expected));
}

void DemoReport::expect(const QString& what, bool isSo)
{
    if (isSo)
        show(QStringLiteral("ok  ") + SafeText::inLine(what));
    else
        _fail(QStringLiteral("it is not so that: ") + SafeText::inLine(what));
}

void DemoReport::expectRecords(const KpbAParameter& root, const QString& what, const std::function<void()>& change,
                               const QStringList& records)
{
    QStringList heard;
    const RecordListener listener(root,
                                  [&](const QVector<RecordEntry>& entries) { heard.append(recordText(entries)); });
    startPart(what);
    change();
    for (int i = 0; i < std::max(heard.size(), records.size()); ++i)
        expect("record", heard.value(i, "none"), records.value(i, "none"));
}

void DemoReport::_fail(const QString& message)
{
    show(QStringLiteral("FAILED  ") + SafeText::inMessage(message));
    if (!_failed.contains(_step))
        _failed.append(_step);
}

ExitCode DemoReport::finish()
{
    _output.print(QString());
    if (_failed.isEmpty()) {
        _output.print("demo: all steps gave what they must");
        return ExitCode::Ok;
    }
    _output.print(QStringLiteral("demo: these steps failed: ") + _failed.join(QStringLiteral(", ")));
    return ExitCode::Findings;
}
