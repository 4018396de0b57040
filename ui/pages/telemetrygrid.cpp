#include "telemetrygrid.h"

#include "stattile.h"

#include <QGridLayout>
#include <QResizeEvent>

#include <algorithm>

namespace tavrix {

TelemetryGrid::TelemetryGrid(QWidget *parent)
    : QWidget(parent)
{
    m_grid = new QGridLayout(this);
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setSpacing(8);
}

void TelemetryGrid::setReadings(const QList<Reading> &readings)
{
    while (m_tiles.size() > readings.size())
        delete m_tiles.takeLast();
    while (m_tiles.size() < readings.size()) {
        auto *tile = new hub::StatTile(QString(), this);
        // The columns share the width evenly, whatever each tile's text would like.
        tile->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        m_tiles.append(tile);
    }
    QList<bool> wide;
    for (int i = 0; i < readings.size(); ++i) {
        const Reading &reading = readings.at(i);
        hub::StatTile *tile = m_tiles.at(i);
        const QString caption = reading.label.isEmpty() ? reading.key : reading.label;
        tile->setCaption(reading.stale ? tr("%1 \u00B7 stale").arg(caption) : caption);
        if (reading.value.isEmpty())
            tile->clear();
        else
            tile->setValue(reading.value);
        if (reading.stale)
            tile->setTone(hub::Tone::Muted);
        wide.append(reading.value.size() > kWideValueLength);
    }
    if (wide != m_wide) {
        m_wide = wide;
        m_columns = 0;
    }
    arrange();
}

void TelemetryGrid::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void TelemetryGrid::arrange()
{
    const int columns = std::clamp(width() / kTileWidth, 2, 6);
    if (columns == m_columns && m_grid->count() == m_tiles.size())
        return;
    m_columns = columns;
    for (hub::StatTile *tile : std::as_const(m_tiles))
        m_grid->removeWidget(tile);
    for (int column = 0; column < 6; ++column)
        m_grid->setColumnStretch(column, column < columns ? 1 : 0);
    int row = 0;
    int column = 0;
    for (int i = 0; i < m_tiles.size(); ++i) {
        const int span = m_wide.value(i) ? 2 : 1;
        if (column + span > columns) {
            ++row;
            column = 0;
        }
        m_grid->addWidget(m_tiles.at(i), row, column, 1, span);
        column += span;
    }
}

} // namespace tavrix
