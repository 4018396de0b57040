// The game-controller picker of the vehicle pages bound to the real controller with virtual
// controllers: it follows plugging and says why a controller cannot be used.
#include "devicepickerbinder.h"
#include "devicepickercard.h"
#include "hubrig.h"
#include "inputdevice.h"

#include <QComboBox>
#include <QSettings>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

class TestDevicePicker : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("OrvaneLabs"));
        QCoreApplication::setApplicationName(QStringLiteral("OrvaneLabs HUB device picker test"));
    }

    void init() { QSettings().clear(); }

    void devicePickerFollowsTheUnplug()
    {
        HubRig rig;
        rig.plugCarControllers();
        rig.backend->addDevice({u"Test Shifter"_s, QString(), 2, 8, 0, false});
        DevicePickerCard card(u"Controllers"_s, {{u"wheel"_s, u"Wheel"_s}, {u"pedals"_s, u"Pedals"_s}});
        DevicePickerBinder binder(&card, rig.controller(),
                                  {{u"wheel"_s, DeviceRole::WheelBase}, {u"pedals"_s, DeviceRole::Pedals}});
        QCOMPARE(card.devices().size(), 3);

        // The wheel goes while the list still shows it: the pedals picked from that list open.
        rig.backend->removeDevice(rig.firstDevice);
        emit card.picker(u"pedals"_s)->activated(2); // "None", wheel, pedals, shifter
        QCOMPARE(rig.controller()->devices()->device(DeviceRole::Pedals)->deviceName(), u"Test Pedals"_s);
        QCOMPARE(card.currentDevice(u"pedals"_s), 0);

        // The open pedals go: the picker says so instead of naming what moved up to their place.
        rig.backend->removeDevice(rig.secondDevice);
        QTRY_COMPARE_WITH_TIMEOUT(card.devices().size(), 1, 5000);
        QCOMPARE(card.currentDevice(u"pedals"_s), -1);
    }

    // What keeps a controller from working is said on the picker until it no longer applies.
    void devicePickerSaysWhyAControllerCannotBeUsed()
    {
        HubRig rig;
        rig.plugCarControllers();
        rig.backend->addProblem(u"/dev/input/event9"_s, u"No permission to read /dev/input/event9"_s);
        rig.backend->setOpenRefusal(rig.secondDevice, u"Busy pedals"_s);
        DevicePickerCard card(u"Controllers"_s, {{u"wheel"_s, u"Wheel"_s}, {u"pedals"_s, u"Pedals"_s}});
        DevicePickerBinder binder(&card, rig.controller(),
                                  {{u"wheel"_s, DeviceRole::WheelBase}, {u"pedals"_s, DeviceRole::Pedals}});
        QCOMPARE(card.problems(), QStringList{u"No permission to read /dev/input/event9"_s});

        emit card.picker(u"pedals"_s)->activated(2); // "None", wheel, pedals
        QCOMPARE(card.problems().size(), 2);
        QVERIFY2(card.problems().last().contains(u"Busy pedals"_s), qPrintable(card.problems().join(u'|')));

        // Given up on ("None"), the failed open is no longer a problem; the permission still is.
        emit card.picker(u"pedals"_s)->activated(0);
        QCOMPARE(card.problems(), QStringList{u"No permission to read /dev/input/event9"_s});
    }
};

QTEST_MAIN(TestDevicePicker)
#include "tst_devicepicker.moc"
