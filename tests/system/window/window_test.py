#!/usr/bin/python3
"""window_test.py PROGRAM LOCALE: uses the control window as a person would, and watches as a client
of the gateway what comes of it. Run it through session.sh."""
import os
import re
import signal
import socket
import subprocess
import time
import unittest

import window_case
from nmea_client import NmeaClient, checksum_holds, family
from window_case import WindowCase
from window_driver import clipboard

ADVICE = "Le réseau NMEA émet."


class WindowTest(WindowCase):
    def test_starts_shows_the_address_and_stops(self):
        self.eventually(lambda: self.says("Démarrez la simulation"), "the invitation")
        self.start()
        self.eventually(lambda: self.says(ADVICE), "the advice")
        self.assertEqual(self.window.description("Port TCP"), str(self.port))
        address = self.window.description("Adresse IP")
        self.assertRegex(address, r"^(\d+\.\d+\.\d+\.\d+|Aucun réseau)$")
        if address != "Aucun réseau":
            self.window.press("Copier l'adresse")
            self.eventually(lambda: clipboard() == address, "the address on the clipboard")
        self.eventually(lambda: self.window.description("État") == "En émission", "the status")
        self.window.press("Arrêter l'émission")
        self.window.find("Démarrer l'émission")
        with self.assertRaises(OSError):
            NmeaClient(self.port)

    def test_shows_who_is_connected(self):
        self.start()
        self.window.find("en attente de connexion")
        first = self.connect()
        self.window.find("1 client : 127.0.0.1")
        self.arrives(first, "RMC", "GGA", "VTG", "HDT", "HDG", "VHW", "MWV", "DBT", "DPT", "MTW",
                     "AIS")
        self.assertTrue(all(checksum_holds(line) for _, line in first.lines))
        second = self.connect()
        self.window.find("2 clients connectés")
        first.close()
        second.socket.shutdown(socket.SHUT_RDWR)
        self.window.find("en attente de connexion")

    def test_sails_every_programme_in_every_wind(self):
        self.start()
        for label, text in (("Louvoyage", "Louvoyage au près"), ("Travers", "Allures de travers"),
                            ("Portant", "Portant au grand largue"), ("Enchaîné", "Près, travers")):
            self.window.press(label)
            self.eventually(lambda: self.says(text), text)
        for label, winds in (("Petit temps", "5–9"), ("Bon vent", "17–22"), ("Fort", "23–30"),
                             ("Brise", "10–16"), ("Perso", "8–18")):
            self.window.press(label)
            self.eventually(lambda: self.says(f"Zones de vent de {winds} nœuds"), winds)
        self.window.set("Vent maxi", 25)
        self.eventually(lambda: self.says("Zones de vent de 8–25 nœuds"), "the chosen wind")

    def test_tacks_when_told_to(self):
        self.start()
        self.window.press("Louvoyage")
        self.window.press("Virer de bord")
        self.eventually(lambda: "virement de bord en cours" in self.window.description("Statut"),
                        "the tack")

    def test_is_steered_by_hand(self):
        self.start()
        client = self.connect()
        self.window.press("Manuel")
        self.window.set("Cap", 42)
        self.window.set("Profondeur", 8.5, "slider")
        self.window.set("Vitesse fond", 7.5, "slider")
        self.eventually(lambda: any(line.startswith("$IIHDT,42.0,T") for _, line in client.lines),
                        "the heading on the wire")
        self.eventually(lambda: any(line.startswith("$IIDPT,8.5,") for _, line in client.lines),
                        "the depth on the wire")
        self.eventually(lambda: "7.5 nd" in self.window.texts(), "the speed, with a point")

    def test_lies_to_the_anchor(self):
        self.start()
        self.window.press("Mouillage")
        self.window.find("Longueur de chaîne")
        self.window.switch("Ancre qui dérape", True)
        self.window.find("Vitesse de dérapage")
        self.window.switch("Bascules automatiques du vent", True)
        self.window.find("Amplitude des bascules")
        self.window.press("Chaîne molle")
        self.eventually(lambda: self.says("Chaîne molle :"), "the slack chain")

    def test_silences_what_it_is_told_to(self):
        self.start()
        client = self.connect()
        self.window.press("Console NMEA")
        for label, silent in (("Couper le GPS", {"RMC", "GGA", "VTG"}), ("Couper le vent", {"MWV"}),
                              ("Couper l'AIS", {"AIS"})):
            self.window.switch(label, True)
            client.watch(0.3)  # what was on its way
            heard = {family(line) for line in client.watch(2.2)}
            self.assertFalse(heard & silent, label)
            self.assertIn("HDT", heard, label)
            self.window.switch(label, False)
            self.arrives(client, *silent)
        self.window.switch("Couper le flux", True)
        client.watch(0.3)
        self.assertEqual(client.watch(1.5), [])
        self.window.switch("Couper le flux", False)
        self.arrives(client, "HDT")

    def test_spoils_the_checksums(self):
        self.start()
        client = self.connect()
        self.window.press("Console NMEA")
        self.window.switch("Checksum invalide", True)
        client.watch(0.3)
        lines = client.watch(1.5)
        self.assertTrue(lines)
        self.assertFalse(any(checksum_holds(line) for line in lines))

    def test_delays_and_loses_sentences(self):
        self.start()
        client = self.connect()
        self.window.press("Console NMEA")
        self.arrives(client, "HDT")
        self.window.set("Latence", 2000)
        self.eventually(lambda: self.window.description("Latence") == "2000 ms", "the latency")
        client.watch(0.2)
        self.assertEqual(client.watch(1.2), [])  # everything is two seconds late
        self.arrives(client, "HDT")
        self.window.set("Latence", 0)
        self.window.set("Perte de paquets", 100)
        self.eventually(lambda: self.window.description("Perte de paquets") == "100 %", "the loss")
        client.watch(2.3)
        self.assertEqual(client.watch(1.2), [])
        self.window.set("Perte de paquets", 50)
        heard = [line for line in client.watch(4) if family(line) == "HDT"]
        self.assertTrue(2 <= len(heard) <= 18, len(heard))

    def test_throws_its_clients_out(self):
        self.start()
        self.window.press("Console NMEA")
        client = self.connect()
        self.window.find("1 client : 127.0.0.1")
        self.window.press("Lâcher les clients TCP")
        self.assertTrue(client.closed.wait(5))
        self.window.find("en attente de connexion")
        self.window.switch("Déconnexions aléatoires", True)
        again = self.connect()
        self.assertTrue(again.closed.wait(10))

    def test_pauses_clears_and_copies_the_console(self):
        self.start()
        self.window.press("Console NMEA")
        self.eventually(lambda: len(self.window.rows()) > 5, "lines")
        self.window.press("Pause")
        self.window.find("Reprendre")
        before = self.window.rows()
        time.sleep(0.6)
        self.assertEqual(self.window.rows(), before)
        self.window.press("Copier")
        line = re.compile(r"\d\d:\d\d:\d\d (SYS|TCP|UDP) > .+")
        self.eventually(lambda: clipboard(), "something on the clipboard")
        copied = clipboard().split("\n")
        self.assertTrue(all(line.fullmatch(each) for each in copied), copied)
        self.assertIn("Simulation démarrée — TCP %d · UDP 2000" % self.port, copied[0])
        self.window.press("Clear")
        self.eventually(lambda: self.window.rows() == [], "an empty console")
        self.window.press("Reprendre")
        self.window.find("Pause")
        self.eventually(lambda: len(self.window.rows()) > 5, "lines")

    def test_copies_selected_rows_with_the_keyboard(self):
        self.start()
        self.window.press("Console NMEA")
        self.eventually(lambda: len(self.window.rows()) > 5, "lines")
        self.window.press("Pause")
        self.window.find("Reprendre")
        self.window.focus_window()
        self.window.focus("Console", "list")
        self.window.keys("Up", "Up", "shift+Up", "ctrl+c")
        self.eventually(lambda: len(clipboard().split("\n")) == 2, "two lines on the clipboard")

    def test_applies_every_preset(self):
        self.window.press("Réglages avancés")
        for label, port, talker in (("MiniPlex 3Wi", "10110", "GP"), ("NKE Wifi Box", "50000", "II"),
                                    ("Yacht Devices YDWG-02", "1456", "GN"),
                                    ("Generic NMEA", "10110", "GP"), ("Custom", "2000", "GP"),
                                    ("Digital Yacht iKonvert / WLN10", "2000", "GP")):
            self.window.press(label)
            for field in ("Port TCP", "Port UDP"):
                self.eventually(lambda: self.window.field(field) == port, f"{label}: {field}")
            self.eventually(lambda: self.window.state(talker, "checked"), f"{label}: {talker}")

    def test_starts_on_the_last_port_where_what_was_typed_is_none(self):
        self.window.press("Réglages avancés")
        self.window.type("Port TCP", str(self.port))
        self.window.type("Port TCP", "70000")
        self.window.find(f"Un port va de 0 à 65535, {self.port} reste en vigueur.")
        self.window.press("Démarrer l'émission")
        self.window.find("Arrêter l'émission")
        self.connect()

    def test_says_that_the_port_is_taken(self):
        with socket.socket() as other:
            other.bind(("", self.port))
            other.listen()
            self.window.press("Réglages avancés")
            self.window.type("Port TCP", str(self.port))
            self.window.press("Démarrer l'émission")
            self.window.find(f"Le port TCP {self.port} est déjà utilisé : une autre instance du "
                             "simulateur tourne probablement. Quittez-la (ou changez de port), "
                             "puis relancez.")
        self.window.press("Démarrer l'émission")
        self.window.find("Arrêter l'émission")
        self.assertFalse(self.says("déjà utilisé"))

    def test_ends_when_it_is_interrupted(self):
        self.start()
        self.assertEqual(self.window.end(signal.SIGINT), (0, ""))


class NoDisplayTest(unittest.TestCase):
    def test_says_so_in_one_line(self):
        for display in ({}, {"DISPLAY": ":4242"}):
            surroundings = {k: v for k, v in os.environ.items()
                            if k not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
            done = subprocess.run([window_case.program], env=surroundings | display, capture_output=True,
                                  timeout=20)
            said = done.stderr.decode()
            self.assertEqual((done.returncode, said.count("\n")), (1, 1), said)
            self.assertIn("--headless", said)


if __name__ == "__main__":
    window_case.main()
