// The pages of the main window bound to the real controller: virtual game controllers, the
// bridge simulator on a pty as the transmitter, profiles in a temporary folder.
#include "appaddresslist.h"
#include "carpage.h"
#include "channelbar.h"
#include "dashboardbinder.h"
#include "dashboardpage.h"
#include "devicepickerbinder.h"
#include "devicepickercard.h"
#include "driverecorder.h"
#include "emptystate.h"
#include "helipage.h"
#include "hubrig.h"
#include "infopage.h"
#include "inputdevice.h"
#include "levelbar.h"
#include "logrouter.h"
#include "mainwindow.h"
#include "notice.h"
#include "radiocalibrationbinder.h"
#include "radiocalibrationdialog.h"
#include "receivercard.h"
#include "receiverconfigmanager.h"
#include "receiverendpointcalibration.h"
#include "receiverport.h"
#include "receiversimulator.h"
#include "recordingrow.h"
#include "remoteaddresses.h"
#include "remotestatusdialog.h"
#include "serialportpicker.h"
#include "shellsettings.h"
#include "stattile.h"
#include "statuspill.h"
#include "statusrow.h"
#include "telemetryplots.h"
#include "toast.h"
#include "transmittercard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QJsonArray>
#include <QJsonObject>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QWebSocket>

#include <algorithm>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tavrix::remoteaddresses::LanInterface)

namespace {

// A mobile app on this machine, connected once the server accepted it.
bool connectApp(QWebSocket &app, quint16 port)
{
    QSignalSpy connected(&app, &QWebSocket::connected);
    app.open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(port)));
    return connected.wait(10000);
}

QString appPeer(const QWebSocket &app)
{
    return QStringLiteral("127.0.0.1:%1").arg(app.localPort());
}

QStringList listed(const QListWidget *list)
{
    QStringList rows;
    for (int i = 0; i < list->count(); ++i)
        rows.append(list->item(i)->text());
    return rows;
}

} // namespace

class TestPageBinders : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("OrvaneLabs"));
        QCoreApplication::setApplicationName(QStringLiteral("OrvaneLabs HUB binder test"));
    }

    // The vehicle pages ask the safety notice before their first start (tst_setupguide); here
    // the start itself is under test.
    void init()
    {
        QSettings().clear();
        for (const hub::SafetyNotice notice : {hub::SafetyNotice::Car, hub::SafetyNotice::Helicopter})
            hub::ShellSettings::setSafetyNoticeAccepted(notice);
    }

    void carPageListsPortsAndControllersAndConnectsThem()
    {
        HubRig rig;
        rig.plugCarControllers();
        auto *car = rig.showPage<CarPage>(u"rc-car"_s);
        QVERIFY(car);
        QVERIFY(!car->transmitterCard()->connectButton()->isEnabled());
        // The port list follows the plug while the page is shown.
        QVERIFY(rig.startBridge());
        QTRY_COMPARE_WITH_TIMEOUT(car->transmitterCard()->ports(), QStringList{rig.linkPath()}, 5000);
        QCOMPARE(car->deviceCard()->devices(),
                 (QStringList{QStringLiteral("Test Wheel (8 axes, 32 btn) [FFB]"),
                              QStringLiteral("Test Pedals (8 axes, 8 btn)")}));
        QCOMPARE(car->deviceCard()->currentDevice(QStringLiteral("wheel")), -1);

        car->transmitterCard()->connectButton()->click();
        QVERIFY(rig.controller()->isSerialConnected());
        QVERIFY(car->transmitterCard()->isConnected());
        QCOMPARE(rig.services->profiles()->transmitterPortName(), rig.linkPath());

        pick(car->deviceCard()->picker(QStringLiteral("wheel")), 1);
        pick(car->deviceCard()->picker(QStringLiteral("pedals")), 2);
        QVERIFY(rig.controller()->devices()->isConnected(DeviceRole::WheelBase));
        QVERIFY(rig.controller()->devices()->isConnected(DeviceRole::Pedals));
        QCOMPARE(car->deviceCard()->currentDevice(QStringLiteral("wheel")), 0);
        QCOMPARE(car->deviceCard()->currentDevice(QStringLiteral("pedals")), 1);

        // Choosing "None" closes the role again, and for good: only the wheel comes back.
        pick(car->deviceCard()->picker(QStringLiteral("pedals")), 0);
        QVERIFY(!rig.controller()->devices()->isConnected(DeviceRole::Pedals));
        rig.controller()->reconnectSavedDevices();
        QVERIFY(!rig.controller()->devices()->isConnected(DeviceRole::Pedals));
        QVERIFY(rig.controller()->devices()->isConnected(DeviceRole::WheelBase));

        car->transmitterCard()->connectButton()->click();
        QVERIFY(!rig.controller()->isSerialConnected());
        QVERIFY(!car->transmitterCard()->isConnected());
    }

    void releasedPedalsStartAndTheCarPageComesAlive()
    {
        HubRig rig;
        QVERIFY(rig.startBridge());
        rig.plugCarControllers();
        TavrixController *c = rig.controller();
        QVERIFY(c->connectTransmitter(rig.linkPath()));
        QVERIFY(c->connectDevice(DeviceRole::WheelBase, 0));
        QVERIFY(c->connectDevice(DeviceRole::Pedals, 1));
        rig.setPedals(0.4, 0.0);
        QTRY_VERIFY(c->throttle() > 0.3f);

        auto *car = rig.showPage<CarPage>(u"rc-car"_s);
        QVERIFY(car);
        QCOMPARE(car->deviceCard()->currentDevice(QStringLiteral("wheel")), 0);
        QCOMPARE(car->deviceCard()->currentDevice(QStringLiteral("pedals")), 1);
        QTRY_VERIFY(car->throttleBar()->value().value_or(0.0) > 0.3);

        // Refused by the controller (its tests pin every refusal): the page shows why.
        car->startButton()->click();
        QCOMPARE(car->problem(), QStringLiteral("Release the throttle pedal before starting transmission."));
        QVERIFY(car->problemNotice()->isVisible());
        QVERIFY(!c->isRunning());
        QVERIFY(!car->isTransmitting());
        rig.setPedals(0.0, 0.0);
        QTRY_VERIFY(c->throttle() < 0.01f);
        car->startButton()->click();
        QVERIFY(c->isRunning());
        QVERIFY(car->isTransmitting());
        QVERIFY(car->problem().isEmpty());

        // Steering moves CH1 on the page as it moves in the frames.
        hub::LevelBar *ch1 = car->channelBar()->bar(0);
        QTRY_VERIFY(ch1->value().has_value());
        // Nothing drives CH4: at 0 its bar is empty, not filled from a centre it does not have.
        QCOMPARE(car->channelBar()->bar(3)->filledSpan(), std::pair(0.0, 0.0));
        const double before = *ch1->value();
        rig.backend->setAxis(rig.firstDevice, ControllerRig::kSteeringSlot, rawForDeviceValue(0.8));
        QTRY_VERIFY(*ch1->value() > before + 500);
        // Steered right, CH1 fills from the steering centre rather than from the low end.
        QVERIFY(ch1->filledSpan().first > 0.45);
        QTRY_VERIFY(car->steeringBar()->value().value_or(0.0) > 0.7);

        // The simulated car answers: link, link quality and GPS reach the page.
        QTRY_COMPARE_WITH_TIMEOUT(car->carLinkPill()->text(), QStringLiteral("Linked"), 5000);
        QTRY_VERIFY(car->linkQualityTile()->hasValue());
        QTRY_VERIFY_WITH_TIMEOUT(car->gpsTile()->hasValue(), 5000);

        car->startButton()->click();
        QVERIFY(!c->isRunning());
        QVERIFY(rig.sim.commands().contains(QStringLiteral("STOP")) ||
                QTest::qWaitFor([&] { return rig.sim.commands().contains(QStringLiteral("STOP")); }, 5000));
    }

    void receiverCardReachesTheReceiver()
    {
        HubRig rig;
        sim::ReceiverSimulatorSettings quiet;
        quiet.telemetryIntervalMs = 0;
        quiet.calibrationLineIntervalMs = 0;
        sim::ReceiverSimulator receiver(quiet);
        const QString path = rig.dir.filePath(QStringLiteral("ttyRECEIVER"));
        QVERIFY(receiver.start(path));
        rig.ports->setPaths({path});
        auto *car = rig.showPage<CarPage>(u"rc-car"_s);
        QVERIFY(car);
        ReceiverCard *card = car->receiverCard();
        ReceiverConfigManager *config = rig.controller()->receiverConfig();
        QTRY_COMPARE_WITH_TIMEOUT(card->picker()->ports(), QStringList{path}, 5000);
        card->picker()->connectButton()->click();
        QVERIFY(rig.controller()->receiverPort()->isConnected());
        QTRY_COMPARE_WITH_TIMEOUT(config->usbState(), ReceiverConfigManager::UsbState::Synced, 10000);
        QVERIFY(card->settingSwitch(u"MOTION"_s)->isChecked());

        // A switch and a rate reach the receiver, and the switch shows the choice meanwhile.
        card->settingSwitch(u"MOTION"_s)->click();
        QComboBox *gpsRate = card->settingChoice(u"GPS_RATE"_s);
        pick(gpsRate, gpsRate->findData(10));
        QTRY_COMPARE_WITH_TIMEOUT(receiver.setting(u"MOTION"_s), 0, 10000);
        QTRY_COMPARE_WITH_TIMEOUT(receiver.setting(u"GPS_RATE"_s), 10, 10000);
        QVERIFY(!card->settingSwitch(u"MOTION"_s)->isChecked());

        // The boot loader's command is refused on the card and never reaches the receiver;
        // a normal line goes out and its answer shows in the console.
        card->consoleEntry()->setText(u"dfu"_s);
        QTest::keyClick(card->consoleEntry(), Qt::Key_Return);
        QVERIFY(!card->consoleRefusal().isEmpty());
        QCOMPARE(card->consoleEntry()->text(), u"dfu"_s);
        card->consoleEntry()->setText(u"HW"_s);
        QTest::keyClick(card->consoleEntry(), Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(card->consoleText().contains(u"HW:Orvane-RX"_s), 10000);
        QVERIFY(card->consoleRefusal().isEmpty());
        QVERIFY(!receiver.commands().contains(u"dfu"_s, Qt::CaseInsensitive));

        // The first mounting step is asked for and its outcome shown.
        card->mountingButton(0)->click();
        QTRY_COMPARE_WITH_TIMEOUT(config->mounting(), ReceiverConfigManager::Mounting::NeedNoseUp, 10000);
        QCOMPARE(card->mountingText(), config->mountingText());
    }

    // One button starts the calibration and then measures each step: pressed again it must
    // measure, not start over and lose what was recorded.
    void radioCalibrationButtonsFollowTheSteps()
    {
        HubRig rig;
        sim::ReceiverSimulatorSettings settings;
        settings.calibrationLineIntervalMs = 10;
        sim::ReceiverSimulator receiver(settings);
        const QString path = rig.dir.filePath(u"ttyRECEIVER"_s);
        QVERIFY(receiver.start(path));
        QVERIFY(rig.controller()->receiverPort()->connectReceiver(path));
        receiver.setSticks(1500, 2000);
        RadioCalibrationDialog dialog;
        new RadioCalibrationBinder(&dialog, rig.controller());
        const auto enabled = [&dialog] {
            QString flags;
            for (QPushButton *button :
                 {dialog.startButton(), dialog.retryButton(), dialog.skipButton(), dialog.cancelButton()})
                flags += button->isEnabled() ? u'1' : u'0';
            return flags;
        };
        QCOMPARE(enabled(), u"1000"_s);

        dialog.startButton()->click(); // the first step waits
        QCOMPARE(enabled(), u"1111"_s);
        dialog.startButton()->click(); // and is measured
        QCOMPARE(enabled(), u"0001"_s);
        const int full = sim::ReceiverSimulator::crsfValue(2000);
        QTRY_COMPARE_WITH_TIMEOUT(dialog.resultText(0), u"CRSF %1"_s.arg(full), 20000);
        QCOMPARE(enabled(), u"1111"_s);

        dialog.startButton()->click();
        QCOMPARE(rig.controller()->receiverCalibration()->step(),
                 ReceiverEndpointCalibration::Step::ThrottleNeutral);
        QCOMPARE(dialog.resultText(0), u"CRSF %1"_s.arg(full));
        dialog.cancelButton()->click();
        QCOMPARE(enabled(), u"1000"_s);
    }

    void batteryTileShowsTheCarsVoltage_data()
    {
        QTest::addColumn<QString>("firmware");
        QTest::addColumn<bool>("shown");
        QTest::newRow("receiver not known") << QString() << true;
        QTest::newRow("classic receiver") << QStringLiteral("3.4.1") << true;
        // Its 0x08 frame carries an acceleration where the voltage would be.
        QTest::newRow("newer receiver") << QStringLiteral("4.2.0") << false;
    }

    void batteryTileShowsTheCarsVoltage()
    {
        QFETCH(QString, firmware);
        QFETCH(bool, shown);
        HubRig rig;
        if (!firmware.isEmpty()) {
            QVERIFY(rig.services->profiles()->setSetting(
                QStringLiteral("receiverCaps"), QJsonObject{{QStringLiteral("firmware"), firmware}}));
        }
        auto *car = rig.showPage<CarPage>(u"rc-car"_s);
        QVERIFY(car);
        QVERIFY(rig.startCarTransmission());

        if (shown) {
            QTRY_VERIFY_WITH_TIMEOUT(car->batteryTile()->hasValue(), 10000);
            QCOMPARE(car->batteryTile()->value(),
                     QString::number(ControllerRig::quietBridge().car.batteryFullVolts, 'f', 1));
        } else {
            const auto batteryCatalogued = [&] {
                const TelemetryCatalogue sensors = rig.controller()->telemetry()->catalogue();
                return std::any_of(sensors.cbegin(), sensors.cend(),
                                   [](const TelemetrySensor &s) { return s.key == QLatin1String("RxBt"); });
            };
            QTRY_VERIFY_WITH_TIMEOUT(batteryCatalogued(), 10000);
            QVERIFY(!car->batteryTile()->hasValue());
        }
    }

    void dashboardShowsConnectionsTransmissionAndSensors()
    {
        HubRig rig;
        auto *dash = rig.showPage<DashboardPage>(u"dashboard"_s);
        QVERIFY(dash);
        QCOMPARE(dash->transmitterRow()->pill()->text(), QStringLiteral("Not connected"));
        QCOMPARE(dash->devicesRow()->pill()->text(), QStringLiteral("None"));
        QVERIFY(dash->telemetryEmptyState()->isVisible());
        // Errors away from the vehicle pages become a toast.
        rig.controller()->startTransmission();
        QVERIFY(rig.window->toast()->isVisible());
        QCOMPARE(rig.window->toast()->text(), QStringLiteral("RP2040 Bridge not connected"));

        QVERIFY(rig.startCarTransmission());
        QCOMPARE(dash->transmitterRow()->pill()->text(), QStringLiteral("Connected"));
        QCOMPARE(dash->devicesRow()->pill()->text(), QStringLiteral("2 of 3"));
        QVERIFY(dash->devicesRow()->detail().contains(QStringLiteral("Test Wheel")));
        QTRY_VERIFY_WITH_TIMEOUT(dash->frameRateTile()->hasValue(), 5000);
        QTRY_COMPARE_WITH_TIMEOUT(dash->carLinkRow()->pill()->text(), QStringLiteral("Linked"), 5000);
        // The car's receiver, found over the radio, by the name it reports.
        QTRY_COMPARE_WITH_TIMEOUT(dash->receiverRow()->pill()->text(), QStringLiteral("Orvane RX V4"), 20000);
        // No sensors chosen in the profile: every sensor seen is shown.
        QTRY_VERIFY_WITH_TIMEOUT(dash->telemetryGrid()->isVisible() && dash->telemetryGrid()->tileCount() > 5,
                                 5000);
        QVERIFY(!dash->telemetryEmptyState()->isVisible());

        // The live plots fill from the car's motion and link statistics, and only while shown.
        TelemetryPlots *plots = dash->telemetryPlots();
        QTRY_VERIFY_WITH_TIMEOUT(plots->plottedPoints(TelemetryPlots::Lateral) > 5 &&
                                     plots->plottedPoints(TelemetryPlots::Rssi) > 1,
                                 5000);
        QVERIFY(rig.window->showPage(u"rc-car"_s));
        const int plotted = plots->plottedPoints(TelemetryPlots::Lateral);
        const int kept = plots->ring(TelemetryPlots::Lateral).size();
        QTRY_VERIFY(plots->ring(TelemetryPlots::Lateral).size() > kept + 10);
        QCOMPARE(plots->plottedPoints(TelemetryPlots::Lateral), plotted);
        QVERIFY(rig.window->showPage(u"dashboard"_s));
        QVERIFY(plots->plottedPoints(TelemetryPlots::Lateral) > plotted + 10);

        // Record writes the drive into the data folder's recordings and names the file.
        DriveRecorder *recorder = rig.services->driveRecorder();
        dash->recordingRow()->recordButton()->click();
        QVERIFY(recorder->isRecording());
        QCOMPARE(QFileInfo(recorder->filePath()).dir().path(), rig.dir.filePath(u"recordings"_s));
        QVERIFY(dash->recordingRow()->statusText().contains(QFileInfo(recorder->filePath()).fileName()));
        QTRY_VERIFY(recorder->writtenRows() > 0);
        dash->recordingRow()->recordButton()->click();
        QVERIFY(!recorder->isRecording());
        QVERIFY(!dash->recordingRow()->recordButton()->isChecked());
        // Once the writer has finished, the row says how many rows the file kept.
        QTRY_VERIFY(dash->recordingRow()->statusText().contains(QString::number(recorder->writtenRows()) +
                                                                u" rows"_s));

        // With sensors chosen, exactly those show, in the chosen order.
        QVERIFY(
            rig.services->profiles()->setSetting(QStringLiteral("telemetryDashboard"),
                                                 QJsonArray{QStringLiteral("RQly"), QStringLiteral("Nope")}));
        QTRY_COMPARE(dash->telemetryGrid()->tileCount(), 2);
        QCOMPARE(dash->telemetryGrid()->tile(0)->caption(), QStringLiteral("RQly"));
        QCOMPARE(dash->telemetryGrid()->tile(1)->caption(), QStringLiteral("Nope \u00B7 stale"));
    }

    void readingsMarkStaleSensors_data()
    {
        QTest::addColumn<QStringList>("chosen");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QList<bool>>("stale");
        // Sensors: RQly updated 500 ms ago, RxBt 2001 ms ago, GPS never, GLat 100 ms ago, TQly 2000 ms
        // ago (stale means strictly older than the 2000 ms limit).
        QTest::newRow("all seen") << QStringList()
                                  << QStringList{u"RQly"_s, u"RxBt"_s, u"GPS"_s, u"GLat"_s, u"TQly"_s}
                                  << QList<bool>{false, true, true, false, false};
        QTest::newRow("chosen order") << QStringList{u"GPS"_s, u"RQly"_s} << QStringList{u"GPS"_s, u"RQly"_s}
                                      << QList<bool>{true, false};
        QTest::newRow("chosen, never received")
            << QStringList{u"Sats"_s} << QStringList{u"Sats"_s} << QList<bool>{true};
        // The profile stores the car's motion as LatG/LonG/VrtG; the catalogue says GLat/GLon/GVrt.
        QTest::newRow("car motion by the profile's keys")
            << QStringList{u"LatG"_s, u"GLat"_s} << QStringList{u"GLat"_s} << QList<bool>{false};
    }

    void readingsMarkStaleSensors()
    {
        QFETCH(QStringList, chosen);
        QFETCH(QStringList, keys);
        QFETCH(QList<bool>, stale);
        const qint64 now = 1'000'000;
        const TelemetryCatalogue sensors = {
            {QStringLiteral("RQly"), QStringLiteral("99 %"), {}, {}, now - 500},
            {QStringLiteral("RxBt"), QStringLiteral("7.4 V"), {}, {}, now - 2001},
            {QStringLiteral("GPS"), QStringLiteral("No fix"), {}, {}, 0},
            {QStringLiteral("GLat"), QStringLiteral("0.12 g"), {}, {}, now - 100},
            {QStringLiteral("TQly"), QStringLiteral("80 %"), {}, {}, now - 2000}};
        const auto readings =
            DashboardBinder::readings(sensors, chosen, now, std::chrono::milliseconds(2000));
        QStringList gotKeys;
        QList<bool> gotStale;
        for (const TelemetryGrid::Reading &r : readings) {
            gotKeys.append(r.key);
            gotStale.append(r.stale);
        }
        QCOMPARE(gotKeys, keys);
        QCOMPARE(gotStale, stale);
    }

    void heliPageSwitchesProfileAndShowsTheArmRefusal()
    {
        HubRig rig;
        QVERIFY(rig.startBridge());
        rig.plugHeliControllers();
        auto *heli = rig.showPage<HeliPage>(u"rc-heli"_s);
        QVERIFY(heli);
        TavrixController *c = rig.controller();

        // The first profile drives a car: the page says so and offers a helicopter profile.
        QVERIFY(heli->profileNotice()->isVisible());
        QVERIFY(heli->profileNotice()->text().contains(QStringLiteral("drives a car")));
        heli->startButton()->click();
        QVERIFY(!c->isRunning());
        QVERIFY(!heli->problem().isEmpty());
        heli->switchProfileButton()->click();
        QTRY_VERIFY(c->isHelicopter());
        QVERIFY(!heli->profileNotice()->isVisible());
        QCOMPARE(rig.services->profiles()->activeProfileName(), QStringLiteral("RC Helicopter"));

        heli->rateButton(1)->click();
        QCOMPARE(c->heliRateMode(), 1);
        QVERIFY(heli->rateButton(1)->isChecked());

        heli->transmitterCard()->connectButton()->click();
        QVERIFY(c->isSerialConnected());
        pick(heli->controlsCard()->picker(QStringLiteral("joystick")), 1);
        pick(heli->controlsCard()->picker(QStringLiteral("throttle")), 2);
        QVERIFY(c->devices()->isConnected(DeviceRole::HeliJoystick));
        QVERIFY(c->devices()->isConnected(DeviceRole::HeliThrottle));
        QVERIFY(!heli->armButton()->isEnabled());

        constexpr int kCollectiveSlot = 2;
        rig.backend->setAxis(rig.secondDevice, kCollectiveSlot, rawForDeviceValue(-0.7));
        heli->startButton()->click();
        QVERIFY(c->isRunning());
        QVERIFY(heli->armButton()->isEnabled());
        QTRY_VERIFY(c->frameCount() > 3);

        heli->armButton()->click();
        QCOMPARE(heli->problem(), QStringLiteral("Lower the collective before arming the motor."));
        QVERIFY(!c->isHeliArmed());
        QVERIFY(!heli->isArmed());

        rig.backend->setAxis(rig.secondDevice, kCollectiveSlot, rawForDeviceValue(-0.9));
        QTRY_VERIFY(c->devices()->device(DeviceRole::HeliThrottle)->axis(kCollectiveSlot) < -0.85f);
        heli->armButton()->click();
        QVERIFY(c->isHeliArmed());
        QVERIFY(heli->isArmed());

        heli->startButton()->click();
        QVERIFY(!c->isRunning());
        QVERIFY(!heli->isArmed());
    }

    void mobileAppRowAndStatusDialogFollowTheClients()
    {
        HubRig rig;
        QVERIFY(rig.startRemote());
        const quint16 port = rig.services->remoteServer()->port();
        auto *dash = rig.showPage<DashboardPage>(u"dashboard"_s);
        QVERIFY(dash);
        const hub::StatusPill *pill = dash->remoteRow()->pill();
        QCOMPARE(pill->tone(), hub::Tone::Neutral);
        QVERIFY(dash->remoteRow()->detail().contains(QString::number(port)));
        const QStringList urls{u"ws://127.0.0.1:%1"_s.arg(port)};
        auto *info = qobject_cast<InfoPage *>(rig.window->page(u"info"_s));
        QCOMPARE(info->appAddressList()->addresses(), urls);

        dash->remoteDetailsButton()->click();
        auto *dialog = rig.window->findChild<RemoteStatusDialog *>();
        QVERIFY(dialog && dialog->isVisible());
        QCOMPARE(dialog->addressList()->addresses(), urls);
        QVERIFY(listed(dialog->clientList()).isEmpty());

        QWebSocket first;
        QWebSocket second;
        QVERIFY(connectApp(first, port));
        QVERIFY(connectApp(second, port));
        QTRY_COMPARE_WITH_TIMEOUT(listed(dialog->clientList()),
                                  (QStringList{appPeer(first), appPeer(second)}), 10000);
        QCOMPARE(pill->tone(), hub::Tone::Good);
        QVERIFY(pill->text().contains(u'2'));

        first.close();
        QTRY_COMPARE_WITH_TIMEOUT(listed(dialog->clientList()), QStringList{appPeer(second)}, 10000);
        QVERIFY(pill->text().contains(u'1'));
        second.close();
        QTRY_VERIFY_WITH_TIMEOUT(listed(dialog->clientList()).isEmpty(), 10000);
        QCOMPARE(pill->tone(), hub::Tone::Neutral);
    }

    void appUrlsFollowWhereTheServerListens_data()
    {
        QTest::addColumn<QHostAddress>("listen");
        QTest::addColumn<quint16>("port");
        QTest::addColumn<QStringList>("urls");
        const QString name = u"ws://orvanelabs-transmitter.local:12345"_s;
        QTest::newRow("every interface")
            << QHostAddress(QHostAddress::Any) << quint16(12345)
            << QStringList{name, u"ws://192.168.1.20:12345"_s, u"ws://10.0.0.5:12345"_s};
        QTest::newRow("one interface")
            << QHostAddress(u"10.0.0.5"_s) << quint16(12345) << QStringList{name, u"ws://10.0.0.5:12345"_s};
        QTest::newRow("loopback, no name") << QHostAddress(QHostAddress::LocalHost) << quint16(12345)
                                           << QStringList{u"ws://127.0.0.1:12345"_s};
        QTest::newRow("IPv6 loopback") << QHostAddress(QHostAddress::LocalHostIPv6) << quint16(12345)
                                       << QStringList{u"ws://[::1]:12345"_s};
        QTest::newRow("not listening") << QHostAddress(QHostAddress::Any) << quint16(0) << QStringList();
    }

    void appUrlsLeaveOutANameNotAnswered()
    {
        QCOMPARE(remoteaddresses::appUrls(QHostAddress(QHostAddress::Any), 12345, false, {u"10.0.0.5"_s}),
                 QStringList{u"ws://10.0.0.5:12345"_s});
    }

    void appUrlsFollowWhereTheServerListens()
    {
        QFETCH(QHostAddress, listen);
        QFETCH(quint16, port);
        QFETCH(QStringList, urls);
        QCOMPARE(remoteaddresses::appUrls(listen, port, true, {u"192.168.1.20"_s, u"10.0.0.5"_s}), urls);
    }

    void peersReadAsPeopleWriteThem_data()
    {
        QTest::addColumn<QString>("peer");
        QTest::addColumn<QString>("readable");
        QTest::newRow("IPv4-mapped") << u"::ffff:192.168.1.7:50123"_s << u"192.168.1.7:50123"_s;
        QTest::newRow("IPv4") << u"10.0.0.5:50123"_s << u"10.0.0.5:50123"_s;
        QTest::newRow("IPv6") << u"fe80::1:50123"_s << u"[fe80::1]:50123"_s;
    }

    void peersReadAsPeopleWriteThem()
    {
        QFETCH(QString, peer);
        QFETCH(QString, readable);
        QCOMPARE(remoteaddresses::readablePeer(peer), readable);
    }

    // The web panel's address is one a phone on the WiFi can reach.
    void webPanelHostSkipsTunnelsAndVirtualNetworks_data()
    {
        using Lan = remoteaddresses::LanInterface;
        QTest::addColumn<QList<Lan>>("interfaces");
        QTest::addColumn<QString>("host");
        const Lan wifi{u"wlan0"_s, {u"192.168.1.20"_s, u"192.168.1.21"_s}};
        QTest::newRow("the first address of the first")
            << QList<Lan>{wifi, {u"eth0"_s, {u"10.0.0.5"_s}}} << u"192.168.1.20"_s;
        QTest::newRow("tunnels and virtual switches skipped, any case")
            << QList<Lan>{{u"tailscale0"_s, {u"100.64.0.1"_s}},
                          {u"OpenVPN TAP"_s, {u"10.8.0.2"_s}},
                          {u"vEthernet (Default Switch)"_s, {u"172.20.0.1"_s}},
                          {u"vEthernet (WSL)"_s, {u"172.21.0.1"_s}},
                          {u"Hyper-V Virtual Ethernet"_s, {u"172.22.0.1"_s}},
                          {u"VirtualBox Host-Only Network"_s, {u"192.168.56.1"_s}},
                          {u"VMware Network Adapter VMnet8"_s, {u"192.168.80.1"_s}},
                          wifi}
            << u"192.168.1.20"_s;
        QTest::newRow("one without IPv4 passed over")
            << QList<Lan>{{u"eth0"_s, {}}, wifi} << u"192.168.1.20"_s;
        QTest::newRow("nothing reachable")
            << QList<Lan>{{u"tailscale0"_s, {u"100.64.0.1"_s}}} << u"127.0.0.1"_s;
    }

    void webPanelHostSkipsTunnelsAndVirtualNetworks()
    {
        QFETCH(QList<remoteaddresses::LanInterface>, interfaces);
        QFETCH(QString, host);
        QCOMPARE(remoteaddresses::webPanelHost(interfaces), host);
    }
};

QTEST_MAIN(TestPageBinders)
#include "tst_pagebinders.moc"
