#pragma once

#include "csvrowformat.h"

#include <QObject>

namespace tavrix {

class DriveRecorder;
class TavrixController;

// Hands every frame the controller sends to the drive recorder, with the controls it was
// computed from and what the car had reported last. Runs inside the tick, so it only reads
// values the controller already holds.
class DriveRecordingFeed : public QObject
{
    Q_OBJECT
public:
    // Neither is owned; both must outlive the feed.
    DriveRecordingFeed(TavrixController *controller, DriveRecorder *recorder, QObject *parent = nullptr);

    // The row for the frame just sent.
    [[nodiscard]] static DriveSample sampleOf(const TavrixController &controller, quint32 frame);
};

} // namespace tavrix
