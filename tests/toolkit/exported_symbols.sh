#!/usr/bin/env bash
# The module exports its entry, the toolkit and the builders that siblings call, and nothing else.
# Usage: exported_symbols.sh LIBRARY
set -euo pipefail
Pegasus::QRV_Common::RCTargetToSysname
Pegasus::QRV_Common::buildAssocInstance
Pegasus::QRV_Common::buildAssocPath
Pegasus::QRV_Common::buildDepAssocInstance
Pegasus::QRV_Common::buildDepAssocPath
Pegasus::QRV_Common::buildInstanceSkeleton
Pegasus::QRV_Common::buildSPCInstance
Pegasus::QRV_Common::buildSPCInstances
Pegasus::QRV_Common::buildSPCObjectPath
Pegasus::QRV_Common::deReferenceSPCDeviceID
Pegasus::QRV_Common::enumerateInstanceNames
Pegasus::QRV_Common::extractFromInstanceID
Pegasus::QRV_Common::fillInVVNames
Pegasus::QRV_Common::filterAssocInstanceToTargetInstances
Pegasus::QRV_Common::filterAssocInstanceToTargetPaths
Pegasus::QRV_Common::filterReferenceNames
Pegasus::QRV_Common::generate_random_string
Pegasus::QRV_Common::getCIMDateTime
Pegasus::QRV_Common::getDateTime
Pegasus::QRV_Common::getInstanceThreshold
Pegasus::QRV_Common::getNodePairIndex
Pegasus::QRV_Common::getParameter
Pegasus::QRV_Common::getPolicy
Pegasus::QRV_Common::getPortHealthState
Pegasus::QRV_Common::getPortIDs
Pegasus::QRV_Common::getPortLPID
Pegasus::QRV_Common::getPortOperationalStatus
Pegasus::QRV_Common::getProperty
Pegasus::QRV_Common::getPropertyValue
Pegasus::QRV_Common::getStoredCIMClass
Pegasus::QRV_Common::getStringProperty
Pegasus::QRV_Common::getSystemAddress
Pegasus::QRV_Common::getSystemHostName
Pegasus::QRV_Common::getSystemID
Pegasus::QRV_Common::getSystemIPAddr
Pegasus::QRV_Common::getSystemName
Pegasus::QRV_Common::getSystemObjectPath
Pegasus::QRV_Common::getSystemPkgObjectPath
Pegasus::QRV_Common::getSystemType
Pegasus::QRV_Common::getSystemViewObjectPath
Pegasus::QRV_Common::getTimeZone
Pegasus::QRV_Common::handleComplete
Pegasus::QRV_Common::handleDeliver
Pegasus::QRV_Common::handleProcessing
Pegasus::QRV_Common::invokeMethod
Pegasus::QRV_Common::isPartOfArray
Pegasus::QRV_Common::isPoolPath
Pegasus::QRV_Common::isQuadPortSystem
Pegasus::QRV_Common::matchObjectPath
Pegasus::QRV_Common::removeVVs
Pegasus::QRV_Common::setEventOp
Pegasus::QRV_Common::setEventParam
Pegasus::QRV_Common::setMfgFRU
Pegasus::QRV_Common::setPolicy
Pegasus::QRV_Common::setPropertyValue
Pegasus::QRV_Common::setPropertyValueToNull
Pegasus::QRV_Common::verifyRefMethodParam
Pegasus::QRV_StorageClientSettingDataProvider::buildInstance
Pegasus::QRV_StorageClientSettingDataProvider::buildObjectPath
Pegasus::QRV_StorageClientSettingDataProvider::extractPersonaNumber
Pegasus::QRV_StorageClientSettingDataProvider::makeUniqueID
Pegasus::QRV_StorageClientSettingDataProvider::setPersonaClientTypes
Pegasus::QRV_StorageDomainGroup::buildInstanceName
Pegasus::QRV_StorageDomainGroup::buildObjectPath
Pegasus::QRV_StorageHardwareIDCollectionProvider::buildInstanceName
Pegasus::QRV_StorageHardwareIDProvider::buildInstance
Pegasus::QRV_StorageHardwareIDProvider::buildInstanceName
Pegasus::QRV_StorageHardwareIDProvider::extractHostWWNOrISCSIName
Pegasus::QRV_StorageHardwareIDProvider::isFCStorageHardwareID
Pegasus::QRV_StorageHardwareIDProvider::isISCSIStorageHardwareID
Pegasus::QRV_StorageHardwareIDProvider::makeFCHardwareIDInstanceID
Pegasus::QRV_StorageHardwareIDProvider::makeISCSIHardwareIDInstanceID
PegasusCreateProvider'
exported=$(nm --dynamic --defined-only --extern-only --demangle=gnu-v3 "$1" | cut -d' ' -f3- |
    grep -v '^\(__\)\?\(asan\|odr_asan\|ubsan\|tsan\)' |
    sed -E 's/^(int|void) (Pegasus::QRV_Common::)/\2/; s/[<(].*//' | LC_ALL=C sort -u)
diff <(LC_ALL=C sort -u <<<"$expected") <(echo "$exported")
