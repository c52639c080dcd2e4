#include <Pegasus/Common/CIMProperty.h>

#include "QRV_Common.h"
#include "QRV_PathMatcher.h"

namespace Pegasus {

namespace {

/// In a path an IPv6 address stands in brackets, which are no part of it.
String withoutBrackets(const String& host) {
    const bool bracketed = host[0] == '[' && host[host.size() - 1] == ']';
    return bracketed ? host.subString(1, host.size() - 2) : host;
}

bool isOwnIPv6(const String& host) {
    char canonical[46];
    return validateConvertIP(withoutBrackets(host).getCString(), canonical, sizeof canonical) ==
               API_IPV6_OK &&
           QRV_Common::getSystemIPAddr(2) == canonical;
}

/// An IPv4 address has to be written as the system writes it, an IPv6 address may be in any form.
bool isThisSystem(const String& host, const String& systemAddress) {
    return host.size() == 0 || String::equalNoCase(host, systemAddress) ||
           host == QRV_Common::getSystemIPAddr(1) || isOwnIPv6(host);
}

template <class Element, class Equal>
bool anyOf(const Array<Element>& array, Equal equal) {
    for (Uint32 i = 0; i < array.size(); ++i)
        if (equal(array[i])) return true;
    return false;
}

}  // namespace

Boolean QRV_Common::matchObjectPath(const CIMObjectPath& path1, const CIMObjectPath& path2) {
    return PathMatcher(path1).matches(path2);
}

Boolean QRV_Common::verifyRefMethodParam(CIMObjectPath& ref, CIMNamespaceName nameSpace,
                                         String& systemAddress) {
    if (ref.getNameSpace().isNull()) ref.setNameSpace(nameSpace);
    if (!ref.getNameSpace().equal(nameSpace)) {
        log_message(2, "The ref param %s contains the wrong name space %s\n",
                    static_cast<const char*>(ref.toString().getCString()),
                    static_cast<const char*>(ref.getNameSpace().getString().getCString()));
        return false;
    }
    if (isThisSystem(ref.getHost(), systemAddress)) return true;
    log_message(2, "The ref host [%s] does not match for this host!\n",
                static_cast<const char*>(ref.getHost().getCString()));
    return false;
}

Boolean QRV_Common::verifyRefMethodParam(CIMObjectPath& ref, CIMNamespaceName nameSpace,
                                         String& systemAddress, CIMName expectedClass) {
    return verifyRefMethodParam(ref, nameSpace, systemAddress) &&
           ref.getClassName().equal(expectedClass);
}

Boolean QRV_Common::verifyRefMethodParam(CIMObjectPath& ref, CIMNamespaceName nameSpace,
                                         String& systemAddress, Array<CIMName>& expectedClasses) {
    return verifyRefMethodParam(ref, nameSpace, systemAddress) &&
           isPartOfArray(ref.getClassName(), expectedClasses);
}

Boolean QRV_Common::isPoolPath(const CIMObjectPath& objectName, const String& instanceID) {
    return anyOf(objectName.getKeyBindings(), [&](const CIMKeyBinding& key) {
        return String::equalNoCase(key.getValue(), instanceID);
    });
}

bool QRV_Common::isPartOfArray(const String& element, const Array<String>& array) {
    return anyOf(array, [&](const String& each) { return each == element; });
}

bool QRV_Common::isPartOfArray(const CIMObjectPath& element, const Array<CIMObjectPath>& array) {
    const PathMatcher wanted(element);
    return anyOf(array, [&](const CIMObjectPath& each) { return wanted.matches(each); });
}

bool QRV_Common::isPartOfArray(const CIMObjectPath& element, const Array<CIMInstance>& array) {
    const PathMatcher wanted(element);
    return anyOf(array, [&](const CIMInstance& each) { return wanted.matches(each.getPath()); });
}

bool QRV_Common::isPartOfArray(const CIMName& element, const Array<CIMName>& array) {
    return anyOf(array, [&](const CIMName& each) { return each.equal(element); });
}

}  // namespace Pegasus
