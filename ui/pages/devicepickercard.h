#pragma once

#include "card.h"
#include "glyph.h"

#include <QHash>

class QComboBox;

namespace hub {
class Notice;
}
class QLabel;

namespace tavrix {

// One game-controller picker per role of a vehicle ("wheel", "pedals", ...). Each list
// starts with "None" followed by the attached controllers in enumeration order; with no
// controllers at all the lists say so and are disabled. Choices are reported by position,
// so two controllers of the same name stay apart.
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

    // The controllers that can be chosen, by list label, the same for every role.
    void setDevices(const QStringList &labels);
    QStringList devices() const { return m_devices; }

    // Selects the device at that position of the list for a role; -1 selects "None".
    void setCurrentDevice(const QString &role, int deviceIndex);
    int currentDevice(const QString &role) const;
    QStringList roles() const { return m_pickers.keys(); }

    QComboBox *picker(const QString &role) const { return m_pickers.value(role); }

    // What keeps controllers from working and how to fix it (permissions, a device another
    // program holds), one per line; hidden when empty.
    void setProblems(const QStringList &problems);
    QStringList problems() const { return m_problemLines; }

signals:
    // The user picked the device at that list position for a role; -1 means "None".
    void deviceChosen(const QString &role, int deviceIndex);

private:
    static void showFullName(QComboBox *box);

    QHash<QString, QComboBox *> m_pickers;
    QStringList m_devices;
    QLabel *m_hint = nullptr;
    hub::Notice *m_problems = nullptr;
    QStringList m_problemLines;
};

} // namespace tavrix
