"""Makes colours.ttf, a font of a letter and a heart of two coloured layers. Needs fonttools."""
import os
import sys

from fontTools.colorLib.builder import buildCOLR, buildCPAL
from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen

HEART = [(400, 0), (60, 380), (120, 640), (300, 660), (400, 540), (500, 660), (680, 640), (740, 380)]
SHINE = [(200, 440), (220, 560), (300, 580), (290, 470)]
BAR = [(100, 0), (100, 600), (200, 600), (200, 0)]


def glyph(points=()):
    pen = TTGlyphPen(None)
    if points:
        pen.moveTo(points[0])
        for point in points[1:]:
            pen.lineTo(point)
        pen.closePath()
    return pen.glyph()


names = [".notdef", "space", "a", "heart", "heart.body", "heart.shine"]
shapes = {".notdef": glyph(BAR), "space": glyph(), "a": glyph(BAR), "heart": glyph(HEART), "heart.body": glyph(HEART),
          "heart.shine": glyph(SHINE)}
font = FontBuilder(1000, isTTF=True)
font.setupGlyphOrder(names)
font.setupCharacterMap({0x20: "space", 0x61: "a", 0x2764: "heart"})
font.setupGlyf(shapes)
font.setupHorizontalMetrics({name: (300 if name in ("space", "a", ".notdef") else 800, 0) for name in names})
font.setupHorizontalHeader(ascent=900, descent=-240)
font.setupNameTable({"familyName": "Colours", "styleName": "Regular"})
font.setupOS2(sTypoAscender=900, sTypoDescender=-240, usWinAscent=900, usWinDescent=240)
font.setupPost()
font.font["COLR"] = buildCOLR({"heart": [("heart.body", 0), ("heart.shine", 1)]}, version=0)
font.font["CPAL"] = buildCPAL([[(0.85, 0.1, 0.2, 1.0), (1.0, 0.75, 0.3, 1.0)]])
font.font["head"].created = font.font["head"].modified = 3500000000
font.font.recalcTimestamp = False
font.save(sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "colours.ttf"))
