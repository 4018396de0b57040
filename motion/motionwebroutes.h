#pragma once

#include "httprequest.h"

namespace tavrix {

class MotionSystemController;

// What the motion web panel answers to each request: the page, the status and settings as
// JSON, and the actions (test, move, home, settings), each checked here before it reaches
// the controller, which clamps every value it sends to the board.
class MotionWebRoutes
{
public:
    // The controller is not owned and must outlive the routes.
    MotionWebRoutes(MotionSystemController &controller, QByteArray page);

    [[nodiscard]] http::Reply handle(const http::Request &request);

private:
    using Handler = http::Reply (MotionWebRoutes::*)(const http::Request &);
    struct Route
    {
        const char *method;
        const char *path;
        Handler handler;
    };

    http::Reply page(const http::Request &request);
    http::Reply status(const http::Request &request);
    http::Reply settings(const http::Request &request);
    http::Reply saveSettings(const http::Request &request);
    http::Reply startTest(const http::Request &request);
    http::Reply move(const http::Request &request);
    http::Reply home(const http::Request &request);

    MotionSystemController &m_controller;
    QByteArray m_page;
};

} // namespace tavrix
