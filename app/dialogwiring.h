#pragma once

#include <QString>

#include <functional>

class QObject;
class QWidget;

namespace tavrix {

class CarPage;
class DashboardPage;
class DialogRegistry;
class DriveSettingsDialog;
class HeliPage;
class HubServices;
class InfoPage;
class ProfileManager;
class StartConfirmation;

// What one group of dialogs needs from the window to register itself: the services the
// dialogs edit, the registry they go into, the pages whose buttons open them, and a way to
// open a dialog by key. Each group lives in its own file (vehicle, configuration, firmware,
// ...) so the window only lists the groups.
struct DialogWiring
{
    HubServices &services;
    DialogRegistry &dialogs;
    // The window, which outlives every page and dialog: owns the connections, parents the dialogs.
    QWidget *context;
    std::function<QWidget *(const QString &key)> open;
    CarPage *car;
    HeliPage *heli;
    DashboardPage *dashboard;
    InfoPage *info;
    // Asked before the car page, and the helicopter page, start transmission.
    StartConfirmation &carStart;
    StartConfirmation &heliStart;

    // A slot that opens `key`, for connecting a page's button.
    std::function<void()> opener(const QString &key) const
    {
        return [open = open, key] { open(key); };
    }
};

// Transmission, force feedback, motion output, the receiver's LED strip and end points.
void wireVehicleDialogs(const DialogWiring &wiring);
// Axis, drive and pedal verification, opened from the car page's Configure card.
void wireConfigurationDialogs(const DialogWiring &wiring);
// Firmware updates, opened from the About page.
void wireFirmwareDialogs(const DialogWiring &wiring);
// Profiles, opened from the vehicle pages, and the dashboard's tiles, opened from its telemetry card.
void wireProfileDialogs(const DialogWiring &wiring);
// Button mappings, opened from the car page's and the heli page's Configure cards.
void wireButtonDialogs(const DialogWiring &wiring);
// Lets the drive dialog open the ESC presets it offers, as a dialog of its own above it.
void offerEscPresets(DriveSettingsDialog *drive, ProfileManager *profiles);
// The setup guide (from the About page) and the safety notices asked before a vehicle's first start.
void wireOnboardingDialogs(const DialogWiring &wiring);
// The helicopter's controls, rates, curves and arming, opened from the heli page's Configure card.
void wireHelicopterDialogs(const DialogWiring &wiring);

} // namespace tavrix
