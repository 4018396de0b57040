// The profile store on real files in a temporary directory: lifecycle, refusals,
// unreadable files, interrupted writes and the state kept between runs.
#include "escpresetstore.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "profileschema.h"
#include "profiletestfiles.h"

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
using namespace tavrix::testing;

namespace keys = tavrix::profilekeys;

class TestProfileManager : public ProfileStoreTest
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(freshFolder()); }

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
};

QTEST_GUILESS_MAIN(TestProfileManager)
#include "tst_profilemanager.moc"
