#include "broker/ProviderContext.h"

#include <Pegasus/Common/AcceptLanguageList.h>
#include <Pegasus/Common/ContentLanguageList.h>

namespace cimserver {

using namespace Pegasus;

namespace {

template <class Container>
void carry(OperationContext& to, const OperationContext& from, const Container& otherwise) {
    if (from.contains(Container::NAME))
        to.insert(from.get(Container::NAME));
    else
        to.insert(otherwise);
}

}  // namespace

OperationContext providerContext(const OperationContext& caller) {
    OperationContext context;
    carry(context, caller, IdentityContainer(String::EMPTY));
    carry(context, caller, AcceptLanguageListContainer(AcceptLanguageList()));
    carry(context, caller, ContentLanguageListContainer(ContentLanguageList()));
    return context;
}

}  // namespace cimserver
