#include "firmwaredialog.h"

#include "card.h"
#include "logview.h"
#include "notice.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrix {

namespace {

QLabel *mutedLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QStringLiteral("mutedText"));
    label->setWordWrap(true);
    return label;
}

QString orDash(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("—") : text;
}

} // namespace

FirmwareDialog::FirmwareDialog(Rows rows, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Firmware update"));
    setMinimumWidth(640);
    resize(760, 580);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(12);

    auto *top = new QHBoxLayout;
    top->setSpacing(12);
    top->addWidget(createDeviceCard(), 1);
    if (rows & (Row::FirmwareFile | Row::Port))
        top->addWidget(createSourceCard(rows), 1);
    column->addLayout(top);
    // Across the whole dialog rather than in the narrow device card: the wiring and release
    // notes run to several lines and would be cut off there.
    m_notes = mutedLabel(this);
    m_notes->hide();
    column->addWidget(m_notes);
    column->addWidget(createUpdateCard(rows), 1);

    m_result = new hub::Notice(hub::Glyph::Info, QString(), this);
    m_result->hide();
    column->addWidget(m_result);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);

    m_countdown.setInterval(std::chrono::seconds(1));
    connect(&m_countdown, &QTimer::timeout, this, [this] {
        m_secondsLeft = std::max(m_secondsLeft - std::chrono::seconds(1), std::chrono::seconds(0));
        showCountdown();
    });
    refreshButtons();
}

QWidget *FirmwareDialog::createDeviceCard()
{
    auto *card = new hub::Card(tr("Device"), this);
    auto *form = new QFormLayout;
    form->setHorizontalSpacing(16);
    m_device = new QLabel(orDash({}), card);
    m_current = new QLabel(orDash({}), card);
    m_available = new QLabel(orDash({}), card);
    form->addRow(tr("Device"), m_device);
    form->addRow(tr("Installed"), m_current);
    form->addRow(tr("Available"), m_available);
    card->body()->addLayout(form);
    card->body()->addStretch(1);
    return card;
}

QWidget *FirmwareDialog::createSourceCard(Rows rows)
{
    auto *card = new hub::Card(tr("Connection"), this);
    if (rows.testFlag(Row::FirmwareFile)) {
        auto *row = new QHBoxLayout;
        m_file = new QLineEdit(card);
        m_file->setPlaceholderText(tr("Firmware file"));
        connect(m_file, &QLineEdit::editingFinished, this,
                [this] { emit firmwareFileChosen(m_file->text()); });
        m_browse = new QPushButton(tr("Choose…"), card);
        connect(m_browse, &QPushButton::clicked, this, &FirmwareDialog::chooseFile);
        row->addWidget(m_file, 1);
        row->addWidget(m_browse);
        card->body()->addLayout(row);
        m_fileNote = mutedLabel(card);
        m_fileNote->hide();
        card->body()->addWidget(m_fileNote);
    }
    if (rows.testFlag(Row::Port)) {
        auto *row = new QHBoxLayout;
        m_ports = new QComboBox(card);
        m_ports->setPlaceholderText(tr("No serial port found"));
        row->addWidget(m_ports, 1);
        if (rows.testFlag(Row::ReadBoard)) {
            m_readBoard = new QPushButton(tr("Read board"), card);
            connect(m_readBoard, &QPushButton::clicked, this, &FirmwareDialog::readBoardRequested);
            row->addWidget(m_readBoard);
        }
        card->body()->addLayout(row);
    }
    card->body()->addStretch(1);
    return card;
}

QWidget *FirmwareDialog::createUpdateCard(Rows rows)
{
    auto *card = new hub::Card(tr("Update"), this);
    auto *row = new QHBoxLayout;
    if (rows.testFlag(Row::Check)) {
        m_check = new QPushButton(tr("Check for updates"), card);
        connect(m_check, &QPushButton::clicked, this, &FirmwareDialog::checkRequested);
        row->addWidget(m_check);
    }
    m_update = new QPushButton(tr("Update"), card);
    m_update->setProperty("variant", QStringLiteral("primary"));
    connect(m_update, &QPushButton::clicked, this, &FirmwareDialog::updateRequested);
    m_cancel = new QPushButton(tr("Cancel"), card);
    connect(m_cancel, &QPushButton::clicked, this, &FirmwareDialog::cancelRequested);
    m_stage = mutedLabel(card);
    m_stage->setWordWrap(false);
    m_progress = new QProgressBar(card);
    m_progress->setRange(0, 1);
    m_progress->setValue(0);
    row->addWidget(m_update);
    row->addWidget(m_cancel);
    row->addWidget(m_stage);
    row->addWidget(m_progress, 1);
    card->body()->addLayout(row);

    m_powerCycle = new hub::Notice(hub::Glyph::Info, QString(), card);
    m_powerCycle->setTone(hub::Tone::Warning);
    m_powerCycle->hide();
    card->body()->addWidget(m_powerCycle);

    m_log = new hub::LogView(card);
    m_log->setMinimumHeight(140);
    card->body()->addWidget(m_log, 1);
    return card;
}

QString FirmwareDialog::firmwareFile() const
{
    return m_file ? m_file->text().trimmed() : QString();
}

QString FirmwareDialog::selectedPort() const
{
    return m_ports ? m_ports->currentText() : QString();
}

QString FirmwareDialog::availableVersion() const
{
    return m_available->text() == orDash({}) ? QString() : m_available->text();
}

bool FirmwareDialog::isPowerCyclePromptShown() const
{
    return !m_powerCycle->isHidden();
}

QString FirmwareDialog::result() const
{
    return m_result->isHidden() ? QString() : m_result->text();
}

void FirmwareDialog::setDevice(const QString &name)
{
    m_device->setText(orDash(name));
}

void FirmwareDialog::setCurrentVersion(const QString &version)
{
    m_current->setText(orDash(version));
}

void FirmwareDialog::setAvailableVersion(const QString &version)
{
    m_available->setText(orDash(version));
}

void FirmwareDialog::setNotes(const QString &notes)
{
    m_notes->setText(notes);
    m_notes->setVisible(!notes.isEmpty());
}

void FirmwareDialog::setFirmwareFile(const QString &path)
{
    if (!m_file)
        return;
    m_file->setText(path);
    emit firmwareFileChosen(path);
}

void FirmwareDialog::setFirmwareFileNote(const QString &note)
{
    if (!m_fileNote)
        return;
    m_fileNote->setText(note);
    m_fileNote->setVisible(!note.isEmpty());
}

void FirmwareDialog::setPorts(const QStringList &ports)
{
    if (!m_ports)
        return;
    QStringList listed;
    for (int i = 0; i < m_ports->count(); ++i)
        listed.append(m_ports->itemText(i));
    if (listed == ports)
        return;
    const QString chosen = m_ports->currentText();
    m_ports->clear();
    m_ports->addItems(ports);
    m_ports->setCurrentIndex(std::max(0, int(ports.indexOf(chosen))));
    refreshButtons();
}

void FirmwareDialog::setRunning(bool running)
{
    m_running = running;
    if (running) {
        clearResult();
        setProgress(QString(), 0, 0);
    } else {
        hidePowerCyclePrompt();
    }
    refreshButtons();
    if (!running && m_closeResult >= 0)
        done(m_closeResult);
}

void FirmwareDialog::setProgress(const QString &stage, int done, int total)
{
    m_stage->setText(stage);
    // No total yet: an empty bar, not the busy animation, which looks like progress.
    m_progress->setRange(0, std::max({done, total, 1}));
    m_progress->setValue(done);
}

void FirmwareDialog::appendLog(const QString &line)
{
    m_log->appendLine(line);
}

void FirmwareDialog::showPowerCyclePrompt(std::optional<std::chrono::seconds> seconds)
{
    m_secondsLeft = seconds.value_or(std::chrono::seconds(0));
    if (seconds)
        m_countdown.start();
    else
        m_countdown.stop();
    showCountdown();
    m_powerCycle->show();
}

void FirmwareDialog::showCountdown()
{
    QString text = tr("Power-cycle the board now: switch its power off and on.");
    if (m_countdown.isActive())
        text += QLatin1Char(' ') + tr("Waiting %n more second(s).", nullptr, int(m_secondsLeft.count()));
    m_powerCycle->setText(text);
}

void FirmwareDialog::hidePowerCyclePrompt()
{
    m_countdown.stop();
    m_powerCycle->hide();
}

void FirmwareDialog::setResult(bool ok, const QString &message)
{
    m_resultOk = ok;
    m_result->setTone(ok ? hub::Tone::Good : hub::Tone::Danger);
    m_result->setText(message);
    m_result->show();
}

void FirmwareDialog::clearResult()
{
    m_resultOk = false;
    m_result->hide();
    m_result->setText(QString());
}

void FirmwareDialog::done(int result)
{
    if (!m_running) {
        m_closeResult = -1;
        QDialog::done(result);
        return;
    }
    const bool firstRequest = m_closeResult < 0;
    // Noted before asking: a run that stops at once (a download) ends inside the request.
    m_closeResult = result;
    if (firstRequest) {
        appendLog(tr("Closing: cancelling the update first. The dialog closes once it stopped."));
        emit cancelRequested();
    }
}

void FirmwareDialog::chooseFile()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Choose a firmware file"), firmwareFile(),
                                                      tr("Firmware (*.bin);;All files (*)"));
    if (!path.isEmpty())
        setFirmwareFile(path);
}

void FirmwareDialog::refreshButtons()
{
    m_update->setEnabled(!m_running);
    m_cancel->setEnabled(m_running);
    if (m_check)
        m_check->setEnabled(!m_running);
    if (m_readBoard)
        m_readBoard->setEnabled(!m_running && m_ports->count() > 0);
    if (m_file) {
        m_file->setEnabled(!m_running);
        m_browse->setEnabled(!m_running);
    }
    if (m_ports)
        m_ports->setEnabled(!m_running);
}

} // namespace tavrix
