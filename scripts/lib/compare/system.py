"""Tools that tell of the system: processors, memory, processes and packages."""
import os
import re
import tempfile

from answers import ask, by, groups, identity, numbers, run


def lscpu(machine, report):
    tree = ['-s', machine.root] if machine.root else []
    fields = {}

    def flatten(entries):
        for entry in entries:
            fields.setdefault(entry['field'].rstrip(':'), []).append(entry['data'])
            flatten(entry.get('children', []))

    flatten(ask('lscpu', '-J', *tree).get('lscpu', []))

    def first(name):
        return fields.get(name, [None])[0]

    processors = machine.all('CIM_Processor') or [{}]
    names = sorted({name for one in processors for name in one.get('Name', '').split(' + ')})
    report.add('lscpu: model name', names, sorted(set(fields.get('Model name', []))))
    report.add('lscpu: vendor', sorted({one.get('Description', '') for one in processors}),
               sorted(set(fields.get('Vendor ID', []))))
    report.add('lscpu: stepping', processors[0].get('Stepping'), first('Stepping'))
    report.add('lscpu: sockets', len(processors), int(first('Socket(s)') or 0) or None)
    fastest = max((one.get('MaxClockSpeed', 0) for one in processors), default=0)
    clocks = [round(float(mhz)) for mhz in fields.get('CPU max MHz', [])]
    report.add('lscpu: fastest clock', fastest, max(clocks, default=None))
    modes = re.findall(r'\d+', first('CPU op-mode(s)') or '')
    report.add('lscpu: widest mode', processors[0].get('DataWidth'),
               max(map(int, modes), default=None))
    report.add('lscpu: virtualization', identity(processors[0], 'Virtualization'),
               first('Virtualization'))
    description = machine.all('CIM_ComputerSystem')[0].get('Description', '')
    report.add('lscpu: virtual', description.split(' (')[0],
               'Virtual machine' if first('Hypervisor vendor') else None)

    rows = run('lscpu', '-p=CPU,CORE,SOCKET', *tree).splitlines()
    table = [row.split(',') for row in rows if re.match(r'\d+,\d', row)]
    parts = machine.links('CIM_ConcreteComponent', 'GroupComponent', 'PartComponent')
    threads = [(whole['InstanceID'], int(part['InstanceID'][3:])) for whole, part in parts
               if part.get('InstanceID', '').startswith('cpu')]
    report.add('lscpu: threads', sorted(thread for _, thread in threads),
               sorted(int(row[0]) for row in table))
    report.add('lscpu: threads of each core', groups(threads),
               groups((row[1], int(row[0])) for row in table))
    socket_of = {part['InstanceID']: whole['DeviceID'] for whole, part in parts
                 if 'DeviceID' in whole and 'InstanceID' in part}
    report.add('lscpu: threads of each socket',
               groups((socket_of.get(core), thread) for core, thread in threads),
               groups((row[2], int(row[0])) for row in table))
    memory = by(machine.all('CIM_Memory'), 'DeviceID')
    for name, data in fields.items():
        if node := re.fullmatch(r'NUMA (node\d+) CPU\(s\)', name):
            own = memory.get(node[1], {}).get('Description', '')
            report.add(f'lscpu: processors of {node[1]}', numbers(re.sub('[^0-9,-]', '', own)),
                       numbers(data[0]))
    compare_caches(machine, report, tree)


def compare_caches(machine, report, tree):
    marks = {'Data': 'd', 'Instruction': 'i', 'Unified': '', '': ''}
    own = {}
    links = {one['Antecedent']: one for one in machine.texts('CIM_AssociatedCacheMemory')}
    for path, link in links.items():
        memory = machine.by_path[path]['values']
        level, kind = re.search(r'/L(\d+) ?(\w*)$', memory['DeviceID']).groups()
        size = memory['BlockSize'] * memory['NumberOfBlocks'] if 'NumberOfBlocks' in memory else 0
        ways = re.match(r'\d+', link.get('OtherAssociativityDescription') or
                        link.get('Associativity') or '')
        line = re.match(r'\d+', link.get('LineSize') or '')
        own.setdefault(f'L{level}{marks.get(kind, kind)}', []).append(
            (size, ways and int(ways[0]), line and int(line[0])))
    for cache in ask('lscpu', '-J', '-B', '-C', *tree).get('caches', []):
        found = own.get(cache['name'], [])
        one = found[0] if found else (None, None, None)
        what = f'lscpu: {cache["name"]} cache'
        report.add(f'{what}, size', one[0], int(cache['one-size'] or 0) or None)
        report.add(f'{what}, all', sum(each[0] for each in found), int(cache['all-size'] or 0) or None)
        report.add(f'{what}, ways', one[1], cache['ways'])
        report.add(f'{what}, line', one[2], cache['coherency-size'])


def free(machine, report):
    own = machine.all('CIM_OperatingSystem')[0]
    lines = {line.split()[0]: line.split()[1:] for line in run('free', '-b').splitlines()[1:]}
    for what, key, number in (('total', 'TotalVisibleMemorySize', int(lines['Mem:'][0])),
                              ('free', 'FreePhysicalMemory', int(lines['Mem:'][2])),
                              ('swap', 'SizeStoredInPagingFiles', int(lines['Swap:'][0])),
                              ('free swap', 'FreeSpaceInPagingFiles', int(lines['Swap:'][2]))):
        tolerance = 1 << 31 if 'free' in what else 0
        report.add(f'free: {what}', own[key] * 1024, number, tolerance)
    memory = by(machine.all('CIM_Memory'), 'DeviceID')['memory']
    report.add('free: memory', memory['BlockSize'] * memory['NumberOfBlocks'], int(lines['Mem:'][0]))


def ps(machine, report):
    own = {int(one['Handle']): one for one in machine.all('CIM_UnixProcess')}
    keys = {'ppid': 'ParentProcessID', 'pgid': 'ProcessGroupID', 'sid': 'ProcessSessionID',
            'comm': 'Name'}
    fields = ('pid', 'ppid', 'pgid', 'sid', 'rss', 'etimes', 'comm')
    lines = run('ps', '-e', '-o', ','.join(fields)).splitlines()[1:]
    for line in lines:
        theirs = dict(zip(fields, line.split(None, 6)))
        values = own.get(int(theirs['pid']))
        if values is None or int(theirs['etimes']) < 30:
            continue  # it may have begun since, or have become another program
        for field, key in keys.items():
            # What a thread of the kernel works on stands in its name.
            names = [re.sub(r'^(kworker/\w+:\w+).*', r'\1', name)
                     for name in (str(values.get(key)), theirs[field])]
            report.add(f'ps: {theirs["pid"]}, {field}', *names)
        report.add(f'ps: {theirs["pid"]}, memory', values['WorkingSetSize'], int(theirs['rss']) * 1024,
                   1 << 30)
    report.add('ps: number', machine.all('CIM_OperatingSystem')[0]['NumberOfProcesses'], len(lines), 100)


def others(machine, report):
    system = machine.all('CIM_OperatingSystem')[0]
    report.add('uname: release', system['Version'], run('uname', '-r').strip())
    report.add('hostname: name', machine.all('CIM_ComputerSystem')[0]['Name'],
               run('hostname').strip())
    start = re.sub(r'^(....)(..)(..)(..)(..)(..).*', r'\1-\2-\3 \4:\5:\6', system['LastBootUpTime'])
    report.add('uptime: since', start[:16], run('env', 'TZ=UTC', 'uptime', '-s').strip()[:16])
    packages = {one['Name']: one['VersionString'] for one in machine.all('CIM_SoftwareIdentity')}
    lines = run('dpkg-query', '-W', '-f', '${db:Status-Status} ${Package} ${Version}\n').splitlines()
    listed = dict(line.split()[1:] for line in lines if line.startswith('installed '))
    report.add('dpkg: packages', packages == listed and len(packages), len(listed))


def dmidecode(machine, report):
    """The firmware's table, with an entry point before it as dumps have one."""
    path = machine.root + '/sys/firmware/dmi/tables/DMI'
    if not os.access(path, os.R_OK):
        return
    with open(path, 'rb') as file:
        table = file.read()
    entry = bytearray(b'_SM3_\0\x18\3\0\0\1\0' + len(table).to_bytes(4, 'little') +
                      (32).to_bytes(8, 'little'))
    entry[5] = -sum(entry) & 255
    with tempfile.NamedTemporaryFile() as dump:
        dump.write(bytes(entry).ljust(32, b'\0') + table)
        dump.flush()
        text = run('dmidecode', '--from-dump', dump.name, '-t', '17')
    modules = []
    for block in text.split('\n\n'):
        module = dict(re.findall(r'^\t([^:\t]+): (.*)$', block, re.M))
        if module.get('Size', 'No Module Installed') != 'No Module Installed':
            modules.append(module)
    own = machine.texts('CIM_PhysicalMemory')
    report.add('dmidecode: modules', len(own), len(modules))
    for number, (values, module) in enumerate(zip(own, modules)):
        for tag, key in (('Total Width', 'TotalWidth'), ('Data Width', 'DataWidth'),
                         ('Bank Locator', 'BankLabel'), ('Form Factor', 'FormFactor'),
                         ('Type', 'MemoryType'), ('Manufacturer', 'Manufacturer'),
                         ('Serial Number', 'SerialNumber'), ('Part Number', 'PartNumber'),
                         ('Speed', 'MaxMemorySpeed'), ('Size', 'Capacity'),
                         ('Configured Memory Speed', 'ConfiguredMemoryClockSpeed')):
            theirs = module.get(tag, '')
            if theirs in ('Not Specified', 'Unknown'):
                continue
            units = (('MT/s', 'MHz'), (' bits', ' Bits'), (' GB', ' Gigabytes'), (' MB', ' Megabytes'),
                     (' kB', ' Kilobytes'))
            for unit, word in units:
                theirs = theirs.replace(unit, word)
            report.add(f'dmidecode: module {number}, {tag}', values.get(key), theirs)
