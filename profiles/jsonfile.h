#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace tavrix {

// Reading and writing the store's JSON files. Reads are bounded; writes are atomic
// (QSaveFile: a temporary file renamed over the target only once it is complete), so a
// crash or a full disk leaves either the old file or the new one, never half of one.
class JsonFile
{
public:
    // Larger files are not profiles this program wrote; refusing them bounds the read.
    static constexpr qint64 kMaxFileSize = 4 * 1024 * 1024;

    enum class ReadError
    {
        None,
        CannotOpen,
        TooLarge,
        NotAnObject,
    };

    struct ReadResult
    {
        std::optional<QJsonObject> object;
        ReadError error = ReadError::None;
        QString reason; // for the log
    };

    [[nodiscard]] static ReadResult read(const QString &path);
    // Writes the object as indented JSON, creating the directory if needed.
    // On failure the previous file is untouched and reason says why.
    [[nodiscard]] static bool write(const QString &path, const QJsonObject &object,
                                    QString *reason = nullptr);
};

} // namespace tavrix
