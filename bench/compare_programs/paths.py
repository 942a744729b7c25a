"""Every path that is compared: our command, the commands of its peers, and how to tell that their results are equal."""
import collections

# A command; whether it prints the seconds that it took; what to run for the text that it works on or gives, and to read it from.
Path = collections.namedtuple("Path", "command times_itself text")
# `operations`: how many of what is measured our command runs, for instructions a piece.
Row = collections.namedtuple("Row", "name target paths operations")

PLACES, TURNS, CALLS = 100_000, 200_000, 1_000_000


def rows(bin_folder, build_folder):
    ours, qt, floors = f"{build_folder}/compare_ours", f"{bin_folder}/qt", f"{bin_folder}/floors"
    tool = f"{build_folder}/styledtext"

    def inside(program, path, argument, text=None):
        return Path([program, path, argument], True, text and [program, "text", *text])

    def whole(command, result=None):
        return Path(command, False, result)

    def editing(name, path, runs, target, operations=PLACES):
        size = f"{runs // 1000}k runs"
        peers = {"ours": inside(ours, path, str(runs))}
        if runs <= 100_000:
            peers["Qt"] = inside(qt, path, str(runs))
        return Row(f"{name}, {size}", target, peers, operations)

    yield editing("attributes and their range", "query", 100_000, 0.15e-6)
    yield editing("attributes and their range", "query", 1_000_000, 0.25e-6)
    yield editing("insert a unit", "insert", 100_000, 0.3e-6)
    yield editing("delete a unit", "delete", 100_000, 0.3e-6)
    yield editing("add an attribute to 1 to 100 units", "add-attribute", 100_000, 1e-6)
    yield editing("append a run of ten units", "append", 100_000, 0.2e-6, 100_000)
    yield editing("copy", "copy", 100_000, 1e-6, 10_000)
    yield editing("copy", "copy", 1_000_000, 1e-6, 10_000)

    dialect = {"ours": inside(ours, "read-dialect", "doc1m.html", ["dialect", "doc1m.html"]),
               "libxml2 SAX": inside(floors, "sax", "doc1m.html", ["sax", "doc1m.html"]),
               "memcpy": inside(floors, "memcpy", "doc1m.html")}
    yield Row("HTML dialect: read", 1.37e6 / 300e6, dialect, 1)
    yield Row("HTML dialect: write", 1.0e6 / 300e6, {"ours": inside(ours, "write-dialect", "doc1m.html")}, 1)
    for name, file, rate in (("escape plain text", "ascii.txt", 3e9), ("escape markup", "doc1m.html", None)):
        paths = {"ours": inside(ours, "escape", file), "memcpy": inside(floors, "memcpy", file)}
        yield Row(f"HTML dialect: {name}", 1e6 / rate if rate else None, paths, 1)
    for name, file, rate in (("ASCII", "ascii.txt", 4e9), ("mixed", "doc1m.txt", 1e9)):
        for direction, path in (("to the platform", "to-platform"), ("to the host", "to-host")):
            paths = {"ours": inside(ours, path, file), "memcpy": inside(floors, "memcpy", file)}
            yield Row(f"host string {direction}, {name}", 1e6 / rate, paths, 1)

    html = {"ours": inside(ours, "read", "doc1m.html", ["read", "doc1m.html"]),
            "Qt": inside(qt, "read", "doc1m.html", ["read", "doc1m.html"]),
            "libxml2 tree": inside(floors, "tree", "doc1m.html")}
    yield Row("HTML: import", None, html, 1)
    html = {"ours": inside(ours, "write-html", "doc1m.html"), "Qt": inside(qt, "write-html", "doc1m.html")}
    yield Row("HTML: export", None, html, 1)
    rtf = {"ours": inside(ours, "read", "doc1m.rtf"), "unrtf to text": whole(["unrtf", "--quiet", "--text", "doc1m.rtf"])}
    yield Row("RTF: read", 20e-3, rtf, 1)
    yield Row("RTF: write", 15e-3, {"ours": inside(ours, "write-rtf", "doc1m.rtf")}, 1)
    catdoc = ["catdoc", "-w", "-d", "utf-8", "doc1m.doc"]
    # It prints the targets of links as well.
    without_targets = ["sh", "-c", " ".join(catdoc) + """ | sed 's/HYPERLINK "[^"]*"//g'"""]
    doc = {"ours": inside(ours, "read", "doc1m.doc", ["read", "doc1m.doc"]), "catdoc": whole(catdoc, without_targets)}
    yield Row(".doc: read", 10e-3, doc, 1)
    yield Row(".docx: read", 40e-3, {"ours": inside(ours, "read", "doc1m.docx", ["read", "doc1m.docx"])}, 1)
    yield Row(".odt: read", 40e-3, {"ours": inside(ours, "read", "doc1m.odt", ["read", "doc1m.odt"])}, 1)
    odt = {"ours": inside(ours, "write-odt", "doc1m.html"), "Qt": inside(qt, "write-odt", "doc1m.html")}
    yield Row(".odt: write", 35e-3, odt, 1)

    load = Path([ours, "load", f"{build_folder}/StyledTextZKT.so", "1"], True, None)
    yield Row("load, REALPluginMain included", 1e-3, {"ours": load}, 1)
    length = {"ours": inside(ours, "length", f"{build_folder}/StyledTextZKT.so")}
    yield Row("Length, from a program's loop", 150e-9, length, TURNS)
    alone = {"ours": inside(ours, "length-alone", f"{build_folder}/StyledTextZKT.so")}
    yield Row("Length, the function alone", 10e-9, alone, CALLS)

    def converted(source, result, others):
        paths = {"ours": whole([tool, "convert", source, "-o", result])}
        paths.update({name: whole(command) for name, command in others.items()})
        return paths

    def office(source, ending):
        return ["soffice", "--headless", "--convert-to", ending, "--outdir", "office", source]

    printed = {"LibreOffice": office("doc1m.rtf", "pdf")}
    yield Row("process: RTF to PDF", 0.35, converted("doc1m.rtf", "ours.pdf", printed), 1)
    printed = {"LibreOffice": office("doc1m.html", "pdf"), "Qt": [qt, "write-pdf", "doc1m.html"]}
    yield Row("process: HTML to PDF", None, converted("doc1m.html", "ours.pdf", printed), 1)
    unrtf = {"unrtf": ["unrtf", "--quiet", "--html", "doc1m.rtf"], "pandoc": ["pandoc", "-s", "doc1m.rtf", "-o", "pandoc.html"]}
    yield Row("process: RTF to HTML", None, converted("doc1m.rtf", "ours.html", unrtf), 1)
    yield Row("process: HTML to RTF", None,
              converted("doc1m.html", "ours.rtf", {"pandoc": ["pandoc", "-s", "doc1m.html", "-o", "pandoc.rtf"]}), 1)
    yield Row("process: .docx to RTF", None,
              converted("doc1m.docx", "ours.rtf", {"pandoc": ["pandoc", "-s", "doc1m.docx", "-o", "pandoc.rtf"],
                                                   "LibreOffice": office("doc1m.docx", "rtf")}), 1)
