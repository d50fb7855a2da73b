#include <demo/OldDocuments.h>

#include <cli/SafeText.h>
#include <demo/DemoLookup.h>
#include <demo/DemoReport.h>
#include <document/FormReading.h>
#include <document/WrittenForm.h>
#include <tree/MadeParameter.h>

namespace {

struct ExpectedValue
{
    const char* path;
    const char* text;
};

struct OldDocument
{
    QString name;
    QString version;
    QStringList steps;
    QVector<ExpectedValue> values;
    QStringList absent;
};

FormReading readSample(const QString& name, const QString& className = QStringLiteral("DemoTask"))
{
    const QByteArray bytes = readBytes(QStringLiteral(":/samples/") + name, inputLimits().maxBytes);
    return readForm(parseDocument(bytes, name), requireClass(className));
}

void expectValues(const FormReading& reading, const QVector<ExpectedValue>& values, DemoReport& report)
{
    for (const ExpectedValue& value : values)
        report.expect(value.path, storedText(*reading.parameter, value.path), value.text);
}

void readOldDocument(const OldDocument& expected, DemoReport& report)
{
    report.startPart(expected.name + QLatin1Char(':'));
    const FormReading reading = readSample(expected.name);
    report.expect("version", QString::number(reading.version), expected.version);
    for (int i = 0; i < std::max(reading.conversion.size(), expected.steps.size()); ++i)
        report.expect("migrated", i < reading.conversion.size() ? reading.conversion[i].toString() : "nothing",
                      expected.steps.value(i, "nothing"));
    expectValues(reading, expected.values, report);
    report.expect("left as built", reading.absent.join(", "), expected.absent.join(", "));
    report.expect("nothing was lost", reading.findings.isEmpty());
    report.expect("it is written in version 3", createBytes(*reading.parameter, true).contains("version=\"3\""));
}

} // namespace

void readOldDocuments(DemoReport& report)
{
    readOldDocument(
        {"kparam-demo-v1.xml",
         "1",
         {"TITLE = Lens A  ->  NAME = Lens A", "INTERPOLATOR = ID  ->  METHOD = INVERSE_DISTANCE",
          "RADIUS = 75  ->  SEARCH/RADIUS = 75", "AZIMUTH = 30  ->  SEARCH/AZIMUTH = 30",
          "SAMPLES = 24  ->  SEARCH/MAX_SAMPLES = 24", "TOP_CUT = 12.5  ->  TRIMMING/TRIMMING_GROUP/UPPER_LIMIT = 12.5",
          "OUTPUTS = AVG|VAR|NB  ->  STATISTICS = MEAN|VARIANCE|SAMPLE_COUNT",
          "(new)  ->  TRIMMING/USE_TRIMMING = yes"},
         {{"NAME", "Lens A"},
          {"METHOD", "INVERSE_DISTANCE"},
          {"SEARCH/RADIUS", "75"},
          {"TRIMMING/TRIMMING_GROUP/UPPER_LIMIT", "12.5"}},
         {"SAMPLES_FILE", "RESULT_FOLDER", "RANDOM_PATH", "SEED", "REPORT_UNIT", "SEARCH/SECTORS"}},
        report);
    readOldDocument(
        {"kparam-demo-v2.xml",
         "2",
         {"METHOD = KRIGING  ->  METHOD = ORDINARY_KRIGING", "RADIUS = 100  ->  SEARCH/RADIUS = 100",
          "AZIMUTH = 120  ->  SEARCH/AZIMUTH = 120", "MAX_SAMPLES = 48  ->  SEARCH/MAX_SAMPLES = 48",
          "UPPER_LIMIT = (empty)  ->  (gone)", "STATISTICS = MEAN|COUNT  ->  STATISTICS = MEAN|SAMPLE_COUNT",
          "(new)  ->  TRIMMING/USE_TRIMMING = no"},
         {{"METHOD", "ORDINARY_KRIGING"}, {"SEARCH/MAX_SAMPLES", "48"}, {"TRIMMING/USE_TRIMMING", "no"}},
         {"SAMPLES_FILE", "RESULT_FOLDER", "RANDOM_PATH", "SEED", "REPORT_UNIT", "SEARCH/SECTORS",
          "TRIMMING/TRIMMING_GROUP"}},
        report);
    readOldDocument({"kparam-demo-partial.xml",
                     "1",
                     {"INTERPOLATOR = NN  ->  METHOD = NEAREST"},
                     {{"METHOD", "NEAREST"}, {"SEARCH/RADIUS", "50"}, {"NAME", "Run 1"}},
                     {"NAME", "SAMPLES_FILE", "RESULT_FOLDER", "SEARCH", "TRIMMING", "RANDOM_PATH", "SEED",
                      "STATISTICS", "REPORT_UNIT"}},
                    report);
}

void readOldRotations(DemoReport& report)
{
    const FormReading reading = readSample("kparam-demo-old-rotations.xml", "DemoModel");
    report.show("Angles about the axes, and the angles of a convention where a direction is meant:");
    expectValues(reading,
                 {{"GRID/ROTATION", "conv_id=0 conv_string=+Z+Y+X a1=30 a2=0 a3=0"},
                  {"STRUCTURE/SHOOTS", "azimuth=30 plunge=12.5"},
                  {"STRUCTURE/LAYERS", "dip=40 dipAzimuth=120"}},
                 report);
    report.expect("nothing was lost", reading.findings.isEmpty());
}

void readBadDocuments(DemoReport& report)
{
    report.startPart("kparam-demo-too-new.xml, of version 4:");
    const FormReading tooNew = readSample("kparam-demo-too-new.xml");
    report.expect("warning", tooNew.messages.join("; "),
                  "Cannot load parameter 'DemoTask' because version is too recent.");
    report.expect("name, which stays as built", storedText(*tooNew.parameter, "NAME"), "Run 1");

    report.startPart("kparam-demo-damaged.xml:");
    QString message;
    try {
        readSample("kparam-demo-damaged.xml");
    }
    catch (const Failure& failure) {
        message = failure.getText();
    }
    report.expect("message", message, "kparam-demo-damaged.xml:3:33: Opening and ending tag mismatch.");
}
