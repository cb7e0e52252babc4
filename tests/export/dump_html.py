"""Prints what a parser finds in a web page: heading lines, then a line for each row of a table."""

import sys
from html.parser import HTMLParser

VOID = {"meta", "col", "br", "link"}


class Dump(HTMLParser):
    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.open = []
        self.cells = []
        self.text = ""

    def handle_starttag(self, tag, attributes):
        given = dict(attributes)
        if tag in ("html", "meta", "link", "script", "img"):
            print(tag, " ".join("%s=%s" % one for one in attributes))
        if tag not in VOID:
            self.open.append(tag)
        if tag in ("p", "h1", "h2", "title", "th", "td", "footer"):
            self.text = ""
        if tag == "tr":
            self.cells = ["%s.%s" % (self.open[-2], given.get("class", ""))]
        if tag in ("th", "td"):
            self.style = given.get("class", "") + ("*" + given["colspan"] if "colspan" in given else "")
        if tag == "bdi":
            self.text += "<"

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            sys.exit("the tags are not balanced at </%s>" % tag)
        if tag == "bdi":
            self.text += ">"
        if tag in ("p", "h1", "h2", "title", "footer"):
            print("%s: %s" % (tag, self.text))
        if tag in ("th", "td"):
            self.cells.append("%s[%s]%s" % (tag, self.style, self.text))
        if tag == "tr":
            print(" | ".join(self.cells))

    def handle_data(self, data):
        if self.open and self.open[-1] != "style":
            self.text += data


with open(sys.argv[1], encoding="utf-8", newline="") as page:
    dump = Dump()
    dump.feed(page.read())
    dump.close()
if dump.open:
    sys.exit("left open: %s" % dump.open)
