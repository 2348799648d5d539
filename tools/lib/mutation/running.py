"""Runs the tests that reach a fault until one notices it."""

import os
import resource
import subprocess
import tempfile
import time

MEMORY = 6 << 30
PATIENCE = 60  # Seconds on the clock that a run may take beyond its time of the processor: the machine may be busy.


class Run:
    def __init__(self, code, seconds, output):
        self.code, self.seconds, self.output = code, seconds, output


def run_program(program, tests, folder, variables, seconds):
    """Runs the tests named of one program, up to the first that fails. `seconds` of the processor's time are allowed."""
    def limit():
        resource.setrlimit(resource.RLIMIT_CPU, (int(seconds) + 1, int(seconds) + 2))
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        os.nice(19)

    with tempfile.NamedTemporaryFile("w", prefix="tests-", dir=folder) as flags:
        flags.write("--gtest_filter=" + ":".join(tests) + "\n--gtest_fail_fast\n--gtest_brief=1\n")
        flags.flush()
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        process = subprocess.Popen([program, f"--gtest_flagfile={flags.name}"], cwd=folder, preexec_fn=limit, start_new_session=True,
                                   env={**os.environ, **variables}, text=True, errors="replace", stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        try:
            output, _ = process.communicate(timeout=seconds * 3 + PATIENCE)
            code = process.returncode
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, 9)
            output, _ = process.communicate()
            code = "time"
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
    used = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
    return Run(code, used, output)


def list_tests(program):
    said = subprocess.run([program, "--gtest_list_tests"], capture_output=True, text=True, check=True).stdout
    tests, suite = [], ""
    for line in said.splitlines():
        name = line.split("#")[0].rstrip()
        if name.startswith("  "):
            tests.append(suite + name.strip())
        elif name.endswith("."):
            suite = name
    return tests


def study(program, folder, count):
    """Runs each test alone, without a fault. Answers for each its time and which faults it reaches."""
    known = {}
    for test in list_tests(program):
        with tempfile.NamedTemporaryFile(prefix="reached-", dir=folder) as reached:
            run = run_program(program, [test], folder, {"PARLUNE_FAULT": "-1", "PARLUNE_FAULTS_REACHED": reached.name}, 120)
            there = reached.read()
        if run.code != 0:
            print(f"{test} fails without a fault, it is left out:\n{run.output[-1000:]}", flush=True)
            continue
        known[test] = {"seconds": run.seconds, "reaches": [i for i in range(count) if i < len(there) and there[i]]}
    return known


def failed_test(output):
    """The first test that failed; the program may have broken off."""
    for line in output.splitlines():
        if line.startswith("[  FAILED  ] "):
            return line.split()[3].rstrip(",")
    return ""


def try_fault(number, programs, studied, folder, factor):
    """Whether a fault is noticed, and by what; `programs` are pairs of name and path, the most likely to notice first."""
    reached = 0
    begun = time.monotonic()
    for name, path in programs:
        tests = [test for test, known in studied[name].items() if number in known["reaches"]]
        if not tests:
            continue
        reached += len(tests)
        allowed = factor * sum(studied[name][test]["seconds"] for test in tests) + 2
        run = run_program(path, tests, folder, {"PARLUNE_FAULT": str(number)}, allowed)
        if run.code != 0:
            by = failed_test(run.output) or f"ended with {run.code}"
            return {"noticed": f"{name}: {by}", "seconds": time.monotonic() - begun}
    return {"noticed": None, "reached": reached, "seconds": time.monotonic() - begun}
