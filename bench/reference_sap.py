"""Inserts the documents of a day into a company database in one transaction.

usage: reference_sap.py bulk|by-document COMPANY ROWS_FOLDER
"bulk" fills one table after another, "by-document" follows each head by its lines.
"""

import csv
import itertools
import pathlib
import sqlite3
import sys

DOCUMENTS = ["INV", "RIN", "DLN", "RDN", "RDR"]


def rows_of(folder, table):
    with open(folder / f"{table}.csv", encoding="utf-8", newline="") as file:
        return list(csv.reader(file))


def insertion(table, rows):
    return f"INSERT INTO {table} VALUES ({', '.join('?' * len(rows[0]))})"


def insert_by_document(company, head_table, heads, line_table, lines):
    by_document = {
        key: list(group) for key, group in itertools.groupby(lines, lambda line: line[0])
    }
    for head in heads:
        company.execute(insertion(head_table, heads), head)
        for line in by_document[head[0]]:
            company.execute(insertion(line_table, lines), line)


def main():
    way, folder = sys.argv[1], pathlib.Path(sys.argv[3])
    company = sqlite3.connect(sys.argv[2])
    with company:
        for document in DOCUMENTS:
            heads, lines = rows_of(folder, f"O{document}"), rows_of(folder, f"{document}1")
            if not heads:
                continue
            if way == "bulk":
                company.executemany(insertion(f"O{document}", heads), heads)
                company.executemany(insertion(f"{document}1", lines), lines)
            else:
                insert_by_document(company, f"O{document}", heads, f"{document}1", lines)


main()
