#!/usr/bin/env python3
"""Makes up a week of three stations: 10,000 pairs out of a few hundred rendered pictures, in DIR/LIST.csv. Station B's
Ry drifts by 0.12 degrees a day; on the fourth day something smears the lens before station C's slave cameras.
Takes the program orvex-align and DIR; the same week every time."""
import csv
import datetime
import json
import math
import os
import random
import subprocess
import sys

ROWS, DAYS, DIRTY_DAY = 10000, 7, 3  # days from 0
START = datetime.datetime(2026, 11, 16, 6)
AXES = ('rx', 'ry', 'rz')


def render(program, folder, pairs, seed, ry=0.0):
    """Renders pairs and returns each one's folder and poses."""
    subprocess.run([program, 'render', '--out', folder, '--count', str(pairs), '--range', '0.35', '--ry', str(ry),
                    '--master-range', '0.25', '--noise', '2', '--seed', str(seed)], stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, check=True)
    found = []
    for name in sorted(os.listdir(folder)):
        if os.path.isdir(os.path.join(folder, name)):
            with open(os.path.join(folder, name, 'truth.json'), encoding='utf-8') as file:
                truth = json.load(file)
            poses = [truth[camera]['pose_deg'] for camera in ('master', 'slave')]
            found.append((f'{os.path.basename(folder)}/{name}', *poses))
    return found


def smear(path, target, strength):
    """Copies a picture of 1728 x 972 pixels with a soft grey spot at the frame's right side."""
    with open(path, 'rb') as file:
        data = bytearray(file.read())
    first = len(data) - 1728 * 972
    for y in range(400, 600):
        for x in range(1380, 1540):
            share = strength * math.exp(-((x - 1460) ** 2 / 900 + (y - 500) ** 2 / 2500))
            place = first + y * 1728 + x
            data[place] = round(data[place] * (1 - share) + 130 * share)
    with open(target, 'wb') as file:
        file.write(data)


def main(program, out):
    dirt, draw = random.Random(3), random.Random(7)
    pools = {'A': [render(program, f'{out}/A', 40, 1)] * DAYS, 'C': [render(program, f'{out}/C', 40, 2)] * DAYS,
             'B': [render(program, f'{out}/B{day}', 15, 10 + day, round(0.12 * day, 2)) for day in range(DAYS)]}
    for folder, _, _ in pools['C'][0]:
        smear(f'{out}/{folder}/slave.pgm', f'{out}/{folder}/smeared.pgm', dirt.uniform(0.24, 0.34))
    times = sorted(draw.randrange(DAYS) * 86400 + draw.randrange(16 * 3600) for _ in range(ROWS))
    with open(f'{out}/LIST.csv', 'w', encoding='utf-8', newline='') as file:
        table = csv.writer(file)
        table.writerow(['id', 'station', 'time', 'master', 'slave', *(f'true_{axis}_deg' for axis in AXES)])
        for number, seconds in enumerate(times, 1):
            day, station = seconds // 86400, draw.choice('ABC')
            master, slave = draw.choice(pools[station][day]), draw.choice(pools[station][day])
            picture = 'smeared.pgm' if station == 'C' and day >= DIRTY_DAY else 'slave.pgm'
            table.writerow([f'M{number:05}', station, START + datetime.timedelta(seconds=seconds),
                            f'{master[0]}/master.pgm', f'{slave[0]}/{picture}',
                            *(round(slave[2][axis] - master[1][axis], 4) for axis in AXES)])


main(*sys.argv[1:])
