#include "screenshotmode.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using tavrix::ScreenshotMode;

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
        env.insert(QStringLiteral("ORVANEHUB_SNAPSHOT_DIALOGS"), QStringLiteral("1"));
        hub.setProcessEnvironment(env);
        hub.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        // No app server: a test never listens on the real network.
        hub.start(QStringLiteral(ORVANEHUB_EXECUTABLE),
                  {QStringLiteral("--remote-port"), QStringLiteral("0")});
        QVERIFY2(hub.waitForStarted(10000), qPrintable(hub.errorString()));
        QVERIFY2(hub.waitForFinished(90000), "the hub did not quit after its screenshots");
        QCOMPARE(hub.exitStatus(), QProcess::NormalExit);
        QCOMPARE(hub.exitCode(), 0);

        // Every page, the collapsed sidebar and every dialog, in the stored theme.
        QStringList expected{QStringLiteral("dark-sidebar-collapsed.png"),
                             QStringLiteral("dark-dlg-transmission.png"),
                             QStringLiteral("dark-dlg-ffb.png"),
                             QStringLiteral("dark-dlg-motion-output.png"),
                             QStringLiteral("dark-dlg-web-status.png"),
                             QStringLiteral("dark-dlg-msgbox.png"),
                             QStringLiteral("dark-dlg-led.png"),
                             QStringLiteral("dark-dlg-radio-cal.png"),
                             QStringLiteral("dark-dlg-fw-receiver-v4.png"),
                             QStringLiteral("dark-dlg-motion-web.png"),
                             QStringLiteral("dark-dlg-axis.png"),
                             QStringLiteral("dark-dlg-drive.png"),
                             QStringLiteral("dark-dlg-pedal-verify.png"),
                             QStringLiteral("dark-dlg-heli-config.png"),
                             QStringLiteral("dark-dlg-heli-fly.png"),
                             QStringLiteral("dark-dlg-heli-curves.png"),
                             QStringLiteral("dark-dlg-heli-arming.png")};
        for (const char *page :
             {"dashboard", "vehicles", "rc-car", "rc-heli", "motion-chooser", "motion-panel", "info"})
            expected.append(QStringLiteral("dark-%1.png").arg(QLatin1String(page)));
        expected.sort();
        const QString out = dir.filePath(QStringLiteral("out"));
        QCOMPARE(QDir(out).entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name), expected);
        QCOMPARE(QImage(out + QStringLiteral("/dark-info.png")).size(), QSize(900, 600));
    }
};

QTEST_MAIN(TestScreenshotMode)
#include "tst_screenshotmode.moc"
