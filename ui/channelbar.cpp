#include "channelbar.h"

#include "levelbar.h"

#include <QGridLayout>

namespace hub {

ChannelBar::ChannelBar(QWidget *parent)
    : QWidget(parent)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(28);
    grid->setVerticalSpacing(9);
    const int rows = kChannelCount / 2;
    for (int i = 0; i < kChannelCount; ++i) {
        auto *bar = new LevelBar(QStringLiteral("CH%1").arg(i + 1), kLow, kHigh, kLow, this);
        bar->setTextWidths(34, 40);
        grid->addWidget(bar, i % rows, i / rows);
        m_bars.append(bar);
    }
}

void ChannelBar::setNeutrals(std::span<const std::optional<int32_t>> neutrals)
{
    for (int i = 0; i < kChannelCount; ++i)
        m_bars[i]->setOrigin(i < int(neutrals.size()) ? neutrals[i].value_or(kLow) : kLow);
}

void ChannelBar::setValues(std::span<const int32_t> values)
{
    for (int i = 0; i < kChannelCount; ++i) {
        if (i < int(values.size()))
            m_bars[i]->setValue(values[i], QString::number(values[i]));
        else
            m_bars[i]->clear();
    }
}

void ChannelBar::clear()
{
    for (LevelBar *bar : std::as_const(m_bars))
        bar->clear();
}

LevelBar *ChannelBar::bar(int index) const
{
    return m_bars.value(index);
}

} // namespace hub
