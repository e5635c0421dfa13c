"""A caller on the session bus who never stops and wants no answers: rush.py NAME [CALLS A SECOND]. It sends twelve
thousand calls a second unless told otherwise, 0 for as many as the bus takes. For each thousand it prints how many calls
the bus has taken so far, and how many that were a second; the first line tells that it has begun."""

import os
import socket
import struct
import sys
import time

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio

BATCH, SERIAL_AT = 1000, 8


def blob_of(name, path, interface, member, flags):
    message = Gio.DBusMessage.new_method_call(name, path, interface, member)
    message.set_flags(flags)
    message.set_serial(1)
    return bytearray(message.to_blob(Gio.DBusCapabilityFlags.NONE))


class Bus:
    """A connection without anybody's library in between, which would take longer than the calls."""

    def __init__(self):
        fields = os.environ["DBUS_SESSION_BUS_ADDRESS"].split(";")[0].removeprefix("unix:").split(",")
        place = dict(field.split("=", 1) for field in fields)
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(place["path"] if "path" in place else "\0" + place["abstract"])
        self.socket.sendall(b"\0AUTH EXTERNAL " + str(os.getuid()).encode().hex().encode() + b"\r\n")
        self.socket.recv(1000)
        self.socket.sendall(b"BEGIN\r\n")
        self.serial = 0
        self.ask("Hello")

    def number(self, message, at=0):
        self.serial = self.serial % 0xFFFFFFF0 + 1
        struct.pack_into("<I", message, at + SERIAL_AT, self.serial)

    def read(self, count):
        taken = b""
        while len(taken) < count:
            more = self.socket.recv(count - len(taken))
            if not more:
                sys.exit("the bus has hung up")
            taken += more
        return taken

    def ask(self, member):
        """Asks the bus itself. Once it answers it has taken all that came before."""
        message = blob_of("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", member,
                          Gio.DBusMessageFlags.NONE)
        self.number(message)
        asked = self.serial
        self.socket.sendall(message)
        while True:
            head = self.read(16)
            rest = self.read(Gio.DBusMessage.bytes_needed(head) - len(head))
            if Gio.DBusMessage.new_from_blob(head + rest, Gio.DBusCapabilityFlags.NONE).get_reply_serial() == asked:
                return


def rush(name, wanted):
    bus = Bus()
    call = blob_of(name, "/example/tessaview/TessaView", "example.tessaview.TessaView1", "List",
                   Gio.DBusMessageFlags.NO_REPLY_EXPECTED)
    batch, sent, begun = call * BATCH, 0, time.monotonic()
    while True:
        for index in range(BATCH):
            bus.number(batch, index * len(call))
        bus.socket.sendall(batch)
        bus.ask("GetId")
        sent += BATCH
        if wanted:
            time.sleep(max(0, begun + sent / wanted - time.monotonic()))
        print(sent, round(sent / (time.monotonic() - begun)), flush=True)


rush(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 12000)
