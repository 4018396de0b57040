#include "handlerrig.h"
#include "wsinputhandler.h"

#include <QJsonArray>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;

namespace {

using Rig = HandlerRig<WsInputHandler>;

#define SET_UP_RIG(rig, ...) QVERIFY2((rig).setUp(__VA_ARGS__), "the handler rig could not be set up")

QJsonObject device(const QString &name)
{
    return {{QStringLiteral("device"), name}};
}

double steeringOf(const QJsonObject &state)
{
    return state.value(QStringLiteral("steering")).toDouble();
}

} // namespace

class TestWsInputHandler : public QObject
{
    Q_OBJECT

private slots:
    void deviceValidation_data();
    void deviceValidation();
    void stateFollowsTheWheel();
};

void TestWsInputHandler::deviceValidation_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("error"); // empty: answered

    const QString invalid =
        QStringLiteral("Invalid 'device' parameter. Must be 'wheelbase', 'pedals', or 'shifter'.");
    const QString raw = QStringLiteral("get_raw_input_state");
    const QString buttons = QStringLiteral("get_button_states");
    QTest::newRow("no device") << raw << QJsonObject() << invalid;
    QTest::newRow("unknown name") << buttons << device(QStringLiteral("wheel")) << invalid;
    QTest::newRow("helicopter role") << raw << device(QStringLiteral("joystick")) << invalid;
    QTest::newRow("shifter not open")
        << buttons << device(QStringLiteral("shifter")) << QStringLiteral("shifter is not connected");
    QTest::newRow("wheel base") << raw << device(QStringLiteral("wheelbase")) << QString();
    QTest::newRow("pedals") << buttons << device(QStringLiteral("pedals")) << QString();
}

void TestWsInputHandler::deviceValidation()
{
    QFETCH(QString, request);
    QFETCH(QJsonObject, data);
    QFETCH(QString, error);
    Rig rig;
    SET_UP_RIG(rig);

    const QJsonObject reply = rig.ask(request, data);
    if (error.isEmpty()) {
        QCOMPARE(reply.value(QStringLiteral("event")).toString(), request);
        QVERIFY(reply.value(QStringLiteral("data"))[QStringLiteral("buttons")].isArray());
        return;
    }
    QCOMPARE(reply.value(QStringLiteral("event")).toString(), QStringLiteral("error"));
    QCOMPARE(reply.value(QStringLiteral("source")).toString(), request);
    QCOMPARE(reply.value(QStringLiteral("message")).toString(), error);
}

void TestWsInputHandler::stateFollowsTheWheel()
{
    Rig rig;
    SET_UP_RIG(rig);
    rig.setSteering(0.5);
    rig.backend.setButton(rig.firstDevice, 3, true);

    QTRY_VERIFY(rig.ask(QStringLiteral("get_button_states"), device(QStringLiteral("wheelbase")))
                    .value(QStringLiteral("data"))[QStringLiteral("buttons")][3]
                    .toBool());
    const QJsonObject raw =
        rig.ask(QStringLiteral("get_raw_input_state"), device(QStringLiteral("wheelbase")))
            .value(QStringLiteral("data"))
            .toObject();
    QCOMPARE(raw.value(QStringLiteral("axes")).toArray().size(), 8);
    QCOMPARE(raw.value(QStringLiteral("buttons")).toArray().size(), 32);

    QTRY_VERIFY(
        qAbs(steeringOf(rig.ask(QStringLiteral("get_input_state"))[QStringLiteral("data")].toObject()) -
             0.5) < 0.01);
    QTRY_VERIFY(!rig.pushed(QStringLiteral("event_input_changed")).isEmpty() &&
                qAbs(steeringOf(rig.pushed(QStringLiteral("event_input_changed")).last()) - 0.5) < 0.01);
}

QTEST_GUILESS_MAIN(TestWsInputHandler)
#include "tst_wsinputhandler.moc"
