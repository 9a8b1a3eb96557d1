"""Odd columns of the recordset files: their types, their number and their order."""

from random_shops.deck import HARSH, MILD, Deck, some
from random_shops.recordset import Column, random_spelling

DECK = Deck()

NUMBER_TYPES = [("number", "currency"), ("number", "numeric"), ("number", "decimal"), ("r8", ""),
                ("float", ""), ("string", ""), ("r4", "")]
WHOLE_TYPES = [("i8", ""), ("string", ""), ("float", ""), ("number", "numeric"), ("i4", ""),
               ("", "")]
RETYPED = {
    "sales": {"ID": WHOLE_TYPES, "SalesType": WHOLE_TYPES, "SalesStatus": WHOLE_TYPES,
              "SalesDate": WHOLE_TYPES, "SelBuy": WHOLE_TYPES, "Project": [("string", "str")]},
    "lines": {"SalesID": WHOLE_TYPES, "TransType": WHOLE_TYPES, "VatCode": WHOLE_TYPES,
              "SalesAccount": WHOLE_TYPES, "Qty": NUMBER_TYPES, "Price": NUMBER_TYPES,
              "Discount": NUMBER_TYPES, "CostPrice": NUMBER_TYPES, "Amount": NUMBER_TYPES},
}


def recordsets(shop):
    data_set = shop.rng.choice(shop.readable_sets())
    return data_set.sales, data_set.lines


def number_anew(recordset):
    for place, column in enumerate(recordset.columns):
        column.number = place + 1


@DECK.card(weight=8)
def spelling(shop):
    for data_set in shop.sets:
        for recordset in some(shop.rng, [data_set.sales, data_set.lines], 2):
            recordset.spelling = random_spelling(shop.rng)


@DECK.card(weight=4)
def other_types(shop):
    data_set = shop.rng.choice(shop.readable_sets())
    for records, types_of in RETYPED.items():
        for name in some(shop.rng, types_of, 3):
            column = getattr(data_set, records).column(name)
            if column:
                column.type, column.dbtype = shop.rng.choice(types_of[name])


@DECK.card(HARSH, HARSH)
def types_that_do_not_fit(shop):
    recordset = shop.rng.choice(recordsets(shop))
    column = shop.rng.choice(recordset.columns)
    column.type = shop.rng.choice(["boolean", "dateTime", "ui1", "int", "uuid", "bin.hex", "time"])


@DECK.card(weight=2)
def text_numbers_with_a_comma(shop):
    _, lines = recordsets(shop)
    column = lines.column(shop.rng.choice(["Qty", "Price", "Discount", "CostPrice", "Amount"]))
    if not column:
        return
    column.type = "string"
    for row in some(shop.rng, lines.rows, 4):
        row[column.name] = shop.rng.choice(["1,5", " 2.25 ", "-0,005", "1E2", ",5", "+7"])


@DECK.card(HARSH, HARSH)
def text_for_numbers(shop):
    sales, lines = recordsets(shop)
    recordset, name = shop.rng.choice([(lines, "Qty"), (lines, "Price"), (lines, "Amount"),
                                       (sales, "SalesDate"), (sales, "ID"), (sales, "SalesType")])
    column = recordset.column(name)
    if column and recordset.rows:
        column.type = "string"
        shop.rng.choice(recordset.rows)[name] = shop.rng.choice(["", "abc", "1,2,3", "1 2"])


def extra_column(shop, recordset, place, hidden=False):
    name = shop.rng.choice(["Ekstra", "Navn på kunde", "Felt/1"])
    alias = "" if name == "Ekstra" else f"c{len(recordset.columns)}x"
    recordset.columns.insert(place, Column(name, "string", hidden=hidden, alias=alias))
    for row in recordset.rows:
        row[name] = shop.rng.choice(["x", None])
    number_anew(recordset)


@DECK.card(weight=1.5)
def extra_columns_behind(shop):
    for recordset in some(shop.rng, recordsets(shop), 2):
        extra_column(shop, recordset, len(recordset.columns))


@DECK.card()
def hidden_column(shop):
    recordset = shop.rng.choice(recordsets(shop))
    extra_column(shop, recordset, shop.rng.randint(0, len(recordset.columns)), hidden=True)


@DECK.card(HARSH, MILD)
def extra_column_between(shop):
    recordset = shop.rng.choice(recordsets(shop))
    extra_column(shop, recordset, shop.rng.randrange(len(recordset.columns)))


@DECK.card(HARSH, HARSH)
def column_missing(shop):
    recordset = shop.rng.choice(recordsets(shop))
    recordset.columns.remove(shop.rng.choice(recordset.columns))
    if shop.rng.random() < 0.5:
        number_anew(recordset)


def swap(shop, recordset, names):
    first, second = (recordset.column(name) for name in names)
    if first and second:
        first.number, second.number = second.number, first.number
        if shop.rng.random() < 0.5:
            recordset.columns.sort(key=lambda column: column.number)


@DECK.card()
def alike_columns_swapped(shop):
    sales, lines = recordsets(shop)
    recordset, names = shop.rng.choice([
        (sales, ["OurRef", "YourRef"]), (sales, ["CustomerName", "Project"]),
        (lines, ["Price", "CostPrice"]), (lines, ["Discount", "Amount"]),
        (lines, ["SalesID", "LineNo"]), (lines, ["VatCode", "TransType"])])
    swap(shop, recordset, names)


@DECK.card(HARSH, MILD)
def columns_swapped(shop):
    recordset = shop.rng.choice(recordsets(shop))
    swap(shop, recordset, [column.name for column in shop.rng.sample(recordset.columns, 2)])


@DECK.card(MILD, MILD, weight=0.7)
def second_column_of_a_name(shop):
    """By its name the first one is meant."""
    recordset = shop.rng.choice(recordsets(shop))
    like = shop.rng.choice(recordset.columns)
    recordset.columns.append(Column(like.name, like.type, like.dbtype, alias="c_again"))
    number_anew(recordset)


@DECK.card(MILD, MILD, weight=0.7)
def gaps_in_the_column_numbers(shop):
    for recordset in recordsets(shop):
        for column in recordset.columns:
            column.number = column.number * 3 - 1


@DECK.card(MILD, MILD, weight=0.7)
def required_columns(shop):
    sales, lines = recordsets(shop)
    for recordset, name in ((sales, "SalesType"), (lines, "TransType"), (lines, "Qty")):
        column = recordset.column(name)
        if column:
            column.required = shop.rng.random() < 0.5
