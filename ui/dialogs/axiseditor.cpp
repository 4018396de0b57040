#include "axiseditor.h"

#include "curvegraph.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <memory>
#include <vector>

namespace tavrix {

namespace {

QDoubleSpinBox *numberBox(double minimum, double maximum, double step, QWidget *parent)
{
    auto *box = new QDoubleSpinBox(parent);
    box->setRange(minimum, maximum);
    box->setDecimals(AxisEditor::kShownDecimals);
    box->setSingleStep(step);
    // One edit when typing is done, not one per key: each edit is saved.
    box->setKeyboardTracking(false);
    return box;
}

QLabel *hint(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(QStringLiteral("mutedText"));
    label->setWordWrap(true);
    return label;
}

} // namespace

AxisEditor::AxisEditor(bool bipolar, const Limits &limits, QWidget *parent)
    : QWidget(parent)
    , m_bipolar(bipolar)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 8, 8, 8);
    row->setSpacing(16);
    row->addWidget(buildSettings(limits), 3);
    auto *right = new QVBoxLayout;
    m_graph = new CurveGraph(this);
    right->addWidget(m_graph, 1);
    right->addWidget(buildCalibration());
    row->addLayout(right, 2);
    clearLive();
}

QWidget *AxisEditor::buildSettings(const Limits &limits)
{
    auto *box = new QWidget(this);
    auto *form = new QFormLayout(box);
    form->setContentsMargins(0, 0, 0, 0);
    m_inverted = new QCheckBox(tr("Invert the direction"), box);
    m_deadzone = numberBox(0.0, limits.deadzoneMax, 0.01, box);
    m_minOutput = numberBox(0.0, 1.0, 0.05, box);
    m_maxOutput = numberBox(0.0, 1.0, 0.05, box);
    m_curve = new QComboBox(box);
    m_curve->addItems({tr("Linear"), tr("Power"), tr("Logarithmic")});
    m_exponent = numberBox(limits.exponentMin, limits.exponentMax, 0.1, box);
    form->addRow(QString(), m_inverted);
    form->addRow(tr("Deadzone"), m_deadzone);
    form->addRow(tr("Output from"), m_minOutput);
    form->addRow(tr("Output to"), m_maxOutput);
    form->addRow(tr("Curve"), m_curve);
    form->addRow(tr("Exponent"), m_exponent);
    if (m_bipolar) {
        m_expo = numberBox(0.0, limits.expoMax, 0.05, box);
        m_expo->setToolTip(tr("Softens the wheel around the centre and keeps full lock at the ends."));
        form->addRow(tr("Expo"), m_expo);
        connect(m_expo, &QDoubleSpinBox::valueChanged, this, &AxisEditor::emitEdited);
    }
    form->addRow(hint(m_bipolar
                          ? tr("The output range moves the centre too: from 0.2 the wheel rests at 0.2.")
                          : tr("A pedal keeps at least a 2% deadzone against rest noise."),
                      box));

    connect(m_inverted, &QCheckBox::toggled, this, &AxisEditor::emitEdited);
    for (QDoubleSpinBox *number : {m_deadzone, m_minOutput, m_maxOutput, m_exponent})
        connect(number, &QDoubleSpinBox::valueChanged, this, &AxisEditor::emitEdited);
    connect(m_curve, &QComboBox::currentIndexChanged, this, &AxisEditor::emitEdited);
    return box;
}

QWidget *AxisEditor::buildCalibration()
{
    auto *box = new QWidget(this);
    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    m_useCalibration = new QCheckBox(
        m_bipolar ? tr("Use the calibration") : tr("Use the calibrated floor and ceiling"), box);
    grid->addWidget(m_useCalibration, 0, 0, 1, 3);
    m_inputMin = numberBox(-1.0, 1.0, 0.01, box);
    m_inputCenter = numberBox(-1.0, 1.0, 0.01, box);
    m_inputMax = numberBox(-1.0, 1.0, 0.01, box);
    m_captureMin = new QPushButton(tr("Set minimum"), box);
    m_captureCenter = new QPushButton(tr("Set centre"), box);
    m_captureMax = new QPushButton(tr("Set maximum"), box);
    const QList<std::tuple<QDoubleSpinBox *, QPushButton *, CalibrationPoint>> points = {
        {m_inputMin, m_captureMin, CalibrationPoint::Minimum},
        {m_inputCenter, m_captureCenter, CalibrationPoint::Center},
        {m_inputMax, m_captureMax, CalibrationPoint::Maximum},
    };
    int column = 0;
    for (const auto &[number, capture, point] : points) {
        // A pedal has no centre: its calibration is a floor and a ceiling.
        const bool shown = m_bipolar || point != CalibrationPoint::Center;
        number->setVisible(shown);
        capture->setVisible(shown);
        if (!shown)
            continue;
        grid->addWidget(number, 1, column);
        grid->addWidget(capture, 2, column);
        ++column;
        connect(number, &QDoubleSpinBox::valueChanged, this, &AxisEditor::emitEdited);
        connect(capture, &QPushButton::clicked, this, [this, p = point] { emit captureRequested(p); });
    }
    connect(m_useCalibration, &QCheckBox::toggled, this, &AxisEditor::emitEdited);

    m_raw = new QLabel(box);
    m_processed = new QLabel(box);
    m_raw->setObjectName(QStringLiteral("axisRaw"));
    m_processed->setObjectName(QStringLiteral("axisProcessed"));
    grid->addWidget(m_raw, 3, 0);
    grid->addWidget(m_processed, 3, 1);
    m_useCalibration->setToolTip(
        tr("Move the control to its ends (and let the wheel centre), then set each point."));
    return box;
}

QPushButton *AxisEditor::captureButton(CalibrationPoint point) const
{
    switch (point) {
    case CalibrationPoint::Minimum:
        return m_captureMin;
    case CalibrationPoint::Center:
        return m_captureCenter;
    case CalibrationPoint::Maximum:
        return m_captureMax;
    }
    return nullptr;
}

AxisEditor::Values AxisEditor::values() const
{
    Values v;
    v.inverted = m_inverted->isChecked();
    v.deadzone = m_deadzone->value();
    v.minOutput = m_minOutput->value();
    v.maxOutput = m_maxOutput->value();
    v.curve = m_curve->currentIndex();
    v.curveExponent = m_exponent->value();
    v.expo = m_expo ? m_expo->value() : 0.0;
    v.useCalibration = m_useCalibration->isChecked();
    v.inputMin = m_inputMin->value();
    v.inputCenter = m_inputCenter->value();
    v.inputMax = m_inputMax->value();
    return v;
}

void AxisEditor::showValues(const Values &v)
{
    const QList<QWidget *> all = {m_inverted, m_deadzone,       m_minOutput, m_maxOutput,   m_curve,
                                  m_exponent, m_useCalibration, m_inputMin,  m_inputCenter, m_inputMax};
    std::vector<std::unique_ptr<QSignalBlocker>> quiet;
    for (QWidget *widget : all)
        quiet.push_back(std::make_unique<QSignalBlocker>(widget));
    if (m_expo) {
        quiet.push_back(std::make_unique<QSignalBlocker>(m_expo));
        m_expo->setValue(v.expo);
    }
    m_inverted->setChecked(v.inverted);
    m_deadzone->setValue(v.deadzone);
    m_minOutput->setValue(v.minOutput);
    m_maxOutput->setValue(v.maxOutput);
    m_curve->setCurrentIndex(v.curve);
    m_exponent->setValue(v.curveExponent);
    // The exponent shapes only the power and logarithmic curves.
    m_exponent->setEnabled(v.curve != 0);
    m_useCalibration->setChecked(v.useCalibration);
    m_inputMin->setValue(v.inputMin);
    m_inputCenter->setValue(v.inputCenter);
    m_inputMax->setValue(v.inputMax);
}

void AxisEditor::showShape(const std::function<double(double)> &shape)
{
    m_graph->setShape(shape, m_bipolar ? -1.0 : 0.0, 1.0);
}

void AxisEditor::showLive(double raw, double processed)
{
    m_raw->setText(tr("Raw %1").arg(raw, 0, 'f', 3));
    m_processed->setText(tr("Output %1").arg(processed, 0, 'f', 3));
    // A pedal's graph runs over its travel, released to pressed.
    m_graph->setMarker(m_bipolar ? raw : (raw + 1.0) / 2.0, processed);
    for (QPushButton *capture : {m_captureMin, m_captureCenter, m_captureMax})
        capture->setEnabled(true);
}

void AxisEditor::clearLive()
{
    m_raw->setText(tr("Raw \u2014"));
    m_processed->setText(tr("Output \u2014"));
    for (QPushButton *capture : {m_captureMin, m_captureCenter, m_captureMax})
        capture->setEnabled(false);
}

void AxisEditor::emitEdited()
{
    m_exponent->setEnabled(m_curve->currentIndex() != 0);
    emit edited(values());
}

} // namespace tavrix
