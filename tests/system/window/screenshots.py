#!/usr/bin/python3
"""screenshots.py PROGRAM FOLDER: pictures of the control window in every state.

Run it through session.sh on a large screen:
    TIDEWRIGHT_SCREEN=2600x3200 session.sh screenshots.py build/release/bin/tidewright FOLDER
"""
import argparse
import pathlib
import socket
import time

from window_driver import ControlWindow

WIDE = (1040, 1000)
WIDE_LONG = (1040, 1500)
NARROW = (400, 600)
NARROW_LONG = (400, 1500)
NARROW_LONGER = (400, 2400)


class Album:
    def __init__(self, window, folder, scale):
        self.window, self.folder, self.scale = window, folder, scale

    def take(self, name, size):
        self.window.resize(*(each * self.scale for each in size))
        time.sleep(0.4)  # for the last frame
        suffix = f"@{self.scale}x" if self.scale > 1 else ""
        self.window.shoot(str(self.folder / f"{name}{suffix}.png"))


def tour(window, album, scale):
    album.take("stopped-wide", WIDE)
    album.take("stopped-narrow", NARROW)
    window.press("Démarrer l'émission")
    window.find("Arrêter l'émission")
    window.until(lambda: "0 msg/s" not in window.texts(), "traffic")
    time.sleep(2)
    album.take("auto-wide", WIDE)
    album.take("auto-narrow", NARROW)
    album.take("auto-narrow-long", NARROW_LONG)
    window.press("Manuel")
    album.take("manual-wide", WIDE)
    album.take("manual-narrow-long", NARROW_LONG)
    window.press("Mouillage")
    window.switch("Bascules automatiques du vent", True)
    window.switch("Ancre qui dérape", True)
    album.take("anchor-wide", WIDE)
    album.take("anchor-narrow-long", NARROW_LONG)
    window.press("Auto")
    window.press("Perso")
    album.take("custom-wind-wide", WIDE)
    window.press("Brise")
    window.press("Console NMEA")
    window.switch("Checksum invalide", True)
    window.set("Latence", 150)
    with socket.create_connection(("127.0.0.1", 2000)):
        time.sleep(3)
        album.take("console-wide", (1040, 1440))
        album.take("console-narrow-long", NARROW_LONGER)
    window.press("Console NMEA")
    window.press("Réglages avancés")
    album.take("advanced-running-wide", WIDE_LONG)
    window.press("Arrêter l'émission")
    window.find("Démarrer l'émission")
    album.take("advanced-wide", WIDE_LONG)
    album.take("advanced-narrow-long", NARROW_LONGER)
    window.type("Port TCP", "0")
    window.press("Démarrer l'émission")
    window.find("TCP 0 : Port TCP invalide")
    album.take("error-wide", WIDE)
    with socket.socket() as taken:
        taken.bind(("0.0.0.0", 2001))
        taken.listen()
        window.type("Port TCP", "2001")
        window.press("Démarrer l'émission")
        window.until(lambda: any("déjà utilisé" in each for each in window.texts()), "the error")
        album.take("port-in-use-wide", WIDE)
        album.take("port-in-use-narrow", NARROW)


def main():
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("program")
    options.add_argument("folder", type=pathlib.Path)
    options.add_argument("--scales", type=int, nargs="+", default=[1, 2])
    chosen = options.parse_args()
    chosen.folder.mkdir(parents=True, exist_ok=True)
    for scale in chosen.scales:
        with ControlWindow(chosen.program, {"QT_SCALE_FACTOR": str(scale)}) as window:
            tour(window, Album(window, chosen.folder, scale), scale)
            window.end()


if __name__ == "__main__":
    main()
