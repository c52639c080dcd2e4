#!/usr/bin/env python3
"""Asks a server through wbemcli: through_wbemcli.py --server BIN/qrv-cimserver, or --url URL"""
import subprocess
import unittest

import wire

OPTIONS = wire.options(__doc__)
HARDWARE_IDS = [f'QRV_StorageHardwareID.InstanceID="ORVELIS:{name}"' for name in (
    "FC-1000000000A1B201", "FC-1000000000A1B203", "FC-1000000000FFEE01",
    "iSCSI-iqn.2001-05.com.example:gamma")]
FIRST = HARDWARE_IDS[0]


class WbemcliTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.server = wire.chosen(OPTIONS.parse_args())

    @classmethod
    def tearDownClass(cls):
        assert cls.server.stop() == 0

    def ask(self, operation, target, *rest, user="admin:admin"):
        """The lines that wbemcli prints, without the part of each that says where the server is."""
        where = f"{self.server.host}:{self.server.port}/root/qrv:"
        command = ["wbemcli", *operation.split(), f"http://{user}@{where}{target}", *rest]
        result = subprocess.run(command, capture_output=True, text=True, timeout=20)
        lines = (result.stdout + result.stderr).splitlines()
        return [line.replace(where, "") for line in lines if line]

    def test_names_of_instances(self):
        self.assertEqual(sorted(self.ask("ein", "QRV_StorageHardwareID")), HARDWARE_IDS)

    def test_instances(self):
        answer = self.ask("ei -nl", "CIM_StorageHardwareID", "ElementName,StorageID")
        self.assertEqual(sorted(line for line in answer if line.startswith("-")),
                         ['-ElementName=""', '-ElementName="alpha"', '-ElementName="beta"',
                          '-ElementName="gamma"', '-StorageID="1000000000A1B201"',
                          '-StorageID="1000000000A1B203"', '-StorageID="1000000000FFEE01"',
                          '-StorageID="iqn.2001-05.com.example:gamma"'])

    def test_an_instance(self):
        self.assertEqual(self.ask("gi -nl", FIRST, "ElementName"), [FIRST, '-ElementName="alpha"'])

    def test_a_class(self):
        answer = self.ask("gc -nl", "QRV_StorageHardwareID")
        self.assertEqual((answer[0], answer[-1]), ("QRV_StorageHardwareID", "-IPAddress="))
        self.assertIn("-StorageID=", answer)

    def test_rights(self):
        controller = ('QRV_SCSIController.CreationClassName="QRV_SCSIController",DeviceID="MS:0:1:1:0",'
                      'SystemCreationClassName="QRV_StorageSystem",SystemName="wire-test"')
        right = 'QRV_AuthorizedPrivilege.InstanceID="ORVELIS:FC-1000000000A1B201::MS:0:1:1:0"'
        host = "wire-test.example.com/root/qrv:"
        self.assertEqual(sorted(self.ask("ain", controller)), [host + right, host + FIRST])
        self.assertEqual(self.ask("ain -ac QRV_PrivilegeForStorageHardwareID", right), [host + FIRST])

    def test_errors(self):
        self.assertIn("* wbemcli: Cim: (5) CIM_ERR_INVALID_CLASS: QRV_NoSuchClass",
                      self.ask("ein", "QRV_NoSuchClass"))
        self.assertIn("* wbemcli: Http Exception: Invalid username/password.",
                      self.ask("ein", "QRV_StorageHardwareID", user="admin:wrong"))


if __name__ == "__main__":
    unittest.main(argv=[__file__])
