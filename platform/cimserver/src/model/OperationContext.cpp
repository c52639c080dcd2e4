#include <Pegasus/Common/OperationContext.h>

PEGASUS_NAMESPACE_BEGIN
namespace {

template <class Kind>
const Kind& castTo(const OperationContext::Container& container) {
    const auto* const kind = dynamic_cast<const Kind*>(&container);
    if (!kind) {
        throw DynamicCastFailedException();
    }
    return *kind;
}

}  // namespace

OperationContext::Container::~Container() = default;

OperationContext::OperationContext(const OperationContext& other) {
    _containers.reserve(other._containers.size());
    for (const Owned& container : other._containers) {
        _containers.emplace_back(container->clone());
    }
}

OperationContext& OperationContext::operator=(const OperationContext& other) {
    OperationContext copy(other);
    _containers.swap(copy._containers);
    return *this;
}

OperationContext::~OperationContext() = default;

std::size_t OperationContext::find(const String& containerName) const {
    std::size_t index = 0;
    while (index < _containers.size() && _containers[index]->getName() != containerName) {
        ++index;
    }
    return index;
}

std::size_t OperationContext::findOrThrow(const String& containerName) const {
    const std::size_t index = find(containerName);
    if (index == _containers.size()) {
        throw Exception("object not found");
    }
    return index;
}

const OperationContext::Container& OperationContext::get(const String& containerName) const {
    return *_containers[findOrThrow(containerName)];
}

Boolean OperationContext::contains(const String& containerName) const {
    return find(containerName) != _containers.size();
}

void OperationContext::set(const Container& container) {
    _containers[findOrThrow(container.getName())].reset(container.clone());
}

void OperationContext::insert(const Container& container) {
    if (contains(container.getName())) {
        throw Exception("object already exists.");
    }
    _containers.emplace_back(container.clone());
}

void OperationContext::remove(const String& containerName) {
    _containers.erase(_containers.begin() + std::ptrdiff_t(findOrThrow(containerName)));
}

const String IdentityContainer::NAME = "IdentityContainer";

IdentityContainer::IdentityContainer(const OperationContext::Container& container)
    : IdentityContainer(castTo<IdentityContainer>(container)) {}

IdentityContainer::IdentityContainer(const String& userName)
    : IdentityContainer(userName, String()) {}

IdentityContainer::IdentityContainer(const String& userName, const String& ipAddress)
    : _userName(userName), _ipAddress(ipAddress) {}

IdentityContainer::~IdentityContainer() = default;

String IdentityContainer::getName() const {
    return NAME;
}

OperationContext::Container* IdentityContainer::clone() const {
    return new IdentityContainer(*this);
}

void IdentityContainer::destroy() {
    delete this;
}

const String TimeoutContainer::NAME = "TimeoutContainer";

TimeoutContainer::TimeoutContainer(const OperationContext::Container& container)
    : TimeoutContainer(castTo<TimeoutContainer>(container)) {}

TimeoutContainer::TimeoutContainer(Uint32 timeout) : _timeout(timeout) {}

TimeoutContainer::~TimeoutContainer() = default;

String TimeoutContainer::getName() const {
    return NAME;
}

OperationContext::Container* TimeoutContainer::clone() const {
    return new TimeoutContainer(*this);
}

void TimeoutContainer::destroy() {
    delete this;
}

const String AcceptLanguageListContainer::NAME = "AcceptLanguageListContainer";

AcceptLanguageListContainer::AcceptLanguageListContainer(
    const OperationContext::Container& container)
    : AcceptLanguageListContainer(castTo<AcceptLanguageListContainer>(container)) {}

AcceptLanguageListContainer::AcceptLanguageListContainer(const AcceptLanguageList& languages)
    : _languages(languages) {}

AcceptLanguageListContainer::~AcceptLanguageListContainer() = default;

String AcceptLanguageListContainer::getName() const {
    return NAME;
}

OperationContext::Container* AcceptLanguageListContainer::clone() const {
    return new AcceptLanguageListContainer(*this);
}

void AcceptLanguageListContainer::destroy() {
    delete this;
}

const String ContentLanguageListContainer::NAME = "ContentLanguageListContainer";

ContentLanguageListContainer::ContentLanguageListContainer(
    const OperationContext::Container& container)
    : ContentLanguageListContainer(castTo<ContentLanguageListContainer>(container)) {}

ContentLanguageListContainer::ContentLanguageListContainer(const ContentLanguageList& languages)
    : _languages(languages) {}

ContentLanguageListContainer::~ContentLanguageListContainer() = default;

String ContentLanguageListContainer::getName() const {
    return NAME;
}

OperationContext::Container* ContentLanguageListContainer::clone() const {
    return new ContentLanguageListContainer(*this);
}

void ContentLanguageListContainer::destroy() {
    delete this;
}

PEGASUS_NAMESPACE_END
