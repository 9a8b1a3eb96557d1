"""The tables of bench/compare in Markdown."""

import dataclasses
import os
import pathlib
import platform
import subprocess

import measure
import shops

GROWTH_GOAL = 1.05
BEGIN, END = "<!-- bench/compare writes from here -->", "<!-- to here -->"


@dataclasses.dataclass
class Goal:
    most: float  # our time by the reference's
    most_memory: float = 0  # MiB; 0: any

    def __str__(self):
        memory = f", {self.most_memory} MiB" if self.most_memory else ""
        return f"{self.most:g} ×{memory}"

    def is_met(self, row):
        memory_is_met = not self.most_memory or row.memory <= self.most_memory
        return row.comparison.ratio <= self.most and memory_is_met


@dataclasses.dataclass
class Row:
    work: str
    reference: str
    comparison: measure.Comparison
    memory: float  # MiB
    goal: Goal | None

    def cells(self):
        both = self.comparison
        goal = "" if self.goal is None else str(self.goal)
        outcome = "" if self.goal is None else "yes" if self.goal.is_met(self) else "**no**"
        return [
            self.work, self.reference, seconds(both.ours.wall), seconds(both.reference.wall),
            f"{both.ratio:.2f} ×", f"{both.cpu_ratio:.2f} ×", f"{self.memory:.1f} MiB", goal,
            outcome,
        ]


@dataclasses.dataclass
class Growth:
    work: str
    sizes: list[int]
    usages: list[measure.Usage]

    def cells(self):
        walls = [usage.wall for usage in self.usages]
        exponent = measure.exponent(self.sizes, walls)
        cpu_exponent = measure.exponent(self.sizes, [usage.cpu for usage in self.usages])
        return [
            self.work,
            ", ".join(f"{size:,}".replace(",", " ") for size in self.sizes),
            ", ".join(map(seconds, walls)),
            f"{exponent:.2f}",
            f"{cpu_exponent:.2f}",
            "yes" if exponent <= GROWTH_GOAL else "**no**",
        ]


def seconds(duration):
    return f"{duration:.2f} s" if duration >= 1 else f"{duration * 1000:.1f} ms"


def megabytes(path):
    return f"{shops.size_of(path) / 1e6:.0f} MB"


def table(heads, rows):
    lines = [heads, ["---"] * len(heads), *rows]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines)


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def machine(folder):
    model = "unknown processor"
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            model = line.split(":", 1)[1].strip()
            break
    memory = os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE") / 2**30
    file_system = output_of("df", "--output=fstype", folder).split()[-1]
    tools = [
        f"Python {platform.python_version()}",
        "SQLite " + output_of("sqlite3", "--version").split()[0],
        output_of("cp", "--version").splitlines()[0],
    ]
    return (
        f"{model}, {os.cpu_count()} cores, {memory:.0f} GiB, {file_system}, "
        f"Linux {platform.release().split('-')[0]}; {', '.join(tools)}."
    )


def text(rows, growth, sizes, folder):
    load = os.getloadavg()[2]
    parts = [
        f"Measured on: {machine(folder)}",
        "",
        f"Medians of {sizes.pairs} paired runs; the ratios are medians of the pairs' ratios. "
        f"\"CPU\" compares user and system time. Load of the machine in the last minutes of the "
        f"run: {load:.1f}.",
        "",
        table(["Work", "Reference", "Ours", "Reference's", "Ratio", "CPU", "Peak memory", "Goal",
               "Met"], [row.cells() for row in rows]),
    ]
    if growth:
        parts += growth_parts(growth, sizes)
    return "\n".join(parts)


def growth_parts(growth, sizes):
    return [
        "",
        f"Growth, medians of {sizes.growth_runs} runs; the goal is an exponent of at most "
        f"{GROWTH_GOAL} by time:",
        "",
        table(["Work", "Sizes", "Times", "Exponent", "by CPU", "Met"],
              [line.cells() for line in growth]),
    ]


def write(file, tables):
    page = file.read_text(encoding="utf-8")
    before, rest = page.split(BEGIN)
    _, after = rest.split(END)
    file.write_text(f"{before}{BEGIN}\n\n{tables}\n\n{END}{after}", encoding="utf-8")
