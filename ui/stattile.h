#pragma once

#include "tone.h"

#include <QFrame>

class QLabel;

namespace hub {

// One figure with its caption, e.g. "Link quality 98 %". Shows a dash while it has no value.
class StatTile : public QFrame
{
    Q_OBJECT
public:
    explicit StatTile(const QString &caption, QWidget *parent = nullptr);

    void setCaption(const QString &caption);
    QString caption() const;

    void setValue(const QString &value, const QString &unit = {});
    void clear();
    QString value() const;
    QString unit() const;
    bool hasValue() const { return m_hasValue; }

    void setTone(Tone tone);

    static QString noValueText();

private:
    QLabel *m_caption = nullptr;
    QLabel *m_value = nullptr;
    QLabel *m_unit = nullptr;
    bool m_hasValue = false;
};

} // namespace hub
