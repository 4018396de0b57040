#include "heliarmingdialog.h"

#include "card.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

namespace tavrix {

HeliArmingDialog::HeliArmingDialog(const Limits &limits, QWidget *parent)
    : HeliSettingsDialog(tr("Arming and safety"), limits, parent)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(buildArmCard(), 1);
    row->addWidget(buildSafetyCard(), 1);
    content()->addLayout(row);
    content()->addStretch(1);
    showValues(Values{});
}

QWidget *HeliArmingDialog::buildArmCard()
{
    auto *card = new hub::Card(tr("Arming"), this);
    card->setSubtitle(tr("The arm switch the flight controller reads"));
    QFormLayout *rows = form(new QWidget(card));
    QWidget *page = rows->parentWidget();
    card->body()->addWidget(page);
    m_armSwitch = checkBox(tr("Send the arm switch"), page);
    rows->addRow(m_armSwitch);
    rows->addRow(
        explanation(tr("The page's Arm button sets it; stopping transmission always sends it safe."), page));
    m_armChannel = channelBox(page);
    rows->addRow(tr("Channel"), m_armChannel);
    m_armed = spinBox(limits().armMicrosMin, limits().armMicrosMax, page);
    m_armed->setSuffix(tr(" \u00B5s"));
    rows->addRow(tr("Armed"), m_armed);
    m_safe = spinBox(limits().armMicrosMin, limits().armMicrosMax, page);
    m_safe->setSuffix(tr(" \u00B5s"));
    rows->addRow(tr("Safe"), m_safe);
    m_armAtIdle = checkBox(tr("Arm only at idle"), page);
    rows->addRow(m_armAtIdle);
    rows->addRow(explanation(
        tr("Arming is refused while the collective lever is above %1 %.").arg(limits().armIdlePercent),
        page));
    return card;
}

QWidget *HeliArmingDialog::buildSafetyCard()
{
    auto *card = new hub::Card(tr("Safety"), this);
    card->setSubtitle(tr("How the collective comes up, and glitches"));
    QFormLayout *rows = form(new QWidget(card));
    QWidget *page = rows->parentWidget();
    card->body()->addWidget(page);
    m_softStart = checkBox(tr("Soft start"), page);
    rows->addRow(m_softStart);
    rows->addRow(explanation(tr("After each start the collective and the motor rise from zero to the lever's "
                                "position over the ramp (at least one second)."),
                             page));
    m_softStartSec = spinBox(0, limits().softStartSecMax, page);
    m_softStartSec->setSuffix(tr(" s"));
    rows->addRow(tr("Ramp"), m_softStartSec);
    rows->addRow(new QLabel(tr("Spike protection"), page));
    rows->addRow(explanation(tr("Always on: a control that jumps by more than %1 % from one tick to the next "
                                "is held for up to %2 ms; a jump that lasts longer is real and is taken.")
                                 .arg(limits().spikePercent)
                                 .arg(limits().spikeHoldMs),
                             page));
    return card;
}

HeliArmingDialog::Values HeliArmingDialog::values() const
{
    Values v;
    v.armSwitch = m_armSwitch->isChecked();
    v.armChannel = selected(m_armChannel);
    v.armedMicros = m_armed->value();
    v.safeMicros = m_safe->value();
    v.armAtIdle = m_armAtIdle->isChecked();
    v.softStart = m_softStart->isChecked();
    v.softStartSec = m_softStartSec->value();
    return v;
}

void HeliArmingDialog::showValues(const Values &v)
{
    const auto quiet = quietEditors();
    m_armSwitch->setChecked(v.armSwitch);
    select(m_armChannel, v.armChannel);
    m_armed->setValue(v.armedMicros);
    m_safe->setValue(v.safeMicros);
    m_armAtIdle->setChecked(v.armAtIdle);
    m_softStart->setChecked(v.softStart);
    m_softStartSec->setValue(v.softStartSec);
    updateEnabled();
}

void HeliArmingDialog::userEdited()
{
    updateEnabled();
    emit edited(values());
}

void HeliArmingDialog::updateEnabled()
{
    // Settings of a switched-off feature stay visible but read as not in force.
    for (QWidget *editor : std::initializer_list<QWidget *>{m_armChannel, m_armed, m_safe})
        editor->setEnabled(m_armSwitch->isChecked());
    m_softStartSec->setEnabled(m_softStart->isChecked());
}

} // namespace tavrix
