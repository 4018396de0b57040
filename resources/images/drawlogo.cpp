// Draws the OrvaneLabs mark, resources/images/orvanelabs-logo.png: an orange rounded
// square carrying an open white ring with a dot in its gap (a link and the signal on it).
// Built on demand: `ninja -C build orvane_draw_logo && build/ui/orvane_draw_logo <out.png>`.
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <cstdio>

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <out.png>\n", argv[0]);
        return 2;
    }
    constexpr int size = 512;
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);

    QLinearGradient fill(0, 0, size, size);
    fill.setColorAt(0.0, QColor(0xff, 0x80, 0x4a));
    fill.setColorAt(1.0, QColor(0xe0, 0x47, 0x17));
    QPainterPath tile;
    tile.addRoundedRect(QRectF(16, 16, size - 32, size - 32), 112, 112);
    painter.fillPath(tile, fill);

    // The open ring: a thick arc leaving a gap at the upper right.
    const QRectF ring(126, 126, 260, 260);
    QPen pen(Qt::white, 58, Qt::SolidLine, Qt::RoundCap);
    painter.setPen(pen);
    painter.drawArc(ring, 75 * 16, 300 * 16);

    // The dot sits in the gap, on the ring's circle at 45 degrees.
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    const QPointF centre = ring.center();
    const qreal radius = ring.width() / 2;
    const QPointF dot(centre.x() + radius * 0.7071, centre.y() - radius * 0.7071);
    painter.drawEllipse(dot, 31, 31);
    painter.end();

    return image.save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
}
