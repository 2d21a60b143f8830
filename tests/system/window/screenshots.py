#!/usr/bin/python3
"""screenshots.py PROGRAM FOLDER: pictures of the control window in every state, at every width and
scale, got to as a person does: the window has its size before anything in it is unfolded.

Run it through session.sh on a large screen:
    TIDEWRIGHT_SCREEN=4900x3300 session.sh screenshots.py build/release/bin/tidewright FOLDER
"""
import argparse
import pathlib
import socket
import time

from window_driver import ControlWindow

SIZES = ((420, 900), (1040, 1000), (1600, 1100), (2400, 1300))


class Album:
    def __init__(self, window, folder, scale, size):
        self.window, self.folder, self.scale, self.size = window, folder, scale, size
        window.resize(*(round(each * scale) for each in size))
        window.focus_window()

    def take(self, name):
        time.sleep(0.6)  # for the last frame
        self.window.shoot(str(self.folder / f"{name}-{self.size[0]}@{self.scale:g}x.png"))

    def down(self):
        """As far as the page goes."""
        width, height = (round(each * self.scale) for each in self.size)
        self.window.wheel((width - 14, height // 2), 100)

    def up(self):
        width, height = (round(each * self.scale) for each in self.size)
        self.window.wheel((width - 14, height // 2), -100)

    def every_page(self, name):
        """From the top of the page to its end."""
        self.up()
        self.take(f"{name}-1")
        for part in (2, 3, 4):
            before = self.window.box("Console NMEA")
            width, height = (round(each * self.scale) for each in self.size)
            self.window.wheel((width - 14, height // 2), 8)
            time.sleep(0.4)
            if self.window.box("Console NMEA") == before:
                return
            self.take(f"{name}-{part}")


def tour(window, album):
    album.every_page("stopped")
    window.press("Démarrer l'émission")
    window.find("Arrêter l'émission")
    window.until(lambda: "0 msg/s" not in window.texts(), "traffic")
    time.sleep(2)
    album.every_page("auto")
    window.press("Perso")
    album.take("custom-wind")
    window.press("Brise")
    window.press("Manuel")
    album.every_page("manual")
    window.press("Mouillage")
    window.switch("Bascules automatiques du vent", True)
    window.switch("Ancre qui dérape", True)
    time.sleep(2)
    album.every_page("anchor")
    window.press("Auto")
    window.press("Console NMEA")
    window.switch("Checksum invalide", True)
    window.set("Latence", 150)
    with socket.create_connection(("127.0.0.1", 2000)):
        time.sleep(3)
        album.take("console")
        album.down()
        album.take("console-end")
        album.up()
        window.press("Détail des clients")
        album.take("clients")
    window.press("Console NMEA")
    window.press("Réglages avancés")
    album.take("advanced-running")
    album.down()
    album.take("advanced-running-end")
    window.press("Arrêter l'émission")
    window.find("Démarrer l'émission")
    window.press("Réglages avancés")
    window.press("Réglages avancés")
    album.take("advanced")
    window.type("Port TCP", "70000")
    album.take("wrong-port")
    window.type("Port TCP", "0")
    window.press("Démarrer l'émission")
    window.find("TCP 0 : Port TCP invalide")
    album.take("error")
    with socket.socket() as taken:
        taken.bind(("0.0.0.0", 2001))
        taken.listen()
        window.type("Port TCP", "2001")
        window.press("Démarrer l'émission")
        window.until(lambda: any("déjà utilisé" in each for each in window.texts()), "the error")
        album.take("port-in-use")


def main():
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("program")
    options.add_argument("folder", type=pathlib.Path)
    options.add_argument("--scales", type=float, nargs="+", default=[1, 1.5, 2])
    options.add_argument("--widths", type=int, nargs="+", default=[size[0] for size in SIZES])
    chosen = options.parse_args()
    chosen.folder.mkdir(parents=True, exist_ok=True)
    for scale in chosen.scales:
        for size in (each for each in SIZES if each[0] in chosen.widths):
            with ControlWindow(chosen.program, {"QT_SCALE_FACTOR": str(scale)}) as window:
                tour(window, Album(window, chosen.folder, scale, size))
                window.end()


if __name__ == "__main__":
    main()
