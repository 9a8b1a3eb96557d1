"""A till whose receipts can be told apart in all that is posted: each has a number, and an amount of
which every sum says how often that receipt is in it."""

import os

FIRST = 1001
BASE = 8  # the receipts are the digits of a sum, each of them how often it is in there
MOST = 15  # receipts: a sum has at most 15 digits
DATE = 20261123

SALES = "DayEndSales.XML"
LINES = "DayEndSalesLines.XML"

SALES_COLUMNS = (("ID", "int"), ("SalesType", "i2"), ("SalesStatus", "i2"), ("SalesDate", "int"),
                 ("DayEndDate", "dateTime"), ("CustomerID", "string"), ("CustomerName", "string"),
                 ("Project", "string"), ("OurRef", "string"), ("YourRef", "string"),
                 ("SelBuy", "int"))
LINES_COLUMNS = (("SalesID", "int"), ("LineNo", "int"), ("SalesDate", "int"), ("TransType", "i2"),
                 ("ProductID", "string"), ("Description", "string"), ("Qty", "r8"), ("Price", "r8"),
                 ("Discount", "r8"), ("CostPrice", "r8"), ("Amount", "r8"), ("VatCode", "i2"),
                 ("SalesAccount", "int"), ("String1", "string"))

GOODS, CASH, CREDIT = 1, 10, 13
CUSTOMER = "10001"  # of every demo shop
PRODUCT = "1001"
LINES_OF_A_RECEIPT = 2


def amount_of(receipt):
    assert FIRST <= receipt < FIRST + MOST
    return BASE ** (receipt - FIRST)


def is_on_credit(receipt):
    """By turns, as credit is posted by receipt and cash in sums."""
    return receipt % 2 == 0


def receipts_in(total):
    """The receipts of a sum, each as often as it is in there."""
    found, number = [], FIRST
    total = int(total)
    while total > 0:
        found += [number] * (total % BASE)
        total //= BASE
        number += 1
    return found


def recordset(columns, rows):
    schema = "\n".join(f"<s:AttributeType name='{name}' dt:type='{kind}'/>" for name, kind in columns)
    data = "\n".join("<z:row " + " ".join(f"{name}='{value}'" for name, value in row.items()) + "/>"
                     for row in rows)
    return f"""<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'
  xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'
  xmlns:rs='urn:schemas-microsoft-com:rowset' xmlns:z='#RowsetSchema'>
<s:Schema id='RowsetSchema'>
<s:ElementType name='row' content='eltOnly'>
{schema}
</s:ElementType>
</s:Schema>
<rs:data>
{data}
</rs:data>
</xml>
""".encode()


def sale_row(receipt):
    return {"ID": receipt, "SalesType": 1, "SalesStatus": 0, "SalesDate": DATE,
            "CustomerID": CUSTOMER, "CustomerName": "Kunde", "OurRef": "Kari", "SelBuy": 1}


def line_rows(receipt):
    amount = amount_of(receipt)
    both = {"SalesID": receipt, "SalesDate": DATE}
    return [{**both, "LineNo": 1, "TransType": GOODS, "ProductID": PRODUCT, "Description": "Vare",
             "Qty": 1, "Price": 1, "Discount": 0, "CostPrice": 1, "Amount": amount, "VatCode": 3,
             "SalesAccount": 3000},
            {**both, "LineNo": 2, "TransType": CREDIT if is_on_credit(receipt) else CASH,
             "Description": "Betaling", "Amount": -amount}]


def contents_of(receipts):
    """The two files of a day: sales, sales lines."""
    return (recordset(SALES_COLUMNS, [sale_row(receipt) for receipt in receipts]),
            recordset(LINES_COLUMNS, [row for receipt in receipts for row in line_rows(receipt)]))


def names_of(data_set):
    return data_set + SALES, data_set + LINES


def put(folder, name, content):
    """As a file of its own that takes the name when it is complete."""
    fresh = folder / (name + ".ny")
    fresh.write_bytes(content)
    os.replace(fresh, folder / name)


def write_day(folder, data_set, receipts):
    for name, content in zip(names_of(data_set), contents_of(receipts)):
        put(folder, name, content)
