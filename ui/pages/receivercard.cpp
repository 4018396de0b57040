#include "receivercard.h"

#include "logview.h"
#include "serialportpicker.h"
#include "statuspill.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

namespace {

QHBoxLayout *buttonRow(std::initializer_list<QWidget *> buttons)
{
    auto *row = new QHBoxLayout;
    for (QWidget *button : buttons)
        row->addWidget(button);
    row->addStretch(1);
    return row;
}

} // namespace

ReceiverCard::ReceiverCard(QWidget *parent)
    : hub::Card(tr("Receiver"), parent)
{
    setSubtitle(tr("The Orvane receiver in the car, over its USB cable or the radio"));
    m_pill = new hub::StatusPill(hub::Tone::Neutral, QString(), this);
    addHeaderWidget(m_pill);

    m_picker = new SerialPortPicker(tr("Plug the receiver in over USB; its port appears here."), this);
    body()->addWidget(m_picker);
    m_status = addMutedLabel();
    m_info = addMutedLabel();

    m_settings = new QGridLayout;
    m_settings->setVerticalSpacing(4);
    body()->addLayout(m_settings);
    m_gps = addMutedLabel();

    body()->addWidget(buildSensorRows());
    body()->addWidget(buildConsole());

    auto *calibrate = new QPushButton(tr("Calibrate end points"), this);
    connect(calibrate, &QPushButton::clicked, this, &ReceiverCard::calibrationRequested);
    auto *led = new QPushButton(tr("LED strip"), this);
    connect(led, &QPushButton::clicked, this, &ReceiverCard::ledRequested);
    body()->addLayout(buttonRow({calibrate, led}));

    showConnection(hub::Tone::Neutral, tr("Not connected"), QString());
    setReachable(false, false, false);
}

QLabel *ReceiverCard::addMutedLabel()
{
    auto *label = new QLabel(this);
    label->setObjectName(QStringLiteral("mutedText"));
    label->setWordWrap(true);
    body()->addWidget(label);
    return label;
}

// Mounting detection in its two steps, with the axes it found, and the gyro calibration:
// both need the car standing still, so they sit together.
QWidget *ReceiverCard::buildSensorRows()
{
    auto *sensors = new QWidget(this);
    auto *column = new QVBoxLayout(sensors);
    column->setContentsMargins(0, 0, 0, 0);
    m_axes = new QLabel(sensors);
    m_flat = new QPushButton(tr("1. Car flat"), sensors);
    m_flat->setToolTip(tr("Put the car on a flat surface, then read the level"));
    m_noseUp = new QPushButton(tr("2. Front lifted"), sensors);
    m_noseUp->setToolTip(tr("Lift the front of the car about 30° and hold it"));
    connect(m_flat, &QPushButton::clicked, this, [this] { emit mountingStepRequested(0); });
    connect(m_noseUp, &QPushButton::clicked, this, [this] { emit mountingStepRequested(1); });
    column->addWidget(new QLabel(tr("Mounting"), sensors));
    column->addLayout(buttonRow({m_flat, m_noseUp, m_axes}));
    m_mounting = new QLabel(sensors);
    m_mounting->setWordWrap(true);
    column->addWidget(m_mounting);

    m_gyro = new QPushButton(tr("Calibrate gyro"), sensors);
    connect(m_gyro, &QPushButton::clicked, this, &ReceiverCard::gyroCalibrationRequested);
    m_gyroText = new QLabel(sensors);
    m_gyroText->setWordWrap(true);
    column->addLayout(buttonRow({m_gyro, m_gyroText}));
    return sensors;
}

QWidget *ReceiverCard::buildConsole()
{
    auto *console = new QWidget(this);
    auto *column = new QVBoxLayout(console);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new QLabel(tr("Console"), console));
    m_console = new hub::LogView(console);
    m_console->setMaximumBlockCount(kConsoleLines);
    m_console->setFixedHeight(120);
    column->addWidget(m_console);
    m_entry = new QLineEdit(console);
    m_entry->setPlaceholderText(tr("A command for the receiver, such as HELP"));
    m_send = new QPushButton(tr("Send"), console);
    auto *row = new QHBoxLayout;
    row->addWidget(m_entry, 1);
    row->addWidget(m_send);
    column->addLayout(row);
    m_refusal = new QLabel(console);
    m_refusal->setObjectName(QStringLiteral("mutedText"));
    m_refusal->hide();
    column->addWidget(m_refusal);
    const auto send = [this] { emit consoleCommandEntered(m_entry->text()); };
    connect(m_entry, &QLineEdit::returnPressed, this, send);
    connect(m_send, &QPushButton::clicked, this, send);
    return console;
}

void ReceiverCard::addSetting(const Setting &setting)
{
    QGridLayout *grid = m_settings;
    const int row = grid->rowCount();
    QWidget *editor = nullptr;
    if (setting.choices.isEmpty()) {
        auto *box = new QCheckBox(setting.label, this);
        connect(box, &QCheckBox::clicked, this,
                [this, key = setting.key](bool on) { emit settingChanged(key, on ? 1 : 0); });
        grid->addWidget(box, row, 0, 1, 2);
        editor = box;
    } else {
        auto *box = new QComboBox(this);
        for (const int value : setting.choices)
            box->addItem(QStringLiteral("%1 %2").arg(value).arg(setting.unit).trimmed(), value);
        connect(box, &QComboBox::activated, this, [this, box, key = setting.key](int index) {
            emit settingChanged(key, box->itemData(index).toInt());
        });
        grid->addWidget(new QLabel(setting.label, this), row, 0);
        grid->addWidget(box, row, 1);
        editor = box;
    }
    m_settingWidgets.insert(setting.key, editor);
}

// Only the user's clicks and choices are announced (clicked, activated), so showing a
// value here never echoes back as a change.
void ReceiverCard::showSetting(const QString &key, std::optional<int> value)
{
    if (QCheckBox *box = settingSwitch(key))
        box->setChecked(value.value_or(0) != 0);
    else if (QComboBox *choice = settingChoice(key))
        choice->setCurrentIndex(value ? choice->findData(*value) : -1);
}

QCheckBox *ReceiverCard::settingSwitch(const QString &key) const
{
    return qobject_cast<QCheckBox *>(m_settingWidgets.value(key));
}

QComboBox *ReceiverCard::settingChoice(const QString &key) const
{
    return qobject_cast<QComboBox *>(m_settingWidgets.value(key));
}

void ReceiverCard::showConnection(hub::Tone tone, const QString &state, const QString &status)
{
    m_pill->setStatus(tone, state);
    m_status->setText(status);
    m_status->setVisible(!status.isEmpty());
}

QString ReceiverCard::statusText() const
{
    return m_status->text();
}

void ReceiverCard::showReceiverInfo(const QString &text)
{
    m_info->setText(text);
    m_info->setVisible(!text.isEmpty());
}

void ReceiverCard::showGpsStatus(const QString &text)
{
    m_gps->setText(text.isEmpty() ? QString() : tr("GPS: %1").arg(text));
    m_gps->setVisible(!text.isEmpty());
}

void ReceiverCard::showMounting(const QString &axes, const QString &text)
{
    m_axes->setText(axes);
    m_mounting->setText(text);
    m_mounting->setVisible(!text.isEmpty());
}

QString ReceiverCard::mountingText() const
{
    return m_mounting->text();
}

void ReceiverCard::showGyroCalibration(const QString &text)
{
    m_gyroText->setText(text);
}

QString ReceiverCard::gyroText() const
{
    return m_gyroText->text();
}

void ReceiverCard::setReachable(bool mounting, bool gyro, bool console)
{
    m_flat->setEnabled(mounting);
    m_noseUp->setEnabled(mounting);
    m_gyro->setEnabled(gyro);
    m_entry->setEnabled(console);
    m_send->setEnabled(console);
}

void ReceiverCard::appendConsoleLine(const QString &line)
{
    m_console->appendLine(line);
}

QString ReceiverCard::consoleText() const
{
    return m_console->toPlainText();
}

void ReceiverCard::showConsoleRefusal(const QString &text)
{
    m_refusal->setText(text);
    m_refusal->setVisible(!text.isEmpty());
}

QString ReceiverCard::consoleRefusal() const
{
    return m_refusal->text();
}

void ReceiverCard::clearConsoleEntry()
{
    m_entry->clear();
    showConsoleRefusal(QString());
}

} // namespace tavrix
