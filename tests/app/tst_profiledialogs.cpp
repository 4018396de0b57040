// The profiles and dashboard tiles dialogs bound to the profile store in a temporary folder;
// the tiles also to the window's dashboard, fed by the bridge simulator.
#include "dashboardpage.h"
#include "dashboardsettingsdialog.h"
#include "hubrig.h"
#include "notice.h"
#include "profilesdialog.h"
#include "profilesdialogbinder.h"
#include "profiletestfiles.h"
#include "stattile.h"
#include "telemetrysensorbook.h"
#include "vehiclepage.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <functional>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

// A profiles dialog bound the way the window binds it, whose file prompts answer with the
// paths set here and whose delete question is answered yes.
struct ProfilesRig
{
    HubRig hub;
    ProfileManager *profiles = hub.services->profiles();
    ProfilesDialog dialog;
    QString importPath;
    QString exportPath;

    ProfilesRig()
    {
        ProfilesDialog::Prompts prompts;
        prompts.importPath = [this](QWidget *) { return importPath; };
        prompts.exportPath = [this](QWidget *, const QString &) { return exportPath; };
        prompts.confirmDelete = [](QWidget *, const QString &) { return true; };
        dialog.setPrompts(prompts);
        new ProfilesDialogBinder(&dialog, profiles);
    }
    QString folder() const { return profiles->profileDirectory(); }
};

// The names in the profile files of a folder, sorted.
QStringList savedNames(const QString &folder)
{
    QStringList names;
    for (const QFileInfo &file : QDir(folder).entryInfoList({u"*.json"_s}, QDir::Files)) {
        const QString name = readJson(file.filePath()).value(keys::kName).toString();
        if (!name.isEmpty())
            names.append(name);
    }
    names.sort();
    return names;
}

QStringList listedNames(const ProfilesDialog &dialog)
{
    QStringList names;
    for (QTreeWidgetItemIterator it(dialog.profileList()); *it; ++it) {
        if ((*it)->parent())
            names.append((*it)->text(0));
    }
    names.sort();
    return names;
}

template<class Dialog> Dialog *openDialog(QWidget *window)
{
    const QList<Dialog *> open = window->findChildren<Dialog *>();
    const auto it = std::find_if(open.begin(), open.end(), [](Dialog *d) { return d->isVisible(); });
    return it == open.end() ? nullptr : *it;
}

// A transmitting car whose readings have reached the dashboard, and the tiles dialog opened
// from it; nothing is chosen yet, so every reading (the car's motion among them) shows.
struct TilesRig
{
    HubRig hub;
    DashboardPage *dash = nullptr;
    DashboardSettingsDialog *dialog = nullptr;

    bool open()
    {
        dash = hub.showPage<DashboardPage>(u"dashboard"_s);
        if (!dash || !hub.startCarTransmission() ||
            !QTest::qWaitFor([this] { return dash->telemetryGrid()->tileCount() > 5; }, 20000))
            return false;
        dash->telemetrySettingsButton()->click();
        dialog = openDialog<DashboardSettingsDialog>(hub.window.get());
        return dialog;
    }
};

using Action = std::function<void(ProfilesDialog &)>;
using Button = QPushButton *(ProfilesDialog::*)() const;

} // namespace

Q_DECLARE_METATYPE(Action)

class TestProfileDialogs : public QObject
{
    Q_OBJECT

private slots:
    void operationReachesTheFolderOrIsRefused_data()
    {
        QTest::addColumn<Action>("action");
        QTest::addColumn<bool>("withRace"); // a second profile "Race", chosen in the list
        QTest::addColumn<bool>("diskFull");
        QTest::addColumn<QStringList>("saved"); // empty: refused, the folder as it was
        const auto named = [](const QString &name, Button button) {
            return Action([=](ProfilesDialog &d) {
                d.nameEdit()->setText(name);
                (d.*button)()->click();
            });
        };
        const auto press = [](Button button) {
            return Action([=](ProfilesDialog &d) { (d.*button)()->click(); });
        };

        QTest::newRow("create") << named(u"Rally"_s, &ProfilesDialog::createButton) << true << false
                                << QStringList{u"Default"_s, u"Race"_s, u"Rally"_s};
        QTest::newRow("create, disk full")
            << named(u"Rally"_s, &ProfilesDialog::createButton) << true << true << QStringList();
        QTest::newRow("rename") << named(u"Track"_s, &ProfilesDialog::renameButton) << true << false
                                << QStringList{u"Default"_s, u"Track"_s};
        QTest::newRow("rename to blanks")
            << named(u"   "_s, &ProfilesDialog::renameButton) << true << false << QStringList();
        QTest::newRow("duplicate") << press(&ProfilesDialog::duplicateButton) << true << false
                                   << QStringList{u"Default"_s, u"Race"_s, u"Race (Copy)"_s};
        QTest::newRow("duplicate, disk full")
            << press(&ProfilesDialog::duplicateButton) << true << true << QStringList();
        QTest::newRow("delete") << press(&ProfilesDialog::deleteButton) << true << false
                                << QStringList{u"Default"_s};
        QTest::newRow("delete the last one")
            << press(&ProfilesDialog::deleteButton) << false << false << QStringList();
    }

    void operationReachesTheFolderOrIsRefused()
    {
        QFETCH(Action, action);
        QFETCH(bool, withRace);
        QFETCH(bool, diskFull);
        QFETCH(QStringList, saved);
        ProfilesRig rig;
        const QString race = withRace ? rig.profiles->createProfile(u"Race"_s) : QString();
        rig.dialog.select(withRace ? race : rig.profiles->activeProfileId());
        QVERIFY(!rig.dialog.selectedId().isEmpty());
        const QMap<QString, QByteArray> before = snapshot(rig.folder());
        QSignalSpy refusals(rig.profiles, &ProfileManager::errorOccurred);
        {
            // A profile file is several kilobytes: no write of one fits.
            std::optional<FileSizeLimit> full;
            if (diskFull)
                QVERIFY(full.emplace(256).isActive());
            action(rig.dialog);
        }

        if (saved.isEmpty()) {
            QCOMPARE(refusals.size(), 1);
            QCOMPARE(rig.dialog.notice()->text(), refusals.at(0).at(0).toString());
            QCOMPARE(snapshot(rig.folder()), before);
        } else {
            QCOMPARE(refusals.size(), 0);
            QCOMPARE(savedNames(rig.folder()), saved);
            QVERIFY(rig.dialog.notice()->isHidden());
        }
        QCOMPARE(listedNames(rig.dialog), savedNames(rig.folder()));
    }

    void exportedProfileImportsAsACopy()
    {
        ProfilesRig rig;
        QVERIFY(rig.profiles->setAutoStartEnabled(true));
        QJsonObject original = rig.profiles->activeProfile();
        rig.exportPath = rig.hub.dir.filePath(u"shared/default.json"_s);
        rig.dialog.select(rig.profiles->activeProfileId());

        rig.dialog.exportButton()->click();
        QCOMPARE(readJson(rig.exportPath), original);

        rig.importPath = rig.exportPath;
        rig.dialog.importButton()->click();
        QCOMPARE(savedNames(rig.folder()), (QStringList{u"Default"_s, u"Default (2)"_s}));
        const QString copy = rig.dialog.selectedId();
        QVERIFY(copy != original.value(keys::kId).toString());
        QJsonObject imported = rig.profiles->profile(copy);
        QCOMPARE(imported.value(keys::kName).toString(), u"Default (2)"_s);
        // Everything but its identity and dates came along.
        for (QJsonObject *document : {&imported, &original}) {
            for (QLatin1String key : {keys::kId, keys::kName, keys::kCreatedAt, keys::kModifiedAt})
                document->remove(key);
        }
        QCOMPARE(imported, original);
    }

    void badFileIsRefusedWithTheStoresMessage_data()
    {
        QTest::addColumn<QByteArray>("content"); // of the file to import; null: no file
        QTest::addColumn<bool>("exporting");
        QTest::newRow("import, cut-off JSON") << QByteArray(R"({"id": "a", "name":)") << false;
        QTest::newRow("import, no name") << QByteArray(R"({"id": "a"})") << false;
        QTest::newRow("import, no such file") << QByteArray() << false;
        QTest::newRow("export onto a folder") << QByteArray() << true;
    }

    void badFileIsRefusedWithTheStoresMessage()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, exporting);
        ProfilesRig rig;
        rig.importPath = rig.hub.dir.filePath(u"in.json"_s);
        if (!content.isNull())
            QVERIFY(writeFile(rig.importPath, content));
        rig.exportPath = rig.hub.dir.filePath(u"taken"_s);
        QVERIFY(QDir().mkpath(rig.exportPath));
        const QMap<QString, QByteArray> before = snapshot(rig.hub.dir.path());
        QSignalSpy refusals(rig.profiles, &ProfileManager::errorOccurred);

        (exporting ? rig.dialog.exportButton() : rig.dialog.importButton())->click();

        QCOMPARE(refusals.size(), 1);
        QCOMPARE(rig.dialog.notice()->text(), refusals.at(0).at(0).toString());
        QCOMPARE(snapshot(rig.hub.dir.path()), before);
        QCOMPARE(rig.profiles->profiles().size(), 1);
    }

    void vehiclePagesOpenTheProfiles_data()
    {
        QTest::addColumn<QString>("page");
        QTest::newRow("car") << u"rc-car"_s;
        QTest::newRow("helicopter") << u"rc-heli"_s;
    }

    void vehiclePagesOpenTheProfiles()
    {
        QFETCH(QString, page);
        HubRig rig;
        auto *vehicle = rig.showPage<VehiclePage>(page);
        QVERIFY(vehicle);
        vehicle->profilesButton()->click();
        auto *dialog = openDialog<ProfilesDialog>(rig.window.get());
        QVERIFY(dialog);
        QCOMPARE(dialog->activeId(), rig.services->profiles()->activeProfileId());
    }

    void chosenTilesReachTheProfileAndTheDashboard()
    {
        TilesRig tiles;
        QVERIFY(tiles.open());
        HubRig &rig = tiles.hub;
        DashboardPage *dash = tiles.dash;
        DashboardSettingsDialog *dialog = tiles.dialog;
        QListWidget *list = dialog->tileList();
        const auto item = [list](const QString &key) {
            return list->findItems(key, Qt::MatchExactly).value(0);
        };
        QVERIFY(item(u"RQly"_s) && item(u"GLat"_s));

        item(u"RQly"_s)->setCheckState(Qt::Checked);
        item(u"GLat"_s)->setCheckState(Qt::Checked);
        list->setCurrentItem(item(u"RQly"_s));
        while (list->row(item(u"RQly"_s)) < list->row(item(u"GLat"_s)))
            dialog->downButton()->click();

        // Stored in the profile's own spelling of the car's motion, in the chosen order.
        const QString file = rig.services->profiles()->profileDirectory() + u"/"_s +
                             rig.services->profiles()->activeProfileId() + u".json"_s;
        QCOMPARE(readJson(file).value(keys::kTelemetryDashboard).toArray(),
                 (QJsonArray{u"LatG"_s, u"RQly"_s}));
        QTRY_COMPARE(dash->telemetryGrid()->tileCount(), 2);
        QVERIFY(dash->telemetryGrid()->tile(0)->caption().startsWith(u"GLat"_s));
        QVERIFY(dash->telemetryGrid()->tile(1)->caption().startsWith(u"RQly"_s));
        QVERIFY(dialog->notice()->isHidden());
    }

    void sensorLabelAndDiscoveryReachTheProfileAndTheDashboard()
    {
        TilesRig tiles;
        QVERIFY(tiles.open());
        HubRig &rig = tiles.hub;
        DashboardPage *dash = tiles.dash;
        DashboardSettingsDialog *dialog = tiles.dialog;
        QListWidget *list = dialog->tileList();
        const TelemetrySensorBook *book = rig.controller()->telemetrySensors();
        // A reading the car never sent has no label to give; one it sends has.
        for (int row = 0; row < list->count(); ++row) {
            list->setCurrentRow(row);
            const QString key = list->item(row)->text();
            QCOMPARE(dialog->labelEdit()->isEnabled(), book->hasSensor(key));
        }
        list->setCurrentItem(list->findItems(u"RQly"_s, Qt::MatchExactly).value(0));
        QVERIFY(dialog->labelEdit()->isEnabled());
        dialog->labelEdit()->setText(u"Link"_s);
        emit dialog->labelEdit()->editingFinished();

        const auto stored = [&rig] {
            return readJson(rig.services->profiles()->profileDirectory() + u"/"_s +
                            rig.services->profiles()->activeProfileId() + u".json"_s);
        };
        const QJsonArray known = stored().value(keys::kTelemetrySensors).toArray();
        const auto rqly = std::find_if(known.begin(), known.end(), [](const QJsonValue &sensor) {
            return sensor[keys::kSensorKey].toString() == u"RQly"_s;
        });
        QVERIFY(rqly != known.end());
        QCOMPARE((*rqly)[keys::kSensorLabel].toString(), u"Link"_s);
        QVERIFY(!list->findItems(u"Link (RQly)"_s, Qt::MatchExactly).isEmpty());
        // The dashboard's tile goes by the label.
        const auto tileCaptions = [dash] {
            QStringList captions;
            for (int i = 0; i < dash->telemetryGrid()->tileCount(); ++i)
                captions.append(dash->telemetryGrid()->tile(i)->caption());
            return captions;
        };
        QTRY_VERIFY(tileCaptions().contains(u"Link"_s));
        QVERIFY(!tileCaptions().contains(u"RQly"_s));

        QVERIFY(dialog->discoveryBox()->isChecked());
        dialog->discoveryBox()->click();
        QCOMPARE(stored().value(keys::kTelemetryDiscover).toBool(true), false);
        QVERIFY(dialog->notice()->isHidden());
    }
};

QTEST_MAIN(TestProfileDialogs)
#include "tst_profiledialogs.moc"
