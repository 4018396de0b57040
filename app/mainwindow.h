#pragma once

#include "dialogregistry.h"
#include "startconfirmation.h"

#include <QHash>
#include <QMainWindow>
#include <QPointer>

namespace hub {
class PageStack;
class Sidebar;
class Toast;
} // namespace hub

namespace tavrix {
class CarPage;
class DashboardPage;
class DebugConsole;
class HeliPage;
class HubServices;
class InfoPage;
class LogRouter;
class MotionChooserPage;
class MotionPanelPage;
class ThemeSwitcher;
class VehiclesPage;
} // namespace tavrix

// The one window of the hub: the sidebar beside a stack of pages addressed by key. It only
// presents: the services (profiles, game controllers, transmission) belong to whoever made
// them and must outlive the window; a binder per page ties each page to them.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    // The window and its pages without services, for a start-up that must hand the window's
    // native handle to the services it then makes; present() ties the pages to them.
    MainWindow(const QString &activeTheme, tavrix::LogRouter &log, QWidget *parent = nullptr);
    MainWindow(tavrix::HubServices &services, const QString &activeTheme, tavrix::LogRouter &log,
               QWidget *parent = nullptr);

    // Once only.
    void present(tavrix::HubServices &services);

    // "dashboard", "vehicles", "rc-car", "rc-heli", "motion-chooser", "motion-panel", "info".
    QStringList pageKeys() const;
    bool showPage(const QString &key);
    QString currentPage() const;
    QWidget *page(const QString &key) const;

    hub::Sidebar *sidebar() const { return m_sidebar; }
    hub::Toast *toast() const { return m_toast; }
    tavrix::ThemeSwitcher *themeSwitcher() const { return m_themeSwitcher; }
    tavrix::DialogRegistry &dialogs() { return m_dialogs; }
    // Shows the registered dialog `key`, or brings it to the front when it is open already;
    // null for a key nobody registered.
    QWidget *openDialog(const QString &key);

    // Set when the user asked to restart (theme change); main starts the new process after
    // this window and everything it owns are gone.
    bool restartRequested() const { return m_restartRequested; }

signals:
    void pageChanged(const QString &key);

private:
    void createPages();
    void bindPages();
    // The motion platform pages and the phone panel's dialog they open.
    void bindMotionPages();
    void openDebugConsole();
    void openLogFolder();
    // Refusals and faults the vehicle pages do not show because neither is in front.
    void showErrorElsewhere(const QString &error);

    tavrix::HubServices *m_services = nullptr;
    tavrix::LogRouter *m_log;
    hub::Sidebar *m_sidebar = nullptr;
    hub::PageStack *m_pages = nullptr;
    hub::Toast *m_toast = nullptr;
    tavrix::ThemeSwitcher *m_themeSwitcher = nullptr;
    tavrix::DashboardPage *m_dashboard = nullptr;
    tavrix::VehiclesPage *m_vehicles = nullptr;
    tavrix::CarPage *m_car = nullptr;
    tavrix::HeliPage *m_heli = nullptr;
    tavrix::MotionChooserPage *m_motionChooser = nullptr;
    tavrix::MotionPanelPage *m_motionPanel = nullptr;
    tavrix::InfoPage *m_info = nullptr;
    QPointer<tavrix::DebugConsole> m_console;
    tavrix::DialogRegistry m_dialogs;
    // Asked before the car page's Start goes ahead; the onboarding group sets the question.
    tavrix::StartConfirmation m_carStart;
    tavrix::StartConfirmation m_heliStart;
    QHash<QString, QPointer<QWidget>> m_openDialogs;
    bool m_restartRequested = false;
};
