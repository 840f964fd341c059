#!/usr/bin/env python3
"""Writes the synthetic corpus to standard output: everything the engine has a rule for, far denser than in real text.

Nested brackets and quotes, thousands and decimal marks, measures, percents, primes, dates, list indices, equations,
Latin words that begin with digits, three kinds of digits, format characters, joiners, points and vowel marks,
lam-alef, and every paragraph end. The generator is its own, so the text is the same on every machine.
"""
import sys

LINES = 7400
MASK = (1 << 64) - 1

PERSIAN = ('برنامه پرونده نوشته می‌خواهم خانه‌ها روز گفت‌وگو پیوند چاپ ژاله گزارش کلید ویژگی سلام کلاس بالا لازم اطلاعات '
           'رایانه زبان').split()
ARABIC = 'الكتاب مُعَلِّمٌ مدرسةٌ الآن لأنّ إلى الإسلام الله سُؤال قرأتُ مؤمن شيء ملاحظة هٰكذا جدًّا أولًا علاقات نصّ خطّ يدّ'.split()
HEBREW = 'מסמך כותרת קובץ שִׁירָה יְלָדִים תַּפְרִיט הגדרות שורה עמוד חלון כּוֹכָב מילים'.split()
LATIN = 'text.txt GUI ISO-8859 x64 2D 4th eth0 Qt6 i.e. F# net/http libx11-6 W3C draft v10.4.2 window'.split()
UNITS = 'km cm² m³ kg ms °F µs GHz ml %'.split()
FORMATS = '\u200b\u200e\u200f\u202a\u202b\u202c\u2067\u2069\u00ad'
PAIRS = ('()', '()', '[]', '{}', '«»', '‹›', '„“', '“”')
ENDS = ('\n',) * 10 + ('\r\n',) * 5 + ('\u2028', '\u2028', '\u2029', '\r', '\n\n', '\n\r')


class Dice:
    """SplitMix64."""

    def __init__(self, seed):
        self.state = seed

    def roll(self, sides):
        self.state = (self.state + 0x9E3779B97F4A7C15) & MASK
        z = self.state
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9 & MASK
        z = (z ^ z >> 27) * 0x94D049BB133111EB & MASK
        return (z ^ z >> 31) % sides

    def one_of(self, choices):
        return choices[self.roll(len(choices))]

    def chance(self, percent):
        return self.roll(100) < percent


class Writer:
    def __init__(self, seed):
        self.dice = Dice(seed)
        self.number_kinds = (self.plain, self.plain, self.plain, self.decimal, self.thousands, self.persian_digits,
                             self.arabic_digits, self.percent, self.prime)
        self.atoms = (self.measure, self.date, self.number, self.equation, self.latin, self.formatted)

    def plain(self):
        return str(self.dice.roll(10 ** (1 + self.dice.roll(6))))

    def decimal(self):
        return self.plain() + '.' + str(self.dice.roll(1000))

    def thousands(self):
        return f"{1 + self.dice.roll(999)}'{self.dice.roll(1000):03}'{self.dice.roll(1000):03}"

    def persian_digits(self):
        return ''.join(chr(0x6C0 + ord(c)) for c in self.plain())

    def arabic_digits(self):
        return ''.join(chr(0x630 + ord(c)) for c in self.plain())

    def percent(self):
        return self.plain() + '%'

    def prime(self):
        return self.plain() + self.dice.one_of('\'"')

    def number(self):
        return self.dice.one_of(self.number_kinds)()

    def measure(self):
        return self.number() + ' ' + self.dice.one_of(UNITS)

    def date(self):
        parts = [str(1300 + self.dice.roll(750)), str(1 + self.dice.roll(12)), str(1 + self.dice.roll(31))]
        if self.dice.chance(50):
            parts.reverse()
        return self.dice.one_of('/-').join(parts)

    def equation(self):
        return f"{self.number()} {self.dice.one_of('+-*/=×')} {self.number()} = {self.dice.one_of('abxy')}"

    def latin(self):
        return self.dice.one_of(LATIN)

    def formatted(self):
        return self.dice.one_of(FORMATS) + self.dice.one_of(PERSIAN)

    def word(self, words):
        """Seven in ten are plain words, one in fourteen carries a mark, the rest is one of the atoms."""
        if self.dice.chance(30):
            return self.dice.one_of(self.atoms)()
        plain = self.dice.one_of(words)
        return plain + self.dice.one_of(('،', '؛', '؟', ',', ';', '!', ':', '/', '…', ' –')) if self.dice.chance(7) else plain

    def phrase(self, words, depth=0):
        parts = []
        for _ in range(1 + self.dice.roll(7)):
            enclosing = self.dice.roll(16) if depth < 3 else 16
            if enclosing == 0:
                opener, closer = self.dice.one_of(PAIRS)
                inner = self.dice.one_of((words, PERSIAN, ARABIC, HEBREW, LATIN))
                parts.append(opener + self.phrase(inner, depth + 1) + closer)
            elif enclosing == 1:
                quote = self.dice.one_of('"\'')
                lead = self.dice.one_of((' ', ':', ''))
                parts.append(lead + quote + self.phrase(self.dice.one_of((words, LATIN)), depth + 1) + quote)
            else:
                parts.append(self.word(words))
        return ' '.join(parts)

    def head(self):
        """One line in three opens with a list index or blanks."""
        index = str(1 + self.dice.roll(30))
        return self.dice.one_of((index + '. ', index + '- ', index + ') ', index + '.' + str(1 + self.dice.roll(9)) + ' ',
                                 ' ' * (1 + self.dice.roll(4)), '\t')) if self.dice.chance(33) else ''

    def line(self):
        words = self.dice.one_of((PERSIAN, PERSIAN, PERSIAN, ARABIC, ARABIC, HEBREW, LATIN))
        sentences = [self.phrase(words) + self.dice.one_of(('.', '.', '. ', '', '؟', '!', ':'))
                     for _ in range(1 + self.dice.roll(4))]
        return self.head() + ' '.join(sentences) + self.dice.one_of(ENDS)


if __name__ == '__main__':
    writer = Writer(20240320)
    sys.stdout.buffer.write(''.join(writer.line() for _ in range(LINES)).encode())
