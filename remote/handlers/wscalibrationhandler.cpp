#include "wscalibrationhandler.h"

#include "tavrixcontroller.h"

namespace tavrix {

namespace {

using Calibration = ReceiverEndpointCalibration;

// The six recorded values under the app's keys, shared by the status and the push.
QJsonObject resultObject(const Calibration::Results &results)
{
    QJsonObject object;
    for (int index = 0; index < Calibration::kStepCount; ++index)
        object.insert(Calibration::resultKey(Calibration::Step(int(Calibration::Step::ThrottleMax) + index)),
                      results[index]);
    return object;
}

} // namespace

WsCalibrationHandler::WsCalibrationHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in calibration handler"), parent)
{
    addRequests<WsCalibrationHandler>({
        {"action_start_calibration", &WsCalibrationHandler::startCalibration},
        {"action_calibration_step", &WsCalibrationHandler::calibrationStep},
        {"action_cancel_calibration", &WsCalibrationHandler::cancelCalibration},
        {"get_calibration_status", &WsCalibrationHandler::status},
    });
    connect(calibration(), &Calibration::progress, this, &WsCalibrationHandler::pushProgress);
}

Calibration *WsCalibrationHandler::calibration() const
{
    return controller()->receiverCalibration();
}

QJsonObject WsCalibrationHandler::startCalibration(const RemoteRequest &request)
{
    const Calibration::Refusal refusal = calibration()->start();
    if (refusal != Calibration::Refusal::None)
        return request.failed(Calibration::refusalText(refusal));
    return request.succeeded(
        {{QStringLiteral("message"), QStringLiteral("Calibration started. Send action_calibration_step with "
                                                    "action='start' to begin throttle max measurement.")}});
}

QJsonObject WsCalibrationHandler::calibrationStep(const RemoteRequest &request)
{
    const std::optional<Calibration::Action> action =
        Calibration::actionNamed(request.text(QLatin1String("action")));
    if (!action)
        return request.failed(Calibration::refusalText(Calibration::Refusal::InvalidAction));
    const Calibration::Refusal refusal = calibration()->step(*action);
    if (refusal != Calibration::Refusal::None)
        return request.failed(Calibration::refusalText(refusal));
    const QString message = Calibration::acceptedText(*action);
    return message.isEmpty() ? request.succeeded()
                             : request.succeeded({{QStringLiteral("message"), message}});
}

QJsonObject WsCalibrationHandler::cancelCalibration(const RemoteRequest &request)
{
    calibration()->cancel();
    return request.succeeded();
}

QJsonObject WsCalibrationHandler::status(const RemoteRequest &request)
{
    const Calibration *state = calibration();
    return request.answer({
        {QStringLiteral("step"), Calibration::stepName(state->step())},
        {QStringLiteral("isCalibrating"), state->isCalibrating()},
        {QStringLiteral("countdown"), state->countdown()},
        {QStringLiteral("ch1Us"), state->steering().us},
        {QStringLiteral("ch1Crsf"), state->steering().crsf},
        {QStringLiteral("ch2Us"), state->throttle().us},
        {QStringLiteral("ch2Crsf"), state->throttle().crsf},
        {QStringLiteral("result"), resultObject(state->results())},
    });
}

void WsCalibrationHandler::pushProgress(const Calibration::Progress &progress)
{
    push(QStringLiteral("event_calibration_progress"),
         {
             {QStringLiteral("step"), Calibration::stepName(progress.step)},
             {QStringLiteral("state"), Calibration::stateName(progress.state)},
             {QStringLiteral("countdown"), progress.countdown},
             {QStringLiteral("channelUs"), progress.channel.us},
             {QStringLiteral("channelCrsf"), progress.channel.crsf},
             {QStringLiteral("message"), progress.message},
             {QStringLiteral("recordedValue"), progress.recordedValue},
             {QStringLiteral("result"), resultObject(progress.results)},
         });
}

} // namespace tavrix
