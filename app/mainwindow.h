#pragma once

#include "dialogregistry.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>

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
class InfoPage;
class LogRouter;
class MotionChooserPage;
class MotionPanelPage;
class ThemeSwitcher;
class VehiclesPage;
} // namespace tavrix

// The one window of the hub: the sidebar beside a stack of pages addressed by key. It only
// presents; the pages are their own classes and the services live outside it.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    MainWindow(const QString &activeTheme, tavrix::LogRouter *log, QWidget *parent = nullptr);

    // "dashboard", "vehicles", "rc-car", "rc-heli", "motion-chooser", "motion-panel", "info".
    QStringList pageKeys() const;
    bool showPage(const QString &key);
    QString currentPage() const;
    QWidget *page(const QString &key) const;

    hub::Sidebar *sidebar() const { return m_sidebar; }
    hub::Toast *toast() const { return m_toast; }
    tavrix::ThemeSwitcher *themeSwitcher() const { return m_themeSwitcher; }
    tavrix::DialogRegistry &dialogs() { return m_dialogs; }

    // Until the transmission controller is owned here, whoever runs it tells the window.
    void setTransmissionProbe(std::function<bool()> isTransmitting);

    // Set when the user asked to restart (theme change); main starts the new process after
    // this window and everything it owns are gone.
    bool restartRequested() const { return m_restartRequested; }

signals:
    void pageChanged(const QString &key);

private:
    void createPages();
    void openDebugConsole();

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
    bool m_restartRequested = false;
};
