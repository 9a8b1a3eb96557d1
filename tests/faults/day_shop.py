"""A demo shop with the days of a till, what happens to it from outside, and what must hold when all
of it is over: each receipt is posted once, and no content of a file is lost."""

import contextlib
import os
import re

import shop as faults
import till
from books import HEAD_NUMBER, Books
from shop import check

NOTE = "KVDayEndServer.placing"
MOST_RUNS = 8


class Findings:
    """Goes on after a broken promise, and tells all of them at the end."""

    def __init__(self, most=200):
        self.tried = 0
        self.most = most
        self.broken = []

    @contextlib.contextmanager
    def attempt(self):
        self.tried += 1
        try:
            yield
        except SystemExit as broken:
            self.broken.append(str(broken))

    def end(self):
        for text in self.broken[:self.most]:
            print(text)
        if faults.lost_records:
            print(f"{faults.lost_records} shops lost changed records over a run that ended badly")
        print(f"{faults.checks} checks; {len(self.broken)} of {self.tried} attempts broke a promise")
        raise SystemExit(1 if self.broken else 0)


class DayShop:
    """A shop, its books, and what its till has written, by the names of the data sets."""

    def __init__(self, shop, days):
        self.shop = shop
        self.books = Books(shop)
        self.days = {}
        self.receipts = set()  # all that the till has ever written
        self.stood = {}  # contents of further files that nobody may lose
        self.decisions = 0  # those left to a person
        for name, receipts in days.items():
            self.write(name, receipts)

    def write(self, name, receipts):
        """The till writes a day over one of the same name."""
        self.note(name, receipts)
        till.write_day(self.shop.folder, name, receipts)

    def note(self, name, receipts):
        self.days[name] = list(receipts)
        self.receipts.update(receipts)

    def files(self, name):
        """Where the files of a day are to be in the end, whatever stamp they bear, with contents."""
        return dict(zip(till.names_of(name), till.contents_of(self.days[name])))

    def waiting(self):
        """Data-set files that are still under their own names, in any spelling."""
        return sorted(file.name for file in self.shop.folder.iterdir()
                      if file.name.upper().endswith((till.SALES.upper(), till.LINES.upper())))

    def finished(self, name):
        """Contents of the files that have the finished name of that file."""
        return [file.read_bytes() for file in self.shop.folder.iterdir()
                if file.name.startswith(name + ".") and ".ferdig" in file.name]

    def left_over(self):
        """What only an unfinished day has: its note, working copies, files and names on trial. What
        was to become one of those may stay until the next of that name is made."""
        return sorted(file.name for folder in (self.shop.folder, self.shop.path("import"))
                      for file in folder.iterdir()
                      if file.name == NOTE or re.search(r"\.tmp$|~$", file.name))

    def run_until_done(self, where, run=None):
        """Runs until nothing waits. A run ends well, or leaves to a person what can not be told."""
        run = run or self.shop.run
        for _ in range(MOST_RUNS):
            result = run()
            if result.returncode == 0 and not self.waiting():
                return
            if result.returncode == 3 and NOTE in result.stderr:
                self.decide(where)
            else:
                check(result.returncode == 0 and "MED FEIL" not in result.stdout,
                      f"{where}: the next run: {faults.told(result)} ({self.books.told()})")
        check(False, f"{where}: {', '.join(self.waiting())} still wait: {faults.told(result)}")

    def decide(self, where):
        """What a person does who finds a day that was placed in part and changed since: adds what
        accounting has not got, from the working copy, or lets the whole day be posted anew."""
        self.decisions += 1
        note = self.shop.path(NOTE)
        check(note.exists(), f"{where}: an error names {NOTE}, which is not there")
        name = note.read_text(encoding="utf-8").split("\n")[-1]
        day = set(self.days[name])
        note.unlink()
        has_orders, has_vouchers = day <= set(self.books.heads()), day <= set(self.books.sold())
        copy = self.shop.path(f"{faults.VOUCHERS}.tmp")  # the orders are placed first
        if has_orders and not has_vouchers and not copy.exists():
            has_orders = self.take_orders_out_again(where, day)
        if not has_orders and not has_vouchers:
            return
        check(has_orders, f"{where}: the vouchers are placed without the orders")
        if not has_vouchers:
            self.add_vouchers(copy)
        for file in till.names_of(name):
            if self.shop.path(file).exists():
                os.rename(self.shop.path(file), self.shop.path(f"{file}.av-hand.ferdig"))

    def add_vouchers(self, copy):
        """The day's part of the working copy: what stands behind the lines that accounting knows."""
        place = self.shop.path(faults.VOUCHERS)
        known = [content for name, content in self.books.taken if name == faults.VOUCHERS]
        known += [place.read_bytes()] if place.exists() else []
        content = copy.read_bytes().splitlines(keepends=True)
        begin = max((len(os.path.commonprefix([content, each.splitlines(keepends=True)]))
                     for each in known), default=0)
        with open(place, "ab") as file:
            file.write(b"".join(content[begin:]))
        copy.unlink()

    def take_orders_out_again(self, where, day):
        """Nobody has imported them yet, and the day can be posted as a whole. Gives that it is in no
        order file then."""
        place = self.shop.path(faults.ORDERS)
        check(place.exists(), f"{where}: accounting has half of the day, and the rest is gone")
        blocks = re.split(rb"(?m)^(?=H;)", place.read_bytes())
        place.write_bytes(b"".join(block for block in blocks if not block.startswith(b"H;") or
                                   int(block.split(b";")[HEAD_NUMBER]) not in day))
        return False

    def check_done(self, where):
        self.books.check_posted_once(where, self.receipts)
        self.shop.check_databases(where)
        check(not self.waiting(), f"{where}: {', '.join(self.waiting())} wait")
        check(not self.left_over(), f"{where}: {', '.join(self.left_over())} stay")
        for name in self.days:
            for file, content in self.files(name).items():
                check(content in self.finished(file),
                      f"{where}: {file} as it was posted is under no finished name")
        for name, content in self.stood.items():
            found = [file.read_bytes() for file in self.shop.folder.iterdir()
                     if re.match(re.escape(name) + r"(\.\d+)?$", file.name)]
            check(content in found, f"{where}: what was in {name} is lost")


@contextlib.contextmanager
def day_shop(before, days):
    with before.copy() as shop:
        yield DayShop(shop, days)


def empty_shop(server, demo, folder, *options):
    """A demo shop that no day waits in, with a changed customer and a changed product."""
    return faults.Shop(server, demo, folder, "--sales", "1", "--changed-customers", "1",
                       "--changed-products", "1", *options, data_sets=0)
