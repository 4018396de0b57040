#pragma once

#include "elrsfield.h"
#include "radiosettingsview.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <chrono>

namespace tavrix {

class TavrixController;
class TransmissionDialog;
class TransmitterCardBinder;

// Ties one transmission dialog to the controller and its ELRS parameter client: the port,
// baud rate and auto-start, reading the module's settings (which enters configuration
// mode) and writing a chosen option. Configuration mode entered here is left again when
// the dialog is closed or destroyed; a mode someone else entered is left alone. The module
// answers only some seconds after it entered configuration mode, so a read that had to
// enter it starts the walk after moduleSettleTime; one that found it on starts at once.
class TransmissionDialogBinder : public QObject
{
    Q_OBJECT
public:
    // The rates the connection section offers; TransmitterLink::kDefaultBaudRate among them.
    static const QList<qint32> kBaudRates;

    static const std::chrono::milliseconds kModuleSettleTime;

    // Normally a child of the dialog, so it goes with it.
    TransmissionDialogBinder(TransmissionDialog *dialog, TavrixController *controller,
                             QObject *parent = nullptr,
                             std::chrono::milliseconds moduleSettleTime = kModuleSettleTime);
    ~TransmissionDialogBinder() override;

private:
    void read();
    void startWalk();
    void leaveConfigMode();
    void showReadState();
    void showSettings();
    void showDiscoveryError(const QString &message);

    TransmissionDialog *m_dialog;
    // The controller outlives the dialog in the window, but not necessarily in every owner.
    QPointer<TavrixController> m_controller;
    TransmitterCardBinder *m_transmitter;
    QTimer m_settle;
    bool m_enteredConfigMode = false;
};

// The module's parameters as the dialog groups them: the top level first, then one group
// per folder in the module's order (a nested folder's title names its parents).
[[nodiscard]] QList<RadioSettingGroup> radioSettingGroups(const QList<elrs::Parameter> &parameters);

} // namespace tavrix
