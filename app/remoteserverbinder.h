#pragma once

#include "tone.h"

#include <QObject>
#include <QString>
#include <QStringList>

namespace tavrix {

class DashboardPage;
class InfoPage;
class RemoteStatusDialog;
class WebSocketServer;

// Shows the mobile app's server wherever the window mentions it: the dashboard's
// "Mobile app" row, the About page's addresses and the "web-status" dialog, each kept
// current from the server's client count for as long as that widget lives.
class RemoteServerBinder : public QObject
{
    Q_OBJECT
public:
    // The server is not owned and must outlive the bound widgets.
    explicit RemoteServerBinder(WebSocketServer *server, QObject *parent = nullptr);

    void bindDashboard(DashboardPage *page);
    void bindInfoPage(InfoPage *page);
    void bindDialog(RemoteStatusDialog *dialog);

private:
    struct State
    {
        hub::Tone tone;
        QString status;
        QString detail;
    };
    // One wording for the dashboard row and the dialog.
    [[nodiscard]] State state() const;
    [[nodiscard]] QStringList appUrls() const;

    WebSocketServer *m_server;
};

} // namespace tavrix
