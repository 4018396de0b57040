#pragma once

#include <QWidget>

#include <functional>

namespace tavrix {

// Draws what an axis makes of its input, input across and output up, sampled from the
// function the owner hands over (the transmit loop's own), and marks where the control is now.
class CurveGraph : public QWidget
{
    Q_OBJECT
public:
    // minimum..maximum is both the input and the output span (-1..+1 steering, 0..1 pedals).
    explicit CurveGraph(QWidget *parent = nullptr);

    void setShape(std::function<double(double)> shape, double minimum, double maximum);
    // The control's input and output now; hidden until the first call.
    void setMarker(double input, double output);

    QSize sizeHint() const override { return {220, 180}; }
    QSize minimumSizeHint() const override { return {160, 130}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QPointF toWidget(const QRectF &area, double x, double y) const;

    std::function<double(double)> m_shape;
    double m_min = 0.0;
    double m_max = 1.0;
    bool m_hasMarker = false;
    double m_markerIn = 0.0;
    double m_markerOut = 0.0;
};

} // namespace tavrix
