#include <Pegasus/Common/CIMProperty.h>

#include "QRV_Common.h"
#include "QRV_InternalCacheService.h"
#include "QRV_Trace.h"

namespace Pegasus {

namespace {

/// How the trace names the type of a property.
template <class T>
constexpr const char* TYPE_TAG = nullptr;
template <>
constexpr const char* TYPE_TAG<CIMObjectPath> = "CIMObjectPath";
template <>
constexpr const char* TYPE_TAG<Array<String>> = "Array<String>";
template <>
constexpr const char* TYPE_TAG<Array<Sint32>> = "Array<Sint32>";
template <>
constexpr const char* TYPE_TAG<Array<Uint16>> = "Array<Uint16>";
template <>
constexpr const char* TYPE_TAG<Uint64> = "uint64";
template <>
constexpr const char* TYPE_TAG<Uint32> = "uint32";
template <>
constexpr const char* TYPE_TAG<Uint16> = "uint16";
template <>
constexpr const char* TYPE_TAG<Uint8> = "uint8";
template <>
constexpr const char* TYPE_TAG<Boolean> = "Boolean";
template <>
constexpr const char* TYPE_TAG<CIMDateTime> = "CIMDateTime";

enum ReadResult { READ_VALUE = 0, READ_MISSING = 3, READ_NULL = 4 };

/// Where a property stands. A name that no property can have is no error: nothing has it.
Uint32 findProperty(const CIMInstance& instance, const String& name) try {
    return instance.findProperty(name);
} catch (const InvalidNameException&) {
    return PEG_NOT_FOUND;
}

template <class T>
ReadResult readProperty(CIMInstance& instance, const String& name, T& value) {
    if (instance.isUninitialized()) return READ_MISSING;
    const Uint32 index = findProperty(instance, name);
    if (index == PEG_NOT_FOUND) return READ_MISSING;
    const CIMValue& found = instance.getProperty(index).getValue();
    if (found.isNull()) return READ_NULL;
    found.get(value);
    return READ_VALUE;
}

void setValueInPlace(CIMInstance& instance, const CIMName& name, const CIMValue& value) {
    const Uint32 index = instance.findProperty(name);
    if (index != PEG_NOT_FOUND) instance.getProperty(index).setValue(value);
}

}  // namespace

template <class T>
int QRV_Common::getProperty(CIMInstance& instance, const String& name, T& value) {
    log_message(4, "-->QRV_Common::getProperty(%s), propertyName = %s\n", TYPE_TAG<T>,
                static_cast<const char*>(name.getCString()));
    const ReadResult result = readProperty(instance, name, value);
    log_message(4, "<--QRV_Common::getProperty(%s)\n", TYPE_TAG<T>);
    return result;
}

template <class T>
int QRV_Common::getParameter(const Array<CIMParamValue>& params, const String& name, T& value) {
    int resultWithValue = READ_VALUE;
    for (Uint32 i = 0; i < params.size(); ++i) {
        if (!String::equalNoCase(params[i].getParameterName(), name)) continue;
        const CIMValue found = params[i].getValue();
        if (!found.isNull()) {
            found.get(value);
            return resultWithValue;
        }
        resultWithValue = READ_NULL;
    }
    return READ_MISSING;
}

template <class T>
void QRV_Common::setPropertyValue(CIMInstance& instance, CIMName name, const T& value) {
    setValueInPlace(instance, name, CIMValue(value));
}

CIMValue QRV_Common::getPropertyValue(const CIMInstance& instance, const String& name) {
    if (name.size() == 0 || instance.isUninitialized()) {
        log_message(3, "\tInvalid property name.\n");
        return CIMValue(String());
    }
    const Uint32 index = findProperty(instance, name);
    return index == PEG_NOT_FOUND ? CIMValue() : instance.getProperty(index).getValue();
}

String QRV_Common::getStringProperty(const CIMInstance& instance, const String& name) {
    if (name.size() == 0 || instance.isUninitialized()) {
        log_message(3, "\tInvalid property name.\n");
        return String();
    }
    String text;
    const Uint32 index = findProperty(instance, name);
    if (index != PEG_NOT_FOUND) instance.getProperty(index).getValue().get(text);
    return text;
}

String QRV_Common::getStringProperty(const CIMObjectPath& path, const String& name) {
    const Array<CIMKeyBinding>& keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i)
        if (String::equalNoCase(keys[i].getName().getString(), name)) return keys[i].getValue();
    return String();
}

void QRV_Common::setPropertyValue(CIMInstance& instance, CIMName name, const CIMInstance& value) {
    const Uint32 index = instance.findProperty(name);
    if (index == PEG_NOT_FOUND) return;
    const CIMProperty property(name, CIMValue(value), 0, CIMName(), CIMName(), false);
    instance.removeProperty(index);
    instance.addProperty(property);
}

void QRV_Common::setPropertyValueToNull(CIMInstance& instance, CIMName name, CIMType type) {
    CIMValue null;
    null.setNullValue(type, false, 0);
    setValueInPlace(instance, name, null);
}

CIMClass QRV_Common::getStoredCIMClass(CIMOMHandle& cimom, const OperationContext& context,
                                       const CIMNamespaceName& nameSpace, const CIMName& className,
                                       Boolean localOnly, Boolean includeQualifiers,
                                       Boolean includeClassOrigin,
                                       const CIMPropertyList& propertyList) {
    return QRV_InternalCacheService::getInstance()->getStoredCIMClass(
        cimom, context, nameSpace, className, localOnly, includeQualifiers, includeClassOrigin,
        propertyList);
}

CIMInstance QRV_Common::buildInstanceSkeleton(CIMClass& cimClass) {
    const OperationTrace trace("QRV_Common::_buildInstanceSkeleton()");
    return cimClass.buildInstance(true, true, CIMPropertyList());
}

namespace {

/// The handler of a kind as the base that processing() and complete() belong to; null for no kind.
ResponseHandler* responseOf(cim_handler_u handler, cim_method_e method) {
    switch (method) {
        case QRVCIM_GETINSTANCE:
        case QRVCIM_ENUMERATEINSTANCES:
            return handler.instanceResponse;
        case QRVCIM_ASSOCIATORS:
        case QRVCIM_REFERENCES:
            return handler.objectResponse;
        case QRVCIM_ASSOCIATORNAMES:
        case QRVCIM_REFERENCENAMES:
        case QRVCIM_ENUMERATEINSTANCENAMES:
            return handler.objectPathResponse;
    }
    return nullptr;
}

}  // namespace

void QRV_Common::handleProcessing(cim_handler_u handler, cim_method_e method) {
    if (ResponseHandler* const response = responseOf(handler, method)) response->processing();
}

void QRV_Common::handleComplete(cim_handler_u handler, cim_method_e method) {
    if (ResponseHandler* const response = responseOf(handler, method)) response->complete();
}

void QRV_Common::handleDeliver(cim_handler_u handler, cim_method_e method,
                               const CIMInstance& instance) {
    switch (method) {
        case QRVCIM_GETINSTANCE:
        case QRVCIM_ENUMERATEINSTANCES:
            handler.instanceResponse->deliver(instance);
            return;
        case QRVCIM_ASSOCIATORS:
        case QRVCIM_REFERENCES:
            handler.objectResponse->deliver(CIMObject(instance));
            return;
        case QRVCIM_ASSOCIATORNAMES:
        case QRVCIM_REFERENCENAMES:
        case QRVCIM_ENUMERATEINSTANCENAMES:
            handler.objectPathResponse->deliver(instance.getPath());
            return;
    }
}

// The types that the sibling libraries may use; no others link.
#define QRV_GET_PROPERTY(T) template int QRV_Common::getProperty(CIMInstance&, const String&, T&)
#define QRV_GET_PARAMETER(T) \
    template int QRV_Common::getParameter(const Array<CIMParamValue>&, const String&, T&)
#define QRV_SET_PROPERTY(T) \
    template void QRV_Common::setPropertyValue(CIMInstance&, CIMName, const T&)

QRV_GET_PROPERTY(CIMObjectPath);
QRV_GET_PROPERTY(Array<String>);
QRV_GET_PROPERTY(Array<Sint32>);
QRV_GET_PROPERTY(Array<Uint16>);
QRV_GET_PROPERTY(Uint64);
QRV_GET_PROPERTY(Uint32);
QRV_GET_PROPERTY(Uint16);
QRV_GET_PROPERTY(Uint8);
QRV_GET_PROPERTY(Boolean);
QRV_GET_PROPERTY(CIMDateTime);

QRV_GET_PARAMETER(Uint8);
QRV_GET_PARAMETER(Uint16);
QRV_GET_PARAMETER(Array<Uint16>);
QRV_GET_PARAMETER(Uint32);
QRV_GET_PARAMETER(Uint64);
QRV_GET_PARAMETER(Boolean);
QRV_GET_PARAMETER(CIMDateTime);
QRV_GET_PARAMETER(CIMObjectPath);
QRV_GET_PARAMETER(String);
QRV_GET_PARAMETER(Array<String>);

QRV_SET_PROPERTY(String);
QRV_SET_PROPERTY(Boolean);
QRV_SET_PROPERTY(Uint8);
QRV_SET_PROPERTY(Uint16);
QRV_SET_PROPERTY(Uint32);
QRV_SET_PROPERTY(Uint64);
QRV_SET_PROPERTY(Sint16);
QRV_SET_PROPERTY(Array<String>);
QRV_SET_PROPERTY(Array<Uint16>);
QRV_SET_PROPERTY(Array<Sint32>);
QRV_SET_PROPERTY(Array<Uint64>);
QRV_SET_PROPERTY(Array<Boolean>);
QRV_SET_PROPERTY(Array<CIMDateTime>);
QRV_SET_PROPERTY(CIMObjectPath);
QRV_SET_PROPERTY(CIMDateTime);

}  // namespace Pegasus
