// Names of classes, members and namespaces.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

PEGASUS_NAMESPACE_BEGIN

/// A CIM name: a letter, underscore or unit from 0x80 to 0xFFEF, then these or digits. A value.
/// Default constructed it is null, which no text makes: an empty or illegal text throws
/// InvalidNameException.
class PEGASUS_COMMON_LINKAGE CIMName {
  public:
    CIMName() noexcept = default;
    CIMName(const String& name);
    CIMName(String&& name);
    CIMName(const char* name);

    CIMName& operator=(const String& name) { return *this = CIMName(name); }
    CIMName& operator=(const char* name) { return *this = CIMName(name); }

    const String& getString() const noexcept { return _name; }
    Boolean isNull() const noexcept { return _name.size() == 0; }
    void clear() noexcept { _name.clear(); }

    /// Ignores the case of ASCII letters; null equals null.
    Boolean equal(const CIMName& other) const noexcept {
        return String::equalNoCase(_name, other._name);
    }

    static Boolean legal(const String& name) noexcept;

  private:
    String _name;
};

inline Boolean operator==(const CIMName& name1, const CIMName& name2) noexcept {
    return name1.equal(name2);
}
inline Boolean operator!=(const CIMName& name1, const CIMName& name2) noexcept {
    return !name1.equal(name2);
}

extern template class Array<CIMName>;

/// CIM names joined by slashes; one leading slash is dropped. A value. Default constructed it is
/// null; an empty or illegal text throws InvalidNamespaceNameException.
class PEGASUS_COMMON_LINKAGE CIMNamespaceName {
  public:
    CIMNamespaceName() noexcept = default;
    CIMNamespaceName(const String& name);
    CIMNamespaceName(const char* name);

    CIMNamespaceName& operator=(const String& name) { return *this = CIMNamespaceName(name); }
    CIMNamespaceName& operator=(const char* name) { return *this = CIMNamespaceName(name); }

    const String& getString() const noexcept { return _name; }
    Boolean isNull() const noexcept { return _name.size() == 0; }
    void clear() noexcept { _name.clear(); }

    /// Ignores the case of ASCII letters; null equals null.
    Boolean equal(const CIMNamespaceName& other) const noexcept {
        return String::equalNoCase(_name, other._name);
    }

    static Boolean legal(const String& name);

  private:
    String _name;
};

inline Boolean operator==(const CIMNamespaceName& name1, const CIMNamespaceName& name2) noexcept {
    return name1.equal(name2);
}
inline Boolean operator!=(const CIMNamespaceName& name1, const CIMNamespaceName& name2) noexcept {
    return !name1.equal(name2);
}

extern template class Array<CIMNamespaceName>;

PEGASUS_NAMESPACE_END
