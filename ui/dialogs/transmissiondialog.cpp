#include "transmissiondialog.h"

#include "card.h"
#include "notice.h"
#include "transmittercard.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrix {

TransmissionDialog::TransmissionDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Transmitter"));
    setMinimumWidth(560);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(14);

    m_transmitter = new TransmitterCard(this);
    m_transmitter->setSettingsButtonVisible(false);
    column->addWidget(m_transmitter);

    m_autoStart = new QCheckBox(tr("Auto-start transmission"), this);
    m_autoStart->setToolTip(tr("Starts transmission once, as soon as the transmitter and the vehicle's "
                               "controls are connected. A refused start (a pedal pressed) is not retried, "
                               "and nothing starts again by itself after a stop."));
    connect(m_autoStart, &QCheckBox::clicked, this, &TransmissionDialog::autoStartChanged);
    column->addWidget(m_autoStart);

    column->addWidget(createRadioCard(), 1);

    m_error = hub::Notice::refusal(hub::Glyph::Info, this);
    column->addWidget(m_error);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);

    setReading(false);
    setRadioSettings({});
}

QWidget *TransmissionDialog::createRadioCard()
{
    auto *card = new hub::Card(tr("Radio settings"), this);
    card->setSubtitle(tr("The ExpressLRS module's own settings, read and changed in configuration mode"));

    auto *row = new QHBoxLayout;
    m_read = new QPushButton(tr("Read settings"), card);
    m_read->setProperty("variant", QStringLiteral("primary"));
    m_read->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_read, &QPushButton::clicked, this, &TransmissionDialog::readRequested);
    m_progress = new QProgressBar(card);
    m_progress->setTextVisible(false);
    row->addWidget(m_read);
    row->addWidget(m_progress, 1);
    row->addStretch(0);
    card->body()->addLayout(row);

    m_readBlocked = new QLabel(card);
    m_readBlocked->setObjectName(QStringLiteral("mutedText"));
    m_readBlocked->setWordWrap(true);
    m_readBlocked->hide();
    card->body()->addWidget(m_readBlocked);

    m_empty = new QLabel(tr("Nothing read yet. Reading keeps the transmitter in configuration mode until "
                            "this dialog closes; transmission cannot start meanwhile."),
                         card);
    m_empty->setObjectName(QStringLiteral("mutedText"));
    m_empty->setWordWrap(true);
    card->body()->addWidget(m_empty);

    m_settings = new RadioSettingsView;
    connect(m_settings, &RadioSettingsView::choiceMade, this, &TransmissionDialog::choiceMade);
    m_scroll = new QScrollArea(card);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setMinimumHeight(220);
    m_scroll->setWidget(m_settings);
    card->body()->addWidget(m_scroll, 1);
    return card;
}

QString TransmissionDialog::error() const
{
    return m_error->isHidden() ? QString() : m_error->text();
}

QString TransmissionDialog::readBlockedReason() const
{
    return m_readBlockedReason;
}

void TransmissionDialog::setAutoStart(bool enabled)
{
    m_autoStart->setChecked(enabled);
}

void TransmissionDialog::setReadBlocked(const QString &reason)
{
    m_readBlockedReason = reason;
    m_readBlocked->setText(reason);
    m_readBlocked->setVisible(!reason.isEmpty());
    refreshReadButton();
}

void TransmissionDialog::setReading(bool reading)
{
    m_reading = reading;
    m_progress->setVisible(reading);
    refreshReadButton();
}

void TransmissionDialog::setProgress(int done, int total)
{
    // The walk's total is nominal: a module with more fields runs past it.
    m_progress->setRange(0, std::max(done, total));
    m_progress->setValue(done);
}

void TransmissionDialog::setRadioSettings(const QList<RadioSettingGroup> &groups)
{
    m_settings->setGroups(groups);
    m_empty->setVisible(groups.isEmpty());
    m_scroll->setVisible(!groups.isEmpty());
}

void TransmissionDialog::setSettingsEditable(bool editable)
{
    m_settings->setEnabled(editable);
}

void TransmissionDialog::showError(const QString &text)
{
    m_error->setText(text);
    m_error->show();
}

void TransmissionDialog::clearError()
{
    m_error->hide();
    m_error->setText(QString());
}

void TransmissionDialog::refreshReadButton()
{
    m_read->setEnabled(!m_reading && m_readBlockedReason.isEmpty());
    m_read->setText(m_reading ? tr("Reading…") : tr("Read settings"));
}

} // namespace tavrix
