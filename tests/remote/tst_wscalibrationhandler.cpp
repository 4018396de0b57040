#include "handlerrig.h"
#include "receiverport.h"
#include "receiversimulator.h"
#include "wscalibrationhandler.h"

#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

// The handler rig with the receiver simulator, printing its channels every 10 ms, plugged
// into the controller's receiver port.
struct CalibrationRig : HandlerRig<WsCalibrationHandler>
{
    std::unique_ptr<sim::ReceiverSimulator> receiver;

    bool plugIn()
    {
        sim::ReceiverSimulatorSettings settings;
        settings.calibrationLineIntervalMs = 10;
        settings.telemetryIntervalMs = 0;
        receiver = std::make_unique<sim::ReceiverSimulator>(settings);
        return receiver->start(receiverPath()) && controller->receiverPort()->connectReceiver(receiverPath());
    }

    QJsonObject status() { return ask(u"get_calibration_status"_s)[u"data"_s].toObject(); }

    QJsonObject step(const QString &action)
    {
        return ask(u"action_calibration_step"_s, {{u"action"_s, action}});
    }

    // "begin" starts the calibration, "cancel" cancels it, anything else is a step action.
    bool run(const QStringList &script)
    {
        for (const QString &token : script) {
            const QJsonObject reply = token == u"begin"_s    ? ask(u"action_start_calibration"_s)
                                      : token == u"cancel"_s ? ask(u"action_cancel_calibration"_s)
                                                             : step(token);
            if (!reply[u"success"_s].toBool())
                return false;
        }
        return true;
    }

    QList<QJsonObject> progress() const { return pushed(u"event_calibration_progress"_s); }

    // The first progress push from index on in that state.
    std::optional<QJsonObject> progressIn(const QString &state, qsizetype from = 0) const
    {
        const QList<QJsonObject> all = progress();
        for (qsizetype index = from; index < all.size(); ++index) {
            if (all[index][u"state"_s].toString() == state)
                return all[index];
        }
        return std::nullopt;
    }
};

const QString kStep = u"action_calibration_step"_s;

} // namespace

class TestWsCalibrationHandler : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data();
    void refusals();
    void measuresEveryEndPointTheReceiverShows();
};

void TestWsCalibrationHandler::refusals_data()
{
    QTest::addColumn<bool>("plugged");
    QTest::addColumn<QStringList>("before"); // requests that must succeed first
    QTest::addColumn<QString>("request");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("message");

    const QString invalid = u"Invalid action. Use 'start', 'retry', or 'skip'."_s;
    const QString notStarted = u"No calibration in progress. Call action_start_calibration first."_s;
    const QString measuring = u"Already measuring. Wait for result or send action='cancel'."_s;
    const QJsonObject start{{u"action"_s, u"start"_s}};

    QTest::newRow("start without the receiver") << false << QStringList() << u"action_start_calibration"_s
                                                << QJsonObject() << u"Orvane Receiver is not connected"_s;
    QTest::newRow("missing action before no calibration")
        << false << QStringList() << kStep << QJsonObject() << invalid;
    QTest::newRow("action as a number")
        << false << QStringList() << kStep << QJsonObject{{u"action"_s, 0}} << invalid;
    QTest::newRow("cancel is no step action, even while measuring")
        << true << QStringList{u"begin"_s, u"start"_s} << kStep << QJsonObject{{u"action"_s, u"cancel"_s}}
        << invalid;
    QTest::newRow("step before a calibration") << true << QStringList() << kStep << start << notStarted;
    QTest::newRow("step after cancel")
        << true << QStringList{u"begin"_s, u"cancel"_s} << kStep << start << notStarted;
    QTest::newRow("start while measuring")
        << true << QStringList{u"begin"_s, u"start"_s} << kStep << start << measuring;
    QTest::newRow("skip while measuring") << true << QStringList{u"begin"_s, u"skip"_s, u"start"_s} << kStep
                                          << QJsonObject{{u"action"_s, u"skip"_s}} << measuring;
}

void TestWsCalibrationHandler::refusals()
{
    QFETCH(bool, plugged);
    QFETCH(QStringList, before);
    QFETCH(QString, request);
    QFETCH(QJsonObject, data);
    QFETCH(QString, message);

    CalibrationRig rig;
    QVERIFY2(rig.setUp(), "the handler rig could not be set up");
    if (plugged)
        QVERIFY2(rig.plugIn(), "the receiver could not be plugged in");
    QVERIFY(rig.run(before));
    QJsonObject status = rig.status();
    status.remove(u"countdown"_s); // a measurement under way counts on
    const qsizetype pushes = rig.progress().size();

    const QJsonObject reply = rig.ask(request, data);
    QCOMPARE(reply[u"event"_s].toString(), request);
    QCOMPARE(reply[u"success"_s], QJsonValue(false));
    QCOMPARE(reply[u"message"_s].toString(), message);
    // A refusal leaves the calibration where it was, and tells subscribers nothing.
    QJsonObject after = rig.status();
    after.remove(u"countdown"_s);
    for (const QString &live : {u"ch1Us"_s, u"ch1Crsf"_s, u"ch2Us"_s, u"ch2Crsf"_s})
        after[live] = status[live];
    QCOMPARE(after, status);
    QCOMPARE(rig.progress().size(), pushes);
}

// The sticks held at each end point in turn; the first hold is shaken until the app is
// told to hold steady.
void TestWsCalibrationHandler::measuresEveryEndPointTheReceiverShows()
{
    CalibrationRig rig;
    QVERIFY2(rig.setUp(), "the handler rig could not be set up");
    QVERIFY2(rig.plugIn(), "the receiver could not be plugged in");
    QTRY_VERIFY_WITH_TIMEOUT(rig.controller->receiverPort()->isConnected(), 20000);

    const QJsonObject started = rig.ask(u"action_start_calibration"_s);
    QVERIFY(started[u"success"_s].toBool());
    QCOMPARE(started[u"message"_s].toString(), u"Calibration started. Send action_calibration_step with "
                                               u"action='start' to begin throttle max measurement."_s);
    QCOMPARE(rig.progress().last()[u"state"_s].toString(), u"waiting"_s);

    struct Hold
    {
        QString step;
        QString key;
        int ch1Us;
        int ch2Us;
        bool steering;
    };
    const QList<Hold> holds{
        {u"throttle_max"_s, u"throttleMax"_s, 1500, 2000, false},
        {u"throttle_neutral"_s, u"throttleNeutral"_s, 1500, 1500, false},
        {u"throttle_reverse"_s, u"throttleReverse"_s, 1500, 1000, false},
        {u"steering_left"_s, u"steeringLeft"_s, 1010, 1500, true},
        {u"steering_center"_s, u"steeringCenter"_s, 1520, 1500, true},
        {u"steering_right"_s, u"steeringRight"_s, 1990, 1500, true},
    };
    QJsonObject expected;
    bool shaking = true;
    bool high = false;
    connect(rig.receiver.get(), &sim::ReceiverSimulator::lineSent, rig.receiver.get(),
            [&rig, &shaking, &high](const QString &line) {
                if (shaking && line.startsWith(u"CH2"_s))
                    rig.receiver->setSticks(1500, (high = !high) ? 2000 : 1700);
            });

    for (const Hold &hold : holds) {
        QCOMPARE(rig.status()[u"step"_s].toString(), hold.step);
        if (!shaking) {
            rig.receiver->setSticks(hold.ch1Us, hold.ch2Us);
            QTRY_COMPARE_WITH_TIMEOUT(rig.status()[u"ch1Us"_s].toInt(), hold.ch1Us, 20000);
            QTRY_COMPARE_WITH_TIMEOUT(rig.status()[u"ch2Us"_s].toInt(), hold.ch2Us, 20000);
        }
        const qsizetype from = rig.progress().size();
        const QJsonObject reply = rig.step(u"start"_s);
        QVERIFY2(reply[u"success"_s].toBool(), qPrintable(reply[u"message"_s].toString()));
        if (shaking) {
            QTRY_VERIFY_WITH_TIMEOUT(rig.progressIn(u"unstable"_s, from).has_value(), 20000);
            QCOMPARE(rig.progressIn(u"unstable"_s, from)->value(u"countdown"_s).toInt(), 5);
            shaking = false;
            rig.receiver->setSticks(hold.ch1Us, hold.ch2Us);
        }
        QTRY_VERIFY_WITH_TIMEOUT(rig.progressIn(u"step_success"_s, from).has_value(), 20000);

        const QJsonObject success = *rig.progressIn(u"step_success"_s, from);
        const int value = sim::ReceiverSimulator::crsfValue(hold.steering ? hold.ch1Us : hold.ch2Us);
        QCOMPARE(success[u"step"_s].toString(), hold.step);
        QCOMPARE(success[u"recordedValue"_s].toInt(), value);
        QCOMPARE(success[u"message"_s].toString(), u"Value recorded: CRSF %1"_s.arg(value));
        expected[hold.key] = value;
        QCOMPARE(success[u"result"_s].toObject()[hold.key].toInt(), value);
    }

    const QJsonObject status = rig.status();
    QCOMPARE(status[u"step"_s].toString(), u"complete"_s);
    QCOMPARE(status[u"isCalibrating"_s], QJsonValue(false));
    QCOMPARE(status[u"result"_s].toObject(), expected);
}

QTEST_GUILESS_MAIN(TestWsCalibrationHandler)
#include "tst_wscalibrationhandler.moc"
