#include "motionactuatorscard.h"

#include "levelbar.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QSlider>
#include <QVBoxLayout>

namespace tavrix {

MotionActuatorsCard::MotionActuatorsCard(QWidget *parent)
    : hub::Card(tr("Actuators"), parent)
{
    setSubtitle(tr("Positions from the board's heartbeat"));
    m_freeMode = new QCheckBox(tr("Free mode: move each actuator by hand"), this);
    m_freeMode->setToolTip(tr("Speed and smoothness of the moves follow the platform settings."));
    connect(m_freeMode, &QCheckBox::toggled, this, &MotionActuatorsCard::updateSliders);
    body()->addWidget(m_freeMode);
    m_rows = new QWidget(this);
    new QGridLayout(m_rows);
    m_rows->layout()->setContentsMargins(0, 0, 0, 0);
    body()->addWidget(m_rows);
}

void MotionActuatorsCard::setActuators(int count, int strokeMm)
{
    qDeleteAll(m_bars);
    qDeleteAll(m_sliders);
    m_bars.clear();
    m_sliders.clear();
    auto *grid = static_cast<QGridLayout *>(m_rows->layout());
    for (int actuator = 0; actuator < count; ++actuator) {
        auto *bar = new hub::LevelBar(tr("Actuator %1").arg(actuator + 1), 0, strokeMm, 0, m_rows);
        bar->setTextWidths(90, 60);
        auto *slider = new QSlider(Qt::Horizontal, m_rows);
        slider->setRange(0, strokeMm);
        slider->setValue(strokeMm / 2);
        slider->setToolTip(tr("Target position of actuator %1, mm").arg(actuator + 1));
        connect(slider, &QSlider::valueChanged, this,
                [this, actuator](int mm) { emit moveRequested(actuator, mm); });
        grid->addWidget(bar, actuator, 0);
        grid->addWidget(slider, actuator, 1);
        m_bars.append(bar);
        m_sliders.append(slider);
    }
    updateSliders();
}

void MotionActuatorsCard::showPositions(const QMap<int, int> &mmByActuator)
{
    for (int i = 0; i < m_bars.size(); ++i) {
        const auto found = mmByActuator.constFind(i + 1);
        if (found == mmByActuator.cend())
            m_bars.at(i)->clear();
        else
            m_bars.at(i)->setValue(found.value(), tr("%1 mm").arg(found.value()));
    }
}

void MotionActuatorsCard::setFreeModeAvailable(bool available)
{
    m_available = available;
    updateSliders();
}

void MotionActuatorsCard::updateSliders()
{
    m_freeMode->setEnabled(m_available);
    const bool on = m_available && m_freeMode->isChecked();
    for (QSlider *slider : std::as_const(m_sliders))
        slider->setEnabled(on);
}

} // namespace tavrix
