#include "receiverv4flasher.h"
#include "v4boardsimulator.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using tavrix::ReceiverV4Flasher;
using tavrix::ReceiverV4FlasherTimings;
using tavrix::sim::V4BoardSimulator;
using tavrix::sim::V4BoardSimulatorSettings;

namespace {

constexpr int kPageSize = V4BoardSimulator::kPageSize;
constexpr int kImagePages = 6;
const QString kNewVersion = QStringLiteral("9.9.1");
constexpr int kGenerousMs = 120000;

// A runnable firmware announcing kNewVersion, filling five pages and part of a sixth.
ReceiverV4Flasher::Image newFirmware()
{
    QByteArray bytes = V4BoardSimulator::firmwareImage(kNewVersion);
    QRandomGenerator random(4711);
    while (bytes.size() < (kImagePages - 1) * kPageSize + 1000)
        bytes += char('a' + random.bounded(26)); // never forms a second version text before the first
    return ReceiverV4Flasher::Image{bytes, bytes.size(), kNewVersion};
}

struct BootloaderCommand
{
    QString name;
    QJsonObject details;
};

int pageOf(const BootloaderCommand &command)
{
    bool ok = false;
    const uint address = command.details.value(QLatin1String("address")).toString().toUInt(&ok, 16);
    return ok ? int((address - V4BoardSimulator::kFlashBase) / kPageSize) : -1;
}

} // namespace

class TestReceiverV4Flasher : public QObject
{
    Q_OBJECT

    std::unique_ptr<V4BoardSimulator> m_board;
    std::unique_ptr<ReceiverV4Flasher> m_flasher;
    QList<BootloaderCommand> m_commands;
    QStringList m_log;

    // Starts the board and an update of newFirmware(); returns the spy of finished().
    std::unique_ptr<QSignalSpy> startUpdate(const V4BoardSimulatorSettings &settings)
    {
        m_board = std::make_unique<V4BoardSimulator>(settings);
        if (!m_board->start())
            return nullptr;
        connect(m_board.get(), &V4BoardSimulator::bootloaderCommandReceived, this,
                [this](const QString &name, const QJsonObject &details) {
                    m_commands.append({name, details});
                });
        ReceiverV4FlasherTimings timings;
        timings.powerCycleWait = std::chrono::seconds(30); // the test power-cycles as soon as asked
        timings.resyncLimit = std::chrono::milliseconds(800);
        m_flasher = std::make_unique<ReceiverV4Flasher>(timings);
        connect(m_flasher.get(), &ReceiverV4Flasher::logMessage, this,
                [this](const QString &text) { m_log.append(text); });
        connect(m_flasher.get(), &ReceiverV4Flasher::powerCycleRequested, this, [this](bool active) {
            if (active)
                m_board->powerCycle();
        });
        auto finished = std::make_unique<QSignalSpy>(m_flasher.get(), &ReceiverV4Flasher::finished);
        if (!m_flasher->update(m_board->clientPath(), newFirmware()))
            return nullptr;
        return finished;
    }

    [[nodiscard]] QList<BootloaderCommand> commandsNamed(const QString &name) const
    {
        QList<BootloaderCommand> found;
        for (const BootloaderCommand &command : m_commands)
            if (command.name == name)
                found.append(command);
        return found;
    }

    [[nodiscard]] QByteArray pageZero() const { return m_board->flash().contents().left(kPageSize); }

private slots:
    void cleanup()
    {
        m_flasher.reset();
        m_board.reset();
        m_commands.clear();
        m_log.clear();
    }

    // Identifying a running board reads its console and leaves it running its firmware.
    void readBoardLeavesTheFirmwareRunning()
    {
        m_board = std::make_unique<V4BoardSimulator>();
        QVERIFY(m_board->start());
        ReceiverV4Flasher flasher;
        QSignalSpy info(&flasher, &ReceiverV4Flasher::boardInfo);
        QSignalSpy finished(&flasher, &ReceiverV4Flasher::finished);
        QVERIFY(flasher.readBoard(m_board->clientPath()));

        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, kGenerousMs);
        QVERIFY(finished.at(0).at(0).toBool());
        QCOMPARE(info.count(), 1);
        QCOMPARE(info.at(0),
                 (QVariantList{QStringLiteral("4.3.0"), QStringLiteral("Orvane-V4-G0B1"), false}));
        QCOMPARE(m_board->state(), V4BoardSimulator::State::Firmware);
    }

    void updateWritesTheVectorTableLast_data()
    {
        QTest::addColumn<bool>("needsPowerCycle");
        QTest::addColumn<int>("corruptPage");
        QTest::addColumn<int>("retries");
        QTest::newRow("firmware restarts into the bootloader") << false << -1 << 0;
        QTest::newRow("board needs a power cycle") << true << -1 << 0;
        QTest::newRow("page corrupted once") << false << 2 << 1;
    }

    void updateWritesTheVectorTableLast()
    {
        QFETCH(bool, needsPowerCycle);
        QFETCH(int, corruptPage);
        QFETCH(int, retries);
        V4BoardSimulatorSettings settings;
        settings.needsPowerCycle = needsPowerCycle;
        settings.corruptPage = corruptPage;
        const auto finished = startUpdate(settings);
        QVERIFY(finished);
        QSignalSpy powerCycle(m_flasher.get(), &ReceiverV4Flasher::powerCycleRequested);

        QTRY_COMPARE_WITH_TIMEOUT(finished->count(), 1, kGenerousMs);
        QCOMPARE(finished->at(0).at(1).toString(),
                 QStringLiteral("Update complete: running %1.").arg(kNewVersion));
        QVERIFY(finished->at(0).at(0).toBool());
        QCOMPARE(m_board->firmwareVersion(), kNewVersion);
        QCOMPARE(powerCycle.count(), needsPowerCycle ? 2 : 0); // asked, then the wait ended

        const QByteArray image = newFirmware().bytes;
        QCOMPARE(m_board->flash().contents().left(image.size()), image);
        QCOMPARE(m_board->flash().contents().mid(image.size(), kImagePages * kPageSize - image.size()),
                 QByteArray(kImagePages * kPageSize - image.size(), char(0xFF)));

        // Page 0 is erased before anything else and written only after every other page.
        const QList<BootloaderCommand> erases = commandsNamed(QStringLiteral("EXTENDED_ERASE"));
        QVERIFY(!erases.isEmpty());
        QCOMPARE(erases.first().details.value(QLatin1String("pages")).toArray(), QJsonArray{0});
        const QList<BootloaderCommand> writes = commandsNamed(QStringLiteral("WRITE"));
        qsizetype lastOtherPage = -1;
        qsizetype firstPageZero = writes.size();
        for (qsizetype i = 0; i < writes.size(); ++i) {
            if (pageOf(writes[i]) == 0)
                firstPageZero = qMin(firstPageZero, i);
            else
                lastOtherPage = i;
        }
        QVERIFY2(firstPageZero > lastOtherPage && firstPageZero < writes.size(),
                 "page 0 was not written last");

        static const QRegularExpression retriesText(QStringLiteral("\\((\\d+) retries\\)"));
        const QStringList summary = m_log.filter(retriesText);
        QCOMPARE(summary.size(), 1);
        QCOMPARE(retriesText.match(summary.first()).captured(1).toInt(), retries);
    }

    // Nothing may be erased or written on a board the flasher must not or cannot update.
    void refusesBoardsItMustNotWrite_data()
    {
        QTest::addColumn<bool>("readoutProtection");
        QTest::addColumn<int>("chipId");
        QTest::addColumn<QString>("message");
        QTest::newRow("readout protection")
            << true << 0x467
            << QStringLiteral("The board's readout protection is on, so it can't be updated over the cable.");
        QTest::newRow("another chip") << false << 0x460
                                      << QStringLiteral("This is not a Orvane receiver V4 (chip ID 0x460, "
                                                        "expected 0x467). Nothing was written.");
    }

    void refusesBoardsItMustNotWrite()
    {
        QFETCH(bool, readoutProtection);
        QFETCH(int, chipId);
        QFETCH(QString, message);
        V4BoardSimulatorSettings settings;
        settings.readoutProtection = readoutProtection;
        settings.chipId = uint16_t(chipId);
        const QByteArray original = V4BoardSimulator(settings).flash().contents();
        const auto finished = startUpdate(settings);
        QVERIFY(finished);

        QTRY_COMPARE_WITH_TIMEOUT(finished->count(), 1, kGenerousMs);
        QCOMPARE(finished->at(0).at(0).toBool(), false);
        QCOMPARE(finished->at(0).at(1).toString(), message);
        QVERIFY(commandsNamed(QStringLiteral("EXTENDED_ERASE")).isEmpty());
        QVERIFY(commandsNamed(QStringLiteral("WRITE")).isEmpty());
        QVERIFY(m_board->flash().contents() == original);
    }

    // An update that ends half-way leaves page 0 erased: the board starts its bootloader, not a half image.
    void interruptedUpdateLeavesNoVectorTable_data()
    {
        QTest::addColumn<int>("silentAfterPages");
        QTest::addColumn<int>("cancelAfterPages");
        QTest::addColumn<QString>("message");
        QTest::newRow("board falls silent")
            << 3 << -1
            << QStringLiteral(
                   "Lost contact with the bootloader. Power-cycle the receiver and run the update again.");
        QTest::newRow("cancelled") << -1 << 2 << QStringLiteral("Cancelled.");
    }

    void interruptedUpdateLeavesNoVectorTable()
    {
        QFETCH(int, silentAfterPages);
        QFETCH(int, cancelAfterPages);
        QFETCH(QString, message);
        V4BoardSimulatorSettings settings;
        settings.silentAfterPages = silentAfterPages;
        const auto finished = startUpdate(settings);
        QVERIFY(finished);
        connect(m_flasher.get(), &ReceiverV4Flasher::progress, this,
                [this, cancelAfterPages](const QString &stage, int done) {
                    if (stage == QLatin1String("program") && done == cancelAfterPages)
                        m_flasher->cancel();
                });

        QTRY_COMPARE_WITH_TIMEOUT(finished->count(), 1, kGenerousMs);
        QCOMPARE(finished->at(0).at(0).toBool(), false);
        QCOMPARE(finished->at(0).at(1).toString(), message);
        QVERIFY(!commandsNamed(QStringLiteral("WRITE")).isEmpty());
        QCOMPARE(pageZero(), QByteArray(kPageSize, char(0xFF)));
        m_board->powerCycle();
        QCOMPARE(m_board->state(), V4BoardSimulator::State::Bootloader);
    }
};

QTEST_GUILESS_MAIN(TestReceiverV4Flasher)
#include "tst_receiverv4flasher.moc"
