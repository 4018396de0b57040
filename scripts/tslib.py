"""Reading and filling the hub's Qt Linguist files (.ts) without disturbing the layout
lupdate writes, so a filled file diffs only where translations were added."""

import html
import re

CONTEXT_RE = re.compile(r"<context>.*?</context>", re.S)
NAME_RE = re.compile(r"<name>(.*?)</name>", re.S)
MESSAGE_RE = re.compile(r"(<message(?P<numerus> numerus=\"yes\")?>)(?P<body>.*?)(</message>)", re.S)
SOURCE_RE = re.compile(r"<source>(.*?)</source>", re.S)
COMMENT_RE = re.compile(r"<comment>(.*?)</comment>", re.S)
TRANSLATION_RE = re.compile(r"<translation(?P<attrs>[^>]*)>(?P<text>.*?)</translation>", re.S)
FORM_RE = re.compile(r"<numerusform>(.*?)</numerusform>", re.S)


def escape(text):
    """Escapes text the way lupdate does, quotes included."""
    return html.escape(text, quote=True).replace("&#x27;", "&apos;")


def unescape(text):
    return html.unescape(text)


class Message:
    """One message of a .ts file: where it sits in the text and what it holds."""

    def __init__(self, context, match, offset):
        body = match.group("body")
        self.context = context
        self.source = unescape(SOURCE_RE.search(body).group(1))
        comment = COMMENT_RE.search(body)
        self.comment = unescape(comment.group(1)) if comment else ""
        self.numerus = bool(match.group("numerus"))
        translation = TRANSLATION_RE.search(body)
        self.unfinished = 'type="unfinished"' in translation.group("attrs")
        self.vanished = 'type="vanished"' in translation.group("attrs") or 'type="obsolete"' in translation.group(
            "attrs"
        )
        text = translation.group("text")
        self.forms = [unescape(f) for f in FORM_RE.findall(text)] if self.numerus else [unescape(text)]
        start = offset + match.start("body") + translation.start()
        self.span = (start, start + len(translation.group(0)))

    @property
    def translated(self):
        return not self.unfinished and not self.vanished and all(f.strip() for f in self.forms)


def messages(text):
    """Every live message of a .ts file's text, in file order."""
    found = []
    for context in CONTEXT_RE.finditer(text):
        name = unescape(NAME_RE.search(context.group(0)).group(1))
        for match in MESSAGE_RE.finditer(context.group(0)):
            message = Message(name, match, context.start())
            if not message.vanished:
                found.append(message)
    return found


def translation_element(forms, numerus):
    if not numerus:
        return "<translation>%s</translation>" % escape(forms[0])
    inner = "".join("\n            <numerusform>%s</numerusform>" % escape(f) for f in forms)
    return "<translation>%s\n        </translation>" % inner


def replace_spans(text, replacements):
    """Puts new text over (start, end) spans, which must not overlap."""
    out, last = [], 0
    for (start, end), new in sorted(replacements):
        out.append(text[last:start])
        out.append(new)
        last = end
    out.append(text[last:])
    return "".join(out)


def decode_field(field):
    """A TSV field writes a line break as \\n, a tab as \\t and a backslash as \\\\."""
    return re.sub(r"\\(.)", lambda m: {"n": "\n", "t": "\t"}.get(m.group(1), m.group(1)), field)
