#pragma once

#include <param/composite/KpcChildren.h>
#include <param/composite/KpcFiche.h>
#include <param/watcher/KpwTable.h>

class KpaCoordSystem;
class KpaDirection;
class KpaLineStyle;
class KpaMatrixSymmetrical;
class KpaPalette;
class KpaPlaneOrientation;
class KpaRotation;
class KpaString;
class KpaSymbol;
class KpaSymbol3D;
class KpaSystemOrientation;
class KpaVectorDouble;
class KpaVectorInt;
class KpcConstraintDouble;
class KpcGroupList;
class KpcVectorConstraintDouble;
class KplColorList;
class KplDoubleList;
class KplStringList;

/// A second task form to show the library with: a model of a deposit and how it is drawn.
///
/// The second component of a cell follows the first. What the print looks like follows the screen, until it is changed
/// itself. Domains and their colours are the columns of one table. Forms are told apart by the name of the model.
class DemoModel : public KpcFiche
{
public:
    DemoModel(const QString& key, const KstITransactable& transactable);
    DemoModel(const DemoModel& other, const QString& newKey);
    ~DemoModel() override;
    DemoModel* duplicate(const QString& newKey) const override;

    /// The parameters by whose values forms are told apart in a store.
    QList<KpbAParameter*> getKeyParameters() const;
    /// The domains and their colours, row by row.
    KpwTable& getDomains() { return _domainTable; }

private:
    enum WatcherId
    {
        PrintCopier
    };

    struct Drawing
    {
        KpcChild<KpcGroup> group;
        KpcChild<KpaPalette> palette;
        KpcChild<KpaLineStyle> contour;
        KpcChild<KpaSymbol> sample;
        KpcChild<KpaSymbol3D> drillHole;
    };

    void _declare(KpcChildren children);
    void _declareGrid(KpcChildren children);
    void _declareStructure(KpcChildren children);
    static void _declareDrawing(KpcChildren children, Drawing& drawing);
    void _copyScreenToPrint();
    void _watch();

    KpcChild<KpaString> _name;
    KpcChild<KpcGroup> _grid;
    KpcChild<KpaCoordSystem> _system;
    KpcChild<KpaVectorDouble> _origin;
    KpcChild<KpaVectorDouble> _cell;
    KpcChild<KpaVectorInt> _nodes;
    KpcChild<KpaRotation> _rotation;
    KpcChild<KpcGroup> _structure;
    KpcChild<KpaDirection> _shoots;
    KpcChild<KpaPlaneOrientation> _layers;
    KpcChild<KpaSystemOrientation> _anisotropy;
    KpcChild<KpaMatrixSymmetrical> _sills;
    KpcChild<KpcConstraintDouble> _nugget;
    KpcChild<KpcVectorConstraintDouble> _ranges;
    KpcChild<KplDoubleList> _cutoffs;
    KpcChild<KplStringList> _domains;
    KpcChild<KplColorList> _domainColors;
    KpcChild<KpcGroupList> _drillHoles;
    Drawing _screen;
    Drawing _print;

    // Not registered with the group, as a group does not give its watchers out.
    KpwTable _domainTable;
};
