#pragma once

#include <QtCore/QStringList>

#include <cli/ExitCode.h>

#include <functional>

class KpbAParameter;
class Output;

/// Prints the demonstration step by step and remembers which steps did not give what they must.
class DemoReport
{
public:
    explicit DemoReport(Output& output) : _output(output) {}

    /// Runs one step. Exceptions that leave it make it fail.
    void runStep(const QString& name, const QString& title, const std::function<void()>& step);

    /// Prints a heading within the step; what follows is indented below it. An empty one ends the part before.
    void startPart(const QString& heading);
    /// Prints text of one or more lines, which must be safe, indented.
    void show(const QString& text);
    /// Prints what is so, and fails the step where it is not what it must be.
    void expect(const QString& what, const QString& got, const QString& expected);
    void expect(const QString& what, bool isSo);

    /// Makes a change, as a part of the step, and holds the records that reach `root`, each as a line, against those
    /// that must.
    void expectRecords(const KpbAParameter& root, const QString& what, const std::function<void()>& change,
                       const QStringList& records);

    /// Prints the last line and gives the program's code.
    ExitCode finish();

private:
    void _fail(const QString& message);

    Output& _output;
    QString _step;
    int _stepCount = 0;
    QString _indent;
    bool _partStarted = false;
    QStringList _failed;
};
