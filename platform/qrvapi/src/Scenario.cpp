#include "Scenario.h"

#include <arpa/inet.h>

#include <cstdio>
#include <vector>

#include "Password.h"
#include "ScenarioFields.h"
#include "qrvapi_control.h"

namespace qrvapi {
namespace {

constexpr std::pair<std::string_view, Rights> rightsWords[] = {
    {"all", Rights::all}, {"read", Rights::read}, {"none", Rights::none}};

std::string readIpv6(const JsonValue& value) {
    auto text = value.text(INET6_ADDRSTRLEN - 1);
    in6_addr address{};
    if (inet_pton(AF_INET6, text.c_str(), &address) != 1) value.fail("must be an IPv6 address");
    return text;
}

/// The address of a port, under the name that goes with its type.
void readPortAddress(const JsonValue& value, Port& port) {
    const auto allowed = [&](std::string_view name, port_type_t type) {
        auto member = value.optionalMember(name);
        if (member && port.type != type) member->fail("is for another type of port");
        return member;
    };
    if (const auto wwn = allowed("wwn", PORT_TYPE_FC)) port.address = readWwn(*wwn);
    if (const auto sas = allowed("sasAddress", PORT_TYPE_SAS)) port.address = readWwn(*sas);
    if (const auto name = allowed("iscsiName", PORT_TYPE_ISCSI)) {
        port.iscsiName = readIscsiName(*name);
    }
    if (port.type == PORT_TYPE_FC && port.address == 0) value.fail("an FC port needs a \"wwn\"");
}

void readPort(const JsonValue& value, Model& model) {
    value.allowMembers({"id", "type", "wwn", "iscsiName", "sasAddress"});
    Port port{readPortId(value.member("id")), choice(value.member("type"), portTypes), 0, {}};
    readPortAddress(value, port);
    value.attempt([&] { model.addPort(port); });
}

void readPersona(const JsonValue& value, Model& model) {
    value.allowMembers({"number", "name", "capabilities", "supported", "operatingSystems"});
    Persona persona;
    persona.number = static_cast<unsigned>(value.member("number").number(1, lastId));
    persona.name = value.member("name").nonEmptyText(nameLength);
    persona.capabilities = static_cast<qrv_u32>(optionalNumber(value, "capabilities", 0xFFFFFFFF));
    persona.supported = optionalFlag(value, "supported", true);
    forEachMember(value, "operatingSystems", [&](const auto& system) {
        persona.operatingSystems.push_back(system.nonEmptyText(nameLength));
    });
    value.attempt([&] { model.addPersona(std::move(persona)); });
}

void readDomainSet(const JsonValue& value, Model& model) {
    value.allowMembers({"name", "id", "comment", "members"});
    DomainSet set;
    set.name = value.member("name").nonEmptyText(nameLength);
    set.comment = optionalText(value, "comment", noteLength);
    set.members = readNames(value, "members");
    std::optional<qrv_u32> id;
    if (const auto number = value.optionalMember("id")) {
        id = static_cast<qrv_u32>(number->number(0, 0xFFFFFFFF));
    }
    value.attempt([&] { model.addDomainSet(std::move(set), id); });
}

void readDomains(const JsonValue& scenario, Model& model) {
    forEachMember(scenario, "domains", [&](const auto& domain) {
        domain.attempt([&] { model.addDomain(domain.nonEmptyText(nameLength)); });
    });
    forEachMember(scenario, "domainSets", [&](const auto& set) { readDomainSet(set, model); });
}

void readHosts(const JsonValue& scenario, Model& model) {
    forEachMember(scenario, "hosts", [&](const auto& host) { readHost(host, model); });
    forEachMember(scenario, "unassignedPaths",
                  [&](const auto& path) { readPath(path, "", model); });
    forEachMember(scenario, "hostSets", [&](const auto& set) {
        const auto definition = readSet(set, nameLength);
        set.attempt([&] { model.addHostSet(definition.name, definition.members); });
    });
}

void readVolumes(const JsonValue& scenario, Model& model) {
    forEachMember(scenario, "volumes", [&](const auto& volume) { readVolume(volume, model); });
    forEachMember(scenario, "volumeSets", [&](const auto& set) {
        const auto definition = readSet(set, volumeSetNameLength);
        set.attempt([&] { model.volumes().addSet(definition.name, definition.members); });
    });
    forEachMember(scenario, "vluns", [&](const auto& vlun) { readVlun(vlun, model); });
}

void readEverything(const JsonValue& scenario, Model& model) {
    scenario.allowMembers({"system", "serverUser", "users", "ports", "personas", "domains",
                           "domainSets", "hosts", "unassignedPaths", "hostSets", "volumes",
                           "volumeSets", "vluns"});
    readSystem(scenario.member("system"), model);
    model.setServerUser(optionalText(scenario, "serverUser", noteLength));
    forEachMember(scenario, "users", [&](const auto& user) { readUser(user, model); });
    forEachMember(scenario, "ports", [&](const auto& port) { readPort(port, model); });
    forEachMember(scenario, "personas", [&](const auto& entry) { readPersona(entry, model); });
    readDomains(scenario, model);
    readHosts(scenario, model);
    readVolumes(scenario, model);
}

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

std::string fileContent(const std::string& path) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    std::string content;
    char part[16384];
    std::size_t length = 0;
    while (file && (length = std::fread(part, 1, sizeof part, file.get())) > 0) {
        content.append(part, length);
    }
    if (!file || std::ferror(file.get())) {
        throw control::ScenarioError(path + ": cannot be read");
    }
    return content;
}

std::string readPassword(const JsonValue& value) {
    auto password = value.text(256);
    if (isHash(password) && !isUsableHash(password)) {
        value.fail("begins with \"$\", but is not a whole crypt(5) hash of a safe method");
    }
    return password;
}

}  // namespace

void readSystem(const JsonValue& value, Model& model) {
    value.allowMembers({"name", "hostName", "ipv4Address", "ipv6Address", "id", "type", "serial",
                        "model", "contact", "owner", "nodes", "quadPort", "unitRecords"});
    api_SystemFacts_t facts{};
    copyText(facts.name, value.member("name").nonEmptyText(nameLength));
    copyText(facts.hostName, value.member("hostName").nonEmptyText(sizeof facts.hostName - 1));
    copyText(facts.ipv4Address, ipv4Text(readIpv4(value.member("ipv4Address"))));
    if (const auto ipv6 = value.optionalMember("ipv6Address")) {
        copyText(facts.ipv6Address, readIpv6(*ipv6));
    }
    facts.id = static_cast<qrv_u32>(value.member("id").number(0, 0xFFFFFFFF));
    facts.type = static_cast<int>(value.member("type").number(0, 0x7FFFFFFF));
    copyText(facts.serial, value.member("serial").nonEmptyText(sizeof facts.serial - 1));
    fillText(facts.model, value, "model");
    fillText(facts.contact, value, "contact");
    fillText(facts.owner, value, "owner");
    facts.nodeCount = static_cast<unsigned>(value.member("nodes").number(1, 16));
    facts.isQuadPort = optionalFlag(value, "quadPort", false) ? 1 : 0;
    facts.hasUnitRecords = optionalFlag(value, "unitRecords", false) ? 1 : 0;
    model.setFacts(facts);
}

void readUser(const JsonValue& value, Model& model) {
    value.allowMembers({"name", "password", "rights"});
    User user{value.member("name").nonEmptyText(nameLength), readPassword(value.member("password")),
              choice(value.member("rights"), rightsWords)};
    value.attempt([&] { model.addUser(std::move(user)); });
}

std::unique_ptr<Model> readScenario(std::string_view text, const std::string& source) {
    auto model = std::make_unique<Model>();
    const auto document = parseJson(text, source);
    readEverything(JsonValue(document, source), *model);
    return model;
}

std::unique_ptr<Model> readScenarioFile(const std::string& path) {
    return readScenario(fileContent(path), path);
}

}  // namespace qrvapi
