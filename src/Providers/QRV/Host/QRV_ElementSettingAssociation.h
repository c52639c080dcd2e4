// The associations between what stands for a host and the setting of that host's persona.
//
// Two classes are of this shape; they differ in names and in where an element's persona is read.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

#include <functional>
#include <optional>
#include <vector>

#include "../QRV_ArrayRecords.h"
#include "../QRV_AssociationProvider.h"

namespace Pegasus {

/// A request to such a provider, beside the object that it is about. What it refers to outlives it.
struct SettingRequest {
    CIMOMHandle& cimom;
    const String& systemAddress;
    const OperationContext& context;
    InstanceShape shape;
};

/// The number of an element's persona; nothing when it can't be told.
using Persona = std::optional<Uint32>;

/// What makes one such class.
struct ElementSettingKind {
    ProviderFrame frame;
    AssociationRules rules;
    CIMName elementClass;

    bool completesWithoutResult;  ///< getInstance completes its answer before it fails to find
    bool linksEverySetting;       ///< of the element's persona, and not just the first

    /// The persona of an element that is asked for its setting.
    Persona (*personaOfSource)(const CIMObjectPath& element);

    /// The persona of an element that a path of the association names.
    Persona (*personaOfEnd)(const SettingRequest&, const CIMObjectPath& element);

    /// The elements of one persona, never of number 0, as the request wants them.
    Array<CIMInstance> (*elementsOf)(const SettingRequest&, Uint32 persona);

    /// Gives a function that tells the persona of each element in constant time.
    std::function<Persona(const CIMInstance& element)> (*personasOfAll)();
};

/// One such class at work on one request.
class ElementSettingAssociation {
  public:
    ElementSettingAssociation(const ElementSettingKind& kind, const SettingRequest& request)
        : _kind(kind), _request(request) {}

    /// The associations of one object. For a path of the association itself, the one that it names
    /// if its ends are linked.
    Array<CIMInstance> associations(const CIMObjectPath& objectPath) const;

    /// The setting of an element, or the elements of a setting's persona.
    Array<CIMInstance> relatedInstances(const CIMObjectPath& objectPath) const;
    Array<CIMObjectPath> relatedNames(const CIMObjectPath& objectPath) const;

    void getInstance(const CIMObjectPath& instanceName, InstanceResponseHandler& handler) const;

    /// Calls `take` with each association, with all its properties, whatever list the request has.
    /// `begin` is called before the first and may not be before the array has answered.
    template <class Begin, class Take>
    void forEachAssociation(Begin begin, Take take) const {
        CIMClass cimClass = associationClass(CIMPropertyList());
        const std::vector<Link> links = allLinks();
        begin();
        for (const Link& link : links) take(build(cimClass, link.element, link.setting));
    }

  private:
    struct Link {
        CIMObjectPath element;
        CIMObjectPath setting;
    };

    CIMClass associationClass(const CIMPropertyList& propertyList) const;
    CIMInstance build(CIMClass& cimClass, const CIMObjectPath& element,
                      const CIMObjectPath& setting) const;
    Array<CIMInstance> associationNamed(const CIMObjectPath& path, CIMClass& cimClass) const;
    Array<CIMInstance> settingOf(const CIMObjectPath& element) const;
    std::vector<Link> allLinks() const;

    const ElementSettingKind& _kind;
    const SettingRequest _request;
};

/// Every instance of a class, with all properties. What the server throws passes.
Array<CIMInstance> allInstances(const SettingRequest&, const CIMName& className);

/// The number in the instance's HostPersonaID; 0 without it.
Uint32 personaIn(CIMInstance instance);

/// Asks the array for hosts with their paths: for those that one argument selects, or for all with
/// null, QRV_NO_WWN and null. Returns false when it doesn't answer.
bool readHosts(HostList& hosts, const char* hostName, qrv_u64 wwn, const char* iscsiName);

/// The persona of the first of these hosts.
Persona personaOfFirstHost(const char* hostName, qrv_u64 wwn, const char* iscsiName);

/// A provider of such a class, which has a `_kind()` and its `_association()` over its members.
template <class Provider>
class ElementSettingProvider : public AssociationProvider<Provider> {
  protected:
    static const ProviderFrame& _frame() { return Provider::_kind().frame; }
    static const AssociationRules& _rules() { return Provider::_kind().rules; }

    Array<CIMInstance> _getRelatedInstances(const CIMObjectPath& objectPath,
                                            const OperationContext& context,
                                            const InstanceShape& shape) {
        return this->_self()._association(context, shape).relatedInstances(objectPath);
    }

    Array<CIMInstance> _buildAssociationInstances(const CIMObjectPath& objectPath,
                                                  const OperationContext& context,
                                                  const InstanceShape& shape) {
        return this->_self()._association(context, shape).associations(objectPath);
    }

    /// The personas that decide are read with all properties.
    void _referenceNames(const OperationContext& context, const AssociationRequest& request,
                         ObjectPathResponseHandler& handler) {
        deliverPaths(_buildAssociationInstances(request.objectName, context,
                                                {false, false, CIMPropertyList()}),
                     handler);
    }

    void _getInstance(const OperationContext& context, const CIMObjectPath& instanceName,
                      const InstanceShape& shape, InstanceResponseHandler& handler) {
        this->_self()._association(context, shape).getInstance(instanceName, handler);
    }

    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler) {
        _enumerate(context, shape, handler,
                   [&](const CIMInstance& instance) { handler.deliver(instance); });
    }

    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler) {
        _enumerate(context, {}, handler,
                   [&](const CIMInstance& instance) { handler.deliver(instance.getPath()); });
    }

  private:
    template <class Handler, class Deliver>
    void _enumerate(const OperationContext& context, const InstanceShape& shape, Handler& handler,
                    Deliver deliver) {
        this->_self()
            ._association(context, shape)
            .forEachAssociation([&] { handler.processing(); }, deliver);
        handler.complete();
    }
};

}  // namespace Pegasus
