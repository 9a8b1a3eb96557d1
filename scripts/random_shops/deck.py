"""The cards that a random shop is dealt: what can be disturbed, and how roughly."""

import dataclasses
from collections.abc import Callable

MILD = "mild"  # the day still goes through
HARSH = "harsh"  # usually ends the run, or flags the data set
NEVER = None

TEXTS = [
    None, "", " ", "  to blanke  ", 'Anne "Lita" Moe', "O'Hara; & <sønn>; ", "Linje 1\nLinje 2",
    "A\r\nB", "Tab\tbak", "Ærlig Østlig Åse", "\u041f\u0440\u0438\u0432\u0435\u0442",
    "\u65e5\u672c\u8a9e", "€ 5 – „sitat“", "\U0001f600 glad", "x" * 25, "æ" * 21,
    "   blanke foran og flere enn tjue tegn  ", "nitten tegn og mer ø", "Lang tekst; " * 22,
    "Ø" * 300, "7", "-3", "1,5", " 12 ", "1E3",
    "1,2,3", "NULL", "%s%n", "\\", "a\\b/c", "\u00a0", "\u0081\u009d", "Avrunding", "0",
]
HALVES = [
    "1.005", "2.675", "0.125", "-0.005", "0.5", "-1.005", "12345.675",
    "1.0049999999999999", "0.015", "1.115", "-2.5", "33.333333333333336", "0.1", "8.345",
    "1234567.885",
]
ODD_NUMBERS = [
    "0", "-0", "1E-05", "1.5E+3", "-125", "1E15", "1.5E+15", "123456789012345.67",
    "999999999999999", "-1E20", "4.9E-324", "0.0001", "99999.99", "1e10", "-0.004",
]


@dataclasses.dataclass(frozen=True)
class Card:
    name: str
    apply: Callable  # of the shop
    temper: dict  # per transfer
    weight: float


class Deck:
    def __init__(self):
        self.cards = []

    def card(self, file=MILD, sap=MILD, weight=1.0):
        """Makes a function of the shop a card."""

        def add(function):
            self.add(function.__name__, function, file, sap, weight)
            return function

        return add

    def add(self, name, function, file=MILD, sap=MILD, weight=1.0):
        self.cards.append(Card(name, function, {"file": file, "sap": sap}, weight))

    def draw(self, rng, transfer, temper, count):
        """Different cards, heavier ones likelier."""
        left = [card for card in self.cards if card.temper[transfer] == temper]
        drawn = []
        while left and len(drawn) < count:
            card = rng.choices(left, [each.weight for each in left])[0]
            left.remove(card)
            drawn.append(card)
        return drawn


def some(rng, items, most):
    """One to `most` of the items, in their order; of none, none."""
    items = list(items)
    chosen = set(rng.sample(range(len(items)), min(len(items), rng.randint(1, most))))
    return [item for place, item in enumerate(items) if place in chosen]
