#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFSDirectory.h>
#include <param/atomic/KpaFSFile.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaSeed.h>
#include <param/atomic/KpaString.h>
#include <param/atomic/KpaUnit.h>
#include <param/composite/KpcBasicFiche.h>
#include <param/composite/KpcCheckableGroup.h>
#include <param/composite/KpcFiche.h>
#include <param/composite/KpcGroup.h>
#include <registry/ClassRegistry.h>
#include <registry/DemoTask.h>
#include <study/KstATransactableDefault.h>

namespace {

class NoProject : public KstATransactableDefault
{};

const NoProject noProject;

/// A class that needs nothing but its key.
template <class T>
std::unique_ptr<KpbAParameter> make(const QString& key)
{
    return std::make_unique<T>(key);
}

/// A class that would reach its project through a transaction context.
template <class T>
std::unique_ptr<KpbAParameter> makeHere(const QString& key)
{
    return std::make_unique<T>(key, noProject);
}

std::unique_ptr<KpbAParameter> makeFiche(const QString& key)
{
    return std::make_unique<KpcFiche>(key, QStringLiteral("Task"), noProject);
}

std::unique_ptr<KpbAParameter> makeBasicFiche(const QString& key)
{
    return std::make_unique<KpcBasicFiche>(key, QStringLiteral("Task"));
}

} // namespace

const std::vector<ClassRegistry::Row>& ClassRegistry::getRows()
{
    // clang-format off
    static const QString atomic = QStringLiteral("Atomic parameters");
    static const QString group  = QStringLiteral("Composites");
    static const QString task   = QStringLiteral("Task forms");
    static const std::vector<Row> rows = {
        {"KpaInteger",        atomic, "An integer within limits",                 false, make<KpaInteger>},
        {"KpaDouble",         atomic, "A number within limits, with a unit",      false, make<KpaDouble>},
        {"KpaBool",           atomic, "Yes or no",                                false, make<KpaBool>},
        {"KpaSeed",           atomic, "The seed of a random number generator",    false, make<KpaSeed>},
        {"KpaUnit",           atomic, "The choice of a unit within a unit class", false, make<KpaUnit>},
        {"KpaEnum",           atomic, "One choice among items",                   false, make<KpaEnum>},
        {"KpaFlags",          atomic, "Any subset of items",                      false, make<KpaFlags>},
        {"KpaString",         atomic, "A text under optional rules",              false, make<KpaString>},
        {"KpaFSFile",         atomic, "The path of a file",                       false, make<KpaFSFile>},
        {"KpaFSDirectory",    atomic, "The path of a folder",                     false, make<KpaFSDirectory>},

        {"KpcGroup",          group,  "A bag of parameters with watchers",        false, makeHere<KpcGroup>},
        {"KpcFiche",          group,  "The stored form of a task",                true,  makeFiche},
        {"KpcBasicFiche",     group,  "A fiche outside any project",              true,  makeBasicFiche},
        {"KpcCheckableGroup", group,  "A group with a check box in front of it",  false, makeHere<KpcCheckableGroup>},

        {"DemoTask",          task,   "The form that the demonstration uses",     true,  makeHere<DemoTask>},
    };
    // clang-format on
    return rows;
}
