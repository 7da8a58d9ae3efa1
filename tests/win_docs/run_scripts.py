#!/usr/bin/env python3
"""Runs every block of VBScript and JScript in the documents, with the data source that they name, and a visitor who
accepts what the designer shows.

usage: run_scripts.py BIN_FOLDER DATABASE     (WINEPREFIX names a prefix whose display may be the one in memory)

A block of "output" right after a script is what the script prints. Scripts run as they stand, with one line more at
the end: Wine's cscript says nothing of an error, so that reaching that line has to be seen.
"""

import os
import pathlib
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "docs"))
from documents import all_documents  # noqa: E402  (found through the path above)

WINE = "/usr/lib/wine/wine64"
REACHED = 42
LAST_LINE = {"vbs": "WScript.Quit 42", "js": "WScript.Quit(42);"}
PATIENCE_SECONDS = 600


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def wine(*arguments):
    return subprocess.run([WINE, *arguments], stdin=subprocess.DEVNULL, capture_output=True, timeout=PATIENCE_SECONDS)


def run_script(block, folder, programs):
    """What is wrong with a script, or nothing."""
    path = folder / f"script.{block.language}"
    path.write_bytes((block.text + LAST_LINE[block.language] + "\n").encode("cp1252").replace(b"\n", b"\r\n"))
    host = subprocess.Popen([WINE, "cscript", "//nologo", windows_path(path)], stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    try:
        if "connection.Open" in block.text or "cn.Open" in block.text:
            visit = windows_path(programs / "visit.exe")
            for arguments in (["wait"], ["finish", "click", "1"]):
                visited = wine(visit, *arguments)
                if visited.returncode != 0:
                    return "no designer was opened: " + visited.stderr.decode(errors="replace").strip()
        printed = host.communicate(timeout=PATIENCE_SECONDS)[0].decode("cp850").replace("\r\n", "\n")
    finally:
        host.kill()
        host.wait()
    if host.returncode != REACHED:
        return f"it did not reach its end (status {host.returncode}): {printed}"
    if block.expected is not None and printed != block.expected:
        return f"it printed\n{printed}instead of\n{block.expected}"
    return None


def scripts_of(document):
    for block, following in zip(document.blocks, document.blocks[1:] + [None]):
        if block.language in LAST_LINE:
            block.expected = following.text if following and following.language == "output" else None
            yield block


def main(bin_folder, database):
    programs = pathlib.Path(bin_folder)
    failures = tried = 0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        sources = folder / "odbc.ini"
        sources.write_text(f"[ventas]\nDriver=SQLite3\nDatabase={database}\n", encoding="utf-8")
        os.environ["ODBCINI"] = str(sources)
        for library in ("tesselado.dll", "tesseldsn.dll"):
            wine("regsvr32", "/s", windows_path(programs / library))
        for document in all_documents():
            for block in scripts_of(document):
                tried += 1
                wrong = run_script(block, folder, programs)
                print(f"{document.name}, line {block.line}: {wrong or 'ok'}")
                failures += wrong is not None
    print(f"{tried} scripts, {failures} failed")
    return 1 if failures or tried < 5 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
