#include "handlerrig.h"
#include "pseudoterminal.h"
#include "wsdevicehandler.h"

#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

using Rig = HandlerRig<WsDeviceHandler>;

#define SET_UP_RIG(rig, ...) QVERIFY2((rig).setUp(__VA_ARGS__), "the handler rig could not be set up")

QJsonObject at(const QJsonValue &index)
{
    return {{u"deviceIndex"_s, index}};
}

} // namespace

class TestWsDeviceHandler : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data();
    void refusals();
    void refusalLeavesConnectionsAndProfile();
    void autoConnectRestoresTheSavedSetup();
    void receiverConnectsAndIsAnnouncedGone();
};

void TestWsDeviceHandler::refusals_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<bool>("running");
    QTest::addColumn<QString>("message");

    const QString noIndex = u"Missing or invalid 'deviceIndex' parameter"_s;
    const QString connectTransmitter = u"action_connect_transmitter"_s;
    QTest::newRow("transmitter without port")
        << connectTransmitter << QJsonObject() << false << u"Missing 'port' parameter"_s;
    QTest::newRow("transmitter on an absent port")
        << connectTransmitter << QJsonObject{{u"port"_s, u"/nope"_s}} << false
        << u"Failed to connect to /nope"_s;
    const QString connectReceiver = u"action_connect_receiver"_s;
    QTest::newRow("receiver without port")
        << connectReceiver << QJsonObject{{u"baudRate"_s, 115200}} << false << u"Missing 'port' parameter"_s;
    QTest::newRow("receiver on an absent port") << connectReceiver << QJsonObject{{u"port"_s, u"/nope"_s}}
                                                << false << u"Failed to connect receiver to /nope"_s;
    QTest::newRow("wheel base without index")
        << u"action_connect_wheelbase"_s << QJsonObject() << false << noIndex;
    QTest::newRow("pedals at -2") << u"action_connect_pedals"_s << at(-2) << false << noIndex;
    QTest::newRow("shifter at 0.5") << u"action_connect_shifter"_s << at(0.5) << false << noIndex;
    QTest::newRow("shifter at 7") << u"action_connect_shifter"_s << at(7) << false
                                  << u"Failed to connect shifter at index 7"_s;
    // Devices stay as they are while the car is driven.
    QTest::newRow("wheel base while running")
        << u"action_connect_wheelbase"_s << at(0) << true << u"Failed to connect wheelbase at index 0"_s;
    QTest::newRow("pedals away while running") << u"action_disconnect_pedals"_s << QJsonObject() << true
                                               << u"Stop transmission before changing devices"_s;
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
    QCOMPARE(reply.value(u"event"_s).toString(), request);
    QCOMPARE(reply.value(u"success"_s), false);
    QCOMPARE(reply.value(u"message"_s).toString(), message);
    QCOMPARE(rig.controller->isRunning(), running);
}

void TestWsDeviceHandler::refusalLeavesConnectionsAndProfile()
{
    Rig rig;
    SET_UP_RIG(rig);
    const QJsonObject savedPedals = rig.profiles.deviceConnection(DeviceRole::Pedals);
    rig.ask(u"action_connect_transmitter"_s);
    rig.ask(u"action_connect_pedals"_s, at(-1));
    rig.ask(u"action_connect_receiver"_s, {{u"port"_s, u"/nope"_s}});

    QVERIFY(rig.controller->isSerialConnected());
    QCOMPARE(rig.profiles.transmitterPortName(), rig.sim.clientPath());
    QVERIFY(rig.controller->devices()->isConnected(DeviceRole::Pedals));
    QCOMPARE(rig.profiles.deviceConnection(DeviceRole::Pedals), savedPedals);
    QCOMPARE(rig.profiles.receiverPortName(), QString());
}

void TestWsDeviceHandler::autoConnectRestoresTheSavedSetup()
{
    Rig rig;
    SET_UP_RIG(rig);
    rig.ask(u"action_disconnect_transmitter"_s);
    rig.ask(u"action_disconnect_wheelbase"_s);
    QVERIFY(!rig.controller->isSerialConnected());
    QTRY_COMPARE(rig.pushed(u"event_device_disconnected"_s),
                 (QList<QJsonObject>{{{u"device"_s, u"transmitter"_s}}, {{u"device"_s, u"wheelbase"_s}}}));

    QCOMPARE(
        rig.ask(u"action_auto_connect"_s).value(u"data"_s).toObject(),
        (QJsonObject{
            {u"transmitter"_s, true}, {u"wheelbase"_s, true}, {u"pedals"_s, true}, {u"shifter"_s, false}}));
    QCOMPARE(rig.controller->serialPortName(), rig.sim.clientPath());
}

void TestWsDeviceHandler::receiverConnectsAndIsAnnouncedGone()
{
    Rig rig;
    SET_UP_RIG(rig);
    PseudoTerminal receiver;
    QVERIFY(receiver.open(rig.receiverPath()));
    const QString path = rig.receiverPath();

    QCOMPARE(rig.ask(u"action_connect_receiver"_s, {{u"port"_s, path}, {u"baudRate"_s, 57600}})
                 .value(u"success"_s),
             true);
    QCOMPARE(rig.ask(u"get_receiver_status"_s).value(u"data"_s).toObject(),
             (QJsonObject{
                 {u"connected"_s, true}, {u"portName"_s, path}, {u"deviceName"_s, u"Orvane Receiver"_s}}));
    QCOMPARE(rig.profiles.receiverPortName(), path);
    QCOMPARE(rig.profiles.receiverBaudRate(), 57600);

    receiver.hangUp();
    QTRY_COMPARE(rig.pushed(u"event_device_disconnected"_s),
                 (QList<QJsonObject>{{{u"device"_s, u"receiver"_s}}}));
    QVERIFY(rig.controller->isSerialConnected());

    QVERIFY(receiver.plugIn());
    QTRY_VERIFY(rig.controller->receiverPort()->isConnected());
    QCOMPARE(rig.ask(u"action_disconnect_receiver"_s).value(u"success"_s), true);
    QVERIFY(!rig.ask(u"get_receiver_status"_s).value(u"data"_s)[u"connected"_s].toBool());
}

QTEST_GUILESS_MAIN(TestWsDeviceHandler)
#include "tst_wsdevicehandler.moc"
