"""Runs the benchmarks, each model in a process of its own, and writes a table and JSON.

What one pass of a process measures (a benchmark of one iteration) is run in a fresh process each
time, the contenders taking turns. Everything else repeats within its process, in random order.
Times are CPU time of the one thread that there is.
"""

import argparse
import collections
import datetime
import json
import pathlib
import platform
import re
import statistics
import subprocess
import sys

COLUMNS = {"plug-in": "plug-in", "map": "map of maps", "compact": "compact C++", "sqlite": "SQLite"}
# Contenders that stand in another's column, under their own names.
SHARED_COLUMN = {"adjacency": ("compact", "adjacency table"), "plain": ("compact", "plain code"),
                 "scan": ("compact", "bare scan"), "handed-out": ("compact", "handed out"),
                 "interface": ("compact", "through the interface")}

WORKS = {
    "instances/add": "make, fill (11 properties) and add an instance, keys shuffled",
    "instances/bytes": "bytes per instance of 11 properties",
    "instances/get": "get by path",
    "instances/set-property": "set a property",
    "instances/get-property": "get a property",
    "instances/enumerate": "enumerate in path order",
    "instances/enumerate-and-read": "the same, and read a property of each",
    "links/references": "references at degree 4",
    "links/associators": "associators at degree 4",
    "links/scan": "references without an index",
    "hubs/refresh": "walk all references to one instance, setting and adding each again, a reference",
    "classes/declare": "declare a class (5 properties, 12 qualifiers)",
    "classes/look-up": "look a class up",
    "classes/deep-classes": "enumerate all classes below one",
    "classes/deep-instances": "enumerate their instances, 10 each",
    "display/plain": "ToString",
    "display/value-map": "ToString with a value map",
    "display/units": "ToString with units",
    "mof/load": "load MOF",
    "mof/instances": "load instances of 11 properties from MOF",
}

# The plug-in's figure is at most this many times the contender's.
BARS = {
    "instances/add": ("map", 1),
    "instances/bytes": ("map", 0.5),
    "instances/get": ("sqlite", 0.5),
    "instances/enumerate": ("map", 1),
    "links/references": ("sqlite", 3),
    "links/associators": ("sqlite", 3),
    "mof/instances": ("interface", 2),
}

# How much dearer each becomes from the smaller size to the larger: at most this many times as much as
# the contender, whose growth is that of the machine's caches; without one, at most that many times.
GROWTH_BARS = {"links/references": ("1000", "1000000", "adjacency", 1),
               "links/associators": ("1000", "1000000", "adjacency", 1),
               "hubs/refresh": ("4000", "64000", None, 3)}

Name = collections.namedtuple("Name", "work size contender")


class Run:
    """Runs the program and keeps what it measured."""

    def __init__(self, program, options):
        self.program = program
        self.options = options
        self.context = {}
        self.samples = {}  # Name -> figures, in nanoseconds or bytes for one piece of work
        self.failures = []

    def list_names(self):
        listing = self.call("--benchmark_list_tests=true", f"--benchmark_filter={self.options.filter}")
        return listing.split()

    def call(self, *arguments):
        done = subprocess.run([self.program, *arguments], capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise RuntimeError(f"status {done.returncode}: {done.stderr.strip()[-300:]}")
        return done.stdout

    def measure(self, names, *arguments):
        pattern = "^(" + "|".join(names) + ")$"
        try:
            report = json.loads(self.call(f"--benchmark_filter={pattern}", "--benchmark_format=json",
                                          *arguments))
        except (RuntimeError, ValueError) as failure:
            self.failures.append(f"{', '.join(names)}: {failure}")
            return
        self.context = self.context or report["context"]
        for result in report["benchmarks"]:
            if result.get("run_type") == "iteration":
                self.keep(result)

    def keep(self, result):
        if result.get("error_occurred"):
            self.failures.append(f"{result['name']}: {result['error_message']}")
            return
        name = parse_name(result["name"])
        nanoseconds = result["cpu_time"] * {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[result["time_unit"]]
        self.samples.setdefault(name, []).append(nanoseconds / result.get("items", 1))
        if "bytes" in result:
            bytes_name = name._replace(work=name.work.rsplit("/", 1)[0] + "/bytes")
            self.samples.setdefault(bytes_name, []).append(result["bytes"])

    def run(self):
        names = self.list_names()
        single = [name for name in names if name.endswith("/iterations:1")]
        for repetition in range(self.options.repetitions if single else 0):
            progress(f"one pass a process: {repetition + 1} of {self.options.repetitions}")
            for name in single:
                self.measure([name])
        groups = {}
        for name in names:
            if name not in single:
                groups.setdefault((name.split("/")[0], parse_name(name).size), []).append(name)
        for (model, size), members in groups.items():
            progress(f"{model}, {size}")
            self.measure(members, f"--benchmark_repetitions={self.options.repetitions}",
                         "--benchmark_enable_random_interleaving=true",
                         f"--benchmark_min_time={self.options.min_time}")
        self.expected = {parse_name(name) for name in names} | set(self.samples)


def parse_name(text):
    model, work, size, contender = text.split("/")[:4]
    return Name(f"{model}/{work}", size, contender)


def progress(text):
    if sys.stderr.isatty():
        print(f"\r\x1b[Kbench: {text}", end="" if text else "\r\x1b[K", file=sys.stderr, flush=True)


def with_unit(work, figure):
    if work.endswith("/bytes"):
        return f"{figure:,.0f}"
    for unit, size in (("s", 1e9), ("ms", 1e6), ("us", 1e3)):
        if figure >= size:
            return f"{figure / size:.3g} {unit}"
    return f"{figure:.3g} ns"


def with_commas(size):
    return f"{int(size):,}" if size.isdigit() else size


def tell_spread(work, samples):
    if min(samples) == max(samples):
        return with_unit(work, samples[0])
    return (f"{with_unit(work, statistics.median(samples))} "
            f"({with_unit(work, min(samples))} to {with_unit(work, max(samples))})")


def as_multiple(ratio):
    return f"{ratio:.2f}x" if ratio < 100 else f"{ratio:,.0f}x"


class Table:
    """The rows, one for each work and size, with what the bars say of them."""

    def __init__(self, run):
        self.run = run
        self.rows = []
        self.bars = []
        listed = {(name.work, name.size) for name in run.expected}
        works = list(WORKS)
        for work, size in sorted(listed, key=lambda row: (works.index(row[0]), len(row[1]), row[1])):
            self.rows.append(self.make_row(work, size))
        for work, (small, large, floor, limit) in GROWTH_BARS.items():
            if (work, large) in listed:
                self.rows.append(self.make_growth_row(work, small, large, floor, limit))

    def median(self, work, size, contender):
        samples = self.run.samples.get(Name(work, size, contender))
        return statistics.median(samples) if samples else None

    def tell(self, work, size, contender):
        name = Name(work, size, contender)
        if name not in self.run.expected:
            return ""
        if name not in self.run.samples:
            return "not measured"
        text = tell_spread(work, self.run.samples[name])
        ours = self.median(work, size, "plug-in")
        if contender == "plug-in" or ours is None:
            return text
        return f"{text}: {as_multiple(ours / self.median(work, size, contender))}"

    def make_row(self, work, size):
        cells = [WORKS[work], with_commas(size)]
        for column in COLUMNS:
            told = [self.tell(work, size, column)]
            for contender, (shared, label) in SHARED_COLUMN.items():
                text = self.tell(work, size, contender) if shared == column else ""
                told.append(f"{label} {text}" if text else "")
            cells.append("; ".join(filter(None, told)) or "–")
        floor, limit = BARS.get(work, (None, None))
        if floor is None:
            return cells + ["", ""]
        against = self.median(work, size, floor)
        return cells + self.judge(work, size, self.median(work, size, "plug-in"), against, limit,
                                  COLUMNS.get(floor) or SHARED_COLUMN[floor][1])

    def growth(self, work, small, large, contender):
        before, after = self.median(work, small, contender), self.median(work, large, contender)
        return None if None in (before, after) else after / before

    def make_growth_row(self, work, small, large, floor, limit):
        size = f"{with_commas(large)} against {with_commas(small)}"
        ours = self.growth(work, small, large, "plug-in")
        cells = dict.fromkeys(COLUMNS, "–") | {"plug-in": as_multiple(ours) if ours else "not measured"}
        against, whose = 1, with_commas(small)
        if floor:
            column, label = SHARED_COLUMN[floor]
            against, whose = self.growth(work, small, large, floor), f"{label}'s growth"
            if ours and against:
                cells[column] = f"{label} {as_multiple(against)}: {as_multiple(ours / against)}"
        return [f"{WORKS[work]}: growth", size, *cells.values(),
                *self.judge(work, size, ours, against, limit, whose)]

    def judge(self, work, size, figure, against, limit, whose):
        ratio = None if None in (figure, against) else figure / against
        verdict = "not measured" if ratio is None else "met" if ratio <= limit else "NOT MET"
        self.bars.append({"work": work, "size": size, "against": whose, "limit": limit,
                          "ratio": ratio, "verdict": verdict})
        return [f"at most {limit}x {whose}", verdict]

    def to_markdown(self):
        heading = ["work", "size", *COLUMNS.values(), "bar", "met?"]
        lines = [heading, ["---"] * len(heading), *self.rows]
        return "\n".join("| " + " | ".join(cells) + " |" for cells in lines)


def describe(run):
    try:
        model = re.search(r"^model name\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text(), re.M)
    except OSError:
        model = None
    context = run.context
    return {
        "date": datetime.datetime.now().astimezone().isoformat(timespec="seconds"),
        "machine": f"{model.group(1) if model else platform.machine()}, {context.get('num_cpus')} CPUs",
        "system": platform.platform(),
        "compiler": context.get("compiler", "not known"),
        "sqlite": context.get("sqlite", "not known"),
        "load at the start": context.get("load_avg", []),
        "repetitions": run.options.repetitions,
    }


def write_json(file, run, table, setting):
    measured = [{**name._asdict(), "unit": "bytes" if name.work.endswith("/bytes") else "ns",
                 "median": statistics.median(samples), "min": min(samples), "max": max(samples),
                 "samples": samples} for name, samples in run.samples.items()]
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(json.dumps({"setting": setting, "results": measured, "bars": table.bars,
                                "failures": run.failures}, indent=1) + "\n")


def parse_arguments():
    parser = argparse.ArgumentParser(
        prog="scripts/bench", description="Measures what the repository costs, through the loaded "
        "plug-in, beside the plainest C++ and SQLite in memory that do the same work; prints a table "
        "and writes build/bench/results.json. With VYR_CIM_SCHEMA naming the start file of a large "
        "schema, its loading is measured, too.")
    parser.add_argument("--filter", default=".", metavar="REGEX",
                        help="measure only what matches, as in 'get|links/.*/1000/'; --list shows the names")
    parser.add_argument("--list", action="store_true", help="print the names and measure nothing")
    parser.add_argument("--repetitions", type=int, default=7, metavar="N", help="7 by default")
    parser.add_argument("--min-time", type=float, default=0.1, metavar="SECONDS",
                        help="how long each repetition lasts at least, 0.1 by default")
    parser.add_argument("--program", default="build/release/bin/vyr_bench", help=argparse.SUPPRESS)
    parser.add_argument("--output", default="build/bench/results.json", help=argparse.SUPPRESS)
    return parser.parse_args()


def main():
    options = parse_arguments()
    run = Run(options.program, options)
    if options.list:
        print("\n".join(run.list_names()))
        return 0
    run.run()
    progress("")
    table = Table(run)
    setting = describe(run)
    write_json(pathlib.Path(options.output), run, table, setting)
    for what, value in setting.items():
        print(f"- {what}: {value}")
    print("\nEach cell: the median (least to most): the plug-in's median as a multiple of it.\n")
    print(table.to_markdown())
    for failure in run.failures:
        print(f"bench: not measured: {failure}", file=sys.stderr)
    return 1 if run.failures else 0


if __name__ == "__main__":
    sys.exit(main())
