#pragma once

#include <QDialog>
#include <QFlags>
#include <QTimer>

#include <chrono>
#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace hub {
class LogView;
class Notice;
} // namespace hub

namespace tavrix {

// The firmware update dialog of one device: what it runs and what is on offer, the update
// with its progress, the flasher's log, the prompt to power-cycle the board, cancel and the
// result. A device flashed over a cable shows a firmware file row and a port row (with "Read
// board" to identify what is on it); a device whose firmware comes from the update service
// shows "Check for updates", and a port row when its update goes over a cable. It presents
// only; a binder feeds it through the slots and acts on its signals.
class FirmwareDialog : public QDialog
{
    Q_OBJECT
public:
    enum class Row
    {
        FirmwareFile = 0x1,
        Port = 0x2,
        ReadBoard = 0x4, // a button beside the port
        Check = 0x8,     // asks the update server what is on offer
    };
    Q_DECLARE_FLAGS(Rows, Row)

    explicit FirmwareDialog(Rows rows, QWidget *parent = nullptr);

    [[nodiscard]] QString firmwareFile() const;
    [[nodiscard]] QString selectedPort() const;
    // The version on offer as shown; empty while none is known.
    [[nodiscard]] QString availableVersion() const;
    [[nodiscard]] bool isRunning() const { return m_running; }
    [[nodiscard]] bool isPowerCyclePromptShown() const;
    // Empty while no run has ended.
    [[nodiscard]] QString result() const;
    [[nodiscard]] bool resultOk() const { return m_resultOk; }

    QLineEdit *firmwareFileEdit() const { return m_file; }
    QComboBox *portBox() const { return m_ports; }
    QPushButton *readBoardButton() const { return m_readBoard; }
    QPushButton *checkButton() const { return m_check; }
    QPushButton *updateButton() const { return m_update; }
    QPushButton *cancelButton() const { return m_cancel; }
    QProgressBar *progressBar() const { return m_progress; }
    hub::LogView *log() const { return m_log; }

public slots:
    void setDevice(const QString &name);
    void setCurrentVersion(const QString &version);
    void setAvailableVersion(const QString &version);
    void setNotes(const QString &notes);
    void setFirmwareFile(const QString &path);
    // What goes with the chosen file (its description beside it), shown under the file row.
    void setFirmwareFileNote(const QString &note);
    // Keeps the chosen port when it is still listed.
    void setPorts(const QStringList &ports);
    // While running, only Cancel takes clicks.
    void setRunning(bool running);
    void setProgress(const QString &stage, int done, int total);
    void appendLog(const QString &line);
    // seconds: the countdown to show; none shows the prompt without one.
    void showPowerCyclePrompt(std::optional<std::chrono::seconds> seconds);
    void hidePowerCyclePrompt();
    void setResult(bool ok, const QString &message);
    void clearResult();

    // Closing while a run is in progress cancels it and closes once it ended: a half-written
    // board stays in its bootloader, which is safe, but the run must not outlive the dialog.
    void done(int result) override;

signals:
    void firmwareFileChosen(const QString &path);
    void readBoardRequested();
    void checkRequested();
    void updateRequested();
    void cancelRequested();

private:
    QWidget *createDeviceCard();
    QWidget *createSourceCard(Rows rows);
    QWidget *createUpdateCard(Rows rows);
    void chooseFile();
    void showCountdown();
    void refreshButtons();

    QLabel *m_device = nullptr;
    QLabel *m_current = nullptr;
    QLabel *m_available = nullptr;
    QLabel *m_notes = nullptr;
    QLineEdit *m_file = nullptr;
    QLabel *m_fileNote = nullptr;
    QPushButton *m_browse = nullptr;
    QComboBox *m_ports = nullptr;
    QPushButton *m_readBoard = nullptr;
    QPushButton *m_check = nullptr;
    QPushButton *m_update = nullptr;
    QPushButton *m_cancel = nullptr;
    QLabel *m_stage = nullptr;
    QProgressBar *m_progress = nullptr;
    hub::Notice *m_powerCycle = nullptr;
    hub::LogView *m_log = nullptr;
    hub::Notice *m_result = nullptr;
    QTimer m_countdown;
    std::chrono::seconds m_secondsLeft{0};
    bool m_running = false;
    bool m_resultOk = false;
    int m_closeResult = -1; // the result to close with once the run ended; -1: stay open
};

Q_DECLARE_OPERATORS_FOR_FLAGS(FirmwareDialog::Rows)

} // namespace tavrix
