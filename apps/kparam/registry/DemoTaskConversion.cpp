#include <param/KpbFailure.h>
#include <registry/DemoTask.h>
#include <util/KuxXml.h>

void DemoTask::convert(QDomElement& element, int fromVersion) const
{
    switch (fromVersion) {
    case 1:
        _convertToVersion2(element);
        [[fallthrough]];
    case 2:
        _convertToVersion3(element);
        [[fallthrough]];
    case 3:
        return;
    default:
        Kp::failProgramming("void __cdecl DemoTask::convert(class QDomElement &,int) const", "registry\\DemoTask",
                            "Unexpected version number requested");
    }
}

// Version 1 had abbreviations where users of other languages asked for words.
void DemoTask::_convertToVersion2(const QDomElement& element)
{
    _convertXmlChangeKeys(element, {{"TITLE", "NAME"},
                                    {"INTERPOLATOR", "METHOD"},
                                    {"SAMPLES", "MAX_SAMPLES"},
                                    {"OUTPUTS", "STATISTICS"},
                                    {"TOP_CUT", "UPPER_LIMIT"}});
    _convertXmlUpdateEnumValue(_convertXmlGetParam(element, {"METHOD"}),
                               {{"NN", "NEAREST"}, {"ID", "INVERSE_DISTANCE"}, {"OK", "KRIGING"}});
    _convertXmlUpdateFlagsValue(_convertXmlGetParam(element, {"STATISTICS"}),
                                {{"AVG", "MEAN"}, {"VAR", "VARIANCE"}, {"NB", "COUNT"}});
}

// Version 2 had all parameters in one row; the search and the trimming became groups, and kriging was told apart from
// its other kinds.
void DemoTask::_convertToVersion3(const QDomElement& element)
{
    for (const char* key : {"RADIUS", "AZIMUTH", "MAX_SAMPLES"})
        if (!_convertXmlGetParam(element, {key}).isNull())
            _convertXmlChangeParent(element, key, _getOrCreateGroup(element, "SEARCH"), QString());
    _moveLimitIntoTrimming(element);
    _convertXmlUpdateEnumValue(_convertXmlGetParam(element, {"METHOD"}), {{"KRIGING", "ORDINARY_KRIGING"}});
    _convertXmlUpdateFlagsValue(_convertXmlGetParam(element, {"STATISTICS"}), {{"COUNT", "SAMPLE_COUNT"}});
}

QDomElement DemoTask::_getOrCreateGroup(const QDomElement& parent, const QString& key)
{
    const QDomElement group = _convertXmlGetParam(parent, {key});
    return group.isNull() ? _convertXmlCreateNewParam(parent, key) : group;
}

// In version 2 an empty limit said that nothing is trimmed.
void DemoTask::_moveLimitIntoTrimming(QDomElement element)
{
    const QDomElement limit = _convertXmlGetParam(element, {"UPPER_LIMIT"});
    if (limit.isNull())
        return;
    const bool trimmed = !KuxXml::getValue(limit).isEmpty();
    const QDomElement trimming = _getOrCreateGroup(element, "TRIMMING");
    KuxXml::setValue(_getOrCreateGroup(trimming, "USE_TRIMMING"), trimmed ? "yes" : "no");
    if (trimmed)
        _convertXmlChangeParent(element, "UPPER_LIMIT", _getOrCreateGroup(trimming, "TRIMMING_GROUP"), QString());
    else
        element.removeChild(limit);
}
