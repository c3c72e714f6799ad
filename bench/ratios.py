"""Two libraries' rows, the median of several runs of the benchmark each, and what is left of the first one's time."""
import json
import pathlib
import statistics
import sys


def rows(files):
    """Copies and page faults of every row, in the order of the benchmark, one value for each run."""
    values = {}
    for file in files:
        for row in json.loads(file.read_text())['benchmarks']:
            if 'copies' not in row:
                sys.exit(f'{file}: {row["name"]}: {row.get("error_message", "no figure")}')
            name = row.get('label') or row['name'].split('/iterations')[0]
            values.setdefault(name, []).append((row['copies'], row['faults']))
    return {name: [statistics.median(column) for column in zip(*runs)] for name, runs in values.items()}


folder = pathlib.Path(sys.argv[1])
base, own = (rows(sorted(folder.glob(f'{name}.*.json'))) for name in ('base', 'own'))
print(f'{"":32}{"base":>18}{"own":>18}')
print(f'{"":32}{"copies":>10}{"faults":>8}{"copies":>10}{"faults":>8}{"ratio":>8}')
for name, (copies, faults) in base.items():
    print(f'{name:32}{copies:10.3f}{faults:8.1f}{own[name][0]:10.3f}{own[name][1]:8.1f}{own[name][0] / copies:8.3f}')
