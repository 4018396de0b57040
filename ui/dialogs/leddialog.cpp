#include "leddialog.h"

#include "card.h"
#include "statuspill.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tavrix {

namespace {

constexpr int kSwatchSize = 16;
constexpr int kMaxPercent = 100;

QSpinBox *spinBox(int low, int high, QWidget *parent)
{
    auto *box = new QSpinBox(parent);
    box->setRange(low, high);
    // One edit when the user has finished typing, not one per digit: each edit is saved.
    box->setKeyboardTracking(false);
    return box;
}

QIcon swatch(const QColor &color)
{
    QPixmap pixmap(kSwatchSize, kSwatchSize);
    pixmap.fill(color.isValid() ? color : QColor(Qt::transparent));
    return QIcon(pixmap);
}

} // namespace

LedDialog::LedDialog(const Limits &limits, QWidget *parent)
    : QDialog(parent)
    , m_limits(limits)
{
    setWindowTitle(tr("LED strip"));
    setMinimumWidth(620);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(20, 20, 20, 16);
    column->setSpacing(14);

    auto *cards = new QHBoxLayout;
    cards->setSpacing(14);
    auto *left = new QVBoxLayout;
    left->addWidget(buildStripCard());
    left->addWidget(buildSendCard());
    left->addStretch(1);
    cards->addLayout(left, 1);
    cards->addWidget(buildColourCard(), 1);
    column->addLayout(cards, 1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);

    showValues(m_values);
    showPush(hub::Tone::Muted, tr("Idle"), false, QString());
}

QWidget *LedDialog::buildStripCard()
{
    auto *card = new hub::Card(tr("Strip"), this);
    card->setSubtitle(tr("Power travels on CH12; the rest is sent to the receiver."));
    m_power = new QCheckBox(tr("LED power on"), card);
    card->body()->addWidget(m_power);

    auto *form = new QFormLayout;
    m_ledCount = spinBox(1, m_limits.maxLeds, card);
    m_brightness = new QSlider(Qt::Horizontal, card);
    m_brightness->setRange(0, m_limits.maxBrightness);
    m_brightness->setTracking(false);
    m_activePercentage = spinBox(0, kMaxPercent, card);
    m_activePercentage->setSuffix(QStringLiteral(" %"));
    m_powerButton = spinBox(-1, m_limits.maxButtonIndex, card);
    m_powerButton->setSpecialValueText(tr("None"));
    form->addRow(tr("LEDs on the strip"), m_ledCount);
    form->addRow(tr("Brightness"), m_brightness);
    form->addRow(tr("Active share"), m_activePercentage);
    form->addRow(tr("Power button"), m_powerButton);
    card->body()->addLayout(form);

    connect(m_power, &QCheckBox::toggled, this, &LedDialog::commit);
    for (QSpinBox *box : {m_ledCount, m_activePercentage, m_powerButton})
        connect(box, &QSpinBox::valueChanged, this, &LedDialog::commit);
    connect(m_brightness, &QSlider::valueChanged, this, &LedDialog::commit);
    return card;
}

QWidget *LedDialog::buildColourCard()
{
    auto *card = new hub::Card(tr("Colours"), this);
    m_mode = new QComboBox(card);
    m_mode->addItems({tr("One colour"), tr("A colour per LED"), tr("Zones")});
    card->body()->addWidget(m_mode);
    m_modePages = new QStackedWidget(card);

    auto *global = new QWidget(m_modePages);
    auto *globalForm = new QFormLayout(global);
    m_globalColor = colourButton(global, [this] { return &m_values.globalColor; });
    globalForm->addRow(tr("Colour"), m_globalColor);
    m_modePages->addWidget(global);

    auto *perLed = new QWidget(m_modePages);
    auto *perLedForm = new QFormLayout(perLed);
    m_selectedLed = spinBox(0, m_limits.maxLeds - 1, perLed);
    m_ledColor = colourButton(perLed, [this] { return &m_values.selectedLedColor; });
    perLedForm->addRow(tr("LED"), m_selectedLed);
    perLedForm->addRow(tr("Its colour"), m_ledColor);
    m_modePages->addWidget(perLed);

    m_modePages->addWidget(buildZonePage());
    card->body()->addWidget(m_modePages, 1);

    connect(m_mode, &QComboBox::currentIndexChanged, this, &LedDialog::commit);
    connect(m_selectedLed, &QSpinBox::valueChanged, this, &LedDialog::commit);
    return card;
}

QWidget *LedDialog::buildZonePage()
{
    auto *page = new QWidget(m_modePages);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    m_zones = new QListWidget(page);
    m_zones->setMaximumHeight(120);
    layout->addWidget(m_zones);

    auto *buttons = new QHBoxLayout;
    m_addZone = new QPushButton(tr("Add zone"), page);
    m_removeZone = new QPushButton(tr("Remove"), page);
    buttons->addWidget(m_addZone);
    buttons->addWidget(m_removeZone);
    buttons->addStretch(1);
    layout->addLayout(buttons);

    auto *form = new QFormLayout;
    m_zoneStart = spinBox(0, kMaxPercent, page);
    m_zoneEnd = spinBox(0, kMaxPercent, page);
    m_zoneStart->setSuffix(QStringLiteral(" %"));
    m_zoneEnd->setSuffix(QStringLiteral(" %"));
    m_zoneColor = colourButton(page, [this]() -> QColor * {
        const int zone = m_values.selectedZone;
        return zone >= 0 && zone < m_values.zones.size() ? &m_values.zones[zone].color : nullptr;
    });
    form->addRow(tr("Start"), m_zoneStart);
    form->addRow(tr("End"), m_zoneEnd);
    form->addRow(tr("Colour"), m_zoneColor);
    layout->addLayout(form);

    connect(m_zones, &QListWidget::currentRowChanged, this, &LedDialog::commit);
    connect(m_zoneStart, &QSpinBox::valueChanged, this, &LedDialog::commit);
    connect(m_zoneEnd, &QSpinBox::valueChanged, this, &LedDialog::commit);
    connect(m_addZone, &QPushButton::clicked, this, &LedDialog::zoneAddRequested);
    connect(m_removeZone, &QPushButton::clicked, this,
            [this] { emit zoneRemoveRequested(m_values.selectedZone); });
    return page;
}

QWidget *LedDialog::buildSendCard()
{
    auto *card = new hub::Card(tr("Receiver"), this);
    card->setSubtitle(tr("Needs the receiver on its USB cable."));
    m_pushState = new hub::StatusPill(hub::Tone::Muted, QString(), card);
    card->addHeaderWidget(m_pushState);
    m_pushMessage = new QLabel(card);
    m_pushMessage->setWordWrap(true);
    m_send = new QPushButton(tr("Send to receiver"), card);
    card->body()->addWidget(m_pushMessage);
    card->body()->addWidget(m_send);
    connect(m_send, &QPushButton::clicked, this, &LedDialog::sendRequested);
    return card;
}

QPushButton *LedDialog::colourButton(QWidget *parent, std::function<QColor *()> target)
{
    auto *button = new QPushButton(tr("Choose…"), parent);
    m_swatches.append({button, target});
    connect(button, &QPushButton::clicked, this, [this, target] {
        QColor *color = target();
        if (!color)
            return;
        const QColor chosen = QColorDialog::getColor(*color, this, tr("LED colour"));
        if (!chosen.isValid())
            return;
        *color = chosen;
        commit();
    });
    return button;
}

void LedDialog::commit()
{
    if (m_showing)
        return;
    Values &v = m_values;
    v.powerOn = m_power->isChecked();
    v.ledCount = m_ledCount->value();
    v.brightness = m_brightness->value();
    v.activePercentage = m_activePercentage->value();
    v.powerButtonIndex = m_powerButton->value();
    v.mode = Mode(m_mode->currentIndex());
    v.selectedLed = m_selectedLed->value();
    // A zone's fields belong to the zone selected before the selection moved.
    if (v.selectedZone >= 0 && v.selectedZone < v.zones.size()) {
        v.zones[v.selectedZone].startPercent = m_zoneStart->value();
        v.zones[v.selectedZone].endPercent = m_zoneEnd->value();
    }
    v.selectedZone = std::max(0, m_zones->currentRow());
    showValues(v);
    emit edited(v);
}

void LedDialog::showValues(const Values &values)
{
    m_showing = true;
    m_values = values;
    m_power->setChecked(values.powerOn);
    m_ledCount->setValue(values.ledCount);
    m_brightness->setValue(values.brightness);
    m_activePercentage->setValue(values.activePercentage);
    m_powerButton->setValue(values.powerButtonIndex);
    m_mode->setCurrentIndex(int(values.mode));
    m_modePages->setCurrentIndex(int(values.mode));
    m_selectedLed->setMaximum(values.ledCount - 1);
    m_selectedLed->setValue(values.selectedLed);
    m_zones->clear();
    for (const Zone &zone : values.zones) {
        auto *item = new QListWidgetItem(swatch(zone.color),
                                         tr("%1 % to %2 %").arg(zone.startPercent).arg(zone.endPercent));
        m_zones->addItem(item);
    }
    m_zones->setCurrentRow(values.zones.isEmpty() ? -1 : values.selectedZone);
    showZone();
    showSwatches();
    m_showing = false;
}

void LedDialog::showZone()
{
    const bool any = m_values.selectedZone < m_values.zones.size();
    const Zone zone = any ? m_values.zones.at(m_values.selectedZone) : Zone{};
    m_zoneStart->setValue(zone.startPercent);
    m_zoneEnd->setValue(zone.endPercent);
    for (QWidget *widget : {static_cast<QWidget *>(m_zoneStart), static_cast<QWidget *>(m_zoneEnd),
                            static_cast<QWidget *>(m_zoneColor), static_cast<QWidget *>(m_removeZone)})
        widget->setEnabled(any);
}

void LedDialog::showSwatches()
{
    for (const auto &[button, target] : m_swatches) {
        const QColor *color = target();
        button->setIcon(swatch(color ? *color : QColor()));
        button->setText(color ? color->name() : tr("Choose…"));
    }
}

void LedDialog::showPush(hub::Tone tone, const QString &state, bool running, const QString &message)
{
    m_pushState->setStatus(tone, state);
    m_pushMessage->setText(message);
    m_pushMessage->setVisible(!message.isEmpty());
    m_send->setEnabled(!running);
}

} // namespace tavrix
