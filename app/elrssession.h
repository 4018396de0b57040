#pragma once

#include "elrsfield.h"

#include <QList>
#include <QObject>
#include <QStringList>

class QTextStream;

namespace tavrix {

class TavrixController;

// `orvanehub --elrs-list` / `--elrs-set`: with the transmitter connected, enters
// configuration mode, walks the module's parameters, writes the selections asked for by
// name and walks again to show them, prints the parameters as a tree, leaves configuration
// mode and finishes: 0, or 1 with the reason on `err` when the walk or a write fails.
class ElrsSession : public QObject
{
    Q_OBJECT
public:
    // settings: "NAME=OPTION" each, the parameter by its name and the option by its label
    // (case does not matter for either).
    ElrsSession(TavrixController *controller, QStringList settings, QTextStream &out, QTextStream &err,
                QObject *parent = nullptr);

    // Starts; finished() follows.
    void begin();

signals:
    void finished(int exitCode);

private:
    void onWalkComplete();
    void fail(const QString &message);
    void finish(int exitCode);
    // Writes every setting; false (after fail()) at the first that cannot be written.
    bool writeSettings();
    // The option a person means by `typed` (case ignored), or -1.
    [[nodiscard]] static int optionIndex(const QList<elrs::Option> &options, const QString &typed);

    TavrixController *m_controller;
    QStringList m_settings;
    QTextStream &m_out;
    QTextStream &m_err;
    bool m_written = false;
    bool m_finished = false;
};

// The parameters as an indented tree under their folders: a selection as
// "Name: Current [Option | Option ...] units", other kinds as "Name: value".
void writeParameterTree(QTextStream &out, const QList<elrs::Parameter> &parameters);

} // namespace tavrix
