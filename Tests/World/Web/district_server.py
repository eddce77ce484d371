"""A web service on this machine alone, which can be told to misbehave."""

import dataclasses
import http.server
import socket
import threading
import urllib.parse

from patience import PATIENCE_SECONDS
from replies import HTML, Reply, Request

HOST = "127.0.0.1"
HUGE_BYTES = 50_000_000
NESTED_LEVELS = 100_000
DRIP_SECONDS = 0.2
MOST_DRIPS = int(PATIENCE_SECONDS / DRIP_SECONDS)
LISTENERS = 64
LOOP = "/around-again"
JSON = "application/json"


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    timeout = PATIENCE_SECONDS

    def do_GET(self):
        self.server.owner.handle(self)

    do_POST = do_GET

    def log_message(self, *_):
        """Logs nothing: `requests` keeps every request."""

    def read_request(self):
        parts = urllib.parse.urlsplit(self.path)
        length = int(self.headers.get("Content-Length") or 0)
        return Request(
            self.command, parts.path, single_values(parts.query),
            single_values(self.rfile.read(length).decode()), self.headers.get("User-Agent", ""),
        )

    def send_head(self, reply, length):
        self.send_response(reply.status)
        self.send_header("Content-Type", reply.content_type)
        self.send_header("Content-Length", str(length))
        for name, value in reply.headers:
            self.send_header(name, value)
        self.end_headers()

    def send_reply(self, reply):
        self.send_head(reply, len(reply.body))
        self.wfile.write(reply.body)


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True
    block_on_close = False
    request_queue_size = LISTENERS

    def __init__(self, port, owner):
        self.owner = owner
        self.connections = set()
        super().__init__((HOST, port), Handler)

    def server_bind(self):
        self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEPORT, 1)
        super().server_bind()

    def process_request(self, request, client_address):
        self.connections.add(request)
        super().process_request(request, client_address)

    def shutdown_request(self, request):
        self.connections.discard(request)
        super().shutdown_request(request)

    def handle_error(self, *_):
        """Ignores clients that go away in the middle of an answer."""

    def cut(self):
        """Breaks all connections."""
        for connection in list(self.connections):
            try:
                connection.shutdown(socket.SHUT_RDWR)
            except OSError:
                pass


class DistrictServer:
    """Answers like its service until it is told to misbehave. `requests` holds all requests.

    `recover` ends every misbehaviour, also for clients that are waiting.
    """

    FAILURES = (
        "html", "empty", "truncated", "huge", "nested", "remark", "redirects", "silence", "drip",
        "wrong types", "null", "nan", "infinite",
    )

    def __init__(self, service):
        self._service = service
        self._server = None
        self._failure = None
        self._delay = 0
        self._told = threading.Event()
        self._counting = threading.Lock()
        self._at_once = 0
        self.requests = []
        self.most_at_once = 0

    def start(self):
        # This socket never listens. It keeps the port while the service is away.
        self._claim = socket.socket()
        self._claim.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEPORT, 1)
        self._claim.bind((HOST, 0))
        self.port = self._claim.getsockname()[1]
        self.come_back()

    def stop(self):
        self.vanish()
        self._claim.close()

    @property
    def endpoint(self):
        return f"http://{HOST}:{self.port}{self._service.path}"

    # Orders

    def slow(self, seconds):
        """Delays every answer by so many seconds."""
        self._tell(delay=seconds)

    def fail(self, how):
        """An HTTP status of at least 400, or one of `FAILURES`."""
        if how not in self.FAILURES and not (isinstance(how, int) and 400 <= how < 600):
            raise ValueError(f"no such failure: {how}")
        if how == "remark" and not hasattr(self._service, "remark"):
            raise ValueError("this service makes no remarks")
        self._tell(failure=how)

    def recover(self):
        self._tell()

    def vanish(self):
        """Stops listening, and breaks all connections."""
        if self._server:
            server, self._server = self._server, None
            server.shutdown()
            server.server_close()
            server.cut()
            self._tell()

    def come_back(self):
        if not self._server:
            self._server = Server(self.port, self)
            threading.Thread(target=self._server.serve_forever, args=(0.05,), daemon=True).start()

    def _tell(self, failure=None, delay=0):
        told, self._told = self._told, threading.Event()
        self._failure, self._delay = failure, delay
        told.set()

    # Answers

    def handle(self, handler):
        request = handler.read_request()
        with self._counting:
            self._at_once += 1
            self.most_at_once = max(self.most_at_once, self._at_once)
            self.requests.append(request)
        try:
            self._answer(handler, request, self._failure, self._told)
        finally:
            with self._counting:
                self._at_once -= 1

    def _answer(self, handler, request, failure, told):
        if self._delay:
            told.wait(min(self._delay, PATIENCE_SECONDS))
        play = getattr(self, f"_play_{str(failure).replace(' ', '_')}", None)
        if failure is None:
            handler.send_reply(self._service.answer(request))
        elif play:
            play(handler, told)
        else:
            handler.send_reply(self._service.error(failure))

    def _play_html(self, handler, _):
        handler.send_reply(Reply(200, HTML, b"<html><body>Please sign in to the net.</body>"))

    def _play_empty(self, handler, _):
        handler.send_reply(Reply(200, JSON, b""))

    def _play_truncated(self, handler, _):
        reply = Reply(200, JSON, b'{"elements": [{"type": "node", "id": 4200')
        handler.send_head(reply, 3 * len(reply.body))
        handler.wfile.write(reply.body)
        handler.close_connection = True

    def _play_huge(self, handler, _):
        handler.send_reply(Reply(200, JSON, b'{"elements": [' + b" " * HUGE_BYTES + b"]}"))

    def _play_nested(self, handler, _):
        handler.send_reply(Reply(200, JSON, b"[" * NESTED_LEVELS + b"]" * NESTED_LEVELS))

    def _play_remark(self, handler, _):
        handler.send_reply(self._service.remark())

    def _play_redirects(self, handler, _):
        handler.send_reply(Reply(302, HTML, b"", (("Location", LOOP),)))

    def _play_wrong_types(self, handler, _):
        handler.send_reply(self._service.strange(["a", {"list": True}]))

    def _play_null(self, handler, _):
        handler.send_reply(self._service.strange(None))

    def _play_nan(self, handler, _):
        handler.send_reply(self._service.strange(float("nan")))

    def _play_infinite(self, handler, _):
        """Numbers that are well-formed, but too large for any variable."""
        reply = self._service.strange(float("inf"))
        body = reply.body.replace(b"Infinity", b"1e999")
        handler.send_reply(dataclasses.replace(reply, body=body))

    def _play_silence(self, handler, told):
        told.wait(PATIENCE_SECONDS)
        handler.close_connection = True

    def _play_drip(self, handler, told):
        """Sends a byte now and then, and never ends."""
        handler.send_head(Reply(200, JSON, b""), HUGE_BYTES)
        for _ in range(MOST_DRIPS):
            if told.wait(DRIP_SECONDS):
                break
            handler.wfile.write(b" ")
        handler.close_connection = True


def single_values(text):
    return dict(urllib.parse.parse_qsl(text, keep_blank_values=True))
