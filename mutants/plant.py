#!/usr/bin/env python3
"""Plants faults in a copy of src/, one by one, and lists those that no test catches.

The copy, and all that is built, lies in the folder --build. First the digests' test is run, then for survivors the
other tests of the library. What does not compile, or compiles to the same program, is drawn again, and so are the
survivors of which explained.txt tells why no result can show them; they are listed all the same. The run fails if
fewer than 95 % of the faults are caught.
"""
import argparse
import hashlib
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import time

sys.dont_write_bytecode = True  # nothing is left beside the sources
from faults import faults  # noqa: E402

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OTHER_PROGRAMS = ['inside_tests', 'measurement_tests', 'record_file_tests', 'memory_fault_tests']
LEFT_OUT = 'Accuracy|hardened|installed|phone|exported|NOT_BUILT|Kept/'


def limit():
    resource.setrlimit(resource.RLIMIT_AS, (6 << 30, resource.RLIM_INFINITY))


def run(command, seconds):
    """The exit code and the output; a fault may hang."""
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True,
                          preexec_fn=limit, errors='replace') as process:
        try:
            output, _ = process.communicate(timeout=seconds)
            return process.returncode, output
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.communicate()
            return -1, 'took too long'


def write_if_other(path, content):
    """Keeps the time of what is the same, so that it is not built again."""
    if os.path.exists(path):
        with open(path, 'rb') as file:
            if file.read() == content:
                return
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, 'wb') as file:
        file.write(content)


def copy_sources(copy):
    listed = subprocess.run(['git', '-C', ROOT, 'ls-files', '-z', '-co', '--exclude-standard'], check=True,
                            stdout=subprocess.PIPE).stdout.decode().split('\0')
    for name in filter(None, listed):
        path = os.path.join(ROOT, name)
        if os.path.isfile(path):
            with open(path, 'rb') as file:
                write_if_other(os.path.join(copy, name), file.read())
            shutil.copymode(path, os.path.join(copy, name))


def collapsed(text):
    return ' '.join(text.split())


class Fault:
    def __init__(self, name, text, change):
        start, end, replacement = change
        self.name, self.text = name, text[:start] + replacement + text[end:]
        self.line = text.count('\n', 0, start) + 1
        first, last = text.rfind('\n', 0, start) + 1, text.find('\n', end)
        self.old = collapsed(text[first:last])
        self.new = collapsed(text[first:start] + replacement + text[end:last])

    def __str__(self):
        return f'{self.name}:{self.line}: {self.old}  =>  {self.new}'

    def is_explained(self, explanations):
        return any(name == self.name and old == self.old and new in (self.new, '*') for name, old, new in explanations)


def read_explanations():
    """Lines of FILE: OLD LINE => NEW LINE, or => * for every change of the line; the reason stands above them."""
    with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), 'explained.txt'), encoding='utf-8') as file:
        lines = [line.strip() for line in file if line.strip() and not line.startswith('#')]
    return [re.fullmatch(r'(\S+): (.*) => ?(.*)', line).groups() for line in lines]


class Tests:
    def __init__(self, copy, build, jobs):
        self.build, self.jobs = build, jobs
        subprocess.run(['cmake', '-G', 'Ninja', '-S', copy, '-B', build, '--log-level=ERROR', '-DORVEX_WERROR=OFF',
                        '-DCMAKE_BUILD_TYPE=Release', '-DCMAKE_CXX_FLAGS_RELEASE=-O1'], check=True,
                       stdout=subprocess.DEVNULL)
        self.program = os.path.join(build, 'tests', 'digest_tests')
        for targets in (['digest_tests'], OTHER_PROGRAMS):
            if not self.compiles(targets):
                sys.exit('The copy does not build: ninja -C ' + build)
        start = time.monotonic()
        self.seconds, self.left_out = 600, LEFT_OUT
        if run([self.program], self.seconds)[0] != 0:
            sys.exit('Without any fault digest_tests fails')
        while failed := self.catching():
            print(f'Left out, as it fails without any fault: {failed}', flush=True)
            self.left_out += '|^' + re.escape(failed) + '$'
            if self.left_out.count('$') > 3:
                sys.exit('Too many tests fail without any fault')
        self.seconds = 30 + 5 * (time.monotonic() - start)

    def compiles(self, targets):
        return run(['ninja', '-C', self.build, '-j', str(self.jobs)] + targets, 600)[0] == 0

    def checksum(self):
        with open(self.program, 'rb') as file:
            return hashlib.sha256(file.read()).hexdigest()

    def catching(self):
        """What catches the fault that is built; None if nothing does."""
        code, output = run([self.program, '--gtest_fail_fast', '--gtest_brief=1'], self.seconds)
        if code != 0:
            found = re.search(r'kept against measured: (.*)', output)
            return found.group(1) if found else f'digest_tests ends with {code} {collapsed(output)[-60:]}'
        if not self.compiles(OTHER_PROGRAMS):
            return 'the build of the other tests'
        # Once more: another program on this machine may have been in its way.
        return self.failing() and self.failing()

    def failing(self):
        """The first of the other tests that fails."""
        code, output = run(['ctest', '--test-dir', self.build, '-j', str(self.jobs), '-R', r'^[A-Z][A-Za-z]*\.', '-E',
                            self.left_out, '--stop-on-failure', '--timeout', '300'], self.seconds)
        if code == 0:
            return None
        failed = re.findall(r'\d+ - (\S+) \((?!Skipped)', output)
        return failed[0] if failed else 'ctest: ' + collapsed(output)[-60:]


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--build', required=True)
    parser.add_argument('--jobs', type=int, default=2)
    parser.add_argument('--seed', type=int, default=1)
    parser.add_argument('--count', type=int, default=100)
    arguments = parser.parse_args()
    copy = os.path.abspath(os.path.join(arguments.build, 'source'))
    copy_sources(copy)
    tests = Tests(copy, os.path.abspath(os.path.join(arguments.build, 'build')), arguments.jobs)
    unharmed, explanations = tests.checksum(), read_explanations()

    texts = {}
    for folder, _, names in os.walk(os.path.join(ROOT, 'src')):
        for name in names:
            if name.endswith(('.cpp', '.h')):
                path = os.path.join(folder, name)
                with open(path, encoding='utf-8') as file:
                    texts[os.path.relpath(path, ROOT)] = file.read()
    # A line of the source is drawn, then one of its faults: long tables are no more likely than short formulas.
    places = {}
    for name, text in sorted(texts.items()):
        for change in faults(text):
            places.setdefault((name, text.count('\n', 0, change[0])), []).append(change)
    chance, keys, tried = random.Random(arguments.seed), sorted(places), set()
    caught, explained, gaps, drawn_again = 0, [], [], 0
    while caught + len(gaps) < arguments.count:
        key = chance.choice(keys)
        change = chance.choice(places[key])
        if (key[0], change) in tried:
            continue
        tried.add((key[0], change))
        fault = Fault(key[0], texts[key[0]], change)
        write_if_other(os.path.join(copy, fault.name), fault.text.encode())
        if not tests.compiles(['digest_tests']) or tests.checksum() == unharmed:
            drawn_again += 1
        else:
            catcher = tests.catching()
            number = caught + len(gaps) + 1
            if catcher:
                caught += 1
                print(f'{number}: {fault}\n    caught: {catcher[:160]}', flush=True)
            elif fault.is_explained(explanations):
                explained.append(fault)
                print(f'-: {fault}\n    not caught, and explained: drawn again', flush=True)
            else:
                gaps.append(fault)
                print(f'{number}: {fault}\n    NOT CAUGHT', flush=True)
        write_if_other(os.path.join(copy, fault.name), texts[fault.name].encode())
    print(f'\nSeed {arguments.seed}: {arguments.count} faults, {caught} caught, {len(gaps)} not caught; '
          f'drawn again {len(explained)} that no result can show, {drawn_again} without compilation or effect')
    for fault in gaps:
        print('  ' + str(fault))
    return 0 if caught >= 0.95 * arguments.count else 1


if __name__ == '__main__':
    sys.exit(main())
