// What an operation knows of its caller.
#pragma once

#include <Pegasus/Common/AcceptLanguageList.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/ContentLanguageList.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/Linkage.h>

#include <memory>
#include <vector>

PEGASUS_NAMESPACE_BEGIN

/// A set of named containers. A value: it keeps clones of what it is given, and a copy is a deep
/// one.
class PEGASUS_COMMON_LINKAGE OperationContext {
  public:
    /// One piece of context; its name says what kind it is.
    class PEGASUS_COMMON_LINKAGE Container {
      public:
        virtual ~Container();
        virtual String getName() const = 0;

        /// A copy that the caller gives back with destroy().
        virtual Container* clone() const = 0;

        /// Ends an object made by clone().
        virtual void destroy() = 0;
    };

    OperationContext() = default;
    OperationContext(const OperationContext& other);
    OperationContext(OperationContext&&) noexcept = default;
    OperationContext& operator=(const OperationContext& other);
    OperationContext& operator=(OperationContext&&) noexcept = default;
    virtual ~OperationContext();

    void clear() noexcept { _containers.clear(); }

    /// The container of that name, valid until the context changes; without one an Exception
    /// `object not found`.
    const Container& get(const String& containerName) const;
    Boolean contains(const String& containerName) const;

    /// Replaces the container of the same name; without one an Exception `object not found`.
    void set(const Container& container);

    /// Adds a container; when its name is there already, an Exception `object already exists.`.
    void insert(const Container& container);

    /// Without a container of that name an Exception `object not found`.
    void remove(const String& containerName);

  private:
    struct Destroy {
        void operator()(Container* container) const { container->destroy(); }
    };
    using Owned = std::unique_ptr<Container, Destroy>;

    std::size_t find(const String& containerName) const;
    std::size_t findOrThrow(const String& containerName) const;

    std::vector<Owned> _containers;
};

/// Who calls: the authenticated user (empty without authentication, and for the server itself) and
/// the address the request came from (empty for calls within the process).
class PEGASUS_COMMON_LINKAGE IdentityContainer : virtual public OperationContext::Container {
  public:
    static const String NAME;

    /// A container of another kind throws DynamicCastFailedException, here and in the other
    /// containers.
    IdentityContainer(const OperationContext::Container& container);
    IdentityContainer(const IdentityContainer&) = default;
    IdentityContainer(const String& userName);
    IdentityContainer(const String& userName, const String& ipAddress);
    IdentityContainer& operator=(const IdentityContainer&) = default;
    ~IdentityContainer() override;

    String getName() const override;
    OperationContext::Container* clone() const override;
    void destroy() override;

    String getUserName() const { return _userName; }
    String getIpAddress() const { return _ipAddress; }

  private:
    String _userName;
    String _ipAddress;
};

/// How long the caller waits, in milliseconds. Calls within the process do not time out.
class PEGASUS_COMMON_LINKAGE TimeoutContainer : virtual public OperationContext::Container {
  public:
    static const String NAME;

    TimeoutContainer(const OperationContext::Container& container);
    TimeoutContainer(const TimeoutContainer&) = default;
    TimeoutContainer(Uint32 timeout);
    TimeoutContainer& operator=(const TimeoutContainer&) = default;
    ~TimeoutContainer() override;

    String getName() const override;
    OperationContext::Container* clone() const override;
    void destroy() override;

    Uint32 getTimeOut() const { return _timeout; }

  private:
    Uint32 _timeout = 0;
};

/// The languages the caller understands.
class PEGASUS_COMMON_LINKAGE AcceptLanguageListContainer
    : virtual public OperationContext::Container {
  public:
    static const String NAME;

    AcceptLanguageListContainer(const OperationContext::Container& container);
    AcceptLanguageListContainer(const AcceptLanguageListContainer&) = default;
    AcceptLanguageListContainer(const AcceptLanguageList& languages);
    AcceptLanguageListContainer& operator=(const AcceptLanguageListContainer&) = default;
    ~AcceptLanguageListContainer() override;

    String getName() const override;
    OperationContext::Container* clone() const override;
    void destroy() override;

    AcceptLanguageList getLanguages() const { return _languages; }

  private:
    AcceptLanguageList _languages;
};

/// The languages of the texts in the request.
class PEGASUS_COMMON_LINKAGE ContentLanguageListContainer
    : virtual public OperationContext::Container {
  public:
    static const String NAME;

    ContentLanguageListContainer(const OperationContext::Container& container);
    ContentLanguageListContainer(const ContentLanguageListContainer&) = default;
    ContentLanguageListContainer(const ContentLanguageList& languages);
    ContentLanguageListContainer& operator=(const ContentLanguageListContainer&) = default;
    ~ContentLanguageListContainer() override;

    String getName() const override;
    OperationContext::Container* clone() const override;
    void destroy() override;

    ContentLanguageList getLanguages() const { return _languages; }

  private:
    ContentLanguageList _languages;
};

PEGASUS_NAMESPACE_END
