#include "themeswitcher.h"

#include "shellsettings.h"

#include <QMessageBox>
#include <QPushButton>

namespace tavrix {

ThemeSwitcher::ThemeSwitcher(const QString &activeTheme, QObject *parent)
    : QObject(parent)
    , m_activeTheme(hub::ShellSettings::normalizedTheme(activeTheme))
{}

void ThemeSwitcher::setTransmissionProbe(std::function<bool()> isTransmitting)
{
    m_isTransmitting = std::move(isTransmitting);
}

QString ThemeSwitcher::offeredTheme() const
{
    return hub::ShellSettings::theme() == hub::ShellSettings::darkTheme() ? hub::ShellSettings::lightTheme()
                                                                          : hub::ShellSettings::darkTheme();
}

QString ThemeSwitcher::questionText()
{
    return tr("The HUB restarts to change its colours.");
}

QString ThemeSwitcher::runningText()
{
    return tr("Transmission is running and will stop.");
}

QString ThemeSwitcher::nextStartText(const QString &theme)
{
    return theme == hub::ShellSettings::darkTheme() ? tr("Dark mode from the next start")
                                                    : tr("Light mode from the next start");
}

QMessageBox *ThemeSwitcher::createQuestion(QWidget *parent) const
{
    auto *box = new QMessageBox(parent);
    box->setIconPixmap(QPixmap(QStringLiteral(":/images/orvanelabs-logo.png"))
                           .scaled(48, 48, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    box->setWindowTitle(offeredTheme() == hub::ShellSettings::darkTheme() ? tr("Dark mode")
                                                                          : tr("Light mode"));
    box->setText(questionText());
    if (m_isTransmitting && m_isTransmitting())
        box->setInformativeText(runningText());
    QPushButton *restart = box->addButton(tr("Restart now"), QMessageBox::AcceptRole);
    box->addButton(tr("Next time"), QMessageBox::RejectRole);
    box->setDefaultButton(restart);
    return box;
}

void ThemeSwitcher::ask(QWidget *parent)
{
    QMessageBox *box = createQuestion(parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    connect(box, &QMessageBox::buttonClicked, this, [this, box](QAbstractButton *button) {
        answer(box->buttonRole(button) == QMessageBox::AcceptRole ? Answer::RestartNow : Answer::NextTime);
    });
    box->open();
}

void ThemeSwitcher::answer(Answer answer)
{
    const QString theme = offeredTheme();
    hub::ShellSettings::setTheme(theme);
    if (answer == Answer::RestartNow)
        emit restartRequested();
    else
        emit choiceStored(nextStartText(theme));
}

} // namespace tavrix
