#pragma once

#include <QObject>

namespace tavrix {

class PortPickerBinder;
class ReceiverCard;
class ReceiverConfigManager;
class TavrixController;

// Binds the receiver card to the controller: its port picker to the receiver's USB
// console, the settings it offers to the receiver's own table of settings and allowed
// values, and every request to the receiver configuration, whose reports it shows.
class ReceiverCardBinder : public QObject
{
    Q_OBJECT
public:
    // Rates the receiver's console may be opened at; it runs at 115200 unless rebuilt.
    static const QList<qint32> kBaudRates;

    ReceiverCardBinder(ReceiverCard *card, TavrixController *controller, QObject *parent = nullptr);

private:
    void addSettings();
    void showConnection();
    void showSettings();
    void showInfo();
    void showMounting();
    void showGyro();
    void sendConsoleLine(const QString &line);

    ReceiverCard *m_card;
    TavrixController *m_controller;
    ReceiverConfigManager *m_receiver;
    PortPickerBinder *m_ports;
};

} // namespace tavrix
