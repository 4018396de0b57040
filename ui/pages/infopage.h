#pragma once

#include "page.h"

class QCheckBox;

namespace tavrix {

// The "info" page: version, preferences, diagnostics and the licences of what the hub
// is built with (Qt under the LGPL, the Geist fonts under the OFL).
class InfoPage : public hub::Page
{
    Q_OBJECT
public:
    explicit InfoPage(QWidget *parent = nullptr);

    static QString version();
    QCheckBox *reduceMotionBox() const { return m_reduceMotion; }

signals:
    void reduceMotionChanged(bool reduce);
    void debugConsoleRequested();

private:
    QWidget *buildAboutCard();
    QWidget *buildPreferencesCard();
    QWidget *buildLicencesCard();

    QCheckBox *m_reduceMotion = nullptr;
};

} // namespace tavrix
