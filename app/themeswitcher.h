#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QMessageBox;
class QWidget;

namespace tavrix {

// The sidebar's theme button: asks whether to restart now or use the other theme from the
// next start, stores the choice under "ui/theme" and reports what happens next. Colours
// change only with a new process, because the style sheet and palette are set at start-up.
class ThemeSwitcher : public QObject
{
    Q_OBJECT
public:
    enum class Answer
    {
        RestartNow,
        NextTime,
    };

    explicit ThemeSwitcher(const QString &activeTheme, QObject *parent = nullptr);

    // Tells whether transmission runs, so the question can warn that a restart stops it.
    void setTransmissionProbe(std::function<bool()> isTransmitting);

    QString activeTheme() const { return m_activeTheme; }
    // The theme the button offers: the other one than the stored choice.
    QString offeredTheme() const;

    // The question box with its texts and the two answers; the caller owns it.
    QMessageBox *createQuestion(QWidget *parent) const;
    // Opens the question window-modal and acts on the answer.
    void ask(QWidget *parent);
    // Stores the offered theme; "Next time" confirms it, "Restart now" asks for a restart.
    void answer(Answer answer);

    static QString questionText();
    static QString runningText();
    static QString nextStartText(const QString &theme);

signals:
    void restartRequested();
    // A short confirmation to show, e.g. "Dark mode from the next start".
    void choiceStored(const QString &message);

private:
    QString m_activeTheme;
    std::function<bool()> m_isTransmitting;
};

} // namespace tavrix
