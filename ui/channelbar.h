#pragma once

#include <QWidget>

#include <cstdint>
#include <span>

namespace hub {

class LevelBar;

// The sixteen RC channels as bars, CH1-CH8 beside CH9-CH16. Bars span the ExpressLRS range
// 172..1811 and fill from the centre 992; the raw value is printed beside each bar.
class ChannelBar : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kChannelCount = 16;
    static constexpr int kLow = 172;
    static constexpr int kCentre = 992;
    static constexpr int kHigh = 1811;

    explicit ChannelBar(QWidget *parent = nullptr);

    // Shows the first sixteen values; missing ones are cleared.
    void setValues(std::span<const int32_t> values);
    void clear();

    LevelBar *bar(int index) const;

private:
    QList<LevelBar *> m_bars;
};

} // namespace hub
