#include "infopage.h"

#include "appaddresslist.h"
#include "card.h"
#include "shellsettings.h"

#include <QCheckBox>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

namespace {

QLabel *mutedLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(QStringLiteral("mutedText"));
    label->setWordWrap(true);
    return label;
}

} // namespace

InfoPage::InfoPage(QWidget *parent)
    : hub::Page(tr("About"), tr("Version, preferences, the mobile app and licences."), parent)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addWidget(buildAboutCard(), 1);
    row->addWidget(buildPreferencesCard(), 1);
    content()->addLayout(row);
    content()->addWidget(buildMobileAppCard());
    content()->addWidget(buildLicencesCard());
    content()->addStretch(1);
}

QString InfoPage::version()
{
    return QStringLiteral(ORVANE_VERSION);
}

QWidget *InfoPage::buildAboutCard()
{
    auto *card = new hub::Card(tr("OrvaneLabs HUB"), this);
    card->setSubtitle(tr("Version %1").arg(version()));
    auto *row = new QHBoxLayout;
    row->setSpacing(16);
    auto *logo = new QLabel(card);
    logo->setFixedSize(56, 56);
    logo->setPixmap(
        QPixmap(QStringLiteral(":/images/orvanelabs-logo.png"))
            .scaled(logo->size() * devicePixelRatioF(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    row->addWidget(logo, 0, Qt::AlignTop);
    row->addWidget(
        mutedLabel(tr("Drive a real RC car or fly an RC helicopter with your sim-racing wheel, pedals, "
                      "shifter or joystick. Built with Qt %1.")
                       .arg(QString::fromLatin1(qVersion())),
                   card),
        1);
    card->body()->addLayout(row);
    card->body()->addStretch(1);

    // One button for every device's update: the devices are listed in its menu.
    auto *firmware = new QPushButton(tr("Firmware updates"), card);
    m_firmwareMenu = new QMenu(firmware);
    firmware->setMenu(m_firmwareMenu);
    auto *guide = new QPushButton(tr("Setup guide"), card);
    connect(guide, &QPushButton::clicked, this, &InfoPage::setupGuideRequested);
    auto *firmwareRow = new QHBoxLayout;
    firmwareRow->addWidget(guide);
    firmwareRow->addWidget(firmware);
    firmwareRow->addStretch(1);
    card->body()->addLayout(firmwareRow);
    return card;
}

QAction *InfoPage::addFirmwareUpdate(const QString &device)
{
    return m_firmwareMenu->addAction(device);
}

QWidget *InfoPage::buildPreferencesCard()
{
    auto *card = new hub::Card(tr("Preferences"), this);
    m_reduceMotion = new QCheckBox(tr("Reduce motion"), card);
    m_reduceMotion->setChecked(hub::ShellSettings::reduceMotion());
    card->body()->addWidget(m_reduceMotion);
    card->body()->addWidget(mutedLabel(tr("Turns off animations such as the sliding sidebar."), card));
    connect(m_reduceMotion, &QCheckBox::toggled, this, [this](bool reduce) {
        hub::ShellSettings::setReduceMotion(reduce);
        emit reduceMotionChanged(reduce);
    });

    auto *console = new QPushButton(tr("Open debug console"), card);
    connect(console, &QPushButton::clicked, this, &InfoPage::debugConsoleRequested);
    auto *logFolder = new QPushButton(tr("Open log folder"), card);
    connect(logFolder, &QPushButton::clicked, this, &InfoPage::logFolderRequested);
    auto *consoleRow = new QHBoxLayout;
    consoleRow->addWidget(console);
    consoleRow->addWidget(logFolder);
    consoleRow->addStretch(1);
    card->body()->addSpacing(4);
    card->body()->addLayout(consoleRow);
    card->body()->addStretch(1);
    return card;
}

QWidget *InfoPage::buildMobileAppCard()
{
    auto *card = new hub::Card(tr("Mobile app"), this);
    card->setSubtitle(tr("Enter one of these addresses in the mobile app on the same network."));
    m_appAddresses = new AppAddressList(card);
    card->body()->addWidget(m_appAddresses);
    m_appAddressHint =
        mutedLabel(tr("The name works on most home networks; where it does not, use an IP address."), card);
    card->body()->addWidget(m_appAddressHint);
    return card;
}

void InfoPage::setAppAddresses(const QStringList &addresses)
{
    m_appAddresses->setAddresses(addresses);
    m_appAddressHint->setVisible(!addresses.isEmpty());
}

QWidget *InfoPage::buildLicencesCard()
{
    auto *card = new hub::Card(tr("Licences"), this);
    card->setSubtitle(tr("OrvaneLabs HUB is built with these components."));
    const auto addEntry = [card](const QString &name, const QString &text) {
        auto *entry = new QVBoxLayout;
        entry->setSpacing(2);
        auto *title = new QLabel(name, card);
        title->setObjectName(QStringLiteral("emptyTitle"));
        entry->addWidget(title);
        entry->addWidget(mutedLabel(text, card));
        card->body()->addLayout(entry);
    };
    addEntry(tr("Qt %1").arg(QString::fromLatin1(qVersion())),
             tr("The Qt Company Ltd and contributors. Used under the GNU Lesser General Public License "
                "version 3 (LGPL-3.0), linked dynamically so it can be replaced."));
    addEntry(tr("Geist and Geist Mono"),
             tr("Vercel, in collaboration with basement.studio. Used under the SIL Open Font License 1.1."));

    auto *licence = new hub::Card(tr("SIL Open Font License 1.1"), card);
    licence->setCollapsible(true);
    licence->setExpanded(false);
    auto *text = new QPlainTextEdit(licence);
    text->setObjectName(QStringLiteral("licenceText"));
    text->setReadOnly(true);
    text->setMinimumHeight(220);
    QFile ofl(QStringLiteral(":/fonts/OFL.txt"));
    if (ofl.open(QIODevice::ReadOnly | QIODevice::Text))
        text->setPlainText(QString::fromUtf8(ofl.readAll()));
    licence->body()->addWidget(text);
    card->body()->addWidget(licence);
    return card;
}

} // namespace tavrix
