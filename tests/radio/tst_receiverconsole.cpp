// The receiver's configuration end to end over its USB console: the controller's receiver
// port, the configuration manager and the receiver simulator, each written from the
// receiver's command set on its own, have to agree.

#include "controllerrig.h"
#include "receiverconfigmanager.h"
#include "receiverport.h"
#include "receiversimulator.h"

#include <QSignalSpy>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using Gyro = sim::ReceiverSimulatorSettings::GyroCalibration;
using UsbState = ReceiverConfigManager::UsbState;

class TestReceiverConsole : public QObject
{
    Q_OBJECT

private slots:
    void settingsMountingAndGyroOverTheCable_data()
    {
        QTest::addColumn<int>("gyro");
        QTest::addColumn<int>("gyroState");

        QTest::newRow("gyro calibrated") << int(Gyro::Succeeds) << int(ReceiverConfigManager::GyroCal::Done);
        QTest::newRow("car moved during calibration")
            << int(Gyro::CarMoved) << int(ReceiverConfigManager::GyroCal::Failed);
    }

    void settingsMountingAndGyroOverTheCable()
    {
        QFETCH(int, gyro);
        QFETCH(int, gyroState);

        ControllerRig rig;
        QVERIFY2(rig.setUp(), "the controller rig could not be set up");
        sim::ReceiverSimulatorSettings settings;
        settings.gyroCalibrationMs = 50; // the hub looks for the result well after this
        settings.gyroCalibration = Gyro(gyro);
        sim::ReceiverSimulator receiver(settings);
        QVERIFY2(receiver.start(rig.receiverPath()), qPrintable(receiver.errorString()));
        ReceiverConfigManager *config = rig.controller->receiverConfig();
        QVERIFY(rig.controller->receiverPort()->connectReceiver(rig.receiverPath()));
        QTRY_COMPARE_WITH_TIMEOUT(config->usbState(), UsbState::Synced, 20000);
        QVERIFY(config->caps().settings);

        // A change reaches the receiver and comes back in what it reports.
        QVERIFY(config->setDesiredSetting(QStringLiteral("GPS_RATE"), 5));
        QVERIFY(config->setDesiredSetting(QStringLiteral("MOTION"), 1));
        QTRY_COMPARE_WITH_TIMEOUT(receiver.setting(QStringLiteral("GPS_RATE")), 5, 20000);
        QTRY_COMPARE_WITH_TIMEOUT(config->reportedSettings().value(QStringLiteral("GPS_RATE")), 5, 20000);
        QTRY_COMPARE_WITH_TIMEOUT(config->reportedSettings().value(QStringLiteral("MOTION")), 1, 20000);

        // Mounting in its two steps: flat, then nose up.
        QVERIFY(config->detectMountingStep(0));
        QTRY_COMPARE_WITH_TIMEOUT(config->mounting(), ReceiverConfigManager::Mounting::NeedNoseUp, 20000);
        QVERIFY(config->detectMountingStep(1));
        QTRY_COMPARE_WITH_TIMEOUT(config->mounting(), ReceiverConfigManager::Mounting::Saved, 20000);
        QTRY_COMPARE_WITH_TIMEOUT(config->imuAxes(), receiver.mountingAxes(), 20000); // read after saving

        QVERIFY(config->calibrateGyro());
        QTRY_COMPARE_WITH_TIMEOUT(int(config->gyroCal()), gyroState, 20000);

        // The console's one refusal that protects the receiver.
        QVERIFY(!config->sendConsoleCommand(QStringLiteral("dfu")));
        QVERIFY(rig.flushToBridge());
        QVERIFY(!receiver.commands().contains(QStringLiteral("dfu"), Qt::CaseInsensitive));
    }
};

QTEST_GUILESS_MAIN(TestReceiverConsole)
#include "tst_receiverconsole.moc"
