#pragma once

#include <QtCore/QString>

#include <util/KusPath.h>

/// Names a folder for the short form of paths while it lives.
class NamedRoot
{
public:
    NamedRoot(const QString& name, const QString& folder) : _name(name) { KusPath::setRoot(name, folder); }
    ~NamedRoot() { KusPath::setRoot(_name, QString()); }
    NamedRoot(const NamedRoot&) = delete;
    NamedRoot& operator=(const NamedRoot&) = delete;

private:
    QString _name;
};
