#include "driverecordingfeed.h"

#include "driverecorder.h"
#include "tavrixcontroller.h"

namespace tavrix {

DriveRecordingFeed::DriveRecordingFeed(TavrixController *controller, DriveRecorder *recorder, QObject *parent)
    : QObject(parent)
{
    connect(controller, &TavrixController::frameSent, recorder, [controller, recorder](quint32 frame) {
        if (recorder->isRecording())
            recorder->record(sampleOf(*controller, frame));
    });
}

DriveSample DriveRecordingFeed::sampleOf(const TavrixController &controller, quint32 frame)
{
    DriveSample sample;
    sample.frame = frame;
    sample.steering = controller.steering();
    sample.throttle = controller.throttle();
    sample.brake = controller.brake();
    // What went out, overrides included.
    sample.channels = controller.sentChannels();
    const TelemetryMonitor *telemetry = controller.telemetry();
    const LinkStatistics link = telemetry->linkStatistics();
    sample.linkQuality = link.linkQuality;
    sample.rssiDbm = link.uplinkRssi1;
    sample.snr = link.snr;
    const std::array<float, 3> motion = telemetry->carMotion();
    sample.lonG = motion[0];
    sample.latG = motion[1];
    sample.vertG = motion[2];
    const BatterySensor battery = telemetry->battery();
    sample.batteryVolts = battery.present ? battery.voltage : 0.0f;
    return sample;
}

} // namespace tavrix
