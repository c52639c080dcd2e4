#include "broker/LoadingTurns.h"

#include <Pegasus/Common/Exception.h>

#include <tuple>

namespace cimserver {

using Pegasus::CIM_ERR_FAILED;
using Pegasus::CIMException;

namespace {

[[noreturn]] void refuseEndlessWait(const ProviderId& id) {
    const std::string message = "provider \"" + id.provider + "\" is still being initialized";
    throw CIMException(CIM_ERR_FAILED, message.c_str());
}

}  // namespace

bool ProviderOrder::operator()(const ProviderId& a, const ProviderId& b) const {
    return std::tie(a.module, a.provider) < std::tie(b.module, b.provider);
}

LoadingTurns::Turn::Turn(LoadingTurns& turns, const ProviderId& id) : _turns(turns), _id(id) {
    const auto self = std::this_thread::get_id();
    std::unique_lock lock(turns._mutex);
    while (turns._holders.count(id) != 0) {
        if (turns.waitsForThisThread(id)) refuseEndlessWait(id);
        turns._waiters.insert_or_assign(self, id);
        turns._freed.wait(lock);
        turns._waiters.erase(self);
    }
    turns._holders.emplace(id, self);
}

LoadingTurns::Turn::~Turn() {
    const std::lock_guard lock(_turns._mutex);
    _turns._holders.erase(_id);
    _turns._freed.notify_all();
}

bool LoadingTurns::waitsForThisThread(const ProviderId& id) const {
    auto holder = _holders.find(id);
    while (holder != _holders.end()) {
        if (holder->second == std::this_thread::get_id()) return true;
        const auto waiter = _waiters.find(holder->second);
        if (waiter == _waiters.end()) return false;
        holder = _holders.find(waiter->second);
    }
    return false;
}

}  // namespace cimserver
