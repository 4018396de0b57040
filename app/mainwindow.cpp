#include "mainwindow.h"

#include "carpage.h"
#include "carpagebinder.h"
#include "dashboardbinder.h"
#include "dashboardpage.h"
#include "debugconsole.h"
#include "dialogwiring.h"
#include "driverecorderbinder.h"
#include "helipage.h"
#include "helipagebinder.h"
#include "hubservices.h"
#include "infopage.h"
#include "logrouter.h"
#include "motionchooserpage.h"
#include "motionpanelbinder.h"
#include "motionpanelpage.h"
#include "motionwebdialog.h"
#include "motionwebdialogbinder.h"
#include "pagestack.h"
#include "remoteserverbinder.h"
#include "remotestatusdialog.h"
#include "shellsettings.h"
#include "sidebar.h"
#include "tavrixcontroller.h"
#include "telemetryplotsbinder.h"
#include "themeswitcher.h"
#include "toast.h"
#include "vehiclespage.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QUrl>

using namespace tavrix;

namespace {

const QString kRemoteStatusDialog = QStringLiteral("web-status");
const QString kMotionWebDialog = QStringLiteral("motion-web");

} // namespace

MainWindow::MainWindow(HubServices &services, const QString &activeTheme, LogRouter &log, QWidget *parent)
    : MainWindow(activeTheme, log, parent)
{
    present(services);
}

MainWindow::MainWindow(const QString &activeTheme, LogRouter &log, QWidget *parent)
    : QMainWindow(parent)
    , m_log(&log)
{
    setWindowTitle(tr("OrvaneLabs HUB"));
    setMinimumSize(880, 560);
    resize(1280, 800);

    auto *root = new QWidget(this);
    root->setObjectName(QStringLiteral("hubRoot"));
    auto *row = new QHBoxLayout(root);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    m_sidebar = new hub::Sidebar(root);
    m_sidebar->setBrand(QPixmap(QStringLiteral(":/images/orvanelabs-logo.png")), tr("OrvaneLabs HUB"));
    m_sidebar->addEntry(QStringLiteral("dashboard"), hub::Glyph::Dashboard, tr("Dashboard"));
    m_sidebar->addEntry(QStringLiteral("vehicles"), hub::Glyph::Car, tr("Vehicles"),
                        {QStringLiteral("rc-car"), QStringLiteral("rc-heli")});
    m_sidebar->addEntry(QStringLiteral("motion-chooser"), hub::Glyph::Motion, tr("Motion"),
                        {QStringLiteral("motion-panel")});
    m_sidebar->addEntry(QStringLiteral("info"), hub::Glyph::Info, tr("About"));
    m_sidebar->setReduceMotion(hub::ShellSettings::reduceMotion());
    m_pages = new hub::PageStack(root);
    row->addWidget(m_sidebar);
    row->addWidget(m_pages, 1);
    setCentralWidget(root);
    m_toast = new hub::Toast(root);

    createPages();

    m_themeSwitcher = new ThemeSwitcher(activeTheme, this);
    const bool dark = m_themeSwitcher->activeTheme() == hub::ShellSettings::darkTheme();
    m_sidebar->setThemeButton(dark ? hub::Glyph::Sun : hub::Glyph::Moon,
                              dark ? tr("Light mode") : tr("Dark mode"));
    connect(m_sidebar, &hub::Sidebar::themeButtonClicked, this, [this] { m_themeSwitcher->ask(this); });
    connect(m_themeSwitcher, &ThemeSwitcher::choiceStored, m_toast, &hub::Toast::showMessage);
    connect(m_themeSwitcher, &ThemeSwitcher::restartRequested, this, [this] {
        m_restartRequested = true;
        close();
    });
    connect(m_sidebar, &hub::Sidebar::entryActivated, this, &MainWindow::showPage);
    connect(m_pages, &hub::PageStack::currentKeyChanged, this, [this](const QString &key) {
        m_sidebar->setCurrentPage(key);
        emit pageChanged(key);
    });

    m_dialogs.add(QStringLiteral("msgbox"),
                  [this](QWidget *parent) { return m_themeSwitcher->createQuestion(parent); });

    showPage(QStringLiteral("dashboard"));
    m_sidebar->setCurrentPage(QStringLiteral("dashboard"));
}

void MainWindow::createPages()
{
    m_dashboard = new DashboardPage(m_pages);
    m_vehicles = new VehiclesPage(m_pages);
    m_car = new CarPage(m_pages);
    m_heli = new HeliPage(m_pages);
    m_motionChooser = new MotionChooserPage(m_pages);
    m_motionPanel = new MotionPanelPage(MotionPanelBinder::testLimits(), m_pages);
    m_info = new InfoPage(m_pages);
    m_pages->addPage(QStringLiteral("dashboard"), m_dashboard);
    m_pages->addPage(QStringLiteral("vehicles"), m_vehicles);
    m_pages->addPage(QStringLiteral("rc-car"), m_car);
    m_pages->addPage(QStringLiteral("rc-heli"), m_heli);
    m_pages->addPage(QStringLiteral("motion-chooser"), m_motionChooser);
    m_pages->addPage(QStringLiteral("motion-panel"), m_motionPanel);
    m_pages->addPage(QStringLiteral("info"), m_info);

    const auto goTo = [this](const QString &key) { return [this, key] { showPage(key); }; };
    connect(m_dashboard, &DashboardPage::pageRequested, this, &MainWindow::showPage);
    connect(m_vehicles, &VehiclesPage::vehicleChosen, this, &MainWindow::showPage);
    connect(m_car, &CarPage::backRequested, this, goTo(QStringLiteral("vehicles")));
    connect(m_heli, &HeliPage::backRequested, this, goTo(QStringLiteral("vehicles")));
    connect(m_motionPanel, &MotionPanelPage::backRequested, this, goTo(QStringLiteral("motion-chooser")));
    connect(m_info, &InfoPage::debugConsoleRequested, this, &MainWindow::openDebugConsole);
    connect(m_info, &InfoPage::logFolderRequested, this, &MainWindow::openLogFolder);
    connect(m_info, &InfoPage::reduceMotionChanged, m_sidebar, &hub::Sidebar::setReduceMotion);
}

QStringList MainWindow::pageKeys() const
{
    return m_pages->keys();
}

bool MainWindow::showPage(const QString &key)
{
    return m_pages->setCurrentKey(key);
}

QString MainWindow::currentPage() const
{
    return m_pages->currentKey();
}

QWidget *MainWindow::page(const QString &key) const
{
    return m_pages->page(key);
}

void MainWindow::present(HubServices &services)
{
    Q_ASSERT(!m_services);
    m_services = &services;
    bindPages();
    TavrixController *controller = services.controller();
    m_themeSwitcher->setTransmissionProbe([controller] { return controller->isRunning(); });
}

void MainWindow::bindPages()
{
    TavrixController *controller = m_services->controller();
    new DashboardBinder(m_dashboard, controller, this);
    new TelemetryPlotsBinder(m_dashboard->telemetryPlots(), controller, this);
    new DriveRecorderBinder(m_dashboard->recordingRow(), m_services->driveRecorder(),
                            m_services->recordingsDirectory(), this);
    new CarPageBinder(m_car, controller, &m_carStart, this);
    new HeliPageBinder(m_heli, controller, &m_heliStart, this);
    connect(controller, &TavrixController::errorOccurred, this, &MainWindow::showErrorElsewhere);

    auto *remote = new RemoteServerBinder(m_services->remoteServer(), this);
    remote->bindDashboard(m_dashboard);
    remote->bindInfoPage(m_info);
    m_dialogs.add(kRemoteStatusDialog, [remote](QWidget *parent) {
        auto *dialog = new RemoteStatusDialog(parent);
        remote->bindDialog(dialog);
        return dialog;
    });
    connect(m_dashboard, &DashboardPage::remoteDetailsRequested, this,
            [this] { openDialog(kRemoteStatusDialog); });

    bindMotionPages();

    const DialogWiring wiring{
        *m_services, m_dialogs,  this,        [this](const QString &key) { return openDialog(key); },
        m_car,       m_heli,     m_dashboard, m_info,
        m_carStart,  m_heliStart};
    wireVehicleDialogs(wiring);
    wireConfigurationDialogs(wiring);
    wireFirmwareDialogs(wiring);
    wireProfileDialogs(wiring);
    wireButtonDialogs(wiring);
    wireOnboardingDialogs(wiring);
    wireHelicopterDialogs(wiring);
}

void MainWindow::bindMotionPages()
{
    // Opening the dialog starts nothing: the panel listens only when asked to (startPanel).
    auto *motionWeb = new MotionWebDialogBinder(m_services->webPanel(), this);
    m_dialogs.add(kMotionWebDialog, [motionWeb](QWidget *parent) {
        auto *dialog = new MotionWebDialog(parent);
        motionWeb->bindDialog(dialog);
        return dialog;
    });
    auto *motion = new MotionPanelBinder(m_motionPanel, m_motionChooser, m_services->motionSystem(),
                                         m_services->controller(), this);
    // The page's button starts the phone panel (once) and shows where a phone finds it.
    connect(m_motionPanel, &MotionPanelPage::webPanelRequested, this, [this, motionWeb] {
        motionWeb->startPanel();
        openDialog(kMotionWebDialog);
    });
    connect(motionWeb, &MotionWebDialogBinder::logLine, motion, &MotionPanelBinder::appendLog);
    connect(m_motionChooser, &MotionChooserPage::platformChosen, this, [this, motion](int dof) {
        if (motion->choosePlatform(dof))
            showPage(QStringLiteral("motion-panel"));
    });
}

QWidget *MainWindow::openDialog(const QString &key)
{
    QPointer<QWidget> &dialog = m_openDialogs[key];
    if (!dialog) {
        dialog = m_dialogs.create(key, this);
        if (!dialog)
            return nullptr;
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
    return dialog;
}

void MainWindow::showErrorElsewhere(const QString &error)
{
    if (!m_car->isVisible() && !m_heli->isVisible())
        m_toast->showMessage(error);
}

void MainWindow::openLogFolder()
{
    const QString file = m_log->logFilePath();
    if (file.isEmpty()) {
        m_toast->showMessage(tr("The log is not written to disk in this run"));
        return;
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).absolutePath())))
        m_toast->showMessage(tr("No file manager could open %1").arg(QFileInfo(file).absolutePath()));
}

void MainWindow::openDebugConsole()
{
    if (!m_console) {
        m_console = new DebugConsole(m_log, this);
        m_console->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_console->show();
    m_console->raise();
    m_console->activateWindow();
}
