#include "hubrig.h"
#include "logrouter.h"
#include "mainwindow.h"
#include "screenshotmode.h"
#include "sidebar.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using tavrix::ScreenshotMode;

namespace {

QStringList pageFiles(const QString &theme)
{
    QStringList files;
    for (const char *key :
         {"dashboard", "vehicles", "rc-car", "rc-heli", "motion-chooser", "motion-panel", "info"})
        files.append(QStringLiteral("%1-%2.png").arg(theme, QLatin1String(key)));
    files.append(QStringLiteral("%1-sidebar-collapsed.png").arg(theme));
    return files;
}

} // namespace

class TestScreenshotMode : public QObject
{
    Q_OBJECT

private slots:
    void parsesTheSize_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QSize>("size");
        QTest::newRow("plain") << QStringLiteral("1280x800") << QSize(1280, 800);
        QTest::newRow("spaces around") << QStringLiteral(" 800x480 ") << QSize(800, 480);
        QTest::newRow("no height") << QStringLiteral("1280x") << QSize();
        QTest::newRow("capital X") << QStringLiteral("1280X800") << QSize();
        QTest::newRow("zero") << QStringLiteral("0x600") << QSize();
        QTest::newRow("three parts") << QStringLiteral("1x2x3") << QSize();
        QTest::newRow("absurd") << QStringLiteral("100000x600") << QSize();
    }

    void parsesTheSize()
    {
        QFETCH(QString, text);
        QFETCH(QSize, size);
        QCOMPARE(ScreenshotMode::parseSize(text), size);
    }

    void writesEveryPageTheCollapsedSidebarAndDialogsInOrder()
    {
        QTemporaryDir dir;
        tavrix::testing::HubRig rig;
        MainWindow window(*rig.services, QStringLiteral("light"), *tavrix::LogRouter::instance());
        window.show();
        ScreenshotMode::Options options;
        options.directory = dir.filePath(QStringLiteral("shots"));
        options.size = QSize(1000, 640);
        options.dialogs = true;
        options.stepDelay = std::chrono::milliseconds(5);
        ScreenshotMode mode(&window, QStringLiteral("light"), options);
        QSignalSpy finished(&mode, &ScreenshotMode::finished);
        mode.start();
        QVERIFY(finished.wait(20000));

        QStringList expected = pageFiles(QStringLiteral("light"));
        expected << QStringLiteral("light-dlg-web-status.png") << QStringLiteral("light-dlg-msgbox.png");
        QStringList written;
        for (const QString &path : mode.writtenFiles())
            written.append(QFileInfo(path).fileName());
        QCOMPARE(written, expected);
        QVERIFY(mode.failedFiles().isEmpty());
        QCOMPARE(QImage(dir.filePath(QStringLiteral("shots/light-rc-car.png"))).size(), QSize(1000, 640));
        QVERIFY(!window.sidebar()->isCollapsed());
    }

    void programWritesTheImagesAndQuits()
    {
        QTemporaryDir dir;
        const QString config = dir.filePath(QStringLiteral("config"));
        QVERIFY(QDir().mkpath(config + QStringLiteral("/OrvaneLabs")));
        QFile settings(config + QStringLiteral("/OrvaneLabs/OrvaneLabs HUB.conf"));
        QVERIFY(settings.open(QIODevice::WriteOnly));
        settings.write("[ui]\ntheme=dark\n");
        settings.close();

        QProcess hub;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), config);
        env.insert(QStringLiteral("ORVANEHUB_SNAPSHOT_DIR"), dir.filePath(QStringLiteral("out")));
        env.insert(QStringLiteral("ORVANEHUB_SNAPSHOT_SIZE"), QStringLiteral("900x600"));
        hub.setProcessEnvironment(env);
        hub.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        hub.start(QStringLiteral(ORVANEHUB_EXECUTABLE), {});
        QVERIFY2(hub.waitForStarted(10000), qPrintable(hub.errorString()));
        QVERIFY2(hub.waitForFinished(90000), "the hub did not quit after its screenshots");
        QCOMPARE(hub.exitStatus(), QProcess::NormalExit);
        QCOMPARE(hub.exitCode(), 0);

        // Dialogs are left out unless asked for.
        QStringList expected = pageFiles(QStringLiteral("dark"));
        expected.sort();
        const QString out = dir.filePath(QStringLiteral("out"));
        QCOMPARE(QDir(out).entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name), expected);
        QCOMPARE(QImage(out + QStringLiteral("/dark-info.png")).size(), QSize(900, 600));
    }
};

QTEST_MAIN(TestScreenshotMode)
#include "tst_screenshotmode.moc"
