#include "bridgeclient.h"
#include "simulatedflash.h"
#include "stm32uartbootloader.h"
#include "v4boardsimulator.h"

#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <memory>

using tavrix::sim::SimulatedFlash;
using tavrix::sim::Stm32UartBootloader;
using tavrix::sim::V4BoardSimulator;
using tavrix::sim::V4BoardSimulatorSettings;
using State = V4BoardSimulator::State;

namespace {

// Bytes as the host puts them on the wire, built from the protocol's rules rather than the simulator's code.
QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

QByteArray withXor(QByteArray bytes)
{
    char x = 0;
    for (const char b : bytes)
        x ^= b;
    return bytes + x;
}

QByteArray command(uint8_t code)
{
    const char pair[] = {char(code), char(~code)};
    return QByteArray(pair, 2);
}

QByteArray address(uint32_t at)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(at, bytes.data());
    return withXor(bytes);
}

QByteArray write(uint32_t at, const QByteArray &data)
{
    return command(0x31) + address(at) + withXor(char(data.size() - 1) + data);
}

QByteArray read(uint32_t at, int count)
{
    return command(0x11) + address(at) + command(uint8_t(count - 1));
}

// Extended erase of pages: count - 1 and each page number, big-endian, then their XOR.
QByteArray erasePages(std::initializer_list<uint16_t> pages)
{
    QByteArray list(2, '\0');
    qToBigEndian(uint16_t(pages.size() - 1), list.data());
    for (const uint16_t page : pages) {
        list += char(page >> 8);
        list += char(page & 0xFF);
    }
    return command(0x44) + withXor(list);
}

constexpr uint32_t kPage1 = 0x08000800;
const QByteArray kAck(1, char(0x79));
const QByteArray kNack(1, char(0x1F));

// A firmware with its vector table (stack pointer, Thumb reset address) and, when given, its version text.
QByteArray image(uint32_t stack, uint32_t reset, const QByteArray &versionText)
{
    QByteArray bytes(8, '\0');
    qToLittleEndian(stack, bytes.data());
    qToLittleEndian(reset, bytes.data() + 4);
    return bytes + versionText + QByteArray(8, '\0');
}

} // namespace

class TestV4BoardSimulator : public QObject
{
    Q_OBJECT

    std::unique_ptr<V4BoardSimulator> m_board;
    std::unique_ptr<BridgeClient> m_client;

    void connectTo(const V4BoardSimulatorSettings &settings)
    {
        m_board = std::make_unique<V4BoardSimulator>(settings);
        QVERIFY2(m_board->start(), qPrintable(m_board->errorString()));
        m_client = std::make_unique<BridgeClient>();
        QVERIFY2(m_client->open(m_board->clientPath()), qPrintable(m_client->port.errorString()));
    }

    // Sends bytes to the bootloader and waits for `count` bytes of answer.
    QByteArray exchange(const QByteArray &bytes, qsizetype count)
    {
        const qsizetype from = m_client->raw.size();
        m_client->send(bytes);
        [[maybe_unused]] const bool arrived =
            QTest::qWaitFor([&] { return m_client->raw.size() >= from + count; }, 10000);
        return m_client->raw.mid(from);
    }

    // Runs stm32flash on the board's pty. A pty cannot carry even parity, hence 8N1.
    int stm32flash(const QString &executable, const QStringList &arguments, QByteArray &output)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        QSignalSpy finished(&process, &QProcess::finished);
        process.start(executable, QStringList{QStringLiteral("-m"), QStringLiteral("8n1"),
                                              QStringLiteral("-b"), QStringLiteral("115200")} +
                                      arguments + QStringList{m_board->clientPath()});
        // The simulator answers from this thread's event loop, so wait with it running.
        if (!finished.wait(120000))
            process.kill();
        output = process.readAll();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

private slots:
    void cleanup()
    {
        m_client.reset();
        m_board.reset();
    }

    // The bootloader on a blank 512 KB flash, byte by byte and all at once.
    void bootloaderExchanges_data()
    {
        QTest::addColumn<bool>("protectedChip");
        QTest::addColumn<int>("chipId");
        QTest::addColumn<QByteArray>("sent");
        QTest::addColumn<QByteArray>("expected");
        QTest::addColumn<QByteArray>("pageZero"); // the first two flash bytes after, "0000" before
        const QByteArray sync = hex("7f");
        const QByteArray data = hex("deadbeef");
        const QByteArray readBack = read(kPage1, 4);
        const QByteArray written = sync + write(kPage1, data);
        const auto row = [](const char *name, const QByteArray &sent, const char *expected,
                            const char *pageZero = "0000", bool protectedChip = false, int chipId = 0x467) {
            QTest::newRow(name) << protectedChip << chipId << sent << hex(expected) << QByteArray(pageZero);
        };

        row("sync; a second 0x7F pair is a bad command", hex("7f7f7f"), "79 1f");
        row("GET offers extended erase, not erase", sync + command(0x00),
            "79 79 0b 31 00 01 02 11 21 31 44 63 73 82 92 79");
        row("GET_VERSION", sync + command(0x01), "79 79 31 00 00 79");
        row("GET_ID", sync + command(0x02), "79 79 01 04 67 79");
        row("another chip", sync + command(0x02), "79 79 01 04 60 79", "0000", false, 0x460);
        row("complement missing", sync + hex("1100"), "79 1f");
        row("old erase command", sync + command(0x43), "79 1f");
        row("READ, bad address checksum", sync + command(0x11) + hex("0800000000"), "79 79 1f");
        row("READ, bad count complement", sync + command(0x11) + address(0x08000000) + hex("0300"),
            "79 79 79 1f");
        row("READ beyond the flash", sync + read(0x0807FFFC, 8), "79 79 79 1f");
        row("READ blank flash", sync + read(0x0807FFFC, 4), "79 79 79 79 ffffffff");
        row("WRITE, READ back", written + readBack, "79 79 79 79 79 79 79 deadbeef");
        row("WRITE, bad checksum", sync + command(0x31) + address(kPage1) + hex("03 deadbeef 00") + readBack,
            "79 79 79 1f 79 79 79 ffffffff");
        row("WRITE twice without erase", written + write(kPage1, hex("00000000")) + readBack,
            "79 79 79 79 79 79 1f 79 79 79 deadbeef");
        row("erase page 1", written + erasePages({1}) + readBack, "79 79 79 79 79 79 79 79 79 ffffffff");
        row("erase list with a page beyond the flash", written + erasePages({1, 256}) + readBack,
            "79 79 79 79 79 1f 79 79 79 deadbeef");
        row("mass erase", written + command(0x44) + hex("ffff00") + readBack,
            "79 79 79 79 79 79 79 79 79 ffffffff", "ffff");
        row("bank 2 erase keeps bank 1", written + command(0x44) + hex("fffd02") + readBack,
            "79 79 79 79 79 79 79 79 79 deadbeef");
        row("reserved special erase", sync + command(0x44) + hex("fff00f"), "79 79 1f");
        row("protected: identity only",
            sync + command(0x02) + command(0x11) + command(0x31) + command(0x21) + command(0x44),
            "79 79 01 04 67 79 1f 1f 1f 1f", "0000", true);
        row("protected: unprotect wipes the flash, then resets", sync + command(0x92) + command(0x02),
            "79 79 79", "ffff", true);
    }

    void bootloaderExchanges()
    {
        QFETCH(bool, protectedChip);
        QFETCH(int, chipId);
        QFETCH(QByteArray, sent);
        QFETCH(QByteArray, expected);
        QFETCH(QByteArray, pageZero);
        for (const qsizetype chunk : {qsizetype(1), sent.size()}) {
            SimulatedFlash flash(V4BoardSimulator::kFlashBase, V4BoardSimulator::kPageSize,
                                 V4BoardSimulator::kPageCount);
            flash.load(hex("0000"));
            Stm32UartBootloader bootloader(&flash);
            bootloader.setChipId(uint16_t(chipId));
            bootloader.setReadoutProtection(protectedChip);
            QByteArray answer;
            for (qsizetype at = 0; at < sent.size(); at += chunk)
                answer +=
                    bootloader.receive(QByteArrayView(sent).sliced(at, qMin(chunk, sent.size() - at))).bytes;
            QCOMPARE(answer.toHex(' '), expected.toHex(' '));
            QCOMPARE(flash.read(V4BoardSimulator::kFlashBase, 2).toHex(), pageZero);
        }
    }

    // The console of the running firmware and its way into the bootloader.
    void dfuReachesTheBootloader_data()
    {
        QTest::addColumn<bool>("needsPowerCycle");
        QTest::newRow("at once") << false;
        QTest::newRow("only after a power cycle") << true;
    }

    void dfuReachesTheBootloader()
    {
        QFETCH(bool, needsPowerCycle);
        V4BoardSimulatorSettings settings;
        settings.firmwareVersion = QStringLiteral("4.1.7");
        settings.needsPowerCycle = needsPowerCycle;
        connectTo(settings);
        m_client->send("\nVER\nHW\nDFU\n");
        QVERIFY(m_client->waitForLine(QStringLiteral("HW:Orvane-V4-G0B1"), 10000));
        QVERIFY(m_client->parser.lines.contains(QStringLiteral("Orvane:4.1.7")));
        QTRY_COMPARE_WITH_TIMEOUT(m_board->state(), needsPowerCycle ? State::Firmware : State::Bootloader,
                                  10000);
        if (needsPowerCycle) {
            // The firmware still runs and answers; the bootloader comes with the next power-up.
            const qsizetype from = m_client->parser.lines.size();
            m_client->send("VER\n");
            QVERIFY(m_client->waitForLine(QStringLiteral("Orvane:4.1.7"), 10000, from));
            m_board->powerCycle();
        }
        QCOMPARE(m_board->state(), State::Bootloader);
        QCOMPARE(exchange(hex("7f") + command(0x02), 6), hex("79 79 01 04 67 79"));
        m_board->powerCycle(); // no DFU pending: the firmware again
        QCOMPARE(m_board->state(), State::Firmware);
    }

    // After GO the chip runs what was written, if its vector table can run at all.
    void goStartsTheWrittenImage_data()
    {
        QTest::addColumn<QByteArray>("firmware");
        QTest::addColumn<State>("state");
        QTest::addColumn<QString>("version");
        QTest::newRow("version from the image") << image(0x20024000, 0x08000101, "Orvane:5.0.1-rc2")
                                                << State::Firmware << QStringLiteral("5.0.1-rc2");
        QTest::newRow("image without a version")
            << image(0x20010000, 0x08000101, "") << State::Firmware << QStringLiteral("9.9.9");
        QTest::newRow("stack pointer outside the RAM")
            << image(0x20024004, 0x08000101, "Orvane:5.0.1") << State::Silent << QString();
        QTest::newRow("reset address not Thumb")
            << image(0x20024000, 0x08000100, "Orvane:5.0.1") << State::Silent << QString();
    }

    void goStartsTheWrittenImage()
    {
        QFETCH(QByteArray, firmware);
        QFETCH(State, state);
        QFETCH(QString, version);
        V4BoardSimulatorSettings settings;
        settings.untaggedImageVersion = QStringLiteral("9.9.9");
        connectTo(settings);
        m_board->restartIntoBootloader();
        const QByteArray sent = hex("7f") + erasePages({0}) + write(0x08000000, firmware);
        QCOMPARE(exchange(sent, 6), hex("79 79 79 79 79 79"));
        QCOMPARE(m_board->flash().read(0x08000000, uint32_t(firmware.size())), firmware);

        QCOMPARE(exchange(command(0x21) + address(0x08000000), 2), hex("79 79"));
        QTRY_COMPARE_WITH_TIMEOUT(m_board->state(), state, 10000);
        if (state == State::Firmware) {
            m_client->send("\nVER\n");
            QVERIFY(m_client->waitForLine(QStringLiteral("Orvane:") + version, 10000));
        }
    }

    // A board that loses power mid-update answers nothing more until it is power-cycled.
    void fallsSilentAfterTheConfiguredPages()
    {
        V4BoardSimulatorSettings settings;
        settings.silentAfterPages = 1;
        connectTo(settings);
        m_board->restartIntoBootloader();
        QCOMPARE(exchange(hex("7f") + erasePages({1, 2}) + write(kPage1, hex("01020304")), 6),
                 hex("79 79 79 79 79 79"));
        // Command and address are still acknowledged; the data never is.
        QCOMPARE(exchange(write(kPage1 + V4BoardSimulator::kPageSize, hex("05060708")), 2), hex("79 79"));
        QTRY_COMPARE_WITH_TIMEOUT(m_board->state(), State::Silent, 10000);
        QCOMPARE(m_board->flash().read(kPage1 + V4BoardSimulator::kPageSize, 4), hex("ffffffff"));
        m_board->powerCycle();
        QCOMPARE(m_board->state(), State::Firmware); // page 0 still holds the firmware
        m_board->restartIntoBootloader();
        QCOMPARE(exchange(hex("7f") + write(kPage1 + V4BoardSimulator::kPageSize, hex("05060708")), 4),
                 hex("79 79 79 79"));
    }

    // Debian's stm32flash, an independent AN3155 client, programs and reads the board.
    void stm32flashProgramsTheBoard_data()
    {
        QTest::addColumn<bool>("protectedChip");
        QTest::addColumn<int>("corruptPage");
        QTest::addColumn<bool>("written");
        QTest::newRow("write, verify, read back") << false << -1 << true;
        QTest::newRow("verify catches a corrupted page") << false << 2 << false;
        QTest::newRow("read-out protection") << true << -1 << false;
    }

    void stm32flashProgramsTheBoard()
    {
        QFETCH(bool, protectedChip);
        QFETCH(int, corruptPage);
        QFETCH(bool, written);
        const QString executable = QStandardPaths::findExecutable(QStringLiteral("stm32flash"));
        if (executable.isEmpty())
            QSKIP("stm32flash is not installed (scripts/bootstrap installs it)");
        V4BoardSimulatorSettings settings;
        settings.readoutProtection = protectedChip;
        settings.corruptPage = corruptPage;
        connectTo(settings);
        m_client.reset(); // stm32flash needs the port to itself
        m_board->restartIntoBootloader();

        QTemporaryDir dir;
        QByteArray firmware;
        for (int i = 0; i < 3 * V4BoardSimulator::kPageSize + 100; ++i)
            firmware += char((i * 7 + i / 256) & 0xFF);
        QFile file(dir.filePath(QStringLiteral("firmware.bin")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(firmware) == firmware.size());
        file.close();

        QByteArray output;
        const int writeStatus =
            stm32flash(executable, {QStringLiteral("-w"), file.fileName(), QStringLiteral("-v")}, output);
        QVERIFY2(output.contains("0x0467"), output.constData());
        QCOMPARE(writeStatus == 0, written);
        QCOMPARE(m_board->flash().read(0x08000000, uint32_t(firmware.size())) == firmware, written);
        if (!written)
            return;
        const QString back = dir.filePath(QStringLiteral("back.bin"));
        QCOMPARE(stm32flash(executable,
                            {QStringLiteral("-r"), back, QStringLiteral("-S"),
                             QStringLiteral("0x08000000:%1").arg(firmware.size())},
                            output),
                 0);
        QFile readBack(back);
        QVERIFY(readBack.open(QIODevice::ReadOnly));
        QCOMPARE(readBack.readAll(), firmware);
    }
};

QTEST_GUILESS_MAIN(TestV4BoardSimulator)
#include "tst_v4boardsimulator.moc"
