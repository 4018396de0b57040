#include "motionconnectioncard.h"

#include "statuspill.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

MotionConnectionCard::MotionConnectionCard(QWidget *parent)
    : hub::Card(tr("Motion controller"), parent)
{
    setSubtitle(tr("Orvane Motion Controller over USB"));
    m_state = new hub::StatusPill(hub::Tone::Neutral, tr("Not connected"), this);
    addHeaderWidget(m_state);

    m_picker =
        new SerialPortPicker(tr("Plug the motion controller in over USB; its port appears here."), this);
    body()->addWidget(m_picker);

    m_heartbeat = new QLabel(this);
    m_heartbeat->setObjectName(QStringLiteral("mutedText"));
    body()->addWidget(m_heartbeat);

    auto *commands = new QHBoxLayout;
    m_home = new QPushButton(tr("Auto home"), this);
    m_home->setToolTip(tr("Runs the homing sequence; also the way out of the FAIL state."));
    m_calibration = new QPushButton(tr("Calibration mode"), this);
    m_calibration->setToolTip(tr("Switches the board's calibration mode on or off."));
    commands->addWidget(m_home);
    commands->addWidget(m_calibration);
    commands->addStretch(1);
    body()->addLayout(commands);
    connect(m_home, &QPushButton::clicked, this, &MotionConnectionCard::homeRequested);
    connect(m_calibration, &QPushButton::clicked, this, &MotionConnectionCard::calibrationToggleRequested);
    setCommandsEnabled(false);
}

void MotionConnectionCard::showState(hub::Tone tone, const QString &text)
{
    m_state->setStatus(tone, text);
}

void MotionConnectionCard::showHeartbeat(hub::Tone tone, const QString &text)
{
    m_heartbeat->setText(text);
    hub::setStyleProperty(m_heartbeat, "tone", hub::toneName(tone));
}

QString MotionConnectionCard::heartbeatText() const
{
    return m_heartbeat->text();
}

void MotionConnectionCard::setCommandsEnabled(bool enabled)
{
    m_home->setEnabled(enabled);
    m_calibration->setEnabled(enabled);
}

} // namespace tavrix
