// The transmitter dialog bound to the real controller, with the bridge simulator on a pty
// playing the transmitter and its ExpressLRS module.
#include "carpage.h"
#include "elrsparametermanager.h"
#include "hubrig.h"
#include "transmissiondialog.h"
#include "transmissiondialogbinder.h"
#include "transmittercard.h"

#include <QLabel>
#include <QPushButton>
#include <QSettings>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;
using Mode = sim::BridgeSimulator::Mode;

namespace {

// A dialog the way the window makes one, but with no wait for the module to settle.
std::unique_ptr<TransmissionDialog> openDialog(TavrixController *controller)
{
    auto dialog = std::make_unique<TransmissionDialog>();
    new TransmissionDialogBinder(dialog.get(), controller, dialog.get(), std::chrono::milliseconds(0));
    dialog->show();
    return dialog;
}

bool readSettings(TransmissionDialog *dialog, TavrixController *controller)
{
    QSignalSpy complete(controller->elrsParameters(), &ElrsParameterManager::discoveryComplete);
    dialog->readButton()->click();
    return complete.wait(10000);
}

// Parameter writes (0x2D) the bridge received, as "field=value".
QStringList parameterWrites(const QSignalSpy &frames)
{
    QStringList writes;
    for (const QList<QVariant> &frame : frames) {
        const QByteArray bytes = frame.at(0).toByteArray();
        if (bytes.size() > 6 && uint8_t(bytes.at(2)) == 0x2D)
            writes.append(u"%1=%2"_s.arg(int(bytes.at(5))).arg(int(bytes.at(6))));
    }
    return writes;
}

} // namespace

class TestTransmissionDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("OrvaneLabs"));
        QCoreApplication::setApplicationName(QStringLiteral("OrvaneLabs HUB dialog test"));
    }

    void init() { QSettings().clear(); }

    void carCardOpensItAndItConnectsAtTheChosenRate()
    {
        HubRig rig;
        QVERIFY(rig.startBridge());
        auto *car = rig.showPage<CarPage>(u"rc-car"_s);
        QVERIFY(car);
        car->transmitterCard()->settingsButton()->click();
        auto *dialog = rig.window->findChild<TransmissionDialog *>();
        QVERIFY(dialog && dialog->isVisible());

        TransmitterCard *card = dialog->transmitterCard();
        QCOMPARE(card->ports(), QStringList{rig.linkPath()});
        pick(card->baudBox(), card->baudBox()->findData(921600));
        card->connectButton()->click();
        QVERIFY(rig.controller()->isSerialConnected());
        QCOMPARE(rig.services->profiles()->transmitterBaudRate(), 921600);

        // The car page's own card offers no rate: connecting there keeps the chosen one.
        dialog->close();
        rig.controller()->disconnectTransmitter();
        car->transmitterCard()->connectButton()->click();
        QVERIFY(rig.controller()->isSerialConnected());
        QCOMPARE(rig.services->profiles()->transmitterBaudRate(), 921600);
    }

    void readListsTheModuleByFolderAndAChoiceReachesIt()
    {
        HubRig rig;
        QVERIFY(rig.startBridge());
        QVERIFY(rig.controller()->connectTransmitter(rig.linkPath()));
        const auto dialog = openDialog(rig.controller());
        QSignalSpy frames(&rig.sim, &sim::BridgeSimulator::frameReceived);

        QVERIFY(readSettings(dialog.get(), rig.controller()));
        QCOMPARE(rig.sim.mode(), Mode::Configuring);
        const RadioSettingsView *view = dialog->radioSettings();
        QCOMPARE(view->groupTitles(), (QStringList{QString(), u"TX Power"_s}));
        QVERIFY(view->field(QString(), u"Packet Rate"_s));
        QVERIFY(!view->field(QString(), u"Max Power"_s));
        const QWidget *maxPower = view->field(u"TX Power"_s, u"Max Power"_s);
        QVERIFY(maxPower);
        QCOMPARE(maxPower->findChild<QComboBox *>()->currentText(), u"100"_s);
        QCOMPARE(maxPower->findChild<QLabel *>()->text(), u"mW"_s);
        QCOMPARE(view->field(QString(), u"Version"_s)->findChild<QLabel *>()->text(), u"3.4.1 ORV"_s);

        QComboBox *packetRate = view->choiceBox(u"Packet Rate"_s);
        QCOMPARE(packetRate->currentText(), u"250Hz(-108dBm)"_s);
        packetRate->setFocus();
        QTest::keyClick(packetRate, Qt::Key_End); // one activation: the last option, "500Hz(-105dBm)"

        // The module holds it when read again, and the echo and the new list wrote nothing more.
        QVERIFY(readSettings(dialog.get(), rig.controller()));
        QCOMPARE(view->choiceBox(u"Packet Rate"_s)->currentText(), u"500Hz(-105dBm)"_s);
        QCOMPARE(parameterWrites(frames), QStringList{u"1=5"_s});
    }

    void leavesConfigurationModeOnlyIfItEnteredIt_data()
    {
        QTest::addColumn<QString>("leaving");
        QTest::addColumn<bool>("enteredElsewhere");
        QTest::newRow("close") << u"close"_s << false;
        QTest::newRow("escape") << u"escape"_s << false;
        QTest::newRow("destroyed while open") << u"destroy"_s << false;
        QTest::newRow("close, entered by the app") << u"close"_s << true;
        QTest::newRow("destroyed, entered by the app") << u"destroy"_s << true;
    }

    void leavesConfigurationModeOnlyIfItEnteredIt()
    {
        QFETCH(QString, leaving);
        QFETCH(bool, enteredElsewhere);
        HubRig rig;
        QVERIFY(rig.startBridge());
        TavrixController *controller = rig.controller();
        QVERIFY(controller->connectTransmitter(rig.linkPath()));
        if (enteredElsewhere)
            QVERIFY(controller->enterConfigMode());
        auto dialog = openDialog(controller);
        QVERIFY(readSettings(dialog.get(), controller));
        QCOMPARE(rig.sim.mode(), Mode::Configuring);

        if (leaving == u"close")
            dialog->close();
        else if (leaving == u"escape")
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
        else
            dialog.reset();
        QCOMPARE(controller->isConfigMode(), enteredElsewhere);
        if (!enteredElsewhere)
            QTRY_COMPARE_WITH_TIMEOUT(rig.sim.mode(), Mode::Idle, 5000);
    }

    void transmittingBlocksReadingAndEveryErrorIsShown()
    {
        HubRig rig;
        QVERIFY(rig.startCarTransmission());
        TavrixController *controller = rig.controller();
        const auto dialog = openDialog(controller);
        QVERIFY(!dialog->readButton()->isEnabled());
        QVERIFY(!dialog->readBlockedReason().isEmpty());
        controller->stopTransmission();
        QVERIFY(dialog->readButton()->isEnabled());

        // A module that lists nothing: the walk fails and can be tried again.
        QSignalSpy walkErrors(controller->elrsParameters(), &ElrsParameterManager::error);
        rig.sim.setStalled(true);
        dialog->readButton()->click();
        QTRY_VERIFY_WITH_TIMEOUT(rig.sim.commands().contains(u"WALKRF"_s), 5000);
        rig.sim.injectToHost("WALK: done\r\n");
        QVERIFY(walkErrors.wait(5000));
        QCOMPARE(dialog->error(), walkErrors.last().at(0).toString());
        QVERIFY(dialog->readButton()->isEnabled());

        // The controller's refusals show as they come, the newest in front.
        QSignalSpy refusals(controller, &TavrixController::errorOccurred);
        QVERIFY(!controller->startTransmission());
        QCOMPARE(refusals.count(), 1);
        QCOMPARE(dialog->error(), refusals.last().at(0).toString());
    }
};

QTEST_MAIN(TestTransmissionDialog)
#include "tst_transmissiondialog.moc"
