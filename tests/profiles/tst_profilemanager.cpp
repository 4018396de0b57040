// The profile store on real files in a temporary directory: lifecycle, refusals,
// unreadable files, interrupted writes and the state kept between runs.
#include "escpresetstore.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "profileschema.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>
#include <optional>
#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace tavrix;

namespace keys = tavrix::profilekeys;

namespace {

// Makes every write past `bytes` into any regular file of this process fail for real
// (EFBIG), the way a full disk cuts a write short; restored when it goes out of scope.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_previous);
        m_previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = m_previous;
        limit.rlim_cur = bytes;
        m_active = setrlimit(RLIMIT_FSIZE, &limit) == 0;
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_previous);
        std::signal(SIGXFSZ, m_previousHandler);
    }
    [[nodiscard]] bool isActive() const { return m_active; }

private:
    rlimit m_previous{};
    void (*m_previousHandler)(int) = nullptr;
    bool m_active = false;
};

// Every file under a directory (hidden ones and temporary leftovers included) with its bytes.
QMap<QString, QByteArray> snapshot(const QString &directory)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(directory, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            files.insert(QDir(directory).relativeFilePath(path), file.readAll());
    }
    return files;
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject readJson(const QString &path)
{
    return QJsonDocument::fromJson(readFile(path)).object();
}

QByteArray profileJson(const QString &id, const QString &name, const QJsonObject &extra = {})
{
    QJsonObject object = extra;
    object.insert(keys::kId, id);
    object.insert(keys::kName, name);
    return QJsonDocument(object).toJson();
}

QStringList names(const ProfileManager &manager)
{
    QStringList list;
    for (const ProfileSummary &summary : manager.profiles())
        list.append(summary.name);
    return list;
}

constexpr QLatin1String kOldDate{"2020-01-01T00:00:00Z"};

} // namespace

class TestProfileManager : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_base = std::make_unique<QTemporaryDir>();
        QVERIFY(m_base->isValid());
    }

    void emptyStoreYieldsOneDefaultProfile_data()
    {
        QTest::addColumn<QStringList>("existingFiles");
        QTest::newRow("no profile directory") << QStringList();
        QTest::newRow("only config and presets") << QStringList{u"config.json"_s, u"esc_presets.json"_s};
    }

    void emptyStoreYieldsOneDefaultProfile()
    {
        QFETCH(QStringList, existingFiles);
        for (const QString &name : existingFiles) {
            if (name == u"config.json"_s)
                QVERIFY(writeFile(profileDir() + u"/config.json"_s,
                                  R"({"version":1,"lastActiveProfileId":"gone"})"));
            else
                QVERIFY(writeFile(profileDir() + u"/esc_presets.json"_s,
                                  R"({"version":1,"presets":[{"id":"e1","name":"Hobbywing"}]})"));
        }

        ProfileManager manager(m_base->path());
        QSignalSpy active(&manager, &ProfileManager::activeProfileChanged);
        manager.loadProfiles();

        QCOMPARE(names(manager), QStringList{u"Default"_s});
        const QString id = manager.profiles().constFirst().id;
        QCOMPARE(manager.activeProfileId(), id);
        QCOMPARE(manager.activeProfileName(), u"Default"_s);
        QCOMPARE(active.count(), 1);
        QCOMPARE(active.at(0).at(0).toString(), id);
        QVERIFY(!QUuid::fromString(id).isNull());
        QVERIFY(!id.startsWith(u'{'));
        QCOMPARE(readJson(profileDir() + u'/' + id + u".json"_s), manager.profile(id));
    }

    void profilesAreReadWithMigrations()
    {
        // A profile as an older version wrote it is read through the schema's rules and migrations.
        QVERIFY(writeFile(profileDir() + u"/old.json"_s, R"({"id": "old", "name": "Race", "version": 1,
            "axisSettings": {"escMode": 1}, "telemetryDashboard": ["GLat"]})"));
        auto manager = loadedStore();
        const QJsonObject profile = manager->profile(u"old"_s);
        QCOMPARE(profile.value(keys::kVehicleType).toString(), u"rc_car"_s);
        QCOMPARE(profile.value(keys::kTelemetryDashboard).toArray(), QJsonArray{u"LatG"_s});
    }

    void createNamesAndSavesProfile_data()
    {
        QTest::addColumn<QString>("requested");
        QTest::addColumn<QString>("expected");
        QTest::newRow("blank") << u"   "_s << u"New Profile"_s;
        QTest::newRow("trimmed") << u"  Race  "_s << u"Race"_s;
        // Creating keeps the asked name even when it is taken; only imports are renamed.
        QTest::newRow("taken name kept") << u"Default"_s << u"Default"_s;
    }

    void createNamesAndSavesProfile()
    {
        QFETCH(QString, requested);
        QFETCH(QString, expected);
        auto manager = loadedStore();
        const QString activeBefore = manager->activeProfileId();
        QSignalSpy list(manager.get(), &ProfileManager::profileListChanged);

        const QString id = manager->createProfile(requested);
        QVERIFY(!id.isEmpty());
        QCOMPARE(manager->profileName(id), expected);
        QCOMPARE(list.count(), 1);
        QCOMPARE(manager->activeProfileId(), activeBefore);
        const QJsonObject profile = manager->profile(id);
        QVERIFY(!profile.value(keys::kCreatedAt).toString().isEmpty());
        QCOMPARE(profile.value(keys::kModifiedAt), profile.value(keys::kCreatedAt));
        QCOMPARE(readFile(profileDir() + u'/' + id + u".json"_s), ProfileSchema::toFileBytes(profile));
    }

    void duplicateCopiesSettingsUnderNewIdentity()
    {
        QVERIFY(writeFile(profileDir() + u"/race.json"_s,
                          profileJson(u"race"_s, u"Race"_s,
                                      {{keys::kCreatedAt, kOldDate},
                                       {keys::kModifiedAt, kOldDate},
                                       {keys::kVehicleType, vehicletype::kHelicopter},
                                       {keys::kLedSettings, QJsonObject{{u"brightness"_s, 40}}}})));
        auto manager = loadedStore();
        QSignalSpy list(manager.get(), &ProfileManager::profileListChanged);

        const QString copy = manager->duplicateProfile(u"race"_s);
        QCOMPARE(manager->profileName(copy), u"Race (Copy)"_s);
        QCOMPARE(list.count(), 1);
        QJsonObject original = manager->profile(u"race"_s);
        QJsonObject duplicate = manager->profile(copy);
        QVERIFY(copy != u"race"_s);
        QVERIFY(duplicate.value(keys::kCreatedAt).toString() != kOldDate);
        for (QLatin1String key : {keys::kId, keys::kName, keys::kCreatedAt, keys::kModifiedAt}) {
            original.remove(key);
            duplicate.remove(key);
        }
        QCOMPARE(duplicate, original);
        QVERIFY(QFile::exists(profileDir() + u'/' + copy + u".json"_s));

        const QString named = manager->duplicateProfile(u"race"_s, u"Heli 2"_s);
        QCOMPARE(manager->profileName(named), u"Heli 2"_s);
    }

    void renameStampsAndSignals_data()
    {
        QTest::addColumn<bool>("renameActive");
        QTest::newRow("active profile") << true;
        QTest::newRow("other profile") << false;
    }

    void renameStampsAndSignals()
    {
        QFETCH(bool, renameActive);
        const QJsonObject dates{{keys::kCreatedAt, kOldDate}, {keys::kModifiedAt, kOldDate}};
        QVERIFY(writeFile(profileDir() + u"/a.json"_s, profileJson(u"a"_s, u"Alpha"_s, dates)));
        QVERIFY(writeFile(profileDir() + u"/b.json"_s, profileJson(u"b"_s, u"Beta"_s, dates)));
        auto manager = loadedStore();
        QCOMPARE(manager->activeProfileId(), u"a"_s);
        const QString target = renameActive ? u"a"_s : u"b"_s;
        QSignalSpy list(manager.get(), &ProfileManager::profileListChanged);
        QSignalSpy active(manager.get(), &ProfileManager::activeProfileChanged);

        QVERIFY(manager->renameProfile(target, u" Gamma "_s));
        QCOMPARE(manager->profileName(target), u"Gamma"_s);
        QCOMPARE(list.count(), 1);
        QCOMPARE(active.count(), renameActive ? 1 : 0);
        const QJsonObject onDisk = readJson(profileDir() + u'/' + target + u".json"_s);
        QCOMPARE(onDisk.value(keys::kName).toString(), u"Gamma"_s);
        QCOMPARE(onDisk.value(keys::kCreatedAt).toString(), kOldDate);
        QVERIFY(onDisk.value(keys::kModifiedAt).toString() != kOldDate);
    }

    void deleteRemovesFileAndMovesActiveWithinType()
    {
        const QJsonObject heli{{keys::kVehicleType, vehicletype::kHelicopter}};
        QVERIFY(writeFile(profileDir() + u"/1.json"_s, profileJson(u"1"_s, u"Heli"_s, heli)));
        QVERIFY(writeFile(profileDir() + u"/2.json"_s, profileJson(u"2"_s, u"Car A"_s)));
        QVERIFY(writeFile(profileDir() + u"/3.json"_s, profileJson(u"3"_s, u"Car B"_s)));
        auto manager = loadedStore();
        QVERIFY(manager->setActiveProfile(u"2"_s));
        QSignalSpy list(manager.get(), &ProfileManager::profileListChanged);
        QSignalSpy active(manager.get(), &ProfileManager::activeProfileChanged);

        // Deleting the active car profile makes another car profile active, not the helicopter.
        QVERIFY(manager->deleteProfile(u"2"_s));
        QVERIFY(!QFile::exists(profileDir() + u"/2.json"_s));
        QCOMPARE(manager->activeProfileId(), u"3"_s);
        QCOMPARE(active.count(), 1);
        QCOMPARE(active.at(0).at(0).toString(), u"3"_s);
        QCOMPARE(readJson(profileDir() + u"/config.json"_s).value(keys::kLastActiveProfileId).toString(),
                 u"3"_s);
        QCOMPARE(list.count(), 1);

        // Deleting another profile leaves the active one alone.
        QVERIFY(manager->deleteProfile(u"1"_s));
        QCOMPARE(active.count(), 1);
        QCOMPARE(manager->activeProfileId(), u"3"_s);
    }

    void importGivesNewIdentityAndUniqueName_data()
    {
        QTest::addColumn<QStringList>("existing");
        QTest::addColumn<QString>("imported");
        QTest::addColumn<QString>("expected");
        QTest::newRow("taken name") << QStringList{u"Race"_s} << u"Race"_s << u"Race (2)"_s;
        QTest::newRow("taken in other case") << QStringList{u"Race"_s} << u"RACE"_s << u"RACE (2)"_s;
        QTest::newRow("next free number")
            << QStringList{u"Race"_s, u"race (2)"_s, u"Race (3)"_s} << u"Race"_s << u"Race (4)"_s;
        QTest::newRow("numbered name free") << QStringList{u"Race (2)"_s} << u"Race"_s << u"Race"_s;
    }

    void importGivesNewIdentityAndUniqueName()
    {
        QFETCH(QStringList, existing);
        QFETCH(QString, imported);
        QFETCH(QString, expected);
        for (int i = 0; i < existing.size(); ++i) {
            const QString id = u"p%1"_s.arg(i);
            QVERIFY(writeFile(profileDir() + u'/' + id + u".json"_s, profileJson(id, existing.at(i))));
        }
        auto manager = loadedStore();
        QCOMPARE(manager->uniqueName(imported), expected);

        const QString source = m_base->filePath(u"import.json"_s);
        QVERIFY(writeFile(source, profileJson(u"p0"_s, imported,
                                              {{keys::kCreatedAt, kOldDate},
                                               {keys::kAxisSettings, QJsonObject{{keys::kEscMode, 1}}}})));
        QSignalSpy list(manager.get(), &ProfileManager::profileListChanged);
        const QString id = manager->importProfile(source);
        QVERIFY(!id.isEmpty());
        QVERIFY(id != u"p0"_s);
        QCOMPARE(list.count(), 1);
        const QJsonObject profile = manager->profile(id);
        QCOMPARE(profile.value(keys::kName).toString(), expected);
        QVERIFY(profile.value(keys::kCreatedAt).toString() != kOldDate);
        QCOMPARE(profile.value(keys::kAxisSettings).toObject().value(keys::kEscMode).toInt(), 0);
        QCOMPARE(readJson(profileDir() + u'/' + id + u".json"_s), profile);
        // The profile it shares an identifier with in the file is untouched.
        if (!existing.isEmpty())
            QCOMPARE(manager->profileName(u"p0"_s), existing.constFirst());
    }

    void switchingIsRememberedAcrossRuns()
    {
        const QJsonObject heli{{keys::kVehicleType, vehicletype::kHelicopter}};
        QVERIFY(writeFile(profileDir() + u"/car.json"_s, profileJson(u"car"_s, u"Car"_s)));
        QVERIFY(writeFile(profileDir() + u"/heli.json"_s, profileJson(u"heli"_s, u"Heli"_s, heli)));
        {
            auto manager = loadedStore();
            QSignalSpy active(manager.get(), &ProfileManager::activeProfileChanged);
            QVERIFY(manager->setActiveProfile(u"heli"_s));
            QCOMPARE(active.count(), 1);
            QCOMPARE(active.at(0).at(0).toString(), u"heli"_s);
            QVERIFY(manager->setActiveProfile(u"car"_s));
            QVERIFY(manager->setActiveProfile(u"heli"_s));
            const QJsonObject config = readJson(profileDir() + u"/config.json"_s);
            QCOMPARE(config.value(keys::kVersion).toInt(), 1);
            QCOMPARE(config.value(keys::kLastActiveProfileId).toString(), u"heli"_s);
            QCOMPARE(config.value(keys::kLastActiveByType).toObject(),
                     (QJsonObject{{u"rc_car"_s, u"car"_s}, {u"rc_helicopter"_s, u"heli"_s}}));
        }
        auto manager = loadedStore();
        QCOMPARE(manager->activeProfileId(), u"heli"_s);
        QCOMPARE(manager->activeProfileName(), u"Heli"_s);
        QCOMPARE(manager->lastActiveProfileId(u"rc_car"_s), u"car"_s);
        QCOMPARE(manager->lastActiveProfileId(u"rc_helicopter"_s), u"heli"_s);

        // A remembered profile that is gone gives way to the first one.
        QVERIFY(
            writeFile(profileDir() + u"/config.json"_s, R"({"version":1,"lastActiveProfileId":"deleted"})"));
        manager = loadedStore();
        QCOMPARE(manager->activeProfileId(), u"car"_s);
    }

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

    void settingsAreWrittenThrough()
    {
        // Copied in by hand under another name: saved, it moves to <id>.json.
        QVERIFY(writeFile(
            profileDir() + u"/my car.json"_s,
            profileJson(u"p"_s, u"P"_s, {{keys::kCreatedAt, kOldDate}, {keys::kModifiedAt, kOldDate}})));
        {
            auto manager = loadedStore();
            QSignalSpy modified(manager.get(), &ProfileManager::profileModified);
            // Setting what is already there writes nothing.
            QVERIFY(manager->setAutoStartEnabled(false));
            QVERIFY(manager->setSetting(keys::kLedSettings, QJsonObject{}));
            QCOMPARE(modified.count(), 0);
            QCOMPARE(manager->activeProfile().value(keys::kModifiedAt).toString(), kOldDate);
            // A partial section is completed with defaults, as if read from a file.
            const QJsonObject led{{u"brightness"_s, 50}, {u"mode"_s, u"range"_s}};
            QVERIFY(manager->setSetting(keys::kLedSettings, led));
            QCOMPARE(modified.count(), 1);
            QCOMPARE(modified.at(0).at(0).toString(), u"p"_s);
            const QJsonObject stored = manager->setting(keys::kLedSettings).toObject();
            QCOMPARE(stored.value(u"brightness"_s).toInt(), 50);
            QCOMPARE(stored.value(u"ledCount"_s).toInt(), 8);
            // Migrations are for files: what a caller sets is kept as set.
            QVERIFY(manager->setSetting(keys::kTelemetryDashboard, QJsonArray{u"GVrt"_s}));
            QCOMPARE(manager->setting(keys::kTelemetryDashboard).toArray(), QJsonArray{u"GVrt"_s});
            QVERIFY(manager->setSetting(keys::kAxisSettings, QJsonObject{{keys::kEscMode, 1}}));
            QCOMPARE(manager->setting(keys::kAxisSettings).toObject().value(keys::kEscMode).toInt(), 1);
            QVERIFY(manager->setVehicleType(vehicletype::kHelicopter));
            QCOMPARE(manager->vehicleType(), u"rc_helicopter"_s);
            const QJsonObject onDisk = readJson(profileDir() + u"/p.json"_s);
            QCOMPARE(onDisk, manager->activeProfile());
            QVERIFY(!QFile::exists(profileDir() + u"/my car.json"_s));
            QCOMPARE(onDisk.value(keys::kCreatedAt).toString(), kOldDate);
            QVERIFY(onDisk.value(keys::kModifiedAt).toString() != kOldDate);
        }
        auto manager = loadedStore();
        QCOMPARE(manager->profiles().size(), 1);
        QCOMPARE(manager->setting(keys::kLedSettings).toObject().value(u"mode"_s).toString(), u"range"_s);
        QCOMPARE(manager->vehicleType(), u"rc_helicopter"_s);
    }

    void transmitterPortDefaultsAndPersists()
    {
        {
            auto manager = loadedStore();
            QCOMPARE(manager->transmitterPortName(), QString());
            QCOMPARE(manager->transmitterBaudRate(), 115200);
            QVERIFY(manager->setTransmitterPort(u"/dev/ttyACM0"_s, 921600));
        }
        {
            auto manager = loadedStore();
            QCOMPARE(manager->transmitterPortName(), u"/dev/ttyACM0"_s);
            QCOMPARE(manager->transmitterBaudRate(), 921600);
            // A nonsensical rate is stored as the bridge's own rate.
            QVERIFY(manager->setTransmitterPort(u"COM4"_s, 0));
            QCOMPARE(manager->transmitterBaudRate(), 115200);
        }
    }

    void deviceIdentityPerRole_data()
    {
        QTest::addColumn<DeviceRole>("role");
        QTest::addColumn<QString>("path"); // where the record sits in the profile
        QTest::addColumn<QString>("keptKey");
        QTest::newRow("wheel base") << DeviceRole::WheelBase << u"deviceConnections/wheelBase"_s
                                    << u"hasCustomAxisMapping"_s;
        QTest::newRow("shifter") << DeviceRole::Shifter << u"deviceConnections/shifter"_s
                                 << u"shifterMapping"_s;
        QTest::newRow("helicopter throttle")
            << DeviceRole::HeliThrottle << u"helicopterConfig/inputs/throttle"_s << u"axis"_s;
    }

    void deviceIdentityPerRole()
    {
        QFETCH(DeviceRole, role);
        QFETCH(QString, path);
        QFETCH(QString, keptKey);

        const DeviceIdentity identity{u"MOZA R9 Base"_s,
                                      u"{6f1d2b61-d5a0-11cf-bfc7-444553540000}"_s,
                                      u"/dev/input/event7"_s,
                                      u"usb-0000:00:14.0-2"_s,
                                      0x346e,
                                      0x0002};
        {
            auto manager = loadedStore();
            QVERIFY(manager->deviceIdentity(role).isEmpty());
            const QJsonValue keptBefore = manager->deviceConnection(role).value(keptKey);
            QVERIFY(!keptBefore.isUndefined());
            QVERIFY(manager->setDeviceIdentity(role, identity));
            QCOMPARE(manager->deviceConnection(role).value(keptKey), keptBefore);
        }
        auto manager = loadedStore();
        QCOMPARE(manager->deviceIdentity(role), identity);
        QJsonValue record = manager->activeProfile();
        for (const QString &part : path.split(u'/'))
            record = record.toObject().value(part);
        QCOMPARE(record.toObject().value(keys::kProductName).toString(), identity.productName);
        QCOMPARE(record.toObject().value(keys::kVendorId).toInt(), 0x346e);
    }

    void escPresetsLifecycle()
    {
        QString hobbywing;
        {
            auto manager = loadedStore();
            QCOMPARE(manager->escPresets()->presets().size(), 0);
            QSignalSpy changed(manager.get(), &ProfileManager::escPresetsChanged);
            hobbywing = manager->escPresets()->createPreset(u"Hobbywing"_s, 1000, 1800, 180);
            const QString stock = manager->escPresets()->createPreset(u"Stock"_s, 992, 1811, 172);
            QVERIFY(!hobbywing.isEmpty() && !stock.isEmpty());
            QVERIFY(manager->escPresets()->updatePreset(hobbywing, 1010, 1790, 190));
            QVERIFY(manager->escPresets()->renamePreset(hobbywing, u"Hobbywing XR10"_s));
            QVERIFY(manager->escPresets()->deletePreset(stock));
            QCOMPARE(changed.count(), 5);
            const QJsonObject file = readJson(profileDir() + u"/esc_presets.json"_s);
            QCOMPARE(file.value(keys::kVersion).toInt(), 1);
            QCOMPARE(file.value(keys::kPresets).toArray(),
                     (QJsonArray{QJsonObject{{u"id"_s, hobbywing},
                                             {u"name"_s, u"Hobbywing XR10"_s},
                                             {u"neutral"_s, 1010},
                                             {u"fullForward"_s, 1790},
                                             {u"fullReverse"_s, 190}}}));
        }
        auto manager = loadedStore();
        QCOMPARE(manager->escPresets()->presets(),
                 (QList<EscPreset>{{hobbywing, u"Hobbywing XR10"_s, 1010, 1790, 190}}));
        // Applying a preset fills the profile's custom ESC values.
        QVERIFY(manager->applyEscPreset(hobbywing));
        const QJsonObject axis = manager->setting(keys::kAxisSettings).toObject();
        QCOMPARE(axis.value(keys::kEscMode).toInt(), 2);
        QCOMPARE(axis.value(keys::kEscPresetId).toString(), hobbywing);
        QCOMPARE(axis.value(keys::kEscNeutral).toInt(), 1010);
        QCOMPARE(axis.value(keys::kEscFullForward).toInt(), 1790);
        QCOMPARE(axis.value(keys::kEscFullReverse).toInt(), 190);
        // Missing values read as the standard end points.
        QVERIFY(writeFile(profileDir() + u"/esc_presets.json"_s,
                          R"({"version":1,"presets":[{"id":"e","name":"Bare"},{"name":"no id"},3]})"));
        manager = loadedStore();
        QCOMPARE(manager->escPresets()->presets(), (QList<EscPreset>{{u"e"_s, u"Bare"_s, 992, 1811, 172}}));
    }

    void onlyALoadedStoreWritesAtExit()
    {
        QVERIFY(writeFile(profileDir() + u"/config.json"_s, R"({"version":1,"lastActiveProfileId":"keep"})"));
        const auto before = snapshot(profileDir());
        {
            ProfileManager manager(m_base->path());
        }
        QCOMPARE(snapshot(profileDir()), before);

        // A loaded one writes the configuration and the active profile again at exit.
        QString active;
        {
            auto manager = loadedStore();
            active = manager->createProfile(u"Second"_s);
            QVERIFY(manager->setActiveProfile(active));
            QVERIFY(QFile::remove(profileDir() + u"/config.json"_s));
            QVERIFY(QFile::remove(profileDir() + u'/' + active + u".json"_s));
        }
        QCOMPARE(readJson(profileDir() + u"/config.json"_s).value(keys::kLastActiveProfileId).toString(),
                 active);
        QVERIFY(QFile::exists(profileDir() + u'/' + active + u".json"_s));
    }

private:
    std::unique_ptr<ProfileManager> loadedStore()
    {
        auto manager = std::make_unique<ProfileManager>(m_base->path());
        manager->loadProfiles();
        return manager;
    }

    QString profileDir() const { return m_base->filePath(u"profiles"_s); }

    std::unique_ptr<QTemporaryDir> m_base;
};

QTEST_GUILESS_MAIN(TestProfileManager)
#include "tst_profilemanager.moc"
