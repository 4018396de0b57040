#include "telemetrygrid.h"

#include "stattile.h"

#include <QGridLayout>

namespace tavrix {

TelemetryGrid::TelemetryGrid(QWidget *parent)
    : QWidget(parent)
{
    m_grid = new QGridLayout(this);
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setSpacing(8);
    for (int column = 0; column < kColumns; ++column)
        m_grid->setColumnStretch(column, 1);
}

void TelemetryGrid::setReadings(const QList<Reading> &readings)
{
    while (m_tiles.size() > readings.size())
        delete m_tiles.takeLast();
    while (m_tiles.size() < readings.size()) {
        const int index = int(m_tiles.size());
        auto *tile = new hub::StatTile(QString(), this);
        m_grid->addWidget(tile, index / kColumns, index % kColumns);
        m_tiles.append(tile);
    }
    for (int i = 0; i < readings.size(); ++i) {
        const Reading &reading = readings.at(i);
        hub::StatTile *tile = m_tiles.at(i);
        tile->setCaption(reading.stale ? tr("%1 \u00B7 stale").arg(reading.key) : reading.key);
        if (reading.value.isEmpty())
            tile->clear();
        else
            tile->setValue(reading.value);
        if (reading.stale)
            tile->setTone(hub::Tone::Muted);
    }
}

} // namespace tavrix
