// Enumeration by the evdev backend from a sysfs tree, the way it runs where no
// udev daemon is: game controllers only, in event-number order, with names, ids
// and counts read without opening their nodes. (Real devices, and nodes it may not
// read, are exercised in the kernel VM test.)

#include "evdevbackend.h"
#include "evdevmapping.h"

#include <QtTest>

using namespace tavrix;

namespace {

struct FakeDevice
{
    QString event;
    QByteArray name;
    QByteArray ev, key, abs, ff;
    QByteArray vendor = "046d", product = "c29b";
    QByteArray phys = "usb-0000:00:14.0-2/input0";
    bool withNode = true;
};

class FakeInputTree
{
public:
    FakeInputTree()
    {
        QDir root(m_dir.path());
        root.mkpath(QStringLiteral("sys"));
        root.mkpath(QStringLiteral("dev"));
    }

    EvdevBackend::Paths paths() const
    {
        return {(m_dir.path() + QStringLiteral("/sys")).toStdString(),
                (m_dir.path() + QStringLiteral("/dev")).toStdString()};
    }
    QString nodePath(const QString &event) const { return m_dir.path() + QStringLiteral("/dev/") + event; }

    void add(const FakeDevice &device)
    {
        const QString base =
            m_dir.path() + QStringLiteral("/sys/") + device.event + QStringLiteral("/device");
        QDir().mkpath(base + QStringLiteral("/capabilities"));
        QDir().mkpath(base + QStringLiteral("/id"));
        write(base + QStringLiteral("/name"), device.name + '\n');
        write(base + QStringLiteral("/phys"), device.phys + '\n');
        write(base + QStringLiteral("/id/bustype"), "0003\n");
        write(base + QStringLiteral("/id/vendor"), device.vendor + '\n');
        write(base + QStringLiteral("/id/product"), device.product + '\n');
        write(base + QStringLiteral("/id/version"), "0111\n");
        write(base + QStringLiteral("/capabilities/ev"), device.ev + '\n');
        write(base + QStringLiteral("/capabilities/key"), device.key + '\n');
        write(base + QStringLiteral("/capabilities/abs"), device.abs + '\n');
        write(base + QStringLiteral("/capabilities/ff"),
              (device.ff.isEmpty() ? QByteArray("0") : device.ff) + '\n');
        write(base + QStringLiteral("/properties"), "0\n");
        if (device.withNode)
            write(nodePath(device.event), "not an evdev node");
    }

private:
    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir m_dir;
};

// EV_SYN|EV_KEY|EV_ABS = 0xb; EV_FF adds bit 21.
FakeDevice wheel(const QString &event)
{
    // Keys: BTN_TRIGGER..BTN_DEAD (0x120..0x12f) and BTN_TRIGGER_HAPPY1..6 (0x2c0..0x2c5),
    // written as the kernel does: 64-bit words, most significant first.
    return {event, "G27 Racing Wheel", "20000b", "3f 0 0 0 0 0 0 ffff00000000 0 0 0 0", "30027", "30000 0"};
}

FakeDevice keyboard(const QString &event)
{
    return {event, "AT Translated Set 2 keyboard", "120013", "fffffffffffffffe", "0", {}, "0001", "0001"};
}

} // namespace

class TestEvdevBackend : public QObject
{
    Q_OBJECT

private slots:
    void listsOnlyGameControllersWithANodeInEventOrder()
    {
        FakeInputTree tree;
        tree.add(wheel(QStringLiteral("event12")));
        tree.add(keyboard(QStringLiteral("event0")));
        FakeDevice pedals{QStringLiteral("event3"), "Pedals", "b", "0", "7", {}, "0eb7", "1839"};
        tree.add(pedals);
        FakeDevice gone = wheel(QStringLiteral("event7")); // in sysfs, its node not (yet) there
        gone.withNode = false;
        tree.add(gone);

        EvdevBackend backend(tree.paths());
        const Enumeration found = backend.enumerate();
        QCOMPARE(found.problems.size(), size_t(0));
        QCOMPARE(found.devices.size(), size_t(2));
        QCOMPARE(found.devices[0].productName, std::string("Pedals"));
        QCOMPARE(found.devices[1].instanceName, std::string("G27 Racing Wheel"));

        // Without the folders at all (no input subsystem): nothing, and no problem either.
        const Enumeration none =
            EvdevBackend({"/nonexistent/sys/class/input", "/nonexistent/dev/input"}).enumerate();
        QVERIFY(none.devices.empty());
        QVERIFY(none.problems.empty());
    }

    void readsCountsAndIdentityWithoutOpeningTheNode()
    {
        FakeInputTree tree;
        FakeDevice device = wheel(QStringLiteral("event5"));
        tree.add(device);
        QFile::setPermissions(tree.nodePath(device.event),
                              QFileDevice::ReadOwner); // never opened for writing

        const Enumeration found = EvdevBackend(tree.paths()).enumerate();
        QCOMPARE(found.devices.size(), size_t(1));
        const DeviceListEntry &entry = found.devices[0];
        QCOMPARE(entry.axisCount, 4u); // X, Y, Z, Rz (the hat is a POV)
        QCOMPARE(entry.buttonCount, 22u);
        QCOMPARE(entry.povCount, 1u);
        QVERIFY(!entry.hasForceFeedback); // its ff bitmap lacks FF_CONSTANT
        QVERIFY(entry.productGuid == evdev::productGuid(0x046d, 0xc29b));

        FakeDevice withForce = wheel(QStringLiteral("event6"));
        withForce.ff = "40000 0"; // FF_CONSTANT = 0x52 = bit 18 of the second word
        tree.add(withForce);
        QVERIFY(EvdevBackend(tree.paths()).enumerate().devices.at(1).hasForceFeedback);
    }

    void refusesIndexesOutsideTheListAndNodesThatAreNoInputDevice()
    {
        FakeInputTree tree;
        tree.add(wheel(QStringLiteral("event1")));
        EvdevBackend backend(tree.paths());
        std::string error;
        QVERIFY(backend.open(1, &error) == nullptr);
        QVERIFY(!error.empty());
        QVERIFY(backend.open(-1, &error) == nullptr);
        QVERIFY(backend.open(0, &error) == nullptr);
        QVERIFY2(QString::fromStdString(error).contains(QStringLiteral("not an input device")),
                 error.c_str());
    }
};

QTEST_GUILESS_MAIN(TestEvdevBackend)
#include "tst_evdevbackend.moc"
