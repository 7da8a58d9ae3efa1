#!/usr/bin/env python3
"""The sample hosts as files: encodings and line ends that their tools need, a plain word where a sample was not run,
and every sample showing the whole road."""

import pathlib
import re
import unittest

HOSTKIT = pathlib.Path(__file__).resolve().parents[2] / "hostkit"

# Run by tests/win_hosts or tests/win_e2e; everything else must say that it was not.
RUN_HERE = {"vbscript/demo.vbs", "vbscript/consulta.vbs", "vbscript/parametros.vbs", "jscript/consulta.js",
            "cpp/host.cpp"}
# One main file a language: it opens a connection, supplies parameters and reads the answer.
MAIN = [
    "vbscript/parametros.vbs", "jscript/consulta.js", "cpp/host.cpp", "hta/disenador.hta", "vba/DesignerHost.bas",
    "vb6/HostForm.frm", "csharp/Program.cs", "python/host.py", "delphi/DesignerHost.dpr",
]
# The Visual Basic tools read lines that end in CR LF and the ANSI code page.
VISUAL_BASIC = {".bas", ".cls", ".frm", ".vbp"}
ANSI = VISUAL_BASIC | {".vbs", ".js"}


def samples():
    return sorted(p for language in {name.split("/")[0] for name in MAIN} for p in (HOSTKIT / language).iterdir())


def text_of(path):
    return path.read_bytes().decode("cp1252" if path.suffix in ANSI else "utf-8")


class SampleFiles(unittest.TestCase):
    def test_visual_basic_files_end_their_lines_as_its_tools_need(self):
        for path in samples():
            data = path.read_bytes()
            ends = data.count(b"\n")
            expected = ends if path.suffix in VISUAL_BASIC else 0
            self.assertEqual(data.count(b"\r\n"), expected, path.name)

    def test_a_sample_that_was_not_run_says_so(self):
        for path in samples():
            name = str(path.relative_to(HOSTKIT))
            if name in RUN_HERE or path.suffix in {".vbp", ".csproj", ".cls"}:
                continue
            self.assertRegex(text_of(path), r"This sample has not been run", name)

    def test_each_language_shows_the_whole_road(self):
        for name in MAIN:
            text = text_of(HOSTKIT / name)
            for word in ("ADODB.Connection", "Tessel.Quillon", "ParamCol", "DesingQry", "DSN=ventas",
                         "Microsoft.ACE.OLEDB.12.0", "Microsoft.Jet.OLEDB.4.0", "MSOLEDBSQL"):
                self.assertIn(word.lower(), text.lower(), f"{name} lacks {word}")

    def test_python_compiles(self):
        for path in (HOSTKIT / "python").glob("*.py"):
            compile(text_of(path), str(path), "exec")

    def test_the_type_library_named_in_projects_is_ours(self):
        idl = (HOSTKIT.parent / "component" / "tessel.idl").read_text(encoding="ascii")
        library = re.search(r"uuid\(([0-9a-f-]+)\),\s*version\(([0-9.]+)\)", idl)
        project = text_of(HOSTKIT / "vb6" / "DesignerHost.vbp")
        self.assertIn("{%s}#%s#" % (library.group(1).upper(), library.group(2)), project)


if __name__ == "__main__":
    unittest.main()
