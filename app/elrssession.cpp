#include "elrssession.h"

#include "elrsparametermanager.h"
#include "tavrixcontroller.h"

#include <QTextStream>

#include <algorithm>
#include <functional>

namespace tavrix {

namespace {

QString describe(const elrs::Parameter &parameter)
{
    if (parameter.type == elrs::Folder)
        return parameter.name + QLatin1Char('/');
    QString line = parameter.name + QStringLiteral(": ");
    if (parameter.type == elrs::TextSelection) {
        QStringList labels;
        QString current = QStringLiteral("?");
        for (const elrs::Option &option : parameter.options) {
            labels.append(option.label);
            if (parameter.value && option.index == *parameter.value)
                current = option.label;
        }
        line += QStringLiteral("%1 [%2]").arg(current, labels.join(QStringLiteral(" | ")));
    } else if (parameter.value) {
        line += QString::number(*parameter.value);
    }
    if (!parameter.units.isEmpty())
        line += QLatin1Char(' ') + parameter.units;
    return line;
}

} // namespace

void writeParameterTree(QTextStream &out, const QList<elrs::Parameter> &parameters)
{
    // Folders nest by parent id. A folder already being printed is not entered again, so a
    // module whose folders name each other cannot make this recurse without end.
    QList<uint8_t> printing;
    std::function<void(uint8_t, int)> writeFolder = [&](uint8_t folder, int depth) {
        printing.append(folder);
        for (const elrs::Parameter &parameter : parameters) {
            if (parameter.parent != folder || parameter.id == folder)
                continue;
            out << QString(depth * 2, QLatin1Char(' ')) << describe(parameter) << '\n';
            if (parameter.type == elrs::Folder && !printing.contains(parameter.id))
                writeFolder(parameter.id, depth + 1);
        }
    };
    writeFolder(0, 0);
}

ElrsSession::ElrsSession(TavrixController *controller, QStringList settings, QTextStream &out,
                         QTextStream &err, QObject *parent)
    : QObject(parent)
    , m_controller(controller)
    , m_settings(std::move(settings))
    , m_out(out)
    , m_err(err)
{
    ElrsParameterManager *parameters = controller->elrsParameters();
    connect(parameters, &ElrsParameterManager::discoveryComplete, this, &ElrsSession::onWalkComplete);
    connect(parameters, &ElrsParameterManager::discoveryAborted, this,
            [this] { fail(QStringLiteral("the parameter walk was aborted")); });
    connect(parameters, &ElrsParameterManager::error, this, &ElrsSession::fail);
}

void ElrsSession::begin()
{
    QString refusal;
    QObject listening;
    connect(m_controller, &TavrixController::errorOccurred, &listening,
            [&refusal](const QString &error) { refusal = error; });
    if (!m_controller->enterConfigMode()) {
        fail(refusal.isEmpty() ? QStringLiteral("cannot enter configuration mode") : refusal);
        return;
    }
    m_controller->elrsParameters()->startDiscovery();
}

void ElrsSession::onWalkComplete()
{
    if (m_finished)
        return;
    if (!m_written && !m_settings.isEmpty()) {
        m_written = true;
        if (writeSettings())
            m_controller->elrsParameters()->startDiscovery(); // show what the module now holds
        return;
    }
    writeParameterTree(m_out, m_controller->elrsParameters()->parameters());
    m_out.flush();
    finish(0);
}

int ElrsSession::optionIndex(const QList<elrs::Option> &options, const QString &typed)
{
    // Modules append details to a label ("500Hz(-105dBm)"); a person types what the label
    // names ("500hz"), so the part before the bracket matches too, after a whole label.
    const auto find = [&](const auto &labelOf) {
        for (const elrs::Option &option : options) {
            if (labelOf(option.label).compare(typed, Qt::CaseInsensitive) == 0)
                return option.index;
        }
        return -1;
    };
    const int whole = find([](const QString &label) { return label; });
    return whole >= 0
               ? whole
               : find([](const QString &label) { return label.section(QLatin1Char('('), 0, 0).trimmed(); });
}

bool ElrsSession::writeSettings()
{
    ElrsParameterManager *parameters = m_controller->elrsParameters();
    for (const QString &setting : std::as_const(m_settings)) {
        const qsizetype equals = setting.indexOf(QLatin1Char('='));
        const QString name = setting.left(equals).trimmed();
        const QString label = setting.mid(equals + 1).trimmed();
        // Names and labels as a person types them: case does not matter.
        const QList<elrs::Parameter> &all = parameters->parameters();
        const auto parameter = std::find_if(all.cbegin(), all.cend(), [&name](const elrs::Parameter &p) {
            return p.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (parameter == all.cend()) {
            fail(QStringLiteral("no ELRS parameter is called \"%1\"").arg(name));
            return false;
        }
        const int index = optionIndex(parameter->options, label);
        if (index < 0) {
            fail(QStringLiteral("\"%1\" has no option \"%2\"").arg(name, label));
            return false;
        }
        if (!parameters->setParameterByIndex(parameter->name, index))
            return false; // the manager said why
    }
    return true;
}

void ElrsSession::fail(const QString &message)
{
    if (m_finished)
        return;
    m_err << "orvanehub: " << message << '\n';
    m_err.flush();
    finish(1);
}

void ElrsSession::finish(int exitCode)
{
    m_finished = true;
    m_controller->exitConfigMode();
    emit finished(exitCode);
}

} // namespace tavrix
