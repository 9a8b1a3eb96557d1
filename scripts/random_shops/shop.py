"""A random shop: made by the demo program, then disturbed."""

import dataclasses
import random
import sqlite3
import subprocess
from contextlib import closing

from random_shops import columns, company, files, operator, recordset, sales, settings, store
from random_shops.deck import HARSH, MILD, Deck

# In this order they are laid on the shop.
DECKS = [settings.DECK, sales.DECK, columns.DECK, store.DECK, company.DECK, files.DECK]

COMMAND = """#!/bin/sh
{ pwd; for word in "$0" "$@"; do echo "[$word]"; done; } > kommando.del
mv kommando.del kommando.txt
"""


@dataclasses.dataclass
class DataSet:
    name: str
    sales: recordset.Recordset
    lines: recordset.Recordset
    sales_file: str | None
    lines_file: str | None


class Shop:
    def __init__(self, seed, folder, demo_program):
        self.seed, self.folder = seed, folder
        self.rng = random.Random(f"shop {seed}")
        self.transfer = "sap" if self.rng.random() < 0.4 else "file"
        self.cards = []  # their names, in order
        self.answers_at_start = []
        self.last_touches = []  # to the folder, once everything is written
        self.copy_touches = []  # to every copy of the folder
        self.settings_spelling = ""
        self.make_demo(demo_program)

    # --- from the demo program

    def make_demo(self, demo_program):
        rng = self.rng
        sets = rng.choices([1, 2, 3], [35, 40, 25])[0]
        command = [demo_program, self.folder, "--seed", self.seed, "--data-sets", sets,
                   "--sales", rng.randint(5, 40) if sets == 1 else rng.randint(5, 15),
                   "--changed-customers", rng.randint(0, 4),
                   "--changed-products", rng.randint(0, 5)]
        command += ["--sap"] if self.transfer == "sap" else []
        subprocess.run([str(word) for word in command], check=True)
        self.server_settings = self.read_settings("KVDayEndServer.ini")
        self.settings = self.read_settings("Kassovia.ini")
        self.sets = []
        for path in sorted(self.folder.glob("*" + files.SALES)):
            name = path.name.removesuffix(files.SALES)
            lines = path.with_name(name + files.LINES)
            self.sets.append(DataSet(name, recordset.read(path), recordset.read(lines),
                                     path.name, lines.name))
            path.unlink()
            lines.unlink()
        if self.transfer == "sap":
            for data_set in self.sets:
                self.make_payments_ordinary(data_set)

    def make_payments_ordinary(self, data_set):
        """The server ends at a receipt that only pays an invoice: that is left to a card."""
        goods = {line["SalesID"] for line in data_set.lines.rows if line["TransType"] in "12"}
        for line in data_set.lines.rows:
            if line["TransType"] == "15" and line["SalesID"] not in goods:
                line["TransType"] = "14"

    def read_settings(self, name):
        text = (self.folder / name).read_text(encoding="cp1252")
        lines = [line for line in text.splitlines() if "=" in line and line[0] != ";"]
        return dict(line.split("=", 1) for line in lines)

    # --- for the cards

    def readable_sets(self):
        return [data_set for data_set in self.sets if data_set.sales.rows] or self.sets

    def write(self, name, content):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        if not path.is_dir():
            path.write_bytes(content)

    def path_of(self, key, usual):
        """Of an import file, as far as a plain file can stand there."""
        name = (self.settings.get(key) or "").strip(' "').replace("\\", "/")
        folder = name.rpartition("/")[0]
        if not name or (folder and folder.lower() not in ("import", "./import", "import/..")):
            return usual
        name = name.replace("IMPORT/", "import/")
        return usual if (self.folder / name).is_dir() else name

    def voucher_path(self):
        return self.path_of("VoucherFileName", "import/bilag.txt")

    def order_path(self):
        return self.path_of("EDIFileName", "import/ordre.edi")

    def asks_at_start(self):
        return bool(self.answers_at_start)

    # --- disturbed

    def disturb(self):
        whole = Deck()
        whole.cards = [card for deck in DECKS for card in deck.cards]
        mild, harsh = self.rng.choices([(0, 0), (6, 0), (14, 0), (24, 0), (5, 1), (14, 1), (14, 3)],
                                       [2, 10, 26, 24, 14, 20, 4])[0]
        dealt = whole.draw(self.rng, self.transfer, MILD, self.rng.randint(mild // 2, mild))
        dealt += whole.draw(self.rng, self.transfer, HARSH, harsh)
        with closing(self.database("data/Kassovia.mdb")) as self.store, \
                closing(self.database("data/KVDayEndServer.mdb")) as self.work, \
                closing(self.database("Demo.company")) as self.company:
            for card in sorted(dealt, key=whole.cards.index):
                card.apply(self)
                self.cards.append(card.name)
        operator.instruct(self)
        self.write_settings()
        self.write_data_sets()
        for touch in self.last_touches:
            touch(self.folder)

    def database(self, name):
        path = self.folder / name
        return sqlite3.connect(path if path.exists() else ":memory:", isolation_level=None)

    def write_settings(self):
        if "kommando" in (self.server_settings.get("DayEndCommand") or ""):
            self.write("kommando.sh", COMMAND.encode())
            (self.folder / "kommando.sh").chmod(0o755)
        for name, values in (("KVDayEndServer.ini", self.server_settings),
                             ("Kassovia.ini", self.settings)):
            text = settings.profile_text(values, self.settings_spelling)
            self.write(name, text.encode("cp1252"))
        if "firma" in (self.settings.get("SAPServer") or "").lower():
            (self.folder / "firma").mkdir()
            (self.folder / "Demo.company").rename(self.folder / "firma/Demo.company")

    def write_data_sets(self):
        for data_set in self.sets:
            for name, content in ((data_set.sales_file, data_set.sales),
                                  (data_set.lines_file, data_set.lines)):
                if name:
                    recordset.write(self.folder / name, content, self.rng)

    def about(self):
        return "\n".join([
            f"seed {self.seed}, transfer {self.transfer}", "cards: " + ", ".join(self.cards),
            "data sets: " + ", ".join(repr(data_set.name) for data_set in self.sets),
            "options: " + " ".join(repr(option) for option in self.options),
            "input: " + repr(self.input), ""])
