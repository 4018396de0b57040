#include "v4boardsimulator.h"

#include "pseudoterminal.h"
#include "stm32uartbootloader.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QtEndian>

namespace tavrix::sim {

namespace {

const QString kHardware = QStringLiteral("Orvane-V4-G0B1");

// The G0B1's 144 KB of RAM: a stack pointer outside it means no firmware is there.
constexpr uint32_t kRamStart = 0x20000000;
constexpr uint32_t kRamEnd = 0x20024000;

// The reset vector of the image firmwareImage() builds: code right behind the table.
constexpr uint32_t kImageResetHandler = V4BoardSimulator::kFlashBase + 0x41;

constexpr qsizetype kMaxLineLength = 256;

} // namespace

V4BoardSimulator::V4BoardSimulator(const V4BoardSimulatorSettings &settings, QObject *parent)
    : QObject(parent)
    , m_settings(settings)
    , m_flash(kFlashBase, kPageSize, kPageCount)
    , m_pty(new PseudoTerminal(this))
    , m_bootloader(new Stm32UartBootloader(&m_flash, this))
{
    m_flash.load(firmwareImage(m_settings.firmwareVersion));
    m_flash.setFaultyPage(m_settings.corruptPage);
    m_bootloader->setChipId(m_settings.chipId);
    m_bootloader->setReadoutProtection(m_settings.readoutProtection);
    connect(m_pty, &PseudoTerminal::readyRead, this, &V4BoardSimulator::onReadyRead);
    connect(m_bootloader, &Stm32UartBootloader::aboutToProgram, this, &V4BoardSimulator::onAboutToProgram);
    connect(m_bootloader, &Stm32UartBootloader::commandHandled, this,
            [this](const QString &name, const QJsonObject &details) {
                emit bootloaderCommandReceived(name, details, QDateTime::currentMSecsSinceEpoch());
            });
    boot(false);
}

V4BoardSimulator::~V4BoardSimulator() = default;

bool V4BoardSimulator::start(const QString &linkPath)
{
    return m_pty->open(linkPath);
}

QString V4BoardSimulator::slavePath() const
{
    return m_pty->slavePath();
}

QString V4BoardSimulator::linkPath() const
{
    return m_pty->linkPath();
}

QString V4BoardSimulator::clientPath() const
{
    return m_pty->clientPath();
}

QString V4BoardSimulator::errorString() const
{
    return m_pty->errorString();
}

void V4BoardSimulator::powerCycle()
{
    const bool requested = m_dfuPending;
    m_dfuPending = false;
    boot(requested);
}

void V4BoardSimulator::restartIntoBootloader()
{
    boot(true);
}

QByteArray V4BoardSimulator::firmwareImage(const QString &version)
{
    QByteArray image(0x40, '\0');
    qToLittleEndian<uint32_t>(kRamEnd, image.data());
    qToLittleEndian<uint32_t>(kImageResetHandler, image.data() + 4);
    image += "Orvane:" + version.toLatin1() + '\0';
    image += QByteArray((8 - image.size() % 8) % 8, char(0xFF));
    return image;
}

QString V4BoardSimulator::imageVersion(const QByteArray &image)
{
    // The same text the firmware prints, as its build leaves it in the image.
    static const QRegularExpression tag(QStringLiteral("Orvane:([0-9][0-9A-Za-z.\\-]*)"));
    return tag.match(QString::fromLatin1(image)).captured(1);
}

void V4BoardSimulator::onReadyRead()
{
    const QByteArray bytes = m_pty->readAll();
    switch (m_state) {
    case State::Firmware:
        handleConsoleBytes(bytes);
        break;
    case State::Bootloader:
        handleBootloaderBytes(bytes);
        break;
    case State::Silent:
        break;
    }
}

void V4BoardSimulator::handleConsoleBytes(const QByteArray &bytes)
{
    m_consoleInbox += bytes;
    for (qsizetype end = m_consoleInbox.indexOf('\n'); end >= 0; end = m_consoleInbox.indexOf('\n')) {
        QByteArray line = m_consoleInbox.left(end);
        m_consoleInbox.remove(0, end + 1);
        // A host probing for the bootloader sends 0x7F: the console has no use for it.
        line.removeIf([](char c) { return c < ' ' || c > '~'; });
        const QString command = QString::fromLatin1(line).trimmed();
        if (!command.isEmpty())
            handleConsoleLine(command);
        if (m_state != State::Firmware)
            return; // the chip restarted: the rest of what came is lost
    }
    if (m_consoleInbox.size() > kMaxLineLength)
        m_consoleInbox.clear();
}

void V4BoardSimulator::handleConsoleLine(const QString &line)
{
    emit commandReceived(line, QDateTime::currentMSecsSinceEpoch());
    if (line == QLatin1String("VER")) {
        sendLine(QStringLiteral("Orvane:") + m_runningVersion);
    } else if (line == QLatin1String("HW")) {
        sendLine(QStringLiteral("HW:") + kHardware);
    } else if (line == QLatin1String("DFU")) {
        // Some boards cannot switch to the bootloader by themselves: the request waits
        // for the next power-up.
        if (m_settings.needsPowerCycle)
            m_dfuPending = true;
        else
            restartIntoBootloader();
    }
}

void V4BoardSimulator::handleBootloaderBytes(const QByteArray &bytes)
{
    const Stm32UartBootloader::Reply reply = m_bootloader->receive(bytes);
    if (!reply.bytes.isEmpty())
        m_pty->write(reply.bytes);
    switch (reply.next) {
    case Stm32UartBootloader::Next::Stay:
        break;
    case Stm32UartBootloader::Next::Jump:
        startApplication(reply.jumpAddress);
        break;
    case Stm32UartBootloader::Next::Reset:
        boot(false);
        break;
    }
}

void V4BoardSimulator::onAboutToProgram(int page)
{
    if (m_settings.silentAfterPages < 0 || m_silenceSpent || m_programmedPages.contains(page))
        return;
    if (m_programmedPages.size() >= m_settings.silentAfterPages) {
        m_silenceSpent = true;
        m_bootloader->halt();
        setState(State::Silent);
        return;
    }
    m_programmedPages.insert(page);
}

void V4BoardSimulator::boot(bool bootloaderRequested)
{
    m_consoleInbox.clear();
    const bool flashEmpty = m_flash.read(kFlashBase, 4) == QByteArray(4, char(0xFF));
    if (bootloaderRequested || flashEmpty) {
        m_bootloader->reset();
        setState(State::Bootloader);
        return;
    }
    startApplication(kFlashBase);
}

void V4BoardSimulator::startApplication(uint32_t vectorTable)
{
    m_consoleInbox.clear();
    const QByteArray vectors = m_flash.read(vectorTable, 8);
    const uint32_t stack = vectors.size() == 8 ? qFromLittleEndian<uint32_t>(vectors.constData()) : 0;
    const uint32_t reset = vectors.size() == 8 ? qFromLittleEndian<uint32_t>(vectors.constData() + 4) : 0;
    // A Cortex-M0+ takes its stack pointer and reset handler (a Thumb address) from the table.
    const bool runs =
        stack > kRamStart && stack <= kRamEnd && (reset & 1) != 0 && m_flash.contains(reset & ~1u);
    if (!runs) {
        setState(State::Silent);
        return;
    }
    const QString version = imageVersion(m_flash.contents());
    m_runningVersion = version.isEmpty() ? m_settings.untaggedImageVersion : version;
    setState(State::Firmware);
}

void V4BoardSimulator::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged(state);
}

void V4BoardSimulator::sendLine(const QString &line)
{
    if (m_pty->isOpen())
        m_pty->write(line.toLatin1() + "\r\n");
}

} // namespace tavrix::sim
