#include "handlerrig.h"
#include "wsbuttonhandler.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace tavrix;
using namespace Qt::StringLiterals;
using namespace tavrix::testing;

namespace {

QJsonObject json(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}

QByteArray manyMappings(int count)
{
    QByteArrayList entries(count, R"({"buttonIndex":0,"channel":4})");
    return R"({"mappings":[)" + entries.join(',') + "]}";
}

} // namespace

class TestWsButtonHandler : public QObject
{
    Q_OBJECT

private slots:
    void validation_data();
    void validation();
    void runningTransmissionFollowsAddedMapping();
};

void TestWsButtonHandler::validation_data()
{
    QTest::addColumn<QString>("vehicle");
    QTest::addColumn<QString>("event");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("message"); // empty: accepted

    const QString car = QStringLiteral("rc_car");
    const QString heli = QStringLiteral("rc_helicopter");
    const QString add = QStringLiteral("action_add_button_mapping");
    const QString remove = QStringLiteral("action_remove_button_mapping");
    // The mobile app knows the car's refusal by this text.
    const QString carChannel = QStringLiteral("Channel must be 2-11 (0-1 reserved for steering/throttle)");
    const QString heliChannel = QStringLiteral("Channel must be 4-15 (0-3 carry the flight controls)");
    QTest::newRow("button checked before channel")
        << car << add << QByteArray(R"({"buttonIndex":-1,"channel":1})")
        << QStringLiteral("Missing 'buttonIndex' parameter");
    QTest::newRow("add without channel") << car << add << QByteArray(R"({"buttonIndex":0})") << carChannel;
    QTest::newRow("car channel 1") << car << add << QByteArray(R"({"buttonIndex":0,"channel":1})")
                                   << carChannel;
    QTest::newRow("car channel 2") << car << add << QByteArray(R"({"buttonIndex":0,"channel":2})")
                                   << QString();
    QTest::newRow("car channel 11") << car << add << QByteArray(R"({"buttonIndex":0,"channel":11})")
                                    << QString();
    QTest::newRow("car channel 12") << car << add << QByteArray(R"({"buttonIndex":0,"channel":12})")
                                    << carChannel;
    QTest::newRow("heli channel 3") << heli << add << QByteArray(R"({"buttonIndex":0,"channel":3})")
                                    << heliChannel;
    QTest::newRow("heli channel 4") << heli << add << QByteArray(R"({"buttonIndex":0,"channel":4})")
                                    << QString();
    QTest::newRow("heli channel 15") << heli << add << QByteArray(R"({"buttonIndex":0,"channel":15})")
                                     << QString();
    QTest::newRow("heli channel 16") << heli << add << QByteArray(R"({"buttonIndex":0,"channel":16})")
                                     << heliChannel;

    QTest::newRow("remove without index")
        << car << remove << QByteArray("{}") << QStringLiteral("Missing or invalid 'index' parameter");
    QTest::newRow("remove -1") << car << remove << QByteArray(R"({"index":-1})")
                               << QStringLiteral("Index -1 out of range (count: 1)");
    QTest::newRow("remove past the end")
        << car << remove << QByteArray(R"({"index":1})") << QStringLiteral("Index 1 out of range (count: 1)");
    QTest::newRow("remove 0") << car << remove << QByteArray(R"({"index":0})") << QString();

    const QString set = QStringLiteral("set_button_mappings");
    QTest::newRow("set an object") << car << set << QByteArray(R"({"mappings":{}})")
                                   << QStringLiteral("Missing 'mappings' array");
    QTest::newRow("set 64") << car << set << manyMappings(64) << QString();
    QTest::newRow("set 65") << car << set << manyMappings(65)
                            << QStringLiteral("Too many button mappings (max 64)");
}

void TestWsButtonHandler::validation()
{
    QFETCH(QString, vehicle);
    QFETCH(QString, event);
    QFETCH(QByteArray, data);
    QFETCH(QString, message);
    HandlerRig<WsButtonHandler> rig;
    QVERIFY(rig.setUp(vehicle));
    QVERIFY(
        rig.profiles.setSetting(QStringLiteral("buttonMappings"), QJsonArray{json(R"({"buttonIndex":3})")}));
    const QJsonObject before = rig.profiles.activeProfile();

    const QJsonObject reply = rig.ask(event, json(data));
    QCOMPARE(reply.value(QLatin1String("success")).toBool(), message.isEmpty());
    QCOMPARE(reply.value(QLatin1String("message")).toString(), message);
    if (!message.isEmpty())
        QCOMPARE(rig.profiles.activeProfile(), before);
}

void TestWsButtonHandler::runningTransmissionFollowsAddedMapping()
{
    HandlerRig<WsButtonHandler> rig;
    QVERIFY(rig.setUp());
    QVERIFY(rig.controller->startTransmission());
    const QJsonObject reply =
        rig.ask(QStringLiteral("action_add_button_mapping"),
                json(R"({"buttonIndex":9,"channel":4,"startValue":300,"outputValue":5000})"));
    QVERIFY(reply.value(QLatin1String("success")).toBool());

    // Released, the mapping holds CH5 at its start value on the running stream.
    QTRY_COMPARE_WITH_TIMEOUT(rig.sim.lastChannels()[4], 300, 10000);
    const QJsonObject stored = rig.ask(QStringLiteral("get_button_mappings"))
                                   .value(QLatin1String("data"))[u"mappings"_s][0]
                                   .toObject();
    QCOMPARE(stored.value(QLatin1String("outputValue")).toInt(), 2047);
    QVERIFY(rig.controller->isRunning());
}

QTEST_GUILESS_MAIN(TestWsButtonHandler)
#include "tst_wsbuttonhandler.moc"
