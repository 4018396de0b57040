#include "motiontestcard.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <cmath>

namespace tavrix {

class MotionTestCard::Parameters : public QWidget
{
public:
    Parameters(const MotionTestLimits &limits, int travelMin, QWidget *parent)
        : QWidget(parent)
    {
        auto *row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        travel = new QSpinBox(this);
        travel->setRange(travelMin, limits.travelMax);
        travel->setSuffix(MotionTestCard::tr(" % travel"));
        frequency = new QDoubleSpinBox(this);
        frequency->setDecimals(2);
        frequency->setSingleStep(0.05);
        frequency->setRange(limits.freqCentiHzMin / 100.0, limits.freqCentiHzMax / 100.0);
        frequency->setSuffix(MotionTestCard::tr(" Hz"));
        seconds = new QSpinBox(this);
        seconds->setRange(limits.secondsMin, limits.secondsMax);
        seconds->setSuffix(MotionTestCard::tr(" s"));
        row->addWidget(travel);
        row->addWidget(frequency);
        row->addWidget(seconds);
    }

    int freqCentiHz() const { return int(std::lround(frequency->value() * 100.0)); }

    QSpinBox *travel = nullptr;
    QDoubleSpinBox *frequency = nullptr;
    QSpinBox *seconds = nullptr;
};

MotionTestCard::MotionTestCard(const MotionTestLimits &limits, QWidget *parent)
    : hub::Card(tr("Tests"), parent)
{
    setSubtitle(tr("Tests need the board in the \"ready\" state; Release stops any of them at once"));
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    body()->addLayout(grid);

    m_pattern = new QComboBox(this);
    m_patternParameters = new Parameters(limits, limits.patternTravelMin, this);
    m_runPattern = new QPushButton(tr("Run pattern"), this);
    grid->addWidget(new QLabel(tr("Pattern"), this), 0, 0);
    grid->addWidget(m_pattern, 0, 1);
    grid->addWidget(m_patternParameters, 0, 2);
    grid->addWidget(m_runPattern, 0, 3);

    m_actuator = new QComboBox(this);
    m_boardParameters = new Parameters(limits, limits.boardTravelMin, this);
    m_runBoard = new QPushButton(tr("Run board test"), this);
    grid->addWidget(new QLabel(tr("Board test"), this), 1, 0);
    grid->addWidget(m_actuator, 1, 1);
    grid->addWidget(m_boardParameters, 1, 2);
    grid->addWidget(m_runBoard, 1, 3);

    m_minutes = new QSpinBox(this);
    m_minutes->setRange(limits.minutesMin, limits.minutesMax);
    m_minutes->setSuffix(tr(" min"));
    m_runFull = new QPushButton(tr("Start Full System test"), this);
    grid->addWidget(new QLabel(tr("Full System"), this), 2, 0);
    grid->addWidget(m_minutes, 2, 1);
    grid->addWidget(m_runFull, 2, 3);
    grid->setColumnStretch(2, 1);

    m_fullStatus = new QLabel(this);
    m_fullStatus->setObjectName(QStringLiteral("mutedText"));
    m_fullStatus->setWordWrap(true);
    body()->addWidget(m_fullStatus);

    connect(m_runPattern, &QPushButton::clicked, this, [this] {
        const Parameters *p = m_patternParameters;
        emit patternTestRequested(m_pattern->currentData().toInt(), p->travel->value(), p->freqCentiHz(),
                                  p->seconds->value());
    });
    connect(m_runBoard, &QPushButton::clicked, this, [this] {
        const Parameters *p = m_boardParameters;
        emit boardTestRequested(m_actuator->currentData().toInt(), p->travel->value(), p->freqCentiHz(),
                                p->seconds->value());
    });
    connect(m_runFull, &QPushButton::clicked, this,
            [this] { emit fullSystemTestRequested(m_minutes->value()); });
    setStartEnabled(false);
}

void MotionTestCard::setPatterns(const QList<QPair<int, QString>> &patterns)
{
    m_pattern->clear();
    for (const auto &[index, name] : patterns)
        m_pattern->addItem(name, index);
}

void MotionTestCard::setActuatorCount(int count)
{
    m_actuator->clear();
    m_actuator->addItem(tr("All actuators"), -1);
    for (int actuator = 0; actuator < count; ++actuator)
        m_actuator->addItem(tr("Actuator %1").arg(actuator + 1), actuator);
}

void MotionTestCard::setDefaults(int travelPct, int freqCentiHz, int seconds)
{
    for (Parameters *p : {m_patternParameters, m_boardParameters}) {
        p->travel->setValue(travelPct);
        p->frequency->setValue(freqCentiHz / 100.0);
        p->seconds->setValue(seconds);
    }
}

void MotionTestCard::setStartEnabled(bool enabled)
{
    for (QPushButton *button : {m_runPattern, m_runBoard, m_runFull})
        button->setEnabled(enabled);
}

void MotionTestCard::showFullSystemStatus(const QString &status)
{
    m_fullStatus->setText(status);
}

QString MotionTestCard::fullSystemStatus() const
{
    return m_fullStatus->text();
}

} // namespace tavrix
