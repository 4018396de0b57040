#pragma once

#include <QString>

#include <memory>

namespace tavrix {

class LogRouter;
class RotatingLogFile;

// The run's log on disk, fed by the router for as long as this lives. A file that cannot be
// written is reported and the run goes on with its log on screen only.
class LogFileAttachment
{
public:
    // `path` empty: RotatingLogFile::defaultPath().
    LogFileAttachment(const QString &path, LogRouter &router);
    ~LogFileAttachment();
    LogFileAttachment(const LogFileAttachment &) = delete;
    LogFileAttachment &operator=(const LogFileAttachment &) = delete;

    [[nodiscard]] bool isWriting() const { return m_file != nullptr; }

private:
    LogRouter &m_router;
    std::unique_ptr<RotatingLogFile> m_file;
};

} // namespace tavrix
