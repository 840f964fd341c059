#!/usr/bin/env python3
"""Turns unpacked packages into corpora, one paragraph a line, UTF-8.

usage: extract.py handbook|labels|verses SOURCE_DIR OUT_DIR
"""
import gettext
import html
import re
import sys
import xml.etree.ElementTree as ElementTree
import zipfile
from html.parser import HTMLParser
from pathlib import Path

POINTED_LIMIT = 1_000_000  # bytes of he-pointed.txt, to the end of the verse that passes it


def letter_counts(text):
    """How many right-to-left and how many ASCII letters the text has."""
    right = sum('\u0590' <= c < '\u0700' or '\ufb1d' <= c <= '\ufefc' for c in text)
    return right, sum(c.isascii() and c.isalpha() for c in text)


def save(folder, name, paragraphs):
    """Written beside its place and moved there, so that a broken run leaves nothing that looks whole."""
    if not paragraphs:
        return
    draft = folder / (name + '.new')
    draft.write_bytes(''.join(p + '\n' for p in paragraphs).encode())
    draft.replace(folder / (name + '.txt'))


class Page(HTMLParser):
    """The visible paragraphs of one page. Preformatted text keeps its own lines and indents."""
    HIDDEN = frozenset(('head', 'nav', 'script', 'style'))
    BLOCKS = frozenset(('br', 'dd', 'div', 'dt', 'h1', 'h2', 'h3', 'h4', 'h5', 'h6', 'li', 'p', 'pre', 'td', 'th', 'title',
                        'tr'))

    def __init__(self, markup):
        super().__init__()
        self.paragraphs, self.pieces = [], []
        self.hidden_depth, self.preformatted = 0, False
        self.feed(markup)
        self.close()
        self.end_paragraph()

    def end_paragraph(self):
        text = ''.join(self.pieces)
        self.pieces = []
        if self.preformatted:
            lines = [line.rstrip() for line in text.split('\n')]
        else:
            lines = [re.sub('[ \t\r\n]+', ' ', text).strip()]
        self.paragraphs += [line for line in lines if line]

    def tag(self, name, opens):
        if name in self.HIDDEN:
            self.hidden_depth += 1 if opens else -1
        if name in self.BLOCKS:
            self.end_paragraph()
        if name == 'pre':
            self.preformatted = opens

    def handle_starttag(self, name, attributes):
        self.tag(name, True)

    def handle_endtag(self, name):
        self.tag(name, False)

    def handle_data(self, data):
        if self.hidden_depth == 0:
            self.pieces.append(data)


def book(folder):
    """All paragraphs of a book; a short one that stood before is a heading or a link that every page repeats."""
    seen, paragraphs = set(), []
    for path in sorted(folder.glob('*.html'), key=str):
        for paragraph in Page(path.read_text(encoding='utf-8')).paragraphs:
            if len(paragraph) > 40 or paragraph not in seen:
                paragraphs.append(paragraph)
            seen.add(paragraph)
    return paragraphs


def handbook(source, out):
    """Paragraphs with a tenth or more of Latin letters are the mixed corpus, the others the prose of their language."""
    mixed = []
    for name, locale in (('fa', 'fa-IR'), ('ar', 'ar-MA')):
        prose = []
        for paragraph in book(source / locale):
            right, latin = letter_counts(paragraph)
            if right > 0:
                (prose if 10 * latin < right + latin else mixed).append(paragraph)
        save(out, name, prose)
    save(out, 'mixed', mixed)
    save(out, 'en', [p for p in book(source / 'en-US') if len(p) > 20])


def catalogue_labels(source):
    """The one-line messages of the compiled catalogues."""
    for path in sorted(source.rglob('he/LC_MESSAGES/*.mo'), key=str):
        with open(path, 'rb') as file:
            catalogue = gettext.GNUTranslations(file)._catalog
        for key, message in catalogue.items():
            if key and '\n' not in message[:-1]:
                yield message.strip()


def pack_labels(source):
    """The messages of the language packs' Fluent and properties files, line by line."""
    fluent = re.compile(r'(?:\.?[\w-]+\s*=\s*)?(\S.*)')
    properties = re.compile(r'[^#=]+=\s*(\S.*)')
    for path in sorted(source.rglob('*.xpi'), key=str):
        with zipfile.ZipFile(path) as pack:
            for name in sorted(pack.namelist()):
                if not name.endswith(('.ftl', '.properties')):
                    continue
                for line in pack.read(name).decode('utf-8').splitlines():
                    if line.startswith('#'):
                        continue
                    match = (fluent if name.endswith('.ftl') else properties).fullmatch(line.strip())
                    if match:
                        yield re.sub(r'\\u([0-9a-fA-F]{4})', lambda m: chr(int(m[1], 16)), match[1])


def labels(source, out):
    """Hebrew interface texts: markup removed, each once."""
    kept = {}
    for text in (*catalogue_labels(source), *pack_labels(source)):
        text = html.unescape(re.sub('<[^>]*>', '', text)).strip()
        if letter_counts(text)[0] >= 2:
            kept.setdefault(text)
    save(out, 'he', list(kept))


def verse_text(verse):
    """The words of a verse without the slashes between their parts; what follows a word directly is joined to it."""
    words = []
    for element in verse:
        kind = element.tag.rpartition('}')[2]
        if kind == 'w':
            words.append(''.join(element.itertext()).replace('/', ''))
        elif kind == 'seg' and words:
            words[-1] += ''.join(element.itertext())
    return ' '.join(words).replace('\u05be ', '\u05be')


def verses(source, out):
    """Pointed and cantillated verses from Genesis on, up to the size limit."""
    paragraphs, size = [], 0
    for name in ('Gen', 'Exod', 'Lev', 'Num', 'Deut', 'Josh', 'Judg', 'Ruth', '1Sam'):
        for verse in ElementTree.parse(source / (name + '.xml')).iterfind('.//{*}verse'):
            paragraphs.append(verse_text(verse))
            size += len(paragraphs[-1].encode()) + 1
            if size > POINTED_LIMIT:
                save(out, 'he-pointed', paragraphs)
                return


if __name__ == '__main__':
    {'handbook': handbook, 'labels': labels, 'verses': verses}[sys.argv[1]](Path(sys.argv[2]), Path(sys.argv[3]))
