"""Runs clang-tidy over the sources that changed since they were last clean.

usage: tidy.py [--all] BUILD=FOLDER,... [BUILD=FOLDER,...] [--files FILE...]

Most of clang-tidy's time goes into the headers of the libraries, so sources that have warnings and
checks in common are looked at many at a time, as one text that includes each under its macros. Where
that has findings, those to which they belong are looked at again, each by itself: a few checks see more where
they see the functions that are called, and would tell one thing today and another tomorrow. Where
it does not compile, since two sources give one name to different things, each half is tried.

A source's state is its text, that of every header it may include, its compiler's options and the
list of checks; build/lint/clean.json keeps the state in which each was clean.
"""

import argparse
import glob
import hashlib
import json
import os
import re
import shlex
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

ROOT = os.getcwd()
FOLDERS = ["include", "src", "kit", "host", "tests", "fuzz", "soak", "bench"]
WORK = os.path.join(ROOT, "build/lint")
GROUP_SIZE = 24
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)
# What a file introduces at the left margin. Sources stay apart where each has a file of its own that
# introduces the same name.
INTRODUCED = re.compile(r"^(?![#/\s}]|(?:using|namespace)\b|(?:class|struct|enum)\s[\w ]+;)(?:[^\n(={;]*?[\s*&])"
                        r"((?!operator\b)\w+)(?:\[\w*\])?\s*(?:[(={;]|: )", re.M)
# In a group nothing tells that these are unused, so it is looked for here.
UNMENTIONED = re.compile(
    r"^(?:using\s+(?:[\w:]+::)?(\w+)(?:;|\s*=)|namespace\s+(\w+)\s*=|"
    r"(?:static\s+)?const(?:expr)?\s[^\n(={;]*?[\s*&](k[A-Z]\w*)(?:\[\w*\])?\s*[({=\n])", re.M)


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def parents(path):
    while path:
        path = os.path.dirname(path)
        yield path


class Tree:
    """The project's own files, with what each may include: by name, wherever it stands."""

    def __init__(self):
        self.places = {}
        self.closures = {}
        self.introduced = {}
        for folder in FOLDERS:
            for parent, _, names in os.walk(folder):
                for name in names:
                    if name.endswith((".h", ".cpp")):
                        self.places.setdefault(name, []).append(os.path.join(parent, name))

    def sources(self):
        return {path for paths in self.places.values() for path in paths if path.endswith(".cpp")}

    def names(self, path):
        if path not in self.introduced:
            self.introduced[path] = set(INTRODUCED.findall(read(path)))
        return self.introduced[path]

    def closure(self, path):
        if path not in self.closures:
            found, ahead = {path}, [path]
            while ahead:
                for name in INCLUDE.findall(read(ahead.pop())):
                    new = set(self.places.get(os.path.basename(name), [])) - found
                    found |= new
                    ahead += new
            self.closures[path] = found
        return self.closures[path]


class Source:
    def __init__(self, entry, tree, checks):
        self.path = os.path.relpath(entry["file"], ROOT)
        self.text = read(self.path)
        words = shlex.split(entry["command"])
        self.options = [word for index, word in enumerate(words)
                        if word not in ("-c", "-o", entry["file"]) and words[index - 1] != "-o"]
        self.macros = [word[2:].partition("=")[::2] for word in self.options
                       if word.startswith("-D")]
        self.folders = [word if word.startswith("-I") else "-isystem" + self.options[index + 1]
                        for index, word in enumerate(self.options)
                        if word.startswith("-I") or word == "-isystem"]
        # How code is made of it changes nothing of what is found.
        self.manner = [word for word in self.options
                       if word.startswith(("-std", "-W", "-m", "-fno-access-control"))]
        self.checks = next(folder for folder in parents(self.path)
                           if os.path.exists(os.path.join(folder, ".clang-tidy")))
        self.files = tree.closure(self.path)
        self.tree = tree
        state = hashlib.sha256(repr((self.options, checks)).encode())
        for file in sorted(self.files):
            state.update(f"{file}\0{read(file)}\0".encode())
        self.state = state.hexdigest()

    def goes_with(self, other):
        return (self.manner == other.manner and self.checks == other.checks
                and not self.names_beside(other) & other.names_beside(self))

    def names_beside(self, other):
        return set().union(*(self.tree.names(file) for file in self.files - other.files))

    def unmentioned(self):
        for match in UNMENTIONED.finditer(self.text):
            name = next(filter(None, match.groups()))
            if len(re.findall(rf"\b{name}\b", self.text)) == 1:
                line = self.text.count("\n", 0, match.start()) + 1
                yield f"{self.path}:{line}: {name} is not used"


def sources(build, folders, tree):
    """One for each source; of one that several programs compile, the first."""
    checks = read(".clang-tidy") + read("tests/.clang-tidy") + subprocess.check_output(
        ["clang-tidy", "--version"], text=True)
    found = {}
    for entry in json.loads(read(os.path.join(build, "compile_commands.json"))):
        path = os.path.relpath(entry["file"], ROOT)
        if path.split("/")[0] in folders.split(",") and path not in found:
            found[path] = Source(entry, tree, checks)
    return list(found.values())


def grouped(chosen):
    groups = []
    for source in chosen:
        for group in groups:
            if len(group) < GROUP_SIZE and all(source.goes_with(other) for other in group):
                group.append(source)
                break
        else:
            groups.append([source])
    return sorted(groups, key=len, reverse=True)


def run(number, group):
    """Whether the group is clean, and what is to be printed."""
    folder = os.path.join(WORK, f"group{number}")
    os.makedirs(folder, exist_ok=True)
    path = os.path.abspath(group[0].path)
    if len(group) > 1:
        path = os.path.join(folder, "group.cpp")
        if group[0].checks:
            shutil.copy(os.path.join(group[0].checks, ".clang-tidy"), folder)
        with open(path, "w", encoding="utf-8") as file:
            for source in group:
                for name, value in source.macros:
                    file.write(f"#undef {name}\n#define {name} {value}\n")
                file.write(f'#include "{ROOT}/{source.path}"  // NOLINT\n')
    with open(os.path.join(folder, "compile_commands.json"), "w", encoding="utf-8") as file:
        folders = dict.fromkeys(word for source in group for word in source.folders)
        macros = [f"-D{name}={value or 1}" for name, value in group[0].macros if len(group) == 1]
        json.dump([{"directory": folder, "file": path,
                    "arguments": ["c++", *group[0].manner, *folders, *macros, "-c", path]}], file)
    result = subprocess.run(["clang-tidy", "-p", folder, "--quiet", path], check=False, text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    errors = "".join(line for line in result.stderr.splitlines(True)
                     if not line.endswith(" generated.\n"))
    return result.returncode == 0, result.stdout + errors


def suspects(group, output):
    """The sources of the group to which the findings belong."""
    found = []
    for path in re.findall(r"^(/\S+?):\d+:\d+: error: ", output, re.M):
        path = os.path.relpath(path, ROOT)
        stem = os.path.splitext(path)[0]
        found += ([source for source in group if os.path.splitext(source.path)[0] == stem]
                  or [source for source in group if path in source.files])[:1]
    return list(dict.fromkeys(found)) or group


def check(number, group):
    """The sources of the group that are clean. What counts is what is found in one by itself."""
    clean, output = run(number, group)
    if clean:
        return group
    if len(group) == 1:
        print(output, end="", flush=True)
        return []
    if "clang-diagnostic-error" in output:
        half = len(group) // 2
        return check(f"{number}-1", group[:half]) + check(f"{number}-2", group[half:])
    suspected = suspects(group, output)
    return [source for source in group
            if source not in suspected or check(f"{number}-{source.state[:8]}", [source])]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--all", action="store_true")
    parser.add_argument("builds", nargs="+", metavar="BUILD=FOLDER,...")
    parser.add_argument("--files", nargs="*", default=[])
    arguments = parser.parse_args()
    os.makedirs(WORK, exist_ok=True)
    memory = os.path.join(WORK, "clean.json")
    known = json.loads(read(memory)) if os.path.exists(memory) else {}

    tree = Tree()
    found = [source for build in arguments.builds
             for source in sources(*build.split("="), tree)]
    for folder in glob.glob(os.path.join(WORK, "group*")):
        shutil.rmtree(folder)
    chosen = [source for source in found
              if (source.files & set(arguments.files) if arguments.files
                  else arguments.all or known.get(source.path) != source.state)]
    findings = [f"{path} is part of no build" for path in tree.sources()
                - {source.path for source in found}]
    findings += [line for source in chosen for line in source.unmentioned()]
    for line in findings:
        print(line)

    groups = grouped(chosen)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        clean = sum(pool.map(check, range(len(groups)), groups), [])
    known.update((source.path, source.state) for source in clean
                 if not any(source.unmentioned()))
    with open(memory, "w", encoding="utf-8") as file:
        json.dump(known, file, indent=0, sort_keys=True)
    print(f"lint: clang-tidy looked at {len(chosen)} of {len(found)} sources")
    sys.exit(bool(findings) or len(clean) < len(chosen))


main()
