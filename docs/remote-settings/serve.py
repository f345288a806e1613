#!/usr/bin/env python3
"""Serves a flag file where no flagd is at hand: serve.py FILE [PORT]

Knows what flags.json shows, and no more. The file is read anew for each request.
"""

import hashlib
import http.server
import json
import sys


def evaluate(key, flag, user):
    variant = flag["defaultVariant"]
    arms = flag.get("targeting", {}).get("fractional")
    if arms:
        draw = hashlib.sha256((key + user).encode()).digest()
        place = int.from_bytes(draw, "big") % sum(weight for _, weight in arms)
        while place >= arms[0][1]:
            place -= arms.pop(0)[1]
        variant = arms[0][0]
    return {"key": key, "value": flag["variants"][variant], "variant": variant,
            "reason": "SPLIT" if arms else "STATIC"}


class Handler(http.server.BaseHTTPRequestHandler):
    def do_POST(self):
        question = json.loads(self.rfile.read(int(self.headers["Content-Length"])))
        user = question["context"]["targetingKey"]
        with open(sys.argv[1], encoding="utf-8") as file:
            flags = json.load(file)["flags"]
        body = json.dumps({"flags": [evaluate(key, flag, user) for key, flag in flags.items()
                                     if flag["state"] == "ENABLED"]}).encode()
        etag = f'"{hashlib.sha256(body).hexdigest()}"'
        known = self.headers["If-None-Match"] == etag
        self.send_response(304 if known else 200)
        self.send_header("ETag", etag)
        self.send_header("Content-Type", "application/json")
        self.send_header("Content-Length", "0" if known else str(len(body)))
        self.end_headers()
        if not known:
            self.wfile.write(body)


port = int(sys.argv[2]) if len(sys.argv) > 2 else 8016
server = http.server.ThreadingHTTPServer(("127.0.0.1", port), Handler)
print(f"http://127.0.0.1:{server.server_port}", flush=True)
server.serve_forever()
