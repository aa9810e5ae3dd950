"""What a soak takes place in: a device, a message bus and a web of its own."""
import datetime
import glob
import http.server
import os
import plistlib
import shutil
import subprocess
import sys
import tempfile
import threading

import processes

IDENTIFIER = "com.tavix.wardlock"

# What the document contains beyond the pages' keys, and what has to survive every change of it.
FOREIGN = {
    "soakMarker": 7,
    "soakKeeps": {"data": b"\x00\xff", "date": datetime.datetime(2001, 2, 3, 4, 5, 6), "large": 2**64 - 1, "real": 0.1,
                  "list": [True, [], {}], "text": "é & <tag>"},
}

PAGE = b"<html><title>Listing</title><p>Packages <a href='/other'>and more</a></html>"


class Web(http.server.BaseHTTPRequestHandler):
    """Replaces every web server: the proxy of the processes that load pages."""

    def do_GET(self):
        try:
            self.send_response(404 if self.path.endswith("7") else 200)
            self.send_header("Content-Type", "text/html; charset=utf-8")
            self.send_header("Content-Length", str(len(PAGE)))
            self.end_headers()
            self.wfile.write(PAGE)
        except ConnectionError:
            pass  # The page was left before it had come.

    def log_message(self, *_):
        pass


class World:
    def __init__(self, programs):
        self.programs = programs
        self.folder = tempfile.mkdtemp(prefix="wardlock-soak.")
        self.root = os.path.join(self.folder, "device")
        self.document = f"{self.root}/var/mobile/Library/Preferences/{IDENTIFIER}.plist"
        self.log = f"{self.root}/var/mobile/{IDENTIFIER}_log"
        self.web = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Web)
        threading.Thread(target=self.web.serve_forever, daemon=True).start()
        self.environment = self._environment()
        self.errors = open(os.path.join(self.folder, "errors"), "wb")
        self.processes = []
        self._start_bus()
        self.run("device", "init", "--demo", self.root)
        self._add_foreign_keys()

    def _environment(self):
        environment = {name: value for name, value in os.environ.items()
                       if not name.startswith(("XDG_", "DBUS_")) and not name.lower().endswith("_proxy")
                       and name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        home = os.path.join(self.folder, "home")
        os.mkdir(home, 0o700)
        for name in ("HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "XDG_DATA_DIRS"):
            environment[name] = home
        return environment | {
            "WARDLOCK_DEVICE_ROOT": self.root,
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.folder}/bus",
            "http_proxy": f"http://127.0.0.1:{self.web.server_port}",
        }

    def _start_bus(self):
        configuration = os.path.join(self.folder, "bus.conf")
        with open(configuration, "w", encoding="ascii") as file:
            file.write(f"""<busconfig><listen>unix:path={self.folder}/bus</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/></policy>
</busconfig>""")
        bus = self.start("dbus-daemon", f"--config-file={configuration}", "--nofork", "--nopidfile", "--print-address")
        bus.line()  # Printed once it listens.

    def _add_foreign_keys(self):
        document = self.read() | FOREIGN
        with open(self.document, "wb") as file:
            plistlib.dump(document, file, sort_keys=False)

    def program(self, name):
        return os.path.join(self.programs, name)

    def start(self, *command):
        """A process that ends with the world."""
        self.processes = [one for one in self.processes if one.process.poll() is None]
        self.processes.append(processes.Process(command, self.environment, self.errors))
        return self.processes[-1]

    def run(self, *arguments):
        """A verb of the command."""
        subprocess.run([self.program("wardlock"), *arguments], env=self.environment, stdout=subprocess.DEVNULL,
                       stderr=self.errors, check=True, timeout=processes.PATIENCE)

    def bytes(self):
        with open(self.document, "rb") as file:
            return file.read()

    def read(self):
        return plistlib.loads(self.bytes())

    def reports(self):
        """How many exceptions of pages the log reports, all of them of the one kind that a stale position throws."""
        try:
            with open(self.log, encoding="utf-8") as file:
                log = file.read()
        except FileNotFoundError:
            return 0
        caught = log.count("Exception Caught\n")
        if caught != log.count("Name: NSRangeException\n"):
            raise AssertionError("a page threw something else than NSRangeException: " + log[-4000:])
        return caught

    def leftovers(self):
        """Files beside the document that should not be there."""
        expected = {os.path.basename(self.document), os.path.basename(self.document) + ".history"}
        return [name for name in os.listdir(os.path.dirname(self.document)) if name not in expected]

    def empty_outbox(self):
        """How many mails are there."""
        mails = glob.glob(f"{self.root}/var/mobile/Library/Mail/Outbox/*")
        for mail in mails:
            os.remove(mail)
        return len(mails)

    def print_last_words(self):
        for path in (self.errors.name, self.log):
            if os.path.exists(path):
                with open(path, encoding="utf-8", errors="replace") as file:
                    print(f"{os.path.basename(path)}: ...{file.read()[-3000:]}", file=sys.stderr)

    def end(self):
        for process in self.processes:
            process.kill()
        self.web.shutdown()
        self.errors.close()
        shutil.rmtree(self.folder)
