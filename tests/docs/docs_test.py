#!/usr/bin/env python3
"""The documents: links and paths lead somewhere, the grammar is the parser's, the blocks do what they show, and the
messages and limits are the program's.

usage: docs_test.py [TESTCASE...]       (Python's unittest; TESSELSQL names the program, TESSEL_SEED a seed)
"""

import json
import os
import pathlib
import random
import re
import subprocess
import tempfile
import unittest
from xml.etree import ElementTree

import ebnf
from documents import ROOT, all_documents, document

TESSELSQL = os.environ.get("TESSELSQL", str(ROOT / "build" / "native" / "bin" / "tesselsql"))
SENTENCES = 3000
ROOM = 60  # rules in a sentence, about


def source(name):
    return (ROOT / name).read_text(encoding="utf-8")


def run(arguments, text=""):
    return subprocess.run([TESSELSQL, *arguments], input=text.encode(), capture_output=True, timeout=120)


def blocks_of(name, language):
    return [block for block in document(name).blocks if block.language == language]


class Links(unittest.TestCase):
    def test_links_and_anchors_lead_somewhere(self):
        documents = {each.path: each for each in all_documents()}
        for each in documents.values():
            for target in each.links():
                if re.match(r"[a-z]+:", target):
                    continue
                name, _, anchor = target.partition("#")
                path = (each.path.parent / name).resolve() if name else each.path
                self.assertTrue(path.exists(), f"{each.name}: {target}")
                if anchor:
                    self.assertIn(anchor, documents[path].anchors, f"{each.name}: {target}")

    def test_every_document_is_reached_from_the_readme(self):
        documents = {each.path: each for each in all_documents()}
        open_, seen = [ROOT / "README.md"], set()
        while open_:
            path = open_.pop()
            if path in seen or path not in documents:
                continue
            seen.add(path)
            open_ += [(path.parent / t.partition("#")[0]).resolve() for t in documents[path].links() if "#" != t[0]]
        for path in (ROOT / "docs").glob("*.md"):
            self.assertIn(path, seen, f"{path.name} is linked from nowhere")

    def test_what_ships_links_to_what_ships(self):
        # The folder of documents is installed without the rest of the repository.
        for each in all_documents():
            if each.path.parent == ROOT / "docs":
                for target in each.links():
                    self.assertFalse(target.startswith(".."), f"{each.name}: {target}")

    def test_the_version_is_the_projects(self):
        version = re.search(r"project\(tessel VERSION ([0-9.]+)", source("CMakeLists.txt")).group(1)
        named = re.findall(r"tessel-([0-9.]+)-setup", source("docs/start.md"))
        self.assertEqual(set(named), {version})

    def test_paths_that_are_mentioned_exist(self):
        for each in all_documents():
            for span in each.spans():
                path = re.fullmatch(r"([a-z_.]+)/[\w./*-]*", span)
                if not path or not (ROOT / path.group(1)).is_dir() or path.group(1) == "build":
                    continue
                self.assertTrue(list(ROOT.glob(span.rstrip("/"))), f"{each.name}: {span}")


class Drawing(unittest.TestCase):
    def test_the_boxes_are_the_folders(self):
        drawing = source("docs/images/architecture.svg")
        ElementTree.fromstring(drawing)
        boxes = set(re.findall(r'font-weight="600"[^>]*>([^<]+)<', drawing))
        folders = {name for name in re.findall(r'^    "([a-z0-9_/*]+)":', source("scripts/check_layers"), re.M)}
        covered = {re.sub(r"/\*", "", name) for name in folders} - {"common/win32", "hostkit", "controls/win32"}
        drawn = {re.sub(r"/\*", "", name) for name in boxes} - {"controls/win32"}
        self.assertEqual(covered - drawn, set(), "folders that are not drawn")
        for name in drawn:
            if name in covered:
                self.assertTrue((ROOT / name).is_dir(), name)


class Blocks(unittest.TestCase):
    """A block of "sh": lines after "$ " are run, lines after "> " continue them, the others are what they print."""

    def test_every_command_prints_what_it_shows(self):
        tried = 0
        for each in all_documents():
            with tempfile.TemporaryDirectory() as folder:
                for block in each.blocks:
                    if block.language == "sh":
                        tried += self.check_commands(each.name, block, folder)
        self.assertGreater(tried, 10)

    def check_commands(self, name, block, folder):
        environment = dict(os.environ, PATH=f"{pathlib.Path(TESSELSQL).parent}:{os.environ['PATH']}", LC_ALL="C.UTF-8")
        commands = []
        for line in block.text.split("\n")[:-1]:
            if line.startswith("$ "):
                commands.append([line[2:], ""])
            elif line.startswith("> ") and not commands[-1][1]:
                commands[-1][0] += "\n" + line[2:]
            else:
                self.assertTrue(commands, f"{name}, line {block.line}: an answer without a command")
                commands[-1][1] += line + "\n"
        for command, expected in commands:
            done = subprocess.run(["bash", "-c", command], cwd=folder, env=environment, timeout=120,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL)
            # A text without a line end of its own is shown as a line.
            printed = done.stdout.decode().replace("\r\n", "\n")
            if printed and not printed.endswith("\n"):
                printed += "\n"
            self.assertEqual(printed, expected, f"{name}, line {block.line}: {command}")
        return len(commands)

    def test_only_known_languages_are_used(self):
        known = {"sh", "ebnf", "words", "vbs", "js", "output", "vb", "csharp", "cpp", "python", "pascal", "text", "sql",
                 "json", "cmake", "xml", "ini"}
        for each in all_documents():
            for block in each.blocks:
                self.assertIn(block.language, known, f"{each.name}, line {block.line}")

    def test_json_is_well_formed(self):
        for each in all_documents():
            for block in each.blocks:
                if block.language == "json":
                    json.loads(block.text)


def tables_of(name, kind):
    """The rows of the tables that begin with a statement and then `kind`: (statement, answer), out of their spans."""
    rows, inside = [], False
    for line in document(name).prose:
        if line.startswith("| Statement |"):
            inside = line.startswith(f"| Statement | {kind} |")
        elif not line.startswith("|"):
            inside = False
        elif inside and not line.startswith("| ---"):
            spans = re.findall(r"`` (.+?) ``|`(.+?)`", line)
            rows.append(tuple(a or b for a, b in spans[:2]))
    return rows


def round_trip(statement):
    return json.loads(run(["roundtrip"], statement).stdout)


class Statements(unittest.TestCase):
    """The tables of statements, in design.md and messages.md."""

    def test_statements_come_back_as_shown(self):
        rows = tables_of("docs/design.md", "Comes back as")
        self.assertGreater(len(rows), 15)
        for statement, expected in rows:
            answer = round_trip(statement)
            with self.subTest(statement):
                self.assertTrue(answer["accepted"], answer)
                self.assertEqual(answer["messages"], [])
                self.assertEqual(answer["sql"].replace(" \r\n", " "), expected)

    def test_statements_are_refused_as_shown(self):
        for name, parsed, least in (("docs/design.md", True, 30), ("docs/messages.md", False, 50)):
            rows = tables_of(name, "Message")
            self.assertGreater(len(rows), least)
            for statement, expected in rows:
                answer = round_trip(statement)
                with self.subTest(statement):
                    self.assertEqual(answer["parsed"], parsed)
                    self.assertFalse(answer["accepted"])
                    self.assertEqual(answer["error"]["message"], expected)

    def test_criteria_that_do_not_fit_say_so(self):
        for statement, expected in tables_of("docs/design.md", "Says"):
            answer = round_trip(statement)
            with self.subTest(statement):
                self.assertTrue(answer["accepted"])
                self.assertEqual("; ".join(answer["messages"]), expected)


class Messages(unittest.TestCase):
    FILES = ["sqlparser/messages.h", "analyse/refusal.h", "analyse/refusal.cpp", "analyse/analyse_sql.h",
             "ui/relation_messages.h", "ui/grid_messages.h", "ui/designer_presenter.cpp",
             "ui/text_check_texts.h", "ui/format_texts.h", "ui/win32/show_help.h"]

    def literals(self, file):
        text = re.sub(r"//[^\n]*", "", source(file))
        runs = re.findall(r'L"(?:[^"\\]|\\.)*"(?:\s*L"(?:[^"\\]|\\.)*")*', text)
        texts = ["".join(re.findall(r'L"((?:[^"\\]|\\.)*)"', each)) for each in runs]
        return [each for each in texts if " " in each.strip() and re.search("[a-záéíóúñ]{2}", each)]

    def test_every_sentence_of_the_sources_is_explained(self):
        text = " ".join((source("docs/messages.md") + source("docs/design.md")).split())
        for file in self.FILES:
            sentences = self.literals(file)
            self.assertTrue(sentences, f"{file} holds no message any more")
            for sentence in sentences:
                with self.subTest(file=file, message=sentence):
                    self.assertTrue(" ".join(sentence.split()) in text, "explained in no document")


class Limits(unittest.TestCase):
    def test_every_number_is_the_sources(self):
        row = r"\| .+ \| ([0-9 ]+).* \| `(\S+)`, `(\w+)` \|$"
        rows = [re.match(row, line) for line in document("docs/limits.md").prose]
        rows = [row for row in rows if row]
        self.assertGreater(len(rows), 8)
        for row in rows:
            number, file, name = row.groups()
            found = re.search(rf"\b{name} *= *([^;]+);", source(file))
            with self.subTest(name):
                self.assertIsNotNone(found, f"{file} has no {name}")
                value = re.sub(r"(?<=\d)'(?=\d)", "", found.group(1))
                value = re.sub(r"std::size_t\{(\d+)\}|(\d)u\b", r"\1\2", value)
                self.assertEqual(eval(value, {"__builtins__": {}}), int(number.replace(" ", "")))


class Dialect(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.grammar = ebnf.Grammar("\n".join(block.text for block in blocks_of("docs/dialect.md", "ebnf")))
        cls.tokens = {}
        for line in document("docs/dialect.md").prose:
            row = re.match(r"\| ([A-Z_]+) \| (.+?) \|", line)
            if row:
                spans = re.findall(r"`` (.+?) ``|`(.+?)`", row.group(2))
                # A back quote at the edge of a span needs blanks that are not part of it.
                cls.tokens[row.group(1)] = [("`nombre`" if a.strip("`") == "nombre" else a) or b for a, b in spans]

    def test_every_name_is_a_rule_or_a_token(self):
        used = self.grammar.names()
        self.assertEqual(used - set(self.grammar.rules) - set(self.tokens), set())
        self.assertEqual(set(self.grammar.rules) - used, {"statement"}, "rules that nothing uses")
        self.assertEqual(set(self.tokens) - used, set(), "tokens that nothing uses")
        for token, examples in self.tokens.items():
            self.assertTrue(examples, token)

    def test_the_parser_accepts_random_sentences(self):
        seed = int(os.environ.get("TESSEL_SEED", "20240305"))
        source_of_chance = random.Random(seed)
        sentences = [" ".join(self.grammar.sentence("statement", self.tokens, source_of_chance, ROOM))
                     for _ in range(SENTENCES)]
        refused = self.refused(sentences)
        shortest = min(refused, key=lambda each: len(each[0]), default=None)
        self.assertEqual(len(refused), 0, f"seed {seed}: {len(refused)} refused, the shortest {shortest}")
        # Long and short ones, and not one shape only.
        self.assertGreater(len(set(sentences)), SENTENCES * 9 // 10)

    def refused(self, sentences):
        done = run(["design", "--batch"], "\n---\n".join(sentences) + "\n")
        self.assertIn(done.returncode, (0, 1), done.stderr.decode())
        answers = [json.loads(line) for line in done.stdout.decode().splitlines()]
        self.assertEqual(len(answers), len(sentences))
        return [(sentence, answer) for sentence, answer in zip(sentences, answers) if not answer["parsed"]]

    def test_broken_sentences_are_refused(self):
        sentences = ["SELECT FROM t", "SELECT a FROM", "SELECT a b c FROM t", "SELECT a FROM t WHERE", "DELETE FROM t",
                     "SELECT a FROM t GROUP a", "SELECT a FROM t WHERE a IN b"]
        self.assertEqual(len(self.refused(sentences)), len(sentences))

    def test_the_words_are_the_lexers(self):
        words = {block.words[0]: block.text.split() for block in blocks_of("docs/dialect.md", "words")}
        entries = re.findall(r'\{L"([A-Z_]+)", Keyword::(\w+)\}', source("sqlparser/keywords.cpp"))
        texts = {name: text for text, name in entries}
        body = re.search(r"enum class Keyword[^{]*\{(.*?)\};", source("sqlparser/keywords.h"), re.S).group(1)
        names = re.findall(r"^    (\w+)", re.sub(r"//.*", "", body), re.M)
        reserved = names[1:names.index("LastReserved")]
        known = names[names.index("LastReserved") + 1:]
        self.assertEqual(words["reserved"], [texts[name] for name in reserved])
        self.assertEqual(words["known"], [texts[name] for name in known])

    def refused_words(self, pattern, words):
        sentences = {pattern.format(word): word for word in words}
        return [sentences[sentence] for sentence, _ in self.refused(list(sentences))]

    def test_reserved_words_are_names_only_where_the_document_says(self):
        words = {block.words[0]: block.text.split() for block in blocks_of("docs/dialect.md", "words")}
        reserved, known = words["reserved"], words["known"]
        self.assertEqual(self.refused_words("SELECT x FROM {}", reserved), reserved)
        self.assertEqual(self.refused_words("SELECT x {} FROM t", reserved), reserved)
        for pattern in ("SELECT [{}] FROM t", "SELECT t.{} FROM t", "SELECT a AS {} FROM t"):
            self.assertEqual(self.refused_words(pattern, reserved + known), [], pattern)
        for pattern in ("SELECT x FROM {}", "SELECT {} FROM t", "SELECT {}.a FROM t"):
            self.assertEqual(self.refused_words(pattern, known), [], pattern)
        self.assertEqual(self.refused_words("SELECT a {} FROM t", known), ["ESCAPE", "OVER", "COLLATE"])


if __name__ == "__main__":
    unittest.main()
