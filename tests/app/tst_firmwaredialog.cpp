// The firmware dialog bound to the receiver V4 flasher, with the V4 board simulator on a pty
// in this process playing the receiver on its USB-UART cable; and bound to the update service,
// reading its manifest from a server on 127.0.0.1.
#include "firmwaredialog.h"
#include "firmwaredialogbinder.h"
#include "httpfileserver.h"
#include "servicefirmwarebinder.h"
#include "v4boardsimulator.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace tavrix;
using sim::V4BoardSimulator;
using sim::V4BoardSimulatorSettings;

Q_DECLARE_METATYPE(tavrix::FirmwareDevice)

namespace {

const QString kNewVersion = QStringLiteral("9.9.1");
constexpr int kPages = 4;
constexpr int kGenerousMs = 120000;

// A runnable firmware announcing kNewVersion over a few pages, so a run can be stopped half-way.
QByteArray newFirmware()
{
    QByteArray bytes = V4BoardSimulator::firmwareImage(kNewVersion);
    while (bytes.size() < (kPages - 1) * V4BoardSimulator::kPageSize + 100)
        bytes += char('a' + bytes.size() % 26);
    return bytes;
}

// Writes the firmware file and its description into dir; returns the firmware file's path.
QString writeFirmware(const QTemporaryDir &dir, const QByteArray &bytes, const QJsonObject &overrides = {})
{
    const QString path = dir.filePath(QStringLiteral("rx-v4.bin"));
    QFile firmware(path);
    if (!firmware.open(QIODevice::WriteOnly) || firmware.write(bytes) != bytes.size())
        return {};
    QJsonObject description{
        {QStringLiteral("hardware"), QStringLiteral("Orvane-V4-G0B1")},
        {QStringLiteral("flash_address"), 0x08000000},
        {QStringLiteral("size"), bytes.size()},
        {QStringLiteral("sha256"),
         QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex())},
        {QStringLiteral("version"), kNewVersion},
    };
    for (auto it = overrides.constBegin(); it != overrides.constEnd(); ++it)
        description.insert(it.key(), it.value());
    QFile json(dir.filePath(QStringLiteral("rx-v4.json")));
    if (!json.open(QIODevice::WriteOnly))
        return {};
    json.write(QJsonDocument(description).toJson());
    return path;
}

} // namespace

class TestFirmwareDialog : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    std::unique_ptr<V4BoardSimulator> m_board;
    std::unique_ptr<FirmwareDialog> m_dialog;
    ReceiverV4FirmwareBinder *m_binder = nullptr;

    // The board, and the dialog the way the About page opens it, listing the board's cable.
    bool open(const V4BoardSimulatorSettings &settings = {})
    {
        m_board = std::make_unique<V4BoardSimulator>(settings);
        if (!m_board->start())
            return false;
        ReceiverV4FlasherTimings timings;
        timings.powerCycleWait = std::chrono::seconds(30); // the test power-cycles as soon as asked
        timings.resyncLimit = std::chrono::milliseconds(800);
        m_dialog = std::make_unique<FirmwareDialog>(
            FirmwareDialog::Row::FirmwareFile | FirmwareDialog::Row::Port | FirmwareDialog::Row::ReadBoard);
        const QString port = m_board->clientPath();
        m_binder = new ReceiverV4FirmwareBinder(
            m_dialog.get(), [port] { return QStringList{port}; }, m_dialog.get(), timings);
        m_dialog->show();
        return m_dialog->selectedPort() == port;
    }

    // Clicks Update and waits for the run to end; returns the flasher's last word.
    QString updateAndWait()
    {
        QSignalSpy finished(m_binder->flasher(), &ReceiverV4Flasher::finished);
        m_dialog->updateButton()->click();
        if (!finished.wait(kGenerousMs) && finished.isEmpty())
            return QStringLiteral("(no end)");
        return finished.at(0).at(1).toString();
    }

    void verifyIdle() const
    {
        QVERIFY(!m_dialog->isRunning());
        QVERIFY(m_dialog->updateButton()->isEnabled());
        QVERIFY(!m_dialog->cancelButton()->isEnabled());
        QVERIFY(!m_dialog->isPowerCyclePromptShown());
    }

private slots:
    void init() { QVERIFY(m_dir.isValid()); }

    void cleanup()
    {
        m_dialog.reset();
        m_board.reset();
    }

    // The loader's refusal is the result, and no run starts, so not a byte reaches the board.
    void refusedImageReachesNothing_data()
    {
        QTest::addColumn<QJsonObject>("description");
        QTest::newRow("another board's firmware")
            << QJsonObject{{QStringLiteral("hardware"), QStringLiteral("Orvane-V3-F411")}};
        QTest::newRow("file and description differ") << QJsonObject{{QStringLiteral("size"), 12}};
    }

    void refusedImageReachesNothing()
    {
        QFETCH(QJsonObject, description);
        QVERIFY(open());
        QSignalSpy console(m_board.get(), &V4BoardSimulator::commandReceived);
        QSignalSpy bootloader(m_board.get(), &V4BoardSimulator::bootloaderCommandReceived);
        const QString path = writeFirmware(m_dir, newFirmware(), description);
        const QString refusal = ReceiverV4ImageLoader::load(path).error;
        QVERIFY(!refusal.isEmpty());

        m_dialog->setFirmwareFile(path);
        m_dialog->updateButton()->click();
        QCOMPARE(m_dialog->result(), refusal);
        QVERIFY(!m_dialog->resultOk());
        QVERIFY(!m_binder->flasher()->isBusy());
        verifyIdle();
        QVERIFY(console.isEmpty());
        QVERIFY(bootloader.isEmpty());
        QCOMPARE(m_board->firmwareVersion(), V4BoardSimulatorSettings().firmwareVersion);
    }

    // A good image ends on the board; the prompt shows only while the board must be power-cycled.
    void updateWritesTheBoard_data()
    {
        QTest::addColumn<bool>("needsPowerCycle");
        QTest::newRow("firmware restarts into the bootloader") << false;
        QTest::newRow("board needs a power cycle") << true;
    }

    void updateWritesTheBoard()
    {
        QFETCH(bool, needsPowerCycle);
        V4BoardSimulatorSettings settings;
        settings.needsPowerCycle = needsPowerCycle;
        QVERIFY(open(settings));
        bool promptShownWhenAsked = false;
        std::optional<bool> promptShownWhileProgramming;
        connect(m_binder->flasher(), &ReceiverV4Flasher::powerCycleRequested, this, [&](bool active) {
            if (!active)
                return;
            promptShownWhenAsked = m_dialog->isPowerCyclePromptShown();
            m_board->powerCycle();
        });
        connect(m_binder->flasher(), &ReceiverV4Flasher::progress, this, [&](const QString &stage) {
            if (stage == QLatin1String("program") && !promptShownWhileProgramming)
                promptShownWhileProgramming = m_dialog->isPowerCyclePromptShown();
        });
        const QByteArray image = newFirmware();
        m_dialog->setFirmwareFile(writeFirmware(m_dir, image));

        const QString message = updateAndWait();
        QVERIFY2(m_dialog->resultOk(), qPrintable(message));
        QCOMPARE(m_dialog->result(), message);
        QCOMPARE(m_board->flash().contents().left(image.size()), image);
        QCOMPARE(m_board->firmwareVersion(), kNewVersion);
        QCOMPARE(promptShownWhenAsked, needsPowerCycle);
        QCOMPARE(promptShownWhileProgramming, std::optional<bool>(false));
        QCOMPARE(m_dialog->progressBar()->value(), m_dialog->progressBar()->maximum());
        verifyIdle();
    }

    // Stopping half-way, by Cancel or by closing the dialog, ends the run and returns to idle.
    void stopWhileRunning_data()
    {
        QTest::addColumn<bool>("byClosing");
        QTest::newRow("cancel") << false;
        QTest::newRow("closing the dialog") << true;
    }

    void stopWhileRunning()
    {
        QFETCH(bool, byClosing);
        QVERIFY(open());
        bool stopEnabled = false;
        connect(m_binder->flasher(), &ReceiverV4Flasher::progress, this, [&](const QString &stage, int done) {
            if (stage != QLatin1String("program") || done != 2)
                return;
            stopEnabled = m_dialog->cancelButton()->isEnabled() && !m_dialog->updateButton()->isEnabled();
            if (byClosing)
                m_dialog->close();
            else
                m_dialog->cancelButton()->click();
        });
        const QByteArray image = newFirmware();
        m_dialog->setFirmwareFile(writeFirmware(m_dir, image));

        const QString message = updateAndWait();
        QCOMPARE(message, QStringLiteral("Cancelled."));
        QVERIFY(stopEnabled);
        QCOMPARE(m_dialog->result(), message);
        QVERIFY(!m_dialog->resultOk());
        QVERIFY(m_board->flash().contents().left(image.size()) != image);
        QCOMPARE(m_dialog->isVisible(), !byClosing);
        verifyIdle();
    }

    // The update server's dialogs: the receiver's check shows the version on offer, and closing
    // the dialog while the server keeps it waiting cancels the run and closes; the transmitter
    // SoC's check and update end at once with the service's own refusal.
    void serviceDialogsShowTheOutcome_data()
    {
        QTest::addColumn<FirmwareDevice>("device");
        QTest::addColumn<bool>("update"); // the button clicked: Update, else Check for updates
        QTest::addColumn<bool>("closeHalfWay");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QString>("available");
        QTest::addColumn<QString>("result"); // empty: whatever the service says
        QTest::newRow("receiver check")
            << FirmwareDevice::Receiver << false << false << true << kNewVersion << QString();
        QTest::newRow("receiver check, closed half-way")
            << FirmwareDevice::Receiver << false << true << false << QString() << QString();
        QTest::newRow("SoC check") << FirmwareDevice::Soc << false << false << false << QString()
                                   << QStringLiteral("Could not check for updates");
        QTest::newRow("SoC update") << FirmwareDevice::Soc << true << false << false << QString()
                                    << QStringLiteral("Could not start the update");
    }

    void serviceDialogsShowTheOutcome()
    {
        QFETCH(FirmwareDevice, device);
        QFETCH(bool, update);
        QFETCH(bool, closeHalfWay);
        QFETCH(bool, ok);
        QFETCH(QString, available);
        QFETCH(QString, result);
        testing::HttpFileServer server;
        QVERIFY(server.start());
        const QByteArray image = newFirmware();
        const QJsonObject release{
            {QStringLiteral("version"), kNewVersion},
            {QStringLiteral("url"), QStringLiteral("rx.bin")},
            {QStringLiteral("size"), image.size()},
            {QStringLiteral("sha256"),
             QString::fromLatin1(QCryptographicHash::hash(image, QCryptographicHash::Sha256).toHex())},
            {QStringLiteral("hardware"), QStringLiteral("Orvane-V4-G0B1")}};
        server.serve(QStringLiteral("/fw/manifest.json"),
                     QJsonDocument(QJsonObject{{QStringLiteral("devices"),
                                                QJsonObject{{QStringLiteral("receiver"), release}}}})
                         .toJson());
        server.setSilent(closeHalfWay);
        FirmwareUpdateService::Options options;
        options.manifestUrl = server.url(QStringLiteral("/fw/manifest.json"));
        options.cacheFolder = m_dir.filePath(QStringLiteral("cache"));
        FirmwareUpdateService updates(options);
        FirmwareDialog dialog(FirmwareDialog::Row::Check);
        ServiceFirmwareBinder::Target target;
        target.device = device;
        target.runningVersion = [] { return QStringLiteral("4.3.0"); };
        new ServiceFirmwareBinder(&dialog, &updates, target, &dialog);
        dialog.show();

        QSignalSpy finished(&updates, &FirmwareUpdateService::finished);
        (update ? dialog.updateButton() : dialog.checkButton())->click();
        if (closeHalfWay)
            dialog.close();
        QVERIFY(!finished.isEmpty() || finished.wait(kGenerousMs));
        QCOMPARE(dialog.isVisible(), !closeHalfWay);
        QCOMPARE(dialog.resultOk(), ok);
        QCOMPARE(dialog.result(), result.isEmpty() ? finished.at(0).at(1).toString() : result);
        QCOMPARE(dialog.availableVersion(), available);
        QVERIFY(!dialog.isRunning());
        QVERIFY(dialog.checkButton()->isEnabled());
        QVERIFY(dialog.updateButton()->isEnabled());
    }
};

QTEST_MAIN(TestFirmwareDialog)
#include "tst_firmwaredialog.moc"
