// Names of classes and instances.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/SharedRep.h>
#include <Pegasus/Common/String.h>

namespace cimserver {
class ObjectPathRep;
}

PEGASUS_NAMESPACE_BEGIN

class CIMValue;

/// One key of an object path: a name, the value as text, and how that text is to be read. A value
/// type.
class PEGASUS_COMMON_LINKAGE CIMKeyBinding {
  public:
    enum Type { BOOLEAN, STRING, NUMERIC, REFERENCE };

    /// A null name, an empty text, BOOLEAN.
    CIMKeyBinding();

    /// The text is taken as it is; it is not checked against the type.
    CIMKeyBinding(const CIMName& name, const String& value, Type type);

    /// Text and type that stand for `value`. A null value gives an empty text.
    /// @throws TypeMismatchException for arrays, embedded objects and embedded instances
    CIMKeyBinding(const CIMName& name, const CIMValue& value);

    const CIMName& getName() const { return _name; }
    void setName(const CIMName& name) { _name = name; }
    const String& getValue() const { return _value; }
    void setValue(const String& value) { _value = value; }
    Type getType() const { return _type; }
    void setType(Type type) { _type = type; }

    /// Whether the text, read as the type of `value`, is that value. False if it cannot be read so.
    Boolean equal(CIMValue value);

  private:
    CIMName _name;
    String _value;
    Type _type = BOOLEAN;
};

/// Names ignore case and types must match. STRING texts are compared exactly, BOOLEAN texts
/// ignoring case, NUMERIC texts as integers ("0x10" is "16") and REFERENCE texts as object paths;
/// texts that are no integer or no path are compared exactly.
PEGASUS_COMMON_LINKAGE Boolean operator==(const CIMKeyBinding& x, const CIMKeyBinding& y);

/// Names a class or an instance: host, namespace, class and keys, each of which may be absent.
///
/// A value type: copies are cheap and independent. The keys are always sorted by name, ignoring
/// case, and so are the keys inside of reference keys.
class PEGASUS_COMMON_LINKAGE CIMObjectPath {
  public:
    CIMObjectPath();
    CIMObjectPath(const CIMObjectPath& x);
    CIMObjectPath(CIMObjectPath&& x) noexcept;

    /// Reads `[//host/][namespace:]Class[.key=value{,key=value}]`. A quoted key value that is
    /// itself a path with keys becomes a REFERENCE.
    /// @throws MalformedObjectNameException telling the reason
    CIMObjectPath(const String& objectName);

    /// @throws MalformedObjectNameException for a host that is no host name or address, and for a
    ///     REFERENCE key whose text is no object path
    CIMObjectPath(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
                  const Array<CIMKeyBinding>& keyBindings = Array<CIMKeyBinding>());
    ~CIMObjectPath();

    CIMObjectPath& operator=(const CIMObjectPath& x);
    CIMObjectPath& operator=(CIMObjectPath&& x) noexcept;

    /// As `set(objectName)`.
    CIMObjectPath& operator=(const String& objectName);

    /// Makes host, namespace, class and keys absent.
    void clear();

    /// As the constructor. What fails to be set leaves the path as it was.
    void set(const String& host, const CIMNamespaceName& nameSpace, const CIMName& className,
             const Array<CIMKeyBinding>& keyBindings = Array<CIMKeyBinding>());

    /// As the constructor. A text that is no object path leaves the path cleared.
    void set(const String& objectName);

    const String& getHost() const;
    /// @throws MalformedObjectNameException for what is no host name or address
    void setHost(const String& host);

    const CIMNamespaceName& getNameSpace() const;
    void setNameSpace(const CIMNamespaceName& nameSpace);

    const CIMName& getClassName() const;
    void setClassName(const CIMName& className);

    /// The keys in their order.
    const Array<CIMKeyBinding>& getKeyBindings() const;
    /// @throws MalformedObjectNameException for a REFERENCE key whose text is no object path
    void setKeyBindings(const Array<CIMKeyBinding>& keyBindings);

    /// The text that the constructor reads. STRING and REFERENCE values are quoted, `\` and `"` in
    /// them escaped; values of the other types are written as they are.
    String toString() const;

    /// Whether host, namespace and class are equal ignoring case and the keys are equal one by one.
    Boolean identical(const CIMObjectPath& x) const;

    /// Identical paths have equal codes.
    Uint32 makeHashCode() const;

  private:
    friend struct cimserver::Access;
    cimserver::ObjectPathRep& writable();

    cimserver::Ref<cimserver::ObjectPathRep> _rep;  ///< null: all is absent
};

/// As CIMObjectPath::identical().
PEGASUS_COMMON_LINKAGE Boolean operator==(const CIMObjectPath& x, const CIMObjectPath& y);
PEGASUS_COMMON_LINKAGE Boolean operator!=(const CIMObjectPath& x, const CIMObjectPath& y);

extern template class Array<CIMKeyBinding>;
extern template class Array<CIMObjectPath>;

PEGASUS_NAMESPACE_END
