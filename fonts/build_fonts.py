#!/usr/bin/env python3
"""Builds the two music fonts from one SMuFL font and the table fontmap.tsv.

    build_fonts.py SOURCE.otf [--out FOLDER]

README.md tells where the source comes from and what the columns of the table
mean. Lengths are 1/1000 em, y upward; an em is four staff spaces. The same
source and table always give the same bytes.
"""
import argparse
import csv
import itertools
from dataclasses import dataclass
from fractions import Fraction
from pathlib import Path

from fontTools.fontBuilder import FontBuilder
from fontTools.misc.bezierTools import splitCubic
from fontTools.misc.transform import Transform
from fontTools.pens.boundsPen import BoundsPen
from fontTools.pens.cu2quPen import Cu2QuPen
from fontTools.pens.recordingPen import DecomposingRecordingPen, RecordingPen
from fontTools.pens.transformPen import TransformPen
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTFont

HERE = Path(__file__).resolve().parent
EM = 1000
ASCENT, DESCENT = 1400, -1100
SPACE_ADVANCE = 250
TURNED_ADVANCE = 120        # of an outline that the table turns upright
CODE_BASE = 0xF000          # code c stands at U+F000 + c, clear of blanks and control characters
CURVE_TOLERANCE = 0.4       # largest distance of a quadratic curve from the cubic one it replaces
VERSION = "1.000"
DATE = 3_786_912_000        # seconds since 1904, fixed so that rebuilding changes no byte
QUARTER_TURN = (0, 1, -1, 0, 0, 0)
SQUARE = "square"           # the table's name for an outline drawn here, one unit wide and high


@dataclass(frozen=True)
class Part:
    """One outline of a glyph: where it comes from and what is done to it."""
    outline: str
    smufl: int
    change: str
    scale: tuple
    shift: tuple


@dataclass(frozen=True)
class Glyph:
    code: int
    parts: tuple
    ink_left: int | None     # x at which the ink begins; None leaves it where it falls

    @property
    def name(self):
        return f"code{self.code:03d}"


# The table ---------------------------------------------------------------------------------------------

def read_part(row):
    return Part(outline=row["outline"],
                smufl=int(row["smufl"][2:], 16) if row["smufl"] else 0,
                change=row["change"],
                scale=tuple(float(Fraction(row[c] or 1)) for c in ("scale_x", "scale_y")),
                shift=tuple(int(row[c] or 0) for c in ("x", "y")))


def read_fonts(path):
    """The table as a dictionary: family to its glyphs in the order of their codes."""
    fonts = {}
    with open(path, newline="", encoding="utf-8") as table:
        rows = csv.DictReader(table, delimiter="\t")
        for (family, code), lines in itertools.groupby(rows, lambda r: (r["font"], int(r["code"]))):
            lines = list(lines)
            left = lines[0]["ink_left"]
            glyph = Glyph(code, tuple(map(read_part, lines)), int(left) if left else None)
            fonts.setdefault(family, []).append(glyph)
    for family, glyphs in fonts.items():
        codes = [g.code for g in glyphs]
        if codes != sorted(set(codes)):
            raise SystemExit(f"{path}: the codes of {family} do not ascend")
    return fonts


# Outlines ----------------------------------------------------------------------------------------------

def bounds_of(recording):
    pen = BoundsPen(None)
    recording.replay(pen)
    return pen.bounds


def transformed(recording, transform):
    result = RecordingPen()
    recording.replay(TransformPen(result, transform))
    return result


def square():
    """Counter-clockwise, as the outlines of the source run."""
    pen = RecordingPen()
    pen.moveTo((0, 0))
    for corner in ((1, 0), (1, 1), (0, 1)):
        pen.lineTo(corner)
    pen.closePath()
    return pen


def contours_of(recording):
    """Every contour as a list of cubic segments (four points each), closed where it was open."""
    contours = []
    for operation, points in recording.value:
        if operation == "moveTo":
            start = here = points[0]
            contours.append([])
        elif operation == "curveTo":
            contours[-1].append((here, *points))
            here = points[-1]
        elif operation == "lineTo":
            contours[-1].append((here, here, points[0], points[0]))
            here = points[0]
        elif here != start:
            contours[-1].append((here, here, start, start))
    return contours


def half_of(recording, is_upper):
    """The part above or below half the height. What the cut opens is closed by straight lines."""
    _, bottom, _, top = bounds_of(recording)
    middle = (bottom + top) / 2
    result = RecordingPen()
    for contour in contours_of(recording):
        pieces = [p for segment in contour for p in splitCubic(*segment, middle, True)]
        kept = [p for p in pieces if (sum(y for _, y in p) / 4 >= middle) == is_upper]
        draw_contour(result, kept)
    return result


def draw_contour(pen, segments):
    if not segments:
        return
    here = segments[0][0]
    pen.moveTo(here)
    for start, *curve in segments:
        if abs(start[0] - here[0]) + abs(start[1] - here[1]) > 0.01:
            pen.lineTo(start)
        pen.curveTo(*curve)
        here = curve[-1]
    pen.closePath()


class Source:
    """The SMuFL font that the outlines come from."""

    def __init__(self, path):
        self._font = TTFont(path)
        if self._font["head"].unitsPerEm != EM:
            raise SystemExit(f"{path}: not {EM} units to the em")
        self._names = self._font.getBestCmap()
        self._glyphs = self._font.getGlyphSet()

    def copyright(self):
        return self._font["name"].getDebugName(0).split("\n")[0].strip()

    def outline(self, part):
        """The part's outline before scale and shift, and its advance."""
        if part.outline == SQUARE:
            return square(), 0
        if part.smufl not in self._names:
            raise SystemExit(f"the source has no {part.outline} (U+{part.smufl:04X})")
        glyph = self._glyphs[self._names[part.smufl]]
        pen = DecomposingRecordingPen(self._glyphs)
        glyph.draw(pen)
        return CHANGES[part.change](pen, glyph.width)


CHANGES = {
    "": lambda outline, advance: (outline, advance),
    "turned": lambda outline, advance: (transformed(outline, QUARTER_TURN), TURNED_ADVANCE),
    "upper half": lambda outline, advance: (half_of(outline, True), advance),
    "lower half": lambda outline, advance: (half_of(outline, False), advance),
}


def compose(source, glyph):
    """The glyph's outline and advance."""
    whole, advance = RecordingPen(), 0
    for part in glyph.parts:
        outline, width = source.outline(part)
        outline.replay(TransformPen(whole, Transform().translate(*part.shift).scale(*part.scale)))
        advance = max(advance, round(part.shift[0] + width * part.scale[0]))
    if glyph.ink_left is not None:
        dx = glyph.ink_left - round(bounds_of(whole)[0])
        whole, advance = transformed(whole, (1, 0, 0, 1, dx, 0)), advance + dx
    return whole, advance


# Fonts -------------------------------------------------------------------------------------------------

def true_type(outline):
    pen = TTGlyphPen(None)
    outline.replay(Cu2QuPen(pen, max_err=CURVE_TOLERANCE, reverse_direction=True))
    return pen.glyph()


def name_records(family, notice):
    return {
        "copyright": notice,
        "familyName": family,
        "styleName": "Regular",
        "uniqueFontIdentifier": f"{family} {VERSION}",
        "fullName": family,
        "version": f"Version {VERSION}",
        "psName": family,
        "licenseDescription": "This Font Software is licensed under the SIL Open Font License, Version 1.1.",
        "licenseInfoURL": "https://scripts.sil.org/OFL",
    }


def build_font(source, family, glyphs):
    outlines = {".notdef": (RecordingPen(), SPACE_ADVANCE), "space": (RecordingPen(), SPACE_ADVANCE)}
    outlines.update((g.name, compose(source, g)) for g in glyphs)
    builder = FontBuilder(EM, isTTF=True)
    builder.setupGlyphOrder(list(outlines))
    builder.setupCharacterMap({0x20: "space", CODE_BASE + 0x20: "space"}
                              | {CODE_BASE + g.code: g.name for g in glyphs})
    shapes = {name: true_type(outline) for name, (outline, _) in outlines.items()}
    builder.setupGlyf(shapes)
    builder.setupHorizontalMetrics({name: (advance, getattr(shapes[name], "xMin", 0))
                                    for name, (_, advance) in outlines.items()})
    builder.setupHorizontalHeader(ascent=ASCENT, descent=DESCENT)
    builder.setupNameTable(name_records(family, source.copyright()), mac=False)
    builder.setupOS2(sTypoAscender=ASCENT, sTypoDescender=DESCENT,
                     usWinAscent=ASCENT, usWinDescent=-DESCENT, fsType=0)
    builder.setupPost(keepGlyphNames=False)
    builder.font["head"].created = builder.font["head"].modified = DATE
    builder.font.recalcTimestamp = False
    return builder


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("source", help="the SMuFL font")
    parser.add_argument("--out", type=Path, default=HERE, help="folder for the fonts (default: this one)")
    options = parser.parse_args()
    source = Source(options.source)
    for family, glyphs in read_fonts(HERE / "fontmap.tsv").items():
        build_font(source, family, glyphs).save(options.out / f"{family}.ttf")


if __name__ == "__main__":
    main()
