// What calls of the methods that change hosts are made of, and the array as text.
#pragma once

#include <Pegasus/Common/CIMParamValue.h>

#include <string>
#include <utility>
#include <vector>

namespace qrvtest {

/// The parameters of a call, in order.
using Parameters = std::vector<std::pair<std::string, Pegasus::CIMValue>>;

Pegasus::Array<Pegasus::CIMParamValue> inParameters(const Parameters&);
Pegasus::CIMValue text(const std::string&);
Pegasus::CIMValue texts(const std::vector<std::string>&);
Pegasus::CIMValue number(Pegasus::Uint16);
Pegasus::CIMValue reference(const std::string& path);

/// Parameters as text, with blanks in between: "NAME=string", "NAME#uint16", "NAME@reference",
/// "NAME[string,string]" and, for a null string, "NAME!".
Parameters given(const std::string& parameters);

/// The one service, without host and namespace.
inline const std::string SERVICE =
    "QRV_StorageHardwareIDManagementService.CreationClassName="
    "\"QRV_StorageHardwareIDManagementService\","
    "Name=\"ORVELIS_StorageHardwareIDManagementService\","
    "SystemCreationClassName=\"QRV_StorageSystem\",SystemName=\"array7\"";

/// The service to which the rights of initiators belong, likewise.
inline const std::string PRIVILEGE_SERVICE =
    "QRV_PrivilegeManagementService.CreationClassName=\"QRV_PrivilegeManagementService\","
    "Name=\"ORVELIS:PrivilegeManagementService\","
    "SystemCreationClassName=\"QRV_StorageSystem\",SystemName=\"array7\"";

/// References without host and namespace, as text.
std::string collectionOf(const std::string& host);
std::string fcID(const std::string& wwn);
std::string iscsiID(const std::string& name);
std::string setting(const std::string& persona);

/// The array's hosts with persona and domain, then initiators of no host:
/// "alpha/1/east: WWN@0:1:1 iqn.a; beta/2:; -: WWN". What stands behind "@" is the port that sees
/// the initiator.
std::string hostsText();

/// Makes the array's hosts and initiators those of the text.
void setHosts(const std::string& hosts);

}  // namespace qrvtest
