#pragma once

#include "page.h"

namespace hub {
class ChoiceTile;
}

namespace tavrix {

// The "vehicles" page: choose the RC car or the RC helicopter; the airplane is shown as
// coming soon and cannot be chosen.
class VehiclesPage : public hub::Page
{
    Q_OBJECT
public:
    explicit VehiclesPage(QWidget *parent = nullptr);

    hub::ChoiceTile *tile(const QString &pageKey) const;

signals:
    // The page key of the chosen vehicle: "rc-car" or "rc-heli".
    void vehicleChosen(const QString &pageKey);

private:
    hub::ChoiceTile *m_car = nullptr;
    hub::ChoiceTile *m_heli = nullptr;
    hub::ChoiceTile *m_airplane = nullptr;
};

} // namespace tavrix
