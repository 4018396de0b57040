#include "wshandler.h"

namespace tavrix {

WsHandler::WsHandler(TavrixController *controller, QObject *parent)
    : QObject(parent)
    , m_controller(controller)
{}

} // namespace tavrix
