// The toolkit that all providers of the system share, exported to the sibling provider libraries.
#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <qrvapi.h>

#include <ctime>

namespace Pegasus {

/// The kinds of operation that one function may answer through a cim_handler_u.
enum cim_method_e {
    QRVCIM_ASSOCIATORS = 0,
    QRVCIM_ASSOCIATORNAMES = 1,
    QRVCIM_REFERENCES = 2,
    QRVCIM_REFERENCENAMES = 3,
    QRVCIM_GETINSTANCE = 4,
    QRVCIM_ENUMERATEINSTANCES = 5,
    QRVCIM_ENUMERATEINSTANCENAMES = 6
};

/// The response handler of an operation; which member is set follows from the operation's kind.
union cim_handler_u {
    ResponseHandler* response;
    InstanceResponseHandler* instanceResponse;
    ObjectPathResponseHandler* objectPathResponse;
    ObjectResponseHandler* objectResponse;
};

/// Policy bits that the sibling libraries share through the internal cache.
typedef qrv_u32 cim_policy_t;

/// What a RAID level gives. Redundancies are numbers of copies, depths are in bytes.
struct raidMappingTable_s {
    int raidType;  ///< 0, 10, 50 or 60.
    Uint16 packageRedundancy;
    Uint16 dataRedundancy;
    bool noSinglePointOfFailure;
    Uint16 extentStripeLengthDefault;
    Uint64 userDataStripeDepthDefaultFCNL;
    Uint64 userDataStripeDepthDefaultSSD;
};

/// The RAID levels of the array.
extern PEGASUS_EXPORT const raidMappingTable_s raidMappingTable[4];

/// Static members only. Every function may be called on any thread.
class PEGASUS_EXPORT QRV_Common {
  public:
    QRV_Common() = delete;

    // ---- Properties and parameters -------------------------------------------------------------

    /// Reads a property. 0: `value` holds it; 3: no such property; 4: the property is null (`value`
    /// stays as it was in both). Throws TypeMismatchException when the property has another type.
    /// T is CIMObjectPath, Array<String>, Array<Sint32>, Array<Uint16>, Uint64, Uint32, Uint16,
    /// Uint8, Boolean or CIMDateTime.
    template <class T>
    static int getProperty(CIMInstance& instance, const String& name, T& value);

    /// Reads a method parameter by name, ignoring case. 0: `value` holds the first of that name
    /// that isn't null; 4: likewise, but null ones of that name stood before it; 3: none with a
    /// value, and `value` stays as it was. Throws TypeMismatchException when the parameter has
    /// another type. T is Uint8, Uint16, Array<Uint16>, Uint32, Uint64, Boolean, CIMDateTime,
    /// CIMObjectPath, String or Array<String>.
    template <class T>
    static int getParameter(const Array<CIMParamValue>& params, const String& name, T& value);

    /// The value of a property: null when there is no such property, the empty string when the name
    /// is empty or the instance uninitialized.
    static CIMValue getPropertyValue(const CIMInstance& instance, const String& name);

    /// The value of a string property, empty when it is missing or null. Throws
    /// TypeMismatchException for a property of another type.
    static String getStringProperty(const CIMInstance& instance, const String& name);

    /// The text of a key, whatever its type, or empty when the path has no key of that name.
    static String getStringProperty(const CIMObjectPath& path, const String& name);

    /// Sets a property in place; one that the instance doesn't have is left out. Throws
    /// TypeMismatchException when the property has another type.
    /// T is String, Boolean, Uint8, Uint16, Uint32, Uint64, Sint16, Array<String>, Array<Uint16>,
    /// Array<Sint32>, Array<Uint64>, Array<Boolean>, Array<CIMDateTime>, CIMObjectPath or
    /// CIMDateTime.
    template <class T>
    static void setPropertyValue(CIMInstance& instance, CIMName name, const T& value);

    /// Replaces a property, when the instance has it, by one that embeds `value`. It moves to the
    /// end.
    static void setPropertyValue(CIMInstance& instance, CIMName name, const CIMInstance& value);

    /// Sets a scalar property to null; one that the instance doesn't have is left out.
    static void setPropertyValueToNull(CIMInstance& instance, CIMName name, CIMType type);

    // ---- Classes and handlers ------------------------------------------------------------------

    /// The class limited to the property list, from the class cache of the sibling libraries.
    static CIMClass getStoredCIMClass(CIMOMHandle& cimom, const OperationContext& context,
                                      const CIMNamespaceName& nameSpace, const CIMName& className,
                                      Boolean localOnly, Boolean includeQualifiers,
                                      Boolean includeClassOrigin,
                                      const CIMPropertyList& propertyList);

    /// An instance with all properties of the class, at their defaults. With a class that was
    /// fetched with the client's property list it holds just what was asked for, and
    /// setPropertyValue passes over the rest: this is how a provider filters.
    static CIMInstance buildInstanceSkeleton(CIMClass& cimClass);

    /// processing(), complete() and deliver on the handler that belongs to the kind. Instances are
    /// delivered as instances, objects or paths; a kind that cim_method_e doesn't name does
    /// nothing.
    static void handleProcessing(cim_handler_u handler, cim_method_e method);
    static void handleComplete(cim_handler_u handler, cim_method_e method);
    static void handleDeliver(cim_handler_u handler, cim_method_e method,
                              const CIMInstance& instance);

    // ---- Object paths --------------------------------------------------------------------------

    /// Whether two paths name the same object. Hosts don't count, neither the paths' own nor that
    /// of a path held by a key, and such a key may be a reference or a string. The namespace
    /// counts.
    static Boolean matchObjectPath(const CIMObjectPath& path1, const CIMObjectPath& path2);

    /// Checks a reference that a client passed to a method: its namespace, filled in here when it
    /// has none, is `nameSpace`, and its host is empty, `systemAddress`, or an address of the
    /// system. What doesn't fit is logged. With classes, the reference's class has to be one of
    /// them.
    static Boolean verifyRefMethodParam(CIMObjectPath& ref, CIMNamespaceName nameSpace,
                                        String& systemAddress);
    static Boolean verifyRefMethodParam(CIMObjectPath& ref, CIMNamespaceName nameSpace,
                                        String& systemAddress, CIMName expectedClass);
    static Boolean verifyRefMethodParam(CIMObjectPath& ref, CIMNamespaceName nameSpace,
                                        String& systemAddress, Array<CIMName>& expectedClasses);

    /// Whether any key of the path has this value, whatever the key's name and the value's case.
    static Boolean isPoolPath(const CIMObjectPath& objectName, const String& instanceID);

    /// Whether the array holds the element: texts with case, paths by matchObjectPath(), names
    /// without case.
    static bool isPartOfArray(const String& element, const Array<String>& array);
    static bool isPartOfArray(const CIMObjectPath& element, const Array<CIMObjectPath>& array);
    static bool isPartOfArray(const CIMObjectPath& element, const Array<CIMInstance>& array);
    static bool isPartOfArray(const CIMName& element, const Array<CIMName>& array);

    // ---- Associations --------------------------------------------------------------------------

    /// The path of an association: one reference key for each end, in the order given. The host of
    /// each end is `hostAddress1` and `hostAddress2`, that of the association `localAddress`; the
    /// forms with one `hostAddress` use it for all. The paths passed in stay as they are.
    static CIMObjectPath buildAssocPath(const CIMName& assocClass, const String& assocName1,
                                        const String& assocName2, const CIMObjectPath& assocPath1,
                                        const CIMObjectPath& assocPath2, const String& hostAddress1,
                                        const String& hostAddress2, const String& localAddress,
                                        String nameSpace);
    static CIMObjectPath buildAssocPath(const CIMName& assocClass, const String& assocName1,
                                        const String& assocName2, const CIMObjectPath& assocPath1,
                                        const CIMObjectPath& assocPath2, const String& hostAddress,
                                        String nameSpace);
    static CIMObjectPath buildAssocPath(const CIMName& assocClass, const String& assocName1,
                                        const String& assocName2, const String& assocName3,
                                        const CIMObjectPath& assocPath1,
                                        const CIMObjectPath& assocPath2,
                                        const CIMObjectPath& assocPath3, const String& hostAddress,
                                        String nameSpace);

    /// The association itself, with these references as properties as far as the class has them,
    /// and with its path.
    static CIMInstance buildAssocInstance(const CIMName& assocClass, const String& assocName1,
                                          const String& assocName2, const CIMObjectPath& assocPath1,
                                          const CIMObjectPath& assocPath2, CIMClass& classSkeleton,
                                          const String& hostAddress1, const String& hostAddress2,
                                          const String& localAddress, String nameSpace);
    static CIMInstance buildAssocInstance(const CIMName& assocClass, const String& assocName1,
                                          const String& assocName2, const CIMObjectPath& assocPath1,
                                          const CIMObjectPath& assocPath2, CIMClass& classSkeleton,
                                          const String& hostAddress, String nameSpace);
    static CIMInstance buildAssocInstance(const CIMName& assocClass, const String& assocName1,
                                          const String& assocName2, const String& assocName3,
                                          const CIMObjectPath& assocPath1,
                                          const CIMObjectPath& assocPath2,
                                          const CIMObjectPath& assocPath3, CIMClass& classSkeleton,
                                          const String& hostAddress, String nameSpace);

    /// The same for a dependency, with ends Antecedent and Dependent as they come, hosts and all.
    static CIMObjectPath buildDepAssocPath(const String& systemAddress, const CIMName& assocClass,
                                           const CIMObjectPath& antecedent,
                                           const CIMObjectPath& dependent);
    static CIMInstance buildDepAssocInstance(const String& systemAddress, const CIMName& assocClass,
                                             const CIMObjectPath& antecedent,
                                             const CIMObjectPath& dependent,
                                             CIMClass& classSkeleton);

    /// The associations of class `resultClass` (null: any) that refer to `objectName`, in `role` if
    /// one is given. A role that an association doesn't have throws CIMException
    /// CIM_ERR_INVALID_PARAMETER.
    static Array<CIMInstance> filterReferenceNames(
        const Array<CIMInstance>& targetAssociationInstanceList, const CIMObjectPath& objectName,
        const CIMName& resultClass, const String& role);

    /// The far ends of one association, seen from `targetObjectPath`: those of one of the classes
    /// (none given: any), in `resultRole` if one is given. The second form gives the instances of
    /// these paths.
    static Array<CIMObjectPath> filterAssocInstanceToTargetPaths(
        CIMInstance& assocInstance, const CIMObjectPath& targetObjectPath,
        Array<CIMName>& resultClass, String resultRole);
    static Array<CIMInstance> filterAssocInstanceToTargetInstances(
        CIMInstance& assocInstance, const CIMObjectPath& targetObjectPath,
        const Array<CIMInstance>& resultInstanceList, Array<CIMName>& resultClass,
        String resultRole);

    // ---- Conversions ---------------------------------------------------------------------------

    /// Which pair of nodes a node position belongs to; -1 for no position.
    static int getNodePairIndex(int nodePosition);

    /// A point in time as CIM writes it, in local time with its offset, and back. The way back
    /// takes the fields as local time, without a look at the offset; an interval of any length, a
    /// year of 0 (a wildcard) and one before 1900 give 0. Throws DateTimeOutOfRangeException for a
    /// time that doesn't exist.
    static CIMDateTime getCIMDateTime(time_t time);
    static time_t getDateTime(const CIMDateTime& cimTime);

    /// The local offset in whole hours, as "GMT+1"; "GMT-0" at UTC.
    static String getTimeZone();

    /// The port numbers of these texts, QRV_NO_PORT for a text that is none. The caller releases
    /// `portIDs` with delete[]; it is null when there was no memory.
    static api_portids_t getPortIDs(Array<String> lpids);

    /// The array's port with this WWN or iSCSI name; QRV_NO_PORT when there is none.
    static lpid_t getPortLPID(Uint64 wwn);
    static lpid_t getPortLPID(String& iscsiName);

    /// A port's state in CIM's numbers; 0 for a state that CIM has no number for.
    static Uint16 getPortOperationalStatus(api_port_status_t status);
    static Uint16 getPortHealthState(api_port_status_t status);

    /// What follows the first "ORVELIS:" in an InstanceID; empty without it.
    static String extractFromInstanceID(const String& instanceID);

    /// The system's IPv4 (1) or IPv6 (2) address as text; empty when it has none. It is read from
    /// the array at the first use that succeeds.
    static String getSystemIPAddr(int iptype);

    /// Fills `str` with `len` - 1 random letters, digits and underscores, and a NUL. `str` isn't
    /// null and `len` not 0; otherwise the fault is reported and nothing is written.
    static void generate_random_string(char* str, unsigned int len);

    /// The process's limit on address space, in millions of bytes, times `th_scale`, in 32 bits.
    static Uint32 getInstanceThreshold(Uint32 th_scale);

    // ---- Protocol controllers ------------------------------------------------------------------

    /// Takes the DeviceID of a controller apart: the kind of VLUN behind it, its host's name, which
    /// the array is asked for, and its port. What the text doesn't tell is 0 for an unknown prefix,
    /// empty and QRV_NO_PORT; without a colon `vlunType` stays as it was. With `isISCSINode` the
    /// text is the DeviceID of an iSCSI port instead, and `portLPID` becomes that port. Failures of
    /// the array leave host and port untold.
    static void deReferenceSPCDeviceID(String& deviceID, Uint32& vlunType, String& host,
                                       lpid_t& portLPID, Boolean isISCSINode);

    /// The path of a controller of class `className`.
    static CIMObjectPath buildSPCObjectPath(String systemClass, const String& hostAddr,
                                            const String& sysName, const String& deviceID,
                                            CIMName className);

    /// The controller that a VLUN makes, with its path. The record stays the caller's.
    static CIMInstance buildSPCInstance(String systemClass, CIMClass scsiControllerClass,
                                        api_vlun_t* curVlunPtr, const String& sysName,
                                        const String& hostAddr);

    /// Reads the next `chunk_size` controllers of a walk, or all the rest when that is 0, and
    /// appends those of class `className` (QRV_SCSIController or QRV_iSCSIController). When
    /// `instanceReference` has a class, only the one that it names by its DeviceID, in any case, is
    /// appended. The caller owns `spcParam` and `*cursor_id` and repeats the call until the cursor
    /// is 0 again. `maxInstCount` has no effect.
    ///
    /// A failed read is logged and appends nothing; with a `chunk_size` it ends the walk:
    /// `spcParam` is released, and unless the cursor is 0 CIMException CIM_ERR_INVALID_PARAMETER is
    /// thrown. Exceptions while instances are built pass, with `spcParam` released.
    static void buildSPCInstances(CIMOMHandle& cimom, const OperationContext& context,
                                  const CIMObjectPath& instanceReference, String& systemName,
                                  String& hostAddr, CIMName className, Boolean includeQualifiers,
                                  Boolean includeClassOrigin, const CIMPropertyList& propertyList,
                                  Uint32 maxInstCount, Array<CIMInstance>& controllerInsts,
                                  api_spc_param_data* spcParam, Uint32* cursor_id,
                                  Uint32 chunk_size);

    /// Renames the host behind a controller, which is the one thing that a client may change of it:
    /// ElementName, by way of a matched set or host sees controller. `propertyList` says which of
    /// `instanceObject`'s properties count, all when it is null; `includeQualifiers` isn't read.
    ///
    /// Throws TraceableCIMException for a requester without the right; CIMOperationFailedException
    /// without a DeviceID, or with the array's text when it refuses the name;
    /// CIMInvalidParameterException for any other property; CIMNotSupportedException for other
    /// controllers and for an empty name. An empty list, and the name that the host has, change
    /// nothing.
    static void modifySPC(const OperationContext& context, const CIMObjectPath& instanceReference,
                          const CIMInstance& instanceObject, Boolean includeQualifiers,
                          const CIMPropertyList& propertyList, ResponseHandler& handler);

    /// The name of the array behind a target of remote copy; empty when there is no such target.
    static String RCTargetToSysname(const api_rcopy_t& rcopy, const String& targetName);

    // ---- Events --------------------------------------------------------------------------------

    /// Fills the record that goes with every call that changes the array. Texts are cut to fit,
    /// null ones leave their field empty, and cb_code isn't touched. Returns 0, or 1 with a log
    /// line when `eventp` is null; the form with a text about the object always returns 0.
    static int setEventParam(api_evtparam_t* eventp, const char* className, const char* method,
                             const char* op, const char* user, const char* addr);
    static int setEventParam(api_evtparam_t* eventp, const char* className, const char* method,
                             const char* op, const char* user, const char* addr,
                             const char* evtText);

    /// Sets the operation within the method. Returns 0, or 1 with a log line when `eventp` is null.
    static int setEventOp(api_evtparam_t* eventp, const char* op);

    // ---- Volumes -------------------------------------------------------------------------------

    /// Appends the names of the volumes whose paths these are, in the array's order; a volume that
    /// the array doesn't know is left out. 0: done; 4: none was found, or the array refused, with
    /// what was read before left appended; 5: `memberVols` is empty. Failures are logged.
    static int fillInVVNames(Array<CIMObjectPath>& memberVols, Array<String>& vvNames);

    /// The same in the form that api_removeVVs takes. 0: `*vvNames` is a block of `*memberCount`
    /// names that the caller releases with free(); 4 in all other cases, and there is no block.
    static int fillInVVNames(Array<CIMObjectPath>& memberVols, api_name_t** vvNames,
                             unsigned int* memberCount);

    /// Removes volumes. 0: all are gone; 32768: those that the array knows are gone, but it doesn't
    /// know them all; 4: it knows none, or refused. Locked volumes are tried again every two
    /// seconds for up to ten times, without the access semaphore in between.
    static int removeVVs(api_evtparam_t* apiEventp, Array<CIMObjectPath>& volRefs, Uint32 noWait);

    /// Sets the properties that tell what was built into a unit, and for one that is sold by itself
    /// (`saleable` not 0) its serial and product number. Nothing is set without a record, and on an
    /// array whose units have none.
    static void setMfgFRU(const api_mfg_t* mfg, int saleable, CIMInstance& instance);

    // ---- Storage settings ----------------------------------------------------------------------

    /// Fills an instance of a storage setting or storage capabilities class, and sets its path. The
    /// InstanceID alone tells what it is for: a kind of volume or pool, and often a kind of disks.
    /// An InstanceID of no known form gives no caption and only what all instances of the class
    /// have; for a setting these are ChangeableType and LowSpaceWarningThreshold besides its names.
    /// With a RAID level that the array doesn't have, goals, ranges and stripe depths are 0, and
    /// ParityLayout is that of a level without parity. A setting for a thin volume asks for the
    /// system's type, and what getSystemType() throws passes.
    static void fillInRAIDProperties(CIMInstance& instance, const String& systemAddress,
                                     const String& instanceID, const String& elementName,
                                     int raidType);

    /// Whether an InstanceID is that of a setting of this origin: fixed for volumes, fixed for
    /// dynamic pools, either; generated with a default, generated as a goal, either.
    static Boolean isLegacyVolumeFixedSettingFromConcretePoolCap(const String& instanceID);
    static Boolean isDSPFixedSettingFromConcreteOrPrimordialPoolCap(const String& instanceID);
    static Boolean isFixedSettingFromConcretePoolCap(const String& instanceID);
    static Boolean isGenDefSettingFromConcretePoolCap(const String& instanceID);
    static Boolean isGenGoalSettingFromConcretePoolCap(const String& instanceID);
    static Boolean isGenSettingFromConcretePoolCap(const String& instanceID);

    /// The RAID level with these redundancies: 0, 10, 50 or 60; 99 when there is none.
    static int returnRAIDType(Uint16 packageRedundancy, Uint16 dataRedundancy);

    /// Whether two pairs of redundancies have the same RAID level, none for both included, or one
    /// pair has this level.
    static bool isSameRAID(Uint16 dataRedundancy1, Uint16 packageRedundancy1,
                           Uint16 dataRedundancy2, Uint16 packageRedundancy2);
    static bool isSameRAID(Uint16 raidType, Uint16 dataRedundancy, Uint16 packageRedundancy);

    /// A RAID level as "RAID10"; empty for one that the array doesn't have.
    static String getRaidTypeStr(int raidType);

    /// How much a dynamic pool grows by at most, at least and by default, in bytes. It goes by the
    /// number of nodes, which is read from the array at the first use that succeeds; until then the
    /// values are those of the smallest array. With more than eight nodes `min` and `def` stay as
    /// they were.
    static void getDSPAllocUnitBoundaryValues(Uint64& max, Uint64& min, Uint64& def);

    /// The path of a setting or of capabilities.
    static CIMObjectPath buildSettingCapObjectPath(const String& systemAddress,
                                                   const CIMName& className,
                                                   const String& instanceID);

    /// Copies what a goal setting says into the settings that a volume is made with, which the
    /// caller has filled in; a property that is missing or null leaves its field alone, but for
    /// Description, without which there is no comment. `origRaidType` is the volume's level as long
    /// as the goal gives none. An uninitialized goal says nothing; it and one without disk
    /// properties ask for disks of `diskDeviceType` alone, or for nothing when these are FC.
    ///
    /// Values aren't checked: that is the array's part, when the settings are used. A number that
    /// its field doesn't hold becomes the largest that it does, so that the array sees it is too
    /// large. A level of 10 from a template without DataRedundancyGoal leaves the set size alone.
    ///
    /// The i-th entries of all disk properties make the i-th disk pattern. The property that is
    /// read last, in the order of the class, says how many there are, though none goes without its
    /// full conditions: a shorter list with entries shortens them. Patterns that don't fit, or that
    /// the array library refuses, are left out with all that follow.
    ///
    /// A property of another type throws TypeMismatchException, and nothing has been changed.
    static void setStorageSetting(const CIMInstance& goalSettingInst, int origRaidType,
                                  devtype_e diskDeviceType, api_vol_setting_t* pStorageSetting);

    // ---- Identity of the system ----------------------------------------------------------------

    /// The instance names of a class, through a local connection made for this call. Exceptions of
    /// the client pass.
    static Array<CIMObjectPath> enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                       const CIMName& className);

    /// A method call through a local connection made for this call. Exceptions of the client pass.
    static CIMValue invokeMethod(const CIMNamespaceName& nameSpace,
                                 const CIMObjectPath& instanceName, const CIMName& methodName,
                                 const Array<CIMParamValue>& inParameters,
                                 Array<CIMParamValue>& outParameters);

    /// The system's name, as it stands in SystemName keys. Empty when the internal cache gives
    /// none. With a handle a failed local connection is followed by one attempt through the handle.
    static String getSystemName(CIMOMHandle& cimom);
    static String getSystemName();

    /// The host part of every object path. It asks through the local connection alone, so an
    /// exception from there passes.
    static String getSystemHostName(CIMOMHandle& cimom);

    /// The system's address, with the fallback of getSystemName.
    static String getSystemAddress(CIMOMHandle& cimom);

    /// The system's number and model. 0 when the internal cache gives no answer of that name.
    static qrv_u32 getSystemID();
    static int getSystemType();

    /// Whether the system has four ports a card, with the fallback of getSystemName; 0 without
    /// answer.
    static Uint8 isQuadPortSystem(CIMOMHandle& cimom);

    /// The path of the one storage system, system package or system view, with the system's host
    /// name and namespace; empty, with a log line, when there is none. When the local connection
    /// and the handle both fail, getSystemObjectPath lets the handle's exception pass and the other
    /// two log it.
    static CIMObjectPath getSystemObjectPath(CIMOMHandle& cimom);
    static CIMObjectPath getSystemPkgObjectPath(CIMOMHandle& cimom);
    static CIMObjectPath getSystemViewObjectPath(CIMOMHandle& cimom);

    /// The policy bits held by the internal cache.
    static cim_policy_t getPolicy();
    static void setPolicy(cim_policy_t policy);

  private:
    /// Whether a reference of the instance, in `role` if one is given, is `target`, which has
    /// neither host nor namespace. Throws CIMException CIM_ERR_INVALID_PARAMETER for a role that is
    /// no reference of the instance.
    [[gnu::visibility("hidden")]] static Boolean _isInstanceValidReference(
        const CIMObjectPath& target, CIMInstance& instance, const String& role);

    /// Reads the fields of the 25 characters of a date-time. 1: done; 0: the year is 0; -1: it is
    /// before 1900, or there is no month.
    [[gnu::visibility("hidden")]] static int _formatDateTime(const char* timeString, tm* tmval);
};

}  // namespace Pegasus
