"""Runs the tests that reach a fault until one notices it."""

import os
import re
import resource
import subprocess
import tempfile
import time
from pathlib import Path

MEMORY = 6 << 30
PATIENCE = 60  # Seconds on the clock that a run may take beyond its time of the processor: the machine may be busy.
CLOSE_TESTS = 12  # So many are tried first: those that reach fewest other faults are most likely to notice.
LONG_TESTS = 4  # So many tests of the real program are tried at all.


class Run:
    def __init__(self, code, seconds, output):
        self.code, self.seconds, self.output = code, seconds, output


class TestProgram:
    """A program of tests that finds its tests by name."""

    def __init__(self, path, folder):
        self.path, self.folder = str(path), folder

    def list(self):
        said = subprocess.run([self.path, "--gtest_list_tests"], capture_output=True, text=True, errors="replace",
                              check=True).stdout
        tests, suite = [], ""
        for line in said.splitlines():
            name = line.split("#")[0].rstrip()
            if name.startswith("  "):
                tests.append(suite + name.strip())
            elif name.endswith("."):
                suite = name
        return tests

    def run(self, tests, variables, seconds):
        """Runs the tests named, up to the first that fails. `seconds` of the processor's time are allowed."""
        with tempfile.NamedTemporaryFile("w", prefix="tests-", dir=self.folder) as flags:
            flags.write("--gtest_filter=" + ":".join(tests) + "\n--gtest_fail_fast\n--gtest_brief=1\n")
            flags.flush()
            return run_limited([self.path, f"--gtest_flagfile={flags.name}"], self.folder, variables, seconds)

    def batches(self, closest):
        """The tests as they should run one after the other, the most promising ones first."""
        return [closest[:CLOSE_TESTS], closest[CLOSE_TESTS:]]

    def failed_test(self, output):
        """The first test that failed; the program may have broken off."""
        for line in output.splitlines():
            if line.startswith("[  FAILED  ] "):
                return line.split()[3].rstrip(",")
        return ""


class DesktopTests:
    """The tests of the real program on a private desktop. They take long, and a busy machine can make one fail."""

    def __init__(self, root, program):
        self.root, self.program = Path(root), program

    def list(self):
        texts = [file.read_text() for file in sorted((self.root / "tests" / "linux").glob("*Test.sh"))]
        return [name for text in texts for name in re.findall(r"(?m)^test_(\w+)\(\)", text)]

    def run(self, tests, variables, _seconds):
        """What fails must fail twice."""
        run = Run(0, 0, "")
        for test in tests:
            for _ in range(2):
                run = self.run_once(test, variables)
                if run.code == 0:
                    break
            else:
                return run
        return run

    def run_once(self, test, variables):
        before = time.monotonic()
        done = subprocess.run([str(self.root / "tests" / "linux" / "run-tests"), str(self.program), test], check=False, text=True,
                              errors="replace", env={**os.environ, **variables}, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return Run(done.returncode, time.monotonic() - before, done.stdout)

    def batches(self, closest):
        return [closest[:LONG_TESTS]]

    def failed_test(self, output):
        match = re.search(r"(?m)^failed (\w+)", output)
        return match[1] if match else ""


def run_limited(command, folder, variables, seconds):
    def limit():
        resource.setrlimit(resource.RLIMIT_CPU, (int(seconds) + 1, int(seconds) + 2))
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    process = subprocess.Popen(command, cwd=folder, preexec_fn=limit, start_new_session=True, env={**os.environ, **variables},
                               text=True, errors="replace", stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT)
    try:
        output, _ = process.communicate(timeout=seconds * 3 + PATIENCE)
        code = process.returncode
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, 9)
        output, _ = process.communicate()
        code = "time"
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return Run(code, after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime, output)


def study(program, folder, count):
    """Runs each test alone, without a fault. Answers for each its time and which faults it reaches."""
    known = {}
    for test in program.list():
        with tempfile.NamedTemporaryFile(prefix="reached-", dir=folder) as reached:
            run = program.run([test], {"PARLUNE_FAULT": "-1", "PARLUNE_FAULTS_REACHED": reached.name}, 120)
            there = reached.read()
        if run.code != 0:
            print(f"{test} fails without a fault, it is left out:\n{run.output[-1000:]}", flush=True)
            continue
        known[test] = {"seconds": run.seconds, "reaches": [i for i in range(count) if i < len(there) and there[i]]}
    return known


def try_fault(number, programs, studied, factor):
    """Whether a fault is noticed, and by what; `programs` are pairs of name and program, the most likely to notice first."""
    reached = 0
    begun = time.monotonic()
    for name, program in programs:
        known = studied[name]
        tests = [test for test in known if number in known[test]["reaches"]]
        reached += len(tests)
        tests.sort(key=lambda test: (len(known[test]["reaches"]), known[test]["seconds"]))
        for batch in filter(None, program.batches(tests)):
            allowed = factor * sum(known[test]["seconds"] for test in batch) + 2
            run = program.run(batch, {"PARLUNE_FAULT": str(number)}, allowed)
            if run.code != 0:
                by = program.failed_test(run.output) or f"ended with {run.code}"
                return {"noticed": f"{name}: {by}", "seconds": time.monotonic() - begun}
    return {"noticed": None, "reached": reached, "seconds": time.monotonic() - begun}
