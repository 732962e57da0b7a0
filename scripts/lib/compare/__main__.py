"""What vyrhost collects beside what the machine's own tools say: scripts/compare-machine."""
import fnmatch
import glob
import json
import os
import re
import subprocess
import sys
import tempfile

import devices
import system

DOCUMENT = 'docs/collected.md'
SAMPLE = 'tests/host/data/machine.txt'
TOOLS_OF_TREES = (system.lscpu, devices.lsblk, system.dmidecode)
TOOLS_OF_THIS_MACHINE = TOOLS_OF_TREES + (devices.ip, devices.df, devices.lspci, devices.lsusb,
                                          system.free, system.ps, system.others)


class Machine:
    """What vyrhost says of this machine, or of a saved tree."""

    def __init__(self, root):
        self.root = root
        command = ['build/release/bin/vyrhost', '--quiet', '--root', root or '/',
                   '--with', 'processes', '--with', 'packages', '--format', 'jsonl', 'all']
        lines = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        self.instances = [json.loads(line) for line in lines.splitlines()]
        self.by_path = {instance['path']: instance for instance in self.instances}

    def all(self, *classes):
        """The instances of these very classes, without the paths."""
        return [one['values'] for one in self.instances if one['class'] in classes]

    def texts(self, *classes):
        """The same as people read them."""
        return [one['texts'] for one in self.instances if one['class'] in classes]

    def links(self, association, above, below):
        """Pairs of the values of two instances that an association links."""
        return [(self.by_path[one[above]]['values'], self.by_path[one[below]]['values'])
                for one in self.all(association)]


class Report:
    """The rows, and which of them differ."""

    def __init__(self):
        with open(DOCUMENT, encoding='utf-8') as document:
            rows = re.findall(r'^\| `(\w+: [^`]*)` \| (.*) \|$', document.read(), re.M)
        self.reasons = dict(rows)
        self.met = set()
        self.rows = 0
        self.differing = 0
        self.explained = 0

    def begin(self, title):
        print('==', title)

    def add(self, what, own, theirs, tolerance=0):
        """A row. A tool that says nothing is not compared; what moves may differ by the tolerance."""
        if theirs in (None, '', []):
            return
        isNear = tolerance and own is not None and abs(own - theirs) <= tolerance
        mark = 'same' if own == theirs else 'near' if isNear else 'DIFFERS'
        if mark == 'DIFFERS':
            text = f'{what}: {show(own)}, not {show(theirs)}'
            reason = next((r for r in self.reasons if fnmatch.fnmatchcase(text, r)), None)
            if reason:
                self.met.add(reason)
                mark = 'explained'
        self.rows += 1
        self.differing += mark == 'DIFFERS'
        self.explained += mark == 'explained'
        print(f'{mark:9} {what:44} {show(own)}' + ('' if mark == 'same' else f'  |  {show(theirs)}'))

    def add_sets(self, what, own, theirs):
        """A row for each that is on either side."""
        for one in sorted(set(own) | set(theirs), key=str):
            self.add(f'{what} {one}', 'there' if one in own else 'missing',
                     'there' if one in theirs else 'missing')

    def finish(self):
        """The last lines, and the exit status."""
        for reason in sorted(set(self.reasons) - self.met):
            print('explained in', DOCUMENT + ', and not met here:', reason)
        print(f'{self.rows} compared, {self.explained} explained, {self.differing} differ')
        return 1 if self.differing else 0


def show(value):
    text = json.dumps(value, ensure_ascii=False) if isinstance(value, (list, dict)) else str(value)
    return text if len(text) <= 120 else text[:117] + '...'


def make_sample(to):
    """The tree of the tests' sample machine: a line is a file and its text, a folder and files of
    one line in it, or a link."""
    def write(path, data):
        if path.endswith('/'):
            os.makedirs(to + path, exist_ok=True)
            return
        os.makedirs(os.path.dirname(to + path), exist_ok=True)
        with open(to + path, 'wb') as file:
            file.write(data)

    with open(SAMPLE, encoding='utf-8') as lines:
        for line in lines.read().splitlines():
            if not line or line.startswith('#'):
                continue
            if ' -> ' in line:
                link, target = line.split(' -> ')
                os.makedirs(os.path.dirname(to + link), exist_ok=True)
                os.symlink(target, to + link)
            elif ': ' in line:
                path, text = line.split(': ', 1)
                text = text.replace('\\n', '\n').replace('\\t', '\t') + '\n'
                text = re.sub(r'\\x(..)', lambda byte: chr(int(byte[1], 16)), text)
                write(path, text.encode('latin-1'))
            else:
                folder, *files = line.split()
                write(folder, b'')
                for file in files:
                    name, value = file.split('=', 1)
                    write(folder + name, value.encode() + b'\n')


def number_devices(tree):
    """Gives block devices the numbers by which lsblk finds them."""
    found = glob.glob(tree + '/sys/block/*') + glob.glob(tree + '/sys/block/*/*/partition')
    os.makedirs(tree + '/sys/dev/block', exist_ok=True)
    for number, path in enumerate(found, 1):
        folder = path.removesuffix('/partition')
        with open(folder + '/dev', 'w', encoding='ascii') as file:
            file.write(f'240:{number}\n')
        os.symlink(os.path.realpath(folder), f'{tree}/sys/dev/block/240:{number}')
    for upper, _, lower in (path.rsplit('/', 2) for path in glob.glob(tree + '/sys/block/*/slaves/*')):
        for folder in glob.glob(f'{tree}/sys/block/{lower}') + glob.glob(f'{tree}/sys/block/*/{lower}'):
            os.makedirs(folder + '/holders', exist_ok=True)
            os.symlink(os.path.realpath(upper), f'{folder}/holders/{os.path.basename(upper)}')


def compare(report, title, root, tools):
    report.begin(title)
    machine = Machine(root)
    for tool in tools:
        tool(machine, report)


def main(trees):
    os.environ['LC_ALL'] = 'C.UTF-8'
    report = Report()
    for tree in trees:
        compare(report, tree, tree, TOOLS_OF_TREES)
    if not trees:
        with tempfile.TemporaryDirectory() as folder:
            saved, sample = folder + '/saved', folder + '/sample'
            subprocess.run(['scripts/save-machine', '--with-serials', saved], check=True)
            make_sample(sample)
            number_devices(saved)
            number_devices(sample)
            compare(report, 'this machine', '', TOOLS_OF_THIS_MACHINE)
            compare(report, 'this machine, saved', saved, TOOLS_OF_TREES)
            compare(report, 'the sample of the tests', sample, TOOLS_OF_TREES)
    return report.finish()


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
