// orvane-packaging-files: writes the packaged files that must follow the code, from the
// code's own tables, so they cannot drift from it:
//   manpage VERSION OUT             orvanehub(1) from the command-line option table
//   udev-rules TEMPLATE OUT         the udev rules, with one line per Orvane USB serial device
#include "manpage.h"
#include "orvaneusbdevices.h"

#include <QCoreApplication>
#include <QFile>
#include <QSaveFile>
#include <QTextStream>

namespace {

constexpr QLatin1StringView kSerialRulesPlaceholder("@ORVANE_USB_SERIAL_RULES@");

QString hex4(quint16 id)
{
    return QStringLiteral("%1").arg(id, 4, 16, QLatin1Char('0'));
}

// One rule per device: its serial port goes to the person at the seat (logind's ACL).
QString usbSerialRules()
{
    QString rules;
    for (const tavrix::OrvaneUsbDevice &device : tavrix::kOrvaneUsbDevices) {
        rules += QStringLiteral("# %1\n").arg(QLatin1StringView(device.name));
        rules += QStringLiteral("SUBSYSTEM==\"tty\", SUBSYSTEMS==\"usb\", ATTRS{idVendor}==\"%1\", ")
                     .arg(hex4(device.vendorId));
        if (device.productId != 0)
            rules += QStringLiteral("ATTRS{idProduct}==\"%1\", ").arg(hex4(device.productId));
        rules += QStringLiteral("TAG+=\"uaccess\"\n");
    }
    return rules;
}

bool write(const QString &path, const QString &text)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(text.toUtf8());
    return file.commit();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QTextStream err(stderr);
    const QString what = arguments.value(1);
    if (arguments.size() != 4 || (what != QLatin1String("manpage") && what != QLatin1String("udev-rules"))) {
        err << "usage: orvane-packaging-files manpage VERSION OUT | udev-rules TEMPLATE OUT\n";
        return 2;
    }
    QString text;
    if (what == QLatin1String("manpage")) {
        text = tavrix::commandLineManPage(arguments.at(2));
    } else {
        QFile templateFile(arguments.at(2));
        if (!templateFile.open(QIODevice::ReadOnly)) {
            err << "orvane-packaging-files: cannot read " << arguments.at(2) << '\n';
            return 1;
        }
        text = QString::fromUtf8(templateFile.readAll());
        if (!text.contains(kSerialRulesPlaceholder)) {
            err << "orvane-packaging-files: " << arguments.at(2) << " has no " << kSerialRulesPlaceholder
                << '\n';
            return 1;
        }
        text.replace(kSerialRulesPlaceholder, usbSerialRules());
    }
    if (!write(arguments.at(3), text)) {
        err << "orvane-packaging-files: cannot write " << arguments.at(3) << '\n';
        return 1;
    }
    return 0;
}
