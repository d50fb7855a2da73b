#pragma once

#include <QtCore/QString>
#include <QtGui/QPixmap>

#include <param/KpExport.h>

class MbbAEnum;

/// One item that an enumeration or a flag set offers. A plain record of values. Its pixmap needs the program's
/// `QCoreApplication`, even while it is null, so items are no static constants.
struct KESTRIN_PARAM_EXPORT KpaItemDef
{
    KpaItemDef() = default;
    /// Implicit, so that lists of items are written as lists of enumerators.
    KpaItemDef(const MbbAEnum& item); // NOLINT(google-explicit-constructor)
    /// An empty key falls back to the label. The label is the echo label, too.
    KpaItemDef(int value, const QString& label, const QString& key);

    /// All fields; pixmaps are equal when their images are.
    friend KESTRIN_PARAM_EXPORT bool operator==(const KpaItemDef& a, const KpaItemDef& b);
    friend bool operator!=(const KpaItemDef& a, const KpaItemDef& b) { return !(a == b); }

    /// The number of the item, by which a table finds it.
    int value = -1;
    QString label;
    /// The stable text for the serial form.
    QString key;
    /// A disabled item can not be chosen.
    bool enabled = true;
    /// Stands for the label in the text of a flag set, unless it is empty.
    QString echoLabel;
    /// For the debug text only.
    QString comment;
    QPixmap pixmap;
    /// For callers; the library only keeps it.
    bool marked = false;
};
