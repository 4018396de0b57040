#include "helicurvesdialog.h"

#include "card.h"
#include "curvegraph.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QVBoxLayout>

#include <cmath>

namespace tavrix {

HeliCurvesDialog::HeliCurvesDialog(const Limits &limits, QWidget *parent)
    : HeliSettingsDialog(tr("Pitch and throttle curves"), limits, parent)
{
    setMinimumWidth(760);
    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(buildCurveCard(PitchCurve, tr("Pitch curve"),
                                  tr("Shapes the collective channel; off, the channel follows the lever.")));
    row->addWidget(buildCurveCard(ThrottleCurve, tr("Throttle curve"),
                                  tr("Drives the motor channel from the collective lever; off, no motor "
                                     "channel is sent.")));
    content()->addLayout(row, 1);
    showValues(Values{});
}

QWidget *HeliCurvesDialog::buildCurveCard(Curve curve, const QString &title, const QString &text)
{
    auto *card = new hub::Card(title, this);
    m_enabled[curve] = checkBox(tr("Use this curve"), card);
    card->body()->addWidget(m_enabled[curve]);
    card->body()->addWidget(explanation(text, card));
    m_graphs[curve] = new CurveGraph(card);
    card->body()->addWidget(m_graphs[curve], 1);
    auto *count = new QHBoxLayout;
    m_pointCount[curve] = spinBox(limits().minCurvePoints, limits().maxCurvePoints, card);
    count->addWidget(new QLabel(tr("Points"), card));
    count->addWidget(m_pointCount[curve]);
    count->addStretch(1);
    card->body()->addLayout(count);
    // Rows of label over box, a few points to a row so that a long curve still fits.
    constexpr int kPointsPerRow = 6;
    auto *points = new QGridLayout;
    points->setHorizontalSpacing(4);
    for (int point = 0; point < limits().maxCurvePoints; ++point) {
        auto *label = new QLabel(card);
        label->setObjectName(QStringLiteral("mutedText"));
        label->setAlignment(Qt::AlignCenter);
        QSpinBox *box = spinBox(0, limits().percentMax, card);
        const int row = point / kPointsPerRow * 2;
        points->addWidget(label, row, point % kPointsPerRow);
        points->addWidget(box, row + 1, point % kPointsPerRow);
        m_pointLabels[curve].append(label);
        m_points[curve].append(box);
    }
    for (int column = 0; column < kPointsPerRow; ++column)
        points->setColumnStretch(column, 1);
    card->body()->addLayout(points);
    if (curve == ThrottleCurve) {
        auto *motor = new QFormLayout;
        m_motorChannel = channelBox(card);
        motor->addRow(tr("Motor channel"), m_motorChannel);
        card->body()->addLayout(motor);
    }
    return card;
}

QSpinBox *HeliCurvesDialog::pointBox(Curve curve, int point) const
{
    return point < m_shownPoints.at(curve) ? m_points.at(curve).value(point) : nullptr;
}

void HeliCurvesDialog::showPointBoxes(Curve curve, int count)
{
    m_shownPoints[curve] = count;
    for (int point = 0; point < m_points[curve].size(); ++point) {
        const bool shown = point < count;
        m_points[curve].at(point)->setVisible(shown);
        QLabel *label = m_pointLabels[curve].at(point);
        label->setVisible(shown);
        if (shown)
            label->setText(tr("%1 %").arg(count > 1 ? std::lround(point * 100.0 / (count - 1)) : 0L));
    }
}

HeliCurvesDialog::Values HeliCurvesDialog::values() const
{
    Values v;
    for (int curve = 0; curve < kCurves; ++curve) {
        v.curves[curve].enabled = m_enabled[curve]->isChecked();
        for (int point = 0; point < m_shownPoints[curve]; ++point)
            v.curves[curve].percents.append(m_points[curve].at(point)->value());
        v.curves[curve].pointCount = m_pointCount[curve]->value();
    }
    v.motorChannel = selected(m_motorChannel);
    return v;
}

void HeliCurvesDialog::showValues(const Values &v)
{
    const auto quiet = quietEditors();
    for (int curve = 0; curve < kCurves; ++curve) {
        m_enabled[curve]->setChecked(v.curves[curve].enabled);
        const QList<int> &percents = v.curves[curve].percents;
        const int count = int(std::min<qsizetype>(percents.size(), m_points[curve].size()));
        showPointBoxes(Curve(curve), count);
        m_pointCount[curve]->setValue(count);
        for (int point = 0; point < count; ++point)
            m_points[curve].at(point)->setValue(percents.at(point));
    }
    select(m_motorChannel, v.motorChannel);
}

void HeliCurvesDialog::showShape(Curve curve, const std::function<double(double)> &shape)
{
    m_graphs.at(curve)->setShape(shape, 0.0, 1.0);
}

void HeliCurvesDialog::userEdited()
{
    emit edited(values());
}

} // namespace tavrix
