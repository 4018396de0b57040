#include "motionwebdialog.h"

#include "qrcodeimage.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

namespace {

// Big enough to scan from arm's length off a laptop screen.
constexpr int kQrModulePixels = 6;

} // namespace

MotionWebDialog::MotionWebDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Motion System Web Panel"));
    setMinimumWidth(480);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(14);

    auto *heading = new QLabel(tr("Open the Web Panel on your phone"), this);
    heading->setObjectName(QStringLiteral("dialogHeading"));
    column->addWidget(heading);

    m_qr = new QLabel(this);
    m_qr->setObjectName(QStringLiteral("motionWebQr"));
    m_qr->setAlignment(Qt::AlignCenter);
    m_qr->setMinimumHeight(200);
    column->addWidget(m_qr);

    auto *urlRow = new QHBoxLayout;
    m_url = new QLabel(this);
    m_url->setObjectName(QStringLiteral("motionWebUrl"));
    m_url->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_copy = new QPushButton(tr("Copy URL"), this);
    m_copy->setObjectName(QStringLiteral("motionWebCopy"));
    urlRow->addWidget(m_url, 1);
    urlRow->addWidget(m_copy);
    column->addLayout(urlRow);

    auto *steps = new QLabel(tr("1. Make sure the phone is on the same WiFi network as this PC\n\n"
                                "2. Scan the QR code with the phone camera — the panel opens in the\n"
                                "   browser (no app needed) — or type the URL by hand\n\n"
                                "3. DOF tests, actuator bars and settings work live from the phone"),
                             this);
    steps->setObjectName(QStringLiteral("mutedText"));
    column->addWidget(steps);

    column->addStretch(1);
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);

    connect(m_copy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(m_url->text()); });
    setUrl(QString());
}

void MotionWebDialog::setUrl(const QString &url)
{
    const QImage code = qrCodeImage(url, kQrModulePixels);
    if (code.isNull()) {
        m_qr->setPixmap(QPixmap());
        m_qr->setText(tr("QR Code unavailable"));
    } else {
        m_qr->setPixmap(QPixmap::fromImage(code));
    }
    m_url->setText(url);
    m_copy->setEnabled(!url.isEmpty());
}

} // namespace tavrix
