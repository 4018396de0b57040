#pragma once

#include <QColor>
#include <QWidget>

#include <optional>

class QLabel;

namespace hub {

// A labelled horizontal meter: the bar fills from an origin (the centre of a steering axis,
// the start of a pedal) to the value, clamped to the range, with the value as text beside it.
class LevelBar : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor barColor READ barColor WRITE setBarColor)
    Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor)
    Q_PROPERTY(QColor markColor READ markColor WRITE setMarkColor)
public:
    LevelBar(const QString &label, double minimum, double maximum, double origin, QWidget *parent = nullptr);

    void setLabel(const QString &label);
    QString label() const;

    // Where the fill starts from; clamped to the range.
    void setOrigin(double origin);
    double origin() const { return m_origin; }

    void setValue(double value, const QString &text);
    void clear();
    std::optional<double> value() const { return m_value; }
    QString valueText() const;

    // The part of the track that is filled, as fractions 0..1 of its length (start <= end).
    std::pair<double, double> filledSpan() const;

    // Width reserved for the label and the value text, so bars in a column line up.
    void setTextWidths(int labelWidth, int valueWidth);

    QColor barColor() const;
    void setBarColor(const QColor &color);
    QColor trackColor() const;
    void setTrackColor(const QColor &color);
    QColor markColor() const;
    void setMarkColor(const QColor &color);

private:
    class Track;
    double fraction(double v) const;

    QLabel *m_label = nullptr;
    Track *m_track = nullptr;
    QLabel *m_valueText = nullptr;
    double m_minimum;
    double m_maximum;
    double m_origin;
    std::optional<double> m_value;
    QColor m_barColor;
    QColor m_trackColor;
    QColor m_markColor;
};

} // namespace hub
