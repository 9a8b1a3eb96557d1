"""Odd SAP companies."""

from random_shops.deck import HARSH, MILD, NEVER, Deck

DECK = Deck()

DOCUMENT_LINES = ["INV1", "RIN1", "DLN1", "RDN1", "RDR1"]


@DECK.card(NEVER, MILD, weight=2)
def no_rounding_item(shop):
    shop.company.execute("DELETE FROM OITM WHERE ItemCode = 'Avrunding'")


@DECK.card(NEVER, MILD)
def no_account_for_new_partners(shop):
    shop.company.execute(shop.rng.choice(["DELETE FROM OADM", "UPDATE OADM SET DflDebAct = NULL"]))


@DECK.card(NEVER, MILD, weight=1.5)
def codes_in_other_spelling(shop):
    shop.company.execute("UPDATE OITM SET ItemCode = ItemCode || '  ' WHERE rowid % 7 = 1")
    shop.company.execute("UPDATE OCRD SET CardCode = CardCode || ' ' WHERE rowid % 5 = 1")


@DECK.card(NEVER, MILD)
def price_lists(shop):
    ways = ["INSERT INTO OPLN VALUES (7, 'Tredje')", "UPDATE OPLN SET ListNum = ListNum + 4",
            "INSERT INTO OPLN VALUES (0, 'Foran')"]
    shop.company.execute(shop.rng.choice(ways))


@DECK.card(NEVER, MILD)
def days_table(shop):
    shop.company.execute('CREATE TABLE "@KVDAYEND" (Code TEXT PRIMARY KEY, Name TEXT)')


@DECK.card(NEVER, MILD)
def documents_of_earlier_days(shop):
    for kind in ("INV", "RIN", "RDR"):
        shop.company.execute(
            f"INSERT INTO O{kind} (DocEntry, DocNum, CardCode) VALUES (41, 7, '10001')")


@DECK.card(NEVER, HARSH, weight=1.5)
def partners_gone(shop):
    shop.company.execute("DELETE FROM OCRD WHERE rowid % 3 = ?", [shop.rng.randint(0, 2)])


@DECK.card(NEVER, HARSH, weight=1.5)
def items_gone(shop):
    shop.company.execute("DELETE FROM OITM WHERE rowid % 9 = ?", [shop.rng.randint(0, 8)])


@DECK.card(NEVER, HARSH)
def accounts_gone(shop):
    shop.company.execute("DELETE FROM OACT WHERE AcctCode = ?", [shop.rng.choice(["3000", "3010"])])


@DECK.card(NEVER, HARSH, weight=0.7)
def company_refuses(shop):
    """Somebody's rule in the company, which the server does not know."""
    table = shop.rng.choice(["OINV", "OCRD", "OITM", *DOCUMENT_LINES])
    shop.company.execute(
        f"CREATE TRIGGER Regel BEFORE INSERT ON {table} WHEN NEW.rowid % 3 = 0 OR NEW.rowid < 0 "
        "BEGIN SELECT RAISE(ABORT, 'stoppet av en regel'); END")


@DECK.card(NEVER, HARSH, weight=0.7)
def table_gone(shop):
    tables = ["ORIN", "OACT", "OPLN", "OUSR", "OADM", "OITM", *DOCUMENT_LINES]
    shop.company.execute(f"DROP TABLE {shop.rng.choice(tables)}")
