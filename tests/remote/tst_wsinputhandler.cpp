#include "handlerrig.h"
#include "wsinputhandler.h"

#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

using Rig = HandlerRig<WsInputHandler>;

#define SET_UP_RIG(rig, ...) QVERIFY2((rig).setUp(__VA_ARGS__), "the handler rig could not be set up")

QJsonObject device(const QString &name)
{
    return {{u"device"_s, name}};
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

    const QString invalid = u"Invalid 'device' parameter. Must be 'wheelbase', 'pedals', or 'shifter'."_s;
    const QString raw = u"get_raw_input_state"_s;
    const QString buttons = u"get_button_states"_s;
    QTest::newRow("no device") << raw << QJsonObject() << invalid;
    QTest::newRow("unknown name") << buttons << device(u"wheel"_s) << invalid;
    QTest::newRow("helicopter role") << raw << device(u"joystick"_s) << invalid;
    QTest::newRow("shifter not open") << buttons << device(u"shifter"_s) << u"shifter is not connected"_s;
    QTest::newRow("wheel base") << raw << device(u"wheelbase"_s) << QString();
    QTest::newRow("pedals") << buttons << device(u"pedals"_s) << QString();
}

void TestWsInputHandler::deviceValidation()
{
    QFETCH(QString, request);
    QFETCH(QJsonObject, data);
    QFETCH(QString, error);
    Rig rig;
    SET_UP_RIG(rig);

    const QJsonObject reply = rig.ask(request, data);
    QCOMPARE(reply.value(u"event"_s).toString(), error.isEmpty() ? request : u"error"_s);
    QCOMPARE(reply.value(u"message"_s).toString(), error);
    QCOMPARE(reply.value(u"data"_s)[u"buttons"_s].isArray(), error.isEmpty());
}

void TestWsInputHandler::stateFollowsTheWheel()
{
    Rig rig;
    SET_UP_RIG(rig);
    rig.setSteering(0.5);
    rig.backend.setButton(rig.firstDevice, 3, true);

    QTRY_VERIFY(rig.ask(u"get_button_states"_s, device(u"wheelbase"_s))[u"data"_s][u"buttons"_s][3].toBool());
    QTRY_VERIFY(qAbs(rig.ask(u"get_input_state"_s)[u"data"_s][u"steering"_s].toDouble() - 0.5) < 0.01);
    QTRY_VERIFY(!rig.pushed(u"event_input_changed"_s).isEmpty() &&
                qAbs(rig.pushed(u"event_input_changed"_s).last()[u"steering"_s].toDouble() - 0.5) < 0.01);
}

QTEST_GUILESS_MAIN(TestWsInputHandler)
#include "tst_wsinputhandler.moc"
