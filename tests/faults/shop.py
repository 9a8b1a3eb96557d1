"""A demo shop that a server works in while something goes wrong, and what must hold afterwards."""

import contextlib
import os
import pathlib
import shutil
import sqlite3
import subprocess
import tempfile

DOCUMENT_TABLES = ("OINV", "INV1", "ORIN", "RIN1", "ORDR", "RDR1", "ODLN", "DLN1", "ORDN", "RDN1",
                   "OJDT", "JDT1")
VOUCHERS = "import/bilag.txt"
ORDERS = "import/ordre.edi"
BEFORE = {VOUCHERS: b"bilag fra i forgaars\r\n", ORDERS: b"7;6;\r\nordre fra i forgaars\r\n"}

checks = 0


def check(holds, text):
    """Counts a promise; the first that is broken ends the test."""
    global checks
    checks += 1
    if not holds:
        raise SystemExit(f"FAILED: {text}")


class Shop:
    """A folder with one waiting data set, Kasse1, made once and copied for every try."""

    def __init__(self, server, demo, folder, *options):
        self.server = server
        self.folder = pathlib.Path(folder)
        self.is_sap = "--sap" in options
        if demo:
            subprocess.run([demo, folder, "--data-sets", "1", *options], check=True)
            for name, content in BEFORE.items():
                self.path(name).parent.mkdir(exist_ok=True)
                self.path(name).write_bytes(content)

    def path(self, name):
        return self.folder / name

    @contextlib.contextmanager
    def copy(self):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copytree(self.folder, folder, dirs_exist_ok=True)
            shop = Shop(self.server, None, folder)
            shop.is_sap = self.is_sap
            yield shop

    def run(self, *arguments, environment=None, **more):
        arguments = arguments or ("--unattended", "--all")
        return subprocess.run([self.server, "--folder", self.folder, *arguments],
                              stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              env={**os.environ, **(environment or {})}, **more)

    def databases(self):
        return sorted([*self.path("data").glob("*.mdb"), *self.folder.glob("*.company")])

    def documents(self):
        """How many rows each document table of the company holds."""
        with contextlib.closing(sqlite3.connect(self.path("Demo.company"))) as company:
            return [company.execute(f"SELECT count(*) FROM {table}").fetchone()[0]
                    for table in DOCUMENT_TABLES]

    def check_databases(self, where):
        for file in self.databases():
            with contextlib.closing(sqlite3.connect(file)) as database:
                result = database.execute("PRAGMA integrity_check").fetchone()[0]
            check(result == "ok", f"{where}: {file.name}: {result}")

    def data_set(self):
        """The contents of the data set's files by their names; a finished name without its stamp."""
        found = {}
        for file in self.folder.glob("*DayEnd*"):
            name = file.name.split(".XML")[0]
            check(name not in found, f"{name} is there under two names")
            found[name] = file.read_bytes()
        return found

    def is_finished(self, name="Kasse1DayEndSales"):
        return any(self.folder.glob(f"{name}.XML.*.ferdig"))

    def contents(self):
        return {name: self.path(name).read_bytes() for name in BEFORE}


class Injector:
    """Lets one call of a run go wrong that changes a file."""

    def __init__(self, library):
        self.library = library

    def environment(self, fault):
        # The sanitizers want to come first, which a preloaded library does.
        options = os.environ.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0"
        return {"LD_PRELOAD": self.library, "ASAN_OPTIONS": options, **fault}

    def calls(self, shop):
        """The calls of a run that goes well, and the shop as it is then left."""
        log = shop.path("calls.log")
        run = shop.run(environment=self.environment({"KV_FAULT_LOG": str(log)}))
        check(run.returncode == 0, f"a run without a fault: {run.stderr}")
        return log.read_text().splitlines()

    def run(self, shop, fault, number):
        return shop.run(environment=self.environment({"KV_FAULT": f"{fault}:{number}"}))


def spread(count, points):
    """At most that many numbers from 1 to count, evenly spread, the last one among them."""
    points = min(count, points)
    return [count - (count * i) // points for i in range(points)][::-1]
