"""How our paths grow: the time a unit at each size, and the memory at its highest over the bytes that go in."""
import os

import documents
import timing

SIZES = ["1m", "10m", "100m"]
RUNS = [1_000, 10_000, 100_000, 1_000_000]
EDITS = {"append a run": "append", "attributes and range": "query", "insert a unit": "insert", "delete a unit": "delete",
         "add an attribute": "add-attribute"}
# What is timed, and the ending of the document that it takes.
DOCUMENTS = {"HTML dialect, read": ("read-dialect", "html"), "HTML dialect, write": ("write-dialect", "html"),
             "HTML, import": ("read", "html"), "HTML, export": ("write-html", "html"), "RTF, read": ("read", "rtf"),
             "RTF, write": ("write-rtf", "rtf"), ".doc, read": ("read", "doc"), ".doc, write": ("write-doc", "rtf"),
             ".docx, read": ("read", "docx"), ".docx, write": ("write-docx", "rtf"), ".odt, read": ("read", "odt"),
             ".odt, write": ("write-odt", "rtf")}


def document(folder, tool, size, ending):
    """The name of a document; those in other programs' formats are written by ours here."""
    documents.write(folder, size)
    name = f"grown{size}.{ending}" if ending in ("doc", "docx", "odt") else f"doc{size}.{ending}"
    if not os.path.exists(os.path.join(folder, name)):
        timing.run([tool, "convert", f"doc{size}.rtf", "-o", name], folder)
    return name


def report_edits(folder, ours, only):
    print(f"{'nanoseconds an operation, at runs':34}" + "".join(f"{runs:>12,}" for runs in RUNS))
    for name, path in EDITS.items():
        if only in name:
            costs = [float(timing.run([ours, path, str(runs), "1"], folder).output) * 1e9 for runs in RUNS]
            print(f"{name:34}" + "".join(f"{cost:12.0f}" for cost in costs), flush=True)


def report_documents(folder, ours, tool, only):
    print(f"{'nanoseconds a byte; memory / bytes in':38}" + "".join(f"{size:>16}" for size in SIZES))
    for name, (path, ending) in DOCUMENTS.items():
        if only not in name:
            continue
        cells = []
        for size in SIZES:
            source = document(folder, tool, size, ending)
            bytes_in = os.path.getsize(os.path.join(folder, source))
            done = timing.run([ours, path, source, "1"], folder)
            cells.append(f"{float(done.output) * 1e9 / bytes_in:8.1f}; {done.peak_bytes / bytes_in:5.1f}")
        print(f"{name:38}" + "".join(f"{cell:>16}" for cell in cells), flush=True)


def report_pages(folder, tool, only):
    if only not in "RTF to PDF, whole process":
        return
    for size in SIZES[:2]:
        source = document(folder, tool, size, "rtf")
        bytes_in = os.path.getsize(os.path.join(folder, source))
        done = timing.run([tool, "convert", source, "-o", "grown.pdf"], folder)
        print(f"RTF to PDF, whole process, {size}: {done.seconds * 1e9 / bytes_in:.1f} ns a byte; memory / bytes in "
              f"{done.peak_bytes / bytes_in:.1f}", flush=True)


def report(folder, ours, tool, only):
    report_edits(folder, ours, only)
    report_documents(folder, ours, tool, only)
    report_pages(folder, tool, only)
