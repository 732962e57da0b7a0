"""Asking programs, and bringing what they answer into one form."""
import json
import subprocess


def run(*command):
    """What a program writes; nothing where it fails, which is said."""
    done = subprocess.run(command, capture_output=True, text=True, errors='replace', check=False)
    if done.returncode:
        print('note:', ' '.join(command), 'failed:', done.stderr.strip())
    return '' if done.returncode else done.stdout


def ask(*command):
    """The same for one that writes JSON."""
    text = run(*command)
    return json.loads(text) if text.strip() else {}


def identity(values, name):
    """What OtherIdentifyingInfo has under that description."""
    names = values.get('IdentifyingDescriptions') or []
    return values['OtherIdentifyingInfo'][names.index(name)] if name in names else None


def by(values, key):
    return {one[key]: one for one in values}


def numbers(text):
    """'0-2,5' in full."""
    found = []
    for part in filter(None, (text or '').split(',')):
        first, _, last = part.partition('-')
        found += range(int(first), int(last or first) + 1)
    return found


def groups(pairs):
    """Which of the second belong to one of the first, whatever that is called."""
    found = {}
    for whole, part in pairs:
        found.setdefault(whole, []).append(part)
    return sorted(sorted(parts) for parts in found.values())
