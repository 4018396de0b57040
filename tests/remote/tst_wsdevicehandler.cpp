#include "handlerrig.h"
#include "wsdevicehandler.h"

#include <QJsonArray>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;

namespace {

using Rig = HandlerRig<WsDeviceHandler>;

#define SET_UP_RIG(rig, ...) QVERIFY2((rig).setUp(__VA_ARGS__), "the handler rig could not be set up")

QJsonObject index(const QJsonValue &value)
{
    return {{QStringLiteral("deviceIndex"), value}};
}

QStringList disconnectedDevices(const Rig &rig)
{
    QStringList devices;
    for (const QJsonObject &data : rig.pushed(QStringLiteral("event_device_disconnected")))
        devices.append(data.value(QStringLiteral("device")).toString());
    return devices;
}

} // namespace

class TestWsDeviceHandler : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data();
    void refusals();
    void refusalLeavesConnectionsAndProfile();
    void rolesDisconnectAndConnect();
    void autoConnectRestoresTheSavedSetup();
};

void TestWsDeviceHandler::refusals_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<bool>("running");
    QTest::addColumn<QString>("message");

    const QString noIndex = QStringLiteral("Missing or invalid 'deviceIndex' parameter");
    QTest::newRow("transmitter without port") << QStringLiteral("action_connect_transmitter") << QJsonObject()
                                              << false << QStringLiteral("Missing 'port' parameter");
    QTest::newRow("transmitter on an absent port")
        << QStringLiteral("action_connect_transmitter")
        << QJsonObject{{QStringLiteral("port"), QStringLiteral("/nope")}} << false
        << QStringLiteral("Failed to connect to /nope");
    QTest::newRow("wheel base without index")
        << QStringLiteral("action_connect_wheelbase") << QJsonObject() << false << noIndex;
    QTest::newRow("pedals at -2") << QStringLiteral("action_connect_pedals") << index(-2) << false << noIndex;
    QTest::newRow("shifter at 0.5") << QStringLiteral("action_connect_shifter") << index(0.5) << false
                                    << noIndex;
    QTest::newRow("shifter at 7") << QStringLiteral("action_connect_shifter") << index(7) << false
                                  << QStringLiteral("Failed to connect shifter at index 7");
    // Devices stay as they are while the car is driven.
    QTest::newRow("wheel base while running")
        << QStringLiteral("action_connect_wheelbase") << index(0) << true
        << QStringLiteral("Failed to connect wheelbase at index 0");
    QTest::newRow("pedals away while running")
        << QStringLiteral("action_disconnect_pedals") << QJsonObject() << true
        << QStringLiteral("Stop transmission before changing devices");
}

void TestWsDeviceHandler::refusals()
{
    QFETCH(QString, request);
    QFETCH(QJsonObject, data);
    QFETCH(bool, running);
    QFETCH(QString, message);
    Rig rig;
    SET_UP_RIG(rig);
    if (running)
        QVERIFY(rig.controller->startTransmission());

    const QJsonObject reply = rig.ask(request, data);
    QCOMPARE(reply.value(QStringLiteral("event")).toString(), request);
    QCOMPARE(reply.value(QStringLiteral("success")).toBool(), false);
    QCOMPARE(reply.value(QStringLiteral("message")).toString(), message);
    QCOMPARE(rig.controller->isRunning(), running);
}

void TestWsDeviceHandler::refusalLeavesConnectionsAndProfile()
{
    Rig rig;
    SET_UP_RIG(rig);
    const QJsonObject savedPedals = rig.profiles.deviceConnection(DeviceRole::Pedals);
    rig.ask(QStringLiteral("action_connect_transmitter"));
    rig.ask(QStringLiteral("action_connect_pedals"), index(-1));

    QVERIFY(rig.controller->isSerialConnected());
    QCOMPARE(rig.profiles.transmitterPortName(), rig.sim.clientPath());
    QVERIFY(rig.controller->devices()->isConnected(DeviceRole::Pedals));
    QCOMPARE(rig.profiles.deviceConnection(DeviceRole::Pedals), savedPedals);
}

void TestWsDeviceHandler::rolesDisconnectAndConnect()
{
    Rig rig;
    SET_UP_RIG(rig);
    QVERIFY(rig.ask(QStringLiteral("action_disconnect_pedals")).value(QStringLiteral("success")).toBool());
    QCOMPARE(
        rig.ask(QStringLiteral("get_pedals_status"))[QStringLiteral("data")][QStringLiteral("connected")],
        false);
    QTRY_COMPARE(disconnectedDevices(rig), QStringList{QStringLiteral("pedals")});

    QVERIFY(
        rig.ask(QStringLiteral("action_connect_pedals"), index(1)).value(QStringLiteral("success")).toBool());
    const QJsonObject status =
        rig.ask(QStringLiteral("get_pedals_status")).value(QStringLiteral("data")).toObject();
    QCOMPARE(status.value(QStringLiteral("connected")), true);
    QCOMPARE(status.value(QStringLiteral("deviceName")).toString(), QStringLiteral("Test Pedals"));
}

void TestWsDeviceHandler::autoConnectRestoresTheSavedSetup()
{
    Rig rig;
    SET_UP_RIG(rig);
    rig.ask(QStringLiteral("action_disconnect_transmitter"));
    rig.ask(QStringLiteral("action_disconnect_wheelbase"));
    QVERIFY(!rig.controller->isSerialConnected());
    QTRY_COMPARE(disconnectedDevices(rig),
                 (QStringList{QStringLiteral("transmitter"), QStringLiteral("wheelbase")}));

    const QJsonObject reply = rig.ask(QStringLiteral("action_auto_connect"));
    QCOMPARE(reply.value(QStringLiteral("data")).toObject(),
             (QJsonObject{{QStringLiteral("transmitter"), true},
                          {QStringLiteral("wheelbase"), true},
                          {QStringLiteral("pedals"), true},
                          {QStringLiteral("shifter"), false}}));
    QCOMPARE(rig.controller->serialPortName(), rig.sim.clientPath());
}

QTEST_GUILESS_MAIN(TestWsDeviceHandler)
#include "tst_wsdevicehandler.moc"
