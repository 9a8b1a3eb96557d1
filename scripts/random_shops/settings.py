"""Odd settings: the two profile files and how they are spelled."""

from random_shops.deck import HARSH, MILD, NEVER, Deck

DECK = Deck()


def setting(key, values, file=MILD, sap=MILD, weight=1.0):
    def apply(shop):
        shop.settings[key] = shop.rng.choice(values)

    DECK.add(key, apply, file, sap, weight)


OVERWRITE = ["Ja", "ja", "YES", "1", "\" 1\"", "J", "true", "0", None, "Nei", "Yes"]
PATTERNS = ["*.xml", "*dayend*", "*DAYENDSALES.XML", "*DayEndSales.xml;*DayEndSalesLines.xml",
            "?*DayEnd*.xml", "Kasse?DayEnd*", "*DayEnd*.xml;*DayEnd*.xml", "*", "*.*"]

setting("Overwrite", OVERWRITE, MILD, MILD, 6)
setting("PointID", [None, "", "Kasse 2", "p" * 25, "Tjuetre tegn æøå og mer", "\"  \"", "a(b)"],
        weight=2)
setting("AccountingSystem", ["Global", "GLOBAL", "sap", "Sap", "", None, "SAP2", "\" SAP\""],
        MILD, NEVER, 3)
setting("AccountingSystem", ["\"SAP\"", "  SAP  ", "SAP"], NEVER, MILD)
setting("Datapath", ["data\\", "data/", ".\\data", "DATA", "\"data\"", " data ", "data\\\\"],
        weight=2)
setting("Datapath", ["dta", "", None, "data\\\\x"], HARSH, HARSH, 0.5)
setting("NoDayEnd", ["0", "", "abc", "2", "1,2,3", None], weight=1)
setting("NoDayEnd", ["1", " 1 ", "1,0", "1.0"], MILD, HARSH)
setting("XMLPrefix", ["POS_NOW()", "now()ABC", "x_DATE()NOW()", "fast"])
setting("XMLPrefix", ["NOW()", "date()"], HARSH, HARSH, 0.3)
setting("VoucherFileName", ["IMPORT\\Bilag.TXT", "bilag æ.txt", "import/bilag.txt",
        ".\\import\\b.x"], MILD, NEVER, 2)
setting("EDIFileName", ["ordre ø.edi", "import\\..\\ordre.edi", "IMPORT/ORDRE.EDI"], MILD, NEVER, 2)
setting("VoucherFileName", ["mangler\\bilag.txt", None, "", "import\\ordre.edi", "import"],
        HARSH, NEVER)
setting("EDIFileName", ["mangler\\ordre.edi", None, "data"], HARSH, NEVER)
setting("SAPOrders", ["0", "1", "", "\" 1\"", "1,0", "ja", None], NEVER, MILD, 8)
setting("SAPUseTrusted", ["1", "Ja", "False", "false", "yes", "\" 0\""], NEVER, MILD, 2)
setting("SAPServer", ["(local)", "", None, "(LOCAL)", "\" (local) \""], NEVER, MILD)
setting("SAPServer", ["DBSERVER", "finnes\\ikke"], NEVER, HARSH, 0.5)
setting("SAPCompanyDatabase", ["demo", "DEMO"], NEVER, MILD)
setting("SAPCompanyDatabase", ["Annen", "", None, "..\\Demo"], NEVER, HARSH, 0.5)
setting("SAPUserName", ["Manager", "MANAGER", "\"manager \""], NEVER, MILD)
setting("SAPUserName", ["ukjent"], NEVER, HARSH, 0.5)
setting("SAPPassword", ["feil", "Landhandel"], NEVER, HARSH, 0.5)


@DECK.card(NEVER, MILD, weight=3)
def blank_credentials(shop):
    for key in ("SAPUserName", "SAPPassword"):
        if shop.rng.random() < 0.5:
            shop.settings[key] = shop.rng.choice(["", None, "\"  \""])


@DECK.card(NEVER, MILD, weight=3)
def database_login(shop):
    shop.settings["SAPUseTrusted"] = shop.rng.choice(["0", "", None])
    for key in ("SAPDBUser", "SAPDBPassword"):
        shop.settings[key] = shop.rng.choice(["sa", "", None])


@DECK.card(NEVER, MILD)
def company_in_a_folder(shop):
    shop.settings["SAPServer"] = shop.rng.choice(["firma", "FIRMA\\", ".\\firma"])


@DECK.card(weight=1.5)
def pattern(shop):
    shop.server_settings["Pattern"] = shop.rng.choice(PATTERNS)


@DECK.card(HARSH, HARSH, weight=0.4)
def pattern_of_nothing(shop):
    shop.server_settings["Pattern"] = shop.rng.choice(["", None, "*.txt", "[*"])


@DECK.card(weight=4)
def day_end_command(shop):
    commands = ["kommando.sh", "./kommando.sh \"to ord\"", ".\\kommando.sh  'a b' c", "true",
                "finnes-ikke", "import", "data\\Kassovia.mdb", "\"  \"", "\"kommando.sh\" æ"]
    shop.server_settings["DayEndCommand"] = shop.rng.choice(commands)


@DECK.card(weight=1.5)
def spelling_of_the_settings(shop):
    shop.settings_spelling = shop.rng.choice(
        ["other case", "twice", "blanks", "plain line ends", "second section", "notes"])


def profile_text(settings, spelling):
    """The lines of a profile file, section General."""
    lines = ["[General]"]
    for key, value in settings.items():
        if value is None:
            continue
        lines.append(f"  {key} =  {value}  " if spelling == "blanks" else f"{key}={value}")
        if spelling == "twice":
            lines.append(f"{key}=noe annet")
        if spelling == "notes":
            lines.append(f"; {key}=9")
    if spelling == "other case":
        lines[0] = "[GENERAL]"
        lines[1:] = [key.upper() + "=" + value
                     for key, _, value in (line.partition("=") for line in lines[1:])]
    if spelling == "second section":
        lines = ["[Annet]", "Overwrite=1", *lines, "[general]", "Overwrite=1"]
    end = "\n" if spelling == "plain line ends" else "\r\n"
    return end.join(lines) + end
