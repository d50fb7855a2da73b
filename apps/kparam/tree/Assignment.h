#pragma once

#include <document/ValueReading.h>
#include <param/KpbAParameter.h>

/// The parameter below `root` that the keys of `path` lead to; a `Failure` of code `Usage` that suggests others if
/// there is none.
KpbAParameter& requireParameter(const QString& path, const KpbAParameter& root);

/// A change of one value that the user asks for: "PATH=VALUE", with the value as it is stored.
struct Assignment
{
    QString path;
    QString text;
    KpbAParameter* parameter; ///< that the path leads to, below the root

    /// Finds the parameter of "PATH=VALUE"; a `Failure` of code `Usage` if there is none, or if it has no single value.
    static Assignment parse(const QString& argument, KpbAParameter& root);

    /// Gives the value to the parameter and tells what became of it.
    ValueReading apply() const;
    /// The parameter's value as it is stored now.
    QString getStoredText() const;
};
