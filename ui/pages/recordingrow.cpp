#include "recordingrow.h"

#include "tone.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrix {

RecordingRow::RecordingRow(QWidget *parent)
    : QWidget(parent)
    , m_record(new QPushButton(this))
    , m_openFolder(new QPushButton(tr("Open folder"), this))
    , m_status(new QLabel(this))
{
    m_record->setCheckable(true);
    m_status->setObjectName(QStringLiteral("mutedText"));
    m_status->setWordWrap(true);
    m_status->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(m_record);
    buttons->addWidget(m_openFolder);
    buttons->addStretch(1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addLayout(buttons);
    column->addWidget(m_status);

    connect(m_record, &QPushButton::clicked, this, [this](bool checked) {
        // The switch follows the recorder, not the click: a refused start leaves it off.
        m_record->setChecked(!checked);
        emit recordRequested(checked);
    });
    connect(m_openFolder, &QPushButton::clicked, this, &RecordingRow::openFolderRequested);
    setRecording(false);
    showStatus(tr("Records the drive to a CSV file: time, controls, the 16 channels and telemetry."));
}

QString RecordingRow::statusText() const
{
    return m_status->text();
}

void RecordingRow::setRecording(bool recording)
{
    m_record->setChecked(recording);
    m_record->setText(recording ? tr("Stop recording") : tr("Record"));
    hub::setStyleProperty(m_record, "variant", recording ? QStringLiteral("danger") : QString());
}

void RecordingRow::showStatus(const QString &text, bool problem)
{
    m_status->setText(text);
    hub::setStyleProperty(m_status, "tone", problem ? hub::toneName(hub::Tone::Danger) : QString());
}

} // namespace tavrix
