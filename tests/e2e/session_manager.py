"""A desktop's session manager, as small as one can be: it knows the programs of its session and can end it."""

import ctypes
import os
import select
import threading
from ctypes import CFUNCTYPE, POINTER, byref, c_char_p, c_int, c_ulong, c_void_p

SAVE_LOCAL, SAVE_BOTH = 1, 2
INTERACT_NONE, INTERACT_ANY = 0, 2


class Callback(ctypes.Structure):
    _fields_ = [("procedure", c_void_p), ("data", c_void_p)]


# In the order of the library's structure.
EVENTS = ("register_client", "interact_request", "interact_done", "save_yourself_request", "save_yourself_phase2_request",
          "save_yourself_done", "close_connection", "set_properties", "delete_properties", "get_properties")


class Callbacks(ctypes.Structure):
    _fields_ = [(event, Callback) for event in EVENTS]


NEW_CLIENT = CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong), POINTER(Callbacks), POINTER(c_char_p))
EVENT = CFUNCTYPE(c_int, c_void_p, c_void_p, c_void_p)


class SessionManager:
    """Use it in a `with`: programs that are started inside it are of its session."""

    def __init__(self):
        self.clients = []  # the programs that have registered
        self.saved = 0  # how often one has said that it has saved, the first time when it registered
        self._ice, self._sm = ctypes.CDLL("libICE.so.6"), ctypes.CDLL("libSM.so.6")
        for function in (self._ice.IceComposeNetworkIdList, self._ice.IceAcceptConnection, self._sm.SmsGenerateClientID):
            function.restype = c_void_p
        self._ended = threading.Event()
        self._orders = []
        self._connections = {}
        # What the library calls must live as long as it may.
        self._lets_everybody_in = CFUNCTYPE(c_int, c_char_p)(lambda host: 1)
        self._lives_on = CFUNCTYPE(None, c_void_p)(lambda connection: None)
        self._takes_client = NEW_CLIENT(self._on_new_client)
        answers = {"register_client": self._on_register, "interact_request": self._on_interact,
                   "save_yourself_done": self._on_saved, "close_connection": self._on_close}
        self._events = {event: EVENT(answers.get(event, lambda *_: 0)) for event in EVENTS}

    def __enter__(self):
        error = ctypes.create_string_buffer(256)
        # Else the library ends the whole process when a program does.
        self._ice.IceSetIOErrorHandler(self._lives_on)
        if not self._sm.SmsInitialize(b"test", b"1", self._takes_client, None, self._lets_everybody_in, 256, error):
            raise OSError(error.value)
        count, self._objects = c_int(), c_void_p()
        if not self._ice.IceListenForConnections(byref(count), byref(self._objects), 256, error):
            raise OSError(error.value)
        self._listeners = ctypes.cast(self._objects, POINTER(c_void_p))[: count.value]
        for listener in self._listeners:
            self._ice.IceSetHostBasedAuthProc(c_void_p(listener), self._lets_everybody_in)
        places = self._ice.IceComposeNetworkIdList(count, self._objects)
        os.environ["SESSION_MANAGER"] = ctypes.string_at(places).decode()
        self._thread = threading.Thread(target=self._serve, daemon=True)
        self._thread.start()
        return self

    def __exit__(self, *error):
        self._ended.set()
        self._thread.join()
        del os.environ["SESSION_MANAGER"]
        self._ice.IceFreeListenObjs(len(self._listeners), self._objects)

    def end_session(self):
        """Has all programs save what they have, and then end."""
        self._orders.append(lambda client: self._save(client, SAVE_BOTH, True, INTERACT_ANY))

    def _save(self, client, what, shutdown, interaction):
        self._sm.SmsSaveYourself(c_void_p(client), what, int(shutdown), interaction, 0)

    def _serve(self):
        listening = {self._ice.IceGetListenConnectionNumber(c_void_p(each)): each for each in self._listeners}
        while not self._ended.is_set():
            ready, _, _ = select.select([*listening, *self._connections], [], [], 0.02)
            for number in ready:
                if number in listening:
                    self._accept(listening[number])
                elif self._ice.IceProcessMessages(c_void_p(self._connections[number]), None, None) != 0:
                    self._connections.pop(number)  # the program has gone
            while self._orders:
                order = self._orders.pop(0)
                for client in self.clients:
                    order(client)

    def _accept(self, listener):
        connection = self._ice.IceAcceptConnection(c_void_p(listener), byref(c_int()))
        if connection:
            self._connections[self._ice.IceConnectionNumber(c_void_p(connection))] = connection

    def _on_new_client(self, _client, _data, mask, callbacks, _reason):
        for event, procedure in self._events.items():
            getattr(callbacks.contents, event).procedure = ctypes.cast(procedure, c_void_p)
        mask[0] = (1 << len(EVENTS)) - 1
        return 1

    def _on_register(self, client, _data, earlier_id):
        if earlier_id:
            return 0  # of a session that nobody knows any more
        self._sm.SmsRegisterClientReply(c_void_p(client), c_void_p(self._sm.SmsGenerateClientID(c_void_p(client))))
        self.clients.append(client)
        # As the protocol has it, a new program saves itself once.
        self._save(client, SAVE_LOCAL, False, INTERACT_NONE)
        return 1

    def _on_saved(self, client, _data, _success):
        self.saved += 1
        (self._sm.SmsSaveComplete if self.saved <= len(self.clients) else self._sm.SmsDie)(c_void_p(client))
        return 1

    def _on_interact(self, client, _data, _kind):
        self._sm.SmsInteract(c_void_p(client))
        return 1

    def _on_close(self, client, *_):
        self._sm.SmsCleanUp(c_void_p(client))
        return 1
