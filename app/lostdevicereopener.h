#pragma once

#include <QObject>

namespace tavrix {

class TavrixController;

// Gives back a role its game controller when the device that went away is plugged in
// again: after every change in the set of controllers, and when transmission stops, each
// role of the active vehicle whose device was lost is opened again from the identity saved
// in the profile. Nothing changes while transmitting, and nothing here ever starts
// transmission: a wheel that comes back is only ready, the user starts again. Roles the
// user left empty stay empty.
class LostDeviceReopener : public QObject
{
    Q_OBJECT
public:
    explicit LostDeviceReopener(TavrixController *controller, QObject *parent = nullptr);

public slots:
    void reopen();

private:
    TavrixController *m_controller;
};

} // namespace tavrix
