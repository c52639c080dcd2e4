// Owners of the records that the array library hands out: each releases its record on every road.
#pragma once

#include <qrvapi.h>

#include <cstdlib>
#include <memory>
#include <utility>

namespace Pegasus {

/// Releases a block that the library allocated as one piece.
struct FreeBlock {
    void operator()(void* block) const { std::free(block); }
};

/// A block of records of one kind, with their number.
template <class Record>
class RecordBlock {
  public:
    RecordBlock() = default;

    /// Takes over the block at `records` with its `count` records, none included. A null block has
    /// none.
    RecordBlock(Record* records, int count)
        : _records(records), _count(records != nullptr && count > 0 ? count : 0) {}

    const Record* begin() const { return _records.get(); }
    const Record* end() const { return _records.get() + _count; }

  private:
    std::unique_ptr<Record, FreeBlock> _records;
    int _count = 0;
};

/// A list that the library fills and takes back through a call of its own; an empty one goes back
/// too.
template <class List, void (*RELEASE)(List*)>
class OwnedList {
  public:
    OwnedList() = default;
    ~OwnedList() { RELEASE(&_list); }

    OwnedList(OwnedList&& other) noexcept : _list(std::exchange(other._list, List{})) {}
    OwnedList& operator=(OwnedList&& other) noexcept {
        std::swap(_list, other._list);
        return *this;
    }

    /// Where the library puts its answer; only for a list that is still empty.
    List* receive() { return &_list; }

    /// For a call that adds to a list that the library has filled.
    List* change() { return &_list; }

    const List* operator->() const { return &_list; }
    const List& operator*() const { return _list; }

  private:
    List _list{};
};

/// The answer of api_getHosts.
using HostList = OwnedList<api_HostsInfo_t, api_freeHosts>;

/// The answer of api_getHostPersonaList.
using PersonaList = OwnedList<api_hostpersonalist_t, api_freeHostPersonas>;

/// The answer of api_getDomainSets.
using SetList = OwnedList<api_setlist, api_freeSets>;

/// A question about VLUNs with its answer, and what a walk over them carries.
using VlunQuery = OwnedList<api_VLUNsInfo, api_freeVLUNs>;
using VlunWalkData = OwnedList<api_spc_param_data, api_freeSPCParamData>;

/// The answer of api_getISCSIPorts.
using ISCSIPorts = RecordBlock<api_ISCSIPort_t>;

/// The answer of api_getHostPaths.
using HardwareIDRecords = RecordBlock<api_hardwareID_t>;

/// The conditions of a volume query, and its answer.
using VolumeFilters = OwnedList<api_getvv_filters_t, api_getvv_filter_free>;
using VolumeRecords = RecordBlock<api_vv_t>;

/// A list of volumes as api_removeVVs takes it.
using VolumeNames = RecordBlock<api_name_t>;

}  // namespace Pegasus
