"""What a run leaves: everything that can be told apart, with the clock's readings masked."""

import json
import re
import sqlite3
import stat
from contextlib import closing

NAMES = "names of the files"
NOTE = "KVDayEndServer.placing"
FILE_STAMP = re.compile(rb"^[1-9]\d* (\d+) \d+$", re.MULTILINE)  # number, size, time of change
LONGEST_SHOWN = 160  # characters of a line
MOST_LINES_SHOWN = 3


class ClockMask:
    """The readings between two moments, in every form that the server writes."""

    def __init__(self, begin, end):
        moments = {begin.date(), end.date()}
        dates = "|".join(f"{day:%d\\.%m\\.%Y}" for day in moments)
        self.days = "|".join(f"{day:%Y%m%d}" for day in moments)
        hours = {f"{moment:%Y%m%d%H}" for moment in (begin, end)}
        self.shown = re.compile(rf"({dates})( \d\d:\d\d:\d\d)?")
        self.stamp = re.compile(rf"({'|'.join(sorted(hours))})\d\d(?=\.ferdig)")
        self.batch = re.compile(rf'"({self.days})"(?= "Overf)')

    def text(self, text):
        return self.stamp.sub("STAMP", self.shown.sub("CLOCK", text))

    def import_file(self, content):
        return self.batch.sub('"TODAY"', content.decode("latin-1")).encode("latin-1")


def journal_lines(path):
    lines = []
    for line in path.read_text(encoding="utf-8").splitlines() if path.exists() else []:
        try:
            entry = json.loads(line)
            entry["time"] = "TIME"
            line = json.dumps(entry, ensure_ascii=False)
        except ValueError:
            pass  # no line of a journal: compared as it stands
        lines.append(line)
    return lines


def is_database(path):
    with open(path, "rb") as file:
        return file.read(15) == b"SQLite format 3"


def table_rows(database, table):
    try:
        return database.execute(f'SELECT rowid, * FROM "{table}" ORDER BY rowid')
    except sqlite3.Error:  # a table without row numbers
        return database.execute(f'SELECT * FROM "{table}"')


def dump(path):
    """The declarations and rows of every table, a line each."""
    with closing(sqlite3.connect(path)) as database:
        database.text_factory = bytes
        parts = {}
        declared = database.execute("SELECT type, name, sql FROM sqlite_master ORDER BY type, name")
        entries = list(declared)
        parts["declarations"] = "\n".join(repr(entry) for entry in entries)
        for name in [name.decode() for kind, name, _ in entries if kind == b"table"]:
            parts[f"table {name}"] = "\n".join(repr(row) for row in table_rows(database, name))
        return parts


class State:
    """The parts, each with a name and a text or bytes."""

    def __init__(self, folder, run, mask):
        self.mask = mask
        self.parts = {
            "exit status": str(run.status),
            "standard output": mask.text(run.output),
            "standard error": mask.text(run.errors),
            "journal": mask.text("\n".join(journal_lines(run.journal))),
        }
        self.listing = []
        for path in sorted(folder.rglob("*")):
            self.take_file(path, str(path.relative_to(folder)))
        self.parts[NAMES] = "\n".join(sorted(self.listing))

    def take_file(self, path, name):
        shown = self.mask.text(name)
        status = path.lstat()
        kind = stat.filemode(status.st_mode)
        target = f" -> {path.readlink()}" if path.is_symlink() else ""
        self.listing.append(f"{kind} {shown}{target}")
        if not path.is_file() or name.endswith("-journal"):
            return  # a rollback journal bears a random number
        if is_database(path):
            for part, text in dump(path).items():
                self.parts[f"{shown}, {part}"] = text
            return
        content = self.mask.import_file(path.read_bytes())
        if name == NOTE:
            content = FILE_STAMP.sub(rb"FILE \1 CHANGED", content)
        self.add(f"file {shown}", content)

    def add(self, name, content):
        """Of several under one masked name, all, whatever their order."""
        if name in self.parts:
            content = b"\n--\n".join(sorted([content, *self.parts[name].split(b"\n--\n")]))
        self.parts[name] = content


def lines_of(part):
    if isinstance(part, bytes):
        return part.decode("cp1252", "replace").split("\n")
    return (part or "").split("\n")


def cut(line, place):
    start = max(0, place - LONGEST_SHOWN // 2)
    return ("…" if start else "") + repr(line[start:start + LONGEST_SHOWN])


def first_differences(old, new):
    """A few pairs of lines, around the place where they part."""
    shown = []
    for number in range(max(len(old), len(new))):
        pair = [side[number] if number < len(side) else None for side in (old, new)]
        if pair[0] == pair[1]:
            continue
        place = next((i for i, (a, b) in enumerate(zip(pair[0] or "", pair[1] or "")) if a != b),
                     min(len(pair[0] or ""), len(pair[1] or "")))
        for side, line in zip(("old", "new"), pair):
            text = "(no line)" if line is None else cut(line, place)
            shown.append(f"    {side} {number + 1}: {text}")
        if len(shown) >= 2 * MOST_LINES_SHOWN:
            break
    return shown


def differences(old, new):
    """Lines that tell what differs; none where nothing does."""
    told = []
    for name in sorted(old.parts.keys() | new.parts.keys()):
        first, second = old.parts.get(name), new.parts.get(name)
        if first == second:
            continue
        where = " (only old)" if second is None else " (only new)" if first is None else ""
        told.append(f"  {name}{where}")
        if name == NAMES:  # one name more shifts all behind it
            common = set(lines_of(first)) & set(lines_of(second))
            first, second = ("\n".join(line for line in lines_of(part) if line not in common)
                             for part in (first, second))
        told += first_differences(lines_of(first), lines_of(second))
    return told
