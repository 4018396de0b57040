#pragma once

#include "buttonmapping.h"
#include "wstablehandler.h"

#include <functional>

namespace tavrix {

class ButtonMappingBook;

// The button mappings of the active profile: listed, replaced, added to, removed from and
// cleared by the mobile app. The rules and their refusals are the mapping book's, as in the
// window's dialog; every change is written to the profile, which the controller follows,
// so a running transmission uses it on its next tick.
class WsButtonHandler : public WsTableHandler
{
    Q_OBJECT

public:
    WsButtonHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject mappings(const RemoteRequest &request);
    QJsonObject setMappings(const RemoteRequest &request);
    QJsonObject addMapping(const RemoteRequest &request);
    QJsonObject removeMapping(const RemoteRequest &request);
    QJsonObject clearMappings(const RemoteRequest &request);

    // Runs one change of the book and answers with its refusal, or with a failed write.
    QJsonObject changed(const RemoteRequest &request, const std::function<bool()> &change);

    ButtonMappingBook *m_book;
};

} // namespace tavrix
