#pragma once

#include "receiverv4flasher.h"

#include <QObject>
#include <QStringList>

#include <functional>

namespace tavrix {

class FirmwareDialog;

// Ties a firmware dialog to the receiver V4 flasher: the firmware file is checked by the
// image loader (a refusal is shown and nothing reaches the board), then written over the
// chosen cable port; "Read board" identifies the board. The flasher's log, progress,
// power-cycle request and result go to the dialog. The flasher works on its own thread,
// so nothing here waits for the board.
class ReceiverV4FirmwareBinder : public QObject
{
    Q_OBJECT
public:
    // The serial ports the cable may be on, read whenever the dialog is shown and while it stays visible.
    using PortLister = std::function<QStringList()>;

    // Normally a child of the dialog, so it (and a run in progress) goes with it.
    ReceiverV4FirmwareBinder(FirmwareDialog *dialog, PortLister ports, QObject *parent = nullptr,
                             const ReceiverV4FlasherTimings &timings = {});

    [[nodiscard]] ReceiverV4Flasher *flasher() const { return m_flasher; }

private:
    void showFile(const QString &path);
    void update();
    void readBoard();
    void refuse(const QString &message);
    void onFinished(bool ok, const QString &message);

    FirmwareDialog *m_dialog;
    PortLister m_ports;
    ReceiverV4FlasherTimings m_timings;
    ReceiverV4Flasher *m_flasher;
    // The version being written, shown as installed once the update succeeded.
    QString m_writing;
};

} // namespace tavrix
