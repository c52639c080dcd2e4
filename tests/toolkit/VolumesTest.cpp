// Volumes by their references: their names, their removal, and what was built into a unit.
#include <QRV_VolumeRemoval.h>

#include "ToolkitTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Texts = std::vector<std::string>;

/// The identifier of the volume v0, v1 and so on.
std::string identifier(unsigned volume) {
    return "600000000000000000000000000000" + std::to_string(10 + volume);
}

Array<CIMObjectPath> pathsOf(const Texts& identifiers) {
    Array<CIMObjectPath> paths;
    for (const std::string& each : identifiers)
        paths.append(CIMObjectPath(
            String(), CIMNamespaceName("root/qrv"), CIMName("QRV_StorageVolume"),
            Array<CIMKeyBinding>(
                1, CIMKeyBinding("DeviceID", String(each.c_str()), CIMKeyBinding::STRING))));
    return paths;
}

/// An array with the volumes v0 to v9, in that order.
class VolumesTest : public ToolkitTest {
  protected:
    VolumesTest() {
        setSystem(R"("ipv4Address": "192.0.2.1")");
        for (unsigned i = 0; i < 10; ++i) addVolume(i);
        QRV_Common::setEventParam(&_event, "QRV_Sample", "Remove", "", "admin", "192.0.2.7");
    }

    static void addVolume(unsigned number) {
        control::addVolume(R"({"name": "v)" + std::to_string(number) + R"(", "wwn": ")" +
                           identifier(number) + R"("})");
    }

    /// One argument of every call of a function.
    static Texts argumentsOf(const char* function, const char* argument) {
        Texts values;
        for (const control::CallRecord& call : control::calls())
            if (call.function == function) values.push_back(call.argument(argument));
        return values;
    }
    static Texts queries() { return argumentsOf("api_getVVs_chunk", "filter"); }
    static Texts removals() { return argumentsOf("api_removeVVs", "names"); }

    /// The result of looking the names up, and the names.
    static std::pair<int, Texts> namesOf(const Texts& identifiers) {
        Array<CIMObjectPath> paths = pathsOf(identifiers);
        Array<String> names;
        const int result = QRV_Common::fillInVVNames(paths, names);
        Texts texts;
        for (Uint32 i = 0; i < names.size(); ++i)
            texts.emplace_back(static_cast<const char*>(names[i].getCString()));
        return {result, texts};
    }

    int remove(const Texts& identifiers, Uint32 noWait = 0) {
        Array<CIMObjectPath> paths = pathsOf(identifiers);
        return QRV_Common::removeVVs(&_event, paths, noWait);
    }

    api_evtparam_t _event{};
};

TEST_F(VolumesTest, namesComeInTheArraysOrderWithoutUnknownVolumes) {
    using Answer = std::pair<int, Texts>;
    EXPECT_EQ(namesOf({identifier(3), identifier(40), identifier(1)}), Answer(0, {"v1", "v3"}));
    EXPECT_EQ(namesOf({identifier(40), identifier(41)}), Answer(4, {}));
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_EQ(namesOf({}), Answer(5, {}));
    EXPECT_THAT(logged(), ElementsAre("3 Empty volume list\n"));
}

TEST_F(VolumesTest, aQueryTakesAsManyIdentifiersAsFitIt) {
    Texts eight;
    for (unsigned i = 0; i < 8; ++i) eight.push_back(identifier(7 - i));
    std::string firstSeven = eight[0];
    for (unsigned i = 1; i < 7; ++i) firstSeven += "|" + eight[i];
    EXPECT_EQ(namesOf(eight).second, (Texts{"v1", "v2", "v3", "v4", "v5", "v6", "v7", "v0"}));
    EXPECT_THAT(queries(), ElementsAre(firstSeven, eight[7]));
    EXPECT_THAT(argumentsOf("api_getvv_filter_init", "count"), ElementsAre("9", "9"));

    const std::string half(127, 'A');
    control::resetCounters();
    namesOf({half, half, half, half + "B"});
    EXPECT_THAT(queries(), ElementsAre(half + "|" + half, half, half + "B"));
}

TEST_F(VolumesTest, aKeyThatNamesNoVolumeIsNotAskedFor) {
    EXPECT_EQ(namesOf({"", std::string(256, 'A'), identifier(1) + "|" + identifier(2)}).first, 4);
    EXPECT_THAT(queries(), IsEmpty());
    EXPECT_EQ(namesOf({"", identifier(5)}).second, Texts{"v5"});
    EXPECT_THAT(queries(), ElementsAre(identifier(5)));
}

TEST_F(VolumesTest, whatTheArrayRefusesIsLogged) {
    const struct {
        const char* function;
        const char* line;
    } cases[] = {
        {"api_getvv_filter_init", "2 Cannot create filter list\n"},
        {"api_getvv_filter_add", "2 Cannot update filter list\n"},
        {"api_getVVs_chunk", "2 Failed to query volume\n"},
        {"cim_sem_wait", "2 Failed to query volume\n"},
    };
    Texts eight;
    for (unsigned i = 0; i < 8; ++i) eight.push_back(identifier(i));
    for (const auto& each : cases) {
        for (const unsigned nth : {1, 2}) {
            control::failCall(each.function, nth);
            EXPECT_EQ(namesOf(eight).first, 4) << each.function << " " << nth;
            EXPECT_THAT(logged(), ElementsAre(each.line));
            EXPECT_TRUE(control::outstanding().idle()) << each.function << " " << nth;
        }
    }
}

TEST_F(VolumesTest, recordsAreABlockOfTheCallers) {
    Array<CIMObjectPath> paths = pathsOf({identifier(1), identifier(40), identifier(0)});
    api_name_t* names = nullptr;
    unsigned int count = 77;
    ASSERT_EQ(QRV_Common::fillInVVNames(paths, &names, &count), 0);
    const VolumeNames owner(names, static_cast<int>(count));
    ASSERT_EQ(count, 2U);
    EXPECT_STREQ(names[0].name, "v0");
    EXPECT_STREQ(names[1].name, "v1");

    for (const Texts& given : {Texts{}, Texts{identifier(40)}}) {
        Array<CIMObjectPath> none = pathsOf(given);
        api_name_t* block = names;
        count = 77;
        EXPECT_EQ(QRV_Common::fillInVVNames(none, &block, &count), 4);
        EXPECT_EQ(block, nullptr);
        EXPECT_EQ(count, 0U);
    }
    logged();
    EXPECT_NE(QRV_Common::fillInVVNames(paths, nullptr, &count), 0);
    EXPECT_NE(QRV_Common::fillInVVNames(paths, &names, nullptr), 0);
    EXPECT_THAT(logged(), ElementsAre("2 Invalid parameter memberCount or vvNames\n",
                                      "2 Invalid parameter memberCount or vvNames\n"));
}

TEST_F(VolumesTest, volumesAreRemoved) {
    EXPECT_EQ(remove({identifier(2), identifier(1)}, 1), 0);
    EXPECT_THAT(removals(), ElementsAre("v1,v2"));
    EXPECT_THAT(argumentsOf("api_removeVVs", "noWait"), ElementsAre("1"));
    ASSERT_EQ(control::events().size(), 1U);
    EXPECT_STREQ(control::events()[0].record.method, "QRV_Sample:Remove");
    EXPECT_EQ(namesOf({identifier(2), identifier(1), identifier(0)}).second, Texts{"v0"});
}

TEST_F(VolumesTest, missingVolumesShowInTheResult) {
    EXPECT_EQ(remove({identifier(1), identifier(40)}), 32768);
    control::failCall("api_removeVVs", 1, control::Repeat::once, API_VV_SOME_NOTFOUND);
    EXPECT_EQ(remove({identifier(2)}), 32768) << "one went between the query and the removal";
    EXPECT_THAT(logged(), IsEmpty());

    EXPECT_EQ(remove({identifier(40)}), 4);
    EXPECT_THAT(logged(), ElementsAre("2 Cannot find the volume\n"));
    EXPECT_THAT(removals(), ElementsAre("v1", "v2")) << "no removal without a name";
}

TEST_F(VolumesTest, failedAndEmptyRemovals) {
    control::failCall("api_removeVVs", 1, control::Repeat::once, ERR_QRV_VV_HAS_VLUNS);
    EXPECT_EQ(remove({identifier(1)}), 4);
    control::timeOutGate(2);
    EXPECT_EQ(remove({identifier(1)}), 4);
    EXPECT_THAT(logged(), ElementsAre("2 Volume deletion failed\n", "2 Volume deletion failed\n"));
    EXPECT_EQ(remove({}), 0);
    EXPECT_THAT(removals(), ElementsAre("v1", "")) << "no names go to the array too";
}

TEST_F(VolumesTest, aLockedVolumeIsTriedAgainWithItsNameLookedUpAnew) {
    Array<CIMObjectPath> paths = pathsOf({identifier(1), identifier(20)});
    control::lockVolume("v1");
    std::vector<std::chrono::seconds> pauses;
    const int result = removeVolumes(&_event, paths, 0, [&](std::chrono::seconds time) {
        EXPECT_TRUE(control::outstanding().idle()) << control::describe(control::outstanding());
        pauses.push_back(time);
        addVolume(20);
        control::lockVolume("v1", false);
    });
    EXPECT_EQ(result, 0);
    EXPECT_THAT(pauses, ElementsAre(2s));
    EXPECT_THAT(removals(), ElementsAre("v1", "v1,v20"));
}

TEST_F(VolumesTest, aVolumeThatStaysLockedIsGivenUp) {
    Array<CIMObjectPath> paths = pathsOf({identifier(1)});
    control::lockVolume("v1");
    int pauses = 0;
    EXPECT_EQ(removeVolumes(&_event, paths, 0, [&](std::chrono::seconds) { ++pauses; }), 4);
    EXPECT_EQ(pauses, 10);
    EXPECT_EQ(control::callCount("api_removeVVs"), 11U);
    EXPECT_THAT(logged(), ElementsAre("2 Volumes are busy, cannot be removed\n"));
}

// ---- What was built into a unit -----------------------------------------------------------------

TEST_F(VolumesTest, aUnitsRecordBecomesProperties) {
    const api_mfg_t record{"vendor", "model", "serial", "SS", "SP", "PART", "MODEL", "REV", "SUM"};
    const auto propertiesWith = [](const api_mfg_t* given, int saleable) {
        CIMInstance instance(CIMName("X"));
        for (const char* name : {"SaleableSerialNumber", "SaleableProductNumber", "SparePartNumber",
                                 "ModelName", "AssemblyRevision", "Checksum"})
            instance.addProperty(CIMProperty(CIMName(name), CIMValue(String("-"))));
        QRV_Common::setMfgFRU(given, saleable, instance);
        std::string values;
        for (Uint32 i = 0; i < instance.getPropertyCount(); ++i)
            values += static_cast<const char*>(
                (instance.getProperty(i).getValue().toString() + " ").getCString());
        return values;
    };
    EXPECT_EQ(propertiesWith(&record, 1), "- - - - - - ") << "these units have no records";
    setSystem(R"("ipv4Address": "192.0.2.1", "unitRecords": true)");
    EXPECT_EQ(propertiesWith(&record, 1), "SS SP PART MODEL REV SUM ");
    EXPECT_EQ(propertiesWith(&record, 0), "- - PART MODEL REV SUM ");
    EXPECT_EQ(propertiesWith(nullptr, 1), "- - - - - - ");
}

}  // namespace
