#pragma once

#include "deviceroles.h"

#include "escpresetstore.h"
#include "profileconfig.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QObject>
#include <QString>

#include <optional>

namespace tavrix {

// What lists of profiles show: the identity of one profile without its settings.
struct ProfileSummary
{
    QString id;
    QString name;
    QString vehicleType;
    QString createdAt;
    QString modifiedAt;
};

// How a saved game controller is found again: names, GUID, path and USB ids.
struct DeviceIdentity
{
    QString productName;
    QString instanceGuid; // braced GUID text
    QString devicePath;
    QString uniqId;
    int vendorId = 0;
    int productId = 0;

    [[nodiscard]] bool isEmpty() const
    {
        return productName.isEmpty() && instanceGuid.isEmpty() && devicePath.isEmpty() && uniqId.isEmpty();
    }
    friend bool operator==(const DeviceIdentity &, const DeviceIdentity &) = default;
};

// The user's per-vehicle profiles, one JSON file each in the "profiles" folder of the
// application data directory, plus which one was last active and the shared ESC presets.
// Every change is written through at once, atomically; a change whose file cannot be
// written is refused and leaves memory and disk as they were.
class ProfileManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString activeProfileId READ activeProfileId NOTIFY activeProfileChanged)
    Q_PROPERTY(QString activeProfileName READ activeProfileName NOTIFY activeProfileChanged)

public:
    // Every profile is a file and a row in every list, whoever adds it (this window, the
    // mobile app, an import): the store holds at most this many, names at most this long.
    static constexpr int kMaxProfiles = 100;
    static constexpr int kMaxNameLength = 100;
    // The button mapping engine walks a profile's whole list on every 7 ms tick.
    static constexpr int kMaxButtonMappings = 64;

    // Profiles under QStandardPaths::AppDataLocation.
    explicit ProfileManager(QObject *parent = nullptr);
    // Profiles under baseDirectory (the "profiles" folder is made inside it).
    explicit ProfileManager(const QString &baseDirectory, QObject *parent = nullptr);
    // Saves every loaded profile and config.json (only if loadProfiles() ran).
    ~ProfileManager() override;

    [[nodiscard]] QString profileDirectory() const { return m_directory; }

    // Reads every profile, config.json and the ESC presets; creates "Default" when there is
    // no profile. Emits profileListChanged, escPresetsChanged and activeProfileChanged.
    void loadProfiles();
    [[nodiscard]] bool isLoaded() const { return m_loaded; }

    // --- the list ---
    [[nodiscard]] QList<ProfileSummary> profiles() const;
    [[nodiscard]] bool hasProfile(const QString &id) const;
    [[nodiscard]] QString profileName(const QString &id) const;
    // The whole document of a profile, every key present; empty when there is no such profile.
    [[nodiscard]] QJsonObject profile(const QString &id) const;
    // wanted, or "wanted (n)" with the smallest n >= 2 that no profile name uses (case-insensitive).
    [[nodiscard]] QString uniqueName(const QString &wanted) const;

    // --- lifecycle; each refusal emits errorOccurred and changes nothing ---
    // Returns the new profile's identifier, or an empty string when refused.
    QString createProfile(const QString &name);
    // The copy is named "<source> (Copy)" unless a name is given.
    QString duplicateProfile(const QString &sourceId, const QString &name = {});
    bool renameProfile(const QString &id, const QString &newName);
    bool deleteProfile(const QString &id);
    QString importProfile(const QString &filePath);
    // Writes the profile's whole document to filePath, atomically, as importProfile() reads it.
    bool exportProfile(const QString &id, const QString &filePath);
    bool setActiveProfile(const QString &id);
    // Writes the profile's file again as it is in memory.
    bool saveProfile(const QString &id);

    // --- the active profile ---
    [[nodiscard]] QString activeProfileId() const { return m_activeId; }
    [[nodiscard]] QString activeProfileName() const;
    [[nodiscard]] QJsonObject activeProfile() const { return profile(m_activeId); }
    // The profile last made active for that vehicle type, empty if none is remembered.
    [[nodiscard]] QString lastActiveProfileId(const QString &vehicleType) const;

    // Generic access to one top-level key of the active profile ("axisSettings",
    // "buttonMappings", "ledSettings", "helicopterConfig", ...).
    [[nodiscard]] QJsonValue setting(const QString &key) const;
    // Replaces that key; the value is completed with defaults the way a file is read, but
    // not migrated. Identity, name, dates and version are not settable this way.
    bool setSetting(const QString &key, const QJsonValue &value);

    // --- typed helpers over the active profile ---
    [[nodiscard]] QString vehicleType() const;
    bool setVehicleType(const QString &vehicleType);
    [[nodiscard]] bool autoStartEnabled() const;
    bool setAutoStartEnabled(bool enabled);
    [[nodiscard]] QString transmitterPortName() const;
    [[nodiscard]] int transmitterBaudRate() const;
    bool setTransmitterPort(const QString &portName, int baudRate);
    // The car receiver's USB console port, remembered the same way.
    [[nodiscard]] QString receiverPortName() const;
    [[nodiscard]] int receiverBaudRate() const;
    bool setReceiverPort(const QString &portName, int baudRate);
    // The saved connection record of a role: identity, axis mapping, shifter mapping
    // (car roles) or identity and axes (helicopter roles).
    [[nodiscard]] QJsonObject deviceConnection(DeviceRole role) const;
    bool setDeviceConnection(DeviceRole role, const QJsonObject &connection);
    [[nodiscard]] DeviceIdentity deviceIdentity(DeviceRole role) const;
    // Replaces only the identity fields of the role's record.
    bool setDeviceIdentity(DeviceRole role, const DeviceIdentity &identity);

    // --- ESC presets ---
    // The shared preset list; its changes and refusals come out of this store's
    // escPresetsChanged and errorOccurred as well.
    [[nodiscard]] EscPresetStore *escPresets() const { return m_escPresets; }
    // Copies the preset's end points into the active profile and selects the custom ESC mode.
    bool applyEscPreset(const QString &id);

signals:
    void activeProfileChanged(const QString &profileId);
    void profileListChanged();
    void profileModified(const QString &profileId);
    void escPresetsChanged();
    void errorOccurred(const QString &message);

private:
    struct StoredProfile
    {
        QJsonObject document;
        QString filePath; // <id>.json, or until its first save the file it was read from
    };

    [[nodiscard]] int indexOf(const QString &id) const;
    [[nodiscard]] QString pathFor(const QString &id) const;
    [[nodiscard]] QString configPath() const;
    void readProfileFiles();
    bool addNewProfile(QJsonObject document);
    // Writes the profile as <id>.json, moving it there from a file of another name.
    bool writeProfile(StoredProfile &stored, QString *reason = nullptr);
    // Stamps modifiedAt, writes the file and only then takes the new document.
    bool commit(int index, QJsonObject document);
    bool writeConfig();
    bool refuse(const QString &message);
    // The profile's position, or -1 after refusing with "Profile not found: %1".
    int indexOrRefuse(const QString &id);
    // A serial device's remembered port under deviceConnections (keys::kBridge, keys::kReceiver).
    [[nodiscard]] QJsonObject serialConnection(QLatin1String device) const;
    [[nodiscard]] QString serialPortName(QLatin1String device) const;
    [[nodiscard]] int serialBaudRate(QLatin1String device) const;
    bool setSerialPort(QLatin1String device, const QString &portName, int baudRate);

    QString m_directory;
    QList<StoredProfile> m_profiles;
    ProfileConfig m_config;
    EscPresetStore *m_escPresets;
    QString m_activeId;
    bool m_loaded = false;
};

} // namespace tavrix
