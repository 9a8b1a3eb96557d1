"""What the shops came to: whether the comparison reaches far enough shows here."""

import collections
import json
import re

from random_shops.state import NAMES

DOCUMENTS = ["OINV", "ORIN", "ODLN", "ORDN", "ORDR"]


def rows(state, table):
    """The rows of a table of the company."""
    for name, part in state.parts.items():
        if name.endswith(f"company, table {table}"):
            return len(part.splitlines())
    return 0


def journal_counts(run):
    counts = collections.Counter()
    for line in run.journal.read_text("utf-8").splitlines() if run.journal.exists() else []:
        entry = json.loads(line)
        counts[f"event {entry['event']}"] += 1
        if entry["event"] == "fatal":
            counts[f"fatal {entry['number']:4}"] += 1
        if entry["event"] == "question":
            counts[f"answer {entry['answer']}"] += 1
        if entry["text"].startswith("DATASETT "):
            counts["data sets with errors"] += 1
    return counts


def of(shop, before, after, run):
    """The counts of one shop, before and after the old program."""
    counts = journal_counts(run)
    counts[f"transfer {shop.transfer}"] += 1
    counts[f"exit status {run.status}"] += 1
    finished = len(re.findall(r"\.STAMP\.ferdig", after.parts[NAMES]))
    finished -= len(re.findall(r"\.STAMP\.ferdig", before.parts[NAMES]))
    counts["finished data-set files"] += finished
    counts["shops ended with 0 and finished files"] += run.status == 0 and finished > 0
    for name in (shop.voucher_path(), shop.order_path()):
        part = f"file {name}"
        counts["placed import files"] += after.parts.get(part) not in (None, before.parts.get(part))
    for table in DOCUMENTS:
        counts[f"SAP documents {table}"] += rows(after, table) - rows(before, table)
    counts["SAP partners"] += rows(after, "OCRD") - rows(before, "OCRD")
    counts["SAP items"] += rows(after, "OITM") - rows(before, "OITM")
    counts["SAP error files"] += (after.parts[NAMES].count("SAP_ERR_")
                                  - before.parts[NAMES].count("SAP_ERR_"))
    counts["cards laid"] += len(shop.cards)
    return counts


def text(counts, shops):
    lines = [f"The old program on {shops} shops:"]
    lines += [f"  {counts[name]:6}  {name}" for name in sorted(counts) if counts[name]]
    return "\n".join(lines)
