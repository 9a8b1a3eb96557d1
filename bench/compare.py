"""The measurements behind bench/compare: which program against which reference, on which data."""

import argparse
import dataclasses
import pathlib
import shutil
import sys
import tempfile

import measure
import report
import shops
from measure import Job

HERE = pathlib.Path(__file__).resolve().parent
DOCUMENTS = ["OINV", "INV1", "ORIN", "RIN1", "ODLN", "DLN1", "ORDN", "RDN1", "ORDR", "RDR1"]


@dataclasses.dataclass
class Sizes:
    pairs: int
    growth_runs: int
    import_lines: int
    order_file: tuple[int, int]  # sales, lines
    day: tuple[int, int]
    receipts: int


FULL = Sizes(5, 3, 1_000_000, (400, 4000), (1000, 3500), 10_000)
QUICK = Sizes(3, 1, 100_000, (200, 2000), (500, 1750), 2_000)


class Comparer:
    def __init__(self, build, folder, sizes):
        self.build, self.folder, self.sizes = build, folder, sizes
        self.run_folder = folder / "run"
        self.rows, self.growth = [], []

    # --- jobs

    def server(self, shop, *arguments, build=None):
        program = (build or self.build) / "kvdayend"
        command = [str(program), "--folder", str(self.run_folder), *arguments]
        return Job([command], lambda: shops.refresh(shop, self.run_folder))

    def transfer(self, shop, build=None):
        return self.server(shop, "--unattended", "--all", build=build)

    def step(self, shop, step, build=None):
        command = [str((build or self.build) / "bench_step"), step, str(self.run_folder)]
        return Job([command], lambda: shops.refresh(shop, self.run_folder))

    def script(self, shop, name, *arguments):
        command = [sys.executable, str(HERE / name), *map(str, arguments)]
        return Job([command], lambda: shops.refresh(shop, self.run_folder))

    def make_shop(self, name, sales, lines, *options):
        return shops.make(self.build, self.folder / name, sales, lines, *options)

    # --- rows

    def compare(self, work, ours, reference_name, reference, goal, **kept):
        print(f"{work}: against {reference_name}", file=sys.stderr)
        memory = kept.get("memory") or measure.peak_memory(ours)
        comparison = measure.compare(ours, reference, self.sizes.pairs)
        self.rows.append(report.Row(work, reference_name, comparison, memory, goal))
        return memory

    def grow(self, work, shops_and_sizes, job_of):
        """`shops_and_sizes` makes one shop after another, each with its size."""
        print(f"{work}: growth", file=sys.stderr)
        sizes, usages = [], []
        for shop, size in shops_and_sizes:
            job = job_of(shop)
            runs = [measure.run(job) for _ in range(self.sizes.growth_runs)]
            usages.append(measure.median(runs))
            sizes.append(size if size else shops.size_of(self.run_folder / shops.ORDER_FILE))
            shutil.rmtree(self.run_folder)
            shutil.rmtree(shop)
        self.growth.append(report.Growth(work, sizes, usages))

    def compare_import(self):
        lines = self.sizes.import_lines
        shop = self.make_shop("import", lines // 4, lines)
        ours = self.step(shop, "import")
        memory = measure.peak_memory(ours)
        for table in ("Sales", "SalesLines"):
            shops.export_csv(self.run_folder / shops.WORK, table, self.folder / f"{table}.csv")
        files = [str(self.run_folder / name) for name in (shops.SALES_FILE, shops.LINES_FILE)]
        imports = [f".import {self.folder / table}.csv {table}" for table in ("Sales", "SalesLines")]
        reference = Job(
            [
                ["xmllint", "--stream", "--noout", *files],
                ["sqlite3", str(self.run_folder / shops.WORK), ".mode csv", *imports],
            ],
            ours.prepare,
        )
        self.compare(
            f"import of {lines:,} lines".replace(",", " "), ours,
            "`xmllint --stream` on both files, plus `sqlite3` `.import` of the rows as CSV",
            reference, report.Goal(1.0, most_memory=64), memory=memory,
        )
        for table in ("Sales", "SalesLines"):
            (self.folder / f"{table}.csv").unlink()
        shutil.rmtree(shop)
        self.grow(
            "import, by lines",
            ((self.make_shop("grow", n // 4, n), n) for n in (lines, 2 * lines, 4 * lines)),
            lambda shop: self.step(shop, "import"),
        )

    def compare_order_file(self):
        sales, lines = self.sizes.order_file
        shop = self.make_shop("orders", sales, lines)
        whole = self.transfer(shop)
        measure.run(whole)
        finished, copy = self.folder / "finished.edi", self.folder / "copy.edi"
        (self.run_folder / shops.ORDER_FILE).rename(finished)
        copying = ["cp", str(finished), str(copy)]
        work = f"order file: {sales} sales, {lines} lines, {report.megabytes(finished)}"
        reference = Job([copying], lambda: copy.unlink(missing_ok=True))
        ours = self.step(shop, "order-file")
        memory = self.compare(work, ours, "`cp` of it", reference, report.Goal(2.0))
        self.compare("whole export of that day", whole, "`cp` of it", reference, None)
        # The server's file is on disk when it is done; cp leaves that to the system.
        reference.commands = [[*copying], ["sync", str(copy)]]
        self.compare(work, ours, "`cp` of it, and `sync` of the copy", reference, None,
                     memory=memory)
        copy.unlink()
        finished.unlink()
        shutil.rmtree(shop)
        doubled = ((sales, lines), (sales, 2 * lines), (2 * sales, 2 * lines))
        self.grow("order file, by bytes",
                  ((self.make_shop("grow", *size), None) for size in doubled), self.transfer)

    def compare_day(self):
        sales, lines = self.sizes.day
        options = ("--changed-products", 50)
        shop = self.make_shop("day", sales, lines, *options)
        files = [self.run_folder / name for name in (shops.WORK, shops.SALES_FILE, shops.LINES_FILE)]
        script = self.script(shop, "reference_day.py", *files)
        name = "Python script (`xml.etree`, `sqlite3`), import and sums only"
        day = f"common day: {sales} sales, {lines} lines"
        goal = report.Goal(0.1)
        self.compare(f"{day}, whole export", self.transfer(shop), name, script, goal)
        self.compare("the same day, order file alone", self.step(shop, "order-file"), name, script,
                     None)
        self.compare("the same day, all but the order file", self.step(shop, "postings"), name,
                     script, None)
        self.compare("the same day, import alone", self.step(shop, "import"), name, script, None)
        shutil.rmtree(shop)
        # The order file holds all lines once for every sale, so half of both gives a quarter.
        shares = ((sales // 4, lines // 4), (sales // 2, lines // 2), (sales, lines))
        self.grow("whole export, by bytes of its order file",
                  ((self.make_shop("grow", *size, *options), None) for size in shares),
                  self.transfer)
        self.grow("export but the order file, by lines",
                  ((self.make_shop("grow", sales * n, lines * n, *options), lines * n)
                   for n in (4, 8, 16)),
                  lambda shop: self.step(shop, "postings"))

    def compare_sap(self):
        receipts = self.sizes.receipts
        shop = self.make_shop("sap", receipts, 3 * receipts, "--sap")
        ours = self.transfer(shop)
        memory = measure.peak_memory(ours)
        for table in DOCUMENTS:
            shops.export_csv(self.run_folder / shops.COMPANY, table, self.folder / f"{table}.csv")
        work = f"SAP transfer: {receipts} receipts, {3 * receipts} lines"
        for way, name, goal in (
            ("bulk", "Python script that inserts the rows table by table", report.Goal(1.0)),
            ("by-document", "Python script that inserts them document by document", None),
        ):
            company = self.run_folder / shops.COMPANY
            reference = self.script(shop, "reference_sap.py", way, company, self.folder)
            self.compare(work, ours, name, reference, goal, memory=memory)
            work = "the same"
        shutil.rmtree(shop)
        # Numbers of sales have 16 bits there: 30 000 is about the largest day.
        self.grow("SAP transfer, by receipts",
                  ((self.make_shop("grow", n, 3 * n, "--sap"), n)
                   for n in (receipts * 3 // 4, receipts * 3 // 2, receipts * 3)),
                  self.transfer)

    def compare_start_up(self):
        shop = self.make_shop("start", 40, 140)
        ours = self.server(shop, "--list")
        query = "SELECT NextVoucherNo FROM Options"
        attach = f"ATTACH '{self.run_folder / shops.WORK}' AS work"
        reference = Job(
            [["sqlite3", str(self.run_folder / shops.STORE), f"{attach}; {query}"]], ours.prepare)
        ours.repeats = reference.repeats = 20
        self.compare("start-up to the listed data sets", ours,
                     "`sqlite3` opening both databases and reading one row", reference,
                     report.Goal(3.0))
        shutil.rmtree(shop)


    def compare_builds(self, earlier):
        """Every kind of work by this build and by an earlier one, which has kvdayend and bench_step."""
        import_lines, receipts = self.sizes.import_lines, self.sizes.receipts
        works = (
            ("start-up", (40, 140), lambda *a, **k: self.server(*a, "--list", **k), 20),
            ("SAP transfer", (receipts, 3 * receipts, "--sap"), self.transfer, 1),
            ("whole export", (*self.sizes.day, "--changed-products", 50), self.transfer, 1),
            ("order file", self.sizes.order_file,
             lambda shop, **k: self.step(shop, "order-file", **k), 1),
            ("import", (import_lines // 4, import_lines),
             lambda shop, **k: self.step(shop, "import", **k), 1),
        )
        for work, size, job_of, repeats in works:
            shop = self.make_shop("builds", *size)
            ours, reference = job_of(shop), job_of(shop, build=earlier)
            ours.repeats = reference.repeats = repeats
            self.compare(f"{work}: {size[0]} sales, {size[1]} lines", ours, "the earlier build",
                         reference, None)
            shutil.rmtree(shop)


def main():
    parser = argparse.ArgumentParser(prog="bench/compare")
    parser.add_argument("--build", type=pathlib.Path, required=True, help=argparse.SUPPRESS)
    parser.add_argument("--quick", action="store_true", help="three pairs on smaller data")
    parser.add_argument("--write", action="store_true", help="into docs/performance.md as well")
    parser.add_argument("--only", action="append", metavar="PART",
                        choices=["import", "order_file", "day", "sap", "start_up"],
                        help="import, order_file, day, sap or start_up; may be repeated")
    parser.add_argument("--against", type=pathlib.Path, metavar="DIR",
                        help="an earlier build instead of the public tools")
    options = parser.parse_args()
    if options.write and (options.quick or options.only or options.against):
        parser.error("--write takes a whole run")
    with tempfile.TemporaryDirectory(prefix="kvbench-") as folder:
        comparer = Comparer(options.build.resolve(), pathlib.Path(folder),
                            QUICK if options.quick else FULL)
        if options.against:
            comparer.compare_builds(options.against.resolve())
        else:
            for part in options.only or ["start_up", "sap", "day", "order_file", "import"]:
                getattr(comparer, f"compare_{part}")()
        text = report.text(comparer.rows, comparer.growth, comparer.sizes, folder)
    print(text)
    if options.write:
        report.write(HERE.parent / "docs" / "performance.md", text)


main()
