"""The operator of a random shop: what is selected, and what the questions are answered."""

USER, PASSWORD = "manager", "landhandel"


def is_blank(value):
    return not (value or "").strip(' "')


def prompt_answers(shop):
    """To what the logon asks for, in its order."""
    settings = shop.settings
    answers = []
    if settings.get("SAPUseTrusted") in (None, "", "0"):
        blanks = [is_blank(settings.get(key)) for key in ("SAPDBUser", "SAPDBPassword")]
        answers += ["sa"] * sum(blanks)
    if is_blank(settings.get("SAPUserName")):
        answers.append(USER)
    if is_blank(settings.get("SAPPassword")):
        answers.append(PASSWORD)
    return [answer if shop.rng.random() < 0.95 else shop.rng.choice(["", "feil", "ja"])
            for answer in answers]


def answer(shop):
    if shop.rng.random() < 0.1:
        return shop.rng.choice(["n", "nei", "No", "N"])
    yes = shop.rng.choice(["j", "ja", "Y", "yes", "", "", " JA ", "J"])
    return yes


def answers_of_a_run(shop):
    answers = list(shop.answers_at_start)
    for _ in shop.sets:
        if shop.transfer == "sap":
            answers += prompt_answers(shop) + [answer(shop)]
        else:
            answers += [answer(shop), answer(shop)][:shop.rng.choice([1, 2, 2])]
        if shop.rng.random() < 0.04:
            answers.append(shop.rng.choice(["kanskje", "1", "jada"]))
    return answers


def selection(shop):
    """The options that select, and what the numbered list is answered."""
    names = [data_set.name or "<Uten navn>" for data_set in shop.sets]
    way = shop.rng.choices(["all", "names", "list", "names and all", "unknown name", "none"],
                           [60, 15, 15, 3, 4, 2])[0]
    chosen = shop.rng.sample(names, shop.rng.randint(1, len(names)))
    if way == "all":
        return ["--all"], []
    if way == "unknown name":
        chosen.append(shop.rng.choice(["Ukjent", "kasse1", "", "Kasse1DayEndSales.XML"]))
    if way == "names and all":
        return ["--select", chosen[0], "--all"], []
    if way == "list":
        numbers = " , ".join(str(1 + shop.rng.randrange(len(names))) for _ in chosen)
        first = ["9x", "0", "99"][:shop.rng.choice([0, 0, 0, 1, 3])]
        return [], [*first, shop.rng.choice(["a", "A ", numbers])]
    if way == "none":
        return shop.rng.choice([["--list"], []]), []
    return [word for name in chosen for word in ("--select", name)], []


def instruct(shop):
    """Sets the shop's command-line options and the operator's lines."""
    rng = shop.rng
    options, first = selection(shop)
    answers = first + answers_of_a_run(shop)
    at_start = len(shop.answers_at_start)
    if first and at_start:
        answers = shop.answers_at_start + first + answers[len(first) + at_start:]
    if not shop.asks_at_start() and not first and rng.random() < 0.35:
        options.append("--unattended")
    if rng.random() < 0.07:
        answers = answers[:rng.randrange(len(answers) + 1)]  # the end of input
    end = rng.choice(["\n", "\n", "\r\n"])
    shop.options = options
    shop.input = end.join(answers) + (end if rng.random() < 0.9 else "")
