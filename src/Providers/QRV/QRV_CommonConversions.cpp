#include <Pegasus/Common/Exception.h>
#include <arpa/inet.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>

#include "QRV_Common.h"
#include "QRV_InstanceID.h"
#include "QRV_Text.h"
#include "QRV_Trace.h"

namespace Pegasus {

namespace {

/// Minutes east of UTC, without seconds.
int utcOffset(const tm& local) {
    return static_cast<int>(local.tm_gmtoff / 60);
}

tm localTime(time_t time) {
    tm local{};
    localtime_r(&time, &local);
    return local;
}

/// The number in `count` characters of a text, as atoi reads it.
int numberAt(const char* text, int position, int count) {
    char digits[8] = {};
    std::memcpy(digits, text + position, static_cast<std::size_t>(count));
    return std::atoi(digits);
}

/// The CIM values of one port state.
struct PortState {
    api_port_status_t state;
    Uint16 operationalStatus;
    Uint16 healthState;
};

constexpr PortState PORT_STATES[] = {
    {PORT_CONFIG_WAIT, 10, 5},    {PORT_ALPA_WAIT, 8, 5},
    {PORT_LOGIN_WAIT, 8, 5},      {PORT_OK, 2, 5},
    {PORT_LOSS_SYNC, 13, 5},      {PORT_ERROR, 6, 20},
    {PORT_NONPARTICIPATE, 6, 20}, {PORT_COREDUMP, 6, 25},
    {PORT_OFFLINE, 10, 10},       {PORT_FWDEAD, 7, 30},
    {PORT_IDLE_FOR_RESET, 8, 5},  {PORT_DHCP_IN_PROGRESS, 8, 5},
    {PORT_PENDING_RESET, 8, 5},
};

/// The table's row, or zeroes for a state that CIM has no word for.
PortState portState(api_port_status_t state) {
    for (const PortState& each : PORT_STATES)
        if (each.state == state) return each;
    return {state, 0, 0};
}

enum AddressKind { IPV4 = 1, IPV6 = 2 };

/// The system's addresses, once the array has told them.
struct SystemAddresses {
    std::mutex lock;
    String _systemIPv4Addr;
    String _systemIPv6Addr;
};

String addressText(int family, const void* address) {
    char text[128];
    return inet_ntop(family, address, text, sizeof text) == nullptr ? String() : String(text);
}

/// Asks the array unless it has answered before; a failure is asked again at the next call.
void readAddresses(SystemAddresses& addresses) {
    api_ipaddr_t dual{};
    if (addresses._systemIPv4Addr.size() > 0 || api_getSystemDualIP(&dual) != 0) return;
    addresses._systemIPv4Addr = addressText(AF_INET, &dual.ipv4_addr);
    if (dual.dual_flag > 2) addresses._systemIPv6Addr = addressText(AF_INET6, dual.ipv6_addr);
}

/// The process's generator of random numbers, seeded at the first use.
class RandomNumbers {
  public:
    RandomNumbers() {
        initstate_r(static_cast<unsigned int>(time(nullptr)), _states, sizeof _states, &_buffer);
    }

    Uint32 next() {
        const std::lock_guard guard(_lock);
        int32_t number = 0;
        random_r(&_buffer, &number);
        return static_cast<Uint32>(number);
    }

  private:
    std::mutex _lock;
    char _states[256] = {};
    random_data _buffer = {};
};

}  // namespace

int QRV_Common::getNodePairIndex(int nodePosition) {
    return nodePosition >= 0 && nodePosition < 8 ? nodePosition / 2 : -1;
}

CIMDateTime QRV_Common::getCIMDateTime(time_t time) {
    const tm local = localTime(time);
    const int offset = utcOffset(local);
    char text[80];
    std::snprintf(text, sizeof text, "%04d%02d%02d%02d%02d%02d.%06d%c%03d", local.tm_year + 1900,
                  local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec, 0,
                  offset < 0 ? '-' : '+', std::abs(offset));
    CIMDateTime dateTime;
    dateTime.clear();
    dateTime.set(text);
    return dateTime;
}

time_t QRV_Common::getDateTime(const CIMDateTime& cimTime) {
    tm fields;
    if (cimTime.isInterval() || _formatDateTime(cimTime.toString().getCString(), &fields) < 1)
        return 0;
    const time_t time = mktime(&fields);
    if (time == -1) throw DateTimeOutOfRangeException(cimTime.toString());
    return time;
}

int QRV_Common::_formatDateTime(const char* timeString, tm* tmval) {
    *tmval = tm{};
    const int year = numberAt(timeString, 0, 4);
    if (year == 0) return 0;
    tmval->tm_year = year - 1900;
    tmval->tm_mon = numberAt(timeString, 4, 2) - 1;
    if (tmval->tm_year < 0 || tmval->tm_mon < 0) return -1;
    tmval->tm_mday = numberAt(timeString, 6, 2);
    tmval->tm_hour = numberAt(timeString, 8, 2);
    tmval->tm_min = numberAt(timeString, 10, 2);
    tmval->tm_sec = numberAt(timeString, 12, 2);
    tmval->tm_isdst = -1;
    return 1;
}

String QRV_Common::getTimeZone() {
    const int offset = utcOffset(localTime(time(nullptr)));
    char text[32];
    std::snprintf(text, sizeof text, offset < 1 ? "GMT-%d" : "GMT+%d", std::abs(offset) / 60);
    return text;
}

api_portids_t QRV_Common::getPortIDs(Array<String> lpids) {
    const Uint32 count = lpids.size();
    std::unique_ptr<qrv_u16[]> ids(new (std::nothrow) qrv_u16[count]);
    for (Uint32 i = 0; ids != nullptr && i < count; ++i) {
        ids[i] = QRV_NO_PORT;
        api_convertStrLPIDtoPortID(lpids[i].getCString(), &ids[i]);
    }
    return {count, ids.release()};
}

lpid_t QRV_Common::getPortLPID(Uint64 wwn) {
    lpid_t lpid = QRV_NO_PORT;
    api_getFCPortLPID(wwn, &lpid);
    return lpid;
}

lpid_t QRV_Common::getPortLPID(String& iscsiName) {
    char name[224];
    copyText(name, iscsiName.getCString());
    lpid_t lpid = QRV_NO_PORT;
    api_getiSCSIPortLPID(name, &lpid);
    return lpid;
}

Uint16 QRV_Common::getPortOperationalStatus(api_port_status_t status) {
    return portState(status).operationalStatus;
}

Uint16 QRV_Common::getPortHealthState(api_port_status_t status) {
    return portState(status).healthState;
}

String QRV_Common::extractFromInstanceID(const String& instanceID) {
    const String prefix(VENDOR_MARK);
    const Uint32 found = instanceID.find(prefix);
    return found == PEG_NOT_FOUND ? String() : instanceID.subString(found + prefix.size());
}

String QRV_Common::getSystemIPAddr(int iptype) {
    static SystemAddresses addresses;
    if (iptype != IPV4 && iptype != IPV6) {
        log_message(2, "QRV_Common, getSystemIPAddr: Invalid IP type parameter!\n");
        return String();
    }
    const std::lock_guard guard(addresses.lock);
    readAddresses(addresses);
    return iptype == IPV4 ? addresses._systemIPv4Addr : addresses._systemIPv6Addr;
}

void QRV_Common::generate_random_string(char* str, unsigned int len) {
    static constexpr char ALPHABET[] =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
    static RandomNumbers numbers;
    if (len == 0 || str == nullptr) {
        qrv_print_no_evt("Assertion failed: %s\n", "len > 0 && str != NULL");
        qrv_panic("Assertion point: file: %s, line: %d\n", __FILE__, __LINE__);
        return;
    }
    for (unsigned int i = 0; i + 1 < len; ++i)
        str[i] = ALPHABET[numbers.next() % (sizeof ALPHABET - 1)];
    str[len - 1] = '\0';
}

Uint32 QRV_Common::getInstanceThreshold(Uint32 th_scale) {
    rlimit64 limit{};
    getrlimit64(RLIMIT_AS, &limit);
    const auto rlimMB = static_cast<Uint32>(limit.rlim_cur / 1000000);
    log_message(4, "soft limit = %u, maxInstScale factor = %u\n", rlimMB, th_scale);
    return rlimMB * th_scale;
}

}  // namespace Pegasus
