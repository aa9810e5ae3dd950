#!/usr/bin/python3
"""Prints every change of Wardlock's settings, received over D-Bus: one line "changed: KEY = VALUE" each.

Needs PyGObject (python3-gi). docs/notification.md describes the signal and the reasons for its form.
"""
import argparse
import datetime
import os
import stat
import sys

from gi.repository import Gio, GLib

NAME = "com.tavix.wardlock/update"
LONGEST_SOCKET = 107  # bytes of a socket's path
DEEPEST = 512  # containers inside each other, as in a document
EPOCH = datetime.datetime(2001, 1, 1, tzinfo=datetime.timezone.utc)


def device_root():
    if os.environ.get("WARDLOCK_DEVICE_ROOT"):
        return os.environ["WARDLOCK_DEVICE_ROOT"]
    if os.path.exists("/var/mobile"):
        return "/"
    return os.path.join(GLib.get_user_data_dir(), "wardlock", "device")


def identity(root):
    """Returns the signal's name for a device root: several may share one bus."""
    status = os.stat(root)
    return f"{status.st_dev}:{status.st_ino}"


def is_private_folder(path):
    """Returns whether no other user could have put a bus there."""
    if not os.path.isabs(path) or not os.path.isdir(path):
        return False
    status = os.stat(path)
    return status.st_uid == os.geteuid() and not status.st_mode & (stat.S_IWGRP | stat.S_IWOTH)


def bus_address():
    if os.environ.get("DBUS_SESSION_BUS_ADDRESS"):
        return os.environ["DBUS_SESSION_BUS_ADDRESS"]
    runtime = os.environ.get("XDG_RUNTIME_DIR", "")
    own = f"{runtime}/wardlock-bus/bus"
    if is_private_folder(runtime) and os.path.exists(f"{runtime}/bus"):
        own = f"{runtime}/bus"
    elif not is_private_folder(runtime) or len(os.fsencode(own)) > LONGEST_SOCKET:
        own = f"/tmp/wardlock-bus-{os.geteuid()}/bus"
    return f"unix:path={Gio.dbus_address_escape_value(own)}"


class Malformed(Exception):
    """The signal is not of the documented form."""


def plain(variant):
    """Returns the value inside a variant of the signal; its signature gives the kind."""
    value = variant.get_variant()
    kind = value.get_type_string()
    if kind == "a{sv}":
        return {pair.get_child_value(0).get_string(): plain(pair.get_child_value(1)) for pair in children(value)}
    if kind == "av":
        return [plain(item) for item in children(value)]
    if kind == "(av)":
        return flattened(children(value.get_child_value(0)))
    if kind == "(ay)":
        return bytes(value.unpack()[0]).decode("utf-8", "replace")
    if kind == "ay":
        return bytes(value.unpack())
    if kind == "(d)":
        return date(value.unpack()[0])
    if kind in {"b", "y", "n", "q", "i", "u", "x", "t", "d", "s"}:
        return value.unpack()
    raise Malformed(f"unknown kind {kind}")


def children(container):
    return (container.get_child_value(i) for i in range(container.n_children()))


def date(seconds):
    """Returns the seconds themselves for a date outside Python's years."""
    try:
        return EPOCH + datetime.timedelta(seconds=seconds)
    except (OverflowError, ValueError):
        return seconds


def dictionary(parts):
    if not all(isinstance(key, str) for key in parts[::2]):
        raise Malformed("a key is not a text")
    return dict(zip(parts[::2], parts[1::2]))


def flattened(items):
    """Returns a container that is nested deeper than a bus allows: it arrives as the list of its values."""
    containers = []  # the incomplete ones: kind, size, the values so far
    for item in items:
        signature = item.get_variant().get_type_string()
        if signature == "(su)":
            kind, size = item.get_variant().unpack()
            if kind not in {"array", "dictionary"} or len(containers) == DEEPEST:
                raise Malformed("no container of a document")
            containers.append((kind, size if kind == "array" else 2 * size, []))
        elif signature in {"av", "a{sv}", "(av)"} or not containers:
            raise Malformed("a container that is not flattened")
        else:
            containers[-1][2].append(plain(item))
        while len(containers[-1][2]) == containers[-1][1]:
            kind, _, parts = containers.pop()
            value = parts if kind == "array" else dictionary(parts)
            if containers:
                containers[-1][2].append(value)
            elif next(items, None) is None:
                return value
            else:
                raise Malformed("more values than the container has")
    raise Malformed("fewer values than the container has")


def user_info(arguments):
    """Returns the dictionary that the signal carries; nothing when there is none."""
    objects, infos = arguments.get_child_value(2), arguments.get_child_value(3)
    if objects.n_children() > 1 or infos.n_children() > 1:
        raise Malformed("more than one object or user info")
    if infos.n_children() == 0:
        return None
    info = plain(infos.get_child_value(0))
    if not isinstance(info, dict):
        raise Malformed("the user info is not a dictionary")
    return info


def received(_bus, _sender, _path, _interface, _member, arguments):
    if arguments.get_type_string() != "(ssasav)" or arguments.get_child_value(1).get_string() != NAME:
        return
    try:
        info = user_info(arguments)
    except Malformed:
        return  # Not sent by Wardlock.
    if info is None:
        # Something may have changed: a program that keeps settings in memory reads them again.
        print("changed", flush=True)
    else:
        print(f"changed: {info.get('key')} = {info.get('object')!r}", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("root", metavar="DEVICE-ROOT", nargs="?",
                        help="the device; WARDLOCK_DEVICE_ROOT, or the user's own, when none is given")
    root = parser.parse_args().root or device_root()
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    try:
        bus = Gio.DBusConnection.new_for_address_sync(bus_address(), flags)
        bus.signal_subscribe(None, "com.tavix.DistributedNotifications", "Notification",
                             "/com/tavix/DistributedNotifications", identity(root), Gio.DBusSignalFlags.NONE, received)
        # A reply from the bus: by now it has accepted the subscription, too.
        bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId", None, None,
                      Gio.DBusCallFlags.NONE, -1)
    except (GLib.Error, OSError) as error:
        sys.exit(f"listen.py: {error}")
    print("ready", flush=True)
    loop = GLib.MainLoop()
    bus.connect("closed", lambda *_: loop.quit())
    loop.run()
    sys.exit("listen.py: the bus has gone")


if __name__ == "__main__":
    main()
