#include "handlerrig.h"
#include "wsprofilehandler.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace tavrix;
using namespace Qt::StringLiterals;
using namespace tavrix::testing;

namespace {

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestWsProfileHandler : public QObject
{
    Q_OBJECT

private slots:
    void validation_data();
    void validation();
    void importOfAnExportAddsACopy();
    void renameRewritesTheFileAndPushes();
};

void TestWsProfileHandler::validation_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QByteArray>("data"); // $id: the only profile
    QTest::addColumn<QString>("message");

    const QString noId = QStringLiteral("Missing 'id' parameter");
    const QString notFound = QStringLiteral("Profile not found: nope");
    QTest::newRow("switch without id") << QStringLiteral("set_active_profile") << QByteArray("{}") << noId;
    QTest::newRow("switch to unknown")
        << QStringLiteral("set_active_profile") << QByteArray(R"({"id":"nope"})") << notFound;
    QTest::newRow("create unnamed") << QStringLiteral("action_create_profile")
                                    << QByteArray(R"({"name":"  "})")
                                    << QStringLiteral("Missing 'name' parameter");
    QTest::newRow("rename unnamed") << QStringLiteral("action_rename_profile")
                                    << QByteArray(R"({"id":"$id"})")
                                    << QStringLiteral("Missing 'id' or 'name' parameter");
    QTest::newRow("rename unknown") << QStringLiteral("action_rename_profile")
                                    << QByteArray(R"({"id":"nope","name":"X"})")
                                    << QStringLiteral("Failed to rename profile");
    QTest::newRow("duplicate without source")
        << QStringLiteral("action_duplicate_profile") << QByteArray(R"({"name":"X"})")
        << QStringLiteral("Missing 'sourceId' or 'name' parameter");
    QTest::newRow("duplicate unknown")
        << QStringLiteral("action_duplicate_profile") << QByteArray(R"({"sourceId":"nope","name":"X"})")
        << QStringLiteral("Failed to duplicate profile");
    QTest::newRow("delete without id") << QStringLiteral("action_delete_profile") << QByteArray("{}") << noId;
    QTest::newRow("delete the only one")
        << QStringLiteral("action_delete_profile") << QByteArray(R"({"id":"$id"})")
        << QStringLiteral("Failed to delete profile (cannot delete the last profile)");
    QTest::newRow("import a number") << QStringLiteral("action_import_profile")
                                     << QByteArray(R"({"profileJson":5})")
                                     << QStringLiteral("Missing 'profileJson' object");
    QTest::newRow("import without id")
        << QStringLiteral("action_import_profile") << QByteArray(R"({"profileJson":{"name":"X"}})")
        << QStringLiteral("Failed to import profile");
    QTest::newRow("import 65 mappings") << QStringLiteral("action_import_profile")
                                        << R"({"profileJson":{"id":"a","name":"A","buttonMappings":[)" +
                                               QByteArrayList(65, "{}").join(',') + "]}}"
                                        << QStringLiteral("Failed to import profile");
    QTest::newRow("export unknown") << QStringLiteral("action_export_profile")
                                    << QByteArray(R"({"id":"nope"})") << notFound;
}

void TestWsProfileHandler::validation()
{
    QFETCH(QString, event);
    QFETCH(QByteArray, data);
    QFETCH(QString, message);
    HandlerRig<WsProfileHandler> rig;
    QVERIFY(rig.setUp());
    const QString id = rig.profiles.activeProfileId();
    const QStringList filesBefore = QDir(rig.profiles.profileDirectory()).entryList(QDir::Files);
    const QJsonObject profileBefore = rig.profiles.activeProfile();

    const QJsonObject reply =
        rig.ask(event, QJsonDocument::fromJson(data.replace("$id", id.toUtf8())).object());
    QCOMPARE(reply.value(QLatin1String("success")).toBool(), false);
    QCOMPARE(reply.value(QLatin1String("message")).toString(), message);
    QCOMPARE(QDir(rig.profiles.profileDirectory()).entryList(QDir::Files), filesBefore);
    QCOMPARE(rig.profiles.activeProfile(), profileBefore);
    QVERIFY(rig.pushes->isEmpty());
}

void TestWsProfileHandler::importOfAnExportAddsACopy()
{
    HandlerRig<WsProfileHandler> rig;
    QVERIFY(rig.setUp());
    const QString id = rig.profiles.activeProfileId();
    const QString path = QDir(rig.profiles.profileDirectory()).filePath(id + QStringLiteral(".json"));
    const QByteArray original = fileBytes(path);

    const QJsonObject exported =
        rig.ask(QStringLiteral("action_export_profile"), {{QStringLiteral("id"), id}});
    const QJsonObject document = exported[u"data"_s][u"profileJson"_s].toObject();
    QCOMPARE(document.value(QLatin1String("id")).toString(), id);
    const QJsonObject imported =
        rig.ask(QStringLiteral("action_import_profile"), {{QStringLiteral("profileJson"), document}});
    QVERIFY(imported.value(QLatin1String("success")).toBool());

    const QString copy = imported[u"data"_s][u"id"_s].toString();
    QVERIFY(!copy.isEmpty() && copy != id);
    QCOMPARE(fileBytes(path), original);
    const QJsonObject stored =
        QJsonDocument::fromJson(
            fileBytes(QDir(rig.profiles.profileDirectory()).filePath(copy + QStringLiteral(".json"))))
            .object();
    QCOMPARE(stored.value(QLatin1String("name")).toString(), QStringLiteral("Default (2)"));
    QCOMPARE(stored.value(QLatin1String("buttonMappings")), document.value(QLatin1String("buttonMappings")));
    QCOMPARE(rig.ask(QStringLiteral("get_profiles"))[u"data"_s][u"profiles"_s].toArray().size(), 2);
    QCOMPARE(rig.pushed(QStringLiteral("event_profile_list_changed")).size(), 1);
    QVERIFY(QDir::temp().entryList({QStringLiteral("tavrix_import_*")}).isEmpty());
}

void TestWsProfileHandler::renameRewritesTheFileAndPushes()
{
    HandlerRig<WsProfileHandler> rig;
    QVERIFY(rig.setUp());
    const QString id = rig.profiles.activeProfileId();

    const QJsonObject reply =
        rig.ask(QStringLiteral("action_rename_profile"),
                {{QStringLiteral("id"), id}, {QStringLiteral("name"), QStringLiteral("Track")}});
    QVERIFY(reply.value(QLatin1String("success")).toBool());
    const QString path = QDir(rig.profiles.profileDirectory()).filePath(id + QStringLiteral(".json"));
    QCOMPARE(QJsonDocument::fromJson(fileBytes(path)).object().value(QLatin1String("name")).toString(),
             QStringLiteral("Track"));
    const QList<QJsonObject> changed = rig.pushed(QStringLiteral("event_profile_changed"));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().value(QLatin1String("name")).toString(), QStringLiteral("Track"));
}

QTEST_GUILESS_MAIN(TestWsProfileHandler)
#include "tst_wsprofilehandler.moc"
