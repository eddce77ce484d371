"""The server that the GeoClue daemon asks for the position of the networks around it."""

import http.server
import json
import threading

# Latitude and longitude in degrees, and the accuracy in metres.
HOME = (10.7769, 106.7009, 25.0)


class GeolocationEndpoint:
    """Answers every request with one position, or fails as it was told to."""

    def __init__(self):
        self._delay = 0
        self._hurry = threading.Event()
        self._open = threading.Event()
        self.requests = 0
        self.answers = 0
        self.stand_at(*HOME)
        endpoint = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_POST(self):
                self.rfile.read(int(self.headers.get("Content-Length") or 0))
                endpoint.answer(self)

            do_GET = do_POST

            def log_message(self, *arguments):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    @property
    def url(self):
        return f"http://127.0.0.1:{self._server.server_address[1]}/v1/geolocate"

    def stand_at(self, latitude, longitude, accuracy):
        self._position = {"location": {"lat": latitude, "lng": longitude}, "accuracy": accuracy}
        self._status = 200
        self._open.set()

    def fail(self, status):
        self._status = status
        self._open.set()

    def hang(self):
        """Holds every request open until `stand_at` or `fail` is called."""
        self._open.clear()

    def slow(self, seconds):
        """Delays every answer by so many seconds, until the next call."""
        hurry, self._hurry = self._hurry, threading.Event()
        self._delay = seconds
        hurry.set()

    def answer(self, request):
        self.requests += 1
        self._hurry.wait(self._delay)
        self._open.wait()
        body = json.dumps(self._position if self._status == 200 else {}).encode()
        try:
            request.send_response(self._status)
            request.send_header("Content-Type", "application/json")
            request.send_header("Content-Length", str(len(body)))
            request.end_headers()
            request.wfile.write(body)
        except OSError:
            pass  # The daemon has given up waiting.
        self.answers += 1

    def close(self):
        self.slow(0)
        self._open.set()
        self._server.shutdown()
        self._server.server_close()
