#pragma once

#include <document/ValueReading.h>
#include <param/KpbAParameter.h>

#include <optional>

/// The parameter below `root` that the keys of `path` lead to; a `Failure` of code `Usage` that suggests others if
/// there is none.
KpbAParameter& requireParameter(const QString& path, const KpbAParameter& root);

/// What became of an assignment.
struct AssignmentResult
{
    QString path;                  ///< of what was assigned to: of a new item its own
    std::optional<QString> stored; ///< the text as it is stored now; nothing for an item that is not there
    ValueReading reading;
};

/// A change that the user asks for, with texts as they are stored:
///
/// - "PATH=VALUE" changes a parameter of one entry, and "PATH/ENTRY=VALUE" one entry of those that have several;
/// - "LIST/+=VALUE" adds an item with that value, or as the prototype is where the value is empty;
/// - "LIST/-=KEY" takes the item of the key out.
class Assignment
{
public:
    /// Finds what the assignment is about in the present state of the tree; a `Failure` of code `Usage` if there is no
    /// such parameter, entry or item.
    static Assignment parse(const QString& argument, KpbAParameter& root);

    const QString& getPath() const { return _path; }
    const QString& getText() const { return _text; }

    /// Makes the change. Afterwards the assignment may be about nothing any more.
    AssignmentResult apply() const;

private:
    enum Kind
    {
        Entry,
        NewItem,
        ItemGone
    };

    Assignment() = default;

    void _find(KpbAParameter& root);
    AssignmentResult _setEntry() const;
    AssignmentResult _addItem() const;
    AssignmentResult _removeItem() const;

    Kind _kind = Entry;
    QString _path;
    QString _text;
    KpbAParameter* _parameter = nullptr; ///< for an item, the list
    QString _entry;
};
