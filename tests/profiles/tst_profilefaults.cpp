// The profile store against what goes wrong on disk and in requests: every refusal leaves
// the files as they were, unreadable and duplicate files are skipped and never overwritten.
#include "escpresetstore.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "profileschema.h"
#include "profiletestfiles.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace tavrix;
using namespace tavrix::testing;

namespace keys = tavrix::profilekeys;

class TestProfileFaults : public ProfileStoreTest
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(freshFolder()); }

    void refusalsChangeNothing_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<QString>("target"); // "ACTIVE" stands for the active profile's identifier
        QTest::addColumn<QByteArray>("argument");
        QTest::addColumn<QString>("message"); // %1 stands for the import file's path
        QTest::addColumn<bool>("diskFull");   // every write stops part-way, as on a full disk
        const auto row = [](const char *name, const char *operation, const char *target, const char *argument,
                            const char *message, bool diskFull = false) {
            QTest::newRow(name) << QString::fromUtf8(operation) << QString::fromUtf8(target)
                                << QByteArray(argument) << QString::fromUtf8(message) << diskFull;
        };
        row("rename to blanks", "rename", "ACTIVE", "   ", "Profile name cannot be empty");
        row("rename unknown", "rename", "nope", "X", "Profile not found: nope");
        row("delete unknown", "delete", "nope", "", "Profile not found: nope");
        row("delete last", "delete", "ACTIVE", "", "Cannot delete the last profile");
        row("duplicate unknown", "duplicate", "nope", "", "Source profile not found: nope");
        row("switch unknown", "switch", "nope", "", "Profile not found: nope");
        row("save unknown", "save", "nope", "", "Profile not found: nope");
        row("import missing file", "import-missing", "", "", "Failed to open file: %1");
        row("import array", "import", "", "[1,2]", "Invalid profile file format");
        row("import without id", "import", "", R"({"name":"B"})", "Invalid profile data");
        row("set identity key", "set", "id", R"("x")", "Unknown profile setting: id");
        row("set unknown key", "set", "turbo", "true", "Unknown profile setting: turbo");
        row("set time stamp", "set", "modifiedAt", R"("x")", "Unknown profile setting: modifiedAt");
        row("esc preset blank name", "esc-create", "", " ", "ESC preset name cannot be empty");
        row("esc preset update unknown", "esc-update", "nope", "", "ESC preset not found: nope");
        row("esc preset delete unknown", "esc-delete", "nope", "", "ESC preset not found: nope");
        row("esc preset apply unknown", "esc-apply", "nope", "", "ESC preset not found: nope");
        // The active profile is "Default"; it, the ESC presets and the import file exist beforehand.
        row("setting, disk full", "set", "telemetryDiscover", "false", "Failed to save profile: Default",
            true);
        row("save, disk full", "save", "ACTIVE", "", "Failed to save profile: Default", true);
        row("create, disk full", "create", "", "Fresh", "Failed to save profile: Fresh", true);
        row("import, disk full", "import", "", R"({"id":"x","name":"Imported"})",
            "Failed to save profile: Imported", true);
        row("esc preset, disk full", "esc-create", "", "Hobbywing", "Failed to save ESC presets", true);
    }

    void refusalsChangeNothing()
    {
        QFETCH(QString, operation);
        QFETCH(QString, target);
        QFETCH(QByteArray, argument);
        QFETCH(QString, message);
        QFETCH(bool, diskFull);

        auto manager = loadedStore();
        QVERIFY(!manager->escPresets()->createPreset(u"Stock"_s, 992, 1811, 172).isEmpty());
        if (target == u"ACTIVE"_s)
            target = manager->activeProfileId();
        const QString importPath = m_base->filePath(u"import.json"_s);
        if (operation == u"import"_s)
            QVERIFY(writeFile(importPath, argument));
        const QString text = QString::fromUtf8(argument);

        const auto filesBefore = snapshot(profileDir());
        const QJsonObject activeBefore = manager->activeProfile();
        const QStringList namesBefore = names(*manager);
        const QList<EscPreset> presetsBefore = manager->escPresets()->presets();
        QSignalSpy errors(manager.get(), &ProfileManager::errorOccurred);
        QSignalSpy list(manager.get(), &ProfileManager::profileListChanged);
        QSignalSpy active(manager.get(), &ProfileManager::activeProfileChanged);
        QSignalSpy modified(manager.get(), &ProfileManager::profileModified);
        QSignalSpy presets(manager.get(), &ProfileManager::escPresetsChanged);

        // Smaller than any of the files involved, so each write stops part-way through.
        constexpr rlim_t kLimit = 32;
        QVERIFY(filesBefore.value(manager->activeProfileId() + u".json"_s).size() > qsizetype(kLimit));
        QVERIFY(filesBefore.value(u"esc_presets.json"_s).size() > qsizetype(kLimit));
        std::optional<FileSizeLimit> limit;
        if (diskFull)
            QVERIFY(limit.emplace(kLimit).isActive());

        bool succeeded = true;
        if (operation == u"rename"_s)
            succeeded = manager->renameProfile(target, text);
        else if (operation == u"delete"_s)
            succeeded = manager->deleteProfile(target);
        else if (operation == u"duplicate"_s)
            succeeded = !manager->duplicateProfile(target).isEmpty();
        else if (operation == u"switch"_s)
            succeeded = manager->setActiveProfile(target);
        else if (operation == u"save"_s)
            succeeded = manager->saveProfile(target);
        else if (operation == u"create"_s)
            succeeded = !manager->createProfile(text).isEmpty();
        else if (operation == u"import"_s)
            succeeded = !manager->importProfile(importPath).isEmpty();
        else if (operation == u"import-missing"_s)
            succeeded = !manager->importProfile(m_base->filePath(u"missing.json"_s)).isEmpty();
        else if (operation == u"set"_s)
            succeeded =
                manager->setSetting(target, QJsonDocument::fromJson("[" + argument + "]").array().at(0));
        else if (operation == u"esc-create"_s)
            succeeded = !manager->escPresets()->createPreset(text, 1000, 1800, 180).isEmpty();
        else if (operation == u"esc-update"_s)
            succeeded = manager->escPresets()->updatePreset(target, 1000, 1800, 200);
        else if (operation == u"esc-delete"_s)
            succeeded = manager->escPresets()->deletePreset(target);
        else if (operation == u"esc-apply"_s)
            succeeded = manager->applyEscPreset(target);
        else
            QFAIL("unknown operation in test data");
        limit.reset();

        QVERIFY(!succeeded);
        QCOMPARE(errors.count(), 1);
        const QString expected =
            message.contains(u"%1"_s) ? message.arg(m_base->filePath(u"missing.json"_s)) : message;
        QCOMPARE(errors.at(0).at(0).toString(), expected);
        // The old bytes are all still there and no half-written or temporary file is left.
        QCOMPARE(snapshot(profileDir()), filesBefore);
        QCOMPARE(manager->activeProfile(), activeBefore);
        QCOMPARE(names(*manager), namesBefore);
        QCOMPARE(manager->escPresets()->presets(), presetsBefore);
        QCOMPARE(list.count() + active.count() + modified.count() + presets.count(), 0);

        // Without the limit a change goes through: the failures above were the writes'.
        if (diskFull)
            QVERIFY(manager->setSetting(keys::kTelemetryDiscover, false));
    }

    void unreadableProfileIsSkippedAndNeverOverwritten_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("content");

        // Cut-off JSON is written escaped: moc misreads a raw string whose quotes do not pair up.
        QTest::newRow("truncated") << u"cut.json"_s
                                   << QByteArray("{\"id\": \"cut\", \"name\": \"Cut\", \"axisSett");
        QTest::newRow("empty file") << u"empty.json"_s << QByteArray();
        QTest::newRow("array") << u"array.json"_s << QByteArray(R"([{"id":"x","name":"X"}])");
        QTest::newRow("empty id") << u"noid.json"_s << QByteArray(R"({"id":"","name":"X"})");
        QTest::newRow("oversized") << u"huge.json"_s
                                   << QByteArray("{\"id\":\"huge\",\"name\":\"Huge\",\"pad\":\"") +
                                          QByteArray(5 << 20, 'a') + QByteArray("\"}");
        // What an interrupted atomic write would leave behind: a temporary file, never a profile.
        QTest::newRow("save leftover")
            << u"c0ffee00-0000-4000-8000-000000000000.json.Ab12Cd"_s
            << QByteArray("{\"id\": \"c0ffee00-0000-4000-8000-000000000000\", \"na");
    }

    void unreadableProfileIsSkippedAndNeverOverwritten()
    {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, content);
        const QString badPath = profileDir() + u'/' + fileName;
        QVERIFY(writeFile(badPath, content));
        QVERIFY(writeFile(profileDir() + u"/good.json"_s, profileJson(u"good"_s, u"Good"_s)));

        {
            auto manager = loadedStore();
            QCOMPARE(names(*manager), QStringList{u"Good"_s});
            // Work that writes files, then the save at exit.
            QVERIFY(!manager->createProfile(u"Other"_s).isEmpty());
            QVERIFY(manager->setAutoStartEnabled(true));
            QVERIFY(manager->setActiveProfile(u"good"_s));
        }
        QCOMPARE(readFile(badPath), content);
        QVERIFY(QFileInfo(badPath).isFile());
    }

    void duplicateIdentifierIsSkipped()
    {
        QVERIFY(writeFile(profileDir() + u"/a.json"_s, profileJson(u"same"_s, u"First"_s)));
        QVERIFY(writeFile(profileDir() + u"/b.json"_s, profileJson(u"same"_s, u"Second"_s)));
        const QByteArray secondBytes = readFile(profileDir() + u"/b.json"_s);
        {
            auto manager = loadedStore();
            QCOMPARE(names(*manager), QStringList{u"First"_s});
            QVERIFY(manager->setAutoStartEnabled(true));
        }
        // Saved, the first moved to same.json; the skipped copy is left as it was.
        QCOMPARE(readFile(profileDir() + u"/b.json"_s), secondBytes);
        QVERIFY(!QFile::exists(profileDir() + u"/a.json"_s));
        // The file named after the identifier holds the newer settings and wins at the next start.
        auto manager = loadedStore();
        QCOMPARE(names(*manager), QStringList{u"First"_s});
        QVERIFY(manager->autoStartEnabled());
    }
};

QTEST_GUILESS_MAIN(TestProfileFaults)
#include "tst_profilefaults.moc"
