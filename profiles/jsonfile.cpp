#include "jsonfile.h"

#include "profileschema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace tavrix {

JsonFile::ReadResult JsonFile::read(const QString &path)
{
    ReadResult result;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.error = ReadError::CannotOpen;
        result.reason = file.errorString();
        return result;
    }
    // Read one byte past the limit so an oversized file is told apart from one exactly at it.
    const QByteArray bytes = file.read(kMaxFileSize + 1);
    if (bytes.size() > kMaxFileSize) {
        result.error = ReadError::TooLarge;
        result.reason = u"larger than %1 bytes"_s.arg(kMaxFileSize);
        return result;
    }
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        result.error = ReadError::NotAnObject;
        result.reason = u"%1 at offset %2"_s.arg(parseError.errorString()).arg(parseError.offset);
        return result;
    }
    if (!document.isObject()) {
        result.error = ReadError::NotAnObject;
        result.reason = u"not a JSON object"_s;
        return result;
    }
    result.object = document.object();
    return result;
}

bool JsonFile::write(const QString &path, const QJsonObject &object, QString *reason)
{
    const QString directory = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(directory)) {
        if (reason)
            *reason = u"cannot create directory %1"_s.arg(directory);
        return false;
    }
    QSaveFile file(path);
    // Unbuffered, so a short write (full disk, file size limit) shows in write()'s count. With
    // the default buffering the bytes are only written inside commit(), where Qt 6.4 can take
    // a write cut short by the disk as success and rename a truncated file over the old one.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        if (reason)
            *reason = file.errorString();
        return false;
    }
    const QByteArray bytes = ProfileSchema::toFileBytes(object);
    if (file.write(bytes) != bytes.size()) {
        if (reason)
            *reason = file.errorString();
        file.cancelWriting();
        return false;
    }
    if (!file.commit()) {
        if (reason)
            *reason = file.errorString();
        return false;
    }
    return true;
}

} // namespace tavrix
