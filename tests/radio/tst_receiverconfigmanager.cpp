#include "crsfprotocol.h"
#include "crsftypes.h"
#include "receiverconfigmanager.h"
#include "receiverelrslink.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace tavrix;
using Manager = ReceiverConfigManager;
using std::chrono::milliseconds;

namespace {

// The receiver's USB console: keeps its settings, changes them on the set commands and
// reports them on the queries, answering a moment later as a serial peer does. Commands
// listed in `answers` get those lines instead; `silent` answers nothing at all.
class ConsoleReceiver : public QObject
{
public:
    explicit ConsoleReceiver(Manager &manager)
        : m_manager(manager)
    {
        connect(&manager, &Manager::receiverWrite, this, &ConsoleReceiver::onLine);
    }

    QStringList received;
    QMap<QString, int> settings{{QStringLiteral("OSD"), 0},          {QStringLiteral("GPS_ON"), 0},
                                {QStringLiteral("GPS_RATE"), 1},     {QStringLiteral("GPS"), 0},
                                {QStringLiteral("IMU"), 0},          {QStringLiteral("MOTION"), 0},
                                {QStringLiteral("MOTION_RATE"), 10}, {QStringLiteral("MOTION_SENSORS"), 1}};
    QHash<QString, QString> answers;
    bool silent = false;

private:
    void onLine(const QByteArray &bytes)
    {
        QVERIFY(bytes.endsWith('\n'));
        const QString line = QString::fromLatin1(bytes.chopped(1));
        received.append(line);
        if (silent)
            return;
        static const QHash<QString, QString> keyOfCommand{
            {QStringLiteral("SET_OSD"), QStringLiteral("OSD")},
            {QStringLiteral("SET_GPS"), QStringLiteral("GPS_ON")},
            {QStringLiteral("GPS_RATE"), QStringLiteral("GPS_RATE")},
            {QStringLiteral("SET_GPS_TELEM"), QStringLiteral("GPS")},
            {QStringLiteral("SET_IMU_TELEM"), QStringLiteral("IMU")},
            {QStringLiteral("SET_MOTION_TELEM"), QStringLiteral("MOTION")},
            {QStringLiteral("SET_MOTION_RATE"), QStringLiteral("MOTION_RATE")},
            {QStringLiteral("SET_MOTION_SENSORS"), QStringLiteral("MOTION_SENSORS")}};
        const QStringList words = line.split(QLatin1Char(' '));
        QString reply = answers.value(line);
        if (keyOfCommand.contains(words.first()) && words.size() == 2) {
            settings[keyOfCommand.value(words.first())] = words.at(1).toInt();
        } else if (line == QLatin1String("GET_TELEM") && reply.isEmpty()) {
            QStringList items;
            for (auto it = settings.cbegin(); it != settings.cend(); ++it)
                items << QStringLiteral("%1:%2").arg(it.key()).arg(it.value());
            reply = QStringLiteral("Orvane:4.4.3 TELEM:") + items.join(QLatin1Char(' '));
        }
        if (!reply.isEmpty())
            QTimer::singleShot(0, this,
                               [this, reply] { m_manager.onReceiverLine(reply + QLatin1Char('\r')); });
    }

    Manager &m_manager;
};

constexpr uint8_t kCalibrateField = 5;

// The receiver in the car as the radio link reaches it: answers the device ping and the
// parameter reads. Its gyro-calibration command reports, after each write of it, the
// next status of `statusesAfterStart` (the last one repeats) with `commandText`.
class RadioReceiver : public QObject
{
    Q_OBJECT
public:
    ReceiverElrsLink *link = nullptr;
    QList<int> statusesAfterStart{0};
    QString commandText;
    bool silent = false;
    QList<int> commandWrites;
    int reads = 0;

    Q_INVOKABLE void serialWrite(const QByteArray &frame)
    {
        if (frame.size() < 5)
            return;
        const auto type = uint8_t(frame[2]);
        const auto field = frame.size() > 6 ? uint8_t(frame[5]) : 0;
        if (type == crsf::kTypeParameterWrite) {
            if (field == kCalibrateField)
                commandWrites.append(uint8_t(frame[6]));
            return;
        }
        if (silent)
            return;
        reads += type == crsf::kTypeParameterRead;
        QByteArray payload;
        uint8_t answerType = crsf::kTypeParameterEntry;
        if (type == crsf::kTypeDevicePing) {
            answerType = crsf::kTypeDeviceInfo;
            payload = QByteArray("Orvane RX V4\0ORV4", 17) + QByteArray::fromHex("00000000 00040403 0e01");
        } else if (field == kCalibrateField) {
            const int status =
                commandWrites.isEmpty()
                    ? 0
                    : statusesAfterStart.value(std::min(m_reads++, int(statusesAfterStart.size()) - 1));
            payload = QByteArray::fromHex("0500000d") + "Calibrate IMU" + '\0' + char(status) + '\0' +
                      commandText.toLatin1() + '\0';
        } else {
            payload = QByteArray(1, char(field)) + QByteArray::fromHex("000000") + "Field" + '\0' +
                      QByteArray::fromHex("01000a01");
        }
        QTimer::singleShot(
            0, this, [this, answerType, payload] { link->onExtendedFrame(answerType, 0xEF, 0xC8, payload); });
    }

private:
    int m_reads = 0;
};

// Short, yet long enough that an answer delayed by a loaded machine still comes in time.
ReceiverConfigTimings shortTimings()
{
    ReceiverConfigTimings t;
    t.commandInterval = milliseconds(20);
    t.settingsReplyTimeout = milliseconds(1000);
    t.mountingStepTimeout = milliseconds(1000);
    t.usbGyroCalCheck = milliseconds(1000);
    t.elrsGyroCalLimit = milliseconds(3000);
    t.elrsGyroCalPoll = milliseconds(30);
    return t;
}

bool openAndSync(Manager &manager)
{
    manager.setUsbOpen(true);
    return QTest::qWaitFor(
        [&manager] {
            return manager.usbState() == Manager::UsbState::Synced && manager.pendingCommands().isEmpty();
        },
        20000);
}

} // namespace

class TestReceiverConfigManager : public QObject
{
    Q_OBJECT

private slots:
    void appliesChangesInOrderOneLinePerTickThenReadsBack();
    void unansweredQueryMarksAnOlderReceiver();
    void mountingStep_data();
    void mountingStep();
    void gyroCalibrationOverUsb_data();
    void gyroCalibrationOverUsb();
    void gyroCalibrationOverElrs_data();
    void gyroCalibrationOverElrs();
    void silentTelemetryRereadsTheSettingsOverElrs();
    void consoleRefusesBootLoaderAndEmptyLines_data();
    void consoleRefusesBootLoaderAndEmptyLines();
};

void TestReceiverConfigManager::appliesChangesInOrderOneLinePerTickThenReadsBack()
{
    Manager manager(nullptr, shortTimings());
    ConsoleReceiver receiver(manager);
    manager.setVehicleType(QStringLiteral("rc_helicopter"));
    QVERIFY(openAndSync(manager));
    QCOMPARE(manager.caps().firmware, QStringLiteral("4.4.3"));
    receiver.received.clear();

    // Chosen while a helicopter profile is active: kept, not sent.
    QVERIFY(manager.setDesiredSetting(QStringLiteral("OSD"), 1));
    QVERIFY(manager.setDesiredSetting(QStringLiteral("MOTION"), 1));
    QVERIFY(manager.setDesiredSetting(QStringLiteral("IMU"), 0)); // already so
    QVERIFY(manager.setDesiredSetting(QStringLiteral("GPS_RATE"), 5));
    QVERIFY(manager.setDesiredSetting(QStringLiteral("GPS_ON"), 1));
    QVERIFY(!manager.setDesiredSetting(QStringLiteral("LED"), 1));
    QVERIFY(!manager.setDesiredSetting(QStringLiteral("OSD"), 2));
    QVERIFY(!manager.setDesiredSetting(QStringLiteral("GPS_RATE"), 3));
    QVERIFY(!manager.applySettings());
    QVERIFY(receiver.received.isEmpty());

    manager.setVehicleType(QStringLiteral("rc_car")); // applies what waited
    QVERIFY(receiver.received.size() <= 1);           // the rest waits for the command ticks
    QTRY_COMPARE_WITH_TIMEOUT(manager.usbState(), Manager::UsbState::Synced, 20000);
    QCOMPARE(receiver.received,
             QStringList({QStringLiteral("SET_GPS 1"), QStringLiteral("GPS_RATE 5"),
                          QStringLiteral("SET_MOTION_TELEM 1"), QStringLiteral("SET_OSD 1"),
                          QStringLiteral("GET_TELEM"), QStringLiteral("GET_OSD")}));
    QCOMPARE(manager.reportedSettings(), receiver.settings);
    QCOMPARE(manager.statusText(), QStringLiteral("Connected · firmware 4.4.3 · settings applied"));
}

void TestReceiverConfigManager::unansweredQueryMarksAnOlderReceiver()
{
    Manager manager(nullptr, shortTimings());
    ConsoleReceiver receiver(manager);
    receiver.silent = true;
    manager.setUsbOpen(true);
    QTRY_COMPARE_WITH_TIMEOUT(manager.usbState(), Manager::UsbState::NoReply, 20000);
    QCOMPARE(manager.statusText(),
             QStringLiteral("Connected · no reply to settings commands (older receiver?)"));
}

void TestReceiverConfigManager::mountingStep_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("answer"); // empty: none
    QTest::addColumn<Manager::Mounting>("state");
    QTest::addColumn<QString>("text");

    QTest::newRow("level read") << 0 << "IMU_ORIENT_FLAT_OK" << Manager::Mounting::NeedNoseUp
                                << "Level read. Now lift the FRONT of the car about 30° and hold it.";
    QTest::newRow("mounting saved") << 1 << "IMU_ORIENT_OK" << Manager::Mounting::Saved
                                    << "Mounting saved. Put the car down and keep it still for a second.";
    QTest::newRow("refused with a reason")
        << 1 << "IMU_ORIENT_ERR (tilt not detected)" << Manager::Mounting::Failed
        << "No tilt seen: lift the front more (about 30°) and try again.";
    QTest::newRow("no answer") << 0 << "" << Manager::Mounting::Failed
                               << "No answer from the receiver. Try again.";
}

void TestReceiverConfigManager::mountingStep()
{
    QFETCH(int, step);
    QFETCH(QString, answer);
    QFETCH(Manager::Mounting, state);
    QFETCH(QString, text);

    Manager manager(nullptr, shortTimings());
    ConsoleReceiver receiver(manager);
    receiver.answers.insert(
        step == 0 ? QStringLiteral("IMU_ORIENT FLAT") : QStringLiteral("IMU_ORIENT NOSEUP"), answer);
    receiver.answers.insert(QStringLiteral("GET_IMU_AXES"), QStringLiteral("IMU_AXES: X- Y+ Z+"));
    QVERIFY(!manager.detectMountingStep(step)); // no receiver yet
    QVERIFY(openAndSync(manager));

    QVERIFY(manager.detectMountingStep(step));
    QVERIFY(!manager.detectMountingStep(step)); // one step at a time
    QTRY_COMPARE_WITH_TIMEOUT(manager.mounting(), state, 20000);
    QCOMPARE(manager.mountingText(), text);
    if (state == Manager::Mounting::Saved)
        QTRY_COMPARE_WITH_TIMEOUT(manager.imuAxes(), QStringLiteral("X- Y+ Z+"), 20000);
}

void TestReceiverConfigManager::gyroCalibrationOverUsb_data()
{
    QTest::addColumn<QString>("answer"); // empty: none
    QTest::addColumn<Manager::GyroCal>("state");
    QTest::addColumn<QString>("text");

    QTest::newRow("calibrated") << "IMU_CAL_OK" << Manager::GyroCal::Done
                                << "Gyro calibrated, yaw reset to 0";
    QTest::newRow("refused with a reason")
        << "IMU_CAL_ERR (moving)" << Manager::GyroCal::Failed << "The receiver says: moving";
    QTest::newRow("refused") << "IMU_CAL_ERR" << Manager::GyroCal::Failed
                             << "The receiver did not calibrate.";
    QTest::newRow("no answer") << "" << Manager::GyroCal::Failed << "No answer from the receiver. Try again.";
}

void TestReceiverConfigManager::gyroCalibrationOverUsb()
{
    QFETCH(QString, answer);
    QFETCH(Manager::GyroCal, state);
    QFETCH(QString, text);

    Manager manager(nullptr, shortTimings());
    ConsoleReceiver receiver(manager);
    receiver.answers.insert(QStringLiteral("IMU_CAL"), answer);
    QVERIFY(openAndSync(manager));

    QVERIFY(manager.calibrateGyro());
    QCOMPARE(manager.gyroCalText(), QStringLiteral("Calibrating: keep the car still…"));
    QVERIFY(!manager.calibrateGyro());
    QTRY_VERIFY_WITH_TIMEOUT(manager.gyroCal() != Manager::GyroCal::Running, 20000);
    QCOMPARE(manager.gyroCal(), state);
    QCOMPARE(manager.gyroCalText(), text);
    QCOMPARE(receiver.received.count(QStringLiteral("IMU_CAL")), 1);
}

void TestReceiverConfigManager::gyroCalibrationOverElrs_data()
{
    QTest::addColumn<QList<int>>("statuses"); // after the start, per read-back; empty: no answer
    QTest::addColumn<bool>("loseLink");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lastWrite");

    const QString done = QStringLiteral("Gyro calibrated, yaw reset to 0");
    QTest::newRow("done at once") << QList<int>{0} << false << done << 1;
    QTest::newRow("done after running") << QList<int>{2, 2, 0} << false << done << 6;
    QTest::newRow("still running at the limit")
        << QList<int>{2} << false << "Not finished: the car must stand still. Try again." << 5;
    QTest::newRow("refused with a text") << QList<int>{3} << false << "The receiver says: car moved" << 1;
    QTest::newRow("no answer") << QList<int>{} << false << "No answer from the receiver. Try again." << 1;
    QTest::newRow("radio link lost") << QList<int>{2} << true << "Lost the receiver during calibration." << 1;
}

void TestReceiverConfigManager::gyroCalibrationOverElrs()
{
    QFETCH(QList<int>, statuses);
    QFETCH(bool, loseLink);
    QFETCH(QString, text);
    QFETCH(int, lastWrite);

    RadioReceiver car;
    ReceiverLinkTimings linkTimings;
    linkTimings.readTimeout = milliseconds(500);
    linkTimings.silenceLimit = milliseconds(600000);
    car.link = new ReceiverElrsLink(nullptr, linkTimings, &car);
    car.statusesAfterStart = statuses;
    car.commandText = QStringLiteral("car moved");
    Manager manager(car.link, shortTimings());
    QVERIFY(!manager.calibrateGyro()); // nothing reaches the receiver yet

    car.link->setEnabled(true);
    car.link->setTransmitterRunning(true);
    QTRY_COMPARE_WITH_TIMEOUT(car.link->state(), ReceiverElrsLink::State::Ready, 20000);
    QVERIFY(manager.isOverElrs());
    car.silent = statuses.isEmpty();
    QVERIFY(manager.calibrateGyro());
    QCOMPARE(manager.gyroCalText(), QStringLiteral("Starting over ELRS…"));
    if (loseLink)
        car.link->setEnabled(false);

    QTRY_VERIFY_WITH_TIMEOUT(manager.gyroCal() != Manager::GyroCal::Running, 20000);
    QCOMPARE(manager.gyroCalText(), text);
    QTRY_COMPARE_WITH_TIMEOUT(car.commandWrites.value(car.commandWrites.size() - 1), lastWrite, 20000);
    QCOMPARE(car.commandWrites.first(), 1);
}

void TestReceiverConfigManager::silentTelemetryRereadsTheSettingsOverElrs()
{
    RadioReceiver car;
    car.link = new ReceiverElrsLink(nullptr, {}, &car);
    ReceiverConfigTimings t = shortTimings();
    t.elrsRefreshInterval = milliseconds(50);
    t.elrsTelemetrySilence = milliseconds(100);
    Manager manager(car.link, t);
    car.link->setEnabled(true);
    car.link->setTransmitterRunning(true);
    QTRY_COMPARE_WITH_TIMEOUT(car.link->state(), ReceiverElrsLink::State::Ready, 20000);
    const int firstRead = car.reads;

    QTRY_VERIFY_WITH_TIMEOUT(car.reads >= 2 * firstRead, 20000);
    QTRY_COMPARE_WITH_TIMEOUT(manager.statusText(),
                              QStringLiteral("Connected over ELRS · firmware 4.4.3 · settings applied"),
                              20000);
}

void TestReceiverConfigManager::consoleRefusesBootLoaderAndEmptyLines_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("sent"); // empty: refused

    QTest::newRow("command") << " HELP "
                             << "HELP";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("blank") << " \t "
                           << "";
    QTest::newRow("boot loader") << "DFU"
                                 << "";
    QTest::newRow("boot loader, lower case, padded") << " dfu\n"
                                                     << "";
    QTest::newRow("boot loader with an argument") << "Dfu now"
                                                  << "";
}

void TestReceiverConfigManager::consoleRefusesBootLoaderAndEmptyLines()
{
    QFETCH(QString, typed);
    QFETCH(QString, sent);

    Manager manager(nullptr, shortTimings());
    ConsoleReceiver receiver(manager);
    QVERIFY(openAndSync(manager));
    receiver.received.clear();

    QCOMPARE(manager.sendConsoleCommand(typed), !sent.isEmpty());
    if (sent.isEmpty())
        QVERIFY(receiver.received.isEmpty() && manager.pendingCommands().isEmpty());
    else
        QTRY_COMPARE_WITH_TIMEOUT(receiver.received, QStringList{sent}, 20000);
}

QTEST_GUILESS_MAIN(TestReceiverConfigManager)
#include "tst_receiverconfigmanager.moc"
