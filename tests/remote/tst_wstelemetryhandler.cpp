#include "crsfwire.h"
#include "handlerrig.h"
#include "wstelemetryhandler.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace tavrix;
using namespace Qt::StringLiterals;
using namespace tavrix::testing;

namespace {

void injectFrame(HandlerRig<WsTelemetryHandler> &rig, uint8_t type, const char *hexPayload)
{
    rig.sim.injectToHost(
        sim::crsfwire::buildFrame(type, QByteArray::fromHex(hexPayload), sim::crsfwire::kAddressHandset));
}

// "id=label" of every listed sensor, in order.
QStringList listed(HandlerRig<WsTelemetryHandler> &rig)
{
    QStringList out;
    for (const QJsonValue &s :
         rig.ask(QStringLiteral("get_telemetry_sensors"))[u"data"_s][u"sensors"_s].toArray())
        out.append(s[u"id"_s].toString() + QLatin1Char('=') + s[u"label"_s].toString());
    return out;
}

QByteArray manyPins(int count)
{
    QByteArrayList pins;
    for (int i = 0; i < count; ++i)
        pins.append("\"S" + QByteArray::number(i) + '"');
    return R"({"pinned":[)" + pins.join(',') + "]}";
}

} // namespace

class TestWsTelemetryHandler : public QObject
{
    Q_OBJECT

private slots:
    void linkStatisticsFromTheBridge();
    void validation_data();
    void validation();
    void sensorsFollowTheUsersChoices();
};

void TestWsTelemetryHandler::linkStatisticsFromTheBridge()
{
    HandlerRig<WsTelemetryHandler> rig;
    QVERIFY(rig.setUp());
    QCOMPARE(rig.ask(QStringLiteral("get_link_statistics"))[u"data"_s][u"hasLink"_s].toBool(), false);

    injectFrame(rig, sim::crsfwire::kTypeLinkStatistics, "60a064f60105035a5a08");
    QTRY_VERIFY_WITH_TIMEOUT(!rig.pushed(QStringLiteral("event_link_statistics")).isEmpty(), 10000);
    QJsonObject expected = QJsonDocument::fromJson(R"({"hasLink":true,"carLinked":true,"uplinkRssi1":-96,
        "uplinkRssi2":-96,"linkQuality":100,"snr":-10,"antenna":1,"rfMode":5,"txPower":3,"downlinkRssi":-90,
        "downlinkLinkQuality":90,"downlinkSnr":8})")
                               .object();
    QCOMPARE(rig.pushed(QStringLiteral("event_link_statistics")).constFirst(), expected);
    // The car counts as gone soon after (short rig timings); the figures stay.
    QJsonObject answered = rig.ask(QStringLiteral("get_link_statistics"))[u"data"_s].toObject();
    answered.remove(QLatin1String("carLinked"));
    expected.remove(QLatin1String("carLinked"));
    QCOMPARE(answered, expected);
}

void TestWsTelemetryHandler::validation_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("message");

    const QString rename = QStringLiteral("action_telemetry_sensor_rename");
    const QString remove = QStringLiteral("action_telemetry_sensor_delete");
    const QString pin = QStringLiteral("set_telemetry_dashboard");
    QTest::newRow("rename unknown") << rename << QByteArray(R"({"id":"nope","name":"X"})")
                                    << QStringLiteral("Unknown sensor: nope");
    QTest::newRow("delete unknown") << remove << QByteArray(R"({"id":"nope"})")
                                    << QStringLiteral("Unknown sensor: nope");
    QTest::newRow("pins not a list") << pin << QByteArray(R"({"pinned":"Ptch"})")
                                     << QStringLiteral("Missing 'pinned' array");
    QTest::newRow("65 pins") << pin << manyPins(65)
                             << QStringLiteral("Failed to save the dashboard (at most 64 sensors)");
    QTest::newRow("discovery as a number")
        << QStringLiteral("set_telemetry_discovery") << QByteArray(R"({"enabled":1})")
        << QStringLiteral("Missing 'enabled' parameter");
}

void TestWsTelemetryHandler::validation()
{
    QFETCH(QString, event);
    QFETCH(QByteArray, data);
    QFETCH(QString, message);
    HandlerRig<WsTelemetryHandler> rig;
    QVERIFY(rig.setUp());
    QVERIFY(
        rig.profiles.setSetting(QStringLiteral("telemetrySensors"),
                                QJsonArray{QJsonObject{{QStringLiteral("key"), QStringLiteral("Ptch")}}}));
    const QJsonObject before = rig.profiles.activeProfile();

    const QJsonObject reply = rig.ask(event, QJsonDocument::fromJson(data).object());
    QCOMPARE(reply.value(QLatin1String("success")).toBool(), false);
    QCOMPARE(reply.value(QLatin1String("message")).toString(), message);
    QCOMPARE(rig.profiles.activeProfile(), before);
}

void TestWsTelemetryHandler::sensorsFollowTheUsersChoices()
{
    HandlerRig<WsTelemetryHandler> rig;
    QVERIFY(rig.setUp());
    const auto ask = [&](const char *event, const QByteArray &data) {
        return rig.ask(QLatin1String(event), QJsonDocument::fromJson(data).object())[u"success"_s].toBool();
    };

    injectFrame(rig, sim::crsfwire::kTypeAttitude, "000000000000");
    QTRY_VERIFY_WITH_TIMEOUT(!rig.pushed(QStringLiteral("event_telemetry_sensors")).isEmpty(), 10000);
    QCOMPARE(rig.profiles.setting(QStringLiteral("telemetrySensors")).toArray().size(), 3); // discovered

    QVERIFY(ask("action_telemetry_sensor_rename", R"({"id":"Ptch","name":"Pitch"})"));
    QVERIFY(ask("set_telemetry_dashboard", R"({"pinned":["Roll","GLat","Roll"]})"));
    QCOMPARE(rig.profiles.setting(QStringLiteral("telemetryDashboard")),
             QJsonArray({QStringLiteral("Roll"), QStringLiteral("LatG")}));
    QVERIFY(ask("action_telemetry_sensor_delete", R"({"id":"Roll"})"));
    QCOMPARE(rig.pushed(QStringLiteral("event_telemetry_dashboard")).constLast()[u"pinned"_s].toArray(),
             QJsonArray{QStringLiteral("GLat")});
    QCOMPARE(listed(rig), QStringList({QStringLiteral("Ptch=Pitch"), QStringLiteral("Yaw=Yaw")}));

    // Undiscovered sensors stay out of the list until discovery is back on.
    QVERIFY(ask("set_telemetry_discovery", R"({"enabled":false})"));
    injectFrame(rig, sim::crsfwire::kTypeAttitude, "000100000000");
    QTRY_COMPARE_WITH_TIMEOUT(rig.controller->telemetry()->catalogue().size(), 3, 10000);
    QCOMPARE(listed(rig).size(), 2);
    QVERIFY(ask("set_telemetry_discovery", R"({"enabled":true})"));
    QCOMPARE(listed(rig).size(), 3);

    QVERIFY(ask("action_telemetry_sensors_clear", "{}"));
    QVERIFY(listed(rig).isEmpty());
}

QTEST_GUILESS_MAIN(TestWsTelemetryHandler)
#include "tst_wstelemetryhandler.moc"
