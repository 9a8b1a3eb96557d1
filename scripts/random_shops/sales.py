"""Odd receipts and lines: values, types and columns of the two recordset files."""

import dataclasses

from random_shops.deck import HALVES, HARSH, MILD, ODD_NUMBERS, TEXTS, Deck, some

DECK = Deck()

CUSTOMER_LINES = {"13", "14", "15"}
ROUNDING_NAMES = ["Avrunding", "AVRUNDING", "avrunding", "Avrunding ", "Avrundning"]


def has_customer_lines(data_set, sale):
    return any(line.get("SalesID") == sale.get("ID") and line.get("TransType") in CUSTOMER_LINES
               for line in data_set.lines.rows)


def posts_to_no_customer(data_set, sale):
    return not has_customer_lines(data_set, sale)


def is_goods(_, line):
    return line.get("TransType") in ("1", "2")


def is_payment(_, line):
    return int(line.get("TransType") or 0) >= 10


def is_rounding(_, line):
    return line.get("TransType") == "0"


@dataclasses.dataclass(frozen=True)
class Oddity:
    """Values for one field in a few of the records."""

    records: str  # sales or lines
    field: str
    values: list
    file: str | None = MILD
    sap: str | None = MILD
    where: object = None
    weight: float = 1.0

    def apply(self, shop):
        for data_set in some(shop.rng, shop.readable_sets(), 2):
            rows = getattr(data_set, self.records).rows
            rows = [row for row in rows if not self.where or self.where(data_set, row)]
            for row in some(shop.rng, rows, 5):
                row[self.field] = shop.rng.choice(self.values)


BAD_DATES = [None, "0", "20051340", "99999999", "-5", "10000000", "10000101", "2147483647"]
UNPOSTED_KINDS = ["3", "5", "9", "17", "19", "20", "28", "99", "-1", "32767", None]
CODES = ["0", "3", "5", "31", "99", "-3", "32767", None]

ODDITIES = [
    Oddity("sales", "OurRef", TEXTS, weight=2),
    Oddity("sales", "YourRef", TEXTS),
    Oddity("sales", "CustomerName", TEXTS, weight=2),
    Oddity("sales", "Project", TEXTS + ["103", "12345678", "123456789", "-1.5E3", ",5", "1."],
           weight=2),
    Oddity("sales", "SelBuy", ["0", "-1", None, "7", "32768", "2147483647"], weight=2),
    Oddity("sales", "SalesStatus", ["1", "2", "-1", None], weight=2),
    Oddity("sales", "SalesType", ["1", "2", "3", "4", "5", "32767"], weight=2),
    Oddity("sales", "SalesType", ["1", "2"], weight=2),
    Oddity("sales", "SalesType", ["0", "-1"], HARSH, MILD, weight=5),
    Oddity("sales", "SalesType", [None], HARSH, HARSH),
    Oddity("sales", "SalesDate", ["20250401", "20250331", "19991231", "20280229"], weight=2),
    Oddity("sales", "SalesDate", BAD_DATES, MILD, HARSH),
    Oddity("sales", "DayEndDate", ["2024-05-06T07:08:09", "2024-05-06T00:00:00",
           "0100-01-01T00:00:00"]),
    Oddity("sales", "CustomerID", [None, "", "   "], MILD, MILD, posts_to_no_customer),
    Oddity("sales", "CustomerID", ["10001", "10002 ", "10003", "10000"], weight=2),
    Oddity("sales", "CustomerID", [" 10001", "1E4", "10000,5", "-7", "0", "10000.49"], MILD, HARSH),
    Oddity("sales", "CustomerID", TEXTS, MILD, HARSH, posts_to_no_customer),
    Oddity("sales", "CustomerID", [None, "", "abc", "3000000000", "1,2,3"],
           HARSH, HARSH, has_customer_lines),
    Oddity("sales", "ID", [None], HARSH, HARSH, weight=0.5),
    Oddity("lines", "LineNo", ["1", "2", "0", "-7", "99", None]),
    Oddity("lines", "SalesID", ["999999", "0", "-1", None, "77"], weight=2),
    Oddity("lines", "SalesDate", BAD_DATES),
    Oddity("lines", "TransType", UNPOSTED_KINDS, weight=2),
    Oddity("lines", "TransType", ["10", "11", "12", "16", "21", "24", "27"],
           MILD, MILD, is_payment),
    Oddity("lines", "TransType", ["1", "2"], weight=2, where=is_goods),
    Oddity("lines", "TransType", ["13", "14", "15"], HARSH, MILD, is_payment, 0.7),
    Oddity("lines", "ProductID", TEXTS, MILD, HARSH),
    Oddity("lines", "ProductID", ["1001", "1002 ", "1003", "1004"], where=is_goods),
    Oddity("lines", "ProductID", [None, *ROUNDING_NAMES[:3]], MILD, MILD, is_goods),
    Oddity("lines", "ProductID", [None, "1001", *ROUNDING_NAMES], where=is_rounding, weight=2),
    Oddity("lines", "Description", TEXTS, weight=3),
    Oddity("lines", "String1", TEXTS, where=is_payment),
    Oddity("lines", "Price", HALVES, weight=2),
    Oddity("lines", "Price", [*ODD_NUMBERS, None]),
    Oddity("lines", "Qty", HALVES, weight=2),
    Oddity("lines", "Qty", ODD_NUMBERS),
    Oddity("lines", "Qty", ["0", "-1"], where=is_goods, weight=2),
    Oddity("lines", "Qty", [None], MILD, HARSH, is_goods),
    Oddity("lines", "Discount", HALVES + ["5", "10", "100", "-3"], weight=2),
    Oddity("lines", "Discount", ODD_NUMBERS),
    Oddity("lines", "Discount", [None], MILD, HARSH, is_goods),
    Oddity("lines", "CostPrice", [*HALVES, *ODD_NUMBERS, None], weight=2),
    Oddity("lines", "Amount", HALVES + ["0.00005", "-0.00005", "1.00015", "1E13", "0", "-0"],
           weight=2),
    Oddity("lines", "Amount", ["-10", "-0.01", "0"], where=is_goods, weight=2),
    Oddity("lines", "Amount", [None], MILD, HARSH, is_goods),
    Oddity("lines", "Amount", ["0"], where=is_payment),
    Oddity("lines", "Amount", [None], MILD, HARSH, is_payment),
    Oddity("lines", "Amount", ["1E15", "-1E300", "1.7976931348623157E+308"], HARSH, HARSH),
    Oddity("lines", "VatCode", CODES, weight=2),
    Oddity("lines", "SalesAccount", ["0", "-1", "3000", "3010", "1", "2147483647", None],
           MILD, HARSH),
    Oddity("lines", "SalesAccount", ["0", "3000", "3010", None], where=is_goods),
    # What the column's type does not allow.
    Oddity("lines", "SalesAccount", ["2147483648", "abc", ""], HARSH, HARSH, weight=0.5),
    Oddity("lines", "Qty", ["abc", "1,5", "", "1E999"], HARSH, HARSH, weight=0.5),
    Oddity("sales", "SalesType", ["40000", "1.5.2", "ja"], HARSH, HARSH, weight=0.5),
    Oddity("sales", "DayEndDate", ["2024-13-06T00:00:00", "i går"], HARSH, HARSH, weight=0.5),
]
for each in ODDITIES:
    DECK.add(f"{each.records}.{each.field}", each.apply, each.file, each.sap, each.weight)


@DECK.card(weight=60)
def odd_values_everywhere(shop):
    for oddity in ODDITIES:
        temper = oddity.sap if shop.transfer == "sap" else oddity.file
        if temper == MILD and shop.rng.random() < 0.6:
            oddity.apply(shop)


def renumber(shop, numbers):
    """Other numbers for a few sales, mostly with their lines."""
    data_set = shop.rng.choice(shop.readable_sets())
    for sale in some(shop.rng, data_set.sales.rows, 3):
        old, new = sale.get("ID"), shop.rng.choice(numbers)
        sale["ID"] = new
        if shop.rng.random() < 0.8:
            for line in data_set.lines.rows:
                if line.get("SalesID") == old:
                    line["SalesID"] = new


@DECK.card(weight=1.5)
def sales_numbered_zero_or_below(shop):
    renumber(shop, ["0", "-5", "-32768"])


@DECK.card(MILD, HARSH)
def sales_numbered_beyond_16_bits(shop):
    renumber(shop, ["32768", "-32769", "70000", "2147483647", "-2147483648"])


@DECK.card(weight=2)
def sales_of_one_number(shop):
    data_set = shop.rng.choice(shop.readable_sets())
    numbers = [sale.get("ID") for sale in data_set.sales.rows if sale.get("ID")]
    if not numbers:
        return
    for sale in some(shop.rng, data_set.sales.rows, 3):
        sale["ID"] = shop.rng.choice(numbers)
    for sale in data_set.sales.rows:  # each may now have the other's lines
        sale["CustomerID"] = sale.get("CustomerID") or "10001"


@DECK.card(weight=1.5)
def sales_repeated_or_reordered(shop):
    data_set = shop.rng.choice(shop.readable_sets())
    for recordset in some(shop.rng, [data_set.sales, data_set.lines], 2):
        if shop.rng.random() < 0.5:
            shop.rng.shuffle(recordset.rows)
        elif recordset.rows:
            recordset.rows += [dict(row) for row in some(shop.rng, recordset.rows, 3)]


@DECK.card(MILD, HARSH, weight=1.5)
def payment_only_receipt(shop):
    data_set = shop.rng.choice(shop.readable_sets())
    for sale in some(shop.rng, data_set.sales.rows, 2):
        sale["CustomerID"] = shop.rng.choice(["10001", "10007"])
        for line in data_set.lines.rows:
            if line.get("SalesID") == sale.get("ID"):
                line["TransType"] = shop.rng.choice(["15", "15", "10", "21"])
                line["String1"] = shop.rng.choice(["F1", None, "  KID 0012  "])


@DECK.card(weight=0.5)
def no_lines_at_all(shop):
    shop.rng.choice(shop.readable_sets()).lines.rows.clear()


@DECK.card(weight=0.5)
def no_sales_at_all(shop):
    shop.rng.choice(shop.sets).sales.rows.clear()


@DECK.card(MILD, MILD, weight=1.5)
def rounding_lines(shop):
    """More of them, in goods' and in rounding's clothes."""
    data_set = shop.rng.choice(shop.readable_sets())
    for sale in some(shop.rng, data_set.sales.rows, 5):
        data_set.lines.rows.append({
            "SalesID": sale.get("ID"), "LineNo": "50", "TransType": shop.rng.choice("0001"),
            "ProductID": shop.rng.choice(ROUNDING_NAMES[:3]), "Description": "Avrunding",
            "Qty": "1", "Discount": "0", "Price": "0.4", "VatCode": "0", "SalesAccount": "0",
            "Amount": shop.rng.choice(["0.4", "-0.3", "0", "0.1", "-0.1"])})


@DECK.card(weight=3)
def customer_lines_out_of_order(shop):
    """Several of one sale, which stand otherwise in the file than their numbers say."""
    data_set = shop.rng.choice(shop.readable_sets())
    with_goods = {line.get("SalesID") for line in data_set.lines.rows if is_goods(data_set, line)}
    sales = [sale for sale in data_set.sales.rows if sale.get("ID") in with_goods]
    for sale in some(shop.rng, sales, 3):
        sale["CustomerID"] = "10001"
        for _ in range(3):
            data_set.lines.rows.append({
                "SalesID": sale["ID"], "TransType": shop.rng.choice(sorted(CUSTOMER_LINES)),
                "LineNo": shop.rng.choice(["-1", "1", "2", "60", None]), "String1": "KID",
                "Amount": str(shop.rng.randint(-500, 500)), "Qty": "1", "Price": "0",
                "Discount": "0"})
