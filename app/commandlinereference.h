#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tavrix {

// orvanehub's command line as one table: the parser registers exactly these options, and
// `--help` and the manual page are both written from them, so neither can miss an option the
// program takes or describe one it does not.
struct CommandLineOptionInfo
{
    // As QCommandLineOption takes them ("h", "help", "?"); one-letter names are short options.
    QStringList names;
    // What follows the option as people read it ("<port>", "2|3|5"); empty for a switch.
    QString value;
    // Plain text, one paragraph; whoever prints it wraps it.
    QString description;

    [[nodiscard]] bool takesValue() const { return !value.isEmpty(); }
    // The long name ("help"), the one the parser is asked about.
    [[nodiscard]] QString longName() const;
};

// A group of options as help shows them, with a paragraph after them (may be empty).
struct CommandLineSection
{
    QString title;
    QList<CommandLineOptionInfo> options;
    QString note;
};

// A name and what it means: environment variables, files, exit statuses.
struct CommandLineTerm
{
    QString name;
    QString description;

    friend bool operator==(const CommandLineTerm &, const CommandLineTerm &) = default;
};

struct CommandLineReference
{
    // One sentence: what the program is.
    QString summary;
    // What it does without options, for the top of help and the manual.
    QString description;
    QList<CommandLineSection> sections;
    QList<CommandLineTerm> environment;
    QList<CommandLineTerm> files;
    QList<CommandLineTerm> exitStatuses;

    // Every option of every section, in order.
    [[nodiscard]] QList<CommandLineOptionInfo> allOptions() const;
};

[[nodiscard]] const CommandLineReference &commandLineReference();

// How help and the manual write an option's names: "-h, --help", "--baud".
[[nodiscard]] QString dashedNames(const CommandLineOptionInfo &option);

} // namespace tavrix
