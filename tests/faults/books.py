"""The books of a shop whose receipts a till made: all that accounting has been given, in the import
files that lie there and in those that it took away, or as documents of the company."""

import collections
import contextlib
import re
import sqlite3

import shop as faults
import till
from shop import check

HEAD_NUMBER = 34  # position of a head of the order file, from 0
NUMBER, TEXT, DEBIT, CREDIT, AMOUNT, INVOICE = 0, 3, 5, 8, 10, 11  # of a voucher record
CHANGED_RECORDS = ("10040", "1141")  # of a demo shop with a changed customer and a changed product


def times(count):
    return {0: "not at all", 1: "once", 2: "twice"}.get(count, f"{count} times")


def described(counts):
    return ", ".join(f"{number} {times(count)}" for number, count in sorted(counts.items()))


class Books:
    def __init__(self, shop):
        self.shop = shop
        self.taken = []  # names and contents of the import files that accounting took away
        self.first_voucher = shop.next_voucher()
        # Lines that were in the import files before, or that others have added.
        self.foreign = {faults.ORDERS: ["ordre fra i forgaars"],
                        faults.VOUCHERS: ["bilag fra i forgaars"]}

    def take(self, *names):
        """Accounting moves import files away, those that are there; gives their names."""
        found = [name for name in names or faults.BEFORE if self.shop.path(name).exists()]
        for name in found:
            self.taken.append((name, self.shop.path(name).read_bytes()))
            self.shop.path(name).unlink()
        return found

    def files(self, name):
        """Every import file of that name that accounting has been given, as text."""
        present = [self.shop.path(name).read_bytes()] if self.shop.path(name).exists() else []
        given = [content for taken, content in self.taken if taken == name] + present
        return [content.decode("cp1252") for content in given]

    def heads(self):
        """How often each receipt has a head in the order files."""
        return collections.Counter(
            int(line.split(";")[HEAD_NUMBER])
            for text in self.files(faults.ORDERS) for line in text.splitlines()
            if line.startswith("H;"))

    def records(self):
        """The voucher records: their fields."""
        return [fields for text in self.files(faults.VOUCHERS) for line in text.splitlines()
                if len(fields := re.findall(r'"([^"]*)"', line)) == 22]

    def sold(self):
        """How often each receipt is in the sums of sales."""
        return self.summed("Salg", CREDIT)

    def paid(self):
        """How often each receipt's payment is posted, in the sums of cash or by itself."""
        credit = collections.Counter(int(fields[INVOICE].removeprefix("BONG"))
                                     for fields in self.records() if fields[TEXT] == "Kredittsalg")
        return credit + self.summed("Kontanter", DEBIT)

    def summed(self, text, side):
        found = collections.Counter()
        for fields in self.records():
            if fields[TEXT] == text and fields[side] != "0":
                found.update(till.receipts_in(fields[AMOUNT].replace(",", ".")))
        return found

    def documents(self):
        """How often each receipt is an invoice of the company, with its amount."""
        found = collections.Counter()
        with contextlib.closing(sqlite3.connect(self.shop.path("Demo.company"))) as company:
            for number, price in company.execute(
                    "SELECT CAST(Ref1 AS INTEGER), Price FROM OINV LEFT JOIN INV1 USING (DocEntry)"):
                check(price == till.amount_of(number), f"receipt {number} has the amount {price}")
                found[number] += 1
        return found

    def accounts(self):
        """Every place in which each receipt is to be found once, and how often it is there."""
        if not self.shop.is_sap:
            return {"orders": self.heads(), "sums of sales": self.sold(), "payments": self.paid()}
        return {"documents": self.documents()}

    def posted(self):
        """The receipts that are anywhere."""
        return set().union(*self.accounts().values())

    def told(self):
        """For a failed check: where the receipts are."""
        return "; ".join(f"{place}: {described(counts) or 'none'}"
                         for place, counts in self.accounts().items())

    def check_posted_once(self, where, receipts):
        for place, counts in self.accounts().items():
            expected = collections.Counter(receipts)
            wrong = {number: counts[number] for number in {*expected, *counts}
                     if counts[number] != expected[number]}
            check(not wrong, f"{where}: in the {place} is receipt {described(wrong)} ({self.told()})")
        if not self.shop.is_sap:
            self.check_order_files(where)
            self.check_voucher_files(where)
            self.check_voucher_numbers(where)
            self.check_foreign_lines(where)

    def check_order_files(self, where):
        """Beneath each head are whole receipts, and what lay there before is there once."""
        for text in self.files(faults.ORDERS):
            check(text.count("7;6;\r\n") == 1 and text.endswith("\r\n"),
                  f"{where}: an order file begins or ends in the middle: {text[:60]!r}")
            for body in re.split(r"^H;", text, flags=re.MULTILINE)[1:]:
                check(body.count("\r\nL;") % till.LINES_OF_A_RECEIPT == 0 and "\r\nL;" in body,
                      f"{where}: a head of the order file has not all its lines")

    def check_voucher_files(self, where):
        for text in self.files(faults.VOUCHERS):
            check(text.endswith("\r\n"), f"{where}: a voucher file is cut off")
        lost = [mark for mark in CHANGED_RECORDS
                if not any(f'\n"{mark}"' in text for text in self.files(faults.VOUCHERS))]
        if lost and self.shop.bad_ends:
            return faults.count_lost_records()
        check(not lost, f"{where}: {lost} of a changed customer or product reached no voucher file")

    def check_foreign_lines(self, where):
        for name, lines in self.foreign.items():
            for line in lines:
                count = sum(text.count(line) for text in self.files(name))
                check(count == 1, f"{where}: \"{line}\" is in {name} {times(count)}")

    def check_voucher_numbers(self, where):
        """The days of a file bear numbers of their own, one a day, and none is used again."""
        used = [numbers for text in self.files(faults.VOUCHERS)
                for numbers in map(numbers_of, text.split("@WaBnd")[1:]) if numbers]
        check(all(len(numbers) == 1 for numbers in used), f"{where}: a day under numbers {used}")
        numbers = [min(each) for each in used]
        check(len(set(numbers)) == len(numbers), f"{where}: a voucher number twice: {numbers}")
        check(all(self.first_voucher <= number < self.shop.next_voucher() for number in numbers),
              f"{where}: voucher numbers {numbers}, the next {self.shop.next_voucher()}")
        return numbers


def numbers_of(batch):
    return {int(fields[NUMBER]) for line in batch.splitlines()
            if len(fields := re.findall(r'"([^"]*)"', line)) == 22}
