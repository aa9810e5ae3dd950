#!/usr/bin/env python3
"""Two Settings on one preferences document, driven at random, with an observer.

Both are driven by script, at the same time, through all that a user can do; a program over the settings library
observes the changes as the enforcing half does; a watcher is notified of every change of the document. Now and then
all stop, and the following has to be true:

  - the document was replaced and never touched otherwise, was whole whenever the watcher looked, and contains what it contained
    beyond the pages' keys,
  - every replacement was announced, once, and every announcement has arrived, once and in the order of its sender, at
    each of the others,
  - the observer's view, and the first page of both Settings, show the document as it lies on the disk,
  - no temporary file is left, no descriptor, and no memory that grows with the actions.

The two may overwrite each other's change: nothing is locked. When one deletes an account that the other shows, the
other's page ends its process with a range exception, reported in the log; it is then started again, and counted. In the
first and last tenth of a run this is let happen. In between deletions wait until no side shows an account, and nothing
may end a process, so that its memory can be watched for long.

The same seed takes the same decisions on the same pictures; what the two do at once meets as the machine lets it.
"""
import argparse
import json
import os
import plistlib
import sys
import time

import judges
import processes
import world
from listener import MARKER, Failure, Observer, require
from side import Side

# Rounds between stops: so many, and no more than so many stops in a long run.
FEWEST_ROUNDS = 15
MOST_STOPS = 1000
# For the first announcement to be received, before there is another one.
SECONDS_FOR_EARS = 5


class Soak:
    def __init__(self, arguments):
        self.arguments = arguments
        self.world = world.World(arguments.programs)
        self.writes = self.stops = self.mails = self.ends = 0
        self.runs = []
        try:
            watcher = os.path.join(os.path.dirname(os.path.abspath(__file__)), "watcher.py")
            self.watcher = self.world.start(sys.executable, "-B", watcher, self.world.document)
            require(self.watcher.line() == "ready", "the watcher does not start")
            self.observer = Observer(self.world)
            self.sides = [Side(self.world, name, 2 * arguments.seed + number)
                          for number, name in enumerate(("the first", "the second"))]
            self.wait_for_ears((*self.sides, self.observer))
        except BaseException:
            self.world.print_last_words()
            self.world.end()
            raise

    def run(self):
        rounds = max(FEWEST_ROUNDS, self.arguments.actions // MOST_STOPS)
        while self.sides[0].actions < self.arguments.actions:
            for _ in range(rounds):
                self.round()
            self.stop()
        for side in self.sides:
            self.judge_life(side)
            require(side.process.end() == 0, f"{side.name} does not end well")
        self.judge_growth(self.observer, self.sides[0].actions)
        require(self.observer.process.end() == 0, "the observer does not end well")
        require(self.watcher.end() == 0, "the watcher does not end well")

    def is_calm(self):
        done = self.sides[0].actions / self.arguments.actions
        return 0.1 <= done < 0.9

    def round(self):
        """Both do something, at the same time."""
        calm = self.is_calm()
        for side, other in self.pairs():
            side.user.may_delete = not calm or not other.shows_account()
            side.choose()
        deleting = [side for side in self.sides if side.deletes()][:1] if calm else []
        ended = self.act(deleting or self.sides)
        if ended:
            require(not calm, f"a page of {ended[0].name} has ended it, and no account had gone")
            self.start_again(ended)
        for side, other in self.pairs():
            if side in deleting:
                other.receive(len(side.own))

    def act(self, acting):
        """Who was ended by a page over it."""
        for side in acting:
            side.begin()
        return [side for side in acting if not self.succeeds(side.finish)]

    def pairs(self):
        one, two = self.sides
        return (one, two), (two, one)

    def succeeds(self, call):
        try:
            call()
            return True
        except processes.Ended:
            return False

    def start_again(self, ended):
        for side in ended:
            side.ended()
            self.judge_life(side)
        self.ends += len(ended)
        reports = self.world.reports()
        require(reports == self.ends, f"{self.ends} processes were ended and the log reports {reports}")
        self.agree(ended)
        for side in ended:
            side.start()
        self.wait_for_ears(ended)

    def wait_for_ears(self, newcomers):
        """A process that begins to observe waits for a busy bus only so long, and then continues without notifications yet."""
        deadline = time.monotonic() + processes.PATIENCE
        while deaf := [one for one in newcomers if not one.markers]:
            require(time.monotonic() < deadline, f"{deaf[0].name} receives nothing")
            self.world.run("announce", MARKER["key"])
            for one in newcomers:
                one.listen(SECONDS_FOR_EARS)
        for one in (*self.sides, self.observer):
            while not one.markers:
                one.listen()
            one.markers = 0

    def stop(self):
        """Everybody comes to rest; then all of them have to agree."""
        while ended := [side for side in self.sides if not self.succeeds(side.home)]:
            self.start_again(ended)
        self.agree()
        settings = self.world.read()
        for side in self.sides:
            self.check_picture(side, settings)
            side.rest()
        self.observer.rest()
        self.stops += 1
        self.mails += self.world.empty_outbox()

    def agree(self, ended=()):
        """All receive what was announced since the last time; then nothing more may arrive."""
        self.watched, = self.watcher.ask("?")
        require(not self.watched["problems"], "\n".join(self.watched["problems"]))
        writes = self.watched["writes"] - self.writes
        self.writes += writes
        self.observer.receive(writes)
        for side in self.alive(ended):
            side.receive(writes - len(side.own))
        self.check_document(self.observer.view())
        # Last, for it makes everybody read the document again.
        self.world.run("announce", MARKER["key"])
        for listener in (*self.alive(ended), self.observer):
            listener.hear_marker()
        announced = len(self.observer.received)
        require(announced == writes, f"{writes} writes were made, and {announced} announcements")
        self.check_order(ended)
        self.observer.received = []
        for side in self.sides:
            side.own, side.received = [], []

    def alive(self, ended):
        return [side for side in self.sides if side not in ended]

    def check_document(self, view):
        require(not self.world.leftovers(), f"left beside the document: {self.world.leftovers()}")
        data = self.world.bytes()
        require(not judges.document_problem(data), f"the document is not whole: {judges.document_problem(data)}")
        settings = plistlib.loads(data)
        for key, value in world.FOREIGN.items():
            require(settings.get(key) == value, f"{key} is now {settings.get(key)}")
        require(view["settings"].encode() == data, f"the observer has {view['settings']}, on the disk is {data}")
        enabled = next((record for record in settings["kAccounts"] if record["kAccountEnabled"]), None)
        account = plistlib.loads(view["account"].encode()) if "account" in view else None
        require(account == enabled, f"the observer's account is {account}, not {enabled}")

    def check_order(self, ended):
        for side, other in self.pairs():
            if side in ended and other not in ended:
                # It could no longer report what it did last; the other has received that.
                side.own += other.received[len(side.own):]
            # It could no longer report what it received last either.
            sent = side.own[:len(other.received)] if other in ended else side.own
            wrong = judges.order_problem(sent, other.received)
            require(not wrong, f"of what {side.name} announced {other.name} received otherwise: {wrong}")
        if len(ended) < 2:
            wrong = judges.merge_problem(*(side.own for side in self.sides), self.observer.received)
            require(not wrong, f"of what both announced the observer received otherwise: {wrong}")

    def check_picture(self, side, settings):
        sections = side.picture["page"]["sections"]
        shown = [row["label"] for section in sections if section.get("header") == "Accounts" for row in section["rows"]]
        stored = [record["kAccountName"] for record in settings["kAccounts"]]
        require(shown == stored, f"{side.name} shows the accounts {shown}, on the disk lie {stored}")
        on = next(row["on"] for section in sections for row in section["rows"] if row.get("key") == "kEnabled")
        require(on == settings["kEnabled"], f"{side.name} shows the master switch as {on}")

    def judge_life(self, side):
        self.judge_growth(side, side.actions - side.born)

    def judge_growth(self, who, actions):
        wrong = judges.growth_problem(who.rests, memory_counts=not self.arguments.sanitized)
        require(not wrong, f"{who.name} grows: {wrong}: {who.rests}")
        if len(who.rests) >= judges.FEWEST_RESTS:
            self.runs.append((who.name, who.rests, actions))

    def print_last_words(self):
        for side in self.sides:
            print(f"last commands of {side.name}: {json.dumps(side.trail)}", file=sys.stderr)
            print(f"it announced {json.dumps(side.own)} and received {json.dumps(side.received)}", file=sys.stderr)
        self.world.print_last_words()


def figures(soak, seconds):
    one, two = soak.sides
    yield "seed", soak.arguments.seed
    yield "actions", f"{one.actions} and {two.actions} at once, of them refused {one.refused} and {two.refused}"
    yield "writes", f"{soak.writes}, each announced once; {soak.watched['generations']} looked at, each whole"
    yield "stops", f"{soak.stops}; support mails {soak.mails}"
    yield "ended by a page", f"{one.ends} and {two.ends} times, each reported"
    for name, rests, actions in soak.runs:
        (size, opened), (last, opened_last) = rests[len(rests) // 4], rests[-1]
        yield "memory", (f"{name}: {last // 1024} KiB after {actions} actions, {(last - size) // 1024:+d} in the last three "
                         f"quarters; {opened_last} descriptors, {opened_last - opened:+d}")
    yield "seconds", f"{seconds:.0f}"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--actions", type=int, required=True, help="of the first Settings; the second does about as many")
    parser.add_argument("--seed", type=int, required=True)
    parser.add_argument("--programs", required=True, help="the folder of the built programs")
    parser.add_argument("--sanitized", action="store_true", help="memory is not judged: sanitizers keep what was freed")
    arguments = parser.parse_args()
    begun = time.monotonic()
    soak = Soak(arguments)
    try:
        soak.run()
    except BaseException as error:
        soak.print_last_words()
        if isinstance(error, Failure):
            sys.exit(f"seed {arguments.seed}: {error}")
        raise
    finally:
        soak.world.end()
    for name, figure in figures(soak, time.monotonic() - begun):
        print(f"{name:17}{figure}")


if __name__ == "__main__":
    main()
