#include "firmwaredialogbinder.h"

#include "firmwaredialog.h"
#include "visiblerefresh.h"

#include <QDir>

namespace tavrix {

namespace {

// The port list has no change signal; it is read again this often while the dialog is open.
constexpr std::chrono::milliseconds kPortRefresh{2000};

QString stageText(const QString &stage)
{
    if (stage == QLatin1String("connect"))
        return ReceiverV4FirmwareBinder::tr("Connecting");
    if (stage == QLatin1String("program"))
        return ReceiverV4FirmwareBinder::tr("Programming");
    if (stage == QLatin1String("verify"))
        return ReceiverV4FirmwareBinder::tr("Verifying");
    return stage;
}

} // namespace

ReceiverV4FirmwareBinder::ReceiverV4FirmwareBinder(FirmwareDialog *dialog, PortLister ports, QObject *parent,
                                                   const ReceiverV4FlasherTimings &timings)
    : QObject(parent)
    , m_dialog(dialog)
    , m_ports(std::move(ports))
    , m_timings(timings)
    , m_flasher(new ReceiverV4Flasher(timings, this))
{
    dialog->setDevice(tr("Orvane receiver V4"));
    dialog->setNotes(
        tr("Wire a USB-UART cable to the receiver's J14 header (cable TXD to RX, RXD to TX, GND) "
           "and choose the firmware file; its description (.json) must lie beside it."));
    new VisibleRefresh(
        dialog, kPortRefresh, [this] { m_dialog->setPorts(m_ports()); }, this);
    dialog->setPorts(m_ports());

    connect(dialog, &FirmwareDialog::firmwareFileChosen, this, &ReceiverV4FirmwareBinder::showFile);
    connect(dialog, &FirmwareDialog::updateRequested, this, &ReceiverV4FirmwareBinder::update);
    connect(dialog, &FirmwareDialog::readBoardRequested, this, &ReceiverV4FirmwareBinder::readBoard);
    connect(dialog, &FirmwareDialog::cancelRequested, m_flasher, &ReceiverV4Flasher::cancel);

    connect(m_flasher, &ReceiverV4Flasher::logMessage, dialog, &FirmwareDialog::appendLog);
    connect(m_flasher, &ReceiverV4Flasher::progress, dialog,
            [dialog](const QString &stage, int done, int total) {
                dialog->setProgress(stageText(stage), done, total);
            });
    connect(m_flasher, &ReceiverV4Flasher::powerCycleRequested, dialog, [this](bool active) {
        if (active)
            m_dialog->showPowerCyclePrompt(
                std::chrono::duration_cast<std::chrono::seconds>(m_timings.powerCycleWait));
        else
            m_dialog->hidePowerCyclePrompt();
    });
    connect(m_flasher, &ReceiverV4Flasher::boardInfo, dialog,
            [this](const QString &version, const QString &hardware, bool inBootloader) {
                m_dialog->setCurrentVersion(inBootloader ? tr("none (the board is in its bootloader)")
                                                         : version);
                if (!hardware.isEmpty())
                    m_dialog->setDevice(tr("Orvane receiver V4 (%1)").arg(hardware));
            });
    connect(m_flasher, &ReceiverV4Flasher::finished, this, &ReceiverV4FirmwareBinder::onFinished);
}

void ReceiverV4FirmwareBinder::showFile(const QString &path)
{
    if (path.isEmpty()) {
        m_dialog->setFirmwareFileNote(QString());
        m_dialog->setAvailableVersion(QString());
        return;
    }
    const QString description = ReceiverV4ImageLoader::descriptionPathFor(path);
    m_dialog->setFirmwareFileNote(tr("Description: %1").arg(QDir::toNativeSeparators(description)));
    // Checked again at the update: the files may change meanwhile.
    const ReceiverV4ImageLoader::Result loaded = ReceiverV4ImageLoader::load(path, description);
    m_dialog->setAvailableVersion(loaded.image ? loaded.image->version : QString());
    if (loaded.image)
        m_dialog->clearResult();
    else
        refuse(loaded.error);
}

void ReceiverV4FirmwareBinder::update()
{
    const QString port = m_dialog->selectedPort();
    const QString file = m_dialog->firmwareFile();
    if (file.isEmpty())
        return refuse(tr("Choose a firmware file first."));
    if (port.isEmpty())
        return refuse(tr("Connect the USB-UART cable and choose its port first."));
    const ReceiverV4ImageLoader::Result loaded = ReceiverV4ImageLoader::load(file);
    if (!loaded.image)
        return refuse(loaded.error);
    m_dialog->setAvailableVersion(loaded.image->version);
    m_dialog->setRunning(true);
    if (!m_flasher->update(port, *loaded.image)) {
        m_dialog->setRunning(false);
        return refuse(tr("Another run is still in progress."));
    }
    m_writing = loaded.image->version;
}

void ReceiverV4FirmwareBinder::readBoard()
{
    const QString port = m_dialog->selectedPort();
    if (port.isEmpty())
        return refuse(tr("Connect the USB-UART cable and choose its port first."));
    m_dialog->setRunning(true);
    if (!m_flasher->readBoard(port)) {
        m_dialog->setRunning(false);
        refuse(tr("Another run is still in progress."));
    }
}

void ReceiverV4FirmwareBinder::refuse(const QString &message)
{
    m_dialog->appendLog(message);
    m_dialog->setResult(false, message);
}

void ReceiverV4FirmwareBinder::onFinished(bool ok, const QString &message)
{
    if (ok && !m_writing.isEmpty())
        m_dialog->setCurrentVersion(m_writing);
    m_writing.clear();
    m_dialog->setRunning(false);
    m_dialog->setResult(ok, message);
}

} // namespace tavrix
