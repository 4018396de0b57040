#pragma once

#include <QList>
#include <QSet>
#include <QString>

namespace tavrix::sim {

// The LED strip behind the Orvane receiver's console: holds what the hub pushed with the
// "LED_<KEY>=<value>" commands and answers each with one "LED_OK" or "LED_ERR" line.
// The command set is described in tools/sim/README.md.
class ReceiverLedStrip
{
public:
    enum class Mode
    {
        Global,
        PerLed,
        Range
    };

    struct Color
    {
        int r = 0;
        int g = 0;
        int b = 0;
        bool operator==(const Color &) const = default;
    };

    struct Range
    {
        int startPercent = 0;
        int endPercent = 100;
    };

    static constexpr int kMaxLeds = 300;
    static constexpr int kMaxBrightness = 255;

    [[nodiscard]] static bool isLedCommand(const QString &line);

    // Applies one command line and returns the reply line.
    QString handle(const QString &line);

    // Keys (e.g. "COLOR") whose commands are refused, as a receiver that rejects them would.
    void setRefusedKeys(const QSet<QString> &keys) { m_refusedKeys = keys; }

    [[nodiscard]] bool isEnabled() const { return m_enabled; }
    [[nodiscard]] int ledCount() const { return m_ledCount; }
    [[nodiscard]] int brightness() const { return m_brightness; }
    [[nodiscard]] Mode mode() const { return m_mode; }
    // The colours and ranges of the last payload, one per item announced by LED_PAYLOAD_COUNT.
    [[nodiscard]] QList<Color> colors() const { return m_colors; }
    [[nodiscard]] QList<Range> ranges() const { return m_ranges; }

private:
    // Empty when applied, otherwise the reason of the refusal.
    QString apply(const QString &key, const QString &value);
    QString applyItem(const QString &key, const QList<int> &arguments);

    QSet<QString> m_refusedKeys;
    bool m_enabled = false;
    int m_ledCount = 30;
    int m_brightness = 128;
    Mode m_mode = Mode::Global;
    QList<Color> m_colors{Color{255, 255, 255}};
    QList<Range> m_ranges{Range{}};
};

} // namespace tavrix::sim
