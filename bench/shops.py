"""Generated shops for the measurements: made once, and a fresh one for every run."""

import os
import pathlib
import shutil
import subprocess

SALES_FILE = "Kasse1DayEndSales.XML"
LINES_FILE = "Kasse1DayEndSalesLines.XML"
ORDER_FILE = "import/ordre.edi"
STORE = "data/Kassovia.mdb"
WORK = "data/KVDayEndServer.mdb"
COMPANY = "Demo.company"


def make(build, folder, sales, lines, *options):
    command = [build / "kvdayend-demo", folder, "--sales", sales, "--lines", lines]
    command += ["--data-sets", 1, *options]
    subprocess.run([str(word) for word in command], check=True)
    return folder


def refresh(shop, copy):
    """Makes `copy` a copy of the shop. The data-set files, which nobody changes, are linked."""
    shutil.rmtree(copy, ignore_errors=True)

    def put(source, target):
        if source.endswith(".XML"):
            os.link(source, target)
        else:
            shutil.copyfile(source, target)

    shutil.copytree(shop, copy, copy_function=put)


def sqlite(database, *commands):
    subprocess.run(["sqlite3", str(database), *commands], check=True)


def export_csv(database, table, target):
    with open(target, "wb") as file:
        command = ["sqlite3", "-csv", str(database), f"SELECT * FROM {table}"]
        subprocess.run(command, check=True, stdout=file)


def size_of(path):
    return pathlib.Path(path).stat().st_size
