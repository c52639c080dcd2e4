#include "ArrayTest.h"

namespace control = qrvapi::control;

namespace {

using AccessTest = ArrayTest;

struct UserCase {
    const char* user;
    int open;
    int authorizeKnown;
    int authorizeUnknown;
};

TEST_F(AccessTest, RightsDecideWhatAUserMayDo) {
    constexpr UserCase cases[] = {
        {"admin", 0, API_CIMUSER_AUTHORIZATION_SUCCESS,
         API_CIMUSER_AUTHORIZATION_UNSUPPORTED_METHOD},
        {"viewer", 0, API_CIMUSER_AUTHORIZATION_UNAUTH_USER, API_CIMUSER_AUTHORIZATION_UNAUTH_USER},
        {"stranger", ERR_QRV_PERMISSION_DENIED, API_CIMUSER_AUTHORIZATION_UNAUTH_USER,
         API_CIMUSER_AUTHORIZATION_UNAUTH_USER},
        {"nobody", ERR_QRV_USER_NOTFOUND, API_CIMUSER_AUTHORIZATION_USER_NOTFOUND,
         API_CIMUSER_AUTHORIZATION_USER_NOTFOUND},
        {"", 0, API_CIMUSER_AUTHORIZATION_UNAUTH_USER, API_CIMUSER_AUTHORIZATION_UNAUTH_USER},
        {"daemon", 0, API_CIMUSER_AUTHORIZATION_UNAUTH_USER, API_CIMUSER_AUTHORIZATION_UNAUTH_USER},
        {nullptr, ERR_QRV_USER_NOTFOUND, API_CIMUSER_AUTHORIZATION_USER_NOTFOUND,
         API_CIMUSER_AUTHORIZATION_USER_NOTFOUND},
    };
    for (const auto& [user, open, authorizeKnown, authorizeUnknown] : cases) {
        SCOPED_TRACE(user == nullptr ? "null" : user);
        const auto authorize = [name = user](const char* method) {
            return api_authorizeCIMUser(name, "192.0.2.9", method);
        };
        EXPECT_EQ(api_qrvOpenForCimserver(user), open);
        EXPECT_EQ(authorize("qrv_storagehardwareidcollection.deleteinstance"), authorizeKnown);
        EXPECT_EQ(authorize("qrv_storagehardwareidmanagementservice.nosuchmethod"), authorizeKnown);
        EXPECT_EQ(authorize("qrv_replicationservicecapabilities"), authorizeKnown);
        EXPECT_EQ(authorize("qrv_toaster.start"), authorizeUnknown);
        EXPECT_EQ(authorize(nullptr), authorizeUnknown);
    }
}

TEST_F(AccessTest, AnEmptyArrayLetsOnlyTheServerIn) {
    control::reset();
    EXPECT_EQ(api_qrvOpenForCimserver(""), 0);
    EXPECT_EQ(api_qrvOpenForCimserver("admin"), ERR_QRV_USER_NOTFOUND);
    control::addUser(R"({"name": "admin", "password": "p", "rights": "all"})");
    EXPECT_EQ(api_qrvOpenForCimserver("admin"), 0);
}

TEST_F(AccessTest, PasswordsMustMatchWhole) {
    EXPECT_TRUE(control::authenticate("admin", "secret"));
    EXPECT_TRUE(control::authenticate("viewer", ""));
    for (const auto* wrong : {"", "s", "Secret", "secretsecret", "secre", "secret "}) {
        EXPECT_FALSE(control::authenticate("admin", wrong)) << wrong;
    }
    EXPECT_FALSE(control::authenticate("viewer", "x"));
    EXPECT_FALSE(control::authenticate("nobody", ""));
}

TEST_F(AccessTest, PasswordsMayBeHashed) {
    const std::pair<const char*, const char*> hashes[] = {
        {"yescrypt", "$y$j75$abcdefgh$uMUXG79B2cFpoAYyDccUnsaH/aGTyBYMlnQidzyag01"},
        {"sha512",
         "$6$rounds=1000$abcdefgh$"
         "nhYjN017qxiYztzyUpZtPnUQcnLy62KsunSLHNeLahp2EHPlAKmFFlrjEwSXGo2kgY5hR2.peKEg2VGUqIJJu1"},
    };
    for (const auto& [user, hash] : hashes) {
        control::addUser(R"({"name": ")" + std::string(user) +
                         R"(", "rights": "read", "password": ")" + hash + "\"}");
        EXPECT_TRUE(control::authenticate(user, "secret")) << user;
        for (const std::string& wrong :
             {std::string(hash), std::string("secret\0", 7), std::string("secre")})
            EXPECT_FALSE(control::authenticate(user, wrong)) << wrong;
    }
}

TEST_F(AccessTest, ReplacingTheArrayIsSeen) {
    const auto before = control::arraysSoFar();
    control::reset();
    EXPECT_NE(control::arraysSoFar(), before);
}

}  // namespace
