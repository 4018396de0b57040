#include "controllerrig.h"
#include "firmwareupdateservice.h"
#include "httpfileserver.h"
#include "wsfirmwarehandler.h"
#include "wssocupdatehandler.h"

#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

// Both update handlers on a real controller (the bridge simulator connected) and one update
// service reading its manifest from a server on 127.0.0.1.
struct FirmwareRig : ControllerRig
{
    HttpFileServer server;
    QObject parent;
    FirmwareUpdateService *updates = nullptr;
    WsFirmwareHandler *firmware = nullptr;
    WsSocUpdateHandler *soc = nullptr;
    std::unique_ptr<QSignalSpy> pushes;

    bool setUp()
    {
        if (!ControllerRig::setUp() || !server.start())
            return false;
        FirmwareUpdateService::Options options;
        options.manifestUrl = server.url(u"/manifest.json"_s);
        options.cacheFolder = dir.filePath(u"cache"_s);
        options.driveRoots = {dir.filePath(u"media"_s)};
        updates = new FirmwareUpdateService(options, &parent);
        firmware = new WsFirmwareHandler(controller.get(), updates, &parent);
        soc = new WsSocUpdateHandler(controller.get(), updates, &parent);
        pushes = std::make_unique<QSignalSpy>(firmware, &WsHandler::pushEvent);
        QObject::connect(soc, &WsHandler::pushEvent, firmware, &WsHandler::pushEvent); // one list of pushes
        return true;
    }

    QJsonObject ask(const QString &event, const QJsonObject &data = {})
    {
        WsHandler *handler = event.startsWith(u"soc_"_s) ? static_cast<WsHandler *>(soc) : firmware;
        return handler->handleMessage(event, data);
    }

    QJsonObject lastPush(const QString &event) const
    {
        QJsonObject found;
        for (const QList<QVariant> &args : *pushes) {
            if (args.at(0).toString() == event)
                found = args.at(1).toJsonObject();
        }
        return found;
    }
};

QJsonObject device(const QString &name)
{
    return {{u"device"_s, name}};
}

} // namespace

class TestWsFirmwareHandler : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data()
    {
        QTest::addColumn<bool>("busy"); // a transmitter check is waiting for the server
        QTest::addColumn<bool>("transmitting");
        QTest::addColumn<QString>("request");
        QTest::addColumn<QJsonObject>("data");
        QTest::addColumn<QString>("message");

        const QString check = u"action_check_firmware"_s;
        const QString update = u"action_update_firmware"_s;
        const QString missing = u"Missing 'device' parameter (receiver|transmitter|soc)"_s;
        const QString busy = u"Firmware operation already in progress"_s;

        QTest::newRow("device missing, busy") << true << false << check << QJsonObject() << missing;
        QTest::newRow("device unknown") << false << false << update << device(u"boat"_s) << missing;
        QTest::newRow("device not text")
            << false << false << check << QJsonObject{{u"device"_s, 1}} << missing;
        QTest::newRow("receiver unplugged, busy")
            << true << false << update << device(u"receiver"_s) << u"Device not connected: receiver"_s;
        QTest::newRow("transmitter busy") << true << false << update << device(u"transmitter"_s) << busy;
        QTest::newRow("soc busy") << true << false << check << device(u"soc"_s) << busy;
        QTest::newRow("bridge update while driving") << false << true << update << device(u"transmitter"_s)
                                                     << u"Stop transmission before updating firmware"_s;
        QTest::newRow("soc check through firmware")
            << false << false << check << device(u"soc"_s) << u"Could not check for updates"_s;
        QTest::newRow("soc check") << false << false << u"soc_update_check"_s << QJsonObject()
                                   << u"Could not check for updates"_s;
        QTest::newRow("soc start") << false << false << u"soc_update_start"_s
                                   << QJsonObject{{u"target_version"_s, u"2.0.0"_s}}
                                   << u"Could not start the update"_s;
        QTest::newRow("soc start, busy") << true << false << u"soc_update_start"_s << QJsonObject()
                                         << u"An update is already in progress"_s;
    }

    void refusals()
    {
        QFETCH(bool, busy);
        QFETCH(bool, transmitting);
        QFETCH(QString, request);
        QFETCH(QJsonObject, data);
        QFETCH(QString, message);

        FirmwareRig rig;
        QVERIFY2(rig.setUp(), "the firmware rig could not be set up");
        rig.server.setSilent(true);
        if (busy)
            QVERIFY(rig.ask(u"action_check_firmware"_s, device(u"transmitter"_s))[u"success"_s].toBool());
        if (transmitting)
            QVERIFY(rig.controller->startTransmission());
        const FirmwareUpdateService::State before = rig.updates->state();

        const QJsonObject reply = rig.ask(request, data);
        QCOMPARE(reply[u"event"_s].toString(), request);
        QCOMPARE(reply[u"success"_s], QJsonValue(false));
        QCOMPARE(reply[u"message"_s].toString(), message);
        // A refusal leaves a run in progress alone; only the SoC's own run fails, honestly.
        if (busy || !message.startsWith(u"Could not"_s))
            QCOMPARE(rig.updates->state(), before);
        QCOMPARE(rig.controller->isRunning(), transmitting);
    }

    void checkReportsTheServedVersion()
    {
        FirmwareRig rig;
        QVERIFY2(rig.setUp(), "the firmware rig could not be set up");
        const QJsonObject entry{{u"version"_s, u"2.1.0"_s},
                                {u"url"_s, u"tx.uf2"_s},
                                {u"size"_s, 512},
                                {u"sha256"_s, QString(64, u'0')}};
        rig.server.serve(
            u"/manifest.json"_s,
            QJsonDocument(QJsonObject{{u"devices"_s, QJsonObject{{u"transmitter"_s, entry}}}}).toJson());

        QVERIFY(rig.ask(u"action_check_firmware"_s, device(u"transmitter"_s))[u"success"_s].toBool());
        QTRY_COMPARE_WITH_TIMEOUT(rig.lastPush(u"event_firmware_progress"_s)[u"state"_s].toString(),
                                  u"idle"_s, 60000);
        const QJsonObject status = rig.ask(u"get_firmware_status"_s)[u"data"_s].toObject();
        QCOMPARE(status[u"device"_s].toString(), u"transmitter"_s);
        QCOMPARE(status[u"remoteVersion"_s].toString(), u"2.1.0"_s);
        QCOMPARE(rig.lastPush(u"event_firmware_progress"_s)[u"remoteVersion"_s].toString(), u"2.1.0"_s);

        // The SoC's refusal reaches its subscribers as a failed run.
        QVERIFY(!rig.ask(u"soc_update_check"_s)[u"success"_s].toBool());
        QCOMPARE(rig.lastPush(u"event_soc_update_progress"_s)[u"status"_s].toString(), u"failed"_s);
    }
};

QTEST_GUILESS_MAIN(TestWsFirmwareHandler)
#include "tst_wsfirmwarehandler.moc"
