#include "handlerrig.h"
#include "wsescpresethandler.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTest>

using namespace tavrix;
using namespace Qt::StringLiterals;
using namespace tavrix::testing;

class TestWsEscPresetHandler : public QObject
{
    Q_OBJECT

private slots:
    void validation_data();
    void validation();
    void updateReachesTheFileAndThePush();

private:
    static QByteArray presetFile(const HandlerRig<WsEscPresetHandler> &rig)
    {
        QFile file(QDir(rig.profiles.profileDirectory()).filePath(QStringLiteral("esc_presets.json")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

void TestWsEscPresetHandler::validation_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QByteArray>("data"); // $id: a preset that exists
    QTest::addColumn<QString>("message"); // empty: accepted

    const QString create = QStringLiteral("action_create_esc_preset");
    const QString update = QStringLiteral("action_update_esc_preset");
    const QString range = QStringLiteral("Invalid ESC values. Must be 0-2047.");
    const QString notFound = QStringLiteral("ESC preset not found: nope");
    QTest::newRow("create unnamed") << create << QByteArray(R"({"name":" ","neutral":992})")
                                    << QStringLiteral("Missing 'name' parameter");
    QTest::newRow("create without reverse")
        << create << QByteArray(R"({"name":"A","neutral":992,"fullForward":1811})") << range;
    QTest::newRow("create 0 and 2047")
        << create << QByteArray(R"({"name":"A","neutral":992,"fullForward":2047,"fullReverse":0})")
        << QString();
    QTest::newRow("update without id")
        << update << QByteArray(R"({"neutral":992})") << QStringLiteral("Missing 'id' parameter");
    QTest::newRow("update unknown before range")
        << update << QByteArray(R"({"id":"nope","neutral":-1})") << notFound;
    QTest::newRow("update -1") << update
                               << QByteArray(
                                      R"({"id":"$id","neutral":-1,"fullForward":1811,"fullReverse":172})")
                               << range;
    QTest::newRow("rename unknown") << QStringLiteral("action_rename_esc_preset")
                                    << QByteArray(R"({"id":"nope","name":"B"})") << notFound;
    QTest::newRow("delete unknown") << QStringLiteral("action_delete_esc_preset")
                                    << QByteArray(R"({"id":"nope"})") << notFound;
}

void TestWsEscPresetHandler::validation()
{
    QFETCH(QString, event);
    QFETCH(QByteArray, data);
    QFETCH(QString, message);
    HandlerRig<WsEscPresetHandler> rig;
    QVERIFY(rig.setUp());
    const QString id = rig.profiles.escPresets()->createPreset(QStringLiteral("Hobby"), 992, 1811, 172);
    rig.pushes->clear();
    const QByteArray fileBefore = presetFile(rig);

    const QJsonObject reply =
        rig.ask(event, QJsonDocument::fromJson(data.replace("$id", id.toUtf8())).object());
    QCOMPARE(reply.value(QLatin1String("success")).toBool(), message.isEmpty());
    QCOMPARE(reply.value(QLatin1String("message")).toString(), message);
    if (!message.isEmpty()) {
        QCOMPARE(presetFile(rig), fileBefore);
        QVERIFY(rig.pushed(QStringLiteral("event_esc_presets_changed")).isEmpty());
    }
}

void TestWsEscPresetHandler::updateReachesTheFileAndThePush()
{
    HandlerRig<WsEscPresetHandler> rig;
    QVERIFY(rig.setUp());
    const QString id = rig.profiles.escPresets()->createPreset(QStringLiteral("Hobby"), 992, 1811, 172);
    rig.pushes->clear();

    const QJsonObject reply =
        rig.ask(QStringLiteral("action_update_esc_preset"), {{QStringLiteral("id"), id},
                                                             {QStringLiteral("neutral"), 1000},
                                                             {QStringLiteral("fullForward"), 2047},
                                                             {QStringLiteral("fullReverse"), 0}});
    QVERIFY(reply.value(QLatin1String("success")).toBool());
    const QJsonObject stored = QJsonDocument::fromJson(presetFile(rig)).object()[u"presets"_s][0].toObject();
    QCOMPARE(stored.value(QLatin1String("neutral")).toInt(), 1000);
    const QList<QJsonObject> pushes = rig.pushed(QStringLiteral("event_esc_presets_changed"));
    QCOMPARE(pushes.size(), 1);
    QCOMPARE(pushes.first()[u"presets"_s][0][u"fullReverse"_s].toInt(), 0);
}

QTEST_GUILESS_MAIN(TestWsEscPresetHandler)
#include "tst_wsescpresethandler.moc"
