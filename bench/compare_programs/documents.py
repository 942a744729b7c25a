"""The documents that are compared on: styled paragraphs, the same for every program and on every day."""
import html
import itertools
import os

WORDS = ("river stone morning letter garden window market branch winter silver engine copper village harbour "
         "paper bridge meadow thunder candle journey of the and to in that it with as for on a by from which").split()
UNUSUAL = ["Kraków", "crème", "“so”", "—", "£12", "naïf", "δέλτα", "漢字"]
COLOURS = [(176, 32, 32), (16, 112, 48), (32, 48, 160), (120, 120, 120)]
SIZES = [9, 10, 14, 18]
# What a stretch of words looks like; most are plain.
LOOKS = ["plain"] * 9 + ["bold", "italic", "both", "underline", "strike", "colour", "size", "serif", "typewriter", "link"]
LETTERS_OF_SIZE = {"small": 1_000, "100": 300_000, "1m": 1_000_000, "10m": 10_000_000}


class Choice:
    """A sequence of numbers that is the same on every machine."""

    def __init__(self):
        self.state = 1

    def below(self, limit):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) & (2**64 - 1)
        return (self.state >> 33) % limit

    def of(self, items):
        return items[self.below(len(items))]


def stretches(choice, number):
    """The stretches of a paragraph: their look, a value for it, and their words."""
    if number % 24 == 0:
        return [("heading", 0, f"Part {number // 24 + 1} {choice.of(WORDS).title()} {choice.of(WORDS).title()}")]
    made = []
    for place in range(6 + choice.below(12)):
        words = [choice.of(WORDS) for _ in range(3 + choice.below(9))]
        if choice.below(7) == 0:
            words[choice.below(len(words))] = choice.of(UNUSUAL)
        look = choice.of(LOOKS)
        value = {"colour": choice.of(COLOURS), "size": choice.of(SIZES), "link": f"https://example.org/{number}/{place}?a=1&b=2"}
        made.append((look, value.get(look), " ".join(words)))
    return made


def paragraphs(letters):
    choice, made = Choice(), 0
    for number in itertools.count():
        parts = stretches(choice, number)
        yield parts
        made += sum(len(text) + 1 for _, _, text in parts)
        if made >= letters:
            return


HTML_TAGS = {"bold": "<b>{0}</b>", "italic": "<i>{0}</i>", "both": "<b><i>{0}</i></b>", "underline": "<u>{0}</u>",
             "strike": "<s>{0}</s>", "serif": '<span style="font-family: Times">{0}</span>', "heading": "{0}", "plain": "{0}",
             "typewriter": '<span style="font-family: Courier">{0}</span>', "size": '<span style="font-size: {1}pt">{0}</span>',
             "colour": '<span style="color: rgb({1[0]},{1[1]},{1[2]})">{0}</span>', "link": '<a href="{1}">{0}</a>'}
RTF_WORDS = {"bold": "{{\\b {0}}}", "italic": "{{\\i {0}}}", "both": "{{\\b\\i {0}}}", "underline": "{{\\ul {0}}}",
             "strike": "{{\\strike {0}}}", "serif": "{{\\f1 {0}}}", "typewriter": "{{\\f2 {0}}}", "heading": "{0}",
             "plain": "{0}", "size": "{{\\fs{1} {0}}}", "colour": "{{\\cf{1} {0}}}",
             "link": '{{\\field{{\\*\\fldinst{{HYPERLINK "{1}"}}}}{{\\fldrslt{{\\ul {0}}}}}}}'}


def as_html(parts):
    inside = []
    for look, value, text in parts:
        value = html.escape(value) if look == "link" else value
        inside.append(HTML_TAGS[look].format(html.escape(text, quote=False), value))
    tag = "h1" if parts[0][0] == "heading" else "p"
    return f"<{tag}>{' '.join(inside)}</{tag}>\n"


def rtf_text(text):
    return "".join(c if c < "\x80" else f"\\u{ord(c)}?" for c in text)


def as_rtf(parts):
    inside = []
    for look, value, text in parts:
        value = {"size": lambda: 2 * value, "colour": lambda: COLOURS.index(value) + 1}.get(look, lambda: value)()
        inside.append(RTF_WORDS[look].format(rtf_text(text), value))
    style = "\\pard\\sa200\\fs48\\b " if parts[0][0] == "heading" else "\\pard\\sa200\\fs24 "
    return style + " ".join(inside) + ("\\b0\\par\n" if parts[0][0] == "heading" else "\\par\n")


def as_text(parts):
    return " ".join(text for _, _, text in parts) + "\n"


HTML_HEAD = ('<!DOCTYPE html>\n<html><head><meta charset="utf-8"><title>Compared</title>'
             "<style>body { font: 12pt Helvetica }</style></head><body>\n")
RTF_HEAD = ("{\\rtf1\\ansi\\ansicpg1252\\uc1{\\fonttbl{\\f0 Helvetica;}{\\f1 Times;}{\\f2 Courier;}}{\\colortbl;"
            + "".join("\\red%d\\green%d\\blue%d;" % colour for colour in COLOURS)
            + "}\n\\paperw11906\\paperh16838\\margl1440\\margr1440\\margt1440\\margb1440\n")
FORMS = {"html": (HTML_HEAD, as_html, "</body></html>\n"), "rtf": (RTF_HEAD, as_rtf, "}\n"), "txt": ("", as_text, "")}


def write(folder, size):
    """Writes doc<size>.html, .rtf and .txt, unless they are there. The largest is the one before it, ten times over."""
    times, size_made = (10, "10m") if size == "100m" else (1, size)
    for ending, (head, form, tail) in FORMS.items():
        path = os.path.join(folder, f"doc{size}.{ending}")
        if os.path.exists(path):
            continue
        body = "".join(form(parts) for parts in paragraphs(LETTERS_OF_SIZE[size_made]))
        with open(path + ".part", "w", encoding="utf-8", newline="") as file:
            file.writelines([head, *[body] * times, tail])
        os.rename(path + ".part", path)
