#include "heliflydialog.h"

#include "card.h"
#include "helipage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

namespace tavrix {

HeliFlyDialog::HeliFlyDialog(const Limits &limits, QWidget *parent)
    : HeliSettingsDialog(tr("Rates and feel"), limits, parent)
{
    auto *rates = new hub::Card(tr("Rates"), this);
    rates->setSubtitle(tr("How much of its travel roll, pitch and yaw reach"));
    m_rates = checkBox(tr("Rate modes"), rates);
    rates->body()->addWidget(m_rates);
    rates->body()->addWidget(
        explanation(tr("The mode in use scales roll, pitch and yaw; the collective "
                       "always keeps its full travel, so a lower rate never costs lift."),
                    rates));
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    for (int mode = 0; mode < kRateModes; ++mode) {
        QSpinBox *box = spinBox(0, limits.percentMax, rates);
        box->setSuffix(QStringLiteral(" %"));
        m_percent[std::size_t(mode)] = box;
        grid->addWidget(new QLabel(HeliPage::rateModeName(mode), rates), 0, mode);
        grid->addWidget(box, 1, mode);
    }
    m_mode = new QComboBox(rates);
    for (int mode = 0; mode < kRateModes; ++mode)
        m_mode->addItem(HeliPage::rateModeName(mode), mode);
    connect(m_mode, &QComboBox::activated, this, [this](int index) { emit rateModeChosen(index); });
    grid->addWidget(new QLabel(tr("In use"), rates), 0, kRateModes);
    grid->addWidget(m_mode, 1, kRateModes);
    rates->body()->addLayout(grid);
    content()->addWidget(rates);

    auto *attitude = new hub::Card(tr("Attitude display"), this);
    attitude->setSubtitle(tr("The helicopter's reported attitude, as the hub shows it"));
    auto *inverts = new QHBoxLayout;
    inverts->setSpacing(16);
    m_invertPitch = checkBox(tr("Invert pitch"), attitude);
    m_invertRoll = checkBox(tr("Invert roll"), attitude);
    m_invertYaw = checkBox(tr("Invert yaw"), attitude);
    for (QCheckBox *box : {m_invertPitch, m_invertRoll, m_invertYaw})
        inverts->addWidget(box);
    inverts->addStretch(1);
    attitude->body()->addLayout(inverts);
    attitude->body()->addWidget(
        explanation(tr("Only the display turns; the channels sent are not affected."), attitude));
    content()->addWidget(attitude);
    content()->addStretch(1);
    showValues(Values{});
}

HeliFlyDialog::Values HeliFlyDialog::values() const
{
    Values v;
    v.ratesEnabled = m_rates->isChecked();
    for (std::size_t mode = 0; mode < kRateModes; ++mode)
        v.ratePercent[mode] = m_percent[mode]->value();
    v.rateMode = m_mode->currentIndex();
    v.invertPitch = m_invertPitch->isChecked();
    v.invertRoll = m_invertRoll->isChecked();
    v.invertYaw = m_invertYaw->isChecked();
    return v;
}

void HeliFlyDialog::showValues(const Values &v)
{
    const auto quiet = quietEditors();
    m_rates->setChecked(v.ratesEnabled);
    for (std::size_t mode = 0; mode < kRateModes; ++mode) {
        m_percent[mode]->setValue(v.ratePercent[mode]);
        m_percent[mode]->setEnabled(v.ratesEnabled);
    }
    m_mode->setCurrentIndex(v.rateMode);
    m_mode->setEnabled(v.ratesEnabled);
    m_invertPitch->setChecked(v.invertPitch);
    m_invertRoll->setChecked(v.invertRoll);
    m_invertYaw->setChecked(v.invertYaw);
}

void HeliFlyDialog::userEdited()
{
    emit edited(values());
}

} // namespace tavrix
