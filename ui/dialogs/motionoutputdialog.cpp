#include "motionoutputdialog.h"

#include "card.h"
#include "notice.h"

#include <QColor>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace tavrix {

namespace {

const QString kStatusStyle = QStringLiteral("font-family: 'Geist Mono'; font-size: 9pt; color: %1;");
const QColor kMutedColour(0x5B, 0x66, 0x75);

} // namespace

MotionOutputDialog::MotionOutputDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Motion output"));
    setMinimumWidth(520);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(14);

    auto *warning = new hub::Notice(hub::Glyph::Motion,
                                    tr("Motion platforms move — clear the area around the rig and start "
                                       "with low intensity in your motion software."),
                                    this);
    warning->setTone(hub::Tone::Warning);
    column->addWidget(warning);

    auto *target = new hub::Card(tr("Motion software"), this);
    target->setSubtitle(tr("SimHub, FlyPT Mover or SimTools with DiRT Rally chosen as the game"));
    auto *form = new QFormLayout;
    m_host = new QLineEdit(target);
    m_host->setObjectName(QStringLiteral("motionOutputHost"));
    m_host->setPlaceholderText(QStringLiteral("127.0.0.1"));
    m_port = new QSpinBox(target);
    m_port->setObjectName(QStringLiteral("motionOutputPort"));
    m_port->setRange(kLowestPort, kHighestPort);
    m_port->setKeyboardTracking(false);
    form->addRow(tr("Address"), m_host);
    form->addRow(tr("UDP port"), m_port);
    target->body()->addLayout(form);
    column->addWidget(target);

    m_start = new QPushButton(this);
    m_start->setObjectName(QStringLiteral("motionOutputStart"));
    m_start->setCheckable(true);
    column->addWidget(m_start);
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("motionOutputStatus"));
    m_status->setWordWrap(true);
    column->addWidget(m_status);

    column->addStretch(1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);

    // The button's checked state follows the output (setStreaming), not the click.
    connect(m_start, &QPushButton::clicked, this, [this] {
        m_start->setChecked(!m_start->isChecked());
        if (m_start->isChecked())
            emit stopRequested();
        else
            emit startRequested(m_host->text().trimmed(), m_port->value());
    });
    const auto edited = [this] { emit targetEdited(m_host->text().trimmed(), m_port->value()); };
    connect(m_host, &QLineEdit::editingFinished, this, edited);
    connect(m_port, &QSpinBox::valueChanged, this, edited);

    setStreaming(false);
    setAvailable(false);
}

void MotionOutputDialog::setAvailable(bool available)
{
    for (QWidget *control :
         {static_cast<QWidget *>(m_host), static_cast<QWidget *>(m_port), static_cast<QWidget *>(m_start)})
        control->setEnabled(available);
    if (!available)
        setStatus(tr("Not available."), kMutedColour);
}

void MotionOutputDialog::setTarget(const QString &host, int port)
{
    const QSignalBlocker hostBlocker(m_host);
    const QSignalBlocker portBlocker(m_port);
    m_host->setText(host);
    m_port->setValue(port);
}

void MotionOutputDialog::setStreaming(bool streaming)
{
    m_start->setChecked(streaming);
    m_start->setText(streaming ? tr("Streaming — click to stop") : tr("Start motion output"));
}

void MotionOutputDialog::setStatus(const QString &text, const QColor &colour)
{
    m_status->setText(text);
    m_status->setStyleSheet(kStatusStyle.arg(colour.name(QColor::HexRgb).toUpper()));
}

} // namespace tavrix
