#!/usr/bin/env python3
"""scripts/check_binaries on this build's own programs, and on copies with one thing made wrong.

usage: check_binaries_test.py BIN_FOLDER
"""

import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BIN = pathlib.Path(sys.argv.pop(1)).resolve()
NAMES = ["tesseldsn.dll", "tesselsql.exe", "SQL.ini", "tesseldsn.chm"]


class CheckBinaries(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        # The folder above the programs says for which architecture they are.
        self.bin = self.folder / BIN.parent.name / "bin"
        self.bin.mkdir(parents=True)
        for name in NAMES:
            shutil.copy(BIN / name, self.bin)
        self.library = bytearray((self.bin / "tesseldsn.dll").read_bytes())
        (self.start,) = struct.unpack_from("<I", self.library, 0x3C)
        self.flags_at = self.start + 24 + 70

    def tearDown(self):
        shutil.rmtree(self.folder)

    def check(self):
        done = subprocess.run([ROOT / "scripts" / "check_binaries", self.bin], capture_output=True, text=True, check=False)
        return done.returncode, done.stdout

    def assert_found(self, text):
        (self.bin / "tesseldsn.dll").write_bytes(self.library)
        status, report = self.check()
        self.assertEqual(status, 1)
        self.assertIn(text, report)

    def clear_flag(self, flag):
        (flags,) = struct.unpack_from("<H", self.library, self.flags_at)
        struct.pack_into("<H", self.library, self.flags_at, flags & ~flag)

    def test_this_build_passes(self):
        status, report = self.check()
        self.assertEqual((status, report.count("FAIL")), (0, 0), report)
        self.assertIn("5 exports", report)

    def test_executable_data_is_found(self):
        self.clear_flag(0x100)
        self.assert_found("lets data be executed")

    def test_a_fixed_address_is_found(self):
        self.clear_flag(0x40)
        self.assert_found("has a fixed address")

    def test_a_section_to_write_and_execute_is_found(self):
        (optional,) = struct.unpack_from("<H", self.library, self.start + 20)
        flags_of_first = self.start + 24 + optional + 36
        (flags,) = struct.unpack_from("<I", self.library, flags_of_first)
        struct.pack_into("<I", self.library, flags_of_first, flags | 0xA0000000)
        self.assert_found("can be written and executed")

    def test_executable_data_sections_are_found(self):
        (optional,) = struct.unpack_from("<H", self.library, self.start + 20)
        flags_of_second = self.start + 24 + optional + 40 + 36
        (flags,) = struct.unpack_from("<I", self.library, flags_of_second)
        struct.pack_into("<I", self.library, flags_of_second, (flags & ~0x80000000) | 0x20000000)
        self.assert_found("section .data can be executed")

    def test_a_stack_without_guard_is_found(self):
        self.assertIn(bytes.fromhex("B902000000CD29"), self.library)
        self.library = self.library.replace(bytes.fromhex("B902000000CD29"), bytes.fromhex("B903000000CD29"))
        self.assert_found("does not guard its stack")

    def test_handlers_of_exceptions_are_looked_at(self):
        if BIN.parent.name == "x86":
            self.clear_flag(0x400)
            self.assert_found("lets handlers of exceptions be invented")
        else:
            table = self.start + 24 + 112 + 8 * 3
            struct.pack_into("<II", self.library, table, 0, 0)
            self.assert_found("has no table of its handlers of exceptions")

    def test_loading_by_a_bare_name_is_found(self):
        self.library = self.library.replace(b"LoadLibraryExW\0", b"LoadLibraryW\0\0\0")
        self.assert_found("can load a library by LoadLibraryW")

    def test_a_time_stamp_is_found(self):
        struct.pack_into("<I", self.library, self.start + 8, 1700000000)
        self.assert_found("carries the time of its build")

    def test_a_foreign_library_is_found(self):
        self.library = self.library.replace(b"OLEAUT32.dll\0", b"OLEOTRO7.dll\0")
        self.assert_found("needs OLEOTRO7.dll")

    def test_another_export_is_found(self):
        self.library = self.library.replace(b"\0DllInstall\0", b"\0DllImpulse\0")
        self.assert_found("DllImpulse")

    def test_another_architecture_is_found(self):
        other = self.folder / "otra" / "bin"
        other.parent.mkdir()
        self.bin = self.bin.rename(other)
        self.assert_found("is built for")

    def test_a_missing_companion_is_found(self):
        (self.bin / "SQL.ini").unlink()
        self.assert_found("SQL.ini is missing")


if __name__ == "__main__":
    unittest.main()
