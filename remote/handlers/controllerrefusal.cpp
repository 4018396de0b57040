#include "controllerrefusal.h"

#include "tavrixcontroller.h"

namespace tavrix {

QString refusalOf(TavrixController *controller, const std::function<void()> &action)
{
    QString refusal;
    QObject listening;
    QObject::connect(controller, &TavrixController::errorOccurred, &listening,
                     [&refusal](const QString &error) {
                         if (refusal.isEmpty())
                             refusal = error;
                     });
    action();
    return refusal;
}

} // namespace tavrix
