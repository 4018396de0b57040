// The evdev backend's pure conversions: axis ranges, hats, classification of
// devices, the slot layout rule with its overrides, sysfs bitmaps and identities.

#include "deviceguid.h"
#include "evdevmapping.h"

#include <QtTest>

using namespace tavrix;
using namespace tavrix::evdev;

namespace {

DeviceCapabilities capabilities(std::initializer_list<int> events, std::initializer_list<int> axes,
                                std::initializer_list<int> keys, std::initializer_list<int> properties = {})
{
    DeviceCapabilities caps;
    for (int e : events)
        caps.events.set(static_cast<size_t>(e));
    for (int a : axes)
        caps.axes.set(static_cast<size_t>(a));
    for (int k : keys)
        caps.keys.set(static_cast<size_t>(k));
    for (int p : properties)
        caps.properties.set(static_cast<size_t>(p));
    return caps;
}

} // namespace

Q_DECLARE_METATYPE(tavrix::evdev::DeviceCapabilities)

class TestEvdevMapping : public QObject
{
    Q_OBJECT

private slots:
    void scalesAxisRangeTo16Bits_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("expected");
        QTest::newRow("14-bit wheel left stop") << 0 << 0 << 16383 << 0;
        QTest::newRow("14-bit wheel centre rounds to nearest") << 8192 << 0 << 16383 << 32770;
        QTest::newRow("signed range centre") << 0 << -32767 << 32767 << 32768;
        QTest::newRow("below the range clamps") << -5 << 0 << 1023 << 0;
        QTest::newRow("full 32-bit span does not overflow") << 0 << INT32_MIN << INT32_MAX << 32768;
        QTest::newRow("degenerate range reads centred") << 7 << 7 << 7 << 32767;
    }
    void scalesAxisRangeTo16Bits()
    {
        QFETCH(int, value);
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, expected);
        QCOMPARE(scaleAxis(value, minimum, maximum), expected);
    }

    void turnsHatIntoPovAngle_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<uint>("angle");
        QTest::newRow("centred") << 0 << 0 << uint(kRawPovCentred);
        QTest::newRow("up-right") << 1 << -1 << 4500u;
        QTest::newRow("larger magnitudes count as directions") << 5 << -3 << 4500u;
    }
    void turnsHatIntoPovAngle()
    {
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(uint, angle);
        QCOMPARE(povFromHat(x, y), angle);
    }

    void readsHatDirectionAgainstItsRange_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("direction");
        QTest::newRow("-1..1 middle") << 0 << -1 << 1 << 0;
        QTest::newRow("0..2 middle") << 1 << 0 << 2 << 0;
        QTest::newRow("0..2 low") << 0 << 0 << 2 << -1;
        QTest::newRow("0..255 just above middle") << 128 << 0 << 255 << 1;
    }
    void readsHatDirectionAgainstItsRange()
    {
        QFETCH(int, value);
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, direction);
        QCOMPARE(hatDirection(value, minimum, maximum), direction);
    }

    void classifiesJoystickClassDevices_data()
    {
        QTest::addColumn<DeviceCapabilities>("caps");
        QTest::addColumn<bool>("joystick");
        QTest::newRow("wheel") << capabilities({EV_ABS, EV_KEY},
                                               {ABS_X, ABS_Y, ABS_Z, ABS_RZ, ABS_HAT0X, ABS_HAT0Y},
                                               {BTN_TRIGGER, BTN_THUMB})
                               << true;
        QTest::newRow("pedals with X, Y and Z only")
            << capabilities({EV_ABS}, {ABS_X, ABS_Y, ABS_Z}, {}) << true;
        QTest::newRow("shifter with buttons only")
            << capabilities({EV_KEY}, {}, {BTN_TRIGGER, BTN_TRIGGER_HAPPY1, BTN_TRIGGER_HAPPY7}) << true;
        QTest::newRow("keyboard") << capabilities({EV_KEY, EV_LED}, {}, {KEY_A, KEY_ENTER}) << false;
        QTest::newRow("mouse") << capabilities({EV_REL, EV_KEY}, {}, {BTN_LEFT, BTN_RIGHT}) << false;
        QTest::newRow("absolute mouse of a virtual machine")
            << capabilities({EV_ABS, EV_KEY}, {ABS_X, ABS_Y, ABS_WHEEL}, {BTN_LEFT}) << false;
        QTest::newRow("touchpad") << capabilities({EV_ABS, EV_KEY}, {ABS_X, ABS_Y, ABS_PRESSURE},
                                                  {BTN_TOUCH, BTN_TOOL_FINGER}, {INPUT_PROP_POINTER})
                                  << false;
        QTest::newRow("accelerometer of a gamepad")
            << capabilities({EV_ABS}, {ABS_X, ABS_Y, ABS_Z, ABS_RX}, {}, {INPUT_PROP_ACCELEROMETER}) << false;
        QTest::newRow("power button") << capabilities({EV_KEY}, {}, {KEY_POWER}) << false;
    }
    void classifiesJoystickClassDevices()
    {
        QFETCH(DeviceCapabilities, caps);
        QFETCH(bool, joystick);
        QCOMPARE(isJoystickClass(caps), joystick);
    }

    void laysAxesOutOnSlots_data()
    {
        QTest::addColumn<DeviceCapabilities>("caps");
        QTest::addColumn<QList<int>>("slotCodes"); // per slot in slot order, -1 none
        QTest::newRow("G27: X, Y, Z, Rz") << capabilities({EV_ABS}, {ABS_X, ABS_Y, ABS_Z, ABS_RZ}, {})
                                          << QList<int>{ABS_X, -1, -1, ABS_RZ, ABS_Y, ABS_Z, -1, -1};
        QTest::newRow("throttle and rudder become sliders in code order")
            << capabilities({EV_ABS}, {ABS_X, ABS_RUDDER, ABS_THROTTLE}, {})
            << QList<int>{ABS_X, -1, -1, -1, -1, -1, ABS_THROTTLE, ABS_RUDDER};
        QTest::newRow("a third slider axis has no slot")
            << capabilities({EV_ABS}, {ABS_WHEEL, ABS_GAS, ABS_BRAKE}, {})
            << QList<int>{-1, -1, -1, -1, -1, -1, ABS_WHEEL, ABS_GAS};
        QTest::newRow("hats and misc axes take no axis slot")
            << capabilities({EV_ABS}, {ABS_X, ABS_HAT0X, ABS_HAT0Y, ABS_MISC, ABS_PRESSURE}, {})
            << QList<int>{ABS_X, -1, -1, -1, -1, -1, -1, -1};
    }
    void laysAxesOutOnSlots()
    {
        QFETCH(DeviceCapabilities, caps);
        QFETCH(QList<int>, slotCodes);
        const DeviceLayout layout = layoutDevice(caps);
        QCOMPARE(QList<int>(layout.slotCode.begin(), layout.slotCode.end()), slotCodes);
    }

    void overrideMovesAxesAndDisplacedOnesBecomeSliders()
    {
        SlotOverride swap;
        swap.moves = {{ABS_Y, SlotZ}, {ABS_RZ, SlotRz}};
        const DeviceCapabilities caps = capabilities({EV_ABS}, {ABS_X, ABS_Y, ABS_Z, ABS_RZ}, {});
        const DeviceLayout layout = layoutDevice(caps, &swap);
        QCOMPARE(layout.slotCode[SlotX], ABS_X);
        QCOMPARE(layout.slotCode[SlotZ], ABS_Y);
        QCOMPARE(layout.slotCode[SlotRz], ABS_RZ);
        QCOMPARE(layout.slotCode[SlotY], -1);
        // ABS_Z lost its own slot to the override and is still reachable.
        QCOMPARE(layout.slotCode[SlotSlider0], ABS_Z);

        // A move of an axis the device lacks changes nothing.
        SlotOverride absent;
        absent.moves = {{ABS_RZ, SlotY}};
        QCOMPARE(layoutDevice(capabilities({EV_ABS}, {ABS_X, ABS_Y}, {}), &absent).slotCode[SlotY], ABS_Y);
    }

    void numbersButtonsAndHatsInCodeOrder()
    {
        const DeviceCapabilities caps = capabilities(
            {EV_KEY}, {},
            {BTN_TRIGGER_HAPPY2, BTN_DEAD, BTN_TRIGGER, BTN_SOUTH, KEY_A, BTN_LEFT, BTN_DPAD_UP});
        const DeviceLayout layout = layoutDevice(caps);
        QCOMPARE(layout.buttonCodes,
                 (std::vector<int>{BTN_TRIGGER, BTN_DEAD, BTN_SOUTH, BTN_TRIGGER_HAPPY2}));

        // All joystick and trigger-happy codes: 96 buttons, the last code last.
        DeviceCapabilities all;
        for (int code = BTN_JOYSTICK; code < BTN_JOYSTICK + 32; ++code)
            all.keys.set(static_cast<size_t>(code));
        for (int code = BTN_TRIGGER_HAPPY; code <= KEY_MAX; ++code)
            all.keys.set(static_cast<size_t>(code));
        const DeviceLayout full = layoutDevice(all);
        QCOMPARE(full.buttonCodes.size(), size_t(32 + 64));
        QCOMPARE(full.buttonCodes.back(), KEY_MAX);

        // Hats are POVs in code order, from either axis of their pair.
        const DeviceLayout hats = layoutDevice(capabilities({EV_ABS}, {ABS_HAT0X, ABS_HAT0Y, ABS_HAT2Y}, {}));
        QCOMPARE(hats.povHat[0], 0);
        QCOMPARE(hats.povHat[1], 2);
        QCOMPARE(hats.povHat[2], -1);
    }

    void parsesSysfsBitmaps_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("wordBits");
        QTest::addColumn<QList<int>>("bits");
        QTest::newRow("single word") << QStringLiteral("1b\n") << 64 << QList<int>{0, 1, 3, 4};
        QTest::newRow("words most significant first")
            << QStringLiteral("30000 0 3") << 64 << QList<int>{0, 1, 144, 145};
        QTest::newRow("bits beyond the count are dropped")
            << QStringLiteral("1 0 0 0 0") << 64 << QList<int>{};
        QTest::newRow("garbage gives nothing") << QStringLiteral("12 zz") << 64 << QList<int>{};
    }
    void parsesSysfsBitmaps()
    {
        QFETCH(QString, text);
        QFETCH(int, wordBits);
        QFETCH(QList<int>, bits);
        const std::vector<int> parsed = parseSysfsBitmap(text.toStdString(), 256, wordBits);
        QCOMPARE(QList<int>(parsed.begin(), parsed.end()), bits);
    }

    void guidsAreDirectInputsAndStablePerPort()
    {
        const DeviceIdentity a{
            BUS_USB, 0x046d, 0xc29b, 0x111, "G27 Racing Wheel", "usb-0000:00:14.0-2/input0", {}};
        DeviceIdentity sameWheelRenamed = a;
        sameWheelRenamed.name = "other name";
        DeviceIdentity otherPort = a;
        otherPort.physicalPath = "usb-0000:00:14.0-3/input0";
        DeviceIdentity otherVersion = a;
        otherVersion.version = 0x112;

        QCOMPARE(instanceGuid(a), instanceGuid(sameWheelRenamed));
        QVERIFY(instanceGuid(a) != instanceGuid(otherPort));
        QVERIFY(instanceGuid(a) != instanceGuid(otherVersion));
        QVERIFY(instanceGuid(a) != productGuid(a.vendor, a.product));
        // The product GUID is DirectInput's.
        QCOMPARE(guidToString(productGuid(0x046d, 0xc29b)),
                 QStringLiteral("{C29B046D-0000-0000-0000-504944564944}"));
        QCOMPARE(guidToString(productGuid(0x044f, 0xb66e)),
                 QStringLiteral("{B66E044F-0000-0000-0000-504944564944}"));
    }
};

QTEST_GUILESS_MAIN(TestEvdevMapping)
#include "tst_evdevmapping.moc"
