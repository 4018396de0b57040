#include "axispreset.h"
#include "inputdevice.h"
#include "savedaxismapping.h"
#include "virtualrig.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QTest>

using namespace tavrix;
using tavrix::testing::rawFor;
using tavrix::testing::VirtualRig;

namespace {
const QString kPs3Wheel = QStringLiteral("Logitech G29 Driving Force Racing Wheel PS3");
const QString kCheckWarning =
    QStringLiteral("InputDevice: combinedPedals disabled — axis 4 rests at -1 but preset "
                   "declares center 0 (preset likely misapplied)");
} // namespace

class TestAxisMapping : public QObject
{
    Q_OBJECT

private slots:
    void detectsPresetFromProductName_data()
    {
        QTest::addColumn<QString>("product");
        QTest::addColumn<QString>("preset");
        // One row per rule: model names without the maker, the PS3 variant, the blank after
        // "tx", and which maker wins when a name carries two.
        QTest::newRow("G27") << QStringLiteral("G27 Racing Wheel") << presets::logitech;
        QTest::newRow("g29 and ps3 in lower case")
            << QStringLiteral("g29 wheel (ps3)") << presets::logitechPs;
        QTest::newRow("MOMO without maker") << QStringLiteral("MOMO Racing") << presets::generic;
        QTest::newRow("TX with blank") << QStringLiteral("TX Racing Wheel") << presets::thrustmaster;
        QTest::newRow("tx without blank") << QStringLiteral("STX-Wheel") << presets::generic;
        QTest::newRow("moza beats logitech")
            << QStringLiteral("Moza adapter for Logitech pedals") << presets::mozaFanatec;
        QTest::newRow("logitech beats thrustmaster")
            << QStringLiteral("Logitech T300 clone") << presets::logitech;
        QTest::newRow("empty") << QString() << presets::generic;
    }

    void detectsPresetFromProductName()
    {
        QFETCH(QString, product);
        QFETCH(QString, preset);
        QCOMPARE(detectPreset(product).name, preset);
    }

    void presetJsonRoundTrip()
    {
        AxisPreset preset = presetByName(presets::thrustmaster);
        preset.combinedPedalsCenter = -0.25f;
        QCOMPARE(AxisPreset::fromJson(preset.toJson()), preset);
        // Short or mistyped arrays keep the blank record's entries.
        const AxisPreset partial =
            AxisPreset::fromJson(QJsonObject{{QStringLiteral("map"), QJsonArray{7, QStringLiteral("x")}},
                                             {QStringLiteral("inverted"), QJsonArray{true}}});
        QCOMPARE(partial.axisSlots, (std::array<int, 4>{7, 1, 2, 3}));
        QCOMPARE(partial.inverted, (std::array<bool, 4>{true, false, false, false}));
    }

    void logicalValueFollowsPreset_data()
    {
        QTest::addColumn<QString>("presetName");
        QTest::addColumn<int>("index");
        QTest::addColumn<float>("expected");
        // Raw slot values of the rig below: lX 0.5, lRx 0.2, lRy -0.3, lRz 0.4, lY 0.6, lZ -0.8, Slider0 0.9,
        // Slider1 -0.5 (before the device deadzone; the expectations are after it).
        QTest::newRow("MOZA steering lX") << presets::mozaFanatec << 0 << 0.4898f;
        QTest::newRow("MOZA clutch lRz") << presets::mozaFanatec << 3 << 0.3878f;
        QTest::newRow("Logitech throttle lZ inverted") << presets::logitech << 1 << 0.7959f;
        QTest::newRow("Logitech brake lRz inverted") << presets::logitech << 2 << -0.3878f;
        QTest::newRow("Thrustmaster clutch Slider0 inverted") << presets::thrustmaster << 3 << -0.8980f;
        QTest::newRow("PS3 clutch unmapped reads 0") << presets::logitechPs << 3 << 0.0f;
        QTest::newRow("index 7 is slot Slider1") << presets::logitech << 7 << -0.4898f;
        QTest::newRow("index 8 reads 0") << presets::logitech << 8 << 0.0f;
        QTest::newRow("index -1 reads 0") << presets::logitech << -1 << 0.0f;
    }

    void logicalValueFollowsPreset()
    {
        QFETCH(QString, presetName);
        QFETCH(int, index);
        QFETCH(float, expected);
        VirtualRig rig;
        QVERIFY(rig.open());
        const std::array<double, 8> values{0.5, 0.2, -0.3, 0.4, 0.6, -0.8, 0.9, -0.5};
        for (int slot = 0; slot < AxisSlotCount; ++slot) {
            rig.setAxis(slot, 1.0); // touch every axis once so none reads "never pressed"
        }
        rig.device.poll();
        for (int slot = 0; slot < AxisSlotCount; ++slot)
            rig.setAxis(slot, values[size_t(slot)]);
        rig.device.poll();
        rig.device.applyPreset(presetByName(presetName));
        QVERIFY2(qAbs(rig.device.logicalValue(index) - expected) < 1e-3f,
                 qPrintable(QString::number(rig.device.logicalValue(index))));
    }

    void combinedPedalsSplitTheSharedAxis_data()
    {
        QTest::addColumn<float>("centre");
        QTest::addColumn<bool>("throttleInverted");
        QTest::addColumn<bool>("brakeInverted");
        QTest::addColumn<qint32>("raw");
        QTest::addColumn<float>("throttle");
        QTest::addColumn<float>("brake");
        QTest::newRow("at rest both released") << 0.0f << false << false << 32767 << -1.0f << -1.0f;
        QTest::newRow("full brake") << 0.0f << false << false << 0 << -1.0f << 1.0f;
        QTest::newRow("throttle inversion swaps the sides")
            << 0.0f << true << false << 65535 << -1.0f << 1.0f;
        QTest::newRow("brake inversion is ignored") << 0.0f << false << true << 0 << -1.0f << 1.0f;
        QTest::newRow("off-centre rest, at rest")
            << -0.5f << false << false << rawFor(-0.51) << -1.0f << -1.0f;
        QTest::newRow("off-centre rest, half brake")
            << -0.5f << false << false << rawFor(-0.755) << -1.0f << 0.0f;
        QTest::newRow("centre clamped to 0.95") << 1.0f << false << false << 65535 << 1.0f << -1.0f;
    }

    void combinedPedalsSplitTheSharedAxis()
    {
        QFETCH(float, centre);
        QFETCH(bool, throttleInverted);
        QFETCH(bool, brakeInverted);
        QFETCH(qint32, raw);
        QFETCH(float, throttle);
        QFETCH(float, brake);
        VirtualRig rig(kPs3Wheel);
        QVERIFY(rig.open());
        AxisPreset preset = rig.device.preset();
        QCOMPARE(preset.name, presets::logitechPs);
        preset.combinedPedalsCenter = centre;
        preset.inverted[LogicalThrottle] = throttleInverted;
        preset.inverted[LogicalBrake] = brakeInverted;
        rig.device.applyPreset(preset);
        QVERIFY(rig.device.isAxisActive(SlotY)); // combined: the shared axis is live from the start
        rig.backend.setAxis(rig.id, SlotY, raw);
        rig.device.poll();
        QVERIFY2(qAbs(rig.device.throttle() - throttle) < 0.02f,
                 qPrintable(QString::number(rig.device.throttle())));
        QVERIFY2(qAbs(rig.device.brake() - brake) < 0.02f, qPrintable(QString::number(rig.device.brake())));
    }

    void combinedCheckDisablesMisappliedPresetOnThirtiethPoll()
    {
        // Separate pedals under a PS3 preset: the "shared" axis rests at -1 instead of the centre.
        VirtualRig rig(kPs3Wheel);
        QVERIFY(rig.open());
        rig.backend.setAxis(rig.id, SlotY, 0);
        rig.pollTimes(29);
        QVERIFY(rig.device.preset().combinedPedals);
        QCOMPARE(rig.device.brake(), 1.0f); // read as full brake while combined

        QTest::ignoreMessage(QtWarningMsg, qPrintable(kCheckWarning));
        rig.device.poll();
        QVERIFY(!rig.device.preset().combinedPedals);
        QCOMPARE(rig.device.throttle(), -1.0f);
        QCOMPARE(rig.device.brake(), -1.0f);

        // Done for this open: the axis moving later changes nothing, and no second warning comes.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("combinedPedals")));
        rig.backend.setAxis(rig.id, SlotY, 32767);
        rig.pollTimes(40);
        QVERIFY(!rig.device.preset().combinedPedals);

        // Only applying a preset again brings combined mode back, and restarts the check.
        rig.device.applyPreset(presetByName(presets::logitechPs));
        QVERIFY(rig.device.preset().combinedPedals);
        rig.pollTimes(30);
        QVERIFY(rig.device.preset().combinedPedals);
    }

    void combinedCheckKeepsMatchingPreset()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral("combinedPedals")));
        VirtualRig rig(kPs3Wheel);
        QVERIFY(rig.open());
        rig.setAxis(SlotY, 0.4); // within 0.5 of the declared centre
        rig.pollTimes(60);
        QVERIFY(rig.device.preset().combinedPedals);
    }

    void savedMappingRule_data()
    {
        QTest::addColumn<bool>("savedCustom");
        QTest::addColumn<QString>("savedProduct");
        QTest::addColumn<QString>("deviceProduct");
        QTest::addColumn<bool>("usesSaved");
        QTest::newRow("custom mapping for this product")
            << true << QStringLiteral("MOZA R9 Base") << QStringLiteral("MOZA R9 Base") << true;
        QTest::newRow("another product")
            << true << QStringLiteral("MOZA R5 Base") << QStringLiteral("MOZA R9 Base") << false;
        QTest::newRow("no custom mapping saved")
            << false << QStringLiteral("MOZA R9 Base") << QStringLiteral("MOZA R9 Base") << false;
        QTest::newRow("nothing saved yet") << false << QString() << QStringLiteral("MOZA R9 Base") << false;
    }

    void savedMappingRule()
    {
        QFETCH(bool, savedCustom);
        QFETCH(QString, savedProduct);
        QFETCH(QString, deviceProduct);
        QFETCH(bool, usesSaved);
        const AxisMappingRecord saved{
            savedProduct, QStringLiteral("{00000000-0000-0000-0000-000000000001}"), savedCustom,
            AxisPreset{
                {6, 7, 5, kUnmappedSlot}, {true, false, true, false}, QStringLiteral("Mine"), false, 0.0f}};
        const AxisPreset detected = detectPreset(deviceProduct);
        const QString guid = QStringLiteral("{6F1D2B61-D5A0-11CF-BFC7-444553540000}");
        const SavedMappingOutcome outcome = resolveSavedMapping(saved, deviceProduct, guid, detected);
        QCOMPARE(outcome.usedSavedMapping, usesSaved);
        QCOMPARE(outcome.preset, usesSaved ? saved.axisMapping : detected);
        QCOMPARE(outcome.record.productName, deviceProduct);
        QCOMPARE(outcome.record.instanceGuid, guid);
        QCOMPARE(outcome.record.hasCustomAxisMapping, usesSaved);
        QCOMPARE(outcome.record.axisMapping, outcome.preset);
    }

    void savedMappingOnAnOpenDeviceIsWrittenBack()
    {
        VirtualRig rig(QStringLiteral("Thrustmaster T300RS Racing wheel"));
        QVERIFY(rig.open());
        const AxisMappingRecord saved{
            QStringLiteral("Thrustmaster T300RS Racing wheel"), QString(), true,
            AxisPreset{{3, 5, 2, 6}, {false, true, false, false}, QStringLiteral("Custom"), false, 0.0f}};
        const AxisMappingRecord written = applySavedMapping(rig.device, saved);
        QCOMPARE(rig.device.preset(), saved.axisMapping);
        QVERIFY(rig.device.isAxisActive(3)); // the new steering slot is live
        QVERIFY(written.hasCustomAxisMapping);
        QCOMPARE(written.instanceGuid, rig.device.instanceGuidString());

        // Written into the device's connection record, it leaves the other keys alone.
        QJsonObject connection{{QStringLiteral("productName"), QStringLiteral("Old")},
                               {QStringLiteral("devicePath"), QStringLiteral("/dev/input/event3")},
                               {QStringLiteral("vendorId"), 1133}};
        written.writeTo(connection);
        QCOMPARE(connection.value(QStringLiteral("devicePath")).toString(),
                 QStringLiteral("/dev/input/event3"));
        QCOMPARE(connection.value(QStringLiteral("vendorId")).toInt(), 1133);
        QCOMPARE(AxisMappingRecord::fromConnection(connection), written);
    }
};

QTEST_GUILESS_MAIN(TestAxisMapping)
#include "tst_axismapping.moc"
