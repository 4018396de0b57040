#pragma once

#include "page.h"

#include <cstdint>
#include <span>

class QPushButton;
class QVBoxLayout;

namespace hub {
class ChannelBar;
class StatusPill;
} // namespace hub

namespace tavrix {

class TransmitterCard;

// What the car and helicopter pages share: the back link to the vehicle chooser, the
// transmission state and its start/stop button, the transmitter card at the top of the
// left column and the sixteen channels across the bottom.
class VehiclePage : public hub::Page
{
    Q_OBJECT
public:
    VehiclePage(const QString &title, const QString &subtitle, QWidget *parent = nullptr);

    TransmitterCard *transmitterCard() const { return m_transmitter; }
    hub::ChannelBar *channelBar() const { return m_channels; }
    QPushButton *startButton() const { return m_start; }
    hub::StatusPill *transmissionPill() const { return m_state; }
    bool isTransmitting() const { return m_running; }

public slots:
    void setTransmitting(bool running);
    // Start is offered only when it can work; the reason shows as the button's tool tip.
    void setStartAvailable(bool available, const QString &reason = {});
    void showChannels(std::span<const int32_t> channels);
    void clearChannels();

signals:
    void backRequested();
    void startRequested();
    void stopRequested();

protected:
    void addToLeftColumn(QWidget *card);
    void addToRightColumn(QWidget *card);

private:
    TransmitterCard *m_transmitter = nullptr;
    hub::ChannelBar *m_channels = nullptr;
    hub::StatusPill *m_state = nullptr;
    QPushButton *m_start = nullptr;
    QVBoxLayout *m_left = nullptr;
    QVBoxLayout *m_right = nullptr;
    bool m_running = false;
    bool m_startAvailable = false;
};

} // namespace tavrix
