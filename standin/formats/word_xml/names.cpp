// The namespaces of every edition, and the names that differ among them.
#include "standin/formats/word_xml/names.hpp"

namespace standin::formats::word_xml {

namespace {

constexpr xml::NameNumber number(Name name) { return static_cast<xml::NameNumber>(name); }

}  // namespace

const xml::NameTable& nameTable() {
  static const xml::NameTable table(
      {
          {"http://schemas.openxmlformats.org/wordprocessingml/2006/main", "w"},
          {"http://purl.oclc.org/ooxml/wordprocessingml/main", "w"},
          {"http://schemas.microsoft.com/office/word/2003/wordml", "w"},
          {"http://schemas.microsoft.com/office/word/2010/wordml", "w14"},
          {"http://schemas.openxmlformats.org/officeDocument/2006/relationships", "r"},
          {"http://purl.oclc.org/ooxml/officeDocument/relationships", "r"},
          {"http://schemas.openxmlformats.org/drawingml/2006/main", "a"},
          {"http://purl.oclc.org/ooxml/drawingml/main", "a"},
          {"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing", "wp"},
          {"http://purl.oclc.org/ooxml/drawingml/wordprocessingDrawing", "wp"},
          {"http://schemas.openxmlformats.org/officeDocument/2006/math", "m"},
          {"http://purl.oclc.org/ooxml/officeDocument/math", "m"},
          {"http://schemas.openxmlformats.org/markup-compatibility/2006", "mc"},
          {"http://schemas.openxmlformats.org/package/2006/relationships", "rel"},
          {"http://schemas.openxmlformats.org/package/2006/metadata/core-properties", "cp"},
          {"http://schemas.openxmlformats.org/officeDocument/2006/extended-properties", "ep"},
          {"http://purl.oclc.org/ooxml/officeDocument/extendedProperties", "ep"},
          {"http://schemas.openxmlformats.org/officeDocument/2006/custom-properties", "custom"},
          {"http://purl.oclc.org/ooxml/officeDocument/customProperties", "custom"},
          {"http://purl.org/dc/elements/1.1/", "dc"},
          {"http://purl.org/dc/terms/", "dcterms"},
          {"http://schemas.microsoft.com/office/2006/xmlPackage", "pkg"},
          {"http://schemas.microsoft.com/aml/2001/core", "aml"},
          {"urn:schemas-microsoft-com:vml", "v"},
          {"urn:schemas-microsoft-com:office:office", "o"},
          {"http://www.w3.org/XML/1998/namespace", "xml"},
      },
      {
#define NAME_ROW(enumerator, name) {name, number(Name::enumerator)},
          WORD_XML_NAMES(NAME_ROW)
#undef NAME_ROW
          // Of the edition of 2003.
          {"o:Author", number(Name::author)},
          {"o:Category", number(Name::category)},
          {"o:Company", number(Name::company)},
          {"o:Created", number(Name::created)},
          {"o:CustomDocumentProperties", number(Name::customProperties)},
          {"o:Description", number(Name::comment)},
          {"o:Keywords", number(Name::keywords)},
          {"o:LastAuthor", number(Name::editor)},
          {"o:LastSaved", number(Name::modified)},
          {"o:Manager", number(Name::manager)},
          {"o:Subject", number(Name::subject)},
          {"o:Title", number(Name::title)},
          {"w:after-autospacing", number(Name::afterAutospacing)},
          {"w:before-autospacing", number(Name::beforeAutospacing)},
          {"w:b-cs", number(Name::boldComplex)},
          {"w:fareast", number(Name::eastAsianFont)},
          {"w:first-line", number(Name::firstLine)},
          {"w:h-ansi", number(Name::highAnsiFont)},
          {"w:hlink", number(Name::hyperlink)},
          {"w:i-cs", number(Name::italicComplex)},
          {"w:ilfo", number(Name::numberingId)},
          {"w:ilst", number(Name::abstractNumberingId)},
          {"w:line-rule", number(Name::lineRule)},
          {"w:list", number(Name::numbering)},
          {"w:listDef", number(Name::abstractNumbering)},
          {"w:listDefId", number(Name::abstractNumberingId)},
          {"w:listPr", number(Name::numberingProperties)},
          {"w:listStyleLink", number(Name::numberingStyleLink)},
          {"w:sz-cs", number(Name::sizeComplex)},
      });
  return table;
}

}  // namespace standin::formats::word_xml
