#!/usr/bin/env python3
"""Writes simple-fa.rtf, simple-ar.rtf and simple-he.rtf as a simple word processor writes them: bytes of the ANSI code
page where it has the letter, \\uXXXX? where it has not."""
import pathlib

HERE = pathlib.Path(__file__).resolve().parent


def escaped(text, page):
    out = []
    for c in text:
        if ord(c) < 128:
            out.append("\\" + c if c in "\\{}" else c)
            continue
        try:
            out.append("\\'%02x" % c.encode(page)[0])
        except UnicodeEncodeError:
            out.append("\\u%04x?" % ord(c))
    return "".join(out)


def document(page, language, paragraphs):
    lines = [
        f"{{\\rtf1\\fbidis\\ansi\\ansicpg{page[2:]}\\deff0\\nouicompat\\deflang{language}"
        "{\\fonttbl{\\f0\\fnil\\fcharset178 Tahoma;}{\\f1\\froman\\fprq2\\fcharset0 Times New Roman;}}",
        "{\\colortbl ;\\red192\\green0\\blue0;}",
        "{\\*\\generator Simple;}\\viewkind4\\uc1 ",
    ]
    for words, runs in paragraphs:
        body = "".join(f"{on}{escaped(text, page)}{off}" for on, text, off in runs)
        lines.append(f"\\pard\\rtlpar\\sa200\\sl276\\slmult1{words}\\f0\\rtlch\\fs22\\lang{language} {body}\\par")
    lines.append("}")
    return "\r\n".join(lines) + "\r\n\0"


DOCUMENTS = {
    "simple-fa.rtf": ("cp1256", 1065, [
        ("\\qc", [("\\b\\fs32 ", "تقویم ایران", "\\b0\\fs22 ")]),
        ("\\qr", [("", "سال ۱۴۰۳ با ", ""), ("\\i ", "نوروز", "\\i0 "), ("", " آغاز شد؛ می\u200cرود.", "")]),
        ("\\qr", [("", "متن ", ""), ("{\\cf1\\ul ", "رنگی", "}"), ("", " و English {x}", "")]),
    ]),
    "simple-ar.rtf": ("cp1256", 1025, [
        ("\\qr", [("", "السلام ", ""), ("\\b ", "عليكم", "\\b0 "), ("", " ١٢٣.", "")]),
    ]),
    "simple-he.rtf": ("cp1255", 1037, [
        ("\\qr", [("", "שלום ", ""), ("\\b ", "עולם", "\\b0 "), ("\\f1 ", " 42!", "\\f0 ")]),
    ]),
}

for name, (page, language, paragraphs) in DOCUMENTS.items():
    (HERE / name).write_bytes(document(page, language, paragraphs).encode("ascii"))
