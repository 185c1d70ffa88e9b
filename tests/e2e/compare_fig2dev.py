"""Draws figures by the engine and by fig2dev at the same scale and compares their ink.

Texts and pictures are taken out of a copy of each figure, since fonts and picture decoding are
other people's work. The copy gets a thin frame around everything, which aligns the two pictures.
Ink of one has to lie within two pixels of ink of the other. What is known to differ stands in a
list with the number of stray pixels and the reason; more strays than that are a failure.
"""

import argparse
import json
import os
import subprocess
import sys
import tempfile

FRAME_MARGIN = 20  # pixels at zoom 1 between the figure and its frame
PIXEL = 15         # figure units per pixel at zoom 1 and 80 pixels per inch


class Figure:
    """The lines of a figure, cut into preamble and records."""

    def __init__(self, path):
        with open(path, encoding="latin-1", newline=None) as stream:
            self.lines = stream.read().split("\n")
        self.position = 0
        self.version = float(self.lines[0].split()[1])
        self.preamble = self.read_preamble() if self.version > 3.05 else []

    def is_readable(self):
        """Versions before 3.1 and files that end in their preamble are refused by the engine."""
        return bool(self.preamble) and None not in self.preamble

    def next_line(self):
        """Next line that is neither blank nor a comment, or None."""
        while self.position < len(self.lines):
            line = self.lines[self.position]
            self.position += 1
            if line.strip() and not line.startswith("#"):
                return line
        return None

    def read_preamble(self):
        self.position = 1
        count = 8 if self.version > 3.15 else 4
        return [self.next_line() for _ in range(count)]

    def resolution(self):
        return int(self.preamble[-1].split()[0])

    def take_numbers(self, count):
        taken = []
        while count > 0:
            line = self.next_line()
            if line is None:
                break
            taken.append(line)
            count -= len(line.split())
        return taken

    def path_tail(self, arrows, extra_lines, numbers):
        tail = [self.next_line() for _ in range(arrows + extra_lines)]
        return [line for line in tail if line is not None] + self.take_numbers(numbers)

    def records(self):
        """Yields (fields, lines) for each record; a compound is its first and its last line."""
        while True:
            line = self.next_line()
            if line is None:
                return
            fields = line.split()
            yield fields, [line] + self.record_tail(fields)

    def record_tail(self, fields):
        code = fields[0]
        if code == "2" and len(fields) > 15:
            return self.path_tail(flags(fields[13:15]), fields[1] == "5", 2 * int(fields[15]))
        if code == "3" and len(fields) > 13:
            per_point = 3
            if self.version < 3.15:
                per_point = 6 if int(fields[1]) >= 2 else 2
            return self.path_tail(flags(fields[11:13]), 0, per_point * int(fields[13]))
        if code == "5" and len(fields) > 13:
            return self.path_tail(flags(fields[12:14]), 0, 0)
        if code == "4":
            self.skip_text()
        return []

    def skip_text(self):
        """A text may run over several lines; it ends with a literal \\001."""
        while "\\001" not in self.lines[self.position - 1] and self.position < len(self.lines):
            self.position += 1

    def stripped(self, bounds):
        """Text of the figure without texts and pictures, in inches, at 100 percent.

        bounds, in units of the file, replaces the corners that compounds claim and becomes the
        frame; None leaves both out."""
        out = [self.lines[0].split(" Produced")[0]]
        preamble = list(self.preamble)
        preamble[0], preamble[2] = "Portrait", "Inches"
        if len(preamble) == 8:
            preamble[4] = "100.00"
        out += preamble
        body = []
        for fields, lines in self.records():
            if fields[0] == "4" or fields[:2] == ["2", "5"]:
                continue
            if fields[0] == "0":
                out += lines
            elif fields[0] == "6" and bounds:
                body.append("6 %d %d %d %d" % tuple(bounds))
            else:
                body += lines
        if bounds:
            x1, y1, x2, y2 = bounds
            out.append("2 2 0 1 0 7 999 -1 -1 0.000 0 0 -1 0 0 5")
            out.append("\t%d %d %d %d %d %d %d %d %d %d"
                       % (x1, y1, x2, y1, x2, y2, x1, y2, x1, y1))
        return "\n".join(out + drop_empty_compounds(body)) + "\n"


def flags(fields):
    return sum(1 for field in fields if field != "0")


def drop_empty_compounds(lines):
    kept = []
    for line in lines:
        if line.startswith("-6") and kept and kept[-1].split()[0] == "6" \
                and len(kept[-1].split()) == 5:
            kept.pop()
        else:
            kept.append(line)
    return kept


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, timeout=120).stdout


def merged_bounds(info):
    boxes = [entry["exactBounds"] for entry in info["objects"]]
    if not boxes:
        return None
    return [min(b[0] for b in boxes), min(b[1] for b in boxes),
            max(b[2] for b in boxes), max(b[3] for b in boxes)]


def frame_of(bounds):
    """Frame on whole pixels, in figure units."""
    left, top = ((v // PIXEL - FRAME_MARGIN) * PIXEL for v in bounds[:2])
    right, bottom = ((v // PIXEL + FRAME_MARGIN) * PIXEL for v in bounds[2:])
    return [left, top, right, bottom]


def to_file_units(value, resolution):
    """Undoes the scaling of the reader, which adds 15 when the resolution is another one."""
    if resolution in (1200, 0):
        return value
    return round((value - 15) * resolution / 1200)


class Comparison:
    def __init__(self, tools, folder, zoom, keep):
        self.figprobe, self.inkdiff = tools
        self.folder, self.zoom, self.keep = folder, zoom, keep

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="latin-1") as stream:
            stream.write(text)
        return self.path(name)

    def figure_bounds(self, path):
        plain = self.write("plain.fig", Figure(path).stripped(None))
        return merged_bounds(json.loads(run(self.figprobe, "info", plain)))

    def compare(self, path):
        """[ink ours, ink theirs, colour ours, colour theirs, frame error], None if empty."""
        bounds = self.figure_bounds(path)
        if bounds is None:
            return None
        frame = frame_of(bounds)
        figure = Figure(path)
        in_file = [to_file_units(value, figure.resolution()) for value in frame]
        framed = self.write("framed.fig", figure.stripped(in_file))
        size = ["%d" % (((high - low) / PIXEL + 10) * self.zoom + 1)
                for low, high in zip(frame[:2], frame[2:])]
        run(self.figprobe, "render", framed, self.path("ours.png"), "--no-antialias", "--no-page",
            "--zoom", str(self.zoom), "--size", "x".join(size), "--origin",
            "%d,%d" % (frame[0] - 5 * PIXEL, frame[1] - 5 * PIXEL))
        run("fig2dev", "-L", "png", "-m", str(self.zoom), framed, self.path("theirs.png"))
        result = run(self.inkdiff, self.path("ours.png"), self.path("theirs.png"),
                     self.path("diff.png"))
        if self.keep:
            self.keep_pictures(os.path.splitext(os.path.basename(path))[0])
        return [int(number) for number in result.split()]

    def keep_pictures(self, stem):
        for kind in ("ours", "theirs", "diff"):
            os.replace(self.path(kind + ".png"), os.path.join(self.keep, stem + "." + kind + ".png"))


def read_known(path):
    """name -> (ink ours, ink theirs, reason): what may differ, at most. "-" for the numbers
    stands for a figure that fig2dev cannot draw."""
    known = {}
    with open(path, encoding="utf-8") as stream:
        for line in stream:
            if line.strip() and not line.startswith("#"):
                name, ours, theirs, reason = line.rstrip("\n").split("\t")
                known[name] = (-1, -1, reason) if ours == "-" else (int(ours), int(theirs), reason)
    return known


def is_accepted(result, allowed):
    return result[4] <= 2 and result[0] <= allowed[0] and result[1] <= allowed[1]


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("figures", nargs="+")
    parser.add_argument("--figprobe", required=True)
    parser.add_argument("--inkdiff", required=True)
    parser.add_argument("--known", required=True)
    parser.add_argument("--zoom", type=float, default=1.0)
    parser.add_argument("--keep", help="folder for the pictures and their differences")
    parser.add_argument("--table", action="store_true", help="print a line for every figure")
    return parser.parse_args()


def compare_one(comparison, path, known):
    """(line of the table, whether it is accepted), or None for the second where nothing was
    compared."""
    name = os.path.basename(path)
    allowed = known.get(name, (0, 0, ""))
    if allowed[0] < 0:
        return "%s: %s" % (name, allowed[2]), None
    try:
        if not Figure(path).is_readable():
            return "%s: older than 3.1 or incomplete, refused" % name, None
        result = comparison.compare(path)
    except (subprocess.SubprocessError, ValueError, IndexError, OSError) as error:
        return "FAIL %s: %s" % (name, error), False
    if result is None:
        return "%s: nothing but texts and pictures" % name, None
    accepted = is_accepted(result, allowed)
    return ("%s %s: ink %d/%d, colour %d/%d, frame %d; allowed %d/%d %s"
            % ("ok  " if accepted else "FAIL", name, *result, *allowed)), accepted


def main():
    options = parse_arguments()
    known = read_known(options.known)
    verdicts = []
    with tempfile.TemporaryDirectory() as folder:
        comparison = Comparison((options.figprobe, options.inkdiff), folder, options.zoom,
                                options.keep)
        for path in options.figures:
            line, accepted = compare_one(comparison, path, known)
            verdicts.append(accepted)
            if options.table or accepted is False:
                print(line)
    compared, failed = len(verdicts) - verdicts.count(None), verdicts.count(False)
    print("%d figures compared at zoom %g, %d failed" % (compared, options.zoom, failed))
    return 1 if failed or not compared else 0


if __name__ == "__main__":
    sys.exit(main())
