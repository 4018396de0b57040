#pragma once

#include "card.h"
#include "glyph.h"

#include <QHash>

class QComboBox;
class QLabel;

namespace tavrix {

// One game-controller picker per role of a vehicle ("wheel", "pedals", ...). Each list
// starts with "None"; with no controllers at all the lists say so and are disabled.
class DevicePickerCard : public hub::Card
{
    Q_OBJECT
public:
    struct Role
    {
        QString key;   // "wheel", "pedals", "shifter", "joystick", "throttle"
        QString label; // shown beside the list
    };

    DevicePickerCard(const QString &title, const QList<Role> &roles, QWidget *parent = nullptr);

    // The controllers that can be chosen, by display name, the same for every role.
    void setDevices(const QStringList &names);
    QStringList devices() const { return m_devices; }

    // Selects a device for a role; an empty name selects "None".
    void setCurrentDevice(const QString &role, const QString &name);
    QString currentDevice(const QString &role) const;

    QComboBox *picker(const QString &role) const { return m_pickers.value(role); }

signals:
    // The user picked a device for a role; an empty name means "None".
    void deviceChosen(const QString &role, const QString &name);

private:
    QHash<QString, QComboBox *> m_pickers;
    QStringList m_devices;
    QLabel *m_hint = nullptr;
};

} // namespace tavrix
