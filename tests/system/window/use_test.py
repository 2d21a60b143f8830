#!/usr/bin/python3
"""use_test.py PROGRAM LOCALE: uses the control window for minutes, by mouse and keyboard alone, and
looks at what a person would see. Run it through session.sh on a screen of 2500x1600."""
import re
import signal
import socket
import time

import window_case
from window_case import WindowCase
from window_driver import clipboard, xdotool

HEADER, START_BAR = 64, 72
DEFAULT = (1040, 1000)


class Console:
    """The console of a window, as it is read on the screen."""

    def __init__(self, test):
        self.test, self.window = test, test.window

    def lag(self):
        """How old the newest line in sight is, in seconds, by the clock on the wall."""
        now = time.localtime()
        rows = self.window.rows()
        self.test.assertTrue(rows, "an empty console")
        clock = time.strptime(rows[-1][:8], "%H:%M:%S")
        seconds = ((now.tm_hour - clock.tm_hour) * 60 + now.tm_min - clock.tm_min) * 60 \
            + now.tm_sec - clock.tm_sec
        return seconds + 86400 if seconds < -43200 else seconds  # midnight

    def follows(self):
        """Rows are read one after the other while they move: a second look is allowed."""
        self.test.eventually(lambda: self.lag() <= 2, "the newest line", 2)  # 1.5 s + rounding

    def stands_still(self, seconds=1.0):
        before = self.window.rows()
        time.sleep(seconds)
        self.test.assertEqual(self.window.rows(), before)

    def place(self, row, column=0):
        """Of a character of the row'th line in sight, on the screen."""
        boxes = sorted((node.get_extents(0) for node in self.window.walk(
            self.window.find("Console", "list")) if node.get_role_name() == "list item"
            and "showing" in {s.value_nick for s in node.get_state_set().get_states()}),
            key=lambda box: box.y)
        return round(boxes[row].x + 98 + 6.6 * column), boxes[row].y + 8


class UseTest(WindowCase):
    def at(self, size):
        self.window.resize(*size)
        self.window.focus_window()
        return self.window

    def starts(self):
        """By mouse, from the window as it opens."""
        self.window.focus_window()
        self.start()

    def opens_the_console(self):
        self.window.focus("Console NMEA")  # brings it into sight
        self.window.click("Console NMEA")
        self.eventually(lambda: len(self.window.rows()) > 5, "lines")
        return Console(self)

    def page_is_within_its_ends(self):
        """Some card is in sight wherever the page stands: no blank page."""
        cards = ("Connectez votre iPhone", "Instruments (en direct)", "Simulation",
                 "Réglages avancés", "Console NMEA")
        _, height = self.size()
        bottom = max(self.window.box(each)[1] for each in cards)
        top = min(self.window.box(each)[1] for each in cards)
        self.assertLessEqual(top, height - START_BAR)
        self.assertGreaterEqual(bottom + 700, HEADER)
        body = self.window.pixels(0, HEADER + 4, 300, 300)
        self.assertGreater(len({body[i:i + 3] for i in range(0, len(body), 3)}), 3, "a blank page")

    def size(self):
        said = xdotool("getwindowgeometry", self.window.window_id())
        return tuple(map(int, re.search(r"(\d+)x(\d+)", said.split("Geometry")[1]).groups()))

    def overlaps(self):
        _, height = self.size()
        shown, before, pieces = [], None, self.window.pieces()
        while before != pieces:  # the page comes to rest
            before, pieces = pieces, self.window.pieces()
        for name, (left, top, width, tall) in pieces:
            upper, lower = max(top, HEADER), min(top + tall, height - START_BAR)
            if lower - upper > 2 and width > 2 and top >= HEADER:
                shown.append((name, left, upper, left + width, lower))
        return [(a[0], b[0]) for i, a in enumerate(shown) for b in shown[i + 1:]
                if min(a[3], b[3]) - max(a[1], b[1]) > 1 and min(a[4], b[4]) - max(a[2], b[2]) > 1]

    def start_on_a_taken_port(self):
        self.window.press("Réglages avancés")
        self.window.type("Port TCP", str(self.port))
        self.window.press("Démarrer l'émission")
        self.eventually(lambda: self.says("déjà utilisé"), "the message")

    # The console

    def test_follows_for_two_minutes_of_use_at_three_sizes(self):
        self.starts()
        self.opens_the_console()
        console = Console(self)
        for size in ((1040, 1000), (420, 900), (1600, 1000)):
            self.at(size)
            end = time.monotonic() + 40
            while time.monotonic() < end:
                for act in (self.scrolls_the_page, self.drags_a_slider, self.types_a_number,
                            self.tabs_around, self.clicks_a_line):
                    act()
                    self.page_is_within_its_ends()
                    self.shows_the_console()
                    console.follows()

    def shows_the_console(self):
        self.window.focus("Filtrer")  # what has the keyboard already is not brought into sight
        self.window.focus("Console", "list")
        xdotool("key", "End")
        time.sleep(0.2)

    def scrolls_the_page(self):
        width, height = self.size()
        for notches in (-30, 30, -10):
            self.window.wheel((width - 12, height // 2), notches)

    def drags_a_slider(self):
        self.window.focus("% de polaire", "slider")
        left, top, width, height = self.window.box("% de polaire", "slider")
        self.window.drag((left + width // 3, top + height // 2), (left + width // 2, top + height // 2))

    def types_a_number(self):
        self.window.focus("% de polaire (valeur)")
        xdotool("key", "ctrl+a")
        xdotool("type", "93")
        xdotool("key", "Return")
        self.eventually(lambda: self.window.value("% de polaire", "slider") == 93, "the number")

    def tabs_around(self):
        for _ in range(12):
            xdotool("key", "Tab")

    def clicks_a_line(self):
        self.shows_the_console()
        xdotool("mousemove", *Console(self).place(2, 5), "click", 1)

    def test_follows_after_six_hundred_lines_and_when_opened_late(self):
        self.starts()
        time.sleep(14)  # six hundred lines
        console = self.opens_the_console()
        for _ in range(6):
            console.follows()
            time.sleep(1)
        self.window.click("Console NMEA")
        time.sleep(1)
        self.opens_the_console()
        for _ in range(6):
            console.follows()
            time.sleep(1)

    def test_stays_with_a_reader_who_scrolled_up_until_the_lines_are_gone(self):
        self.starts()
        console = self.opens_the_console()
        time.sleep(12)
        self.window.wheel(console.place(4), -5)
        time.sleep(0.3)
        console.stands_still(2)
        self.eventually(lambda: self.window.has("Dernières lignes"), "the way back")
        self.window.click("Dernières lignes")
        time.sleep(0.4)
        console.follows()

    def test_stays_put_while_paused_and_says_what_was_missed(self):
        self.starts()
        console = self.opens_the_console()
        time.sleep(1)
        self.window.click("Pause")
        self.window.find("Reprendre")
        time.sleep(0.2)
        console.stands_still(2)
        self.window.click("Reprendre")
        self.eventually(lambda: any("lignes manquées pendant la pause" in row
                                    for row in self.window.rows()), "a note", 3)
        console.follows()

    def test_a_click_in_the_console_leaves_the_page_where_it_is(self):
        self.starts()
        console = self.opens_the_console()
        time.sleep(13)
        before = self.window.box("Test de robustesse")
        for row in (0, 3, 8):
            xdotool("mousemove", *console.place(row, 3), "click", 1)
            time.sleep(0.3)
            self.assertEqual(self.window.box("Test de robustesse"), before)
        self.window.focus("Filtrer")
        self.window.keys("Tab", "Tab", "shift+Tab")
        time.sleep(0.5)
        self.page_is_within_its_ends()
        self.assertLess(abs(self.window.box("Test de robustesse")[1] - before[1]), 400)

    def test_selects_within_a_line_and_whole_lines_across_several(self):
        self.starts()
        console = self.opens_the_console()
        self.eventually(lambda: len(self.window.rows()) > 5, "lines")
        self.window.click("Pause")
        self.window.find("Reprendre")
        texts = [row.split(" ", 2)[2] for row in self.window.rows()]
        row = next(i for i, text in enumerate(texts) if i > 1 and text.startswith(("$", "!")))
        self.window.drag(console.place(row, 7), console.place(row, 12))
        self.window.keys("ctrl+c")
        self.eventually(lambda: clipboard() == texts[row][7:12], texts[row][7:12])
        self.window.drag(console.place(row, 7), console.place(row - 1, 2))
        self.window.keys("ctrl+c")
        self.eventually(lambda: clipboard() == "\n".join(texts[row - 1:row + 1]), "two texts")
        self.window.click("Copier")
        self.eventually(lambda: re.fullmatch(
            r"\d\d:\d\d:\d\d (TCP|UDP) > [^\n]+\n\d\d:\d\d:\d\d (TCP|UDP) > [^\n]+", clipboard()),
            "the lines in full")
        self.assertEqual(self.window.description("Copier"), "copié")

    def test_shows_long_lines_to_the_checksum(self):
        self.at((420, 1000))
        self.starts()
        console = self.opens_the_console()
        self.window.keys("ctrl+f")
        xdotool("type", "AIVDM")
        self.eventually(lambda: all("AIVDM" in row for row in self.window.rows()[-3:]), "AIS alone")
        self.window.click("Pause")
        self.window.find("Reprendre")
        rows = self.window.rows()
        row = next(i for i, text in enumerate(rows) if "AIVDM,2,1" in text)
        left, top = console.place(row)
        _, below = console.place(row + 1)
        self.assertGreaterEqual(below - top, 30)  # two rows for one long line
        self.window.click_at(left + 215, below - 17, times=2)  # the field at its end
        self.window.keys("ctrl+c")
        self.eventually(lambda: clipboard() == rows[row][-2:], "its checksum")

    def test_filters_by_transport_and_by_sentence(self):
        self.starts()
        self.opens_the_console()
        self.window.click("UDP", "radio button")
        self.eventually(lambda: all(row[9:12] == "UDP" for row in self.window.rows()), "UDP alone")
        self.window.click("Filtrer")
        xdotool("type", "HDG")
        self.eventually(lambda: len(self.window.rows()) > 3 and all(
            "$IIHDG," in row for row in self.window.rows()), "HDG alone")
        Console(self).follows()

    def test_is_as_high_as_the_window_allows(self):
        self.starts()
        self.opens_the_console()
        heights = {}
        for size in ((1040, 700), (1040, 1000), (2400, 1500)):
            self.at(size)
            time.sleep(0.3)
            heights[size] = self.window.box("Console", "list")[3]
        self.assertLess(heights[1040, 700], heights[1040, 1000] - 200)
        self.assertGreater(heights[2400, 1500], 900)

    # The page

    def test_lays_the_advanced_settings_in_two_columns_at_once(self):
        self.window.click("Réglages avancés")
        time.sleep(0.5)
        first, second = (self.window.box(each) for each in
                         ("Digital Yacht iKonvert / WLN10", "MiniPlex 3Wi"))
        self.assertEqual(first[1], second[1])
        self.assertGreater(self.window.box("Cap (HDT, HDG)")[0], self.window.box("GN")[0] + 200)

    def test_nothing_lies_over_anything_at_any_width(self):
        for running in (False, True):
            if running:
                self.window.press("Démarrer l'émission")
                self.window.find("Arrêter l'émission")
            for width in (420, 700, 820, 1040, 1600, 2400):
                self.at((width, 1000))
                self.window.press("Réglages avancés")  # unfolded at the size it keeps
                self.window.find("Passerelle simulée", "heading")
                self.assertEqual(self.overlaps(), [], (width, running))
                for notches in (-60, 12, 12):
                    self.window.wheel((width - 12, 400), notches)
                    self.assertEqual(self.overlaps(), [], (width, running))
                self.window.press("Réglages avancés")

    def test_keeps_the_header_clean(self):
        self.starts()
        self.window.click("Réglages avancés")
        time.sleep(0.5)
        clean = self.window.pixels(0, 0, 240, HEADER)
        for scroll in (-50, 1, 1, 1, 1, 1, 1, 2, 3, 4):
            self.window.wheel((1030, 500), scroll)
            for size in ((1040, 900), DEFAULT):
                self.window.resize(*size)
                time.sleep(0.15)
            self.assertEqual(self.window.pixels(0, 0, 240, HEADER), clean, "scrolled and resized")
        window = self.window.window_id()
        xdotool("windowunmap", "--sync", window, "windowmap", "--sync", window)
        time.sleep(0.5)
        self.assertEqual(self.window.pixels(0, 0, 240, HEADER), clean, "unmapped and mapped")

    def test_breaks_no_message_that_fits(self):
        with socket.socket() as other:
            other.bind(("", self.port))
            other.listen()
            self.start_on_a_taken_port()
        message = next(each for each in self.window.texts() if "déjà utilisé" in each)
        for width, lines in ((420, 3), (1600, 1), (2400, 1)):
            self.at((width, 1000))
            time.sleep(0.2)
            self.assertLess(self.window.box(message)[3], 20 * lines + 4, width)

    def test_stands_in_the_middle_of_a_wide_screen(self):
        self.at((2400, 1300))
        time.sleep(0.3)
        header = self.window.box("Tidewright", "heading")[0]
        card = self.window.box("Connectez votre iPhone", "heading")[0]
        self.assertLess(abs(header - card), 60)

    def test_segments_are_of_one_width(self):
        widths = {self.window.box(each)[2] for each in ("Enchaîné", "Louvoyage", "Travers", "Portant")}
        self.assertLessEqual(max(widths) - min(widths), 1)

    # Faults and clients

    def test_leads_to_the_faults_that_are_on_and_switches_them_off(self):
        self.starts()
        self.window.click("Console NMEA")
        self.window.switch("Couper le GPS", True)
        self.window.find("1 panne active")
        self.window.switch("Couper le flux", True)
        self.window.find("2 pannes actives")
        self.eventually(lambda: self.window.description("État") == "Rien ne part", "the warning")
        self.window.click("Console NMEA")
        time.sleep(0.4)
        self.window.click("2 pannes actives")
        self.window.find("Tout rétablir")
        time.sleep(0.5)
        self.window.click("Tout rétablir")
        self.eventually(lambda: self.window.description("État") == "En émission", "the stream")
        self.assertFalse(self.window.has("2 pannes actives"))

    def test_lists_the_clients_and_throws_one_out(self):
        self.starts()
        first, second = self.connect(), self.connect()
        self.window.find("2 clients connectés")
        self.window.click("Détail des clients")
        self.window.find("127.0.0.1", "list item")
        self.eventually(lambda: re.match(r"depuis \d+ s · [\d.]+ K?o reçus",
                                         self.window.description("127.0.0.1", "list item")),
                        "since when and how much")
        self.window.click("Déconnecter")
        self.window.find("1 client : 127.0.0.1")
        self.eventually(lambda: first.closed.is_set() != second.closed.is_set(), "one is out")

    # The keyboard

    def test_is_used_without_a_mouse(self):
        self.window.focus_window()
        self.window.keys("Return")  # on what has the keyboard when the window opens
        self.window.find("Arrêter l'émission")
        for _ in range(40):
            if self.window.focused() == "Réglages avancés":
                break
            self.window.keys("Tab")
        self.assertEqual(self.window.focused(), "Réglages avancés")
        self.window.keys("Return")
        self.window.find("Passerelle simulée", "heading")
        self.window.keys("F5")
        self.window.find("Démarrer l'émission")
        self.window.keys("Tab", "Down", "Return")
        self.eventually(lambda: self.window.state("NKE Wifi Box", "checked"), "the third preset")
        self.window.keys("Tab", "Return")
        self.eventually(lambda: not self.window.state("TCP", "checked"), "TCP switched off")

    def test_moves_sliders_far_with_one_key(self):
        self.window.press("Manuel")
        self.window.focus_window()
        self.window.focus("Cap", "slider")
        for key, value in (("End", 359), ("Prior", 359), ("Next", 349), ("Home", 0), ("Prior", 10),
                           ("Right", 11)):
            self.window.keys(key)
            self.eventually(lambda: self.window.value("Cap", "slider") == value, f"{key}: {value}")

    def test_takes_a_number_typed_beside_a_slider(self):
        self.window.press("Manuel")
        self.window.focus_window()
        self.window.click("Cap (valeur)")
        self.window.keys("ctrl+a")
        xdotool("type", "217")
        self.window.keys("Return")
        self.eventually(lambda: self.window.value("Cap", "slider") == 217, "the heading")
        self.window.click("Vitesse fond (valeur)")
        self.window.keys("ctrl+a")
        xdotool("type", "21")
        self.window.keys("Return")
        self.window.find("Un nombre de 0.0 à 20.0 nd")

    def test_obeys_its_shortcuts(self):
        self.window.focus_window()
        self.start()
        self.window.press("Louvoyage")
        self.window.keys("alt+v")
        self.eventually(lambda: "virement de bord en cours" in self.window.description("Statut"),
                        "the tack")
        self.opens_the_console()
        self.window.keys("ctrl+p")
        self.window.find("Reprendre")
        self.window.keys("ctrl+l")
        self.eventually(lambda: self.window.rows() == [], "an empty console")
        self.window.keys("ctrl+p")
        self.window.find("Pause")
        self.window.keys("F5")
        self.window.find("Démarrer l'émission")

    # Settings

    def test_says_what_is_wrong_with_a_port_beside_it(self):
        self.window.click("Réglages avancés")
        self.window.type("Port TCP", "70000")
        self.window.find("Un port va de 0 à 65535, 2000 reste en vigueur.")
        self.window.focus_window()
        self.window.focus("Port TCP", "text")
        self.window.paste("2001 ")
        self.window.keys("Return")
        self.eventually(lambda: self.window.field("Port TCP") == "2001", "the port")
        self.assertFalse(self.says("reste en vigueur"))
        self.eventually(lambda: self.window.description("Digital Yacht iKonvert / WLN10").endswith(
            "modifié"), "the mark of a modified preset")

    def test_changes_the_talker_while_it_runs(self):
        self.starts()
        client = self.connect()
        self.window.click("Réglages avancés")
        time.sleep(0.4)
        self.window.click("GN", "radio button")
        self.eventually(lambda: any(line.startswith("$GNRMC") for _, line in client.lines), "GN")

    def test_one_wind_pushes_the_other(self):
        self.window.press("Perso")
        self.window.set("Vent mini", 25, "slider")
        self.eventually(lambda: self.says("Zones de vent de 25–26 nœuds"), "the range")
        self.assertEqual(self.window.value("Vent maxi", "slider"), 26)

    # Ends

    def test_stops_when_its_terminal_hangs_up(self):
        self.start()
        client = self.connect()
        self.window.find("1 client : 127.0.0.1")
        self.assertEqual(self.window.end(signal.SIGHUP), (0, ""))
        self.assertTrue(client.closed.wait(5))
        self.assertFalse(client.was_reset)

    def test_stops_when_its_window_is_closed(self):
        self.start()
        client = self.connect()
        self.window.find("1 client : 127.0.0.1")
        self.window.close()
        self.assertEqual(self.window.wait(), (0, ""))
        self.assertTrue(client.closed.wait(5))


class LargePixelsTest(WindowCase):
    surroundings = {"QT_SCALE_FACTOR": "2"}

    def test_fits_a_screen_of_1080_lines(self):
        width, height = self.window.smallest_size()
        self.assertLessEqual((width, height), (800, 1000))


if __name__ == "__main__":
    window_case.main()
