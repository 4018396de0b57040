#include "inputbackendfactory.h"

#include "replayplayer.h"
#include "virtualbackend.h"

#if defined(ORVANE_HAVE_DINPUT)
#include "dinputbackend.h"
#elif defined(ORVANE_HAVE_EVDEV)
#include "evdevbackend.h"
#endif

#include <QtGlobal>

namespace tavrix {

namespace {

const QLatin1StringView kVirtualPrefix("virtual:");

std::unique_ptr<InputBackend> emptyBackend(const QString &reason)
{
    auto backend = std::make_unique<VirtualBackend>();
    backend->addProblem(QString(), reason);
    return backend;
}

std::unique_ptr<InputBackend> platformBackend([[maybe_unused]] quintptr nativeWindow)
{
#if defined(ORVANE_HAVE_DINPUT)
    return createDirectInputBackend(reinterpret_cast<void *>(nativeWindow));
#elif defined(ORVANE_HAVE_EVDEV)
    return std::make_unique<EvdevBackend>();
#else
    return emptyBackend(QStringLiteral("this build has no game-controller backend for this platform"));
#endif
}

} // namespace

std::unique_ptr<InputBackend> createInputBackend(const QString &selection, QString *error,
                                                 quintptr nativeWindow)
{
    const QString choice = selection.trimmed();
    if (choice.isEmpty())
        return platformBackend(nativeWindow);
    if (choice.startsWith(kVirtualPrefix)) {
        const QString path = choice.mid(kVirtualPrefix.size());
        if (path.isEmpty()) {
            const QString message =
                QStringLiteral("%1=virtual: needs a replay file, as in virtual:/path/drive.jsonl")
                    .arg(QLatin1StringView(kInputSelectionVariable));
            if (error)
                *error = message;
            return emptyBackend(message);
        }
        QString loadError;
        if (std::unique_ptr<ReplayBackend> replay = ReplayBackend::fromFile(path, &loadError))
            return replay;
        if (error)
            *error = loadError;
        return emptyBackend(loadError);
    }
    const QString message = QStringLiteral("unknown %1 value \"%2\" (expected virtual:FILE or nothing)")
                                .arg(QLatin1StringView(kInputSelectionVariable), choice);
    if (error)
        *error = message;
    return emptyBackend(message);
}

std::unique_ptr<InputBackend> createInputBackend(QString *error, quintptr nativeWindow)
{
    return createInputBackend(qEnvironmentVariable(kInputSelectionVariable), error, nativeWindow);
}

} // namespace tavrix
