"""Receivers of the announcements in a soak."""
import processes

# Announced by no page, to check that everything announced before it has arrived.
MARKER = {"key": "soakMarker", "object": {"int": "7"}}


class Failure(Exception):
    """A condition of the soak is violated."""


def require(condition, text):
    if not condition:
        raise Failure(text)


class Listener:
    """What it has received since all agreed last. A derived class has a name and can `listen`."""

    def __init__(self):
        self.received, self.markers = [], 0

    def take_heard(self, announcement):
        if announcement == MARKER:
            self.markers += 1
        else:
            self.received.append(announcement)

    def receive(self, count):
        """Waits until it has received that many."""
        while len(self.received) < count:
            require(self.listen(), f"{self.name} has received {len(self.received)} announcements, and {count} writes were made")

    def hear_marker(self):
        while not self.markers:
            require(self.listen(), f"{self.name} does not receive the marker")
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
        """The settings that it has now."""
        self.process.send("?")
        while "settings" not in (view := self.process.object()):
            self.take_heard(view)
        return view

    def rest(self):
        self.rests.append(self.process.takes())
