#pragma once

#include <QList>
#include <QWidget>

class QGridLayout;

namespace hub {
class StatTile;
}

namespace tavrix {

// Telemetry readings as a grid of tiles, one per sensor key, in the order given. A stale
// reading (never received, or too old to trust) is dimmed and says so in its caption. The
// number of columns follows the width, and a long reading (a GPS position) takes two.
class TelemetryGrid : public QWidget
{
    Q_OBJECT
public:
    struct Reading
    {
        QString key;
        // What the tile is called: the profile's label for the sensor; empty: the key.
        QString label;
        QString value; // empty: never received
        bool stale = false;
    };

    explicit TelemetryGrid(QWidget *parent = nullptr);

    void setReadings(const QList<Reading> &readings);
    int tileCount() const { return int(m_tiles.size()); }
    hub::StatTile *tile(int index) const { return m_tiles.value(index); }
    int columnCount() const { return m_columns; }

    static constexpr int kTileWidth = 170;
    static constexpr int kWideValueLength = 12;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void arrange();

    QGridLayout *m_grid = nullptr;
    QList<hub::StatTile *> m_tiles;
    QList<bool> m_wide;
    int m_columns = 0;
};

} // namespace tavrix
