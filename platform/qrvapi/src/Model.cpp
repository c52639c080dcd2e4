#include "Model.h"

#include <algorithm>
#include <limits>

#include "Errors.h"

namespace qrvapi {

Model::Model() {
    unassigned_.order = std::numeric_limits<std::uint64_t>::max();
}

void Model::addUser(User user) {
    const auto name = user.name;
    if (!users_.emplace(name, std::move(user)).second) throw Refusal(ERR_QRV_USER_EXISTS, {name});
}

void Model::addPort(const Port& port) {
    if (!ports_.emplace(port.id, port).second) {
        throw Refusal(ERR_QRV_PORT_EXISTS, {portIdText(port.id)});
    }
}

void Model::addPersona(Persona persona) {
    const auto number = persona.number;
    if (!personas_.emplace(number, std::move(persona)).second) {
        throw Refusal(ERR_QRV_PERSONA_EXISTS, {std::to_string(number)});
    }
}

void Model::addDomain(const std::string& name) {
    if (!domains_.insert(name).second) throw Refusal(ERR_QRV_DOMAIN_EXISTS, {name});
}

void Model::addDomainSet(DomainSet set, std::optional<qrv_u32> id) {
    for (const auto& member : set.members) requireDomain(member);
    for (const auto& [otherId, other] : domainSets_) {
        if (other.name == set.name) throw Refusal(ERR_QRV_SET_EXISTS, {set.name});
    }
    set.id = id.value_or(domainSets_.empty() ? 0 : domainSets_.rbegin()->first + 1);
    if (!domainSets_.emplace(set.id, set).second) {
        throw Refusal(ERR_QRV_SET_EXISTS, {std::to_string(set.id)});
    }
}

const User* Model::findUser(const std::string& name) const {
    const auto entry = users_.find(name);
    return entry == users_.end() ? nullptr : &entry->second;
}

void Model::requireDomain(const std::string& name) const {
    if (domains_.count(name) == 0) throw Refusal(ERR_QRV_DOMAIN_NOTFOUND, {name});
}

const Persona& Model::persona(unsigned number) const {
    const auto entry = personas_.find(number);
    if (entry == personas_.end()) {
        throw Refusal(ERR_QRV_PERSONA_NOTFOUND, {std::to_string(number)});
    }
    return entry->second;
}

const Port& Model::port(lpid_t id) const {
    const auto entry = ports_.find(id);
    if (entry == ports_.end()) throw Refusal(ERR_QRV_PORT_NOTFOUND, {portIdText(id)});
    return entry->second;
}

}  // namespace qrvapi
