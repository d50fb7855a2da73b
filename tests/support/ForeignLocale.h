#pragma once

#include <QtCore/QLocale>

/// Makes the process write numbers with a decimal comma and groups of digits, as long as it lives.
class ForeignLocale
{
public:
    ForeignLocale() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }
    ~ForeignLocale() { QLocale::setDefault(_before); }
    ForeignLocale(const ForeignLocale&) = delete;
    ForeignLocale& operator=(const ForeignLocale&) = delete;

private:
    const QLocale _before;
};
