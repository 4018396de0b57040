#pragma once

#include <QWidget>

#include <cstdint>
#include <optional>
#include <span>

namespace hub {

class LevelBar;

// The sixteen RC channels as bars, CH1-CH8 beside CH9-CH16. Bars span the ExpressLRS range
// 172..1811 and fill from each channel's neutral (a steering centre, a switch's OFF value), or
// from the low end for a channel nothing drives; the raw value is printed beside each bar.
class ChannelBar : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kChannelCount = 16;
    static constexpr int kLow = 172;
    static constexpr int kCentre = 992;
    static constexpr int kHigh = 1811;

    explicit ChannelBar(QWidget *parent = nullptr);

    // Where each channel's bar fills from, CH1 first; a missing or empty entry means the low end.
    void setNeutrals(std::span<const std::optional<int32_t>> neutrals);
    // Shows the first sixteen values; missing ones are cleared.
    void setValues(std::span<const int32_t> values);
    void clear();

    LevelBar *bar(int index) const;

private:
    QList<LevelBar *> m_bars;
};

} // namespace hub
