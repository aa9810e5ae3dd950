#!/usr/bin/env python3
"""Names of tests: what a list of failures shows has to be read alone.

    testnames.py FOLDER     prints one line per violation; exit 1 when there is one

A test's name is CamelCase of at least two words, which neither begins nor ends with a preposition, an article or a conjunction.
It stands once in its suite. A suite's name does not end in Test, and does not begin with Of or an article. The tests of a
suite have one fixture, or none: the test framework refuses others when they run. Tests with a parameter are named after it by a
function: the framework's own names are numbers. Every proof of a mutant has to match a test.
Whether a name says what its test checks is for the reviewer.
"""
import os
import re
import runpy
import sys

PREPOSITIONS = set("""About Above Across After Against Along Among Around As At Before Behind Below Beneath Beside Besides Between
    Beyond By Despite During Except For From In Inside Into Like Near Of On Onto Out Outside Over Past Per Since Than Through
    Throughout To Toward Towards Under Underneath Until Unto Upon Via With Within Without""".split())
ARTICLES = {"A", "An", "The"}
CONJUNCTIONS = set("""Although And Because But If Lest Nor Once Or So That Though Unless What When Whenever Where Wherever Whereas
    Which While Who Whom Whose Yet""".split())
NO_BEGINNING = PREPOSITIONS | ARTICLES | CONJUNCTIONS
# At the end these are adverbs: FadesOut, RunsTheHandlerOnce.
NO_END = NO_BEGINNING - {"Once", "Out", "So", "Yet"}

MACRO = re.compile(r"^[ \t]*(?P<kind>(?:TYPED_)?TEST(?:_F|_P)?)\(\s*(?P<suite>\w+)\s*,\s*(?P<name>\w+)\s*\)", re.MULTILINE)
INSTANTIATION = re.compile(r"^[ \t]*INSTANTIATE_TEST_SUITE_P\(", re.MULTILINE)
BRACKETS = {"(": 1, "[": 1, "{": 1, ")": -1, "]": -1, "}": -1}
NAMED_ARGUMENTS = 4  # the prefix, the suite, the values, the function that names them
CAMEL_CASE = re.compile(r"(?:[A-Z][a-z0-9]*)+")
SUITE = re.compile(r"(?P<end>Tests?$)|^(?P<beginning>Of|An?|The)(?=[A-Z]|$)")


def words(name):
    """The words of a name in CamelCase; a single capital letter is a word of its own."""
    return re.findall(r"[A-Z][a-z0-9]*", name)


def name_violations(name):
    if not CAMEL_CASE.fullmatch(name):
        return ["is not CamelCase"]
    parts = words(name)
    found = []
    if len(parts) < 2:
        found.append("has one word only")
    if parts[0] in NO_BEGINNING:
        found.append(f"begins with {parts[0]}")
    if parts[-1] in NO_END:
        found.append(f"ends with {parts[-1]}")
    return found


def suite_violations(suite):
    found = []
    if not CAMEL_CASE.fullmatch(suite):
        found.append("is not CamelCase")
    if match := SUITE.search(suite):
        found.append("ends in Test" if match["end"] else f"begins with {match['beginning']}")
    return found


def sources_of(top):
    """(path, text) of every source of a test in C++."""
    for folder, names, files in os.walk(os.path.join(top, "tests")):
        names.sort()
        for file in sorted(files):
            if not file.endswith((".cpp", ".h")):
                continue
            path = os.path.join(folder, file)
            with open(path, encoding="utf-8") as source:
                yield os.path.relpath(path, top), source.read()


def line_of(text, match):
    return text.count("\n", 0, match.start()) + 1


def tests_of(top):
    """[(path, line, suite, name, macro)] of every test in C++."""
    return [(path, line_of(text, match), match["suite"], match["name"], match["kind"])
            for path, text in sources_of(top) for match in MACRO.finditer(text)]


def count_of_arguments(text):
    """How many arguments there are before the bracket that closes them, of a macro whose arguments begin the text."""
    depth, count, quoted, before = 0, 1, "", ""
    for letter in text:
        if quoted:
            quoted = "" if letter == quoted and before != "\\" else quoted
        elif letter in "\"'":
            quoted = letter
        elif letter in BRACKETS:
            depth += BRACKETS[letter]
            if depth < 0:
                break
        elif letter == "," and depth == 0:
            count += 1
        before = "" if before == "\\" else letter
    return count


def parameter_violations(top):
    return [f"{path}:{line_of(text, match)}: no function names the parameters"
            for path, text in sources_of(top) for match in INSTANTIATION.finditer(text)
            if count_of_arguments(text[match.end():]) < NAMED_ARGUMENTS]


def room_of(path):
    """The tests of a room are one program."""
    return os.path.basename(os.path.dirname(path))


def other_tests(top):
    """The names of the tests that are not in C++: `add_test(NAME ...)`, and a fuzz target each."""
    names = set()
    for room in "tests", "fuzz":
        for folder, _, files in os.walk(os.path.join(top, room)):
            if "CMakeLists.txt" not in files:
                continue
            with open(os.path.join(folder, "CMakeLists.txt"), encoding="utf-8") as file:
                text = file.read()
            names.update(re.findall(r"add_test\(NAME ([\w.-]+)", text))
            names.update(f"fuzz.{name}" for name in re.findall(r"^wardlock_fuzz_target\((\w+)", text, re.MULTILINE))
    return names


def mutants_of(top):
    """What tests/robustness/mutants/run defines, or None when it is missing."""
    path = os.path.join(top, "tests/robustness/mutants/run")
    if not os.path.exists(path):
        return None
    import_path = list(sys.path)
    sys.modules.pop("mutants", None)
    try:
        return runpy.run_path(path)
    finally:
        sys.path[:] = import_path
        sys.modules.pop("mutants", None)


def proof_violations(top, tests):
    """Proofs of mutants that match no test. The forms of a proof are described at proof_named in tests/robustness/mutants/run."""
    run = mutants_of(top)
    if not run:
        return []
    others = other_tests(top)

    def matches(proof):
        kind, _, rest = proof.partition(".")
        first, _, suite = rest.partition("/")
        if kind in run["SUITES"]:
            fault = run["FAULTS"].get(first)
            return fault and any(where == run["SUITES"][kind] and name.startswith(fault) for _, _, where, name, _ in tests)
        if kind == run["TESTS"]:
            return any(room_of(path) == first and re.fullmatch(suite, where) for path, _, where, _, _ in tests)
        return proof in run["OTHERS"] and any(re.search(run["OTHERS"][proof][0], name) for name in others)

    return [f"{mutant.name}: no test matches the proof {proof}"
            for mutant in run["ALL"] for proof in mutant.proofs if not matches(proof)]


def violations(top):
    tests = tests_of(top)
    found, places, kinds = [], {}, {}
    for path, line, suite, name, kind in tests:
        place = f"{path}:{line}: "
        found += [f"{place}the suite {suite} {what}" for what in suite_violations(suite)]
        found += [f"{place}the test {suite}.{name} {what}" for what in name_violations(name)]
        first = places.setdefault((room_of(path), suite, name), place)
        if first != place:
            found.append(f"{place}the test {suite}.{name} has the name of another in {first[:-2]}")
        if kinds.setdefault((room_of(path), suite), kind) != kind:
            found.append(f"{place}the suite {suite} has tests by {kind} and by {kinds[room_of(path), suite]}")
    return found + parameter_violations(top) + proof_violations(top, tests)


if __name__ == "__main__":
    lines = violations(sys.argv[1])
    print("\n".join(lines))
    sys.exit(1 if lines else 0)
