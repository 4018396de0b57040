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
    void defaultProfileMatchesGoldenFile();
    void everyKeyIsPresentAfterReadingAnEmptyProfile();
    void storedValuesReadAs_data();
    void storedValuesReadAs();
    void unknownKeysSurviveReading();
    void migrations_data();
    void migrations();
    void migrationsAreIdempotent();
};

void TestProfileSchema::defaultProfileMatchesGoldenFile()
{
    // The exact bytes other versions of this program (and the mobile app's export) read.
    QFile golden(QStringLiteral(PROFILES_TEST_DATA "/default-profile.json"));
    QVERIFY2(golden.open(QIODevice::ReadOnly), qPrintable(golden.errorString()));
    const QByteArray written = ProfileSchema::toFileBytes(ProfileSchema::defaultProfile(
        u"3f2c1d0e-5b6a-4c7d-8e9f-0a1b2c3d4e5f"_s, u"Default"_s, u"2024-05-01T12:00:00Z"_s));
    QCOMPARE(written, golden.readAll());
}

void TestProfileSchema::everyKeyIsPresentAfterReadingAnEmptyProfile()
{
    // An almost empty old file reads exactly like a fresh default profile with its identity.
    const QJsonObject read = ProfileSchema::readProfile(parseObject(R"({"id":"a","name":"Old"})"));
    QCOMPARE(read, ProfileSchema::defaultProfile(u"a"_s, u"Old"_s, QString()));
}

void TestProfileSchema::storedValuesReadAs_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("expected");

    // Mistyped scalars fall back to the default of their key.
    QTest::newRow("int from string") << QByteArray(R"({"axisSettings":{"escNeutral":"900"}})")
                                     << u"axisSettings/escNeutral"_s << QByteArray("992");
    QTest::newRow("int from fraction truncates") << QByteArray(R"({"axisSettings":{"escNeutral":1000.9}})")
                                                 << u"axisSettings/escNeutral"_s << QByteArray("1000");
    QTest::newRow("bool from number")
        << QByteArray(R"({"autoStartEnabled":1})") << u"autoStartEnabled"_s << QByteArray("true");
    QTest::newRow("number from string") << QByteArray(R"({"axisSettings":{"Steering":{"deadzone":"x"}}})")
                                        << u"axisSettings/Steering/deadzone"_s << QByteArray("0");
    QTest::newRow("object from array")
        << QByteArray(R"({"ledSettings":[1,2]})") << u"ledSettings/ledCount"_s << QByteArray("8");
    // Kept as stored when the kind is right.
    QTest::newRow("helicopter kept") << QByteArray(R"({"vehicleType":"rc_helicopter"})") << u"vehicleType"_s
                                     << QByteArray(R"("rc_helicopter")");
    // The format version is always the current one.
    QTest::newRow("version written as 2")
        << QByteArray(R"({"version":1})") << u"version"_s << QByteArray("2");
    // An axis-settings object is named after its key, whatever it says.
    QTest::newRow("axis name from key") << QByteArray(R"({"axisSettings":{"Brake":{"name":"Pedal 2"}}})")
                                        << u"axisSettings/Brake/name"_s << QByteArray(R"("Brake")");
    // Fixed-length lists are padded from their defaults or cut; bad elements take the default.
    QTest::newRow("gear limits padded")
        << QByteArray(R"({"axisSettings":{"gearThrottleLimitPercent":[40,50]}})")
        << u"axisSettings/gearThrottleLimitPercent"_s << QByteArray("[40,50,100,100,100,100,100]");
    QTest::newRow("axis map bad element")
        << QByteArray(R"({"deviceConnections":{"pedals":{"axisMapping":{"map":[5,"x",null,255]}}}})")
        << u"deviceConnections/pedals/axisMapping/map"_s << QByteArray("[5,1,2,255]");
    // Free-length lists drop elements that cannot be read and complete the others.
    QTest::newRow("extra buttons drop strings")
        << QByteArray(R"({"buttonMappings":[{"buttonIndex":4,"extraButtons":[1,"2",3]}]})")
        << u"buttonMappings/0/extraButtons"_s << QByteArray("[1,3]");
    QTest::newRow("button mapping completed") << QByteArray(R"({"buttonMappings":[{"buttonIndex":4}]})")
                                              << u"buttonMappings/0/outputValue"_s << QByteArray("2047");
    QTest::newRow("range zone colour completed")
        << QByteArray(R"({"ledSettings":{"rangeZones":[{"startPercent":20,"color":{"r":10}}]}})")
        << u"ledSettings/rangeZones/0"_s
        << QByteArray(R"({"startPercent":20,"endPercent":100,"color":{"r":10,"g":0,"b":0}})");
    QTest::newRow("bridge baud default")
        << QByteArray(R"({"deviceConnections":{"bridge":{"portName":"COM3"}}})")
        << u"deviceConnections/bridge"_s << QByteArray(R"({"portName":"COM3","baudRate":115200})");
}

void TestProfileSchema::storedValuesReadAs()
{
    QFETCH(QByteArray, stored);
    QFETCH(QString, path);
    QFETCH(QByteArray, expected);

    QJsonObject profile = parseObject(stored);
    profile.insert(profilekeys::kId, u"p"_s);
    profile.insert(profilekeys::kName, u"P"_s);
    QCOMPARE(valueAt(ProfileSchema::readProfile(profile), path), parseValue(expected));
}

void TestProfileSchema::unknownKeysSurviveReading()
{
    // A newer version's keys are carried along, at the top and deep inside.
    const QJsonObject read = ProfileSchema::readProfile(parseObject(
        R"({"id":"a","name":"A","futureKey":[1],"ledSettings":{"futureLed":true},
            "buttonMappings":[{"buttonIndex":3,"futureMapping":"x"}]})"));
    QCOMPARE(read.value(u"futureKey"_s), parseValue("[1]"));
    QCOMPARE(valueAt(read, u"ledSettings/futureLed"_s), QJsonValue(true));
    QCOMPARE(valueAt(read, u"buttonMappings/0/futureMapping"_s), QJsonValue(u"x"_s));
}

void TestProfileSchema::migrations_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<int>("migrationsApplied");

    QTest::newRow("esc mode 1 merged into 0") << QByteArray(R"({"axisSettings":{"escMode":1}})")
                                              << u"axisSettings/escMode"_s << QByteArray("0") << 1;
    QTest::newRow("esc mode 1.0 merged") << QByteArray(R"({"axisSettings":{"escMode":1.0}})")
                                         << u"axisSettings/escMode"_s << QByteArray("0") << 1;
    QTest::newRow("dashboard GLat GLon") << QByteArray(R"({"telemetryDashboard":["GLat","GLon"]})")
                                         << u"telemetryDashboard"_s << QByteArray(R"(["LatG","LonG"])") << 1;
    QTest::newRow("dashboard old and new of one key")
        << QByteArray(R"({"telemetryDashboard":["LatG","GLat","LonG"]})") << u"telemetryDashboard"_s
        << QByteArray(R"(["LatG","LonG"])") << 1;
    QTest::newRow("dashboard key case matters") << QByteArray(R"({"telemetryDashboard":["glat"]})")
                                                << u"telemetryDashboard"_s << QByteArray(R"(["glat"])") << 0;
    QTest::newRow("missing vehicle type is a car")
        << QByteArray("{}") << u"vehicleType"_s << QByteArray(R"("rc_car")") << 0;
    QTest::newRow("both at once") << QByteArray(
                                         R"({"axisSettings":{"escMode":1},"telemetryDashboard":["GLon"]})")
                                  << u"telemetryDashboard/0"_s << QByteArray(R"("LonG")") << 2;
}

void TestProfileSchema::migrations()
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

void TestProfileSchema::migrationsAreIdempotent()
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

QTEST_GUILESS_MAIN(TestProfileSchema)
#include "tst_profileschema.moc"
