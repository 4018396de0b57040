// The key table and the pure reading rules: what a stored profile of any age reads as.
#include "profilekeys.h"
#include "profilemigrations.h"
#include "profileschema.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace tavrix;

namespace {

QJsonObject parseObject(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        qFatal("test data is not a JSON object: %s", json.constData());
    return document.object();
}

QJsonValue parseValue(const QByteArray &json)
{
    return parseObject("{\"v\":" + json + "}").value(u"v"_s);
}

// The value at a slash-separated path such as "axisSettings/Steering/name" or "a/b/2".
QJsonValue valueAt(const QJsonObject &root, const QString &path)
{
    QJsonValue current = root;
    for (const QString &part : path.split(u'/')) {
        bool isIndex = false;
        const int index = part.toInt(&isIndex);
        current = isIndex && current.isArray() ? current.toArray().at(index) : current.toObject().value(part);
    }
    return current;
}

} // namespace

class TestProfileSchema : public QObject
{
    Q_OBJECT

private slots:
    void defaultProfileMatchesGoldenFile()
    {
        // The exact bytes other versions of this program (and the mobile app's export) read.
        QFile golden(QStringLiteral(PROFILES_TEST_DATA "/default-profile.json"));
        QVERIFY2(golden.open(QIODevice::ReadOnly), qPrintable(golden.errorString()));
        const QByteArray written = ProfileSchema::toFileBytes(ProfileSchema::defaultProfile(
            u"3f2c1d0e-5b6a-4c7d-8e9f-0a1b2c3d4e5f"_s, u"Default"_s, u"2024-05-01T12:00:00Z"_s));
        QCOMPARE(written, golden.readAll());
    }

    void sparseProfilesReadCompleteAndKeepUnknownKeys()
    {
        // An almost empty old file reads exactly like a fresh default profile with its identity.
        const QJsonObject read = ProfileSchema::readProfile(parseObject(R"({"id":"a","name":"Old"})"));
        QCOMPARE(read, ProfileSchema::defaultProfile(u"a"_s, u"Old"_s, QString()));

        // A newer version's keys are carried along, at the top and deep inside.
        const QJsonObject newer = ProfileSchema::readProfile(parseObject(
            R"({"id":"a","name":"A","futureKey":[1],"ledSettings":{"futureLed":true},
                "buttonMappings":[{"buttonIndex":3,"futureMapping":"x"}]})"));
        QCOMPARE(newer.value(u"futureKey"_s), parseValue("[1]"));
        QCOMPARE(valueAt(newer, u"ledSettings/futureLed"_s), QJsonValue(true));
        QCOMPARE(valueAt(newer, u"buttonMappings/0/futureMapping"_s), QJsonValue(u"x"_s));
    }

    void storedValuesReadAs_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("expected");

        const auto row = [](const char *name, const char *stored, const char *path, const char *expected) {
            QTest::newRow(name) << QByteArray(stored) << QString::fromUtf8(path) << QByteArray(expected);
        };
        // Mistyped scalars fall back to the default of their key.
        row("int from string", R"({"axisSettings":{"escNeutral":"900"}})", "axisSettings/escNeutral", "992");
        row("int from fraction truncates", R"({"axisSettings":{"escNeutral":1000.9}})",
            "axisSettings/escNeutral", "1000");
        row("bool from number", R"({"autoStartEnabled":1})", "autoStartEnabled", "true");
        row("number from string", R"({"axisSettings":{"Steering":{"deadzone":"x"}}})",
            "axisSettings/Steering/deadzone", "0");
        row("object from array", R"({"ledSettings":[1,2]})", "ledSettings/ledCount", "8");
        // Kept as stored when the kind is right.
        row("helicopter kept", R"({"vehicleType":"rc_helicopter"})", "vehicleType", R"("rc_helicopter")");
        // The format version is always the current one.
        row("version written as 2", R"({"version":1})", "version", "2");
        // An axis-settings object is named after its key, whatever it says.
        row("axis name from key", R"({"axisSettings":{"Brake":{"name":"Pedal 2"}}})",
            "axisSettings/Brake/name", R"("Brake")");
        // Fixed-length lists are padded from their defaults or cut; bad elements take the default.
        row("gear limits padded", R"({"axisSettings":{"gearThrottleLimitPercent":[40,50]}})",
            "axisSettings/gearThrottleLimitPercent", "[40,50,100,100,100,100,100]");
        row("axis map bad element",
            R"({"deviceConnections":{"pedals":{"axisMapping":{"map":[5,"x",null,255]}}}})",
            "deviceConnections/pedals/axisMapping/map", "[5,1,2,255]");
        // Free-length lists drop elements that cannot be read and complete the others.
        row("extra buttons drop strings",
            R"({"buttonMappings":[{"buttonIndex":4,"extraButtons":[1,"2",3]}]})",
            "buttonMappings/0/extraButtons", "[1,3]");
        row("button mapping completed", R"({"buttonMappings":[{"buttonIndex":4}]})",
            "buttonMappings/0/outputValue", "2047");
        row("range zone colour completed",
            R"({"ledSettings":{"rangeZones":[{"startPercent":20,"color":{"r":10}}]}})",
            "ledSettings/rangeZones/0",
            R"({"startPercent":20,"endPercent":100,"color":{"r":10,"g":0,"b":0}})");
        row("bridge baud default", R"({"deviceConnections":{"bridge":{"portName":"COM3"}}})",
            "deviceConnections/bridge", R"({"portName":"COM3","baudRate":115200})");
    }

    void storedValuesReadAs()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QString, path);
        QFETCH(QByteArray, expected);

        QJsonObject profile = parseObject(stored);
        profile.insert(profilekeys::kId, u"p"_s);
        profile.insert(profilekeys::kName, u"P"_s);
        QCOMPARE(valueAt(ProfileSchema::readProfile(profile), path), parseValue(expected));
    }

    void migrations_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("expected");
        QTest::addColumn<int>("migrationsApplied");

        const auto row = [](const char *name, const char *stored, const char *path, const char *expected,
                            int migrationsApplied) {
            QTest::newRow(name) << QByteArray(stored) << QString::fromUtf8(path) << QByteArray(expected)
                                << migrationsApplied;
        };
        row("esc mode 1 merged into 0", R"({"axisSettings":{"escMode":1}})", "axisSettings/escMode", "0", 1);
        row("esc mode 1.0 merged", R"({"axisSettings":{"escMode":1.0}})", "axisSettings/escMode", "0", 1);
        row("dashboard GLat GLon", R"({"telemetryDashboard":["GLat","GLon"]})", "telemetryDashboard",
            R"(["LatG","LonG"])", 1);
        row("dashboard old and new of one key", R"({"telemetryDashboard":["LatG","GLat","LonG"]})",
            "telemetryDashboard", R"(["LatG","LonG"])", 1);
        row("dashboard key case matters", R"({"telemetryDashboard":["glat"]})", "telemetryDashboard",
            R"(["glat"])", 0);
        row("missing vehicle type is a car", "{}", "vehicleType", R"("rc_car")", 0);
        row("both at once", R"({"axisSettings":{"escMode":1},"telemetryDashboard":["GLon"]})",
            "telemetryDashboard/0", R"("LonG")", 2);
    }

    void migrations()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QString, path);
        QFETCH(QByteArray, expected);
        QFETCH(int, migrationsApplied);

        QJsonObject profile = parseObject(stored);
        profile.insert(profilekeys::kId, u"p"_s);
        profile.insert(profilekeys::kName, u"P"_s);
        QStringList applied;
        const QJsonObject read = ProfileSchema::readProfile(profile, &applied);
        QCOMPARE(valueAt(read, path), parseValue(expected));
        QCOMPARE(applied.size(), migrationsApplied);
    }

    void migrationsAreIdempotent()
    {
        QStringList applied;
        const QJsonObject once = ProfileSchema::readProfile(
            parseObject(
                R"({"id":"a","name":"A","axisSettings":{"escMode":1},"telemetryDashboard":["GLat","GVrt"]})"),
            &applied);
        QCOMPARE(applied.size(), 2);
        QCOMPARE(ProfileSchema::readProfile(once, &applied), once);
        QVERIFY(applied.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestProfileSchema)
#include "tst_profileschema.moc"
