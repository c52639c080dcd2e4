#!/usr/bin/env python3
"""Who may do what, and what the log tells of it. Usage: rights.py BIN/qrv-cimserver ARRAY [TEST...]"""
import base64
import pathlib
import re
import sys
import tempfile
import unittest

import wire

PROGRAM = ARRAY = None
HOST = ("QRV_StorageHardwareIDCollection", "ORVELIS:erp-db01")
SPARE = ("QRV_StorageHardwareIDCollection", "ORVELIS:staging")
SERVICE = "QRV_StorageHardwareIDManagementService"
SECRETS = {"ascii": "pine-needle-31", "hex": "00112233445566778899aabbccddeeff", "short": "oak-leaf",
           "odd": "zz112233445566778899aabbccddeeff", "other": "mossy-stone-44"}


def name(instance):
    keys = instance[1] if isinstance(instance[1], dict) else {"InstanceID": instance[1]}
    return f'<INSTANCENAME CLASSNAME="{instance[0]}">' + "".join(
        f'<KEYBINDING NAME="{key}"><KEYVALUE VALUETYPE="string">{value}</KEYVALUE></KEYBINDING>'
        for key, value in keys.items()) + "</INSTANCENAME>"


def intrinsic(method, **parameters):
    return wire.message(f'<IMETHODCALL NAME="{method}"><LOCALNAMESPACEPATH><NAMESPACE NAME="root"/>'
                        '<NAMESPACE NAME="qrv"/></LOCALNAMESPACEPATH>' + "".join(
                            f'<IPARAMVALUE NAME="{key}">{value}</IPARAMVALUE>'
                            for key, value in parameters.items()) + "</IMETHODCALL>")


def method(service, called, **parameters):
    path = '<LOCALNAMESPACEPATH><NAMESPACE NAME="root"/><NAMESPACE NAME="qrv"/></LOCALNAMESPACEPATH>'

    def value(given):
        if isinstance(given, tuple):
            return (f'PARAMTYPE="reference"><VALUE.REFERENCE><LOCALINSTANCEPATH>{path}{name(given)}'
                    '</LOCALINSTANCEPATH></VALUE.REFERENCE>')
        return f'PARAMTYPE="{"uint16" if given.isdigit() and len(given) < 3 else "string"}"><VALUE>{given}</VALUE>'
    return wire.message(f'<METHODCALL NAME="{called}"><LOCALINSTANCEPATH>{path}{name(service)}</LOCALINSTANCEPATH>' +
                        "".join(f'<PARAMVALUE NAME="{key}" {value(given)}</PARAMVALUE>'
                                for key, given in parameters.items()) + "</METHODCALL>")


def class_name(text):
    return f'<CLASSNAME NAME="{text}"/>'


def persona(number):
    return (f'<VALUE.NAMEDINSTANCE>{name(HOST)}<INSTANCE CLASSNAME="{HOST[0]}"><PROPERTY '
            f'NAME="HostPersonaID" TYPE="uint32"><VALUE>{number}</VALUE></PROPERTY></INSTANCE></VALUE.NAMEDINSTANCE>')


def outcome(response):
    """The status of HTTP, the code of CIM or "ok"."""
    error = re.search(r'<ERROR CODE="(\d+)"', response.text)
    return int(error.group(1)) if error else response.status if response.status != 200 else "ok"


class ServerTest(unittest.TestCase):
    def setUp(self):
        self.log = self.enterContext(tempfile.TemporaryFile("w+"))
        self.server = wire.start([PROGRAM, "--port", "0", "--array", ARRAY, "--log-level", "4"],
                                 "admin:admin", stderr=self.log)
        self.addCleanup(lambda: self.assertEqual(self.server.stop(), 0))
        answer = self.server.post(intrinsic("EnumerateInstanceNames", ClassName=class_name(SERVICE)))
        self.service = (SERVICE, dict(re.findall(r'<KEYBINDING NAME="(\w+)">\s*<KEYVALUE[^>]*>([^<]*)', answer.text)))

    def call(self, called, **parameters):
        return method(self.service, called, **parameters)

    def reads(self):
        return [intrinsic("EnumerateInstances", ClassName=class_name("QRV_StorageHardwareID")),
                intrinsic("EnumerateInstanceNames", ClassName=class_name("QRV_AuthorizedPrivilege")),
                intrinsic("GetInstance", InstanceName=name(HOST)),
                intrinsic("GetProperty", InstanceName=name(HOST), PropertyName="<VALUE>ElementName</VALUE>"),
                intrinsic("Associators", ObjectName=name(HOST)),
                intrinsic("AssociatorNames", ObjectName=name(HOST)),
                intrinsic("References", ObjectName=name(HOST)),
                intrinsic("ReferenceNames", ObjectName=name(HOST))]

    def changes(self):
        """In this order each can be done by somebody who may."""
        fc = {"StorageID": "10000000FEEDF001", "IDType": "2"}
        hardware_id = ("QRV_StorageHardwareID", "ORVELIS:FC-10000000FEEDF001")
        return [intrinsic("ModifyInstance", ModifiedInstance=persona(2)),
                self.call("CreateHardwareIDCollection", ElementName="guest"),
                self.call("CreateStorageHardwareID", **fc),
                self.call("SetISCSICHAP", Collection=HOST, InitiatorSecret=SECRETS["ascii"]),
                self.call("RemoveISCSICHAP", Collection=HOST, RemovalScope="2"),
                self.call("DeleteStorageHardwareID", HardwareID=hardware_id),
                intrinsic("DeleteInstance", InstanceName=name(SPARE))]

    def test_rights(self):
        classes = [intrinsic("GetClass", ClassName=class_name(SERVICE)), intrinsic("EnumerateClassNames")]
        table = {"": (401, 401, 401), "nobody:nobody": (401, 401, 401), "admin:viewer": (401, 401, 401),
                 "stranger:stranger": ("ok", 2, 2), "viewer:viewer": ("ok", "ok", 2), "admin:admin": ("ok", "ok", "ok")}
        for user, expected in table.items():
            for messages, one in zip((classes, self.reads(), self.changes()), expected):
                for message in messages[:1 if one == 401 else None]:  # guessing takes longer and longer
                    called = re.search(r'CALL NAME="(\w+)"', message).group(1)
                    with self.subTest(user=user, operation=called):
                        response = self.server.post(message, user=user or " ")
                        self.assertEqual(outcome(response), one, response.text)

    def test_no_secret_is_in_the_log(self):
        answers = [self.server.post(message).text for message in self.reads() + self.changes()]
        for secrets in ({"InitiatorSecret": "ascii"}, {"InitiatorSecret": "short"},
                        {"InitiatorSecret": "ascii", "TargetSecret": "ascii"},
                        {"InitiatorSecret": "ascii", "TargetSecret": "other", "TargetCHAPName": "x" * 300},
                        {"InitiatorSecret": "hex", "InitiatorSecretType": "1"},
                        {"InitiatorSecret": "odd", "InitiatorSecretType": "1"},
                        {"InitiatorSecret": "ascii", "InitiatorSecretType": "7"}):
            parameters = {key: SECRETS.get(value, value) for key, value in secrets.items()}
            for collection in (HOST, ("QRV_StorageHardwareIDCollection", "ORVELIS:none")):
                answers.append(self.server.post(self.call("SetISCSICHAP", Collection=collection, **parameters)).text)
        logins = ["admin:let-me-in-77", "let-me-in-78:x", "admin:admin"]
        for login in logins:
            self.server.post(self.reads()[0], user=login)
        self.log.seek(0)
        told = self.log.read()
        self.assertIn("[4]", told)
        self.assertIn("SetISCSICHAP", told)
        array = pathlib.Path(ARRAY).read_text()
        kept = re.findall(r'"(?:password|secret|hexSecret)": "([^"]+)"', array)
        self.assertGreaterEqual(len(kept), 5)
        coded = [base64.b64encode(login.encode()).decode().rstrip("=") for login in logins]
        for secret in [*SECRETS.values(), *kept, *coded, "let-me-in-77"]:
            self.assertNotIn(secret.lower(), (told + "".join(answers)).lower())


if __name__ == "__main__":
    PROGRAM, ARRAY = sys.argv.pop(1), sys.argv.pop(1)
    unittest.main()
