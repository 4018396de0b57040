#include "controllerrefusal.h"

#include "tavrixcontroller.h"

namespace tavrix {

QString controllerRefusal(TavrixController *controller, const std::function<void()> &operation)
{
    QString refusal;
    QObject listener;
    QObject::connect(controller, &TavrixController::errorOccurred, &listener,
                     [&refusal](const QString &error) { refusal = error; });
    operation();
    return refusal;
}

} // namespace tavrix
