"""Measures programs from outside: time, processor time, peak memory, pairs, growth."""

import dataclasses
import math
import os
import pathlib
import statistics
import subprocess
import tempfile
import time
from collections.abc import Callable


@dataclasses.dataclass
class Job:
    """Commands that run one after the other, after an untimed preparation."""

    commands: list[list[str]]
    prepare: Callable[[], None] = lambda: None
    repeats: int = 1  # for what is too short to be timed once


@dataclasses.dataclass
class Usage:
    wall: float  # seconds
    cpu: float  # seconds, user and system


@dataclasses.dataclass
class Comparison:
    ours: Usage  # medians
    reference: Usage
    ratio: float  # median of the pairs, by wall
    cpu_ratio: float


def run_once(command):
    quiet = [(os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0)]
    begun = time.perf_counter()
    child = os.posix_spawnp(command[0], command, os.environ, file_actions=quiet)
    _, status, used = os.wait4(child, 0)
    wall = time.perf_counter() - begun
    if status != 0:
        raise SystemExit(f"failed with {os.waitstatus_to_exitcode(status)}: {' '.join(command)}")
    return Usage(wall, used.ru_utime + used.ru_stime)


def run(job):
    job.prepare()
    os.sync()  # nobody else's writes in our time
    total = Usage(0, 0)
    for _ in range(job.repeats):
        for command in job.commands:
            usage = run_once(command)
            total.wall += usage.wall / job.repeats
            total.cpu += usage.cpu / job.repeats
    return total


def peak_memory(job):
    """The largest resident set of the job's commands, in MiB."""
    job.prepare()
    largest = 0
    with tempfile.NamedTemporaryFile("r") as report:
        for command in job.commands:
            # Started by a small program: a child counts the memory of its parent until it is loaded.
            timed = ["/usr/bin/time", "-f", "%M", "-o", report.name, *command]
            subprocess.run(timed, check=True, stdout=subprocess.DEVNULL)
            largest = max(largest, int(pathlib.Path(report.name).read_text()))
    return largest / 1024


def compare(ours, reference, pairs):
    """Paired runs, each pair in the other order than the one before."""
    measured = []
    for number in range(pairs):
        if number % 2 == 0:
            measured.append((run(ours), run(reference)))
        else:
            second = run(reference)
            measured.append((run(ours), second))
    return Comparison(
        median([pair[0] for pair in measured]),
        median([pair[1] for pair in measured]),
        statistics.median(a.wall / b.wall for a, b in measured),
        statistics.median(a.cpu / b.cpu for a, b in measured),
    )


def median(usages):
    return Usage(
        statistics.median(usage.wall for usage in usages),
        statistics.median(usage.cpu for usage in usages),
    )


def exponent(sizes, times):
    """The slope of the line through the points on logarithmic scales."""
    slope, _ = statistics.linear_regression(
        [math.log(size) for size in sizes], [math.log(duration) for duration in times]
    )
    return slope
