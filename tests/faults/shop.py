"""A demo shop that a server works in while something goes wrong, and what must hold afterwards."""

import contextlib
import os
import pathlib
import re
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
lost_records = 0


def check(holds, text):
    """Counts a promise; the first that is broken ends the test."""
    global checks
    checks += 1
    if not holds:
        raise SystemExit(f"FAILED: {text}")


def folder_in_memory():
    """A temporary folder where no call waits for a disk, on systems that have one."""
    shared = "/dev/shm"
    is_there = os.path.isdir(shared) and os.access(shared, os.W_OK | os.X_OK)
    has_room = is_there and shutil.disk_usage(shared).free > 32 * 2 ** 20
    return tempfile.TemporaryDirectory(dir=shared if has_room else None)


def told(run):
    """How a run ended, in a line: its status, what it said last, its error."""
    return f"status {run.returncode}, " + " | ".join([*run.stdout.splitlines()[-3:],
                                                      *filter(None, run.stderr.splitlines())])


def check_error(run, where, number, *texts):
    """Ended with status 3 over a run-time error of that number which names the texts."""
    check(run.returncode == 3, f"{where}: {told(run)}")
    match = re.match(rf"Run-time error '{number}':\n\n(.+)", run.stderr)
    check(match, f"{where}: {run.stderr}")
    for text in texts:
        check(text in match[1], f"{where}: {text} is not named: {run.stderr}")


def count_lost_records():
    """Changed customers and products that reach no voucher file: after a run that did not end well
    this is not held, and told."""
    global lost_records
    lost_records += 1


class Shop:
    """A folder with one waiting data set, Kasse1, or more, made once and copied for every try."""

    def __init__(self, server, demo, folder, *options, data_sets=1):
        self.server = server
        self.folder = pathlib.Path(folder)
        self.is_sap = "--sap" in options
        self.bad_ends = 0  # runs that ended with an error, or were ended
        if demo:
            subprocess.run([demo, folder, "--data-sets", str(data_sets), *options], check=True)
            for name, content in BEFORE.items():
                self.path(name).parent.mkdir(exist_ok=True)
                self.path(name).write_bytes(content)

    def path(self, name):
        return self.folder / name

    @contextlib.contextmanager
    def copy(self, parent=None):
        with tempfile.TemporaryDirectory(dir=parent or self.folder.parent) as folder:
            shutil.copytree(self.folder, folder, dirs_exist_ok=True)
            shop = Shop(self.server, None, folder)
            shop.is_sap = self.is_sap
            yield shop

    def run(self, *arguments, starter=(), environment=None, **more):
        arguments = arguments or ("--unattended", "--all")
        run = subprocess.run([*starter, self.server, "--folder", self.folder, *arguments],
                             stdin=subprocess.DEVNULL, capture_output=True, text=True,
                             env={**os.environ, **(environment or {})}, **more)
        self.bad_ends += run.returncode != 0
        return run

    def databases(self):
        return sorted([*self.path("data").glob("*.mdb"), *self.folder.glob("*.company")])

    def documents(self):
        """How many rows each document table of the company holds."""
        with contextlib.closing(sqlite3.connect(self.path("Demo.company"))) as company:
            return [company.execute(f"SELECT count(*) FROM {table}").fetchone()[0]
                    for table in DOCUMENT_TABLES]

    def next_voucher(self):
        with contextlib.closing(sqlite3.connect(self.path("data/Kassovia.mdb"))) as store:
            return store.execute("SELECT NextVoucherNo FROM Options").fetchone()[0]

    def check_databases(self, where):
        for file in self.databases():
            with contextlib.closing(sqlite3.connect(file)) as database:
                result = database.execute("PRAGMA integrity_check").fetchone()[0]
            check(result == "ok", f"{where}: {file.name}: {result}")

    def data_set(self):
        """The contents of the data sets' files by their names; a finished name without its stamp."""
        found = {}
        for file in self.folder.glob("*DayEndSales*"):
            name = file.name.split(".XML")[0]
            # A server that is ended may leave a finished name beside the waiting one.
            check(name not in found or file.samefile(found[name]), f"{name} is there twice")
            found[name] = file
        return {name: file.read_bytes() for name, file in found.items()}

    def is_finished(self, name="Kasse1DayEndSales"):
        return (any(self.folder.glob(f"{name}.XML.*.ferdig"))
                and not self.path(f"{name}.XML").exists())

    def contents(self):
        return {name: self.path(name).read_bytes() for name in BEFORE}

    def check_untouched(self, before, where):
        check(self.contents() == before.contents(), f"{where}: a configured file has changed")
        check(self.data_set() == before.data_set() and not self.is_finished(),
              f"{where}: the data set has changed")
        if self.is_sap:
            check(self.documents() == before.documents(), f"{where}: the company has documents")

    def check_whole(self, before, done, where):
        """Each thing is as before the day or as after it, whatever went wrong."""
        self.check_databases(where)
        check(self.data_set() == before.data_set(), f"{where}: a file of the data set is lost")
        for name, content in self.contents().items():
            check(content in (before.contents()[name], done.contents()[name]),
                  f"{where}: {name} is neither the old nor the new one")
        if self.is_sap:
            check(self.documents() in (before.documents(), done.documents()),
                  f"{where}: the company holds a part of the day")

    def check_failed(self, before, done, run, where):
        """What must hold after a run in which something could not be written."""
        self.check_whole(before, done, where)
        if run.returncode == 0:  # there was another way, or nothing depended on it
            check(self.is_finished("Kasse1DayEndSalesLines"), f"{where}: goes well, but is not done")
            check(self.contents() == done.contents(), f"{where}: goes well, but is not placed")
        elif run.returncode == 1:  # what SAP refuses is told in its own words, and rolls the day back
            check(self.is_sap and "Found error:" in run.stdout and "MED FEIL" in run.stdout,
                  f"{where}: {run.stdout}")
            check(self.documents() == before.documents(), f"{where}: the day is not rolled back")
            check(not self.is_finished(), f"{where}: the files have finished names")
        else:
            check_error(run, where, r"\d+")


class Injector:
    """Lets one call of a run go wrong that changes a file."""

    def __init__(self, library):
        self.library = library

    def environment(self, fault):
        # The sanitizers want to come first, which a preloaded library does.
        options = os.environ.get("ASAN_OPTIONS", "") + ":verify_asan_link_order=0"
        return {"LD_PRELOAD": str(self.library), "ASAN_OPTIONS": options, **fault}

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
