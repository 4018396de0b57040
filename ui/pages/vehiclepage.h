#pragma once

#include "page.h"

#include <cstdint>
#include <optional>
#include <span>

class QPushButton;
class QVBoxLayout;

namespace hub {
class ChannelBar;
class Notice;
class StatusPill;
} // namespace hub

namespace tavrix {

class TransmitterCard;

// What the car and helicopter pages share: the back link to the vehicle chooser, the
// transmission state and its start/stop button, a banner for refusals and faults, a banner
// when the active profile is for the other vehicle, the transmitter card at the top of the
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

    // The last refusal or fault shown, empty when the banner is hidden.
    QString problem() const;
    hub::Notice *problemNotice() const { return m_problem; }
    hub::Notice *profileNotice() const { return m_profileNotice; }
    QPushButton *switchProfileButton() const { return m_switchProfile; }
    QPushButton *profilesButton() const { return m_profiles; }

public slots:
    void setTransmitting(bool running);
    void showChannels(std::span<const int32_t> channels);
    void clearChannels();
    // Where each channel's bar fills from (ChannelBar::setNeutrals).
    void setChannelNeutrals(std::span<const std::optional<int32_t>> neutrals);
    // A refusal or fault stays in view until the user dismisses it or the next start works.
    void showProblem(const QString &text);
    void clearProblem();
    // Says which vehicle the active profile is for when it is not this page's; empty hides it.
    void setProfileMismatch(const QString &text, const QString &switchLabel = {});

signals:
    void backRequested();
    void startRequested();
    void stopRequested();
    void switchProfileRequested();
    // The list of profiles, to create, switch or share one.
    void profilesRequested();

protected:
    void addToLeftColumn(QWidget *card);
    void addToRightColumn(QWidget *card);

private:
    void buildBanners();

    TransmitterCard *m_transmitter = nullptr;
    hub::ChannelBar *m_channels = nullptr;
    hub::StatusPill *m_state = nullptr;
    hub::Notice *m_problem = nullptr;
    hub::Notice *m_profileNotice = nullptr;
    QPushButton *m_switchProfile = nullptr;
    QPushButton *m_profiles = nullptr;
    QPushButton *m_start = nullptr;
    QVBoxLayout *m_left = nullptr;
    QVBoxLayout *m_right = nullptr;
    bool m_running = false;
};

} // namespace tavrix
