#!/usr/bin/env python3
"""A collector for trying things out: takes OTLP/HTTP logs in JSON and prints them.

    python3 docs/analytics/collect.py [--quiet] [PORT]

Listens on 127.0.0.1, on port 4318 if none is given.
"""

import gzip
import http.server
import json
import sys


class Collector(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    quiet = False

    def do_POST(self):
        body = self.rfile.read(int(self.headers.get("Content-Length", 0)))
        if self.headers.get("Content-Encoding") == "gzip":
            body = gzip.decompress(body)
        if self.path != "/v1/logs":
            self.answer(404)
            return
        if not self.quiet:
            print(json.dumps(json.loads(body), indent=2, ensure_ascii=False), flush=True)
        self.answer(200)

    def answer(self, status):
        self.send_response(status)
        self.send_header("Content-Type", "application/json")
        self.send_header("Content-Length", "2")
        self.end_headers()
        self.wfile.write(b"{}")

    def log_message(self, *arguments):
        pass


def main():
    arguments = sys.argv[1:]
    Collector.quiet = "--quiet" in arguments
    ports = [int(argument) for argument in arguments if argument.isdigit()]
    address = ("127.0.0.1", ports[0] if ports else 4318)
    http.server.ThreadingHTTPServer(address, Collector).serve_forever()


if __name__ == "__main__":
    main()
