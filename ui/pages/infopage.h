#pragma once

#include "page.h"

class QCheckBox;
class QLabel;

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
    AppAddressList *appAddressList() const { return m_appAddresses; }

public slots:
    // The ws:// addresses to enter in the mobile app; empty when its server is off.
    void setAppAddresses(const QStringList &addresses);

signals:
    void reduceMotionChanged(bool reduce);
    void debugConsoleRequested();
    void firmwareUpdatesRequested();
    void setupGuideRequested();

private:
    QWidget *buildAboutCard();
    QWidget *buildPreferencesCard();
    QWidget *buildMobileAppCard();
    QWidget *buildLicencesCard();

    QCheckBox *m_reduceMotion = nullptr;
    AppAddressList *m_appAddresses = nullptr;
    QLabel *m_appAddressHint = nullptr;
};

} // namespace tavrix
