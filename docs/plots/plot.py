#!/usr/bin/python3
"""Draws the pictures of docs/simulation.md from what a client receives: plot.py PROGRAM FOLDER"""

import io
import math
import pathlib
import re
import statistics
import subprocess
import sys
from types import SimpleNamespace

import matplotlib
import numpy

matplotlib.use("svg")
import matplotlib.pyplot as plt  # noqa: E402 (the backend comes first)
from matplotlib.lines import Line2D  # noqa: E402

PROGRAM, FOLDER = sys.argv[1], pathlib.Path(sys.argv[2])
COURSES = 44, 62, 90, 118, 150  # degrees off the wind that the programme steers, about
METRES, MILES = 111320, 60  # in a degree of latitude
PAGE = pathlib.Path(__file__).parent.parent / "simulation.md"

# Colours that stay apart for the colour-blind (Okabe and Ito).
STARBOARD, PORT, WIND, BOAT, GREY = "#009E73", "#D55E00", "#0072B2", "#333333", "#8c8c8c"
SLACK = "#CC79A7"
WINDS = {6: "#56B4E9", 10: "#0072B2", 14: "#E69F00", 20: "#D55E00"}

plt.rcParams.update({
    "svg.hashsalt": "tidewright", "font.size": 9, "axes.titlesize": 9, "axes.titlelocation": "left",
    "axes.spines.top": False, "axes.spines.right": False, "axes.grid": True,
    "grid.color": "#e4e4e4", "grid.linewidth": 0.6, "lines.linewidth": 1.1,
    "legend.frameon": False, "legend.handlelength": 1.4})


def signed(degrees):
    return (degrees + 180) % 360 - 180


def coordinate(text, hemisphere):
    degrees, minutes = divmod(float(text), 100)
    return (degrees + minutes / 60) * (-1 if hemisphere in "SW" else 1)


def read(seen, name, fields):
    """Takes what one sentence says into `seen`."""
    if name == "RMC":
        seen.latitude, seen.longitude = coordinate(*fields[2:4]), coordinate(*fields[4:6])
        seen.sog = float(fields[6])
    elif name == "HDT":
        seen.heading = float(fields[0])
    elif name == "VHW":
        seen.stw = float(fields[4])
    elif name == "MWV" and fields[1] == "T":
        seen.twa, seen.tws = signed(float(fields[0])), float(fields[2])
        seen.twd = (seen.heading + seen.twa) % 360
    elif name == "DPT":
        seen.depth = float(fields[0])


def record(minutes, *arguments):
    """One row for each second of a run, from the first step on: what the sentences said last."""
    run = ["--headless", "--seed", "1", "--start", "2026-06-01T12:00:00Z", "--speed", "max",
           "--duration", f"{minutes}m", "--output", "-", "--ais", "0",
           "--set", "network.tag-block=true"]
    done = subprocess.run([PROGRAM, *run, *arguments], capture_output=True, text=True, check=True)
    seen, rows, start = SimpleNamespace(), [], None
    for line in done.stdout.splitlines():
        _, tag, sentence = line.split("\\")
        time = int(re.search(r"c:(\d+)", tag)[1])
        start = time if start is None else start
        name, fields = sentence[3:6], sentence.split("*")[0].split(",")[1:]
        read(seen, name, fields)
        if name == "DPT":
            seen.minutes = (time - start) / 60000
            rows.append(SimpleNamespace(**vars(seen)))
    return rows[1:]


def column(rows, name):
    return [getattr(row, name) for row in rows]


def away(rows, latitude, longitude, unit):
    """East and north of a place, in units of which `unit` make a degree of latitude."""
    east = [(row.longitude - longitude) * unit * math.cos(math.radians(latitude)) for row in rows]
    return east, [(row.latitude - latitude) * unit for row in rows]


def on_tack(rows, values, side):
    """`values` where the wind comes over that side, and gaps elsewhere."""
    return [value if row.twa * side > 0 else math.nan for row, value in zip(rows, values)]


def wind_arrow(axes, twd):
    towards = math.radians(twd + 180)
    dx, dy = 0.09 * math.sin(towards), 0.09 * math.cos(towards)
    axes.annotate("", (0.9 + dx, 0.88 + dy), (0.9 - dx, 0.88 - dy), "axes fraction",
                  arrowprops={"arrowstyle": "-|>", "color": WIND, "lw": 1.8})


def save(figure, name):
    """Writes the picture, the same bytes every time: some of its names are addresses in memory."""
    picture = io.StringIO()
    figure.savefig(picture, metadata={"Date": None})
    text = picture.getvalue()
    for number, clip in enumerate(re.findall(r'<clipPath id="(\w+)"', text)):
        text = text.replace(clip, f"clip{number}")
    (FOLDER / f"{name}.svg").write_text(text, encoding="utf-8")


def sailing():
    rows = record(180)[::10]
    figure = plt.figure(figsize=(10, 6.2), layout="constrained")
    grid = figure.add_gridspec(4, 2, width_ratios=(0.85, 1))
    track = figure.add_subplot(grid[:, 0], aspect="equal", adjustable="datalim")
    east, north = away(rows, rows[0].latitude, rows[0].longitude, MILES)
    for side, colour, label in (1, STARBOARD, "starboard tack"), (-1, PORT, "port tack"):
        track.plot(on_tack(rows, east, side), on_tack(rows, north, side), color=colour, label=label)
    track.plot(0, 0, "o", color=BOAT, label="start")
    track.plot(east[-1], north[-1], "s", color=BOAT, label="after 3 h")
    wind_arrow(track, statistics.median(column(rows, "twd")))
    track.set(title="Track over ground, wind from the arrow's tail", xlabel="east of the start, NM",
              ylabel="north of the start, NM")
    track.legend(loc="upper left")

    minutes = column(rows, "minutes")
    panels = [figure.add_subplot(grid[i, 1]) for i in range(4)]
    panels[0].plot(minutes, column(rows, "tws"), color=WIND)
    panels[0].set(title="True wind speed, knots")
    panels[1].plot(minutes, column(rows, "twd"), color=WIND)
    panels[1].set(title="True wind direction, degrees", ylim=(215, 245), yticks=(220, 230, 240))
    for side, colour in (1, STARBOARD), (-1, PORT):
        angles = [abs(row.twa) for row in rows]
        panels[2].plot(minutes, on_tack(rows, angles, side), color=colour)
    panels[2].set(title="True wind angle off the bow, degrees", ylim=(0, 180),
                  yticks=(0, 45, 90, 135, 180))
    panels[3].plot(minutes, column(rows, "sog"), color=GREY, label="SOG")
    panels[3].plot(minutes, column(rows, "stw"), color=BOAT, label="STW")
    panels[3].set(title="Boat speed, knots", xlabel="minutes", ylim=(0, 10), yticks=(0, 5, 10))
    panels[3].legend(loc="lower right", ncols=2)
    for panel in panels:
        panel.set(xlim=(0, 180), xticks=range(0, 181, 30))
        panel.tick_params(labelbottom=panel is panels[3])
    save(figure, "sailing")


def anchor():
    slack_chain = ["--set", "anchor.chain-taut=false"]
    shifting = ["--set", "anchor.shifting-wind=true"]
    watches = {"Steady wind": [[], slack_chain],
               "Shifting wind": [shifting, shifting + slack_chain],
               "Dragging at 0.4 kn": [["--set", "anchor.dragging=true"]]}
    figure, axes = plt.subplots(3, 3, figsize=(10, 7.6), layout="constrained",
                                height_ratios=(2.2, 1, 1))
    for (name, runs), (swing, direction, speed) in zip(watches.items(), axes.T):
        for options in runs:
            slack = slack_chain[1] in options
            rows = record(20, "--set", "boat.mode=anchor", *options)
            draw_swing(swing, rows, 45 * (0.28 if slack else 0.82), SLACK if slack else BOAT)
            first = rows[:300]
            minutes = column(first, "minutes")
            speed.plot(minutes, column(first, "sog"), color=SLACK if slack else BOAT,
                       label=f"{'slack' if slack else 'taut'} chain")
        direction.plot(minutes, column(first, "heading"), color=GREY, label="heading")
        direction.plot(minutes, column(first, "twd"), color=WIND, label="wind from")
        wind_arrow(swing, 230)
        swing.set(title=name, xlabel="east of the anchor, m", aspect="equal", adjustable="datalim")
        direction.set(ylim=(185, 275), yticks=(190, 230, 270))
        speed.set(xlabel="minutes", ylim=(0, 3))
        for panel in direction, speed:
            panel.set(xlim=(0, 5), xticks=range(6))
    for swing in axes[0, :2]:
        swing.set(xlim=(-5, 50), ylim=(-5, 50))
    for panel, label in zip(axes[:, 0], ("north of the anchor, m", "degrees", "SOG, knots")):
        panel.set_ylabel(label)
    axes[1, 0].legend(loc="upper left", ncols=2)
    axes[2, 0].legend(loc="upper left", ncols=2)
    save(figure, "anchor")


def draw_swing(axes, rows, radius, colour):
    """The track around an anchor that lay `radius` metres upwind of where the boat began."""
    east, north = away(rows, rows[0].latitude, rows[0].longitude, METRES)
    downwind = math.radians(230 - 180)
    axes.plot([x + radius * math.sin(downwind) for x in east],
              [y + radius * math.cos(downwind) for y in north], color=colour)
    axes.plot(0, 0, "+", color=PORT, markersize=10, markeredgewidth=2)


def polar_table():
    """The polar as docs/simulation.md prints it: wind angles, and boat speeds for each wind."""
    lines = re.findall(r"^\| \*\*(\w+)\*\* \|(.*)\|$", PAGE.read_text(encoding="utf-8"), re.MULTILINE)
    table = {name: [float(cell) for cell in cells.split("|")] for name, cells in lines}
    return table.pop("TWA"), {int(wind): speeds for wind, speeds in table.items()}


def steady(rows, wind):
    """Angle and speed on each course that was held for a minute in that wind, either tack."""
    found = {}
    for i in range(60, len(rows)):
        angles = column(rows[i - 60:i], "twa")
        if max(angles) - min(angles) < 12 and abs(rows[i].tws - wind) < 0.3:
            angle = statistics.mean(angles)
            course = min(COURSES, key=lambda each: abs(each - abs(angle)))
            found.setdefault((course, angle > 0), []).append((angle, rows[i].stw))
    return [tuple(map(statistics.median, zip(*each))) for each in found.values()]


def polar():
    angles, table = polar_table()
    figure = plt.figure(figsize=(7.6, 6), layout="constrained")
    axes = figure.add_subplot(projection="polar", theta_direction=-1, theta_offset=math.pi / 2)
    every = numpy.arange(-180, 181)
    for wind, colour in WINDS.items():
        axes.plot(numpy.radians(every), numpy.interp(abs(every), angles, table[wind]), color=colour,
                  label=f"{wind} kn")
        rows = record(360, "--no-steps", "--wind-range", f"{wind - 0.5}-{wind + 0.5}")
        for angle, speed in steady(rows, wind):
            axes.plot(math.radians(angle), speed, "o", color=colour, markersize=5)
    axes.set(ylim=(0, 10), yticks=range(2, 9, 2), xticks=numpy.radians(range(0, 360, 30)),
             xticklabels=[f"{abs(signed(angle)):.0f}°" for angle in range(0, 360, 30)])
    axes.set_rlabel_position(0)
    handles, _ = axes.get_legend_handles_labels()
    handles += [Line2D([], [], color=GREY, label="the table"),
                Line2D([], [], color=GREY, marker="o", linestyle="", label="the stream")]
    axes.legend(handles=handles, loc="lower left", bbox_to_anchor=(1.02, 0),
                title="STW in knots\nat a TWS of", alignment="left")
    save(figure, "polar")


sailing()
anchor()
polar()
