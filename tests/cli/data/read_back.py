"""Reads a list of odd_values.mof from standard input and compares it with what stands there.

read_back.py FORMAT: "json", "jsonl", "csv" (stored values), or "csv-all" (a row for each property).
"""
import csv, io, json, re, struct, sys

csv.field_size_limit(1 << 20)
ODD = '\n\x01\udce9'
EXPECTED = {
    'MY_Odd.Id="core10"': {
        'Id': 'core10', 'Big': 18446744073709551615, 'Low': -9223372036854775808, 'Real': 1.5e300,
        'Small': struct.pack('f', 0.1), 'Flag': True, 'Letter': ',', 'Code': 2, 'Codes': [1, None, 7],
        'Text': 'a, "b"\r\nc\td\x1b[31m\u202e\udce9\xe9 \u6f22', 'Numbers': [],
        'When': '20261122144000.000000+060', 'Texts': ['a,b', '', None, '"\n']},
    'MY_Odd.Id="core2"': {
        'Id': 'core2', 'Text': '', 'Big': 9007199254740993, 'Real': 0.0, 'Numbers': [1, None]},
    'MY_Odder.Id="\\n\\x01\\xe9"': {'Id': ODD, 'Big': 7, 'Oddity': 5, 'Codes': [1, 2]},
    'MY_Link.From="MY_Odd.Id=\\"core2\\"",To="MY_Odder.Id=\\"\\n\\x01\\xe9\\""': {
        'From': 'MY_Odd.Id="core2"', 'To': 'MY_Odder.Id="\\n\\x01\\xe9"'},
}
TEXTS = {'Code': 'Two', 'Codes': ['One', 'Two'], 'Small': '0.1', 'When': '2026-11-22 14:40:00 +01:00'}
FROM_TEXT = {'Real': float, 'Flag': 'TRUE'.__eq__, 'Small': float}
for name in ('Big', 'Low', 'Code', 'Oddity', 'Codes', 'Numbers', 'Texts'):
    FROM_TEXT[name] = json.loads


def utf8(value):
    """JSON has no bytes that are no UTF-8."""
    return re.sub('[\udc80-\udcff]', '\ufffd', value) if isinstance(value, str) else value


def value_of(name, text):
    return pack(name, FROM_TEXT.get(name, str)(text))


def pack(name, value):
    return struct.pack('f', value) if name == 'Small' else value


def check(got, expected):
    if got != expected:
        sys.exit(f'got {ascii(got)}\nexpected {ascii(expected)}')


def check_texts(values, texts):
    check(list(texts), list(values))
    for name, text in texts.items():
        if values[name] == [1, None, 7]:
            check(text, ['1', '', '7'])
        elif name in TEXTS:
            check(text, TEXTS[name])


def read_json(data):
    for item in json.loads(data):
        known = {name: each for name, each in item['properties'].items() if each['value'] is not None}
        values = {name: each['value'] for name, each in known.items()}
        check_texts(values, {name: each['text'] for name, each in known.items()})
        yield item['path'], {name: pack(name, value) for name, value in values.items()}


def read_lines(data):
    for line in data.splitlines():
        item = json.loads(line)
        check(list(item), ['format', 'machine', 'time', 'class', 'path', 'values', 'texts'])
        check([item['format'], item['machine'], item['path'].split('.')[0]], [1, '', item['class']])
        check(bool(re.fullmatch(r'\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ', item['time'])), True)
        check_texts(item['values'], item['texts'])
        yield item['path'], {name: pack(name, value) for name, value in item['values'].items()}


def records(data):
    rows = list(csv.reader(io.StringIO(data, newline=''), strict=True))
    check({len(row) for row in rows}, {len(rows[0])})
    return [dict(zip(rows[0], row)) for row in rows[1:]]


def read_csv(data):
    """An empty text and a null, which this reader does not tell apart, are told by the instance."""
    for row in records(data):
        path = row.pop('path')
        yield path, {name: value_of(name, text) for name, text in row.items()
                     if text or name in EXPECTED[path]}


def read_properties(data):
    rows = records(data)
    for path in dict.fromkeys(row['path'] for row in rows):
        yield path, {row['property']: value_of(row['property'], row['value'])
                     for row in rows if row['path'] == path}


form = sys.argv[1]
data = sys.stdin.buffer.read().decode('utf-8', 'surrogateescape')
read = {'json': read_json, 'jsonl': read_lines, 'csv': read_csv, 'csv-all': read_properties}[form]
whole = len(sys.argv) > 2
expected = {path: values for path, values in EXPECTED.items() if whole or 'Link' not in path}
if form.startswith('json'):
    expected = {path: {name: utf8(value) for name, value in values.items()}
                for path, values in expected.items()}
check(dict(read(data)), expected)
