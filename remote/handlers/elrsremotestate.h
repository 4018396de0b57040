#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QObject>
#include <QTimer>

namespace tavrix {

class ElrsParameterManager;
class TavrixController;

// What the remote app sees of the transmitter module's ELRS parameters: configuration
// mode and the walk's progress as one state object, the parameters as the app lists them,
// and the delayed start of the walk once configuration mode is on (the module needs a few
// seconds in it before it answers). Publishes changes through the signals, which the
// transmission handler turns into push events.
class ElrsRemoteState : public QObject
{
    Q_OBJECT

public:
    ElrsRemoteState(TavrixController *controller, QObject *parent);

    // Enters configuration mode when needed and arms the walk; false when the mode cannot be entered.
    bool startConfig();
    [[nodiscard]] QJsonObject state() const;
    [[nodiscard]] QJsonArray params() const;
    [[nodiscard]] ElrsParameterManager *parameters() const;

signals:
    void stateChanged(const QJsonObject &state);
    void paramsChanged(const QJsonArray &params);
    void paramUpdated(const QJsonObject &update);

private:
    void onDiscoveryDue();
    [[nodiscard]] bool isDiscovering() const;
    void publishState() { emit stateChanged(state()); }

    TavrixController *m_controller;
    QTimer m_discoveryDelay;
    int m_progressDone = 0;
    int m_progressTotal = 0;
};

} // namespace tavrix
