#include "receiverv4flashsession.h"

#include <QDeadlineTimer>
#include <QRegularExpression>
#include <QThread>

namespace tavrix {

namespace {

using ms = std::chrono::milliseconds;

constexpr uint16_t kReceiverV4ChipId = 0x467; // STM32G0B1
constexpr int kPageSize = 2048;
constexpr int kPageAttempts = 4;
constexpr int kStepAttempts = 5;
// A board whose port vanishes again and again while connecting is not worth chasing longer.
constexpr int kConnectStarts = 3;
// Enough to prove the vector table is readable: a protected chip refuses any READ.
constexpr int kProtectionProbeBytes = 8;
// Console replies are short lines; more than this without a line end is noise.
constexpr qsizetype kMaxConsoleLine = 256;
constexpr ms kReopenPause{250};
constexpr ms kSyncSlice{1000};

const QString kStageConnect = QStringLiteral("connect");
const QString kStageProgram = QStringLiteral("program");
const QString kStageVerify = QStringLiteral("verify");

QString hex32(uint32_t value)
{
    return QStringLiteral("%1").arg(value, 8, 16, QLatin1Char('0')).toUpper();
}

uint32_t pageAddress(int page)
{
    return ReceiverV4Image::kFlashAddress + uint32_t(page) * kPageSize;
}

ms remaining(const QDeadlineTimer &deadline)
{
    return ms(qMax<qint64>(0, deadline.remainingTime()));
}

} // namespace

ReceiverV4FlashSession::ReceiverV4FlashSession(const ReceiverV4FlasherTimings &timings,
                                               const std::atomic_bool &cancelled, QObject *parent)
    : QObject(parent)
    , m_timings(timings)
    , m_cancelled(cancelled)
    , m_link(timings.writeTimeout)
    , m_client(m_link, m_timings, cancelled)
{}

void ReceiverV4FlashSession::readBoard(const QString &portName)
{
    m_started.start();
    const Outcome outcome = runReadBoard(portName);
    m_link.close();
    emit finished(outcome.ok, outcome.message);
}

void ReceiverV4FlashSession::update(const QString &portName, const ReceiverV4Image &image)
{
    m_started.start();
    m_retries = 0;
    log(tr("Firmware %1, %2 bytes.").arg(image.version).arg(image.fileSize));
    const Outcome outcome = runUpdate(portName, image);
    m_link.close();
    emit finished(outcome.ok, outcome.message);
}

ReceiverV4FlashSession::Outcome ReceiverV4FlashSession::runReadBoard(const QString &portName)
{
    if (!openPort(portName))
        return failure();
    emit progress(kStageConnect, 0, 1);
    if (const auto reply = askFirmware("\nVER\nHW\n", true, m_timings.firmwareReplyTimeout,
                                       m_timings.firmwareReplyTimeout)) {
        emit boardInfo(reply->version, reply->hardware, false);
        const QString text = tr("Running firmware: %1 on %2").arg(reply->version, reply->hardware);
        log(text);
        return Outcome{true, text};
    }
    log(tr("No reply from the firmware (continuing; it may be in OSD mode or too old)."));
    if (syncInBootloaderParity(m_timings.bootloaderProbe)) {
        uint16_t chipId = 0;
        if (!logIdentity(chipId))
            return failure();
        emit boardInfo(QString(), QString(), true);
        const QString text = tr("The board is in the bootloader (no firmware running).");
        log(text);
        return Outcome{true, text};
    }
    if (m_cancelled)
        return Outcome{false, tr("Cancelled.")};
    logWiringHint();
    return Outcome{false, tr("The board does not answer.")};
}

ReceiverV4FlashSession::Outcome ReceiverV4FlashSession::runUpdate(const QString &portName,
                                                                  const ReceiverV4Image &image)
{
    if (!openPort(portName) || !reachBootloader() || !identifyChip() || !program(image))
        return failure();
    return startAndCheck(image);
}

bool ReceiverV4FlashSession::openPort(const QString &portName)
{
    m_portName = portName;
    if (m_link.open(portName))
        return true;
    return fail(
        tr("Can't open %1: %2. Close any other program using it.").arg(portName, m_link.errorString()));
}

bool ReceiverV4FlashSession::reachBootloader()
{
    emit progress(kStageConnect, 0, 1);
    for (int start = 1;; ++start) {
        const Reach reach = tryReachBootloader();
        if (reach == Reach::Bootloader)
            break;
        if (reach == Reach::Failed)
            return false;
        log(tr("[%1 s] Lost contact with the board (it may have reset). Starting over.")
                .arg(elapsedSeconds()));
        if (start == kConnectStarts)
            return fail(tr("Lost contact with the board."));
        // A board that resets takes its USB-UART bridge with it for a moment when it powers both.
        const QDeadlineTimer deadline(m_timings.reopenLimit);
        while (!m_link.open(m_portName)) {
            if (m_cancelled)
                return failCancelled();
            if (deadline.hasExpired())
                return openPort(m_portName);
            QThread::msleep(kReopenPause.count());
        }
    }
    emit progress(kStageConnect, 1, 1);
    return true;
}

ReceiverV4FlashSession::Reach ReceiverV4FlashSession::tryReachBootloader()
{
    if (!m_link.setParity(BlockingSerialLink::Parity::None)) {
        fail(m_link.errorString());
        return Reach::Failed;
    }
    const auto reply =
        askFirmware("\nVER\nHW\n", true, m_timings.firmwareReplyTimeout, m_timings.firmwareReplyTimeout);
    if (m_link.isGone())
        return Reach::Lost;
    if (m_cancelled) {
        failCancelled();
        return Reach::Failed;
    }
    bool reached = false;
    if (reply) {
        log(tr("Running firmware: %1 on %2").arg(reply->version, reply->hardware));
        emit boardInfo(reply->version, reply->hardware, false);
        log(tr("Asking the firmware to restart into the bootloader (DFU)."));
        if (!m_link.write("DFU\n")) {
            if (m_link.isGone())
                return Reach::Lost;
            fail(m_link.errorString());
            return Reach::Failed;
        }
        reached = syncInBootloaderParity(m_timings.bootloaderAfterDfu);
    } else {
        log(tr("No reply from the firmware (continuing; it may be in OSD mode or too old)."));
        reached = syncInBootloaderParity(m_timings.bootloaderProbe);
        if (reached) {
            log(tr("The board is already in the bootloader."));
            emit boardInfo(QString(), QString(), true);
        }
    }
    if (reached)
        return Reach::Bootloader;
    if (m_link.isGone())
        return Reach::Lost;
    if (m_cancelled) {
        failCancelled();
        return Reach::Failed;
    }
    if (!m_failure.isEmpty())
        return Reach::Failed; // the port refused the bootloader's parity
    return waitForPowerCycle();
}

ReceiverV4FlashSession::Reach ReceiverV4FlashSession::waitForPowerCycle()
{
    emit powerCycleRequested(true);
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(m_timings.powerCycleWait);
    log(tr("POWER-CYCLE THE BOARD NOW (switch its power off and on). Listening for %1 s...")
            .arg(seconds.count()));
    // The user may unplug the cable with the board: the port comes and goes meanwhile.
    const QDeadlineTimer deadline(m_timings.powerCycleWait);
    bool found = false;
    while (!found && !deadline.hasExpired() && !m_cancelled && m_failure.isEmpty()) {
        if (m_link.isGone() || !m_link.isOpen()) {
            if (!m_link.open(m_portName))
                QThread::msleep(qMin(kReopenPause, remaining(deadline)).count());
            continue;
        }
        found = syncInBootloaderParity(qMin(kSyncSlice, remaining(deadline)));
    }
    emit powerCycleRequested(false);
    if (found) {
        log(tr("Bootloader found."));
        return Reach::Bootloader;
    }
    if (m_cancelled)
        failCancelled();
    if (!m_failure.isEmpty())
        return Reach::Failed;
    const QString text = tr("The board did not enter the bootloader.");
    log(text);
    logWiringHint();
    fail(text);
    return Reach::Failed;
}

bool ReceiverV4FlashSession::syncInBootloaderParity(ms limit)
{
    if (!m_link.setParity(BlockingSerialLink::Parity::Even))
        return fail(m_link.errorString());
    return m_client.synchronise(limit);
}

std::optional<ReceiverV4FlashSession::FirmwareReply>
ReceiverV4FlashSession::askFirmware(const QByteArray &query, bool wantHardware, ms total, ms repeatEvery)
{
    static const QRegularExpression versionPattern(QStringLiteral("Orvane:([0-9][0-9A-Za-z.\\-]*)"));
    static const QRegularExpression hardwarePattern(QStringLiteral("HW:([ -~]+)"));
    FirmwareReply reply;
    QByteArray pending;
    m_link.discardInput();
    const QDeadlineTimer deadline(total);
    QDeadlineTimer nextQuery(0);
    while (!deadline.hasExpired() && !m_cancelled && !m_link.isGone()) {
        if (nextQuery.hasExpired()) {
            if (!m_link.write(query))
                break;
            nextQuery.setRemainingTime(repeatEvery);
        }
        pending += m_link.readSome(qMin(remaining(deadline), remaining(nextQuery)));
        // Only whole lines: a half-arrived "HW:Orv" would otherwise pass for the name.
        for (qsizetype end = pending.indexOf('\n'); end >= 0; end = pending.indexOf('\n')) {
            const QString line = QString::fromLatin1(pending.left(end)).trimmed();
            pending.remove(0, end + 1);
            if (const auto match = versionPattern.match(line); match.hasMatch() && reply.version.isEmpty())
                reply.version = match.captured(1);
            if (const auto match = hardwarePattern.match(line); match.hasMatch() && reply.hardware.isEmpty())
                reply.hardware = match.captured(1).trimmed();
        }
        if (pending.size() > kMaxConsoleLine)
            pending.clear();
        if (!reply.version.isEmpty() && (!wantHardware || !reply.hardware.isEmpty()))
            break;
    }
    if (reply.version.isEmpty())
        return std::nullopt;
    return reply;
}

bool ReceiverV4FlashSession::identifyChip()
{
    uint16_t chipId = 0;
    if (!logIdentity(chipId))
        return false;
    if (chipId != kReceiverV4ChipId) {
        const QString id = QStringLiteral("%1").arg(chipId, 3, 16, QLatin1Char('0')).toUpper();
        return fail(
            tr("This is not a Orvane receiver V4 (chip ID 0x%1, expected 0x467). Nothing was written.")
                .arg(id));
    }
    // Read-out protection does not show in GET or GET_ID; the chip refuses READ itself.
    QByteArray vectors;
    if (retried([&] {
            return m_client.readMemory(ReceiverV4Image::kFlashAddress, kProtectionProbeBytes, vectors);
        }))
        return true;
    if (!m_cancelled && m_client.commandRefused())
        return fail(tr("The board's readout protection is on, so it can't be updated over the cable."));
    return false;
}

bool ReceiverV4FlashSession::logIdentity(uint16_t &chipId)
{
    if (!retried([&] { return m_client.getId(chipId); }))
        return false;
    const uint8_t protocol = m_client.info().protocolVersion;
    log(tr("Bootloader protocol %1.%2, chip ID 0x%3")
            .arg(protocol >> 4)
            .arg(protocol & 0x0F)
            .arg(QStringLiteral("%1").arg(chipId, 3, 16, QLatin1Char('0')).toUpper()));
    return true;
}

bool ReceiverV4FlashSession::program(const ReceiverV4Image &image)
{
    const int pages = int((image.bytes.size() + kPageSize - 1) / kPageSize);
    emit progress(kStageProgram, 0, pages);
    // Page 0 holds the vector table. Erased first and written last, it exists only once the
    // rest is in place: a board interrupted half-way starts its bootloader, never a half image.
    log(tr("Erasing page 0 (vector table)."));
    if (!retried([&] { return m_client.erasePage(0); }))
        return false;
    for (int done = 0; done < pages; ++done) {
        const int page = (done + 1) % pages;
        if (m_cancelled)
            return failCancelled();
        if (!programPage(page, image.bytes.mid(qsizetype(page) * kPageSize, kPageSize)))
            return false;
        emit progress(kStageProgram, done + 1, pages);
    }
    log(tr("Programmed and verified %1 bytes (%2 retries).").arg(image.bytes.size()).arg(m_retries));
    return true;
}

bool ReceiverV4FlashSession::programPage(int page, const QByteArray &bytes)
{
    QString rewriteReason;
    for (int attempt = 1; attempt <= kPageAttempts; ++attempt) {
        if (attempt > 1) {
            ++m_retries;
            log(rewriteReason.arg(page).arg(attempt));
        }
        if (!retried([&] { return m_client.erasePage(page); }))
            return false;
        const PageWrite written = writePage(page, bytes);
        if (written == PageWrite::Fatal)
            return false;
        if (written == PageWrite::Refused) {
            rewriteReason = tr("Page %1: write failed, rewriting (attempt %2)");
            continue;
        }
        bool matches = false;
        if (!readBack(page, bytes, matches))
            return false;
        if (matches)
            return true;
        rewriteReason = tr("Page %1: verify failed, rewriting (attempt %2)");
    }
    return fail(tr("Page %1 could not be programmed.").arg(page));
}

ReceiverV4FlashSession::PageWrite ReceiverV4FlashSession::writePage(int page, const QByteArray &bytes)
{
    for (qsizetype offset = 0; offset < bytes.size(); offset += Stm32BootloaderClient::kMaxTransfer) {
        if (m_cancelled) {
            failCancelled();
            return PageWrite::Fatal;
        }
        const uint32_t address = pageAddress(page) + uint32_t(offset);
        const QByteArray piece = bytes.mid(offset, Stm32BootloaderClient::kMaxTransfer);
        if (m_client.writeMemory(address, piece))
            continue;
        log(tr("  [%1 s] write 0x%2: %3 - resyncing")
                .arg(elapsedSeconds(), hex32(address), m_client.error()));
        if (!resync())
            return PageWrite::Fatal;
        // Bytes that did land refuse a second write until the page is erased again.
        if (!m_client.writeMemory(address, piece))
            return PageWrite::Refused;
    }
    return PageWrite::Written;
}

bool ReceiverV4FlashSession::readBack(int page, const QByteArray &bytes, bool &matches)
{
    for (qsizetype offset = 0; offset < bytes.size(); offset += Stm32BootloaderClient::kMaxTransfer) {
        const QByteArray expected = bytes.mid(offset, Stm32BootloaderClient::kMaxTransfer);
        QByteArray stored;
        const uint32_t address = pageAddress(page) + uint32_t(offset);
        if (!retried([&] { return m_client.readMemory(address, int(expected.size()), stored); }))
            return false;
        if (stored != expected) {
            matches = false;
            return true;
        }
    }
    matches = true;
    return true;
}

ReceiverV4FlashSession::Outcome ReceiverV4FlashSession::startAndCheck(const ReceiverV4Image &image)
{
    emit progress(kStageVerify, 0, 1);
    // A failed GO may only have lost its ACK: the firmware's answer below tells.
    if (!m_client.go(ReceiverV4Image::kFlashAddress))
        log(tr("GO: %1").arg(m_client.error()));
    if (!m_link.setParity(BlockingSerialLink::Parity::None))
        log(m_link.errorString());
    const auto reply =
        askFirmware("\nVER\n", false, m_timings.startedFirmwareReply, m_timings.firmwareReplyTimeout);
    emit progress(kStageVerify, 1, 1);
    if (m_cancelled)
        return Outcome{false, tr("Cancelled.")};
    if (!reply)
        return Outcome{false,
                       tr("The firmware was written and verified, but the receiver did not answer after "
                          "starting. Power-cycle it and check the version.")};
    if (reply->version != image.version)
        return Outcome{false, tr("The receiver reports %1, expected %2.").arg(reply->version, image.version)};
    const QString text = tr("Update complete: running %1.").arg(reply->version);
    log(text);
    return Outcome{true, text};
}

bool ReceiverV4FlashSession::retried(const std::function<bool()> &step)
{
    for (int attempt = 1;; ++attempt) {
        if (m_cancelled)
            return failCancelled();
        if (step())
            return true;
        if (m_cancelled)
            return failCancelled();
        if (attempt == kStepAttempts)
            return fail(tr("giving up after %1 attempts: %2").arg(kStepAttempts).arg(m_client.error()));
        log(tr("  [%1 s] %2 - resyncing").arg(elapsedSeconds(), m_client.error()));
        if (!resync())
            return false;
    }
}

bool ReceiverV4FlashSession::resync()
{
    if (m_client.synchronise(m_timings.resyncLimit))
        return true;
    if (m_cancelled)
        return failCancelled();
    log(tr("lost contact with the bootloader"));
    return fail(tr("Lost contact with the bootloader. Power-cycle the receiver and run the update again."));
}

bool ReceiverV4FlashSession::fail(const QString &message)
{
    m_failure = message;
    return false;
}

bool ReceiverV4FlashSession::failCancelled()
{
    if (m_failure.isEmpty())
        log(tr("cancelled"));
    return fail(tr("Cancelled."));
}

void ReceiverV4FlashSession::log(const QString &text)
{
    emit logMessage(text);
}

QString ReceiverV4FlashSession::elapsedSeconds() const
{
    return QString::number(double(m_started.elapsed()) / 1000.0, 'f', 2);
}

void ReceiverV4FlashSession::logWiringHint()
{
    log(tr(
        "Check the wiring: cable TXD -> J14 RX, RXD -> J14 TX, GND. If it still fails, unplug the USB-UART "
        "cable as well while the board is off (the cable can keep the chip half-powered), or fit the BOOT "
        "jumper (JP1), then retry."));
}

} // namespace tavrix
