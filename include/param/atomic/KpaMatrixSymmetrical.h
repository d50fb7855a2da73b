#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaMatrixSymmetricalConfig.h>

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<KuuMatrixSymmetrical, KpaMatrixSymmetricalConfig>;

/// A symmetric matrix, such as the sills of several variables: plain numbers, or what is known of each of them. Reading
/// a form takes memory for the size that it names, which `KuuMatrixSymmetrical::MaxSize` bounds.
class KESTRIN_PARAM_EXPORT KpaMatrixSymmetrical : public KpaAAtomic<KuuMatrixSymmetrical, KpaMatrixSymmetricalConfig>
{
public:
    explicit KpaMatrixSymmetrical(const QString& key);
    KpaMatrixSymmetrical(const KpaMatrixSymmetrical& other, const QString& newKey);
    KpaMatrixSymmetrical* duplicate(const QString& newKey) const override;

    int getNbRows() const { return _value.getSize(); }
    int getNbColumns() const { return _value.getSize(); }
    /// The number of elements of the upper triangle.
    int getElementCount() const { return _value.getElementCount(); }

    Ku::Constraint::Mode getMode() const { return _config.getMode(); }
    bool doesWantPositiveDefinite() const { return _config.doesWantPositiveDefinite(); }
    bool canItBeNull() const { return _config.canItBeNull(); }
    bool isBoundedConstraintEnabled() const { return _config.isBoundedConstraintEnabled(); }
    const QString& getMatrixLabel() const { return _config.getMatrixLabel(); }
    const QStringList& getLabels() const { return _config.getLabels(); }

    void setMode(Ku::Constraint::Mode mode) { _configChangedIf(_config.setMode(mode)); }
    void wantPositiveDefinite(bool wanted) { _configChangedIf(_config.wantPositiveDefinite(wanted)); }
    void canBeNull(bool allowed) { _configChangedIf(_config.canBeNull(allowed)); }
    void setBoundedConstraintEnabled(bool enabled) { _configChangedIf(_config.setBoundedConstraintEnabled(enabled)); }
    void setMatrixLabel(const QString& label) { _configChangedIf(_config.setMatrixLabel(label)); }
    void setLabels(const QStringList& labels) { _configChangedIf(_config.setLabels(labels)); }

    bool hasGlobalFormatSettings() const { return _config.hasGlobalFormatSettings(); }

    const MbuEUnitClass& getUnitClass() const { return _config.getUnitClass(); }
    int getPowerValue() const { return _config.getPowerValue(); }
    bool usesCustomFormat() const { return _config.usesCustomFormat(); }
    const MbbStringFormat& getCustomFormat() const { return _config.getCustomFormat(); }
    int getCustomPrecision() const { return _config.getCustomPrecision(); }
    QString getCustomSymbol() const { return _config.getCustomSymbol(); }

    void setUnitClass(const MbuEUnitClass& unitClass) { _configChangedIf(_config.setUnitClass(unitClass)); }
    void setPowerValue(int powerValue) { _configChangedIf(_config.setPowerValue(powerValue)); }
    void setCustomFormat(const MbbStringFormat& format) { _configChangedIf(_config.setCustomFormat(format)); }
    void setDetails(const MbdVariableDetails& details) { _configChangedIf(_config.setDetails(details)); }

    const QList<MbuEUnitClass>& getUnitClassList() const { return _config.getUnitClassList(); }
    const QList<int>& getPowerValueList() const { return _config.getPowerValueList(); }
    QList<bool> usesCustomFormatList() const { return _config.usesCustomFormatList(); }
    QList<MbbStringFormat> getCustomFormatList() const { return _config.getCustomFormatList(); }
    QList<int> getCustomPrecisionList() const { return _config.getCustomPrecisionList(); }
    QStringList getCustomSymbolList() const { return _config.getCustomSymbolList(); }

    void setUnitClassList(const QList<MbuEUnitClass>& classes) { _configChangedIf(_config.setUnitClassList(classes)); }
    void setPowerValueList(const QList<int>& powers) { _configChangedIf(_config.setPowerValueList(powers)); }
    void setCustomFormatList(const QList<MbbStringFormat>& formats)
    {
        _configChangedIf(_config.setCustomFormatList(formats));
    }
    void setDetailsList(const QList<MbdVariableDetails>& details) { _configChangedIf(_config.setDetailsList(details)); }

    void getFormats(QList<MbbStringFormat>& formats, QList<int>& powers) const { _config.getFormats(formats, powers); }

    double getElementMinimum() const { return _config.getElementMinimum(); }
    double getElementMaximum() const { return _config.getElementMaximum(); }
    double getElementStep() const { return _config.getElementStep(); }
    const QList<double>& getElementMinimumList() const { return _config.getElementMinimumList(); }
    const QList<double>& getElementMaximumList() const { return _config.getElementMaximumList(); }
    bool isElementMinimumDefined() const { return _config.isElementMinimumDefined(); }
    bool isElementMaximumDefined() const { return _config.isElementMaximumDefined(); }
    bool isElementStepDefined() const { return _config.isElementStepDefined(); }

    void setElementMinimum(double minimum) { _configChangedIf(_config.setElementMinimum(minimum)); }
    void setElementMaximum(double maximum) { _configChangedIf(_config.setElementMaximum(maximum)); }
    void setElementStep(double step) { _configChangedIf(_config.setElementStep(step)); }
    void setElementBounds(const QList<double>& minimums, const QList<double>& maximums)
    {
        _configChangedIf(_config.setElementBounds(minimums, maximums));
    }
};
