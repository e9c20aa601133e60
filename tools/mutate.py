#!/usr/bin/env python3
"""Breaks the library in one place at a time and reports which breaks the tests let pass.

    tools/mutate.py --sample 300 --seed 1 [--jobs 1] [--only src/iir src/fir] [--log mutants.log]

A mutant is a source file of src/ with one operator, comparison, literal or function name changed. It is
built in a copy of the tree and run against the unit tests (those of its own folder first), then against
the hosts, the Python oracles, and the unit tests under the address and undefined-behaviour sanitizers, until
one fails; a test that doesn't end counts as failed.
Limits are in processor time, so that a busy machine kills no mutant. Mutants that do not compile, and those
of which the compiler makes the same code as of the original (Papadakis et al. 2015), are replaced by others;
sizes of arrays and reservations are left alone.
The exit status is 1 when fewer than 95 % were killed.
"""

import argparse
import concurrent.futures
import hashlib
import pathlib
import queue
import random
import re
import resource
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
TEST_PROCESSOR_SECONDS = 120
TEST_BYTES = 8 << 30
LONGEST_SECONDS = 3600
NOT_COUNTED = ("compiler", "same code")

# clang-format puts blanks around binary operators and none inside template brackets, before pointers or
# after signs, so a pattern with blanks finds the operators alone.
SWAPS = [
    (r" \+ ", " - "), (r" - ", " + "), (r" \* ", " / "), (r" / ", " * "), (r" % ", " * "),
    (r" \+= ", " -= "), (r" -= ", " += "), (r" \*= ", " /= "), (r" /= ", " *= "),
    (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "),
    (r" == ", " != "), (r" != ", " == "), (r" && ", " || "), (r" \|\| ", " && "),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"\bstd::min\b", "std::max"), (r"\bstd::max\b", "std::min"),
    (r"\bstd::sin\b", "std::cos"), (r"\bstd::cos\b", "std::sin"),
    (r"\bstd::sinh\b", "std::cosh"), (r"\bstd::cosh\b", "std::sinh"),
    (r"\bstd::floor\b", "std::ceil"), (r"\bstd::ceil\b", "std::floor"),
    (r"\.real\(\)", ".imag()"), (r"\.imag\(\)", ".real()"),
    (r"(?<=[ (])-(?=[A-Za-z_0-9(])", ""), (r"!(?=[A-Za-z_(])", ""),
]
NUMBER = re.compile(r"(?<![\w.])(\d+\.\d+(?:e-?\d+)?|\d+)(?![\w.])")

# Where a larger number only makes a block larger than needed, which no test can see.
BLOCK_SIZE = re.compile(r"^\s*(?!return\b)(?:(?:static|constexpr|const) )*[\w:]+ \w+(?:\[[^]]*\])+|\.reserve\(.*")


def code_of(line):
    """The line without its comment; empty for lines that hold no expression."""
    if re.match(r"\s*(//|#|using |namespace |template |static_assert)", line):
        return ""
    return line.split("//")[0]


def changed_number(text):
    if "." in text or "e" in text:
        return "1.0" if float(text) == 0.0 else f"({text} * 1.5)"
    return str(int(text) + 1)


def spans_of(pattern, code):
    return [match.span() for match in re.finditer(pattern, code)]


def within(spans, at):
    return any(start < at < end for start, end in spans)


def mutants_of(path):
    """All mutants of a file: (path, line number, column, end, replacement)."""
    for number, line in enumerate(path.read_text().splitlines()):
        code = code_of(line)
        texts = spans_of(r'"[^"]*"', code)
        for pattern, replacement in SWAPS:
            for start, end in spans_of(pattern, code):
                if not within(texts, start):
                    yield path, number, start, end, replacement
        left_alone = texts + spans_of(BLOCK_SIZE, code)
        for start, end in spans_of(NUMBER, code):
            if not within(left_alone, start):
                yield path, number, start, end, changed_number(code[start:end])


def limit_processor_time():
    """For a mutant that never stops."""
    resource.setrlimit(resource.RLIMIT_CPU, (TEST_PROCESSOR_SECONDS, TEST_PROCESSOR_SECONDS))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def limit_resources():
    """For a mutant that never stops, or never stops to allocate. No program under the address sanitizer
    lives in so few addresses."""
    limit_processor_time()
    resource.setrlimit(resource.RLIMIT_AS, (TEST_BYTES, TEST_BYTES))


def suites_beside(path):
    """A filter for the test suites of the folder of tests/ that mirrors the source's folder."""
    folder = ROOT / "tests" / path.relative_to(ROOT / "src").parent
    suites = {suite for test in folder.glob("test_*.cpp")
              for suite in re.findall(r"^TEST\((\w+),", test.read_text(), re.MULTILINE)}
    return ":".join(f"{suite}.*" for suite in sorted(suites))


def unit_tests(build):
    """The programs of unit tests: of the core in tests/, of each product in a folder of its own."""
    built = [path for pattern in ("trelvanix_*tests", "*/trelvanix_*tests")
             for path in (build / "tests").glob(pattern) if path.is_file()]
    if not built:
        sys.exit(f"no unit tests below {build}")
    return sorted(built)


class Workshop:
    """A copy of the tree with a build folder, where one mutant at a time is made and tried."""

    def __init__(self, folder):
        self.root = pathlib.Path(folder) / "tree"
        subprocess.run(["git", "clone", "-q", str(ROOT), str(self.root)], check=True)
        self.build = self.configured("mutants")
        self.sanitized = self.configured("sanitized", "-DTRELVANIX_SANITIZE=address,undefined")
        if not self.make(self.build, "all"):
            sys.exit("the unchanged tree does not build")
        self.unchanged_code = {}
        if killer := self.killer("*"):
            sys.exit(f"the unchanged tree fails: {killer}")
        self.unchanged_code = self.code()

    def configured(self, name, *options):
        """A new build folder."""
        build = self.root / "build" / name
        self.run(["cmake", "-G", "Ninja", "-S", str(self.root), "-B", str(build),
                  "-DCMAKE_BUILD_TYPE=Release", "-DCMAKE_CXX_FLAGS_RELEASE=-O1", "-DTRELVANIX_BUILD_TESTS=ON",
                  *options])
        return build

    def run(self, command, limits=limit_resources):
        try:
            return subprocess.run(command, cwd=self.root, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL, timeout=LONGEST_SECONDS, check=False,
                                  preexec_fn=limits).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def make(self, build, target):
        return self.run(["cmake", "--build", str(build), "--parallel", "1", "--target", target],
                        limit_processor_time)

    def unit_tests_pass(self, build, suites, limits=limit_resources):
        return all(self.run([str(program), f"--gtest_filter={suites}", "--gtest_fail_fast", "--gtest_brief=1"], limits)
                   for program in unit_tests(build))

    def code(self):
        """The object files of the library, as digests."""
        return {path: hashlib.sha256(path.read_bytes()).digest()
                for path in (self.build / "src").rglob("*.o")}

    def killer(self, first_suites):
        """What fails first, "compiler" for a mutant that doesn't build, "same code" for one that is the
        original to the compiler, None for one that survives."""
        if not self.make(self.build, "unit_tests"):
            return "compiler"
        if self.code() == self.unchanged_code:
            return "same code"
        for suites in (first_suites, "*"):
            if suites and not self.unit_tests_pass(self.build, suites):
                return "unit tests"
        if not self.make(self.build, "all"):
            return "compiler"
        for group in ("abi", "peer"):
            if not self.run(["ctest", "--test-dir", str(self.build), "-R", rf"^{group}\.", "--stop-on-failure",
                             "--timeout", str(LONGEST_SECONDS)]):
                return group
        if not self.make(self.sanitized, "unit_tests"):
            return "compiler"
        if not self.unit_tests_pass(self.sanitized, "*", limit_processor_time):
            return "sanitizers"
        return None

    def try_mutant(self, mutant):
        """As killer, for the mutant; the copy is as before afterwards."""
        path, number, start, end, replacement = mutant
        target = self.root / path.relative_to(ROOT)
        original = target.read_text()
        lines = original.splitlines(keepends=True)
        lines[number] = lines[number][:start] + replacement + lines[number][end:]
        target.write_text("".join(lines))
        try:
            return self.killer(suites_beside(path))
        finally:
            target.write_text(original)


def describe(mutant):
    path, number, start, end, replacement = mutant
    line = path.read_text().splitlines()[number]
    return (f"{path.relative_to(ROOT)}:{number + 1}: {line.strip()}"
            f"   [{line[start:end].strip()} -> {replacement.strip() or 'nothing'}]")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--sample", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--only", nargs="+", default=["src"], metavar="PATH",
                        help="folders or files, relative to the tree")
    parser.add_argument("--log", default="mutants.log")
    arguments = parser.parse_args()

    files = [path for only in arguments.only
             for path in ([ROOT / only] if (ROOT / only).is_file() else
                          sorted((ROOT / only).rglob("*.cpp")) + sorted((ROOT / only).rglob("*.h")))]
    mutants = [mutant for path in files for mutant in mutants_of(path)]
    random.Random(arguments.seed).shuffle(mutants)
    waiting = iter(mutants)
    print(f"{len(mutants)} possible mutants in {len(files)} files, sample of {arguments.sample}")

    tally = {}
    survivors = []
    with tempfile.TemporaryDirectory() as folder, open(arguments.log, "w") as log:
        workshops = queue.SimpleQueue()
        for job in range(arguments.jobs):
            workshops.put(Workshop(pathlib.Path(folder) / str(job)))

        def work(mutant):
            workshop = workshops.get()
            try:
                return mutant, workshop.try_mutant(mutant)
            finally:
                workshops.put(workshop)

        with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
            tried = 0
            running = set()
            while tried < arguments.sample:
                while len(running) < arguments.jobs and (mutant := next(waiting, None)):
                    running.add(pool.submit(work, mutant))
                if not running:
                    break
                done, running = concurrent.futures.wait(
                    running, return_when=concurrent.futures.FIRST_COMPLETED)
                for future in done:
                    mutant, killer = future.result()
                    print(f"{killer or 'SURVIVED'}: {describe(mutant)}", file=log, flush=True)
                    if killer in NOT_COUNTED:
                        continue
                    tried += 1
                    tally[killer] = tally.get(killer, 0) + 1
                    if killer is None:
                        survivors.append(mutant)
                    print(f"\r{tried} of {arguments.sample}, {len(survivors)} survive", end="",
                          flush=True)
    print()
    for killer, count in sorted(tally.items(), key=str):
        print(f"  {killer or 'survived'}: {count}")
    for mutant in survivors:
        print(describe(mutant))
    total = sum(tally.values())
    killed = total - len(survivors)
    print(f"killed {killed} of {total}, {100.0 * killed / max(total, 1):.1f} %")
    return 0 if killed >= 0.95 * total else 1


if __name__ == "__main__":
    sys.exit(main())
