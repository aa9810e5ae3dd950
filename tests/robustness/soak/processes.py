"""A process of a soak: its commands, its replies, its use of the machine."""
import json
import os
import select
import subprocess
import time

PATIENCE = 120  # seconds; a machine may be busy


class Ended(Exception):
    """The process has gone instead of answering."""


class Process:
    """Reads and writes lines."""

    def __init__(self, command, environment, errors):
        self.process = subprocess.Popen(command, env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=errors, bufsize=0)
        self._buffer = b""

    def send(self, *objects):
        """One line each."""
        self.send_text("".join(json.dumps(one) + "\n" for one in objects))

    def send_text(self, text):
        try:
            self.process.stdin.write(text.encode())
        except BrokenPipeError:
            pass  # Reading reports it.

    def line(self, patience=PATIENCE):
        """The next line. Ended when there are no more."""
        deadline = time.monotonic() + patience
        while (end := self._buffer.find(b"\n")) < 0:
            left = deadline - time.monotonic()
            if left <= 0 or not select.select([self.process.stdout], [], [], left)[0]:
                raise TimeoutError(f"{self.process.args[0]} has printed nothing in {patience} seconds")
            more = os.read(self.process.stdout.fileno(), 1 << 16)
            if not more:
                raise Ended
            self._buffer += more
        line, self._buffer = self._buffer[:end], self._buffer[end + 1:]
        return line.decode()

    def object(self, patience=PATIENCE):
        return json.loads(self.line(patience))

    def objects(self, count):
        return [self.object() for _ in range(count)]

    def ask(self, *objects):
        self.send(*objects)
        return self.objects(len(objects))

    def end(self):
        """Closes its input and returns its exit code."""
        self.process.stdin.close()
        return self.process.wait(PATIENCE)

    def kill(self):
        self.process.kill()
        self.process.wait()

    def takes(self):
        """Bytes of memory that are its own, those of its files may be given up and read again; and open descriptors."""
        pid = self.process.pid
        with open(f"/proc/{pid}/status", encoding="ascii") as file:
            kilobytes = next(int(line.split()[1]) for line in file if line.startswith("RssAnon:"))
        return kilobytes * 1024, len(os.listdir(f"/proc/{pid}/fd"))
