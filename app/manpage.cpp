#include "manpage.h"

#include "commandlinereference.h"

namespace tavrix {

namespace {

QString bold(const QString &text)
{
    return QStringLiteral("\\fB") + roffEscaped(text) + QStringLiteral("\\fR");
}

QString italic(const QString &text)
{
    return QStringLiteral("\\fI") + roffEscaped(text) + QStringLiteral("\\fR");
}

// "--name <value>" as the manual writes it: the names bold, the value in italics without brackets.
QString optionHeading(const CommandLineOptionInfo &option)
{
    QString heading = bold(dashedNames(option));
    if (option.takesValue()) {
        QString value = option.value;
        if (value.startsWith(QLatin1Char('<')) && value.endsWith(QLatin1Char('>')))
            value = value.mid(1, value.size() - 2);
        heading += QLatin1Char(' ') + italic(value);
    }
    return heading;
}

// A list of terms as tagged paragraphs, the term in bold.
QString termList(const QList<CommandLineTerm> &terms)
{
    QString roff;
    for (const CommandLineTerm &term : terms)
        roff += QStringLiteral(".TP\n") + bold(term.name) + QLatin1Char('\n') +
                roffEscaped(term.description) + QLatin1Char('\n');
    return roff;
}

} // namespace

QString roffEscaped(const QString &text)
{
    QString escaped = text;
    escaped.replace(QLatin1Char('\\'), QStringLiteral("\\e"));
    escaped.replace(QLatin1Char('-'), QStringLiteral("\\-"));
    if (escaped.startsWith(QLatin1Char('.')) || escaped.startsWith(QLatin1Char('\'')))
        escaped.prepend(QStringLiteral("\\&"));
    return escaped;
}

QString commandLineManPage(const QString &version)
{
    const CommandLineReference &reference = commandLineReference();
    QString roff = QStringLiteral(".TH ORVANEHUB 1 \"\" \"orvanehub %1\" \"User Commands\"\n").arg(version);
    roff += QStringLiteral(".SH NAME\norvanehub \\- ") + roffEscaped(reference.summary) + QLatin1Char('\n');
    roff += QStringLiteral(".SH SYNOPSIS\n.B orvanehub\n[\\fIoptions\\fR]\n");
    roff += QStringLiteral(".SH DESCRIPTION\n") + roffEscaped(reference.description) + QLatin1Char('\n');
    roff += QStringLiteral(".SH OPTIONS\n");
    for (const CommandLineSection &section : reference.sections) {
        roff += QStringLiteral(".SS \"") + roffEscaped(section.title) + QStringLiteral("\"\n");
        for (const CommandLineOptionInfo &option : section.options)
            roff += QStringLiteral(".TP\n") + optionHeading(option) + QLatin1Char('\n') +
                    roffEscaped(option.description) + QLatin1Char('\n');
        if (!section.note.isEmpty())
            roff += QStringLiteral(".PP\n") + roffEscaped(section.note) + QLatin1Char('\n');
    }
    roff += QStringLiteral(".SH ENVIRONMENT\n") + termList(reference.environment);
    roff += QStringLiteral(".SH FILES\n") + termList(reference.files);
    roff += QStringLiteral(".SH \"EXIT STATUS\"\n") + termList(reference.exitStatuses);
    roff += QStringLiteral(".SH \"SEE ALSO\"\n.BR orvane\\-devices (1),\n.BR orvane\\-sim (1),\n"
                           ".BR systemd.exec (5)\n");
    return roff;
}

} // namespace tavrix
