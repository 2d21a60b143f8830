"""An app of a few lines, in place of yours: app.py PORT

It reads sentences and connects again when the connection ends; with APP=lazy it does not.
"""

import os
import socket
import sys
import time

while True:
    try:
        with socket.create_connection(("127.0.0.1", int(sys.argv[1])), timeout=10) as gateway:
            for sentence in gateway.makefile("rb"):
                latest = sentence
    except OSError:
        pass
    if os.environ.get("APP") == "lazy":
        break
    time.sleep(0.5)
