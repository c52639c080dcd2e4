#!/usr/bin/env bash
# The life of one host as someone with wbemcli sees it, each answer checked.
#   story.sh --server BIN/qrv-cimserver      starts that server with the array in array.json
#   story.sh --url URL [USER:PASSWORD]       uses one that runs, such as http://localhost:5988
set -euo pipefail

start_server() {
    exec {lines}< <(exec "$1" --port 0 --listen 127.0.0.1 --array "$(dirname "$0")/array.json")
    server=$!
    read -r -u "$lines" line
    [[ $line == *http://* ]] || { echo "$1 did not start: $line" >&2; exit 1; }
    url=http://${line##*http://}
}

finish() {
    wbemcli di "$root:$(collection)" >/dev/null 2>&1 || true  # a story that broke off
    [[ -z ${server:-} ]] || kill "$server"
}

expect() {  # expect WHAT EXPECTED ACTUAL
    [[ $3 == "$2" ]] || { printf 'FAILED %s\n  expected: %s\n  answer:   %s\n' "$@" >&2; exit 1; }
    echo "ok $1"
}

hardware_id() { echo "QRV_StorageHardwareID.InstanceID=\"ORVELIS:$1\""; }
collection() { echo "QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:$host\""; }
setting() { echo "QRV_StorageClientSettingData.InstanceID=\"ORVELIS:PERSONA-$1\""; }

# What a method answers: "NAME: 0" with its output parameters, or the code and text of a failure.
call() {
    { wbemcli cm "$root:$service" "$1" 2>&1 || true; } | sed -n \
        -e 's/^\* wbemcli: Cim: \(([0-9]*)\) .*Unrecognized CIM status code "[0-9]*": /\1 /p; t' \
        -e 's/^\* wbemcli: Cim: \(([0-9]*)\) CIM_ERR_[A-Z_]*: /\1 /p; t' \
        -e 's/^\* wbemcli: //p; t' \
        -e 's/.*" \([A-Za-z]*: \)/\1/p'
}

members() {
    wbemcli ain -ac QRV_MemberOfStorageHardwareIDCollection "$root:$(collection)" |
        sed -n 's/.*ORVELIS:\(.*\)"$/\1/p' | sort | paste -sd' '
}

persona() { wbemcli -nl gi "$root:$(collection)" | sed -n 's/^-HostPersonaID=//p'; }

host=story-host
fc=10000000FEEDF001 second=10000000FEEDF002 iscsi=iqn.2001-05.com.example:story
user=${3:-admin:admin}
case ${1:-} in
    --server) start_server "$2" ;;
    --url) url=$2 ;;
    *) sed -n '2,4p' "$0" >&2; exit 2 ;;
esac
url=${url%/}
root=${url/:\/\//:\/\/$user@}/root/qrv
trap finish EXIT

service=$(wbemcli ein "$root:QRV_StorageHardwareIDManagementService")
service=${service#*/root/qrv:}
created=$(call "CreateHardwareIDCollection.ElementName=\"$host\",HardwareIDs=$(hardware_id "FC-$fc")")
system=${created#*reference): }
system=${system%%/*}
here=$system/root/qrv:
expect "a host with an FC path" \
    "CreateHardwareIDCollection: 0, Collection (reference): ${here%:}$(collection)" "$created"
expect "an iSCSI path in a second call" \
    "AddHardwareIDsToCollection: 0, Collection (reference): ${here%:}$(collection)" \
    "$(call "AddHardwareIDsToCollection.Collection=$here$(collection),HardwareIDs=$(hardware_id "iSCSI-$iscsi")")"
expect "one more FC path" \
    "CreateStorageHardwareID: 0, HardwareID (reference): ${here%:}$(hardware_id "FC-$second")" \
    "$(call "CreateStorageHardwareID.ElementName=\"$host\",StorageID=\"$second\",IDType=2")"
expect "its members" "FC-$fc FC-$second iSCSI-$iscsi" "$(members)"
expect "a name that is taken" "(4) Host $host already exists" \
    "$(call "CreateHardwareIDCollection.ElementName=\"$host\"")"

chap="SetISCSICHAP.Collection=$here$(collection)"
expect "a short secret" "(5) A valid initiatorsecret length in ascii must be 12 to 16 characters" \
    "$(call "$chap,InitiatorSecret=\"short\"")"
expect "CHAP of the initiator" "SetISCSICHAP: 0" "$(call "$chap,InitiatorSecret=\"a secret of 15c\"")"
expect "CHAP of the target" "SetISCSICHAP: 0" \
    "$(call "$chap,TargetCHAPName=\"array\",TargetSecret=\"000102030405060708090a0b0c0d0e0f\",TargetSecretType=1")"
expect "no CHAP any more" "RemoveISCSICHAP: 0" \
    "$(call "RemoveISCSICHAP.Collection=$here$(collection),RemovalScope=2")"
expect "CHAP of the target alone" "(4) Target CHAP needs initiator CHAP" \
    "$(call "$chap,TargetSecret=\"a secret of 15c\"")"

other=$(wbemcli ein "$root:QRV_StorageClientSettingData" | sed -n 's/.*PERSONA-\([0-9]*\)"$/\1/p' |
    grep -vx -m1 2)
expect "persona at first" 2 "$(persona)"
expect "another persona" \
    "CreateStorageHardwareID: 0, HardwareID (reference): ${here%:}$(hardware_id "FC-$fc")" \
    "$(call "CreateStorageHardwareID.StorageID=\"$fc\",IDType=2,Setting=$here$(setting "$other")")"
expect "persona now" "$other" "$(persona)"

expect "a path removed" \
    "DeleteStorageHardwareID: 0, Collection (reference): ${here%:}$(hardware_id "FC-$fc")" \
    "$(call "DeleteStorageHardwareID.HardwareID=$here$(hardware_id "FC-$fc")")"
expect "members left" "FC-$second iSCSI-$iscsi" "$(members)"
expect "the same path again" "(4096) StorageHardwareID //$here$(hardware_id "FC-$fc") not found" \
    "$(call "DeleteStorageHardwareID.HardwareID=$here$(hardware_id "FC-$fc")")"
expect "the host removed" "" "$(wbemcli di "$root:$(collection)" 2>&1)"
expect "CHAP of a host that is gone" "(4096) Host $host does not exist" \
    "$(call "$chap,InitiatorSecret=\"a secret of 15c\"")"
