#pragma once

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QString>

namespace tavrix {

class ProfileManager;

// One colour of the strip; each component 0..255.
struct LedColor
{
    int r = 0;
    int g = 0;
    int b = 0;

    // Components out of range are brought to the nearest end.
    [[nodiscard]] static LedColor clamped(int r, int g, int b);
    [[nodiscard]] static LedColor fromJson(const QJsonObject &color);
    [[nodiscard]] QJsonObject toJson() const;
    friend bool operator==(const LedColor &, const LedColor &) = default;
};

// A part of the strip lit in one colour, in percent of the strip (0..100).
struct LedZone
{
    int startPercent = 0;
    int endPercent = 100;
    LedColor color;

    [[nodiscard]] static LedZone clamped(int startPercent, int endPercent, LedColor color);
    friend bool operator==(const LedZone &, const LedZone &) = default;
};

// The whole `ledSettings` object of a profile as a value: what the LED editor, the remote
// app and the push to the receiver work on. Its defaults are the profile key table's (a
// default-constructed value is an empty object read through it), and every setter keeps
// the value within what the strip takes, so anything built from it can be sent as it is.
class LedStripSettings
{
public:
    enum class Mode
    {
        Global,
        PerLed,
        Range
    };

    // What the receiver's strip drives at most.
    static constexpr int kMaxLeds = 300;
    static constexpr int kMaxBrightness = 255;
    // Zones a user can tell apart on one strip; also bounds what a remote client can add.
    static constexpr int kMaxZones = 16;

    LedStripSettings();

    [[nodiscard]] static LedStripSettings fromJson(const QJsonObject &ledSettings);
    [[nodiscard]] QJsonObject toJson() const;
    // The active profile's settings, and writing them back through the store, which
    // completes the object and tells the controller (LED power, its button) of the change.
    [[nodiscard]] static LedStripSettings ofActiveProfile(const ProfileManager &profiles);
    bool saveTo(ProfileManager &profiles) const;

    // A zone as a new entry of the stored list reads.
    [[nodiscard]] static LedZone defaultZone();

    [[nodiscard]] static QString modeName(Mode mode);
    // "per_led", "range"; anything else is the global colour.
    [[nodiscard]] static Mode modeFromName(const QString &name);

    [[nodiscard]] int ledCount() const { return m_ledCount; }
    [[nodiscard]] int brightness() const { return m_brightness; }
    [[nodiscard]] int activePercentage() const { return m_activePercentage; }
    [[nodiscard]] bool powerOn() const { return m_powerOn; }
    [[nodiscard]] int powerButtonIndex() const { return m_powerButtonIndex; }
    [[nodiscard]] Mode mode() const { return m_mode; }
    [[nodiscard]] int selectedLedIndex() const { return m_selectedLedIndex; }
    [[nodiscard]] LedColor globalColor() const { return m_globalColor; }
    // The colour of LED index: its own if it has one, else the global colour.
    [[nodiscard]] LedColor ledColor(int index) const { return m_ledColors.value(index, m_globalColor); }
    [[nodiscard]] int selectedZoneIndex() const { return m_selectedZoneIndex; }
    [[nodiscard]] const QList<LedZone> &zones() const { return m_zones; }

    // 1..kMaxLeds; the selected LED follows a shorter strip.
    void setLedCount(int count);
    void setBrightness(int brightness);
    void setActivePercentage(int percentage);
    void setPowerOn(bool on) { m_powerOn = on; }
    // A unified input index, or -1 for none.
    void setPowerButtonIndex(int buttonIndex);
    void setMode(Mode mode) { m_mode = mode; }
    void setSelectedLedIndex(int index);
    void setGlobalColor(LedColor color);
    // False (and nothing changed) for an index beyond the strip.
    bool setLedColor(int index, LedColor color);

    // The zone index functions return false (and change nothing) for an index that is not a zone.
    // The new zone's index, or -1 when kMaxZones are there already.
    int addZone(const LedZone &zone);
    bool removeZone(int index);
    bool setZone(int index, const LedZone &zone);
    bool setZoneColor(int index, LedColor color);
    bool setSelectedZoneIndex(int index);
    [[nodiscard]] bool isZone(int index) const { return index >= 0 && index < m_zones.size(); }

    friend bool operator==(const LedStripSettings &, const LedStripSettings &) = default;

private:
    struct Unset
    {};
    explicit LedStripSettings(Unset) {}

    int m_ledCount = 0;
    int m_brightness = 0;
    int m_activePercentage = 0;
    bool m_powerOn = false;
    int m_powerButtonIndex = -1;
    Mode m_mode = Mode::Global;
    int m_selectedLedIndex = 0;
    LedColor m_globalColor;
    // Only the LEDs given a colour of their own, by index (0..kMaxLeds-1).
    QMap<int, LedColor> m_ledColors;
    int m_selectedZoneIndex = 0;
    QList<LedZone> m_zones;
};

} // namespace tavrix
