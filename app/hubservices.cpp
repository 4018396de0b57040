#include "hubservices.h"

#include "devicechangenotifier.h"
#include "inputbackend.h"
#include "inputbackendfactory.h"
#include "lostdevicereopener.h"
#include "profilemanager.h"
#include "remotehandlers.h"
#include "tavrixcontroller.h"
#include "websocketserver.h"

#include <QDebug>

namespace tavrix {

HubServices::HubServices(Options options, QObject *parent)
    : QObject(parent)
    , m_inputBackend(std::move(options.inputBackend))
{
    if (!m_inputBackend) {
        m_inputBackend =
            options.inputSelection.isEmpty()
                ? createInputBackend(&m_inputProblem, options.nativeWindow)
                : createInputBackend(options.inputSelection, &m_inputProblem, options.nativeWindow);
        if (!m_inputProblem.isEmpty())
            qWarning().noquote() << "hub: game controllers:" << m_inputProblem;
    }

    m_profiles = options.dataDirectory.isEmpty() ? new ProfileManager(this)
                                                 : new ProfileManager(options.dataDirectory, this);
    m_profiles->loadProfiles();

    m_controller = new TavrixController(m_inputBackend.get(), m_profiles, std::move(options.ports),
                                        options.timings, this);
    m_deviceChanges = new DeviceChangeNotifier(m_inputBackend.get(), this);
    m_reopener = new LostDeviceReopener(m_controller, this);
    connect(m_deviceChanges, &DeviceChangeNotifier::devicesChanged, m_reopener, &LostDeviceReopener::reopen);

    m_remote = new WebSocketServer(m_controller, this);
    registerRemoteHandlers(*m_remote, m_controller);
    m_remote->setListenAddress(options.remoteAddress);
    if (options.remotePort != 0)
        m_remote->start(options.remotePort);
}

HubServices::~HubServices()
{
    // The controller stops transmission ("STOP\n") and releases the devices before the
    // profile store writes its files and the backend goes away; the backend's listeners
    // go first, and before them the remote clients, which reach the controller.
    delete m_remote;
    m_remote = nullptr;
    delete m_reopener;
    m_reopener = nullptr;
    delete m_deviceChanges;
    m_deviceChanges = nullptr;
    delete m_controller;
    m_controller = nullptr;
    delete m_profiles;
    m_profiles = nullptr;
}

} // namespace tavrix
