#include "heliconfigdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace tavrix {

namespace {

QStringList functionNames()
{
    return {HeliConfigDialog::tr("Roll"), HeliConfigDialog::tr("Pitch"), HeliConfigDialog::tr("Collective"),
            HeliConfigDialog::tr("Rudder")};
}

} // namespace

HeliConfigDialog::HeliConfigDialog(const Limits &limits, QWidget *parent)
    : HeliSettingsDialog(tr("Helicopter controls and channels"), limits, parent)
{
    m_tabs = new QTabWidget(this);
    m_tabs->addTab(buildControlsPage(), tr("Axes and channels"));
    m_tabs->addTab(buildCalibrationPage(), tr("Calibration"));
    content()->addWidget(m_tabs, 1);
    showValues(Values{});
    showDetecting(-1);
}

QWidget *HeliConfigDialog::buildControlsPage()
{
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(12, 12, 12, 12);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    const QStringList headers = {tr("Function"), tr("Device"), tr("Axis"), QString(), tr("Channel")};
    for (int column = 0; column < headers.size(); ++column) {
        auto *header = new QLabel(headers.at(column), page);
        header->setObjectName(QStringLiteral("mutedText"));
        grid->addWidget(header, 0, column);
    }
    const QStringList names = functionNames();
    const QStringList devices = {tr("Joystick"), tr("Joystick"), tr("Throttle"), tr("Pedals")};
    for (int function = 0; function < kFunctions; ++function) {
        const int row = function + 1;
        grid->addWidget(new QLabel(names.at(function), page), row, 0);
        grid->addWidget(new QLabel(devices.at(function), page), row, 1);
        m_axis[std::size_t(function)] = HeliSettingsDialog::axisBox(page);
        grid->addWidget(m_axis[std::size_t(function)], row, 2);
        auto *detect = new QPushButton(page);
        connect(detect, &QPushButton::clicked, this,
                [this, function] { emit detectRequested(Function(function)); });
        m_detect[std::size_t(function)] = detect;
        grid->addWidget(detect, row, 3);
        m_channel[std::size_t(function)] = HeliSettingsDialog::channelBox(page);
        grid->addWidget(m_channel[std::size_t(function)], row, 4);
    }
    const int pedalRow = kFunctions + 1;
    m_differential = checkBox(tr("Two pedals"), page);
    grid->addWidget(m_differential, pedalRow, 0, 1, 2);
    m_rightPedal = HeliSettingsDialog::axisBox(page);
    m_rightPedal->setToolTip(tr("The right pedal's axis; the rudder's axis is then the left pedal."));
    grid->addWidget(m_rightPedal, pedalRow, 2);
    grid->setColumnStretch(1, 1);
    column->addLayout(grid);
    column->addWidget(
        explanation(tr("Detect, then move the control that should drive the function. Two pedals steer the "
                       "rudder by right minus left. A function whose channel "
                       "is \u201CNot sent\u201D leaves its channel to the button mappings; no two "
                       "functions may share a channel."),
                    page));
    column->addStretch(1);
    return page;
}

QWidget *HeliConfigDialog::buildCalibrationPage()
{
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(12, 12, 12, 12);
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    const QStringList points = {tr("Minimum"), tr("Centre"), tr("Maximum")};
    // Each point is a number and its "Set" button, side by side.
    for (int point = 0; point < kPoints; ++point)
        grid->addWidget(new QLabel(points.at(point), page), 0, 2 * point + 1, 1, 2);
    const QStringList names = functionNames();
    for (int function = 0; function < kFunctions; ++function) {
        grid->addWidget(new QLabel(names.at(function), page), function + 1, 0);
        for (int point = 0; point < kPoints; ++point) {
            auto *box = new QDoubleSpinBox(page);
            box->setRange(-1.0, 1.0);
            box->setDecimals(3);
            box->setSingleStep(0.01);
            box->setKeyboardTracking(false);
            connect(box, &QDoubleSpinBox::valueChanged, this, &HeliConfigDialog::userEdited);
            m_calibration[std::size_t(function)][std::size_t(point)] = box;
            grid->addWidget(box, function + 1, 2 * point + 1);
            auto *capture = new QToolButton(page);
            capture->setText(tr("Set"));
            capture->setToolTip(tr("Take the axis's position now"));
            connect(capture, &QToolButton::clicked, this,
                    [this, function, point] { emit captureRequested(Function(function), Point(point)); });
            m_capture[std::size_t(function)][std::size_t(point)] = capture;
            grid->addWidget(capture, function + 1, 2 * point + 2);
        }
    }
    grid->setColumnStretch(0, 1);
    column->addLayout(grid);
    column->addWidget(explanation(
        tr("Raw positions of each axis, -1 to +1: hold the control there and press Set. The "
           "collective reads its minimum as bottom and its maximum as top; the centre is not used."),
        page));
    column->addStretch(1);
    return page;
}

HeliConfigDialog::Values HeliConfigDialog::values() const
{
    Values v;
    for (std::size_t function = 0; function < kFunctions; ++function) {
        v.axis[function] = selected(m_axis[function]);
        v.channel[function] = selected(m_channel[function]);
        for (std::size_t point = 0; point < kPoints; ++point)
            v.calibration[function][point] = m_calibration[function][point]->value();
    }
    v.rightPedalAxis = selected(m_rightPedal);
    v.differential = m_differential->isChecked();
    return v;
}

void HeliConfigDialog::showValues(const Values &v)
{
    const auto quiet = quietEditors();
    for (std::size_t function = 0; function < kFunctions; ++function) {
        select(m_axis[function], v.axis[function]);
        select(m_channel[function], v.channel[function]);
        for (std::size_t point = 0; point < kPoints; ++point) {
            QDoubleSpinBox *box = m_calibration[function][point];
            const QSignalBlocker hold(box);
            box->setValue(v.calibration[function][point]);
        }
    }
    select(m_rightPedal, v.rightPedalAxis);
    m_differential->setChecked(v.differential);
    m_rightPedal->setEnabled(v.differential);
}

void HeliConfigDialog::showDetecting(int function)
{
    for (int i = 0; i < kFunctions; ++i) {
        QPushButton *button = m_detect[std::size_t(i)];
        button->setText(i == function ? tr("Move it\u2026") : tr("Detect"));
        button->setEnabled(function < 0 || i == function);
    }
}

void HeliConfigDialog::userEdited()
{
    m_rightPedal->setEnabled(m_differential->isChecked());
    emit edited(values());
}

} // namespace tavrix
