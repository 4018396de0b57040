#pragma once

#include "tone.h"

#include <QColor>
#include <QDialog>
#include <QList>

#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSlider;
class QSpinBox;
class QStackedWidget;

namespace hub {
class StatusPill;
} // namespace hub

namespace tavrix {

// The "led" dialog: the LED strip on the car's receiver. Power (CH12), the strip's length,
// brightness and active share, the wheel button that flips the power, the colours as one
// global colour, one per LED or a list of zones, and "Send to receiver" with the push's
// progress. It presents only: the owner keeps the settings and sends them, and shows the
// outcome through the slots.
class LedDialog : public QDialog
{
    Q_OBJECT
public:
    enum class Mode
    {
        Global,
        PerLed,
        Range
    };

    struct Zone
    {
        int startPercent = 0;
        int endPercent = 100;
        QColor color;
        friend bool operator==(const Zone &, const Zone &) = default;
    };

    // Everything the dialog edits, as shown and as the user left it.
    struct Values
    {
        bool powerOn = false;
        int ledCount = 1;
        int brightness = 0;
        int activePercentage = 0;
        int powerButtonIndex = -1;
        Mode mode = Mode::Global;
        QColor globalColor;
        int selectedLed = 0;
        QColor selectedLedColor;
        QList<Zone> zones;
        int selectedZone = 0;
        friend bool operator==(const Values &, const Values &) = default;
    };

    // The limits of the spin boxes; the owner clamps what it stores as well.
    struct Limits
    {
        int maxLeds = 1;
        int maxBrightness = 0;
        int maxButtonIndex = 0;
    };

    explicit LedDialog(const Limits &limits, QWidget *parent = nullptr);

    [[nodiscard]] Values values() const { return m_values; }
    QPushButton *sendButton() const { return m_send; }

public slots:
    // Shows the values without echoing an edit back.
    void showValues(const tavrix::LedDialog::Values &values);
    // The push: its state word, whether it is running, and its last message.
    void showPush(hub::Tone tone, const QString &state, bool running, const QString &message);

signals:
    // The user changed something; values() holds the whole result.
    void edited(const tavrix::LedDialog::Values &values);
    void zoneAddRequested();
    void zoneRemoveRequested(int index);
    void sendRequested();

private:
    QWidget *buildStripCard();
    QWidget *buildColourCard();
    QWidget *buildSendCard();
    QWidget *buildZonePage();
    // A swatch that opens a colour chooser for the colour target points at (none: disabled).
    QPushButton *colourButton(QWidget *parent, std::function<QColor *()> target);
    void showSwatches();
    // Reads the widgets into m_values and publishes the edit.
    void commit();
    void showZone();

    Limits m_limits;
    Values m_values;
    bool m_showing = false;
    QCheckBox *m_power = nullptr;
    QSpinBox *m_ledCount = nullptr;
    QSlider *m_brightness = nullptr;
    QSpinBox *m_activePercentage = nullptr;
    QSpinBox *m_powerButton = nullptr;
    QComboBox *m_mode = nullptr;
    QStackedWidget *m_modePages = nullptr;
    QPushButton *m_globalColor = nullptr;
    QSpinBox *m_selectedLed = nullptr;
    QPushButton *m_ledColor = nullptr;
    QListWidget *m_zones = nullptr;
    QSpinBox *m_zoneStart = nullptr;
    QSpinBox *m_zoneEnd = nullptr;
    QPushButton *m_zoneColor = nullptr;
    QPushButton *m_addZone = nullptr;
    QPushButton *m_removeZone = nullptr;
    QList<std::pair<QPushButton *, std::function<QColor *()>>> m_swatches;
    QPushButton *m_send = nullptr;
    hub::StatusPill *m_pushState = nullptr;
    QLabel *m_pushMessage = nullptr;
};

} // namespace tavrix
