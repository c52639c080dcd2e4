#pragma once

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

#include "qrvapi.h"
#include "qrvapi_control.h"

/// Holds the access gate for a scope.
class GateHeld {
  public:
    GateHeld() { EXPECT_EQ(cim_sem_wait(), 0); }
    GateHeld(const GateHeld&) = delete;
    GateHeld& operator=(const GateHeld&) = delete;
    ~GateHeld() { cim_sem_post(); }
};

/// A small array; after each test nothing may be left over and nothing may have been misused.
class ArrayTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// What the calls answer, as text: one entry for a record, or the code of the failure.
    struct Query {
        const char* hostName = nullptr;
        qrv_u64 wwn = QRV_NO_WWN;
        const char* iscsiName = nullptr;
        int withUnassigned = 1;
        int brief = 0;
    };
    static std::vector<std::string> hosts(const Query& query);
    static std::vector<std::string> lines(const api_HostsInfo_t& list);
    static std::vector<std::string> paths(const char* wwn, const char* iscsiName,
                                          const char* hostName = nullptr, int withUnassigned = 1);

    /// The violations so far, which are forgotten.
    static std::vector<std::string> takeViolations();
};
