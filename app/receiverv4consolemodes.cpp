// The receiver V4 tools of orvanehub: the same image loader and flasher the update dialog
// uses, with their log on stdout and the outcome as the exit status.
#include "consolemodes.h"

#include "receiverv4flasher.h"
#include "receiverv4image.h"
#include "unixsignalwatcher.h"

#include <QCoreApplication>
#include <QDir>
#include <QLoggingCategory>
#include <QTextStream>

#include <csignal>

namespace tavrix {

namespace {

// Prints what one flasher run reports: its log lines, its progress (a line when a stage begins
// and when its whole percentage changes, never a flood) and its outcome, which becomes the
// application's exit status. SIGINT and SIGTERM cancel the run, which then ends by itself.
class FlasherConsole
{
public:
    FlasherConsole(QCoreApplication &app, ReceiverV4Flasher &flasher)
        : m_out(stdout)
        , m_err(stderr)
        , m_signals({SIGINT, SIGTERM})
    {
        // The flasher's own log is the output; the port's notes (a pty has no parity) are not.
        QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false"));
        QObject::connect(&flasher, &ReceiverV4Flasher::logMessage, &app,
                         [this](const QString &text) { print(text); });
        QObject::connect(
            &flasher, &ReceiverV4Flasher::progress, &app,
            [this](const QString &stage, int done, int total) { printProgress(stage, done, total); });
        QObject::connect(&flasher, &ReceiverV4Flasher::powerCycleRequested, &app, [this](bool active) {
            if (active)
                m_err << "orvanehub: waiting for the board to be switched off and on (Ctrl+C cancels)"
                      << Qt::endl;
        });
        QObject::connect(&flasher, &ReceiverV4Flasher::finished, &app,
                         [this, &app](bool ok, const QString &message) {
                             // The last log line usually is the outcome already.
                             if (ok && message != m_lastLine)
                                 print(message);
                             else if (!ok)
                                 m_err << "orvanehub: " << message << Qt::endl;
                             app.exit(ok ? 0 : kCannotRunExitCode);
                         });
        if (!m_signals.isActive())
            m_err << "orvanehub: cannot watch SIGINT/SIGTERM; the run cannot be cancelled" << Qt::endl;
        QObject::connect(&m_signals, &UnixSignalWatcher::signalReceived, &flasher, [this, &flasher] {
            m_err << "orvanehub: cancelling at the next step" << Qt::endl;
            flasher.cancel();
        });
    }

private:
    void print(const QString &line)
    {
        m_lastLine = line;
        m_out << line << Qt::endl;
    }

    void printProgress(const QString &stage, int done, int total)
    {
        const int percent = total > 0 ? int(qint64(done) * 100 / total) : 0;
        if (stage == m_stage && percent == m_percent)
            return;
        m_stage = stage;
        m_percent = percent;
        print(QStringLiteral("%1: %2% (%3/%4)").arg(stage).arg(percent).arg(done).arg(total));
    }

    QTextStream m_out;
    QTextStream m_err;
    UnixSignalWatcher m_signals;
    QString m_lastLine;
    QString m_stage;
    int m_percent = -1;
};

ReceiverV4ImageLoader::Result loadAndReport(const QString &firmwareFile)
{
    const ReceiverV4ImageLoader::Result loaded = ReceiverV4ImageLoader::load(firmwareFile);
    if (!loaded.image)
        QTextStream(stderr) << "orvanehub: " << QDir::toNativeSeparators(firmwareFile) << ": " << loaded.error
                            << Qt::endl;
    return loaded;
}

} // namespace

int runCheckImage(const CommandLineOptions &options)
{
    const ReceiverV4ImageLoader::Result loaded = loadAndReport(options.firmwareFile);
    if (!loaded.image)
        return kCannotRunExitCode;
    QTextStream(stdout) << QDir::toNativeSeparators(options.firmwareFile) << ": accepted, firmware "
                        << loaded.image->version << ", " << loaded.image->fileSize << " bytes ("
                        << loaded.image->bytes.size() << " bytes padded)" << Qt::endl;
    return 0;
}

int runFlashV4(int &argc, char **argv, const CommandLineOptions &options)
{
    // Nothing reaches the port unless the image passed every check.
    const ReceiverV4ImageLoader::Result loaded = loadAndReport(options.firmwareFile);
    if (!loaded.image)
        return kCannotRunExitCode;
    QCoreApplication app(argc, argv);
    ReceiverV4Flasher flasher;
    FlasherConsole console(app, flasher);
    if (!flasher.update(options.boardPort, *loaded.image))
        return kCannotRunExitCode;
    return app.exec();
}

int runReadBoard(int &argc, char **argv, const CommandLineOptions &options)
{
    QCoreApplication app(argc, argv);
    ReceiverV4Flasher flasher;
    FlasherConsole console(app, flasher);
    if (!flasher.readBoard(options.boardPort))
        return kCannotRunExitCode;
    return app.exec();
}

} // namespace tavrix
