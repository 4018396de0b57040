#include "deviceroleset.h"
#include "motionpatterns.h"
#include "receiverline.h"
#include "startup.h"
#include "uf2image.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>
#include <QTranslator>

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void identityNamesTheSettingsStoreAndSetsTheIcon()
    {
        tavrix::applyIdentity(*qApp);
        QCOMPARE(QCoreApplication::organizationName(), QStringLiteral("OrvaneLabs"));
        QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("OrvaneLabs HUB"));
        QVERIFY(!QApplication::windowIcon().isNull());
    }

    void installsTheFirstLanguageThatLoads_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<QString>("installed");
        QTest::newRow("german") << QStringList{QStringLiteral("de-DE")} << QStringLiteral("de_DE");
        QTest::newRow("austrian falls back to german")
            << QStringList{QStringLiteral("de-AT")} << QStringLiteral("de_AT");
        QTest::newRow("unknown first, german second")
            << QStringList{QStringLiteral("fr-FR"), QStringLiteral("de-DE")} << QStringLiteral("de_DE");
        QTest::newRow("english first stops the search")
            << QStringList{QStringLiteral("en-GB"), QStringLiteral("de-DE")} << QStringLiteral("en_GB");
        QTest::newRow("no translation")
            << QStringList{QStringLiteral("fr-FR"), QStringLiteral("ja-JP")} << QString();
        QTest::newRow("no languages") << QStringList{} << QString();
    }

    void installsTheFirstLanguageThatLoads()
    {
        QFETCH(QStringList, languages);
        QFETCH(QString, installed);
        QTranslator translator;
        if (installed.isEmpty())
            QTest::ignoreMessage(QtInfoMsg, QRegularExpression(QStringLiteral("^hub: no translation for")));
        QCOMPARE(tavrix::installTranslation(*qApp, translator, languages), installed);
        QCOMPARE(translator.isEmpty(), installed.isEmpty());
        QCoreApplication::removeTranslator(&translator);
    }

    void germanTranslationCoversWindowAndControllerTexts()
    {
        QTranslator translator;
        QCOMPARE(tavrix::installTranslation(*qApp, translator, {QStringLiteral("de-DE")}),
                 QStringLiteral("de_DE"));
        QCOMPARE(QCoreApplication::translate("hub::Sidebar", "Collapse"), QStringLiteral("Einklappen"));
        // The controller's refusals reach the window as they are made, so they are translated too.
        QCOMPARE(tavrix::deviceDisconnectedMessage(tavrix::DeviceRole::WheelBase),
                 QStringLiteral("Lenkrad getrennt"));
        // So are the radio's, the motion platform's and the firmware update's, each in the
        // context its own code translates in.
        QCOMPARE(tavrix::receiver::mountingErrorText(QStringLiteral("no imu")),
                 QStringLiteral("Die IMU des Empfängers läuft nicht."));
        QCOMPARE(tavrix::receiver::gpsStatusText({}, false), QStringLiteral("am Empfänger aus"));
        QCOMPARE(tavrix::patternName(tavrix::kPatternHeave), QStringLiteral("Heben"));
        QCOMPARE(tavrix::Uf2Image::validate(QByteArray(3, '\0')),
                 QStringLiteral("Das Image besteht nicht aus ganzen UF2-Blöcken zu 512 Bytes (3 Bytes)."));
        // Qt's own buttons in the dialogs come from the hub's translation as well.
        QDialogButtonBox buttons(QDialogButtonBox::Close);
        QCOMPARE(buttons.button(QDialogButtonBox::Close)->text(), QStringLiteral("Schließen"));
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(QCoreApplication::translate("hub::Sidebar", "Collapse"), QStringLiteral("Collapse"));

        // Without the translation folder, start-up goes on in English and says so.
        QTest::ignoreMessage(QtInfoMsg, "hub: no translation for de-DE, using English");
        QCOMPARE(tavrix::installTranslation(*qApp, translator, {QStringLiteral("de-DE")},
                                            QStringLiteral("/nonexistent/i18n")),
                 QString());
    }
};

QTEST_MAIN(TestStartup)
#include "tst_startup.moc"
