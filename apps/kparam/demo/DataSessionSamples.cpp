#include <demo/DataSession.h>

#include <basic/MbeError.h>
#include <demo/DemoLookup.h>
#include <document/WrittenForm.h>
#include <geos_python/MgmPythonDict.h>
#include <geos_python/MgmPythonInterpreter.h>
#include <param/KpbStatus.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcDataset.h>
#include <param/composite/KpcSampleCategories.h>
#include <param/composite/KpcSampleFilter.h>
#include <param/composite/KpcSelection.h>
#include <study/KsoAVariableItem.h>
#include <study/KsoDataSubset.h>
#include <study/KsoSampleCategories.h>
#include <study/KsoSampleFilter.h>
#include <study/KstTransactionDataR.h>
#include <study/KstTransactionWrapperR.h>

#include <limits>

// The steps that count samples, and keep what is to be counted.

namespace {

QString joined(const QList<int>& numbers)
{
    QStringList texts;
    for (const int number : numbers)
        texts.append(QString::number(number));
    return texts.join(QStringLiteral(", "));
}

/// The values under the names that conditions call them by. An undefined number compares with nothing.
MgmPythonDict dictionaryOf(const KpcSampleCategories& categories, const QList<QVariant>& values)
{
    MgmPythonDict variables;
    for (int i = 0; i < values.size(); ++i) {
        const QString name = categories.getAuxLabel() + QString::number(i + 1);
        const KsoAVariableItem* variable = categories.getVariable(i).getAVariableItem();
        const bool isText = variable && (variable->getStorageType() == MbdEVarType::ENUM ||
                                         variable->getStorageType() == MbdEVarType::STRING);
        if (isText)
            variables.createString(name, values.at(i).toString());
        else
            variables.createDouble(name, values.at(i).isValid() ? values.at(i).toDouble()
                                                                : std::numeric_limits<double>::quiet_NaN());
    }
    return variables;
}

/// How many samples each rule has.
QList<int> countCategories(const KpcSampleCategories& categories, const KsoDataSupport& support,
                           const KstTransactionDataR& transaction)
{
    const std::unique_ptr<KsoSampleCategories> record(categories.createSampleCategories());
    const auto fulfils = [&](const QList<QVariant>& values, const QString& condition) {
        return MgmPythonInterpreter::getInstance()->evaluateCondition(dictionaryOf(categories, values), condition);
    };
    QList<int> counts;
    for (int i = 0; i < record->getRulesCount(); ++i)
        counts.append(0);
    for (const int rule : record->categorise(transaction, support, fulfils)) {
        if (rule != KsoSampleCategories::NoRule)
            ++counts[rule];
    }
    return counts;
}

/// What a message in HTML says.
QString plainText(QString message)
{
    message.remove(QStringLiteral("<pre>"));
    message.replace(QStringLiteral("&lt;"), QStringLiteral("<")).replace(QStringLiteral("&gt;"), QStringLiteral(">"));
    message.replace(QStringLiteral("&quot;"), QStringLiteral("\""))
        .replace(QStringLiteral("&#39;"), QStringLiteral("'"));
    return message.replace(QStringLiteral("&amp;"), QStringLiteral("&"));
}

} // namespace

void DataSession::_expectSelected(const QString& what, int expected)
{
    const KsoDataSubset subset = lookUp<KpcSelection>(*_form, "DATA/SELECTION").getSelection();
    _report.expect(what, QString::number(subset.getSelectedSampleCount()), QString::number(expected));
}

void DataSession::_expectKept(const QString& what, int expected)
{
    const auto& filter = lookUp<KpcSampleFilter>(*_form, "DATA/FILTER");
    const KsoDataSupport* support = lookUp<KpcDataset>(*_form, "DATA").getSupport();
    const std::unique_ptr<KsoSampleFilter> record(filter.createSampleFilter());
    if (!record || !support) {
        _report.expect(what, "no filter", QString::number(expected));
        return;
    }
    const KstTransactionWrapperR transaction(_store.getContext());
    _report.expect(what, QString::number(record->countKeptSamples(*transaction.data(), *support)),
                   QString::number(expected));
}

void DataSession::_expectCategorised(const QString& what, const QString& expected)
{
    const auto& categories = lookUp<KpcSampleCategories>(*_form, "DATA/CATEGORIES");
    const KsoDataSupport* support = lookUp<KpcDataset>(*_form, "DATA").getSupport();
    if (!support) {
        _report.expect(what, "no samples", expected);
        return;
    }
    const KstTransactionWrapperR transaction(_store.getContext());
    _report.expect(what, joined(countCategories(categories, *support, *transaction.data())), expected);
}

void DataSession::_select()
{
    const auto& selection = lookUp<KpcSelection>(*_form, "DATA/SELECTION");
    auto& variable = lookUp<KpaData>(selection, "VARIABLE");
    auto& categories = lookUp<KpaFlags>(selection, "CATEGORIES");
    auto& invert = lookUp<KpaBool>(selection, "INVERT");

    _expectRecords("The rock is chosen, and its categories are offered, all of them checked:",
                   [&] { variable.setValue(_ident("drillholes/ROCK")); },
                   {"DATA/SELECTION/CATEGORIES value, config; DATA/SELECTION/INVERT config; "
                    "DATA/SELECTION/VARIABLE value"});
    _expectStored("DATA/SELECTION/CATEGORIES", "Andesite|Diorite|Limestone|Skarn");
    _expectSelected("samples, of 40 of which one has no rock", 39);

    _report.startPart("The rocks that bear ore:");
    categories.setCheckedFlagsFromLabels({"Skarn", "Diorite"});
    _expectText("DATA/SELECTION", "Samples/ROCK (Diorite, Skarn)");
    _expectSelected("samples", 13);
    invert.setValue(true);
    _expectSelected("samples of the complement", 27);
    invert.setValue(false);

    _report.startPart("None of them, which the status tells:");
    categories.setCheckedFlagsFromLabels({});
    _expectSelected("samples", 0);
    _report.show(selection.getStatus("The selection", true).getErrors().join(QLatin1Char('\n')));

    _report.startPart("A boolean variable selects without categories:");
    variable.setValue(_ident("drillholes/MINERALISED"));
    _report.expect("CATEGORIES is not enabled", !categories.isEnabled());
    _expectSelected("samples that are mineralised", 10);

    variable.setValue(_ident("drillholes/ROCK"));
    categories.setCheckedFlagsFromLabels({"Skarn", "Diorite"});
}

void DataSession::_filter()
{
    auto& filter = lookUp<KpcSampleFilter>(*_form, "DATA/FILTER");
    filter.getIsActiveParameter()->setValue(true);
    KpcSampleFilterRule& copper = *filter.addRule();
    copper.getVariableParameter()->setValue(_ident("drillholes/CU"));
    _report.startPart("A rule on a number offers the statistics of its variable:");
    _report.expect("lower bound", copper.getNumIntervalLowerParameter()->toString(), "0.045");
    _report.expect("upper bound", copper.getNumIntervalUpperParameter()->toString(), "1.452");
    copper.getNumModeParameter()->setItemFromKey("COMPARE");
    copper.getNumCompareOperatorParameter()->setItemFromKey("GREATER_THAN");
    copper.getNumCompareValueParameter()->setValue(0.3);
    _expectKept(copper.toString(), 10);

    _report.startPart("A second rule; the combination asks for both:");
    KpcSampleFilterRule& rock = *filter.addRule();
    rock.getVariableParameter()->setValue(_ident("drillholes/ROCK"));
    rock.getFlagsParameter()->setCheckedFlagsFromLabels({"Skarn"});
    _expectKept(filter.getCombination(), 5);
    _report.startPart("Another combination stays, whatever rules come:");
    filter.getCombinationParameter()->setValue("R1 or R2");
    KpcSampleFilterRule& gold = *filter.addRule();
    gold.getVariableParameter()->setValue(_ident("drillholes/AU"));
    gold.getNumModeParameter()->setItemFromKey("RANGE");
    gold.getNumIntervalLowerParameter()->setValue(0.1);
    gold.getNumIntervalUpperParameter()->setValue(0.3);
    _expectKept(filter.getCombination(), 11);
    filter.getCombinationParameter()->setValue("R3 and not R1");
    _expectKept(filter.getCombination(), 18);
    _report.show(filter.toString());
    _refuseCombination();
}

void DataSession::_refuseCombination()
{
    auto& filter = lookUp<KpcSampleFilter>(*_form, "DATA/FILTER");
    _report.startPart("A combination of a rule that is not there is told of:");
    filter.getCombinationParameter()->setValue("R1 and R4");
    _report.expect("told", filter.testSampleFilter().join(QStringLiteral("; ")), "Invalid filter combination");
    filter.getCombinationParameter()->setValue("R3 and not R1");
    _report.expect("told", filter.testSampleFilter().join(QStringLiteral("; ")), "");
}

void DataSession::_categorise()
{
    auto& categories = lookUp<KpcSampleCategories>(*_form, "DATA/CATEGORIES");
    categories.addVariable(_ident("drillholes/CU"));
    categories.addVariable(_ident("drillholes/ROCK"));
    categories.addRule(QColor(200, 0, 0), "Rich", "aux1 > 0.5");
    categories.addRule(QColor(200, 100, 0), "Ore", "aux1 > 0.3 and aux2 != 'Limestone'");
    categories.addRule(QColor(200, 200, 0), "Traces", "aux2 == 'Limestone' or aux1 > 0.1");
    _report.show(categories.getReadableRules().join(QLatin1Char('\n')));
    _report.expect("conditions in one spelling", categories.getRuleCond(1), "AUX1 > 0.3 and AUX2 != 'Limestone'");
    _expectCategorised("samples of each; a sample belongs to the first that it fits", "5, 5, 17");
    _refuseConditions();
}

void DataSession::_refuseConditions()
{
    auto& categories = lookUp<KpcSampleCategories>(*_form, "DATA/CATEGORIES");
    for (const char* condition : {"AUX1 > and 3", "__import__('os')"}) {
        categories.addRule(QColor(0, 0, 0), "Bad", condition);
        bool ok = true;
        const QStringList messages = categories.testRules(ok);
        _report.startPart("A condition that cannot be evaluated is told of, with the place:");
        for (const QString& message : messages)
            _report.show(plainText(message));
        _report.expect("the rules are not in order", !ok);
        categories.removeLastRule();
    }
}

void DataSession::_keep()
{
    const QByteArray stored = createBytes(*_form, true);
    {
        const KpsSerializer serializer(&_openedProject());
        serializer.saveFiche(_form.get(), _form->getKeyParameters());
    }
    _form.reset();
    _project = _store.open();
    _form = std::make_unique<DemoSurvey>(QStringLiteral("SURVEY"), _store.getContext());
    const KpsSerializer serializer(_project);
    _report.expect("there is a form of Study 1", serializer.loadFiche(_form.get(), _form->getKeyParameters()));
    _report.expect("written again, the form is the same", createBytes(*_form, true) == stored);
    _expectSelected("selected samples", 13);
    _expectKept("kept samples", 18);
    _expectCategorised("categorised samples", "5, 5, 17");
    _report.show(lookUp<KpcSampleCategories>(*_form, "DATA/CATEGORIES").toString());
}
