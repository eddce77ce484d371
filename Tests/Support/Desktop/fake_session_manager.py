"""A session manager for X that a test controls. It is a process that logs the session out on
request.

usage: fake_session_manager.py DESCRIPTOR
Writes its address to that descriptor, as one line. Prints what each client tells it. On SIGUSR1 it
announces the end of the session: it asks every client to save itself, and then tells it to end.
"""

import atexit
import ctypes
import os
import select
import signal
import sys

ICE = ctypes.CDLL("libICE.so.6")
SM = ctypes.CDLL("libSM.so.6")
PENDING, ACCEPTED = 0, 1
SAVE_LOCAL, SAVE_BOTH = 1, 2
INTERACT_NONE, INTERACT_ANY = 0, 2
ALL_CALLBACKS = (1 << 10) - 1
BYTE = b"CARD8"

Pointer = ctypes.c_void_p
Connection = ctypes.c_void_p
Status = ctypes.c_int


class PropertyValue(ctypes.Structure):
    _fields_ = [("length", ctypes.c_int), ("value", Pointer)]


class Property(ctypes.Structure):
    _fields_ = [("name", ctypes.c_char_p), ("type", ctypes.c_char_p),
                ("count", ctypes.c_int), ("values", ctypes.POINTER(PropertyValue))]


REGISTER = ctypes.CFUNCTYPE(Status, Connection, Pointer, Pointer)
WITH_NUMBER = ctypes.CFUNCTYPE(None, Connection, Pointer, ctypes.c_int)
PLAIN = ctypes.CFUNCTYPE(None, Connection, Pointer)
SAVE_REQUEST = ctypes.CFUNCTYPE(None, Connection, Pointer, *[ctypes.c_int] * 5)
CLOSE = ctypes.CFUNCTYPE(None, Connection, Pointer, ctypes.c_int, Pointer)
SET_PROPERTIES = ctypes.CFUNCTYPE(
    None, Connection, Pointer, ctypes.c_int, ctypes.POINTER(ctypes.POINTER(Property))
)
ALLOW = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_char_p)

for library, function, result in (
        (ICE, "IceListenForConnections", Status), (ICE, "IceComposeNetworkIdList", ctypes.c_char_p),
        (ICE, "IceAcceptConnection", Pointer), (SM, "SmsGenerateClientID", Pointer),
        (SM, "SmsGetIceConnection", Pointer)):
    getattr(library, function).restype = result


def say(*words):
    print(*words, flush=True)


class SessionManager:
    def __init__(self):
        self._clients = []
        self._connections = []
        self._allow = ALLOW(lambda _host: 1)
        # In the order of the library's table. They have to stay alive: the library holds only
        # addresses.
        self._callbacks = [
            REGISTER(self.register), WITH_NUMBER(lambda *_: say("asks to interact")),
            WITH_NUMBER(lambda *_: None), SAVE_REQUEST(lambda *_: say("asks to save")),
            PLAIN(lambda *_: say("asks for a second phase")), WITH_NUMBER(self.saved),
            CLOSE(self.close), SET_PROPERTIES(self.set_properties), CLOSE(lambda *_: None),
            PLAIN(lambda *_: None),
        ]
        self._is_ending = False
        self._new_client = ctypes.CFUNCTYPE(
            Status, Connection, Pointer, ctypes.POINTER(ctypes.c_ulong),
            ctypes.POINTER(Pointer), Pointer)(self.welcome)

    def listen(self):
        error = ctypes.create_string_buffer(256)
        SM.SmsInitialize(b"test", b"1", self._new_client, None, self._allow, 256, error)
        count, listeners = ctypes.c_int(), ctypes.POINTER(Pointer)()
        ICE._IceTransNoListen(b"tcp")
        if not ICE.IceListenForConnections(
                ctypes.byref(count), ctypes.byref(listeners), 256, error):
            sys.exit(error.value.decode())
        # Its sockets lie in a shared folder, so that they have to be removed.
        atexit.register(ICE.IceFreeListenObjs, count, listeners)
        self._listeners = [Pointer(listeners[index]) for index in range(count.value)]
        for listener in self._listeners:
            ICE.IceSetHostBasedAuthProc(listener, self._allow)
        return ICE.IceComposeNetworkIdList(count, listeners).decode()

    def run(self):
        while True:
            numbers = {ICE.IceGetListenConnectionNumber(one): one for one in self._listeners}
            peers = {ICE.IceConnectionNumber(one): one for one in self._connections}
            ready, _, _ = select.select([*numbers, *peers], [], [])
            for number in ready:
                if number in numbers:
                    self.accept(numbers[number])
                else:
                    ICE.IceProcessMessages(peers[number], None, None)

    def accept(self, listener):
        status = ctypes.c_int()
        connection = Pointer(ICE.IceAcceptConnection(listener, ctypes.byref(status)))
        if not connection:
            return
        while ICE.IceConnectionStatus(connection) == PENDING:
            ICE.IceProcessMessages(connection, None, None)
        if ICE.IceConnectionStatus(connection) == ACCEPTED:
            self._connections.append(connection)

    def end_session(self, *_):
        self._is_ending = True
        for client in self._clients:
            SM.SmsSaveYourself(Pointer(client), SAVE_BOTH, 1, INTERACT_ANY, 0)

    # Messages from clients

    def welcome(self, _client, _data, mask, table, _reason):
        mask[0] = ALL_CALLBACKS
        for index, callback in enumerate(self._callbacks):
            table[2 * index] = ctypes.cast(callback, Pointer).value
            table[2 * index + 1] = None
        return 1

    def register(self, client, _data, previous):
        if previous:
            return 0
        SM.SmsRegisterClientReply(Pointer(client), Pointer(SM.SmsGenerateClientID(Pointer(client))))
        self._clients.append(client)
        say("registers")
        SM.SmsSaveYourself(Pointer(client), SAVE_LOCAL, 0, INTERACT_NONE, 0)
        return 1

    def saved(self, client, _data, success):
        say("has saved" if success else "has failed to save")
        if self._is_ending:
            SM.SmsDie(Pointer(client))
        else:
            SM.SmsSaveComplete(Pointer(client))

    def set_properties(self, _client, _data, count, properties):
        for index in range(count):
            one = properties[index].contents
            if one.type == BYTE:
                say(one.name.decode(), ctypes.string_at(one.values[0].value, 1)[0])

    def close(self, client, _data, _count, _reasons):
        say("leaves")
        self._clients.remove(client)
        connection = SM.SmsGetIceConnection(Pointer(client))
        self._connections = [one for one in self._connections if one.value != connection]
        SM.SmsCleanUp(Pointer(client))
        ICE.IceSetShutdownNegotiation(Pointer(connection), 0)
        ICE.IceCloseConnection(Pointer(connection))


def main():
    manager = SessionManager()
    signal.signal(signal.SIGUSR1, manager.end_session)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit())
    with os.fdopen(int(sys.argv[1]), "w") as announcement:
        announcement.write(manager.listen() + "\n")
    manager.run()


if __name__ == "__main__":
    main()
