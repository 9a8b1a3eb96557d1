"""Odd files of a shop: the data sets' names and bytes, what stands where the import files go."""

import datetime
import os

from random_shops.deck import HARSH, MILD, NEVER, Deck, some

DECK = Deck()

SALES, LINES = "DayEndSales.XML", "DayEndSalesLines.XML"
NOTE = "KVDayEndServer.placing"
NAMES = ["Bø & Sønn ", "ÆØÅ", "Kasse 10", "æøå-Å", "K[1]", "a", "DayEnd",
         "Filial-" + "x" * 60, "xDayEndSales.xml", "kasse1", "0001", "Kø;2", "é€"]


def rename(data_set, name):
    data_set.sales_file, data_set.lines_file = name + SALES, name + LINES


def free_name(shop, names):
    taken = {data_set.name.upper() for data_set in shop.sets}
    return shop.rng.choice([name for name in names if name.upper() not in taken])


@DECK.card(weight=4)
def other_names(shop):
    for data_set in some(shop.rng, shop.sets, 2):
        data_set.name = free_name(shop, NAMES)
        rename(data_set, data_set.name)


@DECK.card(weight=3)
def file_names_in_other_case(shop):
    for data_set in some(shop.rng, shop.sets, 3):
        spelling = shop.rng.choice([str.lower, str.upper, str.swapcase])
        if shop.rng.random() < 0.5:
            data_set.sales_file = spelling(data_set.sales_file)
        data_set.lines_file = spelling(data_set.lines_file)


@DECK.card(weight=2)
def unnamed_data_set(shop):
    data_set = shop.rng.choice(shop.sets)
    if all(each.name for each in shop.sets):
        data_set.name = ""
        rename(data_set, "")


@DECK.card()
def name_of_the_unnamed(shop):
    data_set = shop.rng.choice(shop.sets)
    data_set.name = "<Uten navn>"
    data_set.sales_file = data_set.name + SALES
    if shop.rng.random() < 0.7:
        data_set.lines_file = data_set.name + LINES


@DECK.card()
def sales_file_missing(shop):
    shop.rng.choice(shop.sets).sales_file = None


@DECK.card()
def lines_file_missing(shop):
    shop.rng.choice(shop.sets).lines_file = None


@DECK.card(weight=0.7)
def names_that_differ_in_case_only(shop):
    data_set = shop.rng.choice(shop.sets)
    for file_name in (data_set.sales_file, data_set.lines_file):
        if file_name:
            shop.last_touches.append(lambda folder, name=file_name: copy_bytes(
                folder / name, folder / name.swapcase()))


def copy_bytes(source, target):
    if source.exists() and not target.exists():
        target.write_bytes(source.read_bytes())


def on_one_file(shop, change):
    """Changes the bytes of one recordset file, once it is written."""
    data_set = shop.rng.choice(shop.sets)
    name = shop.rng.choice([data_set.sales_file, data_set.lines_file])
    seed = shop.rng.random()

    def touch(folder):
        if name and (folder / name).exists():
            content = (folder / name).read_bytes()
            (folder / name).write_bytes(change(content, seed))

    shop.last_touches.append(touch)




@DECK.card(HARSH, HARSH, weight=1.5)
def file_cut_off(shop):
    on_one_file(shop, lambda content, seed: content[:int(len(content) * seed)])


@DECK.card(HARSH, HARSH)
def file_malformed(shop):
    marks = [(b"/>", b">"), (b"row ", b"row \x01"), (b"Schema ", b"Skjema "), (b"='", b"="),
             (b"RowsetSchema", b"Rowset"), (b"</xml>", b"</xml><xml/>"), (b"&#x", b"&nbsp;&#x"),
             (b"AttributeType", b"element")]
    old, new = shop.rng.choice(marks)
    on_one_file(shop, lambda content, seed: content.replace(old, new, 1 + int(seed * 40)))


@DECK.card(HARSH, HARSH, weight=0.5)
def file_without_bytes(shop):
    on_one_file(shop, lambda *_: b"")


@DECK.card(weight=0.7)
def strange_files_beside(shop):
    names = ["Notat.xml", "DayEnd.xml", "ADayEndSales.XML.bak", "BDayEndReport.xml",
             "CDayEndSales.XML.202501011200.ferdig", "DayEndSalesLines.XML.txt"]
    for name in some(shop.rng, names, 4):
        shop.write(name, b"<xml/>")


@DECK.card(weight=0.7)
def finished_names_taken(shop):
    """For every second of this hour and the next, the names that the finished files will want."""
    now = datetime.datetime.now()
    name = shop.rng.choice(shop.sets).name
    for hour in (now, now + datetime.timedelta(hours=1)):
        for second in range(60):
            stamp = f"{hour:%Y%m%d%H}{second:02}"
            shop.write(f"{name}{SALES}.{stamp}.ferdig", b"fra en annen dag")


# --- the import files

OLD_VOUCHERS = ['@WaBnd (ValDt, Descr, Susp)\r\n"20240102" "Overføring fra butikkdata" "1"\r\n',
                "uten linjeslutt", "", "\n", "linje\r\n" * 40]
OLD_ORDERS = ["7;6;\r\nH; ; ;4; ;0;10001; Kari\r\n", "7;6;", "", "uten linjeslutt"]


@DECK.card(file=MILD, sap=NEVER, weight=8)
def voucher_file_there(shop):
    shop.write(shop.voucher_path(), shop.rng.choice(OLD_VOUCHERS).encode("cp1252"))


@DECK.card(file=MILD, sap=NEVER, weight=6)
def order_file_there(shop):
    shop.write(shop.order_path(), shop.rng.choice(OLD_ORDERS).encode("cp1252"))


@DECK.card(file=MILD, sap=NEVER, weight=2)
def stale_working_copies(shop):
    for path in some(shop.rng, [shop.voucher_path(), shop.order_path()], 2):
        shop.write(path + ".tmp", b"avbrutt\r\n")


@DECK.card(file=MILD, sap=NEVER, weight=1)
def voucher_file_behind_a_link(shop):
    shop.write("annet/ekte.txt", b"bak lenken\r\n")
    path = shop.folder / shop.voucher_path()
    if not path.exists():
        path.parent.mkdir(parents=True, exist_ok=True)
        path.symlink_to(os.path.relpath(shop.folder / "annet/ekte.txt", path.parent))


@DECK.card(file=HARSH, sap=NEVER)
def folder_in_the_way(shop):
    path = shop.rng.choice([shop.voucher_path(), shop.order_path()])
    path += shop.rng.choice(["", ".tmp"])
    if not (shop.folder / path).exists():
        (shop.folder / path).mkdir(parents=True)


@DECK.card(file=HARSH, sap=NEVER, weight=0.7)
def import_folder_missing(shop):
    folder = shop.folder / "import"
    if folder.is_dir() and not any(folder.iterdir()):
        folder.rmdir()


@DECK.card(file=NEVER, sap=MILD)
def older_error_file(shop):
    shop.write("SAP_ERR_1_1001.xml", b"fra en annen dag")


# --- a day that was being placed when the server was ended


def stamp(path):
    """As the note spells it: the file's number, its size and when it was changed."""
    if not path.is_file():
        return "0 0 0"
    status = path.stat()
    return f"{status.st_ino} {status.st_size} {status.st_mtime_ns}"


def write_note(folder, shop, data_set, placed, rubbish):
    orders, vouchers = folder / shop.order_path(), folder / shop.voucher_path()
    files = [orders.with_name(orders.name + ".tmp"), vouchers.with_name(vouchers.name + ".tmp"),
             vouchers, folder / (data_set.sales_file or "x"), folder / (data_set.lines_file or "x")]
    stamps = [stamp(path) for path in files]
    if placed != "nothing" and files[0].is_file() and not orders.is_dir():
        files[0].replace(orders)
    names = [shop.settings.get(key) or "" for key in ("EDIFileName", "VoucherFileName")]
    lines = [*names, *stamps, "1" if placed == "both" else "0", data_set.name]
    if rubbish:
        lines[2] = "1 2 3"
    (folder / NOTE).write_bytes("\n".join(lines).encode())


@DECK.card(file=MILD, sap=NEVER, weight=2)
def interrupted_day(shop):
    data_set = shop.rng.choice(shop.sets)
    placed = shop.rng.choice(["nothing", "orders", "both"])
    rubbish = shop.rng.random() < 0.2
    for path in (shop.voucher_path(), shop.order_path()):
        shop.write(path + ".tmp", b"fra dagen som ble avbrutt\r\n")
    shop.copy_touches.append(lambda folder: write_note(folder, shop, data_set, placed, rubbish))
