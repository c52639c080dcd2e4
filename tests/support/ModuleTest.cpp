#include "ModuleTest.h"

using namespace Pegasus;

namespace qrvtest {

namespace {

namespace control = qrvapi::control;

constexpr const char* SMALL_ARRAY = R"({
    "system": {"name": "array7", "hostName": "array7.example", "ipv4Address": "192.0.2.1",
               "id": 4711, "type": 3, "serial": "SN00042", "model": "S100", "nodes": 2},
    "users": [{"name": "admin", "password": "admin", "rights": "all"},
              {"name": "viewer", "password": "viewer", "rights": "read"},
              {"name": "stranger", "password": "stranger", "rights": "none"}],
    "ports": [{"id": "0:1:1", "type": "fc", "wwn": "2011000000000001"},
              {"id": "1:1:1", "type": "fc", "wwn": "2111000000000001"},
              {"id": "0:2:1", "type": "iscsi"},
              {"id": "0:3:1", "type": "sas"}],
    "personas": [{"number": 1, "name": "One"}, {"number": 2, "name": "Two"}],
    "domains": ["east"],
    "domainSets": [{"name": "coast", "id": 4294967295, "members": ["east"]}],
    "hosts": [
        {"name": "alpha", "id": 0, "persona": 1, "domain": "east", "paths": [
            {"wwn": "1000000000A1B201", "ports": ["0:1:1", "1:1:1"]},
            {"iscsiName": "iqn.2001-04.example:Alpha", "ipv4Address": "198.51.100.5",
             "ports": ["0:2:1"]}]},
        {"name": "beta", "id": 1, "persona": 2, "paths": [
            {"wwn": "0000000000000005"},
            {"sasAddress": "5000000000000001", "ports": ["0:3:1"]}]},
        {"name": "bare", "id": 2, "persona": 1, "paths": []}],
    "unassignedPaths": [{"iscsiName": "iqn.2001-04.example:free"}],
    "volumes": [{"name": "data", "wwn": "60000000000000000000000A00004711"}],
    "volumeSets": [{"name": "void"}]
})";

/// What is exported, in the order that the array tells it in.
constexpr const char* VLUNS[] = {
    R"("kind": "matchedSet", "host": "alpha", "port": "0:1:1", "volume": "data", "lun": 1)",
    R"("kind": "hostSees", "host": "alpha", "volume": "data", "lun": 2)",
    R"("kind": "matchedSet", "host": "alpha", "port": "0:2:1", "volume": "data", "lun": 3)",
    R"("kind": "portPresents", "port": "0:1:1", "volume": "data", "lun": 4)",
    R"("kind": "hostSees", "host": "beta", "volume": "data", "lun": 5)",
    R"("kind": "hostSees", "host": "beta", "volume": "data", "lun": 6,
       "initiator": {"iscsiName": "iqn.2001-04.example:free"})",
    R"("kind": "portPresents", "host": "alpha", "port": "0:2:1", "volume": "data", "lun": 7,
       "initiator": {"iscsiName": "iqn.2001-04.example:Alpha"})",
    R"("kind": "matchedSet", "host": "alpha", "port": "1:1:1", "template": true,
       "volumeSet": "void", "lun": 8)",
};

}  // namespace

ModuleTest::ModuleTest() {
    control::reset();
    reloadArray();
    control::setLogLevel(0);
    control::captureLog(3);
}

ModuleTest::~ModuleTest() {
    control::clearFaults();
    control::setLogLevel(2);
}

void ModuleTest::reloadArray() {
    control::loadScenarioText(SMALL_ARRAY);
}

void ModuleTest::exportVolumes() {
    for (const char* vlun : VLUNS) control::addVlun(std::string("{") + vlun + "}");
}

std::vector<std::string> ModuleTest::logged() {
    std::vector<std::string> lines;
    for (const control::LogLine& line : control::takeLogLines())
        lines.push_back(std::to_string(line.level) + " " + line.text);
    return lines;
}

std::vector<std::string> ModuleTest::getInstance(CIMInstanceProvider& provider,
                                                 const std::string& path,
                                                 const CIMPropertyList& list) {
    Recording recording;
    InstanceRecorder handler(recording);
    provider.getInstance(requestOf("admin"), pathOf(path), false, false, list, handler);
    return recording.events();
}

std::vector<std::string> ModuleTest::enumerateInstances(CIMInstanceProvider& provider,
                                                        const std::string& className,
                                                        const CIMPropertyList& list) {
    Recording recording;
    InstanceRecorder handler(recording);
    provider.enumerateInstances(requestOf("admin"), pathOf(className), false, false, list, handler);
    return recording.events();
}

std::vector<std::string> ModuleTest::enumerateInstanceNames(CIMInstanceProvider& provider,
                                                            const std::string& className) {
    Recording recording;
    PathRecorder handler(recording);
    provider.enumerateInstanceNames(requestOf("admin"), pathOf(className), handler);
    return recording.events();
}

std::vector<std::string> ModuleTest::answer(std::vector<std::string> delivered) {
    delivered.insert(delivered.begin(), "processing");
    delivered.push_back("complete");
    return delivered;
}

CIMObjectPath pathOf(const std::string& classAndKeys) {
    return CIMObjectPath(String(("//server.example/root/qrv:" + classAndKeys).c_str()));
}

CIMPropertyList properties(std::initializer_list<const char*> names) {
    Array<CIMName> list;
    for (const char* name : names) list.append(CIMName(name));
    return CIMPropertyList(list);
}

}  // namespace qrvtest
