"""One of the two Settings of a soak."""
import json
import random
import signal

import user
import processes
from listener import Failure, Listener, require

LOOK = ({"do": "posts"}, {"do": "see"})


class Side(Listener):
    """A Settings process, its user, and what it has announced and received since all agreed last."""

    def __init__(self, world, name, seed):
        super().__init__()
        self.world, self.name = world, name
        self.user = user.User(random.Random(seed), lambda: world.read()["kPasscode"])
        self.actions = self.refused = self.ends = 0
        self.trail = []
        self.start()

    def start(self):
        self.process = self.world.start(self.world.program("wardlock"), "settings", "--script", "-")
        self.born = self.actions
        self.rests = []
        self.own, self.received, self.markers = [], [], 0
        self.look()

    def look(self):
        """Asks for the picture and what was announced."""
        self.take(self.process.ask(*LOOK))

    def take(self, replies):
        posts, self.picture = replies
        for post in posts["posts"]:
            if not post["key"]:
                continue  # Not an announcement: that some may have been missed. If so, their number shows it.
            announcement = {"key": post["key"], "object": post["object"]}
            if post["own"]:
                self.own.append(announcement)
            else:
                self.take_heard(announcement)

    def choose(self):
        self.commands = self.user.next(self.picture)

    def deletes(self):
        return {"do": "choose", "action": "Delete"} in self.commands

    def begin(self):
        """Sends what was chosen, and the questions behind it."""
        self.trail = (self.trail + self.commands)[-40:]
        self.process.send(*self.commands, *LOOK)

    def finish(self):
        """Takes the replies. Raises processes.Ended when a page has ended the process."""
        self.actions += len(self.commands)
        self.refused += sum("error" in reply for reply in self.process.objects(len(self.commands)))
        self.take(self.process.objects(len(LOOK)))

    def listen(self, seconds=processes.PATIENCE):
        """Waits for an announcement. Whether one came in time."""
        reply, *look = self.process.ask({"do": "wait", "for": "change", "seconds": seconds}, *LOOK)
        self.take(look)
        return "ok" in reply

    def home(self):
        """Goes back to the first page of the bundle, with nothing over it."""
        self.process.ask({"do": "transitions", "seconds": 0})
        for _ in range(100):
            self.look()
            command = self.way_home()
            if not command:
                return
            self.process.ask(command)
        raise Failure(f"{self.name} does not come home: {json.dumps(self.picture)}")

    def way_home(self):
        page = self.picture["page"]
        if "keypad" in self.picture:
            if self.picture["keypad"]["takesInput"]:
                # The list of bundles asks for the passcode while an account is in force.
                outside = "back" not in page
                return {"do": "keypad"} | ({"passcode": self.user.passcode() or "0000"} if outside else {"press": "cancel"})
            return {"do": "step", "seconds": 1}
        if page.get("moving"):
            return {"do": "step", "seconds": 1}
        if "notice" in self.picture:
            return {"do": "dismiss"}
        if "mail" in self.picture:
            sending = self.picture["mail"].get("sending")
            return {"do": "wait", "for": "mail"} if sending else {"do": "mail", "press": "cancel"}
        if "alert" in self.picture:
            return {"do": "choose", "action": "Cancel"}
        if "back" not in page:
            return {"do": "tap", "row": "Wardlock"}
        return None if "button" in page else {"do": "back"}

    def shows_account(self):
        return user.shows_account(self.picture)

    def open_web(self):
        """Visits a page of the web: for the first one, the process loads a library that it keeps."""
        self.process.ask({"do": "tap", "row": "More From Tavix"}, {"do": "wait", "for": "load"})
        self.look()
        require("web" in self.picture["page"], f"{self.name} does not open a page of the web: {json.dumps(self.picture)}")
        self.process.ask({"do": "back"})
        self.look()

    def rest(self):
        """Takes note of what the process uses while nothing happens."""
        if not self.rests:
            self.open_web()
        self.rests.append(self.process.takes())

    def ended(self):
        """A page has ended the process, as it must when its account is gone, and in no other way."""
        code = self.process.process.wait(processes.PATIENCE)
        require(code == -signal.SIGABRT, f"{self.name} has ended with {code}")
        self.ends += 1
