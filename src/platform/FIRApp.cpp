#include "platform/FIRApp.h"

#include <QtGlobal>
#include <mutex>
#include <utility>

namespace pellumar {
namespace {

struct Configuration {
    std::mutex mutex;
    FIRApp::Services services;
};

Configuration& configuration() {
    static Configuration configuration;
    return configuration;
}

}  // namespace

void FIRApp::configure(const std::function<Services()>& start) {
    Services services = start();
    Configuration& current = configuration();
    const std::lock_guard lock(current.mutex);
    current.services = std::move(services);
}

FIRApp::Services FIRApp::services() {
    Configuration& current = configuration();
    const std::lock_guard lock(current.mutex);
    if (!current.services.analytics || !current.services.remoteConfig) {
        qFatal("A platform service was asked for before FIRApp::configure");
    }
    return current.services;
}

}  // namespace pellumar
