"""Odd databases of a shop: options, master data and tables of the store, the work tables."""

import re

from random_shops.deck import HALVES, HARSH, MILD, NEVER, ODD_NUMBERS, TEXTS, Deck, some

DECK = Deck()

ACCOUNTS = ["CashAccount", "BankAccount", "IOUAccount", *(f"Card{n}Account" for n in range(1, 8))]
PRICE_LISTS = ["SAPSalesPriceList", "SAPCostPriceList"]
CARD_NAMES = ["IOUName", *(f"Card{n}Name" for n in range(1, 8))]


def rebuild(database, table, change):
    """Makes the table again, by a changed declaration, with its rows."""
    [(sql,)] = database.execute("SELECT sql FROM sqlite_master WHERE name = ?", [table])
    columns = ", ".join(f'"{row[1]}"' for row in database.execute(f"PRAGMA table_info({table})"))
    database.execute(f"ALTER TABLE {table} RENAME TO old_{table}")
    database.execute(change(sql))
    database.execute(f"INSERT INTO {table} ({columns}) SELECT {columns} FROM old_{table}")
    database.execute(f"DROP TABLE old_{table}")


@DECK.card(weight=2)
def options_as_text(shop):
    rebuild(shop.store, "Options", lambda sql: sql.replace(" INTEGER", " TEXT"))


def option(fields, values, file=MILD, sap=MILD, weight=1.0):
    def apply(shop):
        for field in some(shop.rng, fields, 3):
            shop.store.execute(f"UPDATE Options SET {field} = ?", [shop.rng.choice(values)])

    DECK.add(f"Options.{fields[0]}", apply, file, sap, weight)


option(["CreditToOrder"], [1, 1, 0, None, -1, "ja"], MILD, NEVER, 6)
option(["GrossPrices"], [0, None, -1, 1], MILD, NEVER, 2)
option(["StockNo"], [None, 0, -3, "Lager 2", "7", " 7 ", 1.5, 12], MILD, NEVER, 2)
option(["DeptNo"], [None, 0, 12345, "Avd. Ø", ""], weight=3)
option(["DefaultVATCode"], [None, 0, -1, "x", 25], MILD, NEVER, 2)
option(["Long1"], [None, "", "abc", 0, 7741, 2147483647, -5], MILD, NEVER, 2)
option(["Long1"], [2147483648, 1e300], HARSH, NEVER, 0.5)
option(["NextVoucherNo"], [None, 0, -5, 2147483647, 1.5, "17", 99999], MILD, NEVER, 2)
option(["NextVoucherNo"], ["abc"], HARSH, NEVER, 0.5)
option(ACCOUNTS, [0, -1900, 2147483647, "1930", " 1940 ", 1900.5], MILD, NEVER, 3)
option(ACCOUNTS, [None, "abc", "", 2147483648, "1,2,3"], HARSH, NEVER, 2)
option(["SalesAccount"], [0, -1, 3000, "3010", 3000.5], MILD, NEVER, 2)
option(["SalesAccount"], [None, "x", 1e20], HARSH, NEVER)
option(CARD_NAMES, [*TEXTS, "Kort " * 50], MILD, NEVER, 3)
option(["SalesAccount"], [None, "", " ", 3010], NEVER, MILD, 2)
option(["SalesAccount"], [99999, "abc"], NEVER, HARSH)
option(["DefaultCustomerID"], ["10001", "10000 ", 10002], NEVER, MILD, 2)
option(["DefaultCustomerID"], [None, "", "finnes ikke"], NEVER, HARSH)
option(PRICE_LISTS, [0, 1, 2, None, "abc", -1, "2", 1.4], NEVER, MILD, 4)
option(PRICE_LISTS, [9, 3, 1e10], NEVER, HARSH)


OPTIONS = [card for card in DECK.cards if card.name.startswith("Options.")]


@DECK.card(weight=30)
def odd_options_everywhere(shop):
    for card in OPTIONS:
        if card.temper[shop.transfer] == MILD and shop.rng.random() < 0.5:
            card.apply(shop)


@DECK.card(weight=1.5)
def other_column_types(shop):
    kinds = ["TEXT", "DOUBLE", "INTEGER", "NUMERIC", "CURRENCY", "", "VARCHAR(20)"]
    for table in some(shop.rng, ["Options", "Customers", "Products", "PriceMatrix"], 2):
        kind = shop.rng.choice(kinds)
        target = shop.rng.choice([" INTEGER", " DOUBLE", " SMALLINT", " BOOLEAN"])
        rebuild(shop.store, table, lambda sql: re.sub(target + r"\b", f" {kind}", sql))


@DECK.card(weight=1.5)
def more_columns(shop):
    for table in some(shop.rng, ["Options", "Customers", "Products", "PriceMatrix", "Tax"], 3):
        shop.store.execute(f'ALTER TABLE {table} ADD COLUMN "Ekstra felt" TEXT DEFAULT \'x\'')


@DECK.card(weight=0.7)
def two_rows_of_options(shop):
    shop.store.execute("INSERT INTO Options SELECT * FROM Options")
    shop.store.execute("UPDATE Options SET NextVoucherNo = 5 WHERE rowid = 2")


@DECK.card(weight=1.5)
def table_without_a_key(shop):
    for table in some(shop.rng, ["Customers", "Products", "SelBuy"], 2):
        rebuild(shop.store, table, lambda sql: sql.replace(" PRIMARY KEY", ""))


@DECK.card(HARSH, NEVER, weight=0.7)
def tax_without_a_key(shop):
    rebuild(shop.store, "Tax", lambda sql: sql.replace(" PRIMARY KEY", ""))


@DECK.card(MILD, NEVER, weight=3)
def tax_rates(shop):
    for code in some(shop.rng, [3, 5, 31, 0], 3):
        shop.store.execute("INSERT OR REPLACE INTO Tax (VatCode, Rate) VALUES (?, ?)",
                           [code, shop.rng.choice([0, 25, 12.5, -50, "15", 1e10, 11.11, "8,5"])])


@DECK.card(HARSH, NEVER)
def impossible_tax_rates(shop):
    shop.store.execute("UPDATE Tax SET Rate = ? WHERE VatCode = ?",
                       [shop.rng.choice([-100, None, "abc", -100.0]), shop.rng.choice([3, 5, 31])])


@DECK.card(MILD, NEVER)
def no_tax_rates(shop):
    if shop.rng.random() < 0.5:
        shop.store.execute("DELETE FROM Tax")
    else:
        rebuild(shop.store, "Tax", lambda sql: sql.replace("INTEGER", "TEXT"))


# --- master data

ROWS = {
    "Customers": {
        "ID": [None, "", "  ", "Kunde 7", "ny-1"], "Name": TEXTS, "Address1": TEXTS,
        "Address2": TEXTS, "Address3": TEXTS, "Address4": TEXTS, "PostalCode": TEXTS,
        "PostalAddress": TEXTS,
        "Phone": TEXTS, "Fax": TEXTS, "EMail": TEXTS, "CustPrGr": [None, 0, -1, "A", 1.5, 1e15],
        "CustPrG2": [None, 0, 70000],
        "Discount": [None, 12.5, 1e-5, 1e15, -3, "ti", 33.333333333333336]},
    "Products": {
        "ID": [None, "", " ", "Vare 7", "ny-2"], "BarCode": TEXTS, "Description": TEXTS,
        "ProdPrGr": [None, 0, "B", 2.5], "ProdPrG2": [None, 7],
        "Price": [None, "gratis", *map(float, HALVES)],
        "CostPrice": [None, *map(float, ODD_NUMBERS)]},
    "PriceMatrix": {
        "ProdNo": TEXTS, "SalePr": [None, "x", *map(float, HALVES)],
        "CstPr": [None, "", *map(float, ODD_NUMBERS)]},
}


@DECK.card(weight=4)
def marks(shop):
    for table in ROWS:
        for rowid in row_numbers(shop, table, 6):
            shop.store.execute(f"UPDATE {table} SET Status = ? WHERE rowid = ?",
                               [shop.rng.choice([1, 2, 1, 2, 0, None, -1, 3, 0.5, "1"]), rowid])


@DECK.card(weight=5)
def master_data(shop):
    for table, fields in ROWS.items():
        for rowid in row_numbers(shop, table, 4):
            for field in some(shop.rng, fields, 3):
                shop.store.execute(
                    f"UPDATE OR IGNORE {table} SET {field} = ?, Status = ? WHERE rowid = ?",
                    [shop.rng.choice(fields[field]), shop.rng.choice([1, 2]), rowid])


@DECK.card(weight=1)
def nothing_marked(shop):
    for table in some(shop.rng, ROWS, 3):
        shop.store.execute(f"UPDATE {table} SET Status = 0")


def row_numbers(shop, table, most):
    numbers = [row[0] for row in shop.store.execute(f"SELECT rowid FROM {table}")]
    return some(shop.rng, numbers, most)


# --- the work database


@DECK.card(MILD, MILD)
def rows_of_an_earlier_day(shop):
    shop.work.execute("INSERT INTO Sales (ID, SalesType, SalesStatus) VALUES (1, 1, 0)")
    shop.work.execute("INSERT INTO SalesLines (SalesID, TransType, Amount) VALUES (1, 10, 5)")


@DECK.card(MILD, NEVER)
def other_types_of_the_work_tables(shop):
    kind = shop.rng.choice(["TEXT", "CURRENCY", "", "NUMERIC", "REAL"])
    target = shop.rng.choice([" INTEGER", " DOUBLE", " SMALLINT", " TEXT"])
    for table in some(shop.rng, ["Sales", "SalesLines"], 2):
        rebuild(shop.work, table, lambda sql: re.sub(target + r"\b", f" {kind}", sql))


@DECK.card(HARSH, NEVER)
def work_tables_that_refuse(shop):
    ways = ["CREATE UNIQUE INDEX OneLine ON SalesLines (ProductID)",
            "CREATE UNIQUE INDEX OneSale ON Sales (SelBuy)",
            "ALTER TABLE Sales ADD COLUMN Ekstra TEXT",
            "ALTER TABLE SalesLines DROP COLUMN Qty",
            "DROP TABLE SalesLines", "DROP TABLE Sales"]
    shop.work.execute(shop.rng.choice(ways))


# --- last, as the cards before need the tables


@DECK.card(NEVER, MILD, weight=1.5)
def documents_switched_off(shop):
    """With nothing marked this runs through; with a mark it ends at the missing company."""
    shop.settings["NoDayEnd"] = shop.rng.choice(["1", " 1 ", "1,0", "1.0"])
    for table in ("Customers", "Products"):
        shop.store.execute(f"UPDATE {table} SET Status = 0")


@DECK.card(HARSH, HARSH)
def no_options(shop):
    shop.store.execute("DELETE FROM Options")


@DECK.card(HARSH, HARSH, weight=1.5)
def table_missing(shop):
    table = shop.rng.choice(["Options", "Tax", "Customers", "PriceMatrix", "SelBuy", "Products"])
    shop.store.execute(f"DROP TABLE {table}")
    shop.answers_at_start += ["n"] * (2 if table in ("Customers", "SelBuy", "Products") else 1)


@DECK.card(MILD, MILD, weight=0.7)
def unused_table_missing(shop):
    shop.store.execute(f"DROP TABLE {shop.rng.choice(['Sales', 'SalesLines'])}")
    shop.answers_at_start.append(shop.rng.choice(["n", "nei", "Nei"]))


@DECK.card(HARSH, HARSH)
def column_missing(shop):
    table, column = shop.rng.choice([
        ("Options", shop.rng.choice(["DeptNo", "CreditToOrder", "StockNo", "SalesAccount"])),
        ("Options", shop.rng.choice(ACCOUNTS)), ("Options", "DefaultCustomerID"),
        ("Options", "SAPCostPriceList"), ("Customers", "Fax"),
        ("Products", "BarCode"), ("PriceMatrix", "CstPr"), ("Tax", "Rate")])
    if any(row[1] == column for row in shop.store.execute(f"PRAGMA table_info({table})")):
        shop.store.execute(f"ALTER TABLE {table} DROP COLUMN {column}")


@DECK.card(HARSH, HARSH, weight=0.5)
def no_database(shop):
    name = shop.rng.choice(["Kassovia.mdb", "KVDayEndServer.mdb"])
    if shop.rng.random() < 0.5:
        shop.last_touches.append(lambda folder: (folder / "data" / name).unlink())
    else:
        shop.last_touches.append(lambda folder: (folder / "data" / name).write_bytes(b"x" * 5000))
