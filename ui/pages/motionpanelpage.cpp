#include "motionpanelpage.h"

#include "card.h"
#include "logview.h"
#include "motionactuatorscard.h"
#include "motionconnectioncard.h"
#include "motionsettingscard.h"
#include "notice.h"
#include "pageheader.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

MotionPanelPage::MotionPanelPage(const MotionTestLimits &limits, QWidget *parent)
    : hub::Page(tr("Motion platform"), QString(), parent)
{
    header()->setBackLink(tr("Motion"));
    connect(header(), &hub::PageHeader::backRequested, this, &MotionPanelPage::backRequested);

    m_webPanel = new QPushButton(tr("Web panel"), this);
    m_webPanel->setToolTip(tr("Run tests and settings from a phone's browser."));
    header()->addAction(m_webPanel);
    connect(m_webPanel, &QPushButton::clicked, this, &MotionPanelPage::webPanelRequested);
    // Never disabled: Release is allowed at any time and stops every test at once.
    m_release = new QPushButton(tr("Release"), this);
    m_release->setProperty("variant", QStringLiteral("danger"));
    m_release->setToolTip(tr("Stops every test at once and switches the motors off. Auto home to resume."));
    m_release->setMinimumWidth(140);
    header()->addAction(m_release);
    connect(m_release, &QPushButton::clicked, this, &MotionPanelPage::releaseRequested);

    m_error = hub::Notice::refusal(hub::Glyph::Info, this);
    content()->addWidget(m_error);

    auto *top = new QHBoxLayout;
    top->setSpacing(kGap);
    m_connection = new MotionConnectionCard(this);
    m_actuators = new MotionActuatorsCard(this);
    top->addWidget(m_connection, 1);
    top->addWidget(m_actuators, 1);
    content()->addLayout(top);

    m_tests = new MotionTestCard(limits, this);
    content()->addWidget(m_tests);

    auto *bottom = new QHBoxLayout;
    bottom->setSpacing(kGap);
    m_settings = new MotionSettingsCard(this);
    auto *logCard = new hub::Card(tr("Controller log"), this);
    m_log = new hub::LogView(logCard);
    m_log->setMaximumBlockCount(kLogLines);
    m_log->setMinimumHeight(160);
    logCard->body()->addWidget(m_log);
    bottom->addWidget(m_settings, 1);
    bottom->addWidget(logCard, 2);
    content()->addLayout(bottom);
    content()->addStretch(1);
    setPlatform(5);
}

void MotionPanelPage::setPlatform(int degreesOfFreedom)
{
    m_dof = degreesOfFreedom;
    header()->setTitle(tr("%1DOF motion platform").arg(degreesOfFreedom));
    header()->setSubtitle(tr("Connect the motion controller, home the platform, then test it."));
}

void MotionPanelPage::showError(const QString &message)
{
    m_error->showMessage(message);
}

QString MotionPanelPage::error() const
{
    return m_error->isHidden() ? QString() : m_error->text();
}

void MotionPanelPage::appendLog(const QString &line)
{
    m_log->appendLine(line);
}

} // namespace tavrix
