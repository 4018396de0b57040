#include "levelbar.h"

#include "stattile.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace hub {

class LevelBar::Track : public QWidget
{
public:
    explicit Track(LevelBar *bar)
        : QWidget(bar)
        , m_bar(bar)
    {
        setMinimumWidth(40);
        setFixedHeight(8);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        const QRectF track = QRectF(rect());
        const qreal radius = track.height() / 2;
        painter.setBrush(m_bar->trackColor());
        painter.drawRoundedRect(track, radius, radius);

        const auto [start, end] = m_bar->filledSpan();
        if (m_bar->value() && end > start) {
            QRectF fill(track.left() + start * track.width(), track.top(), (end - start) * track.width(),
                        track.height());
            painter.setBrush(m_bar->barColor());
            painter.drawRoundedRect(fill, radius, radius);
        }
        // A centred origin gets a tick so "straight ahead" is visible with no value.
        const double origin = m_bar->fraction(m_bar->m_origin);
        if (origin > 0.0 && origin < 1.0) {
            painter.setBrush(m_bar->markColor());
            painter.drawRect(
                QRectF(track.left() + origin * track.width() - 0.75, track.top(), 1.5, track.height()));
        }
    }

private:
    LevelBar *m_bar;
};

LevelBar::LevelBar(const QString &label, double minimum, double maximum, double origin, QWidget *parent)
    : QWidget(parent)
    , m_minimum(minimum)
    , m_maximum(maximum > minimum ? maximum : minimum + 1)
    , m_origin(std::clamp(origin, minimum, m_maximum))
{
    m_barColor = palette().color(QPalette::Highlight);
    m_trackColor = palette().color(QPalette::AlternateBase);
    m_markColor = palette().color(QPalette::Mid);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(10);
    m_label = new QLabel(label, this);
    m_label->setObjectName(QStringLiteral("levelLabel"));
    m_track = new Track(this);
    m_valueText = new QLabel(this);
    m_valueText->setObjectName(QStringLiteral("levelValue"));
    m_valueText->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row->addWidget(m_label);
    row->addWidget(m_track, 1, Qt::AlignVCenter);
    row->addWidget(m_valueText);
    setTextWidths(56, 48);
    clear();
}

void LevelBar::setLabel(const QString &label)
{
    m_label->setText(label);
}

QString LevelBar::label() const
{
    return m_label->text();
}

void LevelBar::setOrigin(double origin)
{
    m_origin = std::clamp(origin, m_minimum, m_maximum);
    m_track->update();
}

void LevelBar::setValue(double value, const QString &text)
{
    m_value = value;
    m_valueText->setText(text);
    m_track->update();
}

void LevelBar::clear()
{
    m_value.reset();
    m_valueText->setText(StatTile::noValueText());
    m_track->update();
}

QString LevelBar::valueText() const
{
    return m_valueText->text();
}

double LevelBar::fraction(double v) const
{
    return (std::clamp(v, m_minimum, m_maximum) - m_minimum) / (m_maximum - m_minimum);
}

std::pair<double, double> LevelBar::filledSpan() const
{
    if (!m_value)
        return {0.0, 0.0};
    const double a = fraction(m_origin);
    const double b = fraction(*m_value);
    return {std::min(a, b), std::max(a, b)};
}

void LevelBar::setTextWidths(int labelWidth, int valueWidth)
{
    m_label->setFixedWidth(labelWidth);
    m_valueText->setFixedWidth(valueWidth);
}

QColor LevelBar::barColor() const
{
    return m_barColor;
}

void LevelBar::setBarColor(const QColor &color)
{
    m_barColor = color;
    m_track->update();
}

QColor LevelBar::trackColor() const
{
    return m_trackColor;
}

void LevelBar::setTrackColor(const QColor &color)
{
    m_trackColor = color;
    m_track->update();
}

QColor LevelBar::markColor() const
{
    return m_markColor;
}

void LevelBar::setMarkColor(const QColor &color)
{
    m_markColor = color;
    m_track->update();
}

} // namespace hub
