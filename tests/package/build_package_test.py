#!/usr/bin/env python3
"""The parts of packaging/build_package that need no build.

usage: build_package_test.py [TESTCASE...]       (Python's unittest)
"""

import importlib.machinery
import importlib.util
import os
import pathlib
import shutil
import tempfile
import unittest
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]


def load():
    loader = importlib.machinery.SourceFileLoader("build_package", str(ROOT / "packaging" / "build_package"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("build_package", loader))
    loader.exec_module(module)
    return module


build_package = load()


class BuildPackage(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())

    def tearDown(self):
        shutil.rmtree(self.folder)

    def test_identifiers_come_from_the_interface_definition(self):
        guids = build_package.identifiers((ROOT / "component" / "tessel.idl").read_text(encoding="utf-8"))
        self.assertEqual(guids["coclass Quillon"], "9C22745D-E04C-46AE-BDAA-19F34EAF7171")
        self.assertEqual(guids["coclass cParameter"], "D42977C8-E2F9-43B7-B1B1-BDD7222F008B")
        self.assertEqual(guids["interface _Quillon"], "DD505E4F-3EA4-467B-ACB8-A5B722511362")
        self.assertEqual(guids["library Tessel"], "8D742E8F-D2ED-435F-9EAD-1BEE6E8E7A2A")

    def test_manifests_are_filled_and_well_formed(self):
        values = {"VERSION": "1.2.3", "ARCHITECTURE": "amd64",
                  **build_package.identifiers((ROOT / "component" / "tessel.idl").read_text(encoding="utf-8"))}
        for name in ("assembly.manifest", "host.manifest"):
            text = build_package.fill((ROOT / "packaging" / name).read_text(encoding="utf-8"), values)
            self.assertNotIn("@", text)
            xml.etree.ElementTree.fromstring(text.encode("utf-8"))
            self.assertIn('name="Tessel.Designer" version="1.2.3.0"', text)

    def test_a_name_without_a_value_is_refused(self):
        with self.assertRaisesRegex(build_package.Mistake, "@OTRO@"):
            build_package.fill("<a>@OTRO@</a>", {"VERSION": "1"})

    def test_a_missing_file_is_named(self):
        with self.assertRaisesRegex(build_package.Mistake, "nada.dll is missing"):
            build_package.put(self.folder / "copia.dll", self.folder / "nada.dll")

    def test_texts_get_windows_line_ends_and_programs_stay(self):
        for name, expected in (("a.txt", b"uno\r\ndos\r\n"), ("a.dll", b"uno\ndos\r\n")):
            (self.folder / name).write_bytes(b"uno\ndos\r\n")
            build_package.put(self.folder / "copia" / name, self.folder / name)
            self.assertEqual((self.folder / "copia" / name).read_bytes(), expected)

    def test_installed_the_component_lies_in_the_folder_of_its_architecture(self):
        cases = {"x64/Tessel.Designer/tesseldsn.dll": "x64\\tesseldsn.dll", "x86/tesselsql.exe": "x86\\tesselsql.exe",
                 "docs/images/a.png": "docs\\images\\a.png", "x64/host.manifest": None,
                 "x64/Tessel.Designer/tesseldsn.chm": None}
        for name, expected in cases.items():
            self.assertEqual(build_package.installed_name(name), expected)

    def test_the_uninstaller_removes_what_the_installer_puts_and_the_folders_from_the_inside_out(self):
        for name in ("LICENSE.txt", "docs/images/a.png", "x64/Tessel.Designer/tesseldsn.dll"):
            (self.folder / "tree" / name).parent.mkdir(parents=True, exist_ok=True)
            (self.folder / "tree" / name).write_bytes(b"")
        build_package.write_lists(self.folder / "tree", self.folder)
        self.assertEqual((self.folder / "remove_files.nsh").read_text(encoding="utf-8-sig").splitlines(), [
            'Delete /REBOOTOK "$INSTDIR\\LICENSE.txt"',
            'Delete /REBOOTOK "$INSTDIR\\docs\\images\\a.png"',
            'Delete /REBOOTOK "$INSTDIR\\x64\\tesseldsn.dll"',
            'RMDir "$INSTDIR\\docs\\images"',
            'RMDir "$INSTDIR\\docs"',
            'RMDir "$INSTDIR\\x64"'])

    def test_the_archive_does_not_depend_on_the_files_times(self):
        tree = self.folder / "tree"
        tree.mkdir()
        archives = []
        for number, moment in enumerate((1_000_000_000, 1_700_000_000)):
            (tree / "b.txt").write_bytes(b"b")
            (tree / "a.txt").write_bytes(b"a")
            for name in ("a.txt", "b.txt"):
                os.utime(tree / name, (moment, moment))
            archive = self.folder / str(number) / "tessel.zip"
            archive.parent.mkdir()
            build_package.write_archive(tree, archive, 1_600_000_000)
            archives.append(archive.read_bytes())
        self.assertEqual(archives[0], archives[1])


if __name__ == "__main__":
    unittest.main()
