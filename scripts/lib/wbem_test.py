"""Run by scripts/wbem-test: what wbemcli is told by `vyrhost serve` against what vyrhost says itself.

Arguments: the program, and for each machine a word of options with which vyrhost shows it. What
changes between two collections of vyrhost is not compared.
"""

import json
import re
import struct
import subprocess
import sys
import xml.etree.ElementTree as Xml

MEASURED = re.compile("Number|Free|Load|Current|Available|Local")  # changes on a machine that runs
FILTERS = {"--role": "-ar", "--result-role": "-arr", "--assoc-class": "-ac", "--result-class": "-arc"}


def run(*words):
    result = subprocess.run(words, capture_output=True, text=True, timeout=60, check=False)
    return result.returncode, result.stdout, result.stderr


def text_of(value, kind):
    """A value as wbemcli writes it."""
    if value is None:
        return ""
    if kind.endswith("[]"):
        return ",".join(text_of(element, kind[:-2]) for element in value)
    if kind == "boolean":
        return "TRUE" if value else "FALSE"
    if kind == "string":
        return '"' + value.replace("\\", "\\\\") + '"'
    return str(value)


def same(told, expected, kind):
    """Reals have several texts."""
    if told and kind in ("real32", "real64"):
        form = "f" if kind == "real32" else "d"
        return struct.pack(form, float(told)) == struct.pack(form, float(expected))
    return told == expected


class Machine:
    def __init__(self, program, options):
        self.program, self.options = program, options
        self.compared = self.changing = 0
        self.faults = []
        self.before = json.loads(self.own("all", "--format", "json"))
        self.server = subprocess.Popen(
            [program, *options, "serve", "--port", "0", "--every", "0"],
            stderr=subprocess.PIPE, text=True)
        for line in self.server.stderr:
            if found := re.search(r" at http://(.*)/$", line):
                self.base = f"{found[1]}/root/cimv2"
                break
        else:
            sys.exit(f"vyrhost {' '.join(options)} serve: ended with {self.server.wait()}")

    def stop(self):
        self.server.terminate()
        self.expect("exit status after SIGTERM", self.server.wait(timeout=20), 0)

    def expect(self, about, told, expected):
        self.compared += 1
        if told != expected:
            self.faults.append(f"{about}\n  told:     {told!r}\n  expected: {expected!r}")

    def own(self, *words):
        status, out, err = run(self.program, "--quiet", *self.options, *words)
        if status:
            sys.exit(f"vyrhost {' '.join(words)}: {err}")
        return out

    def ask(self, operation, path="", *words):
        """What wbemcli prints, without the server's name; its errors are faults."""
        status, out, err = run("wbemcli", *operation.split(), f"http://{self.base}{path}", *words)
        if status:
            self.expect(f"{operation} {path}: exit status", (status, err), 0)
        return out

    def load(self):
        """What is there, and which values stay as they are."""
        after = {i["path"]: i for i in json.loads(self.own("all", "--format", "json"))}
        self.instances = [i for i in self.before if i["path"] in after]
        self.by_path = {i["path"]: i for i in self.instances}
        self.lasting = {
            (i["path"], name) for i in self.instances
            for name, p in i["properties"].items()
            if after[i["path"]]["properties"][name]["value"] == p["value"]
            and (self.options or not MEASURED.match(name))}
        self.classes = [line.split()[0] for line in self.own("classes").splitlines()]
        self.description = {c: self.own("class", c) for c in self.classes}
        self.supers = {c: set() for c in self.classes}
        for name, text in self.description.items():
            if found := re.search(r"^Superclasses(.*?)\n\n", text, re.M | re.S):
                self.supers[name] = set(re.findall(r"\w+", found[1]))

    def value(self, instance, name):
        p = instance["properties"][name]
        if p["type"] == "reference" and p["value"] is not None:
            return "root/cimv2:" + self.path(p["value"])
        return text_of(p["value"], p["type"])

    def path(self, own_path):
        """A path of vyrhost's as wbemcli writes it."""
        instance = self.by_path[own_path]
        keys = [f"{n}={self.value(instance, n)}"
                for n, p in instance["properties"].items() if p["key"]]
        return instance["class"] + ("." + ",".join(keys) if keys else "")

    def paths(self, own_paths):
        return sorted(f"{self.base}:{self.path(p)}" for p in own_paths if p)

    def below(self, name):
        return {c for c in self.classes if name in self.supers[c]}

    def compare_instances(self, about, told, own_paths):
        """Told is a text of -nl: a path, and its values each on a line of its own."""
        rest = told
        for own_path in own_paths:
            instance = self.by_path[own_path]
            head = f"{self.base}:{self.path(own_path)}\n"
            start = 0 if rest.startswith(head) else rest.find("\n" + head) + 1
            self.expect(f"{about}: there", rest.startswith(head, start), True)
            block = rest[start + len(head):]
            for name, p in instance["properties"].items():
                mark = f"-{name}="
                self.expect(f"{about} {own_path}", block[: len(mark)], mark)
                expected = self.value(instance, name)
                line = block[len(mark): len(mark) + len(expected)]
                if (own_path, name) not in self.lasting or p["type"].startswith("real"):
                    line = block[len(mark): block.find("\n")]
                if (own_path, name) in self.lasting:
                    good = same(line, expected, p["type"])
                    self.expect(f"{about} {own_path}: {name}", expected if good else line, expected)
                else:
                    self.changing += 1
                self.expect(f"{about} {own_path}: end", block[len(mark) + len(line):][:1], "\n")
                block = block[len(mark) + len(line) + 1:]
            self.expect(f"{about} {own_path}: end", block[:1], "\n")

    def check_class(self, name):
        below = self.below(name)
        prefix = f"{self.base}:"
        self.expect(f"ecn {name}", sorted(self.ask("ecn", f":{name}").split()),
                    sorted(prefix + c for c in below))
        listed = [line.split()[0] for line in self.ask("ec", f":{name}").splitlines() if line]
        self.expect(f"ec {name}", sorted(listed), sorted(prefix + c for c in below))
        rows = re.findall(r"^  (\w+) +(?:reference to )?([\w\[\]]+) +(\w+)(?:  = .*)?$",
                          self.description[name].partition("\nProperties\n")[2]
                          .partition("\nMethods\n")[0], re.M)
        told = re.findall(r"^-(\w+)=", self.ask("gc -nl", f":{name}"), re.M)
        self.expect(f"gc {name}", told, [row[0] for row in rows])
        node = Xml.fromstring(self.ask("gcd", f":{name}"))
        kinds = [(p.get("NAME"),
                  p.get("TYPE", p.get("REFERENCECLASS", "")) + "[]" * (p.tag == "PROPERTY.ARRAY"),
                  p.get("PROPAGATED", "false")) for p in node if p.tag.startswith("PROPERTY")]
        self.expect(f"gcd {name}", kinds,
                    [(n, kind, "false" if origin == name else "true") for n, kind, origin in rows])
        self.expect(f"gcd {name}: superclass", node.get("SUPERCLASS") in
                    self.supers[name] or not self.supers[name], True)

    def check_instances(self, name):
        own = [i["path"] for i in self.instances if i["class"] in {name} | self.below(name)]
        self.expect(f"ein {name}", sorted(split_paths(self.ask("ein", f":{name}"), self.base)),
                    self.paths(own))
        self.compare_instances(f"ei {name}", self.ask("ei -nl", f":{name}"), own)

    def check_instance(self, own_path):
        instance = self.by_path[own_path]
        path = ":" + self.path(own_path)
        told = self.ask("gi -nl", path)  # begins with the path as it was asked for
        told = f"{self.base}{path}" + told[told.find("\n-"):]
        self.compare_instances("gi", told, [own_path])
        for name, p in instance["properties"].items():
            if (own_path, name) in self.lasting and p["type"] not in ("string[]", "real32", "real64"):
                expected = self.value(instance, name)
                if p["type"] == "string":
                    expected = expected[1:-1]
                self.expect(f"gp {own_path} {name}", self.ask("gp", path, name)[:-1], expected)
        references = self.own("references", "--no-short", own_path).splitlines()
        associators = self.own("associators", "--no-short", own_path).splitlines()
        self.compare_instances(f"ri {path}", self.ask("ri -nl", path), references)
        self.compare_instances(f"ai {path}", self.ask("ai -nl", path), associators)
        self.compare_ends("rin", "references", own_path)
        self.compare_ends("ain", "associators", own_path)
        if not references:
            return
        association = self.by_path[references[-1]]
        role, other = [n for n, p in association["properties"].items()
                       if p["type"] == "reference"][:2]
        end = self.by_path[associators[-1]]["class"]
        self.compare_ends("rin", "references", own_path, "--role", role)
        self.compare_ends("rin", "references", own_path, "--result-class", association["class"])
        self.compare_ends("ain", "associators", own_path, "--role", role, "--result-role", other)
        self.compare_ends("ain", "associators", own_path, "--role", other)
        self.compare_ends("ain", "associators", own_path, "--assoc-class", association["class"],
                          "--result-class", end)

    def compare_ends(self, operation, command, own_path, *options):
        told = self.ask(" ".join([operation, *(FILTERS.get(o, o) for o in options)]),
                        ":" + self.path(own_path))
        own = self.own(command, "--no-short", *options, own_path).splitlines()
        self.expect(f"{operation} {options} {own_path}",
                    sorted(split_paths(told, self.base)), self.paths(own))

    def check_refusals(self):
        instance = self.instances[0]
        name = next(n for n, p in instance["properties"].items() if p["type"] == "string")
        path = ":" + self.path(instance["path"])
        absent = path.replace('="', '="no ', 1)
        for operation, target, words, code in (
                ("dc", ":" + instance["class"], [], 7), ("ci", absent, [f"{name}=x"], 7),
                ("mi", path, [f"{name}=x"], 7), ("di", path, [], 7), ("sp", path, [f"{name}=x"], 7),
                ("gc", ":No_Such", [], 6), ("ei", ":No_Such", [], 5), ("gi", absent, [], 6),
                ("ain", ":No_Such.Id=1", [], 4), ("gp", path, ["No_Such"], 12),
                ("ecn", "/none", [], 3), ("ei", "/none:" + instance["class"], [], 3)):
            status, _, err = run("wbemcli", operation, f"http://{self.base}{target}", *words)
            self.expect(f"{operation} {target}: {err}", (status, f"({code})" in err), (16, True))


def split_paths(text, base):
    """One path a line; keys may hold line feeds."""
    return [base + ":" + part.removesuffix("\n")
            for part in re.split(rf"^{re.escape(base)}:", text, flags=re.M)[1:]]


def check(machine):
    machine.load()
    machine.expect("ecn", sorted(machine.ask("ecn").split()),
                   sorted(f"{machine.base}:{c}" for c in machine.classes))
    for name in machine.classes:
        machine.check_class(name)
        machine.check_instances(name)
        direct = [i["path"] for i in machine.instances if i["class"] == name]
        for path in [p for p in direct if can_be_typed(p)][:1]:
            machine.check_instance(path)
    machine.check_refusals()


def can_be_typed(path):
    """wbemcli has no way to write these in an argument."""
    return not re.search(r"[<&\n]|\\\\", path)


failed = False
for options in sys.argv[2:]:
    machine = Machine(sys.argv[1], options.split())
    try:
        check(machine)
    finally:
        machine.stop()
    print(f"{options or 'this machine'}: {len(machine.classes)} classes, "
          f"{len(machine.instances)} instances; {machine.compared} comparisons, "
          f"{len(machine.faults)} differences, {machine.changing} values that change")
    for fault in machine.faults[:20]:
        print(fault, file=sys.stderr)
    failed = failed or machine.faults
sys.exit(1 if failed else 0)
