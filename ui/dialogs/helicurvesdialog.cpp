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
    auto *points = new QGridLayout;
    points->setHorizontalSpacing(4);
    const int count = limits().curvePoints;
    for (int point = 0; point < count; ++point) {
        const int percent = count > 1 ? point * 100 / (count - 1) : 0;
        auto *label = new QLabel(tr("%1 %").arg(percent), card);
        label->setObjectName(QStringLiteral("mutedText"));
        label->setAlignment(Qt::AlignCenter);
        points->addWidget(label, 0, point);
        QSpinBox *box = spinBox(0, limits().percentMax, card);
        m_points[curve].append(box);
        points->addWidget(box, 1, point);
    }
    card->body()->addLayout(points);
    if (curve == ThrottleCurve) {
        auto *motor = new QFormLayout;
        m_motorChannel = channelBox(card);
        motor->addRow(tr("Motor channel"), m_motorChannel);
        card->body()->addLayout(motor);
    }
    return card;
}

HeliCurvesDialog::Values HeliCurvesDialog::values() const
{
    Values v;
    for (int curve = 0; curve < kCurves; ++curve) {
        v.curves[curve].enabled = m_enabled[curve]->isChecked();
        for (const QSpinBox *box : m_points[curve])
            v.curves[curve].percents.append(box->value());
    }
    v.motorChannel = selected(m_motorChannel);
    return v;
}

void HeliCurvesDialog::showValues(const Values &v)
{
    const auto quiet = quietEditors();
    for (int curve = 0; curve < kCurves; ++curve) {
        m_enabled[curve]->setChecked(v.curves[curve].enabled);
        for (int point = 0; point < m_points[curve].size(); ++point)
            m_points[curve].at(point)->setValue(v.curves[curve].percents.value(point));
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
