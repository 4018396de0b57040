#include "inputdevice.h"
#include "virtualbackend.h"
#include "virtualrig.h"

#include <QSignalSpy>
#include <QTest>

using namespace tavrix;
using tavrix::testing::rawFor;
using tavrix::testing::VirtualRig;

class TestInputDevice : public QObject
{
    Q_OBJECT

private slots:
    void untouchedAxisReadsReleasedUntilItMoves_data()
    {
        QTest::addColumn<QList<double>>("values");
        QTest::addColumn<QList<float>>("reads");
        // Normalised values before the 2% device deadzone; 0.1 after it is 0.1196 before.
        QTest::newRow("deadzone edge, then beyond")
            << QList<double>{0.5, 0.019974, 0.020066, 1.0} << QList<float>{0.489804f, 0, 0.0000678f, 1};
        QTest::newRow("mid-range pedal never touched")
            << QList<double>{0.0, 0.0, 0.05} << QList<float>{-1, -1, -1};
        QTest::newRow("just under the threshold stays released") << QList<double>{0.115} << QList<float>{-1};
        QTest::newRow("moves beyond 0.1 then back")
            << QList<double>{0.0, 0.5, 0.0} << QList<float>{-1, 0.489804f, 0};
        QTest::newRow("negative move activates too")
            << QList<double>{-0.6, -1.0} << QList<float>{-0.591837f, -1};
    }

    void untouchedAxisReadsReleasedUntilItMoves()
    {
        QFETCH(QList<double>, values);
        QFETCH(QList<float>, reads);
        VirtualRig rig;
        QVERIFY(rig.open());
        for (qsizetype i = 0; i < values.size(); ++i) {
            rig.setAxis(SlotRy, values[i]);
            rig.device.poll();
            QVERIFY2(qAbs(rig.device.axis(SlotRy) - reads[i]) < 2e-5f, qPrintable(QString::number(i)));
        }
    }

    void closeResetsReadingsButKeepsActivationUntilANewObject()
    {
        VirtualRig rig;
        QVERIFY(rig.open());
        rig.backend.setButton(rig.id, 5, true);
        rig.backend.setPov(rig.id, 0, 9000);
        rig.setAxis(SlotRz, 0.8);
        rig.pollTimes(4);
        QVERIFY(rig.device.button(5));
        QCOMPARE(rig.device.pov(0), 90);
        rig.device.close();
        QVERIFY(!rig.device.button(5));
        QCOMPARE(rig.device.pov(0), -1);
        QCOMPARE(rig.device.axis(SlotRz), 0.0f); // active, reset to centre
        QCOMPARE(rig.device.preset(), AxisPreset{});
        // Reopened under another preset the axis is still known to work; a new object starts afresh.
        QVERIFY(rig.open());
        rig.device.applyPreset(presetByName(presets::thrustmaster));
        QVERIFY(rig.device.isAxisActive(SlotRz));
        rig.setAxis(SlotRz, 0.0);
        InputDevice fresh(&rig.backend);
        QVERIFY(fresh.open(0));
        fresh.poll();
        QVERIFY(!fresh.isAxisActive(SlotRz));
        QCOMPARE(fresh.axis(SlotRz), -1.0f);
    }

    void debouncesButtonsOverFourPolls_data()
    {
        QTest::addColumn<QString>("raw");       // one character per poll: 1 down, 0 up
        QTest::addColumn<QString>("debounced"); // expected debounced state after each poll
        QTest::newRow("press held four polls") << QStringLiteral("1111") << QStringLiteral("0001");
        QTest::newRow("flicker of three polls never counts")
            << QStringLiteral("1110000") << QStringLiteral("0000000");
        QTest::newRow("interrupted press restarts the count")
            << QStringLiteral("1101111") << QStringLiteral("0000001");
        QTest::newRow("release needs four polls too")
            << QStringLiteral("111100010000") << QStringLiteral("000111111110");
        QTest::newRow("single-poll drop while held is ignored")
            << QStringLiteral("1111011111") << QStringLiteral("0001111111");
    }

    void debouncesButtonsOverFourPolls()
    {
        QFETCH(QString, raw);
        QFETCH(QString, debounced);
        VirtualRig rig;
        QVERIFY(rig.open());
        for (qsizetype i = 0; i < raw.size(); ++i) {
            rig.backend.setButton(rig.id, 127, raw[i] == QLatin1Char('1'));
            rig.device.poll();
            const bool expected = debounced[i] == QLatin1Char('1');
            QVERIFY2(rig.device.button(127) == expected, qPrintable(QStringLiteral("poll %1").arg(i + 1)));
            QCOMPARE(rig.device.isPressed(127), expected);
        }
    }

    void readsHatDirectionsWithInclusiveOverlaps_data()
    {
        QTest::addColumn<int>("hat");
        QTest::addColumn<quint32>("raw");
        QTest::addColumn<int>("degrees");
        QTest::addColumn<QString>("pressed"); // u r d l
        QTest::newRow("centred") << 0 << 0xFFFFFFFFu << -1 << QString();
        QTest::newRow("low word FFFF is centred") << 0 << 0x0001FFFFu << -1 << QString();
        QTest::newRow("up") << 0 << 0u << 0 << QStringLiteral("u");
        QTest::newRow("45 presses up and right") << 0 << 4500u << 45 << QStringLiteral("ur");
        QTest::newRow("45.99 truncates to 45") << 0 << 4599u << 45 << QStringLiteral("ur");
        QTest::newRow("46 is right only") << 0 << 4600u << 46 << QStringLiteral("r");
        QTest::newRow("135 right and down") << 1 << 13500u << 135 << QStringLiteral("rd");
        QTest::newRow("225 down and left") << 2 << 22500u << 225 << QStringLiteral("dl");
        QTest::newRow("315 left and up") << 3 << 31500u << 315 << QStringLiteral("ul");
        QTest::newRow("359 up") << 3 << 35999u << 359 << QStringLiteral("u");
    }

    void readsHatDirectionsWithInclusiveOverlaps()
    {
        QFETCH(int, hat);
        QFETCH(quint32, raw);
        QFETCH(int, degrees);
        QFETCH(QString, pressed);
        VirtualRig rig;
        QVERIFY(rig.open());
        RawInputState state;
        state.povs[size_t(hat)] = raw;
        rig.backend.setState(rig.id, state);
        rig.device.poll();
        QCOMPARE(rig.device.pov(hat), degrees);
        const QString directions = QStringLiteral("urdl");
        for (int hatIndex = 0; hatIndex < 4; ++hatIndex) {
            for (int dir = 0; dir < 4; ++dir) {
                const bool expected = hatIndex == hat && pressed.contains(directions[dir]);
                QVERIFY2(
                    rig.device.isPressed(128 + hatIndex * 4 + dir) == expected,
                    qPrintable(QStringLiteral("hat %1 direction %2").arg(hatIndex).arg(directions[dir])));
            }
        }
        QCOMPARE(rig.device.pov(-1), -1);
        QCOMPARE(rig.device.pov(4), -1);
    }

    void restDetectionAndAxisHalfButtons_data()
    {
        QTest::addColumn<QList<double>>("values"); // normalised values before the deadzone, one per poll
        QTest::addColumn<bool>("restsAtCentre");
        QTest::addColumn<bool>("positivePressed");
        QTest::addColumn<bool>("negativePressed");

        auto repeat = [](double v, int n) { return QList<double>(n, v); };
        QTest::newRow("stick centred 15 polls then pushed")
            << repeat(0.0, 15) + QList<double>{0.8} << true << true << false;
        QTest::newRow("stick centred 15 polls then pulled")
            << repeat(0.0, 15) + QList<double>{-0.7} << true << false << true;
        QTest::newRow("14 still polls do not classify")
            << repeat(0.0, 14) + QList<double>{0.8} << false << false << false;
        QTest::newRow("pedal held at its end is not centred") << repeat(1.0, 20) << false << false << false;
        QTest::newRow("centred, then held at the end")
            << repeat(0.0, 15) + repeat(0.95, 16) << false << false << false;
        QTest::newRow("slow drift under 0.05 per poll still counts as still")
            << QList<double>{0.0,  0.04, 0.08, 0.12, 0.16, 0.2,  0.24, 0.28,
                             0.24, 0.2,  0.16, 0.12, 0.08, 0.04, 0.0}
            << true << false << false;
        QTest::newRow("a jump restarts the count")
            << repeat(0.0, 10) + QList<double>{0.5} + repeat(0.0, 10) + QList<double>{0.6} << false << false
            << false;
    }

    void restDetectionAndAxisHalfButtons()
    {
        QFETCH(QList<double>, values);
        QFETCH(bool, restsAtCentre);
        QFETCH(bool, positivePressed);
        QFETCH(bool, negativePressed);
        VirtualRig rig;
        QVERIFY(rig.open());
        // Slot lZ (5), made active as a steering slot so the first still poll already counts.
        rig.device.applyPreset(
            AxisPreset{{SlotZ, kUnmappedSlot, kUnmappedSlot, kUnmappedSlot}, {}, QString(), false, 0.0f});
        QVERIFY(rig.device.isAxisActive(SlotZ));
        for (double v : values) {
            rig.setAxis(SlotZ, v);
            rig.device.poll();
        }
        QCOMPARE(rig.device.axisRestsAtCentre(SlotZ), restsAtCentre);
        QCOMPARE(rig.device.isPressed(144 + 2 * SlotZ), positivePressed);
        QCOMPARE(rig.device.isPressed(144 + 2 * SlotZ + 1), negativePressed);
    }

    void unifiedIndexesOutsideTheRangesAreNeverPressed()
    {
        VirtualRig rig;
        QVERIFY(rig.open());
        // Everything that can be pressed is pressed: all buttons, every hat at a diagonal,
        // every axis centred first and then pushed.
        RawInputState state;
        for (auto &b : state.buttons)
            b = 0x80;
        state.povs.fill(4500);
        rig.pollTimes(20);
        for (int slot = 0; slot < AxisSlotCount; ++slot)
            rig.device.applyPreset(AxisPreset{{slot, 255, 255, 255}, {}, QString(), false, 0.0f});
        rig.pollTimes(20);
        for (auto &a : state.axes)
            a = 65535;
        rig.backend.setState(rig.id, state);
        rig.pollTimes(4);
        QVERIFY(rig.device.isPressed(0));
        QVERIFY(rig.device.isPressed(159 - 1)); // slot 7 positive half
        QVERIFY(!rig.device.isPressed(-1));
        QVERIFY(!rig.device.isPressed(160));
    }

    void openAndCloseReportByTheirSignalsAndRefusalsChangeNothing()
    {
        VirtualBackend backend;
        const int pedals = backend.addDevice(
            {QStringLiteral("Pedals"), QStringLiteral("Fanatec CSL Pedals"), 3, 8, 0, false});
        const int wheel =
            backend.addDevice({QStringLiteral("Wheel"), QStringLiteral("Logitech G923"), 3, 25, 1, true});
        InputDevice device(&backend);
        QSignalSpy connected(&device, &InputDevice::connectedChanged);
        QSignalSpy named(&device, &InputDevice::deviceNameChanged);

        QVERIFY(device.open(1));
        QCOMPARE(connected.count(), 1);
        QCOMPARE(connected.takeFirst().at(0).toBool(), true);
        QCOMPARE(named.takeFirst().at(0).toString(), QStringLiteral("Wheel"));
        QCOMPARE(device.productName(), QStringLiteral("Logitech G923"));
        QCOMPARE(device.deviceIndex(), 1);

        // Reopening another device closes the first one in between.
        QVERIFY(device.open(0));
        QCOMPARE(connected.count(), 2);
        QCOMPARE(connected.at(0).at(0).toBool(), false);
        QCOMPARE(connected.at(1).at(0).toBool(), true);
        QCOMPARE(named.at(0).at(0).toString(), QString());
        QCOMPARE(named.at(1).at(0).toString(), QStringLiteral("Pedals"));
        connected.clear();
        named.clear();

        // Opening what is not there leaves the open device, its readings and signals alone.
        backend.setButton(pedals, 3, true);
        for (int poll = 0; poll < 4; ++poll)
            device.poll();
        QVERIFY(!device.open(2));
        QVERIFY(!device.open(-1));
        QVERIFY(!device.lastOpenError().isEmpty());
        QVERIFY(device.isConnected());
        QCOMPARE(device.deviceName(), QStringLiteral("Pedals"));
        QCOMPARE(device.deviceIndex(), 0);
        QVERIFY(device.button(3));
        QCOMPARE(connected.count() + named.count(), 0);

        device.close();
        QCOMPARE(connected.count(), 1);
        QCOMPARE(named.count(), 1);
        QVERIFY(!device.isOpen());
        QVERIFY(!device.isConnected());
        QCOMPARE(device.deviceName(), QString());
        device.close(); // closing a closed device says nothing
        QCOMPARE(connected.count(), 1);

        // The backend's own refusal is passed on, and nothing opens.
        backend.setOpenRefusal(wheel, QStringLiteral("device is busy"));
        QVERIFY(!device.open(1));
        QCOMPARE(device.lastOpenError(), QStringLiteral("device is busy"));
        QVERIFY(!device.isOpen());
        QCOMPARE(connected.count(), 1);
        device.poll(); // nothing open: nothing happens
    }

    void lossIsReportedAndRecoveredInsidePoll()
    {
        VirtualRig rig;
        QVERIFY(rig.open());
        QSignalSpy lost(&rig.device, &InputDevice::deviceDisconnected);
        QSignalSpy changed(&rig.device, &InputDevice::stateChanged);
        rig.device.poll();
        QCOMPARE(changed.count(), 1);

        rig.backend.setLost(rig.id, true);
        rig.device.poll();
        rig.device.poll();
        QCOMPARE(lost.count(), 2); // once per failing poll
        QCOMPARE(changed.count(), 1);
        QVERIFY(!rig.device.isConnected());
        QVERIFY(rig.device.isOpen());

        rig.backend.setLost(rig.id, false);
        rig.device.poll();
        QVERIFY(rig.device.isConnected());
        QCOMPARE(changed.count(), 2);

        rig.backend.removeDevice(rig.id); // unplugged for good
        rig.device.poll();
        QCOMPARE(lost.count(), 3);
        QCOMPARE(InputDevice::enumerateDevices(rig.backend).size(), 0);
    }
};

QTEST_GUILESS_MAIN(TestInputDevice)
#include "tst_inputdevice.moc"
