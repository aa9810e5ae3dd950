"""Who hears of announcements in a soak."""
import processes

# Announced by nobody at a page, to see that everything announced before it has arrived.
MARKER = {"key": "soakMarker", "object": {"int": "7"}}


class Failure(Exception):
    """What had to hold does not."""


def require(holds, text):
    if not holds:
        raise Failure(text)


class Listener:
    """What it has heard of since everybody agreed last. Whoever derives from it has a name and can `listen`."""

    def __init__(self):
        self.heard, self.markers = [], 0

    def take_heard(self, announcement):
        if announcement == MARKER:
            self.markers += 1
        else:
            self.heard.append(announcement)

    def hear(self, count):
        """Waits until it has heard of that many."""
        while len(self.heard) < count:
            require(self.listen(), f"{self.name} has heard of {len(self.heard)} announcements, and {count} writes were made")

    def hear_marker(self):
        while not self.markers:
            require(self.listen(), f"{self.name} hears nothing of the marker")
        self.markers = 0


class Observer(Listener):
    """A process over the settings library, as the enforcing half is one."""
    name = "the observer"

    def __init__(self, world):
        super().__init__()
        self.process = world.start(world.program("test-view"))
        require(self.process.line() == "ready", "the observer does not start")
        self.rests = []

    def listen(self, seconds=processes.PATIENCE):
        """Waits for an announcement. Whether one came in time."""
        try:
            self.take_heard(self.process.object(seconds))
        except TimeoutError:
            return False
        return True

    def view(self):
        """The settings that it holds now."""
        self.process.send("?")
        while "settings" not in (view := self.process.object()):
            self.take_heard(view)
        return view

    def rest(self):
        self.rests.append(self.process.takes())
