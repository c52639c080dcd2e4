#include <cstdlib>
#include <cstring>

#include "ArrayTest.h"

namespace control = qrvapi::control;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

class VolumeTest : public ArrayTest {
  protected:
    /// The names that a read gives, or the code of its failure.
    template <class Call>
    static Lines names(Call&& call) {
        int count = -1;
        api_vv_t* records = nullptr;
        const GateHeld gate;
        const int code = call(&count, &records);
        if (code != 0) return {std::to_string(code)};
        Lines lines;
        for (int i = 0; i < count; ++i) lines.emplace_back(records[i].elementName);
        free_if_not_null(records);
        return lines;
    }

    static Lines volumes(const char* name = nullptr, const char* deviceID = nullptr) {
        return names([&](int* count, api_vv_t** records) {
            return api_getVVs(name, deviceID, count, records, 1);
        });
    }

    static Lines chunk(qrv_u32& cursor, qrv_u32 size,
                       const api_getvv_filters_t* filters = nullptr) {
        return names([&](int* count, api_vv_t** records) {
            return api_getVVs_chunk(&cursor, size, filters, count, records, 1);
        });
    }

    static Lines filtered(const Lines& values) {
        api_getvv_filters_t filters{};
        EXPECT_EQ(api_getvv_filter_init(&filters, 2), 0);
        for (const auto& value : values) {
            EXPECT_EQ(api_getvv_filter_add(&filters, 5, 1, value.c_str()), 0);
        }
        qrv_u32 cursor = 0;
        const auto found = chunk(cursor, 0, &filters);
        api_getvv_filter_free(&filters);
        return found;
    }

    static int remove(const Lines& names) {
        std::vector<api_name_t> list(names.size());
        for (std::size_t i = 0; i < names.size(); ++i) names[i].copy(list[i].name, 31);
        api_evtparam_t event{};
        const GateHeld gate;
        return api_removeVVs(&event, list.data(), static_cast<unsigned>(list.size()), 1, 0);
    }
};

std::string wwn(char last) {
    return "000000000000000000000000000000A" + std::string(1, last);
}

TEST_F(VolumeTest, VolumesAreFoundByNameOrWwn) {
    EXPECT_THAT(volumes(), ElementsAre("v0", "v1", "v2", "v3"));
    EXPECT_THAT(volumes("v1"), ElementsAre("v1"));
    EXPECT_THAT(volumes("V1"), IsEmpty());
    EXPECT_THAT(volumes("", "000000000000000000000000000000a3"), ElementsAre("v3"));
    EXPECT_THAT(volumes(nullptr, "000000000000000000000000000000A9"), IsEmpty());
    int count = 0;
    api_vv_t* records = nullptr;
    const GateHeld gate;
    ASSERT_EQ(api_getVVs("v2", nullptr, &count, &records, 1), 0);
    EXPECT_EQ(records->type, VOL_TYPE_BASE);
    EXPECT_STREQ(records->deviceID, "000000000000000000000000000000A2");
    EXPECT_EQ(records->id, 7U);
    EXPECT_EQ(records->isLocked, 1);
    EXPECT_STREQ(records->domain, "finance");
    std::free(records);
    EXPECT_EQ(api_getVVs("v2", nullptr, &count, &records, 0), ERR_API_INVALID_ARGUMENT);
}

TEST_F(VolumeTest, FiltersTakeListsOfWwns) {
    EXPECT_THAT(filtered({wwn('3') + "|" + wwn('0')}), ElementsAre("v0", "v3"));
    EXPECT_THAT(filtered({wwn('9')}), IsEmpty());
    api_getvv_filters_t empty{};
    qrv_u32 cursor = 0;
    EXPECT_THAT(chunk(cursor, 0, &empty), ElementsAre(std::to_string(ERR_API_INVALID_ARGUMENT)));
    EXPECT_THAT(filtered({wwn('9') + "||" + wwn('1') + "|"}), ElementsAre("v1"));
    EXPECT_THAT(filtered({wwn('0') + "|" + wwn('1'), wwn('1') + "|" + wwn('2')}),
                ElementsAre("v1"));
    EXPECT_THAT(filtered({}), ElementsAre("v0", "v1", "v2", "v3"));
}

TEST_F(VolumeTest, FiltersRefuseWhatTheyCannotHold) {
    control::setLogLevel(0);
    api_getvv_filters_t filters{};
    EXPECT_EQ(api_getvv_filter_add(&filters, 5, 1, "a"), ERR_API_INVALID_ARGUMENT);
    EXPECT_EQ(api_getvv_filter_init(&filters, 0), ERR_API_INVALID_ARGUMENT);
    ASSERT_EQ(api_getvv_filter_init(&filters, 1), 0);
    EXPECT_EQ(api_getvv_filter_add(&filters, 4, 1, "a"), ERR_API_INVALID_ARGUMENT);
    EXPECT_EQ(api_getvv_filter_add(&filters, 5, 2, "a"), ERR_API_INVALID_ARGUMENT);
    EXPECT_EQ(api_getvv_filter_add(&filters, 5, 1, std::string(256, 'a').c_str()),
              ERR_API_INVALID_ARGUMENT);
    EXPECT_EQ(api_getvv_filter_add(&filters, 5, 1, std::string(255, 'a').c_str()), 0);
    EXPECT_EQ(filters.used_count, 1U);
    EXPECT_EQ(filters.total_fvallen, 255U);
    EXPECT_EQ(api_getvv_filter_add(&filters, 5, 1, "a"), ERR_API_INVALID_ARGUMENT);
    EXPECT_EQ(control::outstanding().records, 1U);
    auto copy = filters;
    api_getvv_filter_free(&filters);
    api_getvv_filter_free(&filters);
    api_getvv_filter_free(&copy);
    EXPECT_THAT(takeViolations(),
                ElementsAre("api_getvv_filter_free was given a list that isn't out"));
}

TEST_F(VolumeTest, FiltersAreRecorded) {
    control::recordCalls(true);
    filtered({"a|b", "c"});
    const auto calls = control::calls();
    ASSERT_GT(calls.size(), 4U);
    EXPECT_EQ(calls[2].argument("value"), "c");
    EXPECT_EQ(calls[4].function, "api_getVVs_chunk");
    EXPECT_EQ(calls[4].argument("filter"), "a|b");
}

TEST_F(VolumeTest, ChunksFollowTheCursor) {
    qrv_u32 cursor = 0;
    EXPECT_THAT(chunk(cursor, 3), ElementsAre("v0", "v1", "v2"));
    EXPECT_NE(cursor, 0U);
    EXPECT_THAT(chunk(cursor, 3), ElementsAre("v3"));
    EXPECT_EQ(cursor, 0U);
    EXPECT_THAT(chunk(cursor, 4), ElementsAre("v0", "v1", "v2", "v3"));
    EXPECT_EQ(cursor, 0U);
}

TEST_F(VolumeTest, RemovalIsAllOrNothing) {
    EXPECT_EQ(remove({"v3", "v2"}), ERR_API_VV_LOCKED_ERROR);
    EXPECT_EQ(remove({"v3", "v0"}), ERR_QRV_VV_HAS_VLUNS);
    EXPECT_EQ(remove({"v8", "v9"}), ERR_QRV_VV_NOTFOUND);
    EXPECT_THAT(volumes(), ElementsAre("v0", "v1", "v2", "v3"));
    EXPECT_THAT(control::events(), IsEmpty());
    control::lockVolume("v2", false);
    EXPECT_EQ(remove({"v3", "v9", "v2", "v3"}), API_VV_SOME_NOTFOUND);
    EXPECT_THAT(volumes(), ElementsAre("v0", "v1"));
    ASSERT_EQ(control::events().size(), 1U);
    EXPECT_EQ(control::events()[0].change, "volumes v3,v9,v2,v3: removed but for v9");
    control::addVolume(R"({"name": "v3", "wwn": "000000000000000000000000000000a3"})");
    EXPECT_THAT(volumes(nullptr, "000000000000000000000000000000A3"), ElementsAre("v3"));
    control::lockVolume("v3");
    EXPECT_EQ(remove({"v3"}), ERR_API_VV_LOCKED_ERROR);
    EXPECT_EQ(remove({}), 0);
    EXPECT_THROW(control::lockVolume("v9"), control::ScenarioError);
}

TEST_F(VolumeTest, PatternsSayWhatTheyAskFor) {
    api_pattern_t pattern;
    char text[64];
    const auto written = [&](int room) {
        std::strcpy(text, "before");
        const int code = api_constructPattern(text, room, &pattern);
        return std::to_string(code) + " " + text;
    };
    ASSERT_EQ(api_initPattern(&pattern), 0);
    EXPECT_EQ(written(sizeof text), "0 ;");
    pattern.deviceType = devtype_ssd;
    EXPECT_EQ(written(sizeof text), "0 type=SSD;");
    EXPECT_EQ(written(10), "0 type=SSD;");
    EXPECT_EQ(written(9), std::to_string(ERR_API_NO_SPACE) + " before");
    EXPECT_EQ(written(-1), std::to_string(ERR_API_NO_SPACE) + " before");
    std::strcpy(pattern.node, "0,1");
    pattern.freeChunkLessThan = 0;
    pattern.rpm = 15;
    EXPECT_EQ(written(sizeof text), "0 nodes=0,1 freeBelow=0 rpm=15 type=SSD;");
    constexpr const char* types[] = {"", "FC", "NL", "FC15", "SSD", "volume", "SSD100"};
    for (int type = devtype_fc; type < devtype_all; ++type) {
        pattern.deviceType = static_cast<devtype_e>(type);
        EXPECT_EQ(written(sizeof text),
                  std::string("0 nodes=0,1 freeBelow=0 rpm=15 type=") + types[type] + ";");
    }
    pattern.deviceType = devtype_all;
    EXPECT_EQ(written(sizeof text), "0 nodes=0,1 freeBelow=0 rpm=15;");
}

}  // namespace
