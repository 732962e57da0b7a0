"""Tools that tell of devices, networks and file systems."""
import re

from answers import ask, by, identity, run


def lsblk(machine, report):
    tree = ['--sysroot', machine.root] if machine.root else []
    devices = {}

    def flatten(entries, above):
        for entry in entries:
            known = devices.setdefault(entry['kname'], dict(entry, above=set()))
            known['above'] |= {above} - {None}
            flatten(entry.get('children', []), entry['kname'])

    flatten(ask('lsblk', '-J', '-b', '-O', *tree).get('blockdevices', []), None)
    extents = by(machine.all('CIM_LogicalDisk', 'CIM_DiskPartition'), 'DeviceID')
    drives = by(machine.all('CIM_DiskDrive', 'CIM_CDROMDrive', 'CIM_DVDDrive'), 'DeviceID')
    report.add_sets('lsblk: device', {*extents, *drives}, devices)
    based = {}
    for lower, upper in machine.links('CIM_BasedOn', 'Antecedent', 'Dependent'):
        based.setdefault(upper['DeviceID'], set()).add(lower['DeviceID'])
    starts = {machine.by_path[one['Dependent']]['values']['DeviceID']: one.get('StartingAddress')
              for one in machine.all('CIM_BasedOn')}
    mounts = {}
    for disk, files in machine.links('CIM_ResidesOnExtent', 'Antecedent', 'Dependent'):
        mounts.setdefault(disk['DeviceID'], []).append(files['Root'])
    for name, theirs in devices.items():
        def add(what, own, value):
            report.add(f'lsblk: {name}, {what}', own, value)
        if extent := extents.get(name):
            block = extent.get('BlockSize', 0)
            add('size', block * extent.get('NumberOfBlocks', 0), theirs['size'])
            add('block', block, theirs['log-sec'])
            add('read-only', extent.get('Access') == 1, theirs['ro'])
            add('name', extent['ElementName'], theirs['name'])
            add('made of', sorted(based.get(name, [])), sorted(theirs['above']))
            if theirs['type'] == 'part' and theirs.get('start') is not None:
                add('start', (starts.get(name) or 0) * block, theirs['start'] * 512)
            places = [place for place in theirs['mountpoints'] if place]
            own = mounts.get(name, []) + (['[SWAP]'] if extent.get('Purpose') else [])
            add('mounted', sorted(own), sorted(places))
        if drive := drives.get(name):
            add('drive size', drive.get('MaxMediaSize', 0), theirs['size'] // 1000)
            add('model', drive['ElementName'], (theirs['model'] or '').strip())
            add('vendor', drive.get('Description'), (theirs['vendor'] or '').strip())
            if 'DiskType' in drive:
                add('rotates', drive['DiskType'] == 2, theirs['rota'])
            add('removable', 7 in drive['Capabilities'], theirs['rm'])
            add('serial', identity(drive, 'Serial number'), (theirs['serial'] or '').strip())
            add('wwn', identity(drive, 'World wide name'), theirs['wwn'])
            add('revision', identity(drive, 'Firmware'), (theirs['rev'] or '').strip())
            bus = identity(drive, 'Bus')
            add('bus', bus and bus.lower(), theirs['tran'])


def ip(machine, report):
    kinds = {'ether': 'CIM_EthernetPort'}
    ports = {one['values']['DeviceID']: one for one in machine.instances
             if one['class'] in ('CIM_EthernetPort', 'CIM_NetworkPort', 'CIM_WiFiPort')}
    statistics = {one['InstanceID'].rpartition('/')[2]: one for one in
                  machine.all('CIM_EthernetPortStatistics', 'CIM_NetworkPortStatistics')}
    made_of = {}
    for lower, upper in machine.links('CIM_ConcreteDependency', 'Antecedent', 'Dependent'):
        if upper.get('DeviceID') in ports and lower.get('DeviceID') in ports:
            made_of.setdefault(upper['DeviceID'], set()).add(lower['DeviceID'])
    links = by(ask('ip', '-j', '-s', '-d', 'addr'), 'ifname')
    report.add_sets('ip: link', ports, links)
    own_addresses, addresses = {}, {}
    for one in machine.all('CIM_IPProtocolEndpoint'):
        address = one.get('IPv4Address') or one.get('IPv6Address')
        port = one['Name'].partition('/')[0]
        own_addresses[f'{port} {address}'] = one.get('PrefixLength', one.get('IPv6SubnetPrefixLength'))
    states = {'UP': 'OK', 'DOWN': 'Stopped', 'UNKNOWN': 'Unknown', 'LOWERLAYERDOWN': 'Dormant'}
    for name, theirs in links.items():
        for address in theirs.get('addr_info', []):
            addresses[f'{name} {address["local"]}'] = address['prefixlen']
        if name not in ports:
            continue
        values, texts = ports[name]['values'], ports[name]['texts']

        def add(what, own, value, tolerance=0):
            report.add(f'ip: {name}, {what}', own, value, tolerance)
        add('class', ports[name]['class'], kinds.get(theirs['link_type'], 'CIM_NetworkPort'))
        add('mtu', values.get('ActiveMaximumTransmissionUnit'), theirs['mtu'])
        add('state', (texts.get('OperationalStatus') or [None])[0],
            states.get(theirs['operstate'], theirs['operstate']))
        add('enabled', values.get('EnabledState') != 3, 'UP' in theirs['flags'])
        if theirs['link_type'] == 'ether':
            add('address', values.get('NetworkAddresses'),
                [theirs['address'].replace(':', '').upper()])
        add('permanent address', values.get('PermanentAddress'),
            theirs.get('permaddr', '').replace(':', '').upper())
        add('lies on', theirs.get('link') in made_of.get(name, ()) or None,
            theirs.get('link') and True)
        if theirs.get('master'):
            add('member of ' + theirs['master'], name in made_of.get(theirs['master'], ()), True)
        counts = statistics.get(name, {})
        for direction, word in (('rx', 'Received'), ('tx', 'Transmitted')):
            for unit in ('Bytes', 'Packets'):
                value = theirs['stats64'][direction][unit.lower()]
                add(unit + word, counts.get(unit + word), value, 1 << 26)
    report.add_sets('ip: address', own_addresses, addresses)
    for address in own_addresses.keys() & addresses.keys():
        report.add(f'ip: prefix of {address}', own_addresses[address], addresses[address])
    routes = [*ask('ip', '-j', 'route', 'show', 'default'),
              *ask('ip', '-j', '-6', 'route', 'show', 'default')]
    report.add_sets('ip: gateway',
                    [one['Name'] for one in machine.all('CIM_RemoteServiceAccessPoint')],
                    [f'{one["dev"]}/{one["gateway"]}' for one in routes if 'gateway' in one])


def df(machine, report):
    fields = ('target', 'source', 'fstype', 'itotal', 'iused', 'size', 'avail')
    lines = run('df', '-a', '-B1', '--output=' + ','.join(fields)).splitlines()[1:]
    mounts = by([dict(zip(fields, line.split())) for line in lines], 'target')
    own = by(machine.all('CIM_LocalFileSystem', 'CIM_RemoteFileSystem'), 'Root')
    report.add_sets('df: file system', own,
                    {name for name, one in mounts.items() if one['size'] not in ('0', '-')})
    for name in own.keys() & mounts.keys():
        values, theirs = own[name], mounts[name]

        def add(what, key, field, tolerance=0):
            report.add(f'df: {name}, {what}', values.get(key), int(theirs[field]), tolerance)
        report.add(f'df: {name}, kind', values['FileSystemType'], theirs['fstype'])
        report.add(f'df: {name}, source', values['ElementName'], theirs['source'])
        if theirs['size'] == '-':
            continue
        add('size', 'FileSystemSize', 'size')
        add('free', 'AvailableSpace', 'avail', 1 << 30)
        add('files', 'NumberOfFiles', 'iused', 1 << 16)


def lspci(machine, report):
    own = by(machine.all('CIM_PCIDevice'), 'DeviceID')
    theirs = {}
    for block in run('lspci', '-D', '-vmmnnk').split('\n\n'):
        lines = (line.split(':\t', 1) for line in block.splitlines())
        if device := dict(line for line in lines if len(line) == 2):
            theirs[device['Slot']] = device
    report.add_sets('lspci: slot', own, theirs)
    for name in own.keys() & theirs.keys():
        values, device = own[name], theirs[name]
        base = int(re.findall(r'\[(\w+)\]$', device['Class'])[0], 16) >> 8
        report.add(f'lspci: {name}, class', values.get('ClassCode'), base)
        for tag, key in (('Vendor', 'VendorID'), ('Device', 'PCIDeviceID'),
                         ('SVendor', 'SubsystemVendorID'), ('SDevice', 'SubsystemID')):
            number = re.findall(r'\[(\w+)\]$', device.get(tag, ''))
            report.add(f'lspci: {name}, {key}', values.get(key), int(number[0], 16) if number else None)
        report.add(f'lspci: {name}, revision', values.get('RevisionID'),
                   int(device['Rev'], 16) if 'Rev' in device else None)
        report.add(f'lspci: {name}, driver', identity(values, 'Driver'), device.get('Driver'))
        for tag, key in (('Vendor', 'Description'), ('Device', 'ElementName')):
            text = re.sub(r' \[\w+\]$', '', device[tag])
            report.add(f'lspci: {name}, name of {tag.lower()}', values.get(key),
                       None if text in (tag, 'Device') else text)


def lsusb(machine, report):
    own = {f'{one["VendorID"]:04x}:{one["ProductID"]:04x}': one for one in machine.all('CIM_USBDevice')}
    found = re.findall(r': ID (\w+:\w+) ?(.*)$', run('lsusb'), re.M)
    report.add_sets('lsusb: device', own, dict(found))
