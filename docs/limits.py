#!/usr/bin/env python3
"""Finds what the measurement bears: renders pairs with more and more of one quantity, measures them, and writes
docs/limits.svg and, to standard output, its table. Takes the program orvex-align; the same pairs every time."""
import concurrent.futures
import csv
import math
import os
import subprocess
import sys
import tempfile

PAIRS = 20
BASE = {'--noise': 2, '--blur': 0.8, '--range': 1, '--seed': 1, '--count': PAIRS}
PAPER_TO_INK = 160  # grey levels of a rendered chart, which a gain scales

QUANTITIES = [
    ('noise, grey levels', [0, 2, 4, 6, 7, 8, 9, 10], lambda v: {'--noise': v}),
    ('blur, px', [0, 0.8, 2, 3, 4, 5, 6, 7], lambda v: {'--blur': v}),
    ('roll of both cameras, degrees', [0, 1, 2, 3, 3.5, 4, 4.5, 5], lambda v: {'--master-rz': v, '--range': 0.2}),
    ('ink to paper, grey levels', [160, 120, 80, 60, 50, 40, 30, 20], lambda v: {'--gain': v / PAPER_TO_INK}),
    ('width of a 16:9 picture, px', [1296, 1312, 1344, 1440, 1728, 2304, 3072, 4032],
     lambda v: {'--size': f'{v}x{v * 9 // 16}'}),
]

PAGE = '''<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 800 780" role="img" aria-label="What is borne">
  <style>
    text { font: 15px sans-serif; fill: #1f2328; text-anchor: middle }
    .name { font-weight: bold }
    .side { text-anchor: end }
    .legend { text-anchor: start }
    .page { fill: #fff }
    .sure { fill: #2ea043 }
    .doubtful { fill: #d4a72c }
    .missing { fill: #d1d9e0 }
    .grid { stroke: #818b98; stroke-opacity: 0.4 }
    .rms { fill: #388bfd }
    .largest { stroke: #388bfd; stroke-width: 3 }
    @media (prefers-color-scheme: dark) {
      text { fill: #f0f6fc }
      .page { fill: #0d1117 }
      .missing { fill: #30363d }
    }
  </style>
  <rect class="page" width="800" height="780" rx="8"/>
'''
AXES = ('rx', 'ry', 'rz')
STEP, BAR, SHARE, ERROR = 40, 30, 80, 90  # px: from bar to bar, a bar's width, the heights of both parts
ERRORS = [0.001, 0.01, 0.1, 1]  # degrees, the lower part's lines


def rows(path):
    with open(path, encoding='utf-8', newline='') as file:
        return list(csv.DictReader(file))


def run(*command):
    done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False)
    if done.returncode not in (0, 1, 2, 4):  # batch's answers are verdicts
        sys.exit(f'{" ".join(command)}: {done.stderr}')


def study(options):
    """The errors of the worst angle of each measured pair, and of those that are within range without a doubt."""
    with tempfile.TemporaryDirectory() as folder:
        pairs, results = os.path.join(folder, 'LIST.csv'), os.path.join(folder, 'results.csv')
        run(sys.argv[1], 'render', '--out', folder, *(str(x) for o in (BASE | options).items() for x in o))
        run(sys.argv[1], 'batch', pairs, '--out', results, '--jobs', '1')
        errors = [(row['verdict'], max(abs(float(row[f'raw_{a}_deg']) - float(truth[f'true_{a}_deg'])) for a in AXES))
                  for truth, row in zip(rows(pairs), rows(results), strict=True) if row['raw_rx_deg']]
    return [e for _, e in errors], [e for verdict, e in errors if verdict == 'within_range']


def rms(errors):
    return math.sqrt(sum(e * e for e in errors) / len(errors))


def table_row(name, values, studies):
    """Up to where the quantity is borne, and what the angles are off by there."""
    measured = [v for v, (errors, _) in zip(values, studies) if len(errors) == PAIRS]
    sure = [(v, sure) for v, (_, sure) in zip(values, studies) if len(sure) == PAIRS]
    errors = [e for _, point in sure for e in point]
    return (f'| {name} | {values[0]} to {values[-1]} | {measured[0]} to {measured[-1]} | {sure[0][0]} to {sure[-1][0]} '
            f'| {rms(errors):.4f} | {max(errors):.4f} | {max(e for _, point in studies for e in point):.4f} |')


def text(style, x, y, words):
    return f'<text class="{style}" x="{x}" y="{y}">{words}</text>'


def height(error):
    """Above the lower part's foot, by the error's logarithm."""
    return ERROR * min(max(math.log10(error / ERRORS[0]) / math.log10(ERRORS[-1] / ERRORS[0]), 0), 1)


def panel(name, values, studies):
    foot = SHARE + 20 + ERROR
    yield text('name', 4 * STEP, -14, name)
    for y, label in [(0, '100 %'), (SHARE, '0')] + [(foot - height(e), f'{e:g}°') for e in ERRORS]:
        yield f'<path class="grid" d="M0 {y:.0f} H{8 * STEP}"/>' + text('side', -6, f'{y + 5:.0f}', label)
    for i, (value, (errors, sure)) in enumerate(zip(values, studies)):
        x, y = i * STEP + (STEP - BAR) / 2, 0
        yield text('value', x + BAR / 2, foot + 20, value)
        for kind, n in (('missing', PAIRS - len(errors)), ('doubtful', len(errors) - len(sure)), ('sure', len(sure))):
            if n > 0:
                yield f'<rect class="{kind}" x="{x}" y="{y:g}" width="{BAR}" height="{n * SHARE / PAIRS:g}"/>'
            y += n * SHARE / PAIRS
        if errors:
            yield f'<path class="largest" d="M{x + 5} {foot - height(max(errors)):.1f} h{BAR - 10}"/>'
            yield f'<circle class="rms" cx="{x + BAR / 2}" cy="{foot - height(rms(errors)):.1f}" r="4"/>'


def legend():
    for y, (kind, words) in enumerate([('sure', 'within range, no doubt'), ('doubtful', 'measured, but doubted'),
                                       ('missing', 'not measured')]):
        yield f'<rect class="{kind}" x="0" y="{y * 26}" width="{BAR}" height="16"/>'
        yield text('legend', STEP, y * 26 + 13, words)
    yield '<circle class="rms" cx="15" cy="120" r="4"/>' + text('legend', STEP, 125, 'RMS of the worst angle’s error')
    yield '<path class="largest" d="M5 150 h20"/>' + text('legend', STEP, 155, 'largest error')


def main():
    cells = []
    print('| | tried | all measured | none doubted | RMS there, degrees | largest | of all undoubted |')
    print('|' + '---|' * 7)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        studies = [[pool.submit(study, options(v)) for v in values] for _, values, options in QUANTITIES]
        for (name, values, _), points in zip(QUANTITIES, studies):
            points = [point.result() for point in points]
            print(table_row(name, values, points), flush=True)
            cells.append(panel(name, values, points))
    cells.append(legend())
    groups = [f'  <g transform="translate({66 + i % 2 * 400} {40 + i // 2 * 256})">\n    ' + '\n    '.join(cell) +
              '\n  </g>\n' for i, cell in enumerate(cells)]
    with open(sys.argv[2], 'w', encoding='utf-8') as file:
        file.write(PAGE + ''.join(groups) + '</svg>\n')


main()
