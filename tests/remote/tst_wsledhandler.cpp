#include "handlerrig.h"
#include "ledconfigpush.h"
#include "receiverport.h"
#include "receiversimulator.h"
#include "wsledhandler.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

using Rig = HandlerRig<WsLedHandler>;

struct LedRig : Rig
{
    std::unique_ptr<sim::ReceiverSimulator> receiver;

    bool plugIn()
    {
        receiver = std::make_unique<sim::ReceiverSimulator>(sim::ReceiverSimulatorSettings{});
        return receiver->start(receiverPath()) && controller->receiverPort()->connectReceiver(receiverPath());
    }

    // ledSettings as the profile's file holds it.
    QJsonObject ledOnDisk() const
    {
        QFile file(QDir(profiles.profileDirectory()).filePath(profiles.activeProfileId() + u".json"_s));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QJsonDocument::fromJson(file.readAll()).object().value(u"ledSettings"_s).toObject();
    }

    QList<QJsonObject> progress() const { return pushed(u"event_led_push_progress"_s); }
};

QJsonObject color(int r, int g, int b)
{
    return {{u"r"_s, r}, {u"g"_s, g}, {u"b"_s, b}};
}

} // namespace

class TestWsLedHandler : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data();
    void refusals();
    void settersReachTheProfileOnDisk_data();
    void settersReachTheProfileOnDisk();
    void triggerPushesTheProfileOntoTheStrip();
};

void TestWsLedHandler::refusals_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("message");

    const QString invalidZone = u"Invalid zone index"_s;
    const QJsonObject red{{u"color"_s, color(255, 0, 0)}};
    QTest::newRow("power") << u"set_led_power"_s << QJsonObject() << u"Missing 'on' parameter"_s;
    QTest::newRow("brightness") << u"set_led_brightness"_s << QJsonObject{{u"level"_s, 3}}
                                << u"Missing 'brightness' parameter"_s;
    QTest::newRow("mode") << u"set_led_mode"_s << QJsonObject() << u"Missing 'mode' parameter"_s;
    QTest::newRow("selected led") << u"set_selected_led"_s << QJsonObject() << u"Missing 'index' parameter"_s;
    QTest::newRow("count") << u"set_led_count"_s << QJsonObject() << u"Missing 'count' parameter"_s;
    QTest::newRow("percentage") << u"set_active_percentage"_s << QJsonObject()
                                << u"Missing 'percentage' parameter"_s;
    QTest::newRow("power button") << u"set_power_button"_s << QJsonObject()
                                  << u"Missing 'buttonIndex' parameter"_s;
    QTest::newRow("remove: missing before invalid")
        << u"remove_zone"_s << QJsonObject() << u"Missing 'index' parameter"_s;
    QTest::newRow("set zone: missing before invalid")
        << u"set_zone"_s << red << u"Missing 'index' parameter"_s;
    // The rig adds one zone before each row.
    QTest::newRow("remove zone 1") << u"remove_zone"_s << QJsonObject{{u"index"_s, 1}} << invalidZone;
    QTest::newRow("negative zone") << u"set_zone"_s << QJsonObject{{u"index"_s, -1}} << invalidZone;
    QTest::newRow("select zone 1") << u"set_selected_zone"_s << QJsonObject{{u"index"_s, 1}} << invalidZone;
    QTest::newRow("zone colour") << u"set_led_color"_s
                                 << QJsonObject{{u"zoneIndex"_s, 1}, {u"color"_s, color(1, 2, 3)}}
                                 << invalidZone;
    QTest::newRow("LED colour beyond the strip")
        << u"set_led_color"_s << QJsonObject{{u"index"_s, 8}, {u"color"_s, color(1, 2, 3)}}
        << u"Invalid LED index"_s;
    QTest::newRow("push unplugged") << u"trigger_led_config"_s << QJsonObject()
                                    << u"Receiver not connected over USB"_s;
}

void TestWsLedHandler::refusals()
{
    QFETCH(QString, request);
    QFETCH(QJsonObject, data);
    QFETCH(QString, message);

    LedRig rig;
    QVERIFY2(rig.setUp(), "the handler rig could not be set up");
    QVERIFY(rig.ask(u"add_zone"_s, {})[u"success"_s].toBool());
    const QJsonObject before = rig.ledOnDisk();
    const bool power = rig.controller->isLedPowerOn();

    const QJsonObject reply = rig.ask(request, data);
    QCOMPARE(reply[u"event"_s].toString(), request);
    QCOMPARE(reply[u"success"_s], QJsonValue(false));
    QCOMPARE(reply[u"message"_s].toString(), message);
    QCoreApplication::processEvents(); // a power flip would be saved on the next turn
    QCOMPARE(rig.ledOnDisk(), before);
    QCOMPARE(rig.controller->isLedPowerOn(), power);
    QVERIFY(rig.progress().isEmpty());
}

void TestWsLedHandler::settersReachTheProfileOnDisk_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("stored");

    QTest::newRow("count clamped to the strip")
        << u"set_led_count"_s << QJsonObject{{u"count"_s, 5000}} << u"ledCount"_s << QJsonValue(300);
    QTest::newRow("brightness clamped")
        << u"set_led_brightness"_s << QJsonObject{{u"brightness"_s, -4}} << u"brightness"_s << QJsonValue(0);
    QTest::newRow("percentage clamped") << u"set_active_percentage"_s << QJsonObject{{u"percentage"_s, 180}}
                                        << u"activePercentage"_s << QJsonValue(100);
    QTest::newRow("power button") << u"set_power_button"_s << QJsonObject{{u"buttonIndex"_s, 7}}
                                  << u"powerButtonIndex"_s << QJsonValue(7);
    QTest::newRow("mode") << u"set_led_mode"_s << QJsonObject{{u"mode"_s, u"per_led"_s}} << u"mode"_s
                          << QJsonValue(u"per_led"_s);
    QTest::newRow("selected LED within the strip")
        << u"set_selected_led"_s << QJsonObject{{u"index"_s, 99}} << u"selectedLedIndex"_s << QJsonValue(7);
    QTest::newRow("global colour clamped")
        << u"set_led_color"_s << QJsonObject{{u"color"_s, color(300, 20, -1)}} << u"globalColor"_s
        << QJsonValue(color(255, 20, 0));
    QTest::newRow("whole object, power kept")
        << u"set_led_settings"_s
        << QJsonObject{{u"settings"_s, QJsonObject{{u"brightness"_s, 40}, {u"powerOn"_s, false}}}}
        << u"powerOn"_s << QJsonValue(false);
}

void TestWsLedHandler::settersReachTheProfileOnDisk()
{
    QFETCH(QString, request);
    QFETCH(QJsonObject, data);
    QFETCH(QString, key);
    QFETCH(QJsonValue, stored);

    LedRig rig;
    QVERIFY2(rig.setUp(), "the handler rig could not be set up");
    QVERIFY(rig.ask(request, data)[u"success"_s].toBool());
    QCOMPARE(rig.ledOnDisk().value(key), stored);
    QCOMPARE(rig.ask(u"get_led_settings"_s)[u"data"_s].toObject().value(key), stored);
    // The controller's own copy (CH12) follows the profile.
    QCOMPARE(rig.controller->isLedPowerOn(), rig.ledOnDisk().value(u"powerOn"_s).toBool());
}

void TestWsLedHandler::triggerPushesTheProfileOntoTheStrip()
{
    LedRig rig;
    QVERIFY2(rig.setUp(), "the handler rig could not be set up");
    QVERIFY(rig.plugIn());
    QVERIFY(rig.ask(u"set_led_mode"_s, {{u"mode"_s, u"range"_s}})[u"success"_s].toBool());
    QCOMPARE(
        rig.ask(u"add_zone"_s, {{u"startPercent"_s, 10}, {u"endPercent"_s, 40}, {u"color"_s, color(9, 8, 7)}})
            .value(u"zoneIndex"_s),
        QJsonValue(0));
    QCOMPARE(rig.ask(u"add_zone"_s, {{u"endPercent"_s, 90}}).value(u"zoneIndex"_s), QJsonValue(1));
    QVERIFY(rig.ask(u"set_zone"_s, {{u"index"_s, 1}, {u"startPercent"_s, 50}})[u"success"_s].toBool());
    QVERIFY(rig.ask(u"set_led_color"_s, {{u"zoneIndex"_s, 1}, {u"color"_s, color(1, 2, 3)}})[u"success"_s]
                .toBool());

    QVERIFY(rig.ask(u"trigger_led_config"_s)[u"success"_s].toBool());
    QCOMPARE(rig.ask(u"trigger_led_config"_s)[u"message"_s].toString(),
             u"LED config push already in progress"_s);
    QVERIFY(rig.ask(u"get_led_status"_s)[u"data"_s][u"configPending"_s].toBool());
    QTRY_COMPARE_WITH_TIMEOUT(rig.progress().size(), 2, 20000);
    QCOMPARE(rig.progress().first()[u"state"_s].toString(), u"started"_s);
    QCOMPARE(rig.progress().last()[u"state"_s].toString(), u"success"_s);
    QCOMPARE(rig.ask(u"get_led_status"_s)[u"data"_s][u"configState"_s].toString(), u"complete"_s);

    const sim::ReceiverLedStrip &strip = rig.receiver->ledStrip();
    using Color = sim::ReceiverLedStrip::Color;
    QCOMPARE(strip.mode(), sim::ReceiverLedStrip::Mode::Range);
    QCOMPARE(strip.colors(), (QList<Color>{{9, 8, 7}, {1, 2, 3}}));
    QCOMPARE(strip.ranges().size(), 2);
    QCOMPARE(strip.ranges().at(0).startPercent, 10);
    QCOMPARE(strip.ranges().at(0).endPercent, 40);
    QCOMPARE(strip.ranges().at(1).startPercent, 50);
    QCOMPARE(strip.ranges().at(1).endPercent, 90);
}

QTEST_GUILESS_MAIN(TestWsLedHandler)
#include "tst_wsledhandler.moc"
