#!/usr/bin/env python3
"""The help: its topics, links, numbers and encoding, the messages it must explain, and what the compiled file holds.

usage: help_test.py [TESTCASE...]       (Python's unittest)
"""

import html
import importlib.machinery
import importlib.util
import json
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest
from html.parser import HTMLParser

ROOT = pathlib.Path(__file__).resolve().parents[2]
HELP = ROOT / "packaging" / "help"
sys.path.insert(0, str(HELP))


def load_build_help():
    loader = importlib.machinery.SourceFileLoader("build_help", str(HELP / "build_help"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("build_help", loader))
    loader.exec_module(module)
    return module


build_help = load_build_help()
import chm_directory  # noqa: E402  (found through the path above)

VOID = {"meta", "link", "br", "param", "img", "hr"}


class Page(HTMLParser):
    """Links, anchors and text of a page, and whether its tags are balanced."""

    def __init__(self, text):
        super().__init__()
        self.links, self.names, self.trouble, self._open, self._text = [], set(), [], [], []
        self.feed(text)
        self.close()
        if self._open:
            self.trouble.append("not closed: " + ", ".join(self._open))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if "id" in attributes:
            self.names.add(attributes["id"])
        for name in ("href", "src"):
            if name in attributes:
                self.links.append(attributes[name])
        if tag not in VOID:
            self._open.append(tag)

    def handle_endtag(self, tag):
        if self._open and self._open[-1] == tag:
            self._open.pop()
        else:
            self.trouble.append(f"</{tag}> at line {self.getpos()[0]} closes nothing")

    def handle_data(self, data):
        self._text.append(data)

    def text(self):
        return " ".join("".join(self._text).split())


def header_constants():
    text = (ROOT / "ui" / "help_contexts.h").read_text(encoding="utf-8")
    return {name: int(number) for name, number in re.findall(r"constexpr long (k\w+) = (\d+);", text)}


class Sources(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp())
        cls.numbers = build_help.stage(cls.folder)
        cls.topics = build_help.read_topics()
        cls.project = build_help.read_project()
        cls.pages = {file.name: Page(file.read_bytes().decode("cp1252")) for file in cls.folder.glob("*.html")}

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder)

    def test_header_map_and_alias_agree(self):
        header = {name: number for name, number in header_constants().items() if number > 0}
        mapped = {line.split()[1]: int(line.split()[2]) for line in self.project["MAP"]}
        aliases = dict(line.split("=") for line in self.project["ALIAS"])
        self.assertEqual(header, mapped)
        self.assertEqual(mapped.keys(), aliases.keys())
        self.assertEqual(len(set(mapped.values())), len(mapped), "a number is given twice")

    def test_index_is_the_only_number_below_one(self):
        self.assertEqual([name for name, number in header_constants().items() if number < 1], ["kIndex"])

    def test_every_topic_has_one_number_and_every_number_a_topic(self):
        pages = [page for _, page in self.numbers]
        self.assertEqual(sorted(pages), sorted(f"{name}.html" for name in self.topics))

    def test_every_topic_stands_once_in_the_contents(self):
        names = [name for _, name in build_help.read_contents()]
        self.assertEqual(sorted(names), sorted(self.topics))

    def test_every_link_leads_to_a_file_and_every_anchor_to_a_place(self):
        for name, page in self.pages.items():
            for link in page.links:
                file, _, anchor = link.partition("#")
                with self.subTest(page=name, link=link):
                    self.assertTrue((self.folder / (file or name)).is_file())
                    if anchor:
                        self.assertIn(anchor, self.pages[file or name].names)

    def test_every_file_of_contents_index_and_project_exists(self):
        files = self.project["OPTIONS"] + []
        listed = [line.split("=", 1)[1] for line in files if line.startswith("Default topic=")]
        for site_map in ("tesseldsn.hhc", "tesseldsn.hhk"):
            text = (self.folder / site_map).read_bytes().decode("cp1252")
            found = re.findall(r'name="Local" value="([^"]+)"', text)
            self.assertGreaterEqual(len(found), len(self.topics))
            listed += found
        staged = (self.folder / "tesseldsn.hhp").read_bytes().decode("cp1252").split("[FILES]")[1].split("[")[0].split()
        for file in listed + staged:
            self.assertTrue((self.folder / file).is_file(), file)

    def test_pages_are_well_formed(self):
        for name, page in self.pages.items():
            self.assertEqual(page.trouble, [], name)

    def test_pages_say_the_encoding_they_are_in_and_keep_their_accents(self):
        for name, topic in self.topics.items():
            data = (self.folder / f"{name}.html").read_bytes()
            self.assertIn(b"charset=windows-1252", data)
            self.assertIn(html.unescape(topic.title), self.pages[f"{name}.html"].text())
        self.assertIn("¿Seguro desea eliminar todas las columnas definidas?", self.pages["ventana.html"].text())
        self.assertIn("Título (Alias):".encode("cp1252"), (self.folder / "cuadricula.html").read_bytes())

    def test_no_source_shows_signs_of_a_wrong_encoding(self):
        for file in list((HELP / "topics").iterdir()) + [HELP / "contents.txt", HELP / "tesseldsn.hhp"]:
            self.assertIsNone(re.search("[ÂÃ\ufffd]", file.read_text(encoding="utf-8")), file.name)

    def test_help_text_is_spanish_with_accents(self):
        text = " ".join(page.text() for page in self.pages.values())
        for wrong in (r"\bdiseno\b", r"\bagrupacion\b", r"\bcondicion\b", r"\bTitulo\b", r"\btambien\b", r"\bmas de\b",
                      r"\brelacion\b", r"\bcombinacion\b", r"\bpagina\b", r"\bseleccion\b"):
            self.assertIsNone(re.search(wrong, text), wrong)

    def test_every_row_of_the_grid_has_the_number_of_its_row(self):
        numbers = dict(self.numbers)
        captions = ["Campo:", "Título (Alias):", "Tabla:", "Agrupación:", "Visible:", "Orden:", "Condición:", "OR:"]
        for row, caption in enumerate(captions, 1):
            self.assertEqual(self.topics[numbers[200 + row][:-5]].title, caption)


# Files whose every sentence the help must explain, and the page it is looked for in ("" for any of them).
MESSAGES = {
    "sqlparser/messages.h": "mensajes_sintaxis.html",
    "analyse/refusal.h": "mensajes_diseno.html",
    "analyse/refusal.cpp": "mensajes_diseno.html",
    "analyse/analyse_sql.h": "mensajes_programa.html",
    "ui/relation_messages.h": "mensajes_programa.html",
    "ui/designer_presenter.cpp": "mensajes_programa.html",
    "ui/grid_messages.h": "mensajes_programa.html",
    "ui/text_check_texts.h": "mensajes_programa.html",
    "ui/win32/show_help.h": "mensajes_programa.html",
}
# The preview's texts are captions too; its sentences end in a full stop or a colon and a blank, or are named here.
PREVIEW = ("ui/preview_texts.h", re.compile(r"^No |^La ins|^El prov"))


def literals(file):
    text = (ROOT / file).read_text(encoding="utf-8")
    text = re.sub(r"//[^\n]*", "", text)
    return ["".join(re.findall(r'L"((?:[^"\\]|\\.)*)"', run))
            for run in re.findall(r'L"(?:[^"\\]|\\.)*"(?:\s*L"(?:[^"\\]|\\.)*")*', text)]


def is_sentence(text):
    return " " in text.strip() and re.search("[a-záéíóúñ]{2}", text) is not None


class Messages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.text = {f"{name}.html": Page(topic.body).text() for name, topic in build_help.read_topics().items()}

    def assert_explained(self, message, page):
        message = " ".join(message.replace("\\r\\n", " ").split())
        self.assertIn(message, self.text[page], f"not explained in {page}")

    def test_every_sentence_the_program_says_is_explained(self):
        for file, page in MESSAGES.items():
            sentences = [text for text in literals(file) if is_sentence(text)]
            self.assertTrue(sentences, f"{file} holds no message any more")
            for sentence in sentences:
                with self.subTest(file=file, message=sentence):
                    self.assert_explained(sentence, page)

    def test_every_sentence_of_the_preview_is_explained(self):
        file, pattern = PREVIEW
        sentences = [text for text in literals(file) if pattern.search(text) and is_sentence(text)]
        self.assertGreaterEqual(len(sentences), 7)
        for sentence in sentences:
            with self.subTest(message=sentence):
                self.assert_explained(sentence, "mensajes_programa.html")

    def test_the_reason_under_the_hidden_design_is_explained(self):
        text = (ROOT / "ui" / "dlg_dsn_texts.h").read_text(encoding="utf-8")
        reason = text.split("kReason[] =")[1].split(";")[0]
        reason = "".join(re.findall(r'L"((?:[^"\\]|\\.)*)"', reason))
        self.assert_explained(reason, "mensajes_programa.html")
        self.assert_explained(reason, "vista_diseno.html")


@unittest.skipUnless("TESSELSQL" in os.environ, "TESSELSQL does not name the program")
class Examples(unittest.TestCase):
    def test_every_statement_of_the_help_can_be_designed(self):
        statements = []
        for name, topic in build_help.read_topics().items():
            for example in re.findall(r"<pre>(.*?)</pre>", topic.body, re.DOTALL):
                if example.startswith("SELECT "):
                    statements.append((name, html.unescape(example)))
        self.assertGreaterEqual(len(statements), 6)
        for name, statement in statements:
            with self.subTest(topic=name, statement=statement):
                done = subprocess.run([os.environ["TESSELSQL"], "roundtrip"], input=statement, capture_output=True,
                                      encoding="utf-8", check=True)
                answer = json.loads(done.stdout)
                self.assertTrue(answer["accepted"], answer.get("error"))
                self.assertEqual(answer["messages"], [])


class Compiled(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp())
        cls.file = cls.folder / "ayuda.chm"
        cls.run_build(cls.file)

    @classmethod
    def tearDownClass(cls):
        shutil.rmtree(cls.folder)

    @staticmethod
    def run_build(output):
        done = subprocess.run([HELP / "build_help", output], capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise AssertionError(done.stderr)

    def extract(self, name):
        target = self.folder / "stream.bin"
        subprocess.run(["chmls", "extract", self.file.name, name, target.name], cwd=self.folder, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return target.read_bytes()

    def test_every_context_number_leads_to_its_page(self):
        strings, table = self.extract("/#STRINGS"), self.extract("/#IVB")
        self.assertEqual(struct.unpack_from("<I", table)[0], len(table) - 4)
        found = {}
        for number, place in struct.iter_unpack("<II", table[4:]):
            found[number] = strings[place:strings.index(b"\0", place)].decode("ascii")
        self.assertEqual(found, dict(build_help.context_numbers(build_help.read_project())))

    def test_every_page_is_inside_byte_for_byte(self):
        staged = self.folder / "staged"
        build_help.stage(staged)
        names = chm_directory.Directory(self.file.read_bytes()).entries
        for page in list(staged.glob("*.html")) + [staged / "ayuda.css", staged / "tesseldsn.hhc",
                                                   staged / "tesseldsn.hhk"]:
            self.assertIn("/" + page.name, names)
            self.assertEqual(self.extract("/" + page.name), page.read_bytes(), page.name)

    def test_no_path_of_the_machine_is_inside(self):
        unpacked = self.folder / "all"
        unpacked.mkdir()
        subprocess.run(["chmls", "extractall", self.file.name, unpacked.name], cwd=self.folder, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        streams = [file.read_bytes() for file in unpacked.rglob("*") if file.is_file()] + [self.file.read_bytes()]
        self.assertGreater(len(streams), 40)
        unwanted = {str(ROOT), str(pathlib.Path.home()) + "/", tempfile.gettempdir() + "/", os.getcwd() + "/"}
        for stream in streams:
            for path in unwanted - {"//", "/"}:
                self.assertNotIn(path.encode(), stream)
        self.assertNotIn(b"/", self.extract("/#STRINGS"), "a page's name has a folder")

    def test_the_same_topics_give_the_same_file_at_another_time(self):
        again = self.folder / "otra.chm"
        earlier = self.file.stat().st_mtime
        while int(time.time()) == int(earlier):  # a time stamp counts whole seconds
            time.sleep(0.05)
        self.run_build(again)
        self.assertEqual(self.file.read_bytes(), again.read_bytes())

    def test_full_text_search_and_contents_are_inside(self):
        names = chm_directory.Directory(self.file.read_bytes()).entries
        for name in ("/$FIftiMain", "/#SYSTEM", "/#WINDOWS", "/#TOPICS", "/tesseldsn.hhc", "/tesseldsn.hhk"):
            self.assertIn(name, names)

    def test_directory_written_anew_says_the_same(self):
        first = chm_directory.Directory(self.file.read_bytes())
        second = chm_directory.Directory(first.to_bytes())
        self.assertEqual(first.entries, second.entries)
        self.assertEqual(second.to_bytes(), first.to_bytes())
        self.assertEqual(first.plain("/#IVB"), self.extract("/#IVB"))

    def test_directory_of_many_streams_has_an_index_that_chmls_follows(self):
        directory = chm_directory.Directory(self.file.read_bytes())
        for number in range(400):
            directory.put(f"/extra/{number:04}.txt", b"%d" % number)
        big = self.folder / "big.chm"
        big.write_bytes(directory.to_bytes())
        listed = subprocess.run(["chmls", "list", big.name], cwd=self.folder, capture_output=True, check=True).stdout
        self.assertEqual(listed.count(b"/extra/"), 400)
        subprocess.run(["chmls", "extract", big.name, "/extra/0399.txt", "last.bin"], cwd=self.folder, check=True,
                       capture_output=True)
        self.assertEqual((self.folder / "last.bin").read_bytes(), b"399")

    def test_damaged_container_is_refused(self):
        for data in (b"", b"ITSF", b"\0" * 200, b"ITSF\2\0\0\0" + b"\0" * 200):
            with self.assertRaises(chm_directory.Damaged):
                chm_directory.Directory(data)

    def test_missing_compiler_is_said(self):
        tools = self.folder / "tools"
        tools.mkdir()
        (tools / "python3").symlink_to(sys.executable)
        done = subprocess.run([sys.executable, HELP / "build_help", self.folder / "none.chm"], capture_output=True,
                              text=True, env={**os.environ, "PATH": str(tools)}, check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn("chmcmd is not installed (Debian package fp-utils)", done.stderr)


if __name__ == "__main__":
    unittest.main()
