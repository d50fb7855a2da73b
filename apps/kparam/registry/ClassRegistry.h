#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <param/KpbAParameter.h>

#include <memory>
#include <vector>

class KstITransactable;

/// The parameter classes that a program can make by name. A class that takes more than a key is made with what leaves
/// it as its constructor builds it.
class ClassRegistry
{
public:
    struct Row
    {
        /// The name of the class, as it is written in code.
        QString name;
        /// The heading under which lists show the class.
        QString family;
        /// One line on what the class is for.
        QString description;
        /// Whether its stored form is a "task" document and not a "param" element.
        bool isFiche;
        /// A new parameter of the class; any text is a key. The context must outlive it.
        std::unique_ptr<KpbAParameter> (*makeIn)(const QString& key, const KstITransactable& context);

        /// The same for a parameter that belongs to no project.
        std::unique_ptr<KpbAParameter> make(const QString& key) const;
    };

    /// All classes, family by family.
    static const std::vector<Row>& getRows();
    /// The row of a class, spelled exactly; null if there is none.
    static const Row* find(const QString& name);
    /// At most three names of classes that `name` could be a slip of, the nearest first.
    static QStringList getCloseNames(const QString& name);
};
