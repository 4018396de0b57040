#pragma once

#include "controllertypes.h"
#include "inputdeviceinfo.h"
#include "profilemanager.h"

#include <QList>
#include <QObject>

namespace tavrix {

class DevicePickerCard;
class TavrixController;

// Fills a device picker card with the attached game controllers (by their list labels),
// selects the device open in each role and opens or closes devices as the user picks.
class DevicePickerBinder : public QObject
{
    Q_OBJECT
public:
    struct RoleKey
    {
        QString key; // the card's role key: "wheel", "pedals", ...
        DeviceRole role;
    };

    // The roles of a vehicle, keyed as the pages key their pickers (the role's option name).
    [[nodiscard]] static QList<RoleKey> rolesOf(VehicleType vehicle);

    DevicePickerBinder(DevicePickerCard *card, TavrixController *controller, QList<RoleKey> roles,
                       QObject *parent = nullptr);

public slots:
    // Enumerates the controllers again and shows which one each role has open.
    void refresh();

private:
    void choose(const QString &key, int deviceIndex);

    DevicePickerCard *m_card;
    TavrixController *m_controller;
    QList<RoleKey> m_roles;
    // The controllers as the card lists them; a pick is by position in this list.
    QList<InputDeviceInfo> m_shown;
};

} // namespace tavrix
