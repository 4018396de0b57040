#include "profilemanager.h"

#include "jsonfile.h"
#include "profilekeys.h"
#include "profileschema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QLoggingCategory>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace tavrix {

Q_LOGGING_CATEGORY(lcProfiles, "orvane.profiles")

namespace {

namespace keys = profilekeys;

constexpr QLatin1String kProfilesFolder{"profiles"};
constexpr QLatin1String kConfigFile{"config.json"};
constexpr QLatin1String kEscPresetsFile{"esc_presets.json"};
constexpr QLatin1String kJsonSuffix{".json"};

QString defaultBaseDirectory()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString nameOf(const QJsonObject &document)
{
    return document.value(keys::kName).toString();
}

QString idOf(const QJsonObject &document)
{
    return document.value(keys::kId).toString();
}

// A name as the store keeps it: without surrounding blanks, cut to the longest it keeps.
QString cleanName(const QString &name)
{
    return name.trimmed().left(ProfileManager::kMaxNameLength);
}

} // namespace

ProfileManager::ProfileManager(QObject *parent)
    : ProfileManager(defaultBaseDirectory(), parent)
{}

ProfileManager::ProfileManager(const QString &baseDirectory, QObject *parent)
    : QObject(parent)
    , m_directory(QDir(baseDirectory).filePath(kProfilesFolder))
    , m_escPresets(new EscPresetStore(QDir(m_directory).filePath(kEscPresetsFile), this))
{
    connect(m_escPresets, &EscPresetStore::presetsChanged, this, &ProfileManager::escPresetsChanged);
    connect(m_escPresets, &EscPresetStore::errorOccurred, this, &ProfileManager::errorOccurred);
}

ProfileManager::~ProfileManager()
{
    // Nothing was read, so there is nothing to keep; writing now would wipe config.json.
    if (!m_loaded)
        return;
    for (StoredProfile &stored : m_profiles) {
        QString reason;
        if (!writeProfile(stored, &reason))
            qCWarning(lcProfiles).noquote()
                << "ProfileManager: could not save" << stored.filePath << "at exit:" << reason;
    }
    QString reason;
    if (!JsonFile::write(configPath(), m_config.toJson(), &reason))
        qCWarning(lcProfiles).noquote()
            << "ProfileManager: could not save" << configPath() << "at exit:" << reason;
}

// --- loading ---

void ProfileManager::loadProfiles()
{
    m_profiles.clear();
    m_config = {};
    m_activeId.clear();

    if (QDir(m_directory).exists()) {
        readProfileFiles();
        const JsonFile::ReadResult config = JsonFile::read(configPath());
        if (config.object)
            m_config = ProfileConfig::fromJson(*config.object);
        else if (QFileInfo::exists(configPath()))
            qCWarning(lcProfiles).noquote()
                << "ProfileManager: ignoring" << configPath() << ":" << config.reason;
    }

    QString reason;
    if (!m_escPresets->load(&reason))
        qCWarning(lcProfiles).noquote()
            << "ProfileManager: ignoring" << m_escPresets->filePath() << ":" << reason;

    if (m_profiles.isEmpty()) {
        const QJsonObject document = ProfileSchema::defaultProfile(
            ProfileSchema::newIdentifier(), u"Default"_s, ProfileSchema::currentTimestamp());
        // The store always has a profile, even when its file cannot be written (already reported).
        if (!addNewProfile(document))
            m_profiles.append({document, pathFor(idOf(document))});
    }

    m_activeId = hasProfile(m_config.lastActiveProfileId) ? m_config.lastActiveProfileId
                                                          : idOf(m_profiles.constFirst().document);
    m_loaded = true;
    qCInfo(lcProfiles).noquote() << "ProfileManager:" << m_profiles.size() << "profile(s) in" << m_directory
                                 << "- active" << m_activeId;
    emit profileListChanged();
    emit escPresetsChanged();
    emit activeProfileChanged(m_activeId);
}

void ProfileManager::readProfileFiles()
{
    const QFileInfoList files = QDir(m_directory).entryInfoList({u"*.json"_s}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        if (file.fileName() == kConfigFile || file.fileName() == kEscPresetsFile)
            continue;
        const QString path = file.absoluteFilePath();
        // A file that cannot be read is skipped and left exactly as it is: it is never
        // in memory, so no save can write over it.
        const JsonFile::ReadResult read = JsonFile::read(path);
        if (!read.object) {
            qCWarning(lcProfiles).noquote() << "ProfileManager: skipped" << path << ":" << read.reason;
            continue;
        }
        QStringList migrations;
        QJsonObject document = ProfileSchema::readProfile(*read.object, &migrations);
        const QString id = idOf(document);
        if (id.isEmpty() || nameOf(document).isEmpty()) {
            qCWarning(lcProfiles).noquote() << "ProfileManager: skipped" << path << ": empty id or name";
            continue;
        }
        if (const int loaded = indexOf(id); loaded >= 0) {
            // Two files claim one identifier. The one named after it wins: that is where the
            // other one went when it was last saved, so it holds the newer settings.
            const bool home = QFileInfo(path) == QFileInfo(pathFor(id));
            qCWarning(lcProfiles).noquote()
                << "ProfileManager: skipped" << (home ? m_profiles.at(loaded).filePath : path)
                << ": identifier" << id << "already loaded";
            if (home)
                m_profiles[loaded] = {std::move(document), path};
            continue;
        }
        for (const QString &migration : std::as_const(migrations))
            qCInfo(lcProfiles).noquote() << "ProfileManager: migrated" << path << ":" << migration;
        m_profiles.append({std::move(document), path});
    }
}

// --- the list ---

QList<ProfileSummary> ProfileManager::profiles() const
{
    QList<ProfileSummary> list;
    list.reserve(m_profiles.size());
    for (const StoredProfile &stored : m_profiles) {
        const QJsonObject &document = stored.document;
        list.append({idOf(document), nameOf(document), document.value(keys::kVehicleType).toString(),
                     document.value(keys::kCreatedAt).toString(),
                     document.value(keys::kModifiedAt).toString()});
    }
    return list;
}

bool ProfileManager::hasProfile(const QString &id) const
{
    return indexOf(id) >= 0;
}

QString ProfileManager::profileName(const QString &id) const
{
    return nameOf(profile(id));
}

QJsonObject ProfileManager::profile(const QString &id) const
{
    const int index = indexOf(id);
    return index < 0 ? QJsonObject() : m_profiles.at(index).document;
}

QString ProfileManager::uniqueName(const QString &wanted) const
{
    const auto taken = [this](const QString &name) {
        for (const StoredProfile &stored : m_profiles) {
            if (nameOf(stored.document).compare(name, Qt::CaseInsensitive) == 0)
                return true;
        }
        return false;
    };
    QString name = wanted;
    for (int n = 2; taken(name); ++n)
        name = u"%1 (%2)"_s.arg(wanted).arg(n);
    return name;
}

// --- lifecycle ---

QString ProfileManager::createProfile(const QString &name)
{
    const QString wanted = cleanName(name).isEmpty() ? u"New Profile"_s : cleanName(name);
    QJsonObject document = ProfileSchema::defaultProfile(ProfileSchema::newIdentifier(), wanted,
                                                         ProfileSchema::currentTimestamp());
    if (!addNewProfile(document))
        return {};
    emit profileListChanged();
    return idOf(m_profiles.constLast().document);
}

QString ProfileManager::duplicateProfile(const QString &sourceId, const QString &name)
{
    const int source = indexOf(sourceId);
    if (source < 0) {
        refuse(tr("Source profile not found: %1").arg(sourceId));
        return {};
    }
    QJsonObject document = m_profiles.at(source).document;
    const QString now = ProfileSchema::currentTimestamp();
    document.insert(keys::kName,
                    cleanName(name).isEmpty() ? cleanName(nameOf(document) + u" (Copy)"_s) : cleanName(name));
    document.insert(keys::kId, ProfileSchema::newIdentifier());
    document.insert(keys::kCreatedAt, now);
    document.insert(keys::kModifiedAt, now);
    if (!addNewProfile(document))
        return {};
    emit profileListChanged();
    return idOf(m_profiles.constLast().document);
}

bool ProfileManager::renameProfile(const QString &id, const QString &newName)
{
    const QString name = cleanName(newName);
    if (name.isEmpty())
        return refuse(tr("Profile name cannot be empty"));
    const int index = indexOrRefuse(id);
    if (index < 0)
        return false;
    QJsonObject document = m_profiles.at(index).document;
    document.insert(keys::kName, name);
    if (!commit(index, document))
        return false;
    emit profileListChanged();
    if (id == m_activeId)
        emit activeProfileChanged(id);
    return true;
}

bool ProfileManager::deleteProfile(const QString &id)
{
    const int index = indexOrRefuse(id);
    if (index < 0)
        return false;
    if (m_profiles.size() == 1)
        return refuse(tr("Cannot delete the last profile"));
    const StoredProfile removed = m_profiles.at(index);
    QFile file(removed.filePath);
    if (file.exists() && !file.remove()) {
        qCWarning(lcProfiles).noquote()
            << "ProfileManager: cannot remove" << removed.filePath << ":" << file.errorString();
        return refuse(tr("Failed to delete profile: %1").arg(nameOf(removed.document)));
    }
    m_profiles.removeAt(index);
    for (auto it = m_config.lastActiveByType.begin(); it != m_config.lastActiveByType.end();) {
        it = it.value() == id ? m_config.lastActiveByType.erase(it) : std::next(it);
    }

    const bool wasActive = id == m_activeId;
    if (wasActive) {
        // Prefer the profile last used for the same kind of vehicle, then any of that kind.
        const QString type = removed.document.value(keys::kVehicleType).toString();
        QString next = m_config.lastActiveByType.value(type);
        for (int i = 0; next.isEmpty() && i < m_profiles.size(); ++i) {
            if (m_profiles.at(i).document.value(keys::kVehicleType).toString() == type)
                next = idOf(m_profiles.at(i).document);
        }
        m_activeId = next.isEmpty() ? idOf(m_profiles.constFirst().document) : next;
        m_config.lastActiveProfileId = m_activeId;
    }
    writeConfig();
    emit profileListChanged();
    if (wasActive)
        emit activeProfileChanged(m_activeId);
    return true;
}

QString ProfileManager::importProfile(const QString &filePath)
{
    const JsonFile::ReadResult read = JsonFile::read(filePath);
    if (read.error == JsonFile::ReadError::CannotOpen) {
        refuse(tr("Failed to open file: %1").arg(filePath));
        return {};
    }
    if (!read.object) {
        refuse(tr("Invalid profile file format"));
        return {};
    }
    QJsonObject document = ProfileSchema::readProfile(*read.object);
    if (idOf(document).isEmpty() || cleanName(nameOf(document)).isEmpty()) {
        refuse(tr("Invalid profile data"));
        return {};
    }
    if (document.value(keys::kButtonMappings).toArray().size() > kMaxButtonMappings) {
        refuse(tr("Too many button mappings (max %1)").arg(kMaxButtonMappings));
        return {};
    }
    const QString now = ProfileSchema::currentTimestamp();
    document.insert(keys::kId, ProfileSchema::newIdentifier());
    document.insert(keys::kName, uniqueName(cleanName(nameOf(document))));
    document.insert(keys::kCreatedAt, now);
    document.insert(keys::kModifiedAt, now);
    if (!addNewProfile(document))
        return {};
    emit profileListChanged();
    return idOf(m_profiles.constLast().document);
}

bool ProfileManager::exportProfile(const QString &id, const QString &filePath)
{
    const int index = indexOrRefuse(id);
    if (index < 0)
        return false;
    QString reason;
    if (!JsonFile::write(filePath, m_profiles.at(index).document, &reason)) {
        qCWarning(lcProfiles).noquote() << "ProfileManager: cannot export to" << filePath << ":" << reason;
        return refuse(tr("Failed to write file: %1").arg(filePath));
    }
    return true;
}

bool ProfileManager::setActiveProfile(const QString &id)
{
    const int index = indexOrRefuse(id);
    if (index < 0)
        return false;
    m_activeId = id;
    m_config.lastActiveProfileId = id;
    m_config.lastActiveByType.insert(m_profiles.at(index).document.value(keys::kVehicleType).toString(), id);
    writeConfig();
    emit activeProfileChanged(id);
    return true;
}

bool ProfileManager::saveProfile(const QString &id)
{
    const int index = indexOrRefuse(id);
    if (index < 0)
        return false;
    QString reason;
    if (!writeProfile(m_profiles[index], &reason)) {
        qCWarning(lcProfiles).noquote()
            << "ProfileManager: cannot write" << m_profiles.at(index).filePath << ":" << reason;
        return refuse(tr("Failed to save profile: %1").arg(nameOf(m_profiles.at(index).document)));
    }
    return true;
}

// --- the active profile ---

QString ProfileManager::activeProfileName() const
{
    return profileName(m_activeId);
}

QString ProfileManager::lastActiveProfileId(const QString &vehicleType) const
{
    return m_config.lastActiveByType.value(vehicleType);
}

QJsonValue ProfileManager::setting(const QString &key) const
{
    return activeProfile().value(key);
}

bool ProfileManager::setSetting(const QString &key, const QJsonValue &value)
{
    const int index = indexOf(m_activeId);
    if (index < 0)
        return refuse(tr("No active profile"));
    if (!ProfileSchema::isEditableSetting(key))
        return refuse(tr("Unknown profile setting: %1").arg(key));
    QJsonObject document = m_profiles.at(index).document;
    document.insert(key, value);
    // Brought to the stored shape (defaults, types) as a file is, but not migrated: migrations
    // translate what older versions wrote, while a value set now already means what it says.
    document = ProfileSchema::normalise(document, ProfileSchema::profileFields());
    if (document == m_profiles.at(index).document)
        return true;
    if (!commit(index, document))
        return false;
    emit profileModified(m_activeId);
    return true;
}

// --- typed helpers ---

QString ProfileManager::vehicleType() const
{
    return setting(keys::kVehicleType).toString();
}

bool ProfileManager::setVehicleType(const QString &vehicleType)
{
    return setSetting(keys::kVehicleType, vehicleType);
}

bool ProfileManager::autoStartEnabled() const
{
    return setting(keys::kAutoStartEnabled).toBool();
}

bool ProfileManager::setAutoStartEnabled(bool enabled)
{
    return setSetting(keys::kAutoStartEnabled, enabled);
}

QString ProfileManager::transmitterPortName() const
{
    return serialPortName(keys::kBridge);
}

int ProfileManager::transmitterBaudRate() const
{
    return serialBaudRate(keys::kBridge);
}

bool ProfileManager::setTransmitterPort(const QString &portName, int baudRate)
{
    return setSerialPort(keys::kBridge, portName, baudRate);
}

QString ProfileManager::receiverPortName() const
{
    return serialPortName(keys::kReceiver);
}

int ProfileManager::receiverBaudRate() const
{
    return serialBaudRate(keys::kReceiver);
}

bool ProfileManager::setReceiverPort(const QString &portName, int baudRate)
{
    return setSerialPort(keys::kReceiver, portName, baudRate);
}

QJsonObject ProfileManager::serialConnection(QLatin1String device) const
{
    return setting(keys::kDeviceConnections).toObject().value(device).toObject();
}

QString ProfileManager::serialPortName(QLatin1String device) const
{
    return serialConnection(device).value(keys::kPortName).toString();
}

int ProfileManager::serialBaudRate(QLatin1String device) const
{
    const int baud = serialConnection(device).value(keys::kBaudRate).toInt();
    return baud > 0 ? baud : ProfileSchema::kDefaultBaudRate;
}

bool ProfileManager::setSerialPort(QLatin1String device, const QString &portName, int baudRate)
{
    QJsonObject connections = setting(keys::kDeviceConnections).toObject();
    QJsonObject port = connections.value(device).toObject();
    port.insert(keys::kPortName, portName);
    port.insert(keys::kBaudRate, baudRate > 0 ? baudRate : ProfileSchema::kDefaultBaudRate);
    connections.insert(device, port);
    return setSetting(keys::kDeviceConnections, connections);
}

// --- ESC presets ---

bool ProfileManager::applyEscPreset(const QString &id)
{
    const std::optional<EscPreset> preset = m_escPresets->find(id);
    if (!preset)
        return refuse(tr("ESC preset not found: %1").arg(id));
    constexpr int kCustomEscMode = 2;
    QJsonObject axis = setting(keys::kAxisSettings).toObject();
    axis.insert(keys::kEscMode, kCustomEscMode);
    axis.insert(keys::kEscPresetId, preset->id);
    axis.insert(keys::kEscNeutral, preset->neutral);
    axis.insert(keys::kEscFullForward, preset->fullForward);
    axis.insert(keys::kEscFullReverse, preset->fullReverse);
    return setSetting(keys::kAxisSettings, axis);
}

// --- private ---

int ProfileManager::indexOf(const QString &id) const
{
    if (id.isEmpty())
        return -1;
    for (int i = 0; i < m_profiles.size(); ++i) {
        if (idOf(m_profiles.at(i).document) == id)
            return i;
    }
    return -1;
}

QString ProfileManager::pathFor(const QString &id) const
{
    return QDir(m_directory).filePath(id + kJsonSuffix);
}

QString ProfileManager::configPath() const
{
    return QDir(m_directory).filePath(kConfigFile);
}

bool ProfileManager::addNewProfile(QJsonObject document)
{
    if (m_profiles.size() >= kMaxProfiles)
        return refuse(tr("Too many profiles (max %1)").arg(kMaxProfiles));
    // A new identifier never names an existing file, not even one skipped as unreadable.
    while (QFileInfo::exists(pathFor(idOf(document))))
        document.insert(keys::kId, ProfileSchema::newIdentifier());
    StoredProfile stored{document, pathFor(idOf(document))};
    QString reason;
    if (!writeProfile(stored, &reason)) {
        qCWarning(lcProfiles).noquote() << "ProfileManager: cannot write" << stored.filePath << ":" << reason;
        return refuse(tr("Failed to save profile: %1").arg(nameOf(document)));
    }
    m_profiles.append(stored);
    return true;
}

bool ProfileManager::writeProfile(StoredProfile &stored, QString *reason)
{
    // Every profile is saved as <id>.json, wherever it was read from: a profile copied in under
    // another name moves there on its first save, so the folder never holds it twice. A file of
    // that name that this store did not read (unreadable, or a second copy) is never written over.
    const QString home = pathFor(idOf(stored.document));
    const bool moving = QFileInfo(stored.filePath) != QFileInfo(home) && !QFileInfo::exists(home);
    if (!JsonFile::write(moving ? home : stored.filePath, stored.document, reason))
        return false;
    if (moving) {
        if (!QFile::remove(stored.filePath))
            qCWarning(lcProfiles).noquote()
                << "ProfileManager: saved" << home << "but could not remove its old file" << stored.filePath;
        stored.filePath = home;
    }
    return true;
}

bool ProfileManager::commit(int index, QJsonObject document)
{
    document.insert(keys::kModifiedAt, ProfileSchema::currentTimestamp());
    StoredProfile next{document, m_profiles.at(index).filePath};
    QString reason;
    if (!writeProfile(next, &reason)) {
        qCWarning(lcProfiles).noquote() << "ProfileManager: cannot write" << next.filePath << ":" << reason;
        return refuse(tr("Failed to save profile: %1").arg(nameOf(m_profiles.at(index).document)));
    }
    m_profiles[index] = next;
    return true;
}

bool ProfileManager::writeConfig()
{
    QString reason;
    if (JsonFile::write(configPath(), m_config.toJson(), &reason))
        return true;
    // The switch itself stands; only remembering it for the next run failed.
    qCWarning(lcProfiles).noquote() << "ProfileManager: cannot write" << configPath() << ":" << reason;
    emit errorOccurred(tr("Failed to save the active profile choice"));
    return false;
}

bool ProfileManager::refuse(const QString &message)
{
    qCWarning(lcProfiles).noquote() << "ProfileManager:" << message;
    emit errorOccurred(message);
    return false;
}

int ProfileManager::indexOrRefuse(const QString &id)
{
    const int index = indexOf(id);
    if (index < 0)
        refuse(tr("Profile not found: %1").arg(id));
    return index;
}

} // namespace tavrix
