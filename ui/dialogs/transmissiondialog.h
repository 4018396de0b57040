#pragma once

#include "radiosettingsview.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QScrollArea;

namespace hub {
class Notice;
} // namespace hub

namespace tavrix {

class TransmitterCard;

// The "transmission" dialog: the transmitter's port and baud rate, whether transmission
// starts by itself, and the radio module's settings, read in configuration mode. It
// presents only; the owner feeds it through the slots and acts on its signals.
class TransmissionDialog : public QDialog
{
    Q_OBJECT
public:
    explicit TransmissionDialog(QWidget *parent = nullptr);

    TransmitterCard *transmitterCard() const { return m_transmitter; }
    QCheckBox *autoStartBox() const { return m_autoStart; }
    QPushButton *readButton() const { return m_read; }
    QProgressBar *progressBar() const { return m_progress; }
    RadioSettingsView *radioSettings() const { return m_settings; }
    // Empty while no error is shown.
    QString error() const;
    // Why the settings cannot be read now; empty while they can.
    QString readBlockedReason() const;

public slots:
    void setAutoStart(bool enabled);
    // A reason (transmission running, no transmitter) disables reading and is shown.
    void setReadBlocked(const QString &reason);
    void setReading(bool reading);
    void setProgress(int done, int total);
    void setRadioSettings(const QList<RadioSettingGroup> &groups);
    // Selectors only take choices while the module listens (configuration mode).
    void setSettingsEditable(bool editable);
    // The newest error replaces the one shown before.
    void showError(const QString &text);
    void clearError();

signals:
    void autoStartChanged(bool enabled);
    void readRequested();
    void choiceMade(const QString &name, int optionIndex);

private:
    QWidget *createRadioCard();
    void refreshReadButton();

    TransmitterCard *m_transmitter = nullptr;
    QCheckBox *m_autoStart = nullptr;
    QPushButton *m_read = nullptr;
    QLabel *m_readBlocked = nullptr;
    QProgressBar *m_progress = nullptr;
    QLabel *m_empty = nullptr;
    QScrollArea *m_scroll = nullptr;
    RadioSettingsView *m_settings = nullptr;
    hub::Notice *m_error = nullptr;
    QString m_readBlockedReason;
    bool m_reading = false;
};

} // namespace tavrix
