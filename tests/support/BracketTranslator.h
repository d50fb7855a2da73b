#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QTranslator>

/// Translates every text of the program into "[text]" while it lives.
class BracketTranslator : public QTranslator
{
public:
    BracketTranslator() { QCoreApplication::installTranslator(this); }
    ~BracketTranslator() override { QCoreApplication::removeTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* text, const char*, int) const override
    {
        return QLatin1Char('[') + QString::fromLatin1(text) + QLatin1Char(']');
    }
};
