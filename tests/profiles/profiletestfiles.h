#pragma once

// Real files for the profile store's tests: snapshots of a folder, raw reads and writes,
// stored profiles written by hand, and a write that fails the way a full disk does.

#include "profilekeys.h"
#include "profilemanager.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>
#include <QObject>
#include <QTemporaryDir>

#include <csignal>
#include <memory>
#include <optional>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace tavrix::testing {

namespace keys = tavrix::profilekeys;

// Makes every write past `bytes` into any regular file of this process fail for real
// (EFBIG), the way a full disk cuts a write short; restored when it goes out of scope.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_previous);
        m_previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = m_previous;
        limit.rlim_cur = bytes;
        m_active = setrlimit(RLIMIT_FSIZE, &limit) == 0;
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_previous);
        std::signal(SIGXFSZ, m_previousHandler);
    }
    [[nodiscard]] bool isActive() const { return m_active; }

private:
    rlimit m_previous{};
    void (*m_previousHandler)(int) = nullptr;
    bool m_active = false;
};

// Every file under a directory (hidden ones and temporary leftovers included) with its bytes.
QMap<QString, QByteArray> snapshot(const QString &directory)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(directory, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            files.insert(QDir(directory).relativeFilePath(path), file.readAll());
    }
    return files;
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject readJson(const QString &path)
{
    return QJsonDocument::fromJson(readFile(path)).object();
}

QByteArray profileJson(const QString &id, const QString &name, const QJsonObject &extra = {})
{
    QJsonObject object = extra;
    object.insert(keys::kId, id);
    object.insert(keys::kName, name);
    return QJsonDocument(object).toJson();
}

QStringList names(const ProfileManager &manager)
{
    QStringList list;
    for (const ProfileSummary &summary : manager.profiles())
        list.append(summary.name);
    return list;
}

constexpr QLatin1String kOldDate{"2020-01-01T00:00:00Z"};

// Base of the profile store's test classes: a fresh temporary folder per test function
// (freshFolder() from init()) and stores loaded from it.
class ProfileStoreTest : public QObject
{
protected:
    bool freshFolder()
    {
        m_base = std::make_unique<QTemporaryDir>();
        return m_base->isValid();
    }

    std::unique_ptr<ProfileManager> loadedStore() const
    {
        auto manager = std::make_unique<ProfileManager>(m_base->path());
        manager->loadProfiles();
        return manager;
    }

    QString profileDir() const { return m_base->filePath(u"profiles"_s); }

    std::unique_ptr<QTemporaryDir> m_base;
};

} // namespace tavrix::testing
