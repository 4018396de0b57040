#include "vehiclespage.h"

#include "choicetile.h"

#include <QGridLayout>
#include <QVBoxLayout>

namespace tavrix {

VehiclesPage::VehiclesPage(QWidget *parent)
    : hub::Page(tr("Vehicles"), tr("Choose what you want to drive or fly."), parent)
{
    m_car = new hub::ChoiceTile(hub::Glyph::Car, tr("RC Car"),
                                tr("Drive with a sim-racing wheel, pedals and shifter, with force feedback "
                                   "from the car's motion."),
                                this);
    m_heli = new hub::ChoiceTile(
        hub::Glyph::Helicopter, tr("RC Helicopter"),
        tr("Fly with a joystick, a throttle and pedals, with arming and rate modes."), this);
    m_airplane = new hub::ChoiceTile(hub::Glyph::Airplane, tr("RC Airplane"),
                                     tr("Fixed-wing models with a joystick and throttle."), this);
    m_airplane->setBadge(tr("Coming soon"));
    m_airplane->setEnabled(false);

    auto *grid = new QGridLayout;
    grid->setSpacing(kGap);
    grid->addWidget(m_car, 0, 0);
    grid->addWidget(m_heli, 0, 1);
    grid->addWidget(m_airplane, 0, 2);
    content()->addLayout(grid);
    content()->addStretch(1);

    connect(m_car, &QAbstractButton::clicked, this, [this] { emit vehicleChosen(QStringLiteral("rc-car")); });
    connect(m_heli, &QAbstractButton::clicked, this,
            [this] { emit vehicleChosen(QStringLiteral("rc-heli")); });
}

hub::ChoiceTile *VehiclesPage::tile(const QString &pageKey) const
{
    if (pageKey == QLatin1String("rc-car"))
        return m_car;
    if (pageKey == QLatin1String("rc-heli"))
        return m_heli;
    if (pageKey == QLatin1String("rc-airplane"))
        return m_airplane;
    return nullptr;
}

} // namespace tavrix
