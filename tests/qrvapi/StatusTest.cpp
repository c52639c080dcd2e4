#include "ArrayTest.h"

namespace {

using StatusTest = ArrayTest;

std::string errorText(const api_Status_t& status) {
    char buffer[512];
    api_getErrorTextNoNL(buffer, sizeof buffer, &status);
    return buffer;
}

TEST_F(StatusTest, TextsHoldTheirWords) {
    api_Status_t status;
    api_initStatus(&status);
    EXPECT_EQ(status.code, ERR_UNKNOWN);
    EXPECT_EQ(status.parms.count, 0);

    errinfo_set_str(&status, ERR_QRV_INTERNAL_ERROR, "Semaphore Timed-Out");
    EXPECT_EQ(status.code, ERR_QRV_INTERNAL_ERROR);
    EXPECT_STREQ(status.parms.parm[0].value, "Semaphore Timed-Out");
    EXPECT_EQ(errorText(status), "Internal error: Semaphore Timed-Out");

    errinfo_set_str(&status, ERR_QRV_INTERNAL_ERROR, nullptr);
    EXPECT_EQ(errorText(status), "Internal error: ");
    errinfo_set_str(&status, ERR_QRV_HOST_NONAME, nullptr);
    EXPECT_EQ(errorText(status), "No host name was given");
    errinfo_set_str(&status, 164, "x");
    EXPECT_EQ(errorText(status), "Error 164");
}

TEST_F(StatusTest, TextsAndWordsAreCutToFit) {
    api_Status_t status;
    errinfo_set_str(&status, ERR_QRV_HOST_NOTFOUND, std::string(100, 'h').c_str());
    EXPECT_EQ(errorText(status), "Host " + std::string(63, 'h') + " does not exist");

    char buffer[] = "untouched!";
    api_getErrorTextNoNL(buffer, 6, &status);
    EXPECT_STREQ(buffer, "Host ");
    EXPECT_EQ(buffer[6], 'h');
    api_getErrorTextNoNL(buffer, 0, &status);
    EXPECT_STREQ(buffer, "Host ");
    api_getErrorTextNoNL(nullptr, 10, &status);
    api_getErrorTextNoNL(buffer, 10, nullptr);
    EXPECT_STREQ(buffer, "");
    errinfo_set_str(nullptr, 1, "x");
    api_initStatus(nullptr);
}

TEST_F(StatusTest, WordsOfAnErrorTextCannotNameOtherWords) {
    api_Status_t status;
    errinfo_set_str(&status, ERR_QRV_HOST_NOTFOUND, "%1%2%");
    EXPECT_EQ(errorText(status), "Host %1%2% does not exist");
}

TEST_F(StatusTest, StatusFromTheCallerIsNotTrusted) {
    api_Status_t status{};
    status.code = ERR_QRV_HOSTPATH_EXISTS;
    status.parms.count = 1;
    std::copy_n("wwn", 4, status.parms.parm[0].value);
    EXPECT_EQ(errorText(status), "Path wwn on port  already exists");
}

}  // namespace
