"""A caller on the session bus who never stops and reads no answer: rush.py NAME. Says "rushing" once it has begun."""

import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio

bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)


def call():
    message = Gio.DBusMessage.new_method_call(
        sys.argv[1], "/example/tessaview/TessaView", "example.tessaview.TessaView1", "List"
    )
    message.set_flags(Gio.DBusMessageFlags.NO_REPLY_EXPECTED)
    bus.send_message(message, Gio.DBusSendMessageFlags.NONE)


for _ in range(10000):
    call()
bus.flush_sync(None)
print("rushing", flush=True)
while True:
    for _ in range(1000):
        call()
    bus.flush_sync(None)
