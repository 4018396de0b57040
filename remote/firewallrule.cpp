#include "firewallrule.h"
#include "remotelog.h"

#include <QProcess>
#include <QStringList>

namespace tavrix {

namespace {

#ifdef Q_OS_WIN
class NetshFirewallRule final : public FirewallRule
{
public:
    void ensureOpen(quint16 port) override
    {
        const QString name = QStringLiteral("name=%1").arg(QStringLiteral("OrvaneLabs Tavrix"));
        if (run({QStringLiteral("advfirewall"), QStringLiteral("firewall"), QStringLiteral("show"),
                 QStringLiteral("rule"), name})) {
            qCInfo(lcRemote).noquote() << "WebSocketServer: Firewall rule already exists";
            return;
        }
        if (run({QStringLiteral("advfirewall"), QStringLiteral("firewall"), QStringLiteral("add"),
                 QStringLiteral("rule"), name, QStringLiteral("dir=in"), QStringLiteral("action=allow"),
                 QStringLiteral("protocol=TCP"), QStringLiteral("localport=%1").arg(port)})) {
            qCInfo(lcRemote).noquote() << "WebSocketServer: Firewall rule added successfully";
        } else {
            qCWarning(lcRemote).noquote()
                << "WebSocketServer: Could not add firewall rule (may need admin rights)."
                << "Mobile devices may not be able to connect.";
        }
    }

private:
    static bool run(const QStringList &arguments)
    {
        QProcess netsh;
        netsh.start(QStringLiteral("netsh"), arguments);
        return netsh.waitForFinished(5000) && netsh.exitStatus() == QProcess::NormalExit &&
               netsh.exitCode() == 0;
    }
};
#else
class NoFirewallRule final : public FirewallRule
{
public:
    void ensureOpen(quint16) override {}
};
#endif

} // namespace

FirewallRule *FirewallRule::platform()
{
#ifdef Q_OS_WIN
    static NetshFirewallRule rule;
#else
    static NoFirewallRule rule;
#endif
    return &rule;
}

} // namespace tavrix
