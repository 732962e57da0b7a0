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
from answers import numbers

DOCUMENT = 'docs/collected.md'
SAMPLE = 'tests/host/data/machine.txt'
TOOLS_OF_TREES = (system.lscpu, devices.lsblk, system.dmidecode)
TOOLS_OF_THIS_MACHINE = TOOLS_OF_TREES + (devices.ip, devices.df, devices.lspci, devices.lsusb,
                                          system.free, system.ps, system.others)


class Machine:
    """What vyrhost says of this machine, or of a saved tree."""

    def __init__(self, root):
        self.root = root
        command = ['build/package/bin/vyrhost', '--quiet', '--root', root or '/',
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
        self.reasons = re.findall(r'^\| `(\w+: [^`]*)` \| .* \|$', read(DOCUMENT), re.M)
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


def read(path):
    with open(path, encoding='utf-8') as file:
        return file.read()


def write(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    if not path.endswith('/'):
        with open(path, 'wb') as file:
            file.write(data)


def make_sample(to):
    """The tree of the tests' sample machine: a line is a file and its text, a folder and files of
    one line in it, or a link."""
    for line in read(SAMPLE).splitlines():
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
            write(to + path, text.encode('latin-1'))
        else:
            folder, *files = line.split()
            write(to + folder, b'')
            for name, value in (file.split('=', 1) for file in files):
                write(to + folder + name, value.encode() + b'\n')


def add_numbers(tree):
    """Gives block devices the numbers by which lsblk finds them, and says what is above each."""
    found = glob.glob(tree + '/sys/block/*') + glob.glob(tree + '/sys/block/*/*/partition')
    os.makedirs(tree + '/sys/dev/block', exist_ok=True)
    for number, path in enumerate(found, 1):
        folder = path.removesuffix('/partition')
        write(folder + '/dev', f'240:{number}\n'.encode())
        os.symlink(os.path.realpath(folder), f'{tree}/sys/dev/block/240:{number}')
    for path in glob.glob(tree + '/sys/block/*/slaves/*'):
        upper, _, lower = path.rsplit('/', 2)
        for folder in glob.glob(f'{tree}/sys/block/{lower}') + \
                glob.glob(f'{tree}/sys/block/*/{lower}'):
            os.makedirs(folder + '/holders', exist_ok=True)
            os.symlink(os.path.realpath(upper), f'{folder}/holders/{os.path.basename(upper)}')


def add_masks(tree):
    """Says of processors what lscpu reads: the same as the lists, as bits."""
    folder = tree + '/sys/devices/system/'

    def add(path, processors):
        write(path, f'{sum(1 << number for number in processors):08x}\n'.encode())

    for name in ('possible', 'present'):
        write(folder + 'cpu/' + name, read(folder + 'cpu/online').encode())
    packages = {}
    for path in glob.glob(folder + 'cpu/cpu*/topology/physical_package_id'):
        number = int(re.findall(r'/cpu(\d+)/', path)[0])
        packages.setdefault(read(path), []).append(number)
    for processors in packages.values():
        for number in processors:
            add(f'{folder}cpu/cpu{number}/topology/core_siblings', processors)
    for pattern, old, new in (('cpu/cpu*/topology/thread_siblings_list', '_list', ''),
                              ('cpu/cpu*/cache/*/shared_cpu_list', '_list', '_map'),
                              ('node/node*/cpulist', 'cpulist', 'cpumap')):
        for path in glob.glob(folder + pattern):
            add(path.removesuffix(old) + new, numbers(read(path).strip()))


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
            add_masks(saved)
            add_numbers(saved)
            add_numbers(sample)
            compare(report, 'this machine', '', TOOLS_OF_THIS_MACHINE)
            compare(report, 'this machine, saved', saved, TOOLS_OF_TREES)
            compare(report, 'the sample of the tests', sample, (devices.lsblk, system.dmidecode))
    return report.finish()


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
