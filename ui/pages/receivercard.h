#pragma once

#include "card.h"
#include "tone.h"

#include <QHash>
#include <QList>

#include <optional>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace hub {
class LogView;
class StatusPill;
} // namespace hub

namespace tavrix {

class SerialPortPicker;

// The Orvane receiver in the car: its USB console port, how it is reached, its settings,
// GPS, mounting detection, gyro calibration and a raw console. It only presents and asks;
// the owner fills in the settings it offers, shows what the receiver reports and acts on
// the requests. The end-point calibration and the LED strip have their own dialogs, which
// the card only asks for.
class ReceiverCard : public hub::Card
{
    Q_OBJECT
public:
    // One setting row: a switch when `choices` is empty, else a choice of these values.
    struct Setting
    {
        QString key;
        QString label;
        QList<int> choices;
        QString unit; // after each choice's number ("Hz")
    };

    // Lines the console keeps; older ones drop off.
    static constexpr int kConsoleLines = 300;

    explicit ReceiverCard(QWidget *parent = nullptr);

    void addSetting(const Setting &setting);
    // The value to show; nullopt when neither chosen nor reported.
    void showSetting(const QString &key, std::optional<int> value);
    void showConnection(hub::Tone tone, const QString &state, const QString &status);
    void showReceiverInfo(const QString &text);
    void showGpsStatus(const QString &text);
    void showMounting(const QString &axes, const QString &text);
    void showGyroCalibration(const QString &text);
    // What can be asked of the receiver as it is reached now. Settings can always be
    // chosen: they are kept and applied the next time the receiver is reached.
    void setReachable(bool mounting, bool gyro, bool console);
    void appendConsoleLine(const QString &line);
    // The reason a console line was not sent; an empty text hides it.
    void showConsoleRefusal(const QString &text);
    void clearConsoleEntry();

    SerialPortPicker *picker() const { return m_picker; }
    QCheckBox *settingSwitch(const QString &key) const;
    QComboBox *settingChoice(const QString &key) const;
    QString statusText() const;
    QString mountingText() const;
    QString gyroText() const;
    QPushButton *mountingButton(int step) const { return step == 0 ? m_flat : m_noseUp; }
    QPushButton *gyroButton() const { return m_gyro; }
    QLineEdit *consoleEntry() const { return m_entry; }
    QString consoleText() const;
    QString consoleRefusal() const;

signals:
    void settingChanged(const QString &key, int value);
    void mountingStepRequested(int step);
    void gyroCalibrationRequested();
    void consoleCommandEntered(const QString &line);
    void calibrationRequested();
    void ledRequested();

private:
    QWidget *buildSensorRows();
    QWidget *buildConsole();
    QLabel *addMutedLabel();

    hub::StatusPill *m_pill = nullptr;
    SerialPortPicker *m_picker = nullptr;
    QLabel *m_status = nullptr;
    QLabel *m_info = nullptr;
    QGridLayout *m_settings = nullptr;
    QHash<QString, QWidget *> m_settingWidgets;
    QLabel *m_gps = nullptr;
    QLabel *m_axes = nullptr;
    QLabel *m_mounting = nullptr;
    QPushButton *m_flat = nullptr;
    QPushButton *m_noseUp = nullptr;
    QLabel *m_gyroText = nullptr;
    QPushButton *m_gyro = nullptr;
    hub::LogView *m_console = nullptr;
    QLineEdit *m_entry = nullptr;
    QPushButton *m_send = nullptr;
    QLabel *m_refusal = nullptr;
};

} // namespace tavrix
