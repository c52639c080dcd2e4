#include "Support.h"

#include <Pegasus/Common/OperationContext.h>

#include <gtest/gtest.h>

using namespace Pegasus;
using model_tests::text;
using model_tests::thrownBy;

namespace {

std::string userOf(const OperationContext& context) {
    const IdentityContainer identity(context.get(IdentityContainer::NAME));
    return text(identity.getUserName());
}

TEST(OperationContext, HoldsOneContainerOfAName) {
    OperationContext context;
    const String name = IdentityContainer::NAME;
    EXPECT_EQ(text(name), "IdentityContainer");
    EXPECT_FALSE(context.contains(name));
    EXPECT_EQ(thrownBy<Exception>([&] { context.get(name); }), "object not found");
    EXPECT_EQ(thrownBy<Exception>([&] { context.set(IdentityContainer(String("a"))); }),
              "object not found");
    EXPECT_EQ(thrownBy<Exception>([&] { context.remove(name); }), "object not found");

    context.insert(IdentityContainer(String("a")));
    EXPECT_EQ(userOf(context), "a");
    EXPECT_EQ(thrownBy<Exception>([&] { context.insert(IdentityContainer(String("b"))); }),
              "object already exists.");
    context.set(IdentityContainer(String("c")));
    EXPECT_EQ(userOf(context), "c");
    context.remove(name);
    EXPECT_FALSE(context.contains(name));
}

TEST(OperationContext, CopiesDeeply) {
    OperationContext context;
    context.insert(IdentityContainer(String("a")));
    OperationContext copy = context;
    context.set(IdentityContainer(String("b")));
    EXPECT_EQ(userOf(copy), "a");
    copy = context;
    context.clear();
    EXPECT_EQ(userOf(copy), "b");
    EXPECT_FALSE(context.contains(IdentityContainer::NAME));
}

TEST(OperationContext, HandsOutTheKindThatIsThere) {
    AcceptLanguageList accepted;
    accepted.insert(LanguageTag(String("en")), 1);
    ContentLanguageList content;
    content.append(LanguageTag(String("de")));
    OperationContext context;
    context.insert(TimeoutContainer(5));
    context.insert(AcceptLanguageListContainer(accepted));
    context.insert(ContentLanguageListContainer(content));

    const OperationContext copy = context;
    const TimeoutContainer timeout(copy.get(TimeoutContainer::NAME));
    EXPECT_EQ(timeout.getTimeOut(), 5u);
    const AcceptLanguageListContainer languages(copy.get(AcceptLanguageListContainer::NAME));
    EXPECT_TRUE(languages.getLanguages() == accepted);
    const ContentLanguageListContainer languagesOfTexts(
        copy.get(ContentLanguageListContainer::NAME));
    EXPECT_TRUE(languagesOfTexts.getLanguages() == content);
    EXPECT_EQ(thrownBy<DynamicCastFailedException>(
                  [&] { IdentityContainer wrong(copy.get(TimeoutContainer::NAME)); }),
              "dynamic cast failed");
}

}  // namespace
