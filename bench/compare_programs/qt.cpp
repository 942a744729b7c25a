// Qt's side of the comparison: qt PATH ARGUMENT [ROUNDS] times one path, qt text read FILE prints what was read.
#include <QtGui>
#include <cstring>
#include <map>

#include "bench/compare_programs/measure.hpp"

namespace {

using compare::report;

int rounds = 3;

QString source(const char* file) { return QString::fromStdString(compare::contents(file)); }

void fill(QTextDocument& document, int runs) {
  constexpr int runsInParagraph = 50;
  QTextCharFormat styles[2];
  styles[1].setFontWeight(QFont::Bold);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (int run = 0; run < runs; ++run) {
    if (run != 0 && run % runsInParagraph == 0) cursor.insertBlock();
    cursor.insertText("ten chars ", styles[run % 2]);
  }
  cursor.endEditBlock();
}

void append(const char* count) {
  report(std::atoi(count), rounds, [&] {
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    fill(document, std::atoi(count));
  });
}

template <class Body>
void atPlaces(const char* count, Body&& body) {
  QTextDocument document;
  document.setUndoRedoEnabled(false);
  fill(document, std::atoi(count));
  const auto places = compare::places(static_cast<uint32_t>(std::atoi(count)) * 10 - 200, 20'000);
  report(static_cast<double>(places.size()), rounds, [&] {
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (const uint32_t place : places) body(document, cursor, static_cast<int>(place));
    cursor.endEditBlock();
  });
}

// The interface finds blocks by position, but what is inside a block only by looking through it.
void query(const char* count) {
  volatile int sum = 0;
  atPlaces(count, [&](QTextDocument& document, QTextCursor&, int place) {
    const QTextBlock block = document.findBlock(place);
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      if (part.fragment().contains(place)) {
        sum = sum + part.fragment().charFormat().fontWeight() + part.fragment().length();
        break;
      }
    }
  });
}

void insert(const char* count) {
  atPlaces(count, [](QTextDocument&, QTextCursor& cursor, int place) {
    cursor.setPosition(place);
    cursor.insertText("z");
  });
}

void erase(const char* count) {
  rounds = 1;
  atPlaces(count, [](QTextDocument& document, QTextCursor& cursor, int place) {
    cursor.setPosition(place % (document.characterCount() - 2));
    cursor.deleteChar();
  });
}

void addAttribute(const char* count) {
  QTextCharFormat raised;
  raised.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
  atPlaces(count, [&](QTextDocument&, QTextCursor& cursor, int place) {
    cursor.setPosition(place);
    cursor.setPosition(place + 1 + place % 100, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(raised);
  });
}

void copy(const char* count) {
  QTextDocument document;
  fill(document, std::atoi(count));
  report(1, rounds, [&] { delete document.clone(); });
}

void read(const char* file) {
  const QString html = source(file);
  report(1, rounds, [&] {
    QTextDocument document;
    document.setHtml(html);
  });
}

template <class Body>
void withDocument(const char* file, Body&& body) {
  QTextDocument document;
  document.setHtml(source(file));
  report(1, rounds, [&] { body(document); });
}

void writeHTML(const char* file) {
  withDocument(file, [](QTextDocument& document) { document.toHtml(); });
}

void writeODT(const char* file) {
  withDocument(file, [](QTextDocument& document) {
    QBuffer buffer;
    QTextDocumentWriter(&buffer, "odf").write(&document);
  });
}

// A4 with margins of an inch, from HTML in memory to a file: with the first layout, which a second printing would not do.
void writePDF(const char* file) {
  const QString html = source(file);
  QTextDocument document;
  document.setHtml(html);
  report(1, 1, [&] {
    QPdfWriter writer("qt.pdf");
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(25.4, 25.4, 25.4, 25.4), QPageLayout::Millimeter);
    writer.setResolution(72);
    document.documentLayout()->setPaintDevice(&writer);
    document.setDocumentMargin(0);
    document.setPageSize(QSizeF(writer.width(), writer.height()));
    document.print(&writer);
  });
}

void printText(const char* file) {
  QTextDocument document;
  document.setHtml(source(file));
  std::fputs(document.toPlainText().toUtf8().constData(), stdout);
}

const std::map<std::string, void (*)(const char*)> paths = {{"append", append},
                                                            {"query", query},
                                                            {"insert", insert},
                                                            {"delete", erase},
                                                            {"add-attribute", addAttribute},
                                                            {"copy", copy},
                                                            {"read", read},
                                                            {"write-html", writeHTML},
                                                            {"write-odt", writeODT},
                                                            {"write-pdf", writePDF}};

}  // namespace

int main(int count, char** arguments) {
  QGuiApplication application(count, arguments);
  QGuiApplication::setFont(QFont("Helvetica", 12));
  if (count < 3) return std::fputs("qt PATH ARGUMENT [ROUNDS] | qt text read FILE\n", stderr), 2;
  if (std::strcmp(arguments[1], "text") == 0) return printText(arguments[3]), 0;
  if (count > 3) rounds = std::atoi(arguments[3]);
  paths.at(arguments[1])(arguments[2]);
}
