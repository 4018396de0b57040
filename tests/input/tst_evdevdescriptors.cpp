// Real wheels and joysticks, from their HID report descriptors: the evdev codes the Linux
// kernel gives each one (stored beside it, see devicelayouts.h), laid out by the evdev
// backend, must land on the slots DirectInput gives the same descriptor, so that a
// preset means the same on Linux and Windows. Where a Linux driver rewrites a wheel's
// descriptor, the backend's override table must still put the pedals where the
// preset expects them.

#include "devicelayouts.h"
#include "evdevmapping.h"
#include "hiddescriptor.h"

#include <QtTest>

using namespace tavrix;
using namespace tavrix::evdev;

namespace {

QString devicesDir()
{
    return QStringLiteral(ORVANE_TEST_DATA_DIR "/devices");
}

struct LoadedDevice : hid::StoredDevice
{
    DeviceIdentity identity;
};

bool load(const QString &path, const std::string &driver, LoadedDevice &device, QString &problem)
{
    std::string error;
    if (!hid::loadStoredDevice(path.toStdString(), device, &error)) {
        problem = QString::fromStdString(error);
        return false;
    }
    device.identity.vendor = device.vendor;
    device.identity.product = device.product;
    device.identity.driver = driver;
    return true;
}

hid::ElementRef sourceOf(const hid::DeviceLayouts &layouts, int type, int code)
{
    const hid::KernelCode *entry = layouts.find(type, code);
    return entry ? entry->source : hid::ElementRef{};
}

QString describe(const hid::Descriptor &descriptor, const hid::ElementRef &ref)
{
    if (!ref.valid())
        return QStringLiteral("nothing");
    const hid::Field &field = descriptor.fields[static_cast<size_t>(ref.field)];
    return QStringLiteral("usage %1 (field %2)")
        .arg(field.usageAt(ref.element), 8, 16, QLatin1Char('0'))
        .arg(ref.field);
}

const char *const kSlotNames[] = {"lX", "lRx", "lRy", "lRz", "lY", "lZ", "Slider0", "Slider1"};

// The Linux input layer has 16 joystick and 64 trigger-happy button codes.
constexpr size_t kLinuxJoystickButtons = 16 + 64;

} // namespace

class TestEvdevDescriptors : public QObject
{
    Q_OBJECT

private slots:
    void landsOnDirectInputSlots_data()
    {
        QTest::addColumn<QString>("path");
        const QDir dir(devicesDir());
        const QStringList files = dir.entryList({QStringLiteral("*.hex")}, QDir::Files, QDir::Name);
        QVERIFY2(!files.isEmpty(), "the device descriptors (tests/data/devices) are missing");
        for (const QString &file : files)
            QTest::newRow(qPrintable(file)) << dir.filePath(file);
    }
    void landsOnDirectInputSlots()
    {
        QFETCH(QString, path);
        LoadedDevice device;
        QString problem;
        QVERIFY2(load(path, "hid-generic", device, problem), qPrintable(problem));

        const DeviceCapabilities caps = device.layouts.kernelCapabilities<DeviceCapabilities>();
        QVERIFY2(isJoystickClass(caps), "not recognised as a game controller");
        const DeviceLayout layout = layoutDevice(caps, findSlotOverride(device.identity));

        bool anyAxis = false;
        for (int slot = 0; slot < AxisSlotCount; ++slot) {
            const int code = layout.slotCode[static_cast<size_t>(slot)];
            const hid::ElementRef evdevRef =
                code >= 0 ? sourceOf(device.layouts, EV_ABS, code) : hid::ElementRef{};
            const hid::ElementRef expected = device.layouts.directInputAxes[static_cast<size_t>(slot)];
            anyAxis = anyAxis || expected.valid();
            QVERIFY2(evdevRef == expected, qPrintable(QStringLiteral("%1: evdev gives %2, DirectInput %3")
                                                          .arg(QLatin1String(kSlotNames[slot]),
                                                               describe(device.descriptor, evdevRef),
                                                               describe(device.descriptor, expected))));
        }
        QVERIFY2(anyAxis, "the descriptor has no axis at all");

        // Buttons in the same order, as far as Linux has codes for them.
        const size_t shared = std::min(device.layouts.directInputButtons.size(), kLinuxJoystickButtons);
        QVERIFY(layout.buttonCodes.size() >= shared);
        for (size_t i = 0; i < shared; ++i)
            QVERIFY2(sourceOf(device.layouts, EV_KEY, layout.buttonCodes[i]) ==
                         device.layouts.directInputButtons[i],
                     qPrintable(QStringLiteral("button %1").arg(i)));
        // The kernel also registers usages declared beyond a field's report count;
        // such a button exists on Linux but never changes. Only those may be extra.
        for (size_t i = shared; i < layout.buttonCodes.size(); ++i) {
            const hid::ElementRef ref = sourceOf(device.layouts, EV_KEY, layout.buttonCodes[i]);
            QVERIFY(ref.valid());
            QVERIFY2(ref.element >= device.descriptor.fields[static_cast<size_t>(ref.field)].count,
                     qPrintable(QStringLiteral("button %1 exists on Linux only").arg(i)));
        }

        // The kernel maps one hat per application; it must be DirectInput's first POV.
        if (!device.layouts.directInputPovs.empty()) {
            QCOMPARE(layout.povHat[0], 0);
            QCOMPARE(sourceOf(device.layouts, EV_ABS, ABS_HAT0X), device.layouts.directInputPovs.front());
        } else {
            QCOMPARE(layout.povHat[0], -1);
        }
    }

    // hid-lg gives these wheels separate gas and brake axes of its own; the
    // "Logitech" preset takes throttle from lZ and brake from lRz, steering from lX.
    void logitechDriverWheelsMeetTheLogitechPreset_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("gasUsage");
        QTest::addColumn<int>("brakeUsage");
        QTest::newRow("Driving Force")
            << QStringLiteral("kernel-fixed_logitech-driving-force-046d-c294.hex") << 0x31 << 0x35;
        QTest::newRow("Formula Vibration")
            << QStringLiteral("kernel-fixed_logitech-formula-vibration-046d-ca04.hex") << 0x31 << 0x32;
        QTest::newRow("WingMan Formula Force GP")
            << QStringLiteral("kernel-fixed_logitech-wingman-formula-force-gp-046d-c293.hex") << 0x31 << 0x32;
    }
    void logitechDriverWheelsMeetTheLogitechPreset()
    {
        QFETCH(QString, file);
        QFETCH(int, gasUsage);
        QFETCH(int, brakeUsage);
        const QString path = QDir(devicesDir()).filePath(file);
        QVERIFY2(QFileInfo::exists(path), qPrintable(path + QStringLiteral(" is missing")));
        LoadedDevice device;
        QString problem;
        QVERIFY2(load(path, "logitech", device, problem), qPrintable(problem));
        const SlotOverride *override = findSlotOverride(device.identity);
        QVERIFY2(override, "no override for a wheel that hid-lg lays out");
        const DeviceLayout layout =
            layoutDevice(device.layouts.kernelCapabilities<DeviceCapabilities>(), override);

        auto usageOnSlot = [&](int slot) -> int {
            const int code = layout.slotCode[static_cast<size_t>(slot)];
            const hid::ElementRef ref =
                code >= 0 ? sourceOf(device.layouts, EV_ABS, code) : hid::ElementRef{};
            if (!ref.valid())
                return -1;
            return static_cast<int>(
                hid::usageId(device.descriptor.fields[static_cast<size_t>(ref.field)].usageAt(ref.element)));
        };
        constexpr int presetSteering = SlotX, presetThrottle = SlotZ, presetBrake = SlotRz;
        QCOMPARE(usageOnSlot(presetSteering), 0x30);
        QCOMPARE(usageOnSlot(presetThrottle), gasUsage);
        QCOMPARE(usageOnSlot(presetBrake), brakeUsage);
    }
};

QTEST_GUILESS_MAIN(TestEvdevDescriptors)
#include "tst_evdevdescriptors.moc"
