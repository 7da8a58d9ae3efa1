"""Markdown documents as far as their test needs them: headings, links, code blocks, code spans."""

import dataclasses
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
FENCE = re.compile(r"^```(.*)$")
LINK = re.compile(r"!?\[[^\]\[]*\]\(([^()\s]+)\)")
HEADING = re.compile(r"^#{1,6} +(.+?) *$")
SPAN = re.compile(r"(`+)(.+?)\1")


@dataclasses.dataclass
class Block:
    """A fenced block: its language, the further words after it, its text, and the line on which it begins."""
    language: str
    words: list
    text: str
    line: int


class Document:
    def __init__(self, path):
        self.path = path
        self.name = str(path.relative_to(ROOT))
        self.blocks, self.anchors, self.prose = [], set(), []
        inside, lines = None, []
        for number, line in enumerate(path.read_text(encoding="utf-8").split("\n"), 1):
            fence = FENCE.match(line)
            if fence and inside is None:
                words = fence.group(1).split()
                inside, lines = Block(words[0] if words else "", words[1:], "", number), []
            elif fence:
                inside.text = "".join(each + "\n" for each in lines)
                self.blocks.append(inside)
                inside = None
            elif inside is not None:
                lines.append(line)
            else:
                self._read_prose(line)
        if inside is not None:
            raise ValueError(f"{self.name}: the block of line {inside.line} is not closed")

    def _read_prose(self, line):
        self.prose.append(line)
        heading = HEADING.match(line)
        if not heading:
            return
        anchor = re.sub(r"[^\w\- ]", "", heading.group(1).replace("`", "").lower()).replace(" ", "-")
        number = 0
        while (anchor if number == 0 else f"{anchor}-{number}") in self.anchors:
            number += 1
        self.anchors.add(anchor if number == 0 else f"{anchor}-{number}")

    def links(self):
        # Code spans hold brackets and parentheses that are no links.
        return [target for line in self.prose for target in LINK.findall(SPAN.sub("", line))]

    def spans(self):
        return [text.strip() for line in self.prose for _, text in SPAN.findall(line)]


def all_documents():
    """Every document of the repository."""
    skipped = {"build", ".git", ".github"}
    return [Document(path) for path in sorted(ROOT.rglob("*.md"))
            if not skipped & set(path.relative_to(ROOT).parts[:-1])]


def document(name):
    return Document(ROOT / name)
