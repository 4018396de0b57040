#include "motionlineparser.h"

#include <QRegularExpression>

namespace tavrix {

namespace {

// "ax3=-12mm": actuator 3 at -12 mm. Numbers the board cannot mean are skipped.
const QRegularExpression kPositionToken(QStringLiteral("ax(\\d+)=(-?\\d+)mm"));

// "i=100 t=140 s=100 a=100 p=75", the letters and their order taken from the settings table.
QRegularExpression configEchoPattern()
{
    QStringList fields;
    for (const MotionSettingField &field : kMotionSettingFields)
        fields.append(QStringLiteral("%1=(\\d+)").arg(QLatin1Char(field.echoLetter)));
    return QRegularExpression(fields.join(QStringLiteral("\\s+")));
}

const QRegularExpression kConfigEcho = configEchoPattern();

std::optional<MotionSystemSettings> echoedSettings(const QString &line)
{
    const QRegularExpressionMatch match = kConfigEcho.match(line);
    if (!match.hasMatch())
        return std::nullopt;
    MotionSystemSettings settings;
    int group = 1;
    for (const MotionSettingField &field : kMotionSettingFields) {
        bool ok = false;
        const int value = match.captured(group++).toInt(&ok);
        if (!ok)
            return std::nullopt;
        settings.*field.member = value;
    }
    return settings.clamped();
}

MotionLine heartbeat(const QString &line)
{
    MotionLine result;
    result.kind = MotionLine::Kind::Heartbeat;
    // "[]" or a line without its closing bracket says nothing about the state.
    const qsizetype close = line.indexOf(QLatin1Char(']'));
    if (close > 1)
        result.stateWord = line.mid(1, close - 1);
    for (auto it = kPositionToken.globalMatch(line); it.hasNext();) {
        const QRegularExpressionMatch token = it.next();
        bool actuatorOk = false;
        bool positionOk = false;
        const int actuator = token.captured(1).toInt(&actuatorOk);
        const int positionMm = token.captured(2).toInt(&positionOk);
        if (actuatorOk && positionOk)
            result.positionsMm.insert(actuator, positionMm);
    }
    return result;
}

} // namespace

QStringList MotionLineSplitter::feed(const QByteArray &chunk)
{
    m_pending += chunk;
    QStringList lines;
    qsizetype start = 0;
    for (qsizetype end = m_pending.indexOf('\n'); end >= 0; end = m_pending.indexOf('\n', start)) {
        const QString line = QString::fromLatin1(m_pending.mid(start, end - start)).trimmed();
        if (!line.isEmpty())
            lines.append(line);
        start = end + 1;
    }
    m_pending.remove(0, start);
    if (m_pending.size() > kMaxPendingBytes)
        m_pending.clear();
    return lines;
}

MotionLine parseMotionLine(const QString &line)
{
    if (line.startsWith(QLatin1Char('[')))
        return heartbeat(line);
    MotionLine result;
    if (line.contains(QLatin1String("#TST"))) {
        result.kind = MotionLine::Kind::TestReport;
        result.testDone = line.contains(QLatin1String("done"));
    } else if (line.contains(QLatin1String("#CFG"))) {
        result.kind = MotionLine::Kind::ConfigEcho;
        result.settings = echoedSettings(line);
    }
    return result;
}

} // namespace tavrix
