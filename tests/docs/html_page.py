"""What a page in HTML consists of, as far as the tests of the documents ask for it."""

import html.parser

VOID = {"br", "col", "hr", "img", "input", "link", "meta"}


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.language = None
        self.ids = []
        self.targets = []
        self.headings = []  # levels and ids
        self.words = ""
        self._open = []
        self.feed(path.read_text(encoding="utf-8"))
        self.close()
        if self._open:
            raise ValueError(f"{path}: not closed: {self._open}")

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if tag not in VOID:
            self._open.append(tag)
        if tag == "html":
            self.language = attributes.get("lang")
        self.ids += [attributes["id"]] if "id" in attributes else []
        self.targets += [attributes[name] for name in ("href", "src") if name in attributes]
        if tag in ("h2", "h3", "h4"):
            self.headings.append((tag, attributes.get("id")))

    def handle_startendtag(self, tag, attrs):
        self.handle_starttag(tag, attrs)

    def handle_endtag(self, tag):
        if not self._open or self._open.pop() != tag:
            raise ValueError(f"line {self.getpos()[0]}: </{tag}> closes nothing")

    def handle_data(self, data):
        self.words += data
