#pragma once

#include <QtCore/QCommandLineOption>
#include <QtCore/QJsonObject>
#include <QtCore/QVector>
#include <QtXml/QDomDocument>

#include <study/KssProject.h>

#include <memory>

class KsbIDriverTaskFiche;

/// What a form is filed under.
struct FormAddress
{
    QString id;
    QString key;

    /// The address for people, in quotes.
    QString toString() const;
    QJsonObject toJson() const;
    friend bool operator==(const FormAddress& a, const FormAddress& b) { return a.id == b.id && a.key == b.key; }
};

/// The addresses of all forms, by identifier, then key.
QVector<FormAddress> listForms(const KsbIDriverTaskFiche& driver);

/// The form that the user means: by its fiche key as it is or as it reads, or the only form of `id` where `key` is
/// null. A `Failure` if there is none, or more than one.
FormAddress requireForm(const KsbIDriverTaskFiche& driver, const QString& id, const QString& key);

/// The stored document; a `Failure` if it cannot be read.
QDomDocument readStored(const KsbIDriverTaskFiche& driver, const FormAddress& address);

/// A `Failure` if there is such a form already and it must not be replaced.
void checkFree(const KsbIDriverTaskFiche& driver, const FormAddress& address, bool mayReplace);

/// Opens the store, or makes it where it does not exist and that is wanted.
std::unique_ptr<KssProject> openToWrite(const QString& store, bool create);

QCommandLineOption createOption();
QCommandLineOption replaceOption();
