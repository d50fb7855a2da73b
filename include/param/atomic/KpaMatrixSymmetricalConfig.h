#pragma once

#include <QtCore/QStringList>

#include <basic/MbbGlobal.h>
#include <basic/MbbOrderedMap.h>
#include <basic/MbdVariableDetails.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>
#include <util/KuuMatrixSymmetrical.h>

#include <optional>

/// What a matrix parameter admits, plain numbers or constraints, limits and definiteness, and how its elements show:
/// either all alike, or each row in the unit and the format of its variable. The last setter of either kind decides
/// which. Setters give whether something changed.
///
/// Lists of limits go by element through the upper triangle, row by row from the diagonal to the right. Lists of
/// formats, unit classes and powers go by row; a row without an entry is a plain number of power 1. All numbers are in
/// the storage units.
class KESTRIN_PARAM_EXPORT KpaMatrixSymmetricalConfig
{
public:
    /// All fields; also those of formats that are not in use.
    friend bool operator==(const KpaMatrixSymmetricalConfig& a, const KpaMatrixSymmetricalConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::MATRIX; }
    /// A matrix of one row.
    KuuMatrixSymmetrical getInitialValue() const { return KuuMatrixSymmetrical(1); }

    Ku::Constraint::Mode getMode() const { return _mode; }
    bool doesWantPositiveDefinite() const { return _positiveDefinite; }
    bool canItBeNull() const { return _canBeNull; }
    /// Whether a user interface offers bounds in the mode of constraints.
    bool isBoundedConstraintEnabled() const { return _boundedConstraintEnabled; }
    /// The label of the whole matrix.
    const QString& getMatrixLabel() const { return _matrixLabel; }
    /// A label per row.
    const QStringList& getLabels() const { return _labels; }

    bool setMode(Ku::Constraint::Mode mode);
    bool wantPositiveDefinite(bool wanted);
    bool canBeNull(bool allowed);
    bool setBoundedConstraintEnabled(bool enabled);
    bool setMatrixLabel(const QString& label);
    bool setLabels(const QStringList& labels);

    /// Whether all elements show alike; otherwise each row in its own way.
    bool hasGlobalFormatSettings() const { return _globalFormatSettings; }

    const MbuEUnitClass& getUnitClass() const { return _unitClass; }
    /// The exponent of the unit.
    int getPowerValue() const { return _powerValue; }
    bool usesCustomFormat() const { return _useCustomFormat; }
    /// The last custom format, also where it is not in use.
    const MbbStringFormat& getCustomFormat() const { return _customFormat; }
    int getCustomPrecision() const { return _customFormat.getPrecision(); }
    QString getCustomSymbol() const { return _customFormat.getSymbol(); }

    /// Like `setPowerValue`, drops the custom format.
    bool setUnitClass(const MbuEUnitClass& unitClass);
    bool setPowerValue(int powerValue);
    bool setCustomFormat(const MbbStringFormat& format);
    /// Takes over unit class and power; the format becomes the custom one if the class is NONE or does not show in its
    /// default format.
    bool setDetails(const MbdVariableDetails& details);

    const QList<MbuEUnitClass>& getUnitClassList() const { return _unitClassList; }
    const QList<int>& getPowerValueList() const { return _powerValueList; }
    /// For each row that a custom format was asked for, whether it has one. The three lists below have a default format
    /// where it has none.
    QList<bool> usesCustomFormatList() const;
    QList<MbbStringFormat> getCustomFormatList() const;
    QList<int> getCustomPrecisionList() const;
    QStringList getCustomSymbolList() const;

    /// Like `setPowerValueList`, drops the custom formats of the rows.
    bool setUnitClassList(const QList<MbuEUnitClass>& unitClasses);
    bool setPowerValueList(const QList<int>& powerValues);
    bool setCustomFormatList(const QList<MbbStringFormat>& formats);
    /// `setDetails` for each row. Powers are taken as they are given, so that the details of a variable whose variance
    /// the row holds have to be squared before.
    bool setDetailsList(const QList<MbdVariableDetails>& details);

    /// The formats and the powers to show elements in: one of each for all elements, or one per row, as many as the
    /// longest list has. Overwrites what the two lists hold.
    void getFormats(QList<MbbStringFormat>& formats, QList<int>& powers) const;

    /// The one limit that was set for all elements; `MbbGlobal::D_FFFF` where there is none, or one per element.
    double getElementMinimum() const { return _onlyLimit(_elementMinimumList); }
    double getElementMaximum() const { return _onlyLimit(_elementMaximumList); }
    bool isElementMinimumDefined() const { return getElementMinimum() != MbbGlobal::D_FFFF; }
    bool isElementMaximumDefined() const { return getElementMaximum() != MbbGlobal::D_FFFF; }
    /// `MbbGlobal::D_FFFF` where none was set.
    double getElementStep() const { return _elementStep; }
    bool isElementStepDefined() const { return _elementStep != MbbGlobal::D_FFFF; }
    const QList<double>& getElementMinimumList() const { return _elementMinimumList; }
    const QList<double>& getElementMaximumList() const { return _elementMaximumList; }

    /// Sets a single limit in the place of all. Of a matrix of several rows `fix` applies it to the first element, and
    /// leaves the others without.
    bool setElementMinimum(double minimum);
    bool setElementMaximum(double maximum);
    bool setElementStep(double step);
    bool setElementBounds(const QList<double>& minimums, const QList<double>& maximums);

    /// The matrix in the mode of the configuration, within the limits and, if wanted, positive definite.
    KuuMatrixSymmetrical fix(const KuuMatrixSymmetrical& matrix, const KuuMatrixSymmetrical& previous) const;
    QString toString(const KuuMatrixSymmetrical& matrix) const;
    MbbOrderedMap<QString, QString> serializeValue(const KuuMatrixSymmetrical& matrix) const;
    /// A size that is missing, is no whole number or is none that a matrix can have gives `previous`. An element that
    /// is missing or is no number is 0, a limit like that is none, and any unknown behavior is `Unknown`.
    KuuMatrixSymmetrical unserializeValue(const MbbOrderedMap<QString, QString>& map,
                                          const KuuMatrixSymmetrical& previous) const;
    QString debug() const;

private:
    static double _onlyLimit(const QList<double>& limits)
    {
        return limits.size() == 1 ? limits.first() : MbbGlobal::D_FFFF;
    }
    MbbStringFormat _formatOfRow(int row) const;

    Ku::Constraint::Mode _mode = Ku::Constraint::Values;
    bool _positiveDefinite = false;
    bool _canBeNull = true;
    bool _boundedConstraintEnabled = true;
    QString _matrixLabel;
    QStringList _labels;
    bool _globalFormatSettings = false;
    MbuEUnitClass _unitClass;
    int _powerValue = 1;
    bool _useCustomFormat = false;
    MbbStringFormat _customFormat;
    QList<std::optional<MbbStringFormat>> _customFormatList; ///< null for a row in the user's format
    QList<int> _powerValueList;
    QList<MbuEUnitClass> _unitClassList;
    double _elementStep = MbbGlobal::D_FFFF;
    QList<double> _elementMinimumList;
    QList<double> _elementMaximumList;
};
