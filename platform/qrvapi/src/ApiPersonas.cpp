#include "qrvapi/personas.h"

#include "Call.h"
#include "Simulator.h"
#include "Text.h"

using namespace qrvapi;

namespace {

using PersonaRecords = NestedRecords<api_hostpersonaentry_t, host_os_entry_t>;

std::vector<const Persona*> personasOf(const Model& model, bool supportedOnly) {
    std::vector<const Persona*> personas;
    for (const auto& [number, persona] : model.personas()) {
        if (persona.supported || !supportedOnly) personas.push_back(&persona);
    }
    return personas;
}

void addSystem(PersonaRecords& records, const Persona& persona, const std::string& name) {
    auto& record = records.addInner();
    copyText(record.hos_name, name);
    record.hos_persona = static_cast<int>(persona.number);
    record.hos_valid = 1;
}

void addPersona(PersonaRecords& records, const Persona& persona) {
    auto& record = records.addOuter();
    record.hpe.hpe_num = static_cast<int>(persona.number);
    copyText(record.hpe.hpe_name, persona.name);
    record.hpe.hpe_valid = persona.supported ? 1 : 0;
    record.hpe.hpe_capabilities = persona.capabilities;
    record.oscount = static_cast<unsigned>(persona.operatingSystems.size());
    record.hos = records.innerPlace();
    for (const auto& name : persona.operatingSystems) addSystem(records, persona, name);
}

api_hostpersonalist_t readPersonas(const Model& model, bool supportedOnly) {
    const auto personas = personasOf(model, supportedOnly);
    if (personas.empty()) return {};
    std::size_t systems = 0;
    for (const auto* persona : personas) systems += persona->operatingSystems.size();
    PersonaRecords records(personas.size(), systems);
    for (const auto* persona : personas) addPersona(records, *persona);
    return {records.count(), records.handOut()};
}

}  // namespace

api_Status_t api_getHostPersonaList(api_hostpersonalist_t* list, qrv_u8 exp_filter) {
    const auto describeArguments = [&](Arguments& arguments) {
        arguments.number("exp_filter", exp_filter);
    };
    return statusCall(Function::api_getHostPersonaList, describeArguments, [&] {
        if (list == nullptr) throw Refusal(ERR_API_INVALID_ARGUMENT, {"list"});
        *list = Simulator::instance().read(
            [&](const Model& model) { return readPersonas(model, exp_filter != 0); });
    });
}

void api_freeHostPersonas(api_hostpersonalist_t* list) {
    plainCall(Function::api_freeHostPersonas, noArguments, [&] {
        if (list == nullptr) return;
        list->count = 0;
        giveBackList(Function::api_freeHostPersonas, list->hpes);
    });
}
