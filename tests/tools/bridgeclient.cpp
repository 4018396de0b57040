#include "bridgeclient.h"

#include <QDeadlineTimer>
#include <QSignalSpy>

bool BridgeClient::waitForLine(const QString &text, int timeoutMs, qsizetype from)
{
    QDeadlineTimer deadline(timeoutMs);
    QSignalSpy spy(this, &BridgeClient::received);
    for (;;) {
        for (qsizetype i = from; i < parser.lines.size(); ++i) {
            if (parser.lines.at(i).contains(text))
                return true;
        }
        if (deadline.hasExpired() || !spy.wait(int(deadline.remainingTime())))
            return false;
    }
}
