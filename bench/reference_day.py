"""What a plain script makes of a day: imports both files into the work database, prints the sums.

usage: reference_day.py WORK_DATABASE SALES_FILE LINES_FILE
"""

import sqlite3
import sys
import xml.etree.ElementTree as ElementTree

OPEN_SALES = "Sales.ID = SalesLines.SalesID AND Sales.SalesStatus = 0 AND Sales.SalesType"
QUERIES = [
    "SELECT Sales.SalesDate, SalesAccount, VatCode, sum(Amount) FROM Sales, SalesLines WHERE "
    f"{OPEN_SALES} IN (1, 2) AND TransType IN (1, 2) AND SalesAccount >= 0 GROUP BY 1, 2, 3",
    "SELECT Sales.SalesDate, sum(Amount) FROM Sales, SalesLines WHERE "
    f"{OPEN_SALES} = 1 AND TransType = 0 AND ProductID = 'Avrunding' GROUP BY 1",
    "SELECT Sales.SalesDate, TransType, sum(Amount) FROM Sales, SalesLines WHERE "
    f"{OPEN_SALES} IN (1, 2) GROUP BY 1, 2",
]


def import_file(work, table, file):
    columns = [column[1] for column in work.execute(f"PRAGMA table_info({table})")]
    rows = ElementTree.parse(file).getroot().iter("{#RowsetSchema}row")
    work.execute(f"DELETE FROM {table}")
    work.executemany(
        f"INSERT INTO {table} VALUES ({', '.join('?' * len(columns))})",
        ([row.get(column) for column in columns] for row in rows),
    )


def main():
    work = sqlite3.connect(sys.argv[1])
    with work:
        import_file(work, "Sales", sys.argv[2])
        import_file(work, "SalesLines", sys.argv[3])
    for query in QUERIES:
        for row in work.execute(query):
            print(*row)


main()
