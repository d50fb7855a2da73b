#include <cli/Output.h>

#include <QtCore/QJsonDocument>

#include <cli/SafeText.h>

#include <cstdio>

Output::Output()
{
    _complete = _out.open(stdout, QIODevice::WriteOnly);
    _err.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered);
}

void Output::print(const QString& text)
{
    printBytes(text.toUtf8() + '\n');
}

void Output::printBytes(const QByteArray& bytes)
{
    _complete = _out.write(bytes) == bytes.size() && _complete;
}

void Output::printJson(const QJsonObject& object)
{
    printBytes(QJsonDocument(object).toJson(QJsonDocument::Indented));
}

void Output::printMessage(const QString& message)
{
    flush();
    _err.write("kparam: " + SafeText::inMessage(message).toUtf8() + '\n');
}

bool Output::flush()
{
    _complete = _out.flush() && _complete;
    return _complete;
}
