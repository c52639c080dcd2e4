#include "model/LocalServer.h"

#include <atomic>

namespace cimserver {
namespace {

std::atomic<LocalServer*> current{nullptr};

}  // namespace

void setLocalServer(LocalServer* server) {
    current.store(server, std::memory_order_release);
}

LocalServer* localServer() {
    return current.load(std::memory_order_acquire);
}

}  // namespace cimserver
