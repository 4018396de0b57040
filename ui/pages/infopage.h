#pragma once

#include "page.h"

class QAction;
class QCheckBox;
class QLabel;
class QMenu;

namespace tavrix {

class AppAddressList;

// The "info" page: version, preferences, diagnostics, where the mobile app finds the hub and the licences of
// what the hub is built with (Qt under the LGPL, the Geist fonts under the OFL).
class InfoPage : public hub::Page
{
    Q_OBJECT
public:
    explicit InfoPage(QWidget *parent = nullptr);

    static QString version();
    QCheckBox *reduceMotionBox() const { return m_reduceMotion; }
    // Adds a device to the "Firmware updates" button's menu; triggering the action asks for its update.
    QAction *addFirmwareUpdate(const QString &device);
    AppAddressList *appAddressList() const { return m_appAddresses; }

public slots:
    // The ws:// addresses to enter in the mobile app; empty when its server is off.
    void setAppAddresses(const QStringList &addresses);

signals:
    void reduceMotionChanged(bool reduce);
    void debugConsoleRequested();
    void logFolderRequested();
    void setupGuideRequested();

private:
    QWidget *buildAboutCard();
    QWidget *buildPreferencesCard();
    QWidget *buildMobileAppCard();
    QWidget *buildLicencesCard();

    QCheckBox *m_reduceMotion = nullptr;
    QMenu *m_firmwareMenu = nullptr;
    AppAddressList *m_appAddresses = nullptr;
    QLabel *m_appAddressHint = nullptr;
};

} // namespace tavrix
