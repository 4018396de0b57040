#include "logfileattachment.h"

#include "logrouter.h"
#include "rotatinglogfile.h"

namespace tavrix {

LogFileAttachment::LogFileAttachment(const QString &path, LogRouter &router)
    : m_router(router)
{
    auto file = std::make_unique<RotatingLogFile>(path.isEmpty() ? RotatingLogFile::defaultPath() : path);
    QString error;
    if (!file->open(&error)) {
        qWarning("hub: %s; the log is shown but not kept", qUtf8Printable(error));
        return;
    }
    m_file = std::move(file);
    m_router.writeTo(m_file.get());
}

LogFileAttachment::~LogFileAttachment()
{
    // Detached first: a line routed from another thread meanwhile must not reach a file being closed.
    m_router.writeTo(nullptr);
}

} // namespace tavrix
